#include "SocketProtocol.h"

#include "droid/Transport.h"
#include "socket/ProcessLife.h"
#include "socket/SeqPacket.h"

#include <binder/Parcel.h>

#include <algorithm>
#include <cstring>
#include <new>

namespace android {

namespace {

// Well below the send buffer that the kernel gives an ordinary user.
constexpr size_t kPacketBody = 64 * 1024;
constexpr size_t kHeadSize = sizeof(MessageHead);

} // namespace

MessageStream::MessageStream(int socket) : mSocket(socket), mPacket(new uint8_t[kHeadSize + kPacketBody]) {}

bool MessageStream::send(MessageHead head, const Parcel& body) {
    // To the peer a forked child speaks for its parent.
    if (kq::inForkedChild()) {
        return false;
    }
    const size_t size = body.dataSize();
    head.size = static_cast<uint32_t>(size);
    if (kHeadSize + size > mSmall.size()) {
        return sendInPieces(head, body.data());
    }
    std::memcpy(mSmall.data(), &head, kHeadSize);
    std::memcpy(mSmall.data() + kHeadSize, body.data(), size);
    return kq::sendPacket(mSocket, mSmall.data(), kHeadSize + size);
}

bool MessageStream::sendInPieces(const MessageHead& head, const uint8_t* bytes) {
    size_t sent = std::min<size_t>(head.size, kPacketBody);
    const iovec first[] = {{const_cast<MessageHead*>(&head), kHeadSize}, {const_cast<uint8_t*>(bytes), sent}};
    if (!kq::sendPacket(mSocket, first, 2)) {
        return false;
    }
    while (sent < head.size) {
        const size_t next = std::min(head.size - sent, kPacketBody);
        if (!kq::sendPacket(mSocket, bytes + sent, next)) {
            return false;
        }
        sent += next;
    }
    return true;
}

bool MessageStream::receive(MessageHead* head) {
    if (kq::inForkedChild()) {
        return false;
    }
    const size_t length = kq::receivePacket(mSocket, mPacket.get(), kHeadSize + kPacketBody);
    if (length < kHeadSize || length > kHeadSize + kPacketBody) {
        return false;
    }
    std::memcpy(head, mPacket.get(), kHeadSize);
    const size_t received = length - kHeadSize;
    if (head->size > kMaxTransaction || received > head->size) {
        return false;
    }
    mBody = mPacket.get() + kHeadSize;
    return received == head->size || receiveRest(received, head->size);
}

bool MessageStream::receiveRest(size_t received, size_t size) {
    mLarge.reset(new (std::nothrow) uint8_t[size]);
    if (mLarge == nullptr) {
        return false;
    }
    std::memcpy(mLarge.get(), mBody, received);
    while (received < size) {
        const size_t length = kq::receivePacket(mSocket, mLarge.get() + received, size - received);
        if (length == 0 || length > size - received) {
            return false;
        }
        received += length;
    }
    mBody = mLarge.get();
    return true;
}

} // namespace android
