// What the C library offers of descriptors, threads, mappings and sockets, with failures. The functions stand under the
// names by which programs call them, and go on to the next of that name.

#include "torture/starvation/Refusal.h"

#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <pthread.h>
#include <sys/mman.h>
#include <sys/socket.h>
#include <sys/uio.h>
#include <unistd.h>

#include <cerrno>
#include <cstdarg>
#include <cstdio>

using namespace kelutv::starvation;

#define KELUTV_REPLACES extern "C" __attribute__((visibility("default")))

namespace {

template <typename Function> Function* next(const char* name) {
    return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

/** Calls the next function of the name, or fails with the error and the result given. */
template <typename Result, typename... Arguments>
Result pass(Result (*function)(Arguments...), Resource resource, int error, Result failure, Arguments... arguments) {
    if (refused(resource)) {
        errno = error;
        return failure;
    }
    return function(arguments...);
}

bool isSocket(int descriptor) {
    int type = 0;
    socklen_t size = sizeof type;
    const int error = errno;
    const bool found = ::getsockopt(descriptor, SOL_SOCKET, SO_TYPE, &type, &size) == 0;
    errno = error;
    return found;
}

int modeOf(int flags, std::va_list arguments) {
    return (flags & (O_CREAT | __O_TMPFILE)) != 0 ? va_arg(arguments, int) : 0;
}

using Open = int(const char*, int, ...);
using OpenAt = int(int, const char*, int, ...);

int openWith(Open* open, const char* path, int flags, int mode) {
    if (refused(kDescriptor)) {
        errno = EMFILE;
        return -1;
    }
    return open(path, flags, mode);
}

int openAtWith(OpenAt* open, int folder, const char* path, int flags, int mode) {
    if (refused(kDescriptor)) {
        errno = EMFILE;
        return -1;
    }
    return open(folder, path, flags, mode);
}

using Fcntl = int(int, int, ...);

int fcntlWith(Fcntl* function, int descriptor, int command, void* argument) {
    if ((command == F_DUPFD || command == F_DUPFD_CLOEXEC) && refused(kDescriptor)) {
        errno = EMFILE;
        return -1;
    }
    return function(descriptor, command, argument);
}

} // namespace

KELUTV_REPLACES int open(const char* path, int flags, ...) {
    static auto* const real = next<Open>("open");
    std::va_list arguments;
    va_start(arguments, flags);
    const int mode = modeOf(flags, arguments);
    va_end(arguments);
    return openWith(real, path, flags, mode);
}

KELUTV_REPLACES int open64(const char* path, int flags, ...) {
    static auto* const real = next<Open>("open64");
    std::va_list arguments;
    va_start(arguments, flags);
    const int mode = modeOf(flags, arguments);
    va_end(arguments);
    return openWith(real, path, flags, mode);
}

KELUTV_REPLACES int openat(int folder, const char* path, int flags, ...) {
    static auto* const real = next<OpenAt>("openat");
    std::va_list arguments;
    va_start(arguments, flags);
    const int mode = modeOf(flags, arguments);
    va_end(arguments);
    return openAtWith(real, folder, path, flags, mode);
}

KELUTV_REPLACES int openat64(int folder, const char* path, int flags, ...) {
    static auto* const real = next<OpenAt>("openat64");
    std::va_list arguments;
    va_start(arguments, flags);
    const int mode = modeOf(flags, arguments);
    va_end(arguments);
    return openAtWith(real, folder, path, flags, mode);
}

KELUTV_REPLACES int fcntl(int descriptor, int command, ...) {
    static auto* const real = next<Fcntl>("fcntl");
    std::va_list arguments;
    va_start(arguments, command);
    void* const argument = va_arg(arguments, void*);
    va_end(arguments);
    return fcntlWith(real, descriptor, command, argument);
}

KELUTV_REPLACES int fcntl64(int descriptor, int command, ...) {
    static auto* const real = next<Fcntl>("fcntl64");
    std::va_list arguments;
    va_start(arguments, command);
    void* const argument = va_arg(arguments, void*);
    va_end(arguments);
    return fcntlWith(real, descriptor, command, argument);
}

KELUTV_REPLACES int ioctl(int descriptor, unsigned long request, ...) {
    static auto* const real = next<int(int, unsigned long, ...)>("ioctl");
    std::va_list arguments;
    va_start(arguments, request);
    void* const argument = va_arg(arguments, void*);
    va_end(arguments);
    if (refused(kIoctl)) {
        errno = ENOMEM;
        return -1;
    }
    return real(descriptor, request, argument);
}

KELUTV_REPLACES FILE* fopen(const char* path, const char* mode) {
    static auto* const real = next<FILE*(const char*, const char*)>("fopen");
    return pass<FILE*>(real, kDescriptor, EMFILE, nullptr, path, mode);
}

KELUTV_REPLACES FILE* fopen64(const char* path, const char* mode) {
    static auto* const real = next<FILE*(const char*, const char*)>("fopen64");
    return pass<FILE*>(real, kDescriptor, EMFILE, nullptr, path, mode);
}

KELUTV_REPLACES DIR* opendir(const char* path) {
    static auto* const real = next<DIR*(const char*)>("opendir");
    return pass<DIR*>(real, kDescriptor, EMFILE, nullptr, path);
}

KELUTV_REPLACES int socket(int domain, int type, int protocol) noexcept {
    static auto* const real = next<int(int, int, int)>("socket");
    return pass<int>(real, kDescriptor, EMFILE, -1, domain, type, protocol);
}

KELUTV_REPLACES int accept(int descriptor, sockaddr* address, socklen_t* size) {
    static auto* const real = next<int(int, sockaddr*, socklen_t*)>("accept");
    return pass<int>(real, kDescriptor, EMFILE, -1, descriptor, address, size);
}

KELUTV_REPLACES int accept4(int descriptor, sockaddr* address, socklen_t* size, int flags) {
    static auto* const real = next<int(int, sockaddr*, socklen_t*, int)>("accept4");
    return pass<int>(real, kDescriptor, EMFILE, -1, descriptor, address, size, flags);
}

KELUTV_REPLACES int epoll_create1(int flags) noexcept {
    static auto* const real = next<int(int)>("epoll_create1");
    return pass<int>(real, kDescriptor, EMFILE, -1, flags);
}

KELUTV_REPLACES int eventfd(unsigned int value, int flags) noexcept {
    static auto* const real = next<int(unsigned int, int)>("eventfd");
    return pass<int>(real, kDescriptor, EMFILE, -1, value, flags);
}

KELUTV_REPLACES int timerfd_create(int clock, int flags) noexcept {
    static auto* const real = next<int(int, int)>("timerfd_create");
    return pass<int>(real, kDescriptor, EMFILE, -1, clock, flags);
}

KELUTV_REPLACES int inotify_init1(int flags) noexcept {
    static auto* const real = next<int(int)>("inotify_init1");
    return pass<int>(real, kDescriptor, EMFILE, -1, flags);
}

KELUTV_REPLACES int memfd_create(const char* name, unsigned int flags) noexcept {
    static auto* const real = next<int(const char*, unsigned int)>("memfd_create");
    return pass<int>(real, kDescriptor, EMFILE, -1, name, flags);
}

KELUTV_REPLACES int dup(int descriptor) noexcept {
    static auto* const real = next<int(int)>("dup");
    return pass<int>(real, kDescriptor, EMFILE, -1, descriptor);
}

KELUTV_REPLACES int pipe2(int* ends, int flags) noexcept {
    static auto* const real = next<int(int*, int)>("pipe2");
    return pass<int>(real, kDescriptor, EMFILE, -1, ends, flags);
}

KELUTV_REPLACES int socketpair(int domain, int type, int protocol, int* ends) noexcept {
    static auto* const real = next<int(int, int, int, int*)>("socketpair");
    return pass<int>(real, kDescriptor, EMFILE, -1, domain, type, protocol, ends);
}

KELUTV_REPLACES void* mmap(void* place, size_t size, int protection, int flags, int descriptor, off_t offset) noexcept {
    static auto* const real = next<void*(void*, size_t, int, int, int, off_t)>("mmap");
    return pass<void*>(real, kMapping, ENOMEM, MAP_FAILED, place, size, protection, flags, descriptor, offset);
}

KELUTV_REPLACES void* mmap64(void* place, size_t size, int protection, int flags, int descriptor,
                             off64_t offset) noexcept {
    static auto* const real = next<void*(void*, size_t, int, int, int, off64_t)>("mmap64");
    return pass<void*>(real, kMapping, ENOMEM, MAP_FAILED, place, size, protection, flags, descriptor, offset);
}

KELUTV_REPLACES ssize_t send(int descriptor, const void* bytes, size_t size, int flags) {
    static auto* const real = next<ssize_t(int, const void*, size_t, int)>("send");
    return pass<ssize_t>(real, kSend, ENOBUFS, -1, descriptor, bytes, size, flags);
}

KELUTV_REPLACES ssize_t sendto(int descriptor, const void* bytes, size_t size, int flags, const sockaddr* address,
                               socklen_t length) {
    static auto* const real = next<ssize_t(int, const void*, size_t, int, const sockaddr*, socklen_t)>("sendto");
    return pass<ssize_t>(real, kSend, ENOBUFS, -1, descriptor, bytes, size, flags, address, length);
}

KELUTV_REPLACES ssize_t sendmsg(int descriptor, const msghdr* message, int flags) {
    static auto* const real = next<ssize_t(int, const msghdr*, int)>("sendmsg");
    return pass<ssize_t>(real, kSend, ENOBUFS, -1, descriptor, message, flags);
}

KELUTV_REPLACES ssize_t write(int descriptor, const void* bytes, size_t size) {
    static auto* const real = next<ssize_t(int, const void*, size_t)>("write");
    return isSocket(descriptor) ? pass<ssize_t>(real, kSend, ENOBUFS, -1, descriptor, bytes, size)
                                : real(descriptor, bytes, size);
}

KELUTV_REPLACES ssize_t writev(int descriptor, const iovec* pieces, int count) {
    static auto* const real = next<ssize_t(int, const iovec*, int)>("writev");
    return isSocket(descriptor) ? pass<ssize_t>(real, kSend, ENOBUFS, -1, descriptor, pieces, count)
                                : real(descriptor, pieces, count);
}

KELUTV_REPLACES ssize_t recv(int descriptor, void* bytes, size_t size, int flags) {
    static auto* const real = next<ssize_t(int, void*, size_t, int)>("recv");
    return pass<ssize_t>(real, kReceive, ENOMEM, -1, descriptor, bytes, size, flags);
}

KELUTV_REPLACES ssize_t recvfrom(int descriptor, void* bytes, size_t size, int flags, sockaddr* address,
                                 socklen_t* length) {
    static auto* const real = next<ssize_t(int, void*, size_t, int, sockaddr*, socklen_t*)>("recvfrom");
    return pass<ssize_t>(real, kReceive, ENOMEM, -1, descriptor, bytes, size, flags, address, length);
}

KELUTV_REPLACES ssize_t recvmsg(int descriptor, msghdr* message, int flags) {
    static auto* const real = next<ssize_t(int, msghdr*, int)>("recvmsg");
    return pass<ssize_t>(real, kReceive, ENOMEM, -1, descriptor, message, flags);
}

KELUTV_REPLACES ssize_t read(int descriptor, void* bytes, size_t size) {
    static auto* const real = next<ssize_t(int, void*, size_t)>("read");
    return isSocket(descriptor) ? pass<ssize_t>(real, kReceive, ENOMEM, -1, descriptor, bytes, size)
                                : real(descriptor, bytes, size);
}

KELUTV_REPLACES int pthread_create(pthread_t* thread, const pthread_attr_t* attributes, void* (*body)(void*),
                                   void* argument) noexcept {
    static auto* const real = next<int(pthread_t*, const pthread_attr_t*, void* (*)(void*), void*)>("pthread_create");
    return refused(kThread) ? EAGAIN : real(thread, attributes, body, argument);
}
