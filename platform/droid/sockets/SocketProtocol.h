#pragma once

#include <utils/Errors.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>

namespace android {

class Parcel;

/**
 * What travels on one connection: a head and the parcel's bytes in one packet. A parcel that is too large for one
 * packet goes on in packets of bytes alone.
 */
struct MessageHead {
    uint32_t size;
    uint32_t code;
    uint32_t flags;
    int32_t status;
};

/** Sends and receives messages on one connected socket. Used by one thread at a time. */
class MessageStream {
public:
    explicit MessageStream(int socket);

    /** False when the peer is gone, or is the parent's. `head.size` is filled in. */
    bool send(MessageHead head, const Parcel& body);
    /** False when the peer is gone, is the parent's, or sent what is no message. */
    bool receive(MessageHead* head);

    /** The bytes of the message received last, valid until the next. */
    const uint8_t* body() const { return mBody; }

private:
    bool sendInPieces(const MessageHead& head, const uint8_t* bytes);
    bool receiveRest(size_t received, size_t size);

    const int mSocket;
    // Most messages are small; putting one together costs less than having the kernel gather it.
    std::array<uint8_t, 1024> mSmall;
    const std::unique_ptr<uint8_t[]> mPacket;
    std::unique_ptr<uint8_t[]> mLarge;
    const uint8_t* mBody = nullptr;
};

} // namespace android
