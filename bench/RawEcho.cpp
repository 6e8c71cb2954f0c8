#include "RawEcho.h"

#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <thread>

namespace kelutv::bench {

namespace {

constexpr size_t kLargestPacket = 4096;

[[noreturn]] void fail(const char* what) {
    std::perror(what);
    std::exit(1);
}

void answerOne(int socket, size_t replySize) {
    char packet[kLargestPacket] = {};
    while (::recv(socket, packet, sizeof(packet), 0) > 0) {
        ::send(socket, packet, replySize, MSG_NOSIGNAL);
    }
}

} // namespace

RawEcho::RawEcho(int pairs, size_t requestSize, size_t replySize) : mRequestSize(requestSize), mReplySize(replySize) {
    std::vector<int> theirs;
    for (int pair = 0; pair < pairs; ++pair) {
        int ends[2];
        if (::socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends) != 0) {
            fail("socketpair");
        }
        mSockets.push_back(ends[0]);
        theirs.push_back(ends[1]);
    }
    mProcess = ::fork();
    if (mProcess < 0) {
        fail("fork");
    }
    if (mProcess == 0) {
        answer(theirs);
    }
    for (const int socket : theirs) {
        ::close(socket);
    }
}

void RawEcho::answer(const std::vector<int>& sockets) const {
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    for (const int socket : mSockets) {
        ::close(socket);
    }
    std::vector<std::thread> threads;
    for (const int socket : sockets) {
        threads.emplace_back(answerOne, socket, mReplySize);
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    ::_exit(0);
}

RawEcho::~RawEcho() {
    for (const int socket : mSockets) {
        ::close(socket);
    }
    ::waitpid(mProcess, nullptr, 0);
}

void RawEcho::roundTrip(int pair) {
    char packet[kLargestPacket] = {};
    const int socket = mSockets[static_cast<size_t>(pair)];
    if (::send(socket, packet, mRequestSize, MSG_NOSIGNAL) < 0 || ::recv(socket, packet, sizeof(packet), 0) <= 0) {
        fail("raw round trip");
    }
}

} // namespace kelutv::bench
