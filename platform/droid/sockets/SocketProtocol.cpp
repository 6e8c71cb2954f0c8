#include "SocketProtocol.h"

#include "Limits.h"
#include "droid/Transport.h"

#include <poll.h>
#include <sys/socket.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <new>

namespace android {

namespace {

using Clock = std::chrono::steady_clock;

/** After an empty packet or the end of the connection, which look the same: whether more may come. */
bool stands(int socket) {
    char byte = 0;
    return kq::receivePacket(socket, &byte, sizeof(byte), MSG_PEEK | MSG_DONTWAIT) != 0 && errno == EAGAIN;
}

/** Waits until there is something to receive; false when the time is over. */
bool readable(int socket, Clock::time_point deadline) {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now());
    pollfd arrival{socket, POLLIN, 0};
    return left.count() > 0 && (::poll(&arrival, 1, static_cast<int>(left.count())) >= 0 || errno == EINTR);
}

} // namespace

std::unique_ptr<MessageBuffer> MessageBuffer::make() {
    return std::unique_ptr<MessageBuffer>(new (std::nothrow) MessageBuffer);
}

/** To the peer a forked child speaks for its parent. */
bool MessageStream::refuseToSend() {
    errno = EPERM;
    return false;
}

bool MessageStream::sendHead(const MessageHead& head) {
    return kq::sendPacket(mSocket, &head, sizeof(head), MSG_DONTWAIT);
}

/** The message that begins with the head that stands ready. */
bool MessageStream::sendInPieces(const uint8_t* bytes, size_t size) {
    size_t sent = std::min(size, MessageBuffer::kPacketBody);
    const iovec first[] = {{&mSmall.head, sizeof(mSmall.head)}, {const_cast<uint8_t*>(bytes), sent}};
    if (!kq::sendPacket(mSocket, first, 2)) {
        return false;
    }
    while (sent < size) {
        const size_t next = std::min(size - sent, MessageBuffer::kPacketBody);
        if (!kq::sendPacket(mSocket, bytes + sent, next)) {
            return false;
        }
        sent += next;
    }
    return true;
}

/** What a packet is that has no head, or none at all; `length` is what receivePacket() gave. */
[[gnu::cold]] Received MessageStream::whatElseCame(ssize_t length) const {
    if (length < 0) {
        return errno == EAGAIN ? Received::Nothing : Received::Gone;
    }
    return length == 0 && !stands(mSocket) ? Received::Gone : Received::Malformed;
}

/** What a packet is with another number of bytes than its message. */
Received MessageStream::incomplete(size_t size) const {
    return size > kMaxTransaction || mReceived > size ? Received::Malformed : Received::Start;
}

Received MessageStream::receiveRest(size_t size) {
    const Clock::time_point deadline = Clock::now() + kMessagePatience;
    mBuffer.mLarge.reset(new (std::nothrow) uint8_t[size]);
    if (mBuffer.mLarge == nullptr) {
        return Received::NoMemory;
    }
    std::memcpy(mBuffer.mLarge.get(), mBody, mReceived);
    while (mReceived < size) {
        const ssize_t length =
            kq::receivePacket(mSocket, mBuffer.mLarge.get() + mReceived, size - mReceived, MSG_DONTWAIT);
        if (length < 0 && errno == EAGAIN) {
            if (!readable(mSocket, deadline)) {
                return Received::Late;
            }
            continue;
        }
        if (length <= 0) {
            return length == 0 && stands(mSocket) ? Received::Malformed : Received::Gone;
        }
        if (static_cast<size_t>(length) > size - mReceived) {
            return Received::Malformed;
        }
        if (Clock::now() >= deadline) {
            return Received::Late;
        }
        mReceived += static_cast<size_t>(length);
    }
    mBody = mBuffer.mLarge.get();
    return Received::Message;
}

} // namespace android
