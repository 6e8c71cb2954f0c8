#include "CallAnswer.h"

#include "droid/ReceivedParcel.h"
#include "droid/Transport.h"
#include "socket/Descriptors.h"

#include <binder/Parcel.h>

#include <sys/socket.h>

namespace android {

namespace {

std::atomic<size_t> gLargeBytes{0};

/** What a request that is larger than one packet takes of the memory that there is for all of them. */
class LargeBytes {
public:
    explicit LargeBytes(size_t bytes)
        : mBytes(bytes), mFree(gLargeBytes.fetch_add(bytes, std::memory_order_relaxed) + bytes <= kMostLargeBytes) {}
    ~LargeBytes() { gLargeBytes.fetch_sub(mBytes, std::memory_order_relaxed); }
    LargeBytes(const LargeBytes&) = delete;
    LargeBytes& operator=(const LargeBytes&) = delete;

    bool free() const { return mFree; }

private:
    const size_t mBytes;
    const bool mFree;
};

bool isOneWay(const MessageHead& request) { return (request.flags & IBinder::FLAG_ONEWAY) != 0; }

/**
 * Tells the caller that its call is not made. What has no answer, or is still on its way, ends the connection: the
 * caller finds the word of it there.
 */
bool refuse(MessageStream& stream, const MessageHead& request, status_t status, bool complete) {
    const bool last = !complete || isOneWay(request);
    return stream.sendHead({0, request.code, last ? kLastAnswer : 0, status, request.number}) && !last;
}

bool transact(MessageStream& stream, const MessageHead& request, const sp<BBinder>& object) {
    ReceivedParcel data(stream.body(), request.size);
    Parcel reply;
    const bool oneWay = isOneWay(request);
    status_t status = object->transact(request.code, data.parcel(), oneWay ? nullptr : &reply, request.flags);
    kq::endForkedChild();
    if (oneWay) {
        return true;
    }
    if (status == NO_ERROR && reply.dataSize() > kMaxTransaction) {
        status = FAILED_TRANSACTION;
        reply.freeData();
    }
    return stream.send({static_cast<uint32_t>(reply.dataSize()), request.code, 0, status, request.number}, reply);
}

bool answerLarge(MessageStream& stream, const MessageHead& request, const sp<BBinder>& object) {
    const LargeBytes memory(request.size);
    const Received received = memory.free() ? stream.receiveRest(request.size) : Received::NoMemory;
    if (received == Received::Late || received == Received::NoMemory) {
        return refuse(stream, request, FAILED_TRANSACTION, false);
    }
    if (received != Received::Message) {
        return false;
    }
    const bool usable = transact(stream, request, object);
    stream.dropLarge();
    return usable;
}

} // namespace

bool answerCall(MessageStream& stream, Received received, const MessageHead& request, const CallSlot& slot,
                const sp<BBinder>& object) {
    if (received != Received::Message && received != Received::Start) {
        return false;
    }
    if (!slot.free()) {
        return refuse(stream, request, FAILED_TRANSACTION, received == Received::Message);
    }
    return received == Received::Message ? transact(stream, request, object) : answerLarge(stream, request, object);
}

bool refuseCall(MessageStream& stream) {
    MessageHead request{};
    const Received received = stream.receiveStart(&request, MSG_DONTWAIT);
    if (received == Received::Nothing) {
        return true;
    }
    return (received == Received::Message || received == Received::Start) &&
           refuse(stream, request, FAILED_TRANSACTION, received == Received::Message);
}

} // namespace android
