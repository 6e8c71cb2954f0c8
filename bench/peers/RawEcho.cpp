#include "RawEcho.h"

#include "bench/support/Failure.h"

#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <thread>

namespace kelutv::bench {

namespace {

constexpr size_t kLargestPacket = 64 * 1024;

void sendMessage(int socket, const std::vector<char>& message) {
    for (size_t sent = 0; sent < message.size();) {
        const size_t next = std::min(message.size() - sent, kLargestPacket);
        require(::send(socket, message.data() + sent, next, MSG_NOSIGNAL) > 0, "send");
        sent += next;
    }
}

/** False when the other side has closed the connection. */
bool receiveMessage(int socket, std::vector<char>* message) {
    for (size_t received = 0; received < message->size();) {
        const ssize_t length = ::recv(socket, message->data() + received, message->size() - received, 0);
        if (length <= 0) {
            return false;
        }
        received += static_cast<size_t>(length);
    }
    return true;
}

} // namespace

RawEcho::RawEcho(size_t pairs, size_t requestBytes, size_t replyBytes)
    : mReplyBytes(replyBytes), mRequest(requestBytes) {
    std::vector<int> theirs;
    for (size_t pair = 0; pair < pairs; ++pair) {
        int ends[2];
        require(::socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends) == 0, "socketpair");
        mPairs.push_back({ends[0], std::vector<char>(replyBytes)});
        theirs.push_back(ends[1]);
    }
    mAnswerer.emplace([this, &theirs] { answer(theirs); });
    for (const int socket : theirs) {
        ::close(socket);
    }
}

RawEcho::~RawEcho() {
    for (const Pair& pair : mPairs) {
        ::close(pair.socket);
    }
}

void RawEcho::answer(const std::vector<int>& sockets) const {
    std::vector<std::thread> threads;
    for (const int socket : sockets) {
        threads.emplace_back([this, socket] {
            std::vector<char> request(mRequest.size());
            const std::vector<char> reply(mReplyBytes);
            while (receiveMessage(socket, &request)) {
                sendMessage(socket, reply);
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
}

void RawEcho::roundTrip(size_t pair) {
    sendMessage(mPairs[pair].socket, mRequest);
    if (!receiveMessage(mPairs[pair].socket, &mPairs[pair].reply)) {
        giveUp("the bare exchange ended");
    }
}

} // namespace kelutv::bench
