#include "Peer.h"

#include "bench/support/Child.h"
#include "bench/support/Failure.h"

#include <sys/socket.h>
#include <systemd/sd-bus-vtable.h>
#include <systemd/sd-bus.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <optional>

namespace kelutv::bench {

namespace {

constexpr const char* kPath = "/television";
constexpr const char* kInterface = "kelutv.bench.Television";

/** A result of sd-bus, which is negative for a failure. */
int checked(int result, const char* what) {
    errno = -result;
    require(result >= 0, what);
    return result;
}

int setVolume(sd_bus_message* request, void*, sd_bus_error*) {
    int32_t channel = 0;
    int32_t volume = 0;
    const int read = sd_bus_message_read(request, "ii", &channel, &volume);
    return read < 0 ? read : sd_bus_reply_method_return(request, "i", 0);
}

constexpr sd_bus_vtable kMethods[] = {SD_BUS_VTABLE_START(0),
                                      SD_BUS_METHOD("SetVolume", "ii", "i", setVolume, SD_BUS_VTABLE_UNPRIVILEGED),
                                      SD_BUS_VTABLE_END};

sd_bus* newBus(int socket) {
    sd_bus* bus = nullptr;
    checked(sd_bus_new(&bus), "sd_bus_new");
    checked(sd_bus_set_fd(bus, socket, socket), "sd_bus_set_fd");
    return bus;
}

void answer(int socket) {
    sd_bus* const bus = newBus(socket);
    sd_id128_t identity{};
    checked(sd_id128_randomize(&identity), "sd_id128_randomize");
    checked(sd_bus_set_server(bus, 1, identity), "sd_bus_set_server");
    checked(sd_bus_add_object_vtable(bus, nullptr, kPath, kInterface, kMethods, nullptr), "sd_bus_add_object_vtable");
    checked(sd_bus_start(bus), "sd_bus_start");
    for (;;) {
        if (checked(sd_bus_process(bus, nullptr), "sd_bus_process") == 0) {
            checked(sd_bus_wait(bus, UINT64_MAX), "sd_bus_wait");
        }
    }
}

class SdBusPeer : public Peer {
public:
    SdBusPeer() {
        int ends[2];
        require(::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) == 0, "socketpair");
        mAnswerer.emplace([&ends] {
            ::close(ends[0]);
            answer(ends[1]);
        });
        ::close(ends[1]);
        mBus = newBus(ends[0]);
        checked(sd_bus_start(mBus), "sd_bus_start");
    }
    ~SdBusPeer() override { sd_bus_unref(mBus); }
    SdBusPeer(const SdBusPeer&) = delete;
    SdBusPeer& operator=(const SdBusPeer&) = delete;

    void call() override {
        sd_bus_error error = SD_BUS_ERROR_NULL;
        sd_bus_message* reply = nullptr;
        checked(sd_bus_call_method(mBus, nullptr, kPath, kInterface, "SetVolume", &error, &reply, "ii", 0, 20),
                "sd_bus_call_method");
        int32_t status = -1;
        checked(sd_bus_message_read(reply, "i", &status), "sd_bus_message_read");
        if (status != 0) {
            giveUp("a call over sd-bus failed");
        }
        sd_bus_message_unref(reply);
        sd_bus_error_free(&error);
    }
    const char* name() const override { return "sd_bus"; }
    pid_t process() const override { return mAnswerer->process(); }

private:
    std::optional<Child> mAnswerer;
    sd_bus* mBus = nullptr;
};

} // namespace

std::unique_ptr<Peer> makeSdBusPeer() { return std::make_unique<SdBusPeer>(); }

} // namespace kelutv::bench
