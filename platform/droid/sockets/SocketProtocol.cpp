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

constexpr size_t kHeadSize = sizeof(MessageHead);

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

bool MessageStream::sendInPieces(const MessageHead& head, const uint8_t* bytes) {
    size_t sent = std::min<size_t>(head.size, MessageBuffer::kPacketBody);
    const iovec first[] = {{const_cast<MessageHead*>(&head), kHeadSize}, {const_cast<uint8_t*>(bytes), sent}};
    if (!kq::sendPacket(mSocket, first, 2)) {
        return false;
    }
    while (sent < head.size) {
        const size_t next = std::min(head.size - sent, MessageBuffer::kPacketBody);
        if (!kq::sendPacket(mSocket, bytes + sent, next)) {
            return false;
        }
        sent += next;
    }
    return true;
}

/** Looks at the packet that was received; `length` is what receivePacket() gave. */
Received MessageStream::takeStart(ssize_t length, MessageHead* head) {
    if (length < 0) {
        return errno == EAGAIN ? Received::Nothing : Received::Gone;
    }
    if (length == 0) {
        return stands(mSocket) ? Received::Malformed : Received::Gone;
    }
    if (static_cast<size_t>(length) < kHeadSize || static_cast<size_t>(length) > mBuffer.mPacket.size()) {
        return Received::Malformed;
    }
    std::memcpy(head, mBuffer.mPacket.data(), kHeadSize);
    mReceived = static_cast<size_t>(length) - kHeadSize;
    if (head->size > kMaxTransaction || mReceived > head->size) {
        return Received::Malformed;
    }
    mBody = mBuffer.mPacket.data() + kHeadSize;
    return mReceived == head->size ? Received::Message : Received::Start;
}

Received MessageStream::receiveRest(const MessageHead& head) {
    const Clock::time_point deadline = Clock::now() + kMessagePatience;
    const size_t size = head.size;
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
