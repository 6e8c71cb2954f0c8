// The service of a television on the foreign platform, over its sockets; it prints every request that it gets.
//
// foreign-service [--dies-at COMMAND | --answers HEXADECIMALS]

#include "foreign/platform/sockets/Sockets.h"
#include "foreign/service/Television.h"

#include "wire/codec/ByteReader.h"

#include <poll.h>
#include <sys/prctl.h>
#include <sys/socket.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <list>
#include <optional>

namespace foreign {

namespace {

/** What the service does but answer. */
struct Faults {
    std::optional<std::int32_t> diesAt;
    std::optional<Bytes> answer;
};

Bytes bytesOf(const std::string& hexadecimals) {
    Bytes bytes;
    for (std::size_t at = 0; at + 1 < hexadecimals.size(); at += 2) {
        bytes.push_back(static_cast<std::uint8_t>(std::stoul(hexadecimals.substr(at, 2), nullptr, 16)));
    }
    return bytes;
}

Descriptor acceptFrom(const Descriptor& listener) {
    return Descriptor(::accept4(listener.number(), nullptr, nullptr, SOCK_CLOEXEC));
}

/** One thread, which looks after all connections in turn. */
class Service {
public:
    Service(const std::string& folder, Faults faults)
        : mCalls(listenAt(folder, "TVBaseService")), mEvents(listenAt(folder, kEventSocket)),
          mFaults(std::move(faults)) {}

    bool isOpen() const { return mCalls.isOpen() && mEvents.isOpen(); }

    [[noreturn]] void run() {
        for (;;) {
            std::vector<pollfd> wanted{{mCalls.number(), POLLIN, 0}, {mEvents.number(), POLLIN, 0}};
            for (const Descriptor& connection : mConnections) {
                wanted.push_back({connection.number(), POLLIN, 0});
            }
            if (::poll(wanted.data(), wanted.size(), -1) > 0) {
                attend(wanted);
            }
        }
    }

private:
    void attend(const std::vector<pollfd>& ready) {
        std::size_t next = 2;
        for (auto connection = mConnections.begin(); connection != mConnections.end(); ++next) {
            const bool isOver = ready[next].revents != 0 && !serve(*connection);
            connection = isOver ? mConnections.erase(connection) : std::next(connection);
        }
        if (ready[0].revents != 0) {
            mConnections.push_back(acceptFrom(mCalls));
        }
        if (ready[1].revents != 0) {
            mSubscribers.push_back(acceptFrom(mEvents));
            send(mSubscribers.back(), {0, {}});
        }
    }

    /** Whether more may come by this connection. */
    bool serve(const Descriptor& connection) {
        const std::optional<Packet> purpose = receive(connection);
        if (!purpose || purpose->word == static_cast<std::uint32_t>(Purpose::Life)) {
            return purpose.has_value();
        }
        if (const std::optional<Packet> call = receive(connection)) {
            send(connection, {0, reply(call->bytes)});
        }
        return false;
    }

    Bytes reply(const Bytes& request) {
        print(request);
        kelutv::wire::ByteReader bytes(request.data(), request.size());
        const kelutv::wire::Request read = kelutv::wire::readRequest(bytes);
        if (read.number && read.number == mFaults.diesAt) {
            std::_Exit(0);
        }
        std::vector<Event> events;
        Bytes answer = mTelevision.answer(read, events);
        for (const Event& event : events) {
            publish(event);
        }
        return mFaults.answer.value_or(answer);
    }

    static void print(const Bytes& request) {
        std::string line = "request ";
        for (const std::uint8_t byte : request) {
            char digits[3];
            std::snprintf(digits, sizeof(digits), "%02x", static_cast<unsigned>(byte));
            line += digits;
        }
        std::puts(line.c_str());
        std::fflush(stdout);
    }

    void publish(const Event& event) {
        mSubscribers.remove_if([&event](const Descriptor& subscriber) {
            return !send(subscriber, {event.identifier, event.payload});
        });
    }

    const Descriptor mCalls;
    const Descriptor mEvents;
    const Faults mFaults;
    std::list<Descriptor> mConnections;
    std::list<Descriptor> mSubscribers;
    Television mTelevision;
};

/** Whether the arguments are as the head of this file says. */
bool readFaults(int count, char** arguments, Faults& faults) {
    if (count == 1) {
        return true;
    }
    if (count == 3 && std::strcmp(arguments[1], "--dies-at") == 0) {
        faults.diesAt = static_cast<std::int32_t>(std::strtol(arguments[2], nullptr, 0));
        return true;
    }
    if (count == 3 && std::strcmp(arguments[1], "--answers") == 0) {
        faults.answer = bytesOf(arguments[2]);
        return true;
    }
    return false;
}

} // namespace

} // namespace foreign

int main(int count, char** arguments) {
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    const char* const folder = std::getenv("FOREIGN_FOLDER");
    foreign::Faults faults;
    if (folder == nullptr || !foreign::readFaults(count, arguments, faults)) {
        std::fputs("usage: FOREIGN_FOLDER=FOLDER foreign-service [--dies-at COMMAND | --answers HEXADECIMALS]\n",
                   stderr);
        return 2;
    }
    foreign::Service service(folder, faults);
    if (!service.isOpen()) {
        std::fprintf(stderr, "foreign-service: %s: %s\n", folder, std::strerror(errno));
        return 1;
    }
    std::puts("ready");
    std::fflush(stdout);
    service.run();
}
