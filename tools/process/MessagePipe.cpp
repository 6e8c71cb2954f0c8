#include "tools/process/MessagePipe.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <cstring>
#include <system_error>

namespace kelutv::process {

namespace {

/** What stands before each message. */
using Length = std::uint32_t;

void closeIfOpen(int& fd) {
    if (fd >= 0) {
        ::close(fd);
        fd = -1;
    }
}

bool writeAll(int fd, const char* bytes, std::size_t size) {
    while (size > 0) {
        const ssize_t written = ::write(fd, bytes, size);
        if (written < 0 && errno != EINTR) {
            return false;
        }
        bytes += written > 0 ? written : 0;
        size -= static_cast<std::size_t>(written > 0 ? written : 0);
    }
    return true;
}

} // namespace

MessagePipe::MessagePipe() {
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC) != 0) {
        throw std::system_error(errno, std::generic_category(), "cannot make a pipe");
    }
    mReading = ends[0];
    mWriting = ends[1];
}

MessagePipe::~MessagePipe() {
    closeIfOpen(mReading);
    closeIfOpen(mWriting);
}

void MessagePipe::keepSending() { closeIfOpen(mReading); }

void MessagePipe::keepReceiving() {
    closeIfOpen(mWriting);
    ::fcntl(mReading, F_SETFL, O_NONBLOCK);
}

void MessagePipe::close() { closeIfOpen(mWriting); }

bool MessagePipe::send(const std::string& message) const {
    const auto length = static_cast<Length>(message.size());
    std::string whole(sizeof(length), '\0');
    std::memcpy(whole.data(), &length, sizeof(length));
    whole += message;
    return writeAll(mWriting, whole.data(), whole.size());
}

std::optional<std::string> MessagePipe::take() {
    Length length = 0;
    const bool isEnd = !receive();
    if (mReceived.size() >= sizeof(length)) {
        std::memcpy(&length, mReceived.data(), sizeof(length));
    }
    if (mReceived.size() < sizeof(length) + length || mReceived.size() < sizeof(length)) {
        mIsAtEnd = isEnd;
        return std::nullopt;
    }
    std::string message = mReceived.substr(sizeof(length), length);
    mReceived.erase(0, sizeof(length) + length);
    return message;
}

bool MessagePipe::receive() {
    char bytes[4096];
    ssize_t size = 0;
    while ((size = ::read(mReading, bytes, sizeof(bytes))) > 0 || (size < 0 && errno == EINTR)) {
        mReceived.append(bytes, static_cast<std::size_t>(size > 0 ? size : 0));
    }
    return size != 0;
}

} // namespace kelutv::process
