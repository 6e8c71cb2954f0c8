#pragma once

#include "socket/Descriptors.h"
#include "socket/SeqPacket.h"

#include <binder/Parcel.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>

namespace android {

/**
 * What travels on one connection after the greeting: a head and the parcel's bytes in one packet. A parcel that is too
 * large for one packet goes on in packets of bytes alone.
 */
struct MessageHead {
    uint32_t size;
    uint32_t code;
    uint32_t flags;
    int32_t status;
    /** The caller's number of the request, which its answer carries too. */
    uint32_t number;
};

/** A message in one packet. */
template <size_t capacity> struct Packet {
    MessageHead head;
    std::array<uint8_t, capacity> body;
};

/** In the flags of an answer: the server closes the connection after it. */
constexpr uint32_t kLastAnswer = 0x8000'0000;

/** Where messages are received. */
class MessageBuffer {
public:
    /** Null when there is no memory. */
    static std::unique_ptr<MessageBuffer> make();

private:
    friend class MessageStream;

    // Well below the send buffer that the kernel gives an ordinary user.
    static constexpr size_t kPacketBody = 64 * 1024;

    Packet<kPacketBody> mPacket;
    std::unique_ptr<uint8_t[]> mLarge;
};

/** What an attempt to receive a message came to. */
enum class Received {
    Message,
    Start,     // the rest of a large message follows
    Nothing,   // none came in the time that the socket waits
    Gone,      // the peer has closed the connection
    Malformed, // what came is no message
    Late,      // the rest of a message did not come in time
    NoMemory,
};

/** Sends and receives messages on one connected socket. Used by one thread at a time. */
class MessageStream {
public:
    MessageStream(int socket, MessageBuffer& buffer) : mSocket(socket), mBuffer(buffer) {}

    /**
     * `head.size` is the body's. False, with the reason in errno, when the peer is gone, does not take the message in
     * the time that the socket waits, or is the parent's.
     */
    bool send(const MessageHead& head, const Parcel& body) {
        if (kq::inForkedChild()) {
            return refuseToSend();
        }
        mSmall.head = head;
        if (head.size > mSmall.body.size()) {
            return sendInPieces(body.data(), head.size);
        }
        std::memcpy(mSmall.body.data(), body.data(), head.size);
        return kq::sendPacket(mSocket, &mSmall, sizeof(head) + head.size);
    }
    /** A message without a body; does not wait. */
    bool sendHead(const MessageHead& head);

    /** A message or the start of a large one. `flags`: of recv(2). */
    Received receiveStart(MessageHead* head, int flags) {
        if (kq::inForkedChild()) {
            return Received::Gone;
        }
        return takeStart(kq::receivePacket(mSocket, &mBuffer.mPacket, sizeof(mBuffer.mPacket), flags), head);
    }
    /** The rest of a message of `size` bytes that has started: Message, Gone, Malformed, Late or NoMemory. */
    Received receiveRest(size_t size);
    /** A whole message. */
    Received receive(MessageHead* head) {
        const Received start = receiveStart(head, 0);
        return start == Received::Start ? receiveRest(head->size) : start;
    }
    /** Gives back the memory that a large message took. */
    void dropLarge() { mBuffer.mLarge.reset(); }

    /** The bytes of the message received last, valid until the next. */
    const uint8_t* body() const { return mBody; }

private:
    static bool refuseToSend();
    /** Looks at the packet that was received; `length` is what receivePacket() gave. */
    Received takeStart(ssize_t length, MessageHead* head) {
        mReceived = static_cast<size_t>(length) - sizeof(*head);
        // Neither a failure nor too short or too long.
        if (mReceived > mBuffer.mPacket.body.size()) {
            return whatElseCame(length);
        }
        *head = mBuffer.mPacket.head;
        mBody = mBuffer.mPacket.body.data();
        return mReceived == head->size ? Received::Message : incomplete(head->size);
    }
    Received whatElseCame(ssize_t length) const;
    Received incomplete(size_t size) const;
    bool sendInPieces(const uint8_t* bytes, size_t size);

    const int mSocket;
    MessageBuffer& mBuffer;
    // Most messages are small; putting one together costs less than having the kernel gather it.
    Packet<1024> mSmall;
    size_t mReceived = 0;
    const uint8_t* mBody = nullptr;
};

} // namespace android
