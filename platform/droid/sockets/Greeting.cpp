#include "Greeting.h"

#include "socket/SeqPacket.h"

#include <sys/random.h>
#include <sys/socket.h>

#include <cerrno>
#include <cstddef>

namespace android {

namespace {

constexpr uint32_t kMark = 0x4B51'4452;
constexpr uint32_t kVersion = 2;

uint64_t newInstance() {
    uint64_t number = 0;
    while (number == 0 && ::getrandom(&number, sizeof(number), 0) != sizeof(number)) {
    }
    return number;
}

} // namespace

Greeting greetingOfProcess(status_t status) {
    static const uint64_t instance = newInstance();
    return {kMark, kVersion, status, 0, instance};
}

Greeted takeGreeting(int socket, bool wait, Greeting* greeting) {
    const ssize_t length = kq::receivePacket(socket, greeting, sizeof(*greeting), wait ? 0 : MSG_DONTWAIT);
    if (length < 0) {
        return errno == EAGAIN ? Greeted::NotYet : Greeted::Gone;
    }
    if (length == 0) {
        return Greeted::Gone;
    }
    const bool good = length == sizeof(*greeting) && greeting->mark == kMark && greeting->version == kVersion;
    return good && greeting->instance != 0 ? Greeted::Yes : Greeted::Malformed;
}

} // namespace android
