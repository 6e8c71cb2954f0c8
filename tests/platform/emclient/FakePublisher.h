#pragma once

#include "EventRecorder.h"
#include "support/Deadline.h"

#include "socket/SeqPacket.h"

#include <poll.h>
#include <sys/socket.h>

#include <cstddef>
#include <vector>

namespace kelutv::test {

/** A list of modules as it travels. */
using Words = std::vector<unsigned int>;

/** A connection of a publisher to this process that the test itself reads and writes. */
class FakePublisher {
public:
    FakePublisher() : mSocket(kq::connectTo(ownEntry())) {}

    bool send(const std::vector<unsigned char>& packet) const { return send(packet.data(), packet.size()); }

    /** Sends an event that has no payload. */
    bool sendEvent(unsigned int id) const { return send(&id, sizeof(id)); }

    /** The next packet, none of which is empty; empty at the end of the connection or when none comes in time. */
    Words next() const {
        pollfd waited{mSocket.get(), POLLIN, 0};
        return ::poll(&waited, 1, static_cast<int>(kPatience.count())) == 1 ? received() : Words{};
    }

    /** A packet that is there already. */
    Words received() const {
        constexpr std::size_t kMostWords = 1024 + 3;
        Words words(kMostWords);
        const ssize_t size = ::recv(mSocket.get(), words.data(), words.size() * sizeof(words[0]), MSG_DONTWAIT);
        words.resize(size < 0 ? 0 : static_cast<std::size_t>(size) / sizeof(words[0]));
        return words;
    }

private:
    bool send(const void* bytes, std::size_t size) const {
        return ::send(mSocket.get(), bytes, size, MSG_NOSIGNAL) >= 0;
    }

    kq::UniqueFd mSocket;
};

} // namespace kelutv::test
