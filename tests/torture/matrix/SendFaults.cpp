// The program's own send functions come before those of the C library, so that the binder runtime's messages pass here
// whatever they say.

#include "torture/matrix/SendFaults.h"

#include <dlfcn.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <mutex>
#include <vector>

namespace kelutv::test {

namespace {

thread_local NextSend tNext = NextSend::Normal;

std::mutex gMutex;
int gKeptSocket = -1;
std::vector<char> gKept;

using Send = ssize_t(int, const void*, size_t, int);

Send* realSend() {
    static auto* const real = reinterpret_cast<Send*>(::dlsym(RTLD_NEXT, "send"));
    return real;
}

/** Sends a message, and makes the fault of it that was asked for. */
ssize_t sendFaulty(int socket, const void* bytes, size_t size, int flags) {
    const NextSend fault = tNext;
    tNext = NextSend::Normal;
    if (fault == NextSend::Cut) {
        realSend()(socket, bytes, size / 2, flags);
        ::_exit(0);
    }
    if (fault == NextSend::Keep) {
        const std::lock_guard lock(gMutex);
        const auto* const first = static_cast<const char*>(bytes);
        gKept.assign(first, first + size);
        gKeptSocket = socket;
    }
    if (fault == NextSend::Twice) {
        realSend()(socket, bytes, size, flags);
    }
    return realSend()(socket, bytes, size, flags);
}

std::vector<char> joined(const msghdr& message) {
    std::vector<char> bytes;
    for (size_t i = 0; i < message.msg_iovlen; ++i) {
        const auto* const first = static_cast<const char*>(message.msg_iov[i].iov_base);
        bytes.insert(bytes.end(), first, first + message.msg_iov[i].iov_len);
    }
    return bytes;
}

} // namespace

void setNextSend(NextSend fault) { tNext = fault; }

bool sendAgain() {
    const std::lock_guard lock(gMutex);
    return realSend()(gKeptSocket, gKept.data(), gKept.size(), MSG_NOSIGNAL) == static_cast<ssize_t>(gKept.size());
}

} // namespace kelutv::test

extern "C" {

__attribute__((visibility("default"))) ssize_t send(int socket, const void* bytes, size_t size, int flags) {
    return kelutv::test::sendFaulty(socket, bytes, size, flags);
}

__attribute__((visibility("default"))) ssize_t sendmsg(int socket, const msghdr* message, int flags) {
    const std::vector<char> bytes = kelutv::test::joined(*message);
    return kelutv::test::sendFaulty(socket, bytes.data(), bytes.size(), flags);
}
}
