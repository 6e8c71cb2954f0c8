#include "service/Probe.h"

#include <binder/IServiceManager.h>

#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <system_error>

namespace kelutv::service {

namespace {

constexpr int kPatienceMs = 10000;

bool isServed(const std::string& service) {
    const auto object = android::defaultServiceManager()->checkService(android::String16(service.c_str()));
    return object != nullptr && object->pingBinder() == android::NO_ERROR;
}

/** Waits for a question at the other end, which is closed when that process ends, and answers it with a byte. */
[[noreturn]] void answerAt(int socket, const std::string& service) {
    char question = 0;
    if (::recv(socket, &question, 1, 0) == 1 && isServed(service)) {
        ::send(socket, &question, 1, MSG_NOSIGNAL);
    }
    ::_exit(EXIT_SUCCESS);
}

} // namespace

Probe::Probe(const std::string& service) {
    int ends[2];
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) != 0) {
        throw std::system_error(errno, std::generic_category(), "cannot start");
    }
    mChild = ::fork();
    if (mChild == 0) {
        ::close(ends[0]);
        answerAt(ends[1], service);
    }
    const int reason = errno;
    ::close(ends[1]);
    mSocket = ends[0];
    if (mChild < 0) {
        ::close(mSocket);
        throw std::system_error(reason, std::generic_category(), "cannot start a process that tries the service");
    }
}

Probe::~Probe() {
    ::close(mSocket);
    ::kill(mChild, SIGKILL);
    while (::waitpid(mChild, nullptr, 0) < 0 && errno == EINTR) {
    }
}

bool Probe::isAnswered() const {
    pollfd answer{mSocket, POLLIN, 0};
    char byte = '?';
    return ::send(mSocket, &byte, 1, MSG_NOSIGNAL) == 1 && ::poll(&answer, 1, kPatienceMs) == 1 &&
           ::recv(mSocket, &byte, 1, 0) == 1;
}

} // namespace kelutv::service
