#pragma once

#include "Limits.h"
#include "SocketProtocol.h"

#include <binder/Binder.h>

#include <atomic>

namespace android {

/** One call's place among those under way. */
class CallSlot {
public:
    /** Counts of all calls and of those of the caller's process. */
    CallSlot(std::atomic<size_t>& all, std::atomic<size_t>& ofPeer)
        : mAll(all), mOfPeer(ofPeer),
          mFree(static_cast<int>(all.fetch_add(1, std::memory_order_relaxed) < kMostCalls) +
                    static_cast<int>(ofPeer.fetch_add(1, std::memory_order_relaxed) < kMostCallsOfAPeer) ==
                2) {}
    ~CallSlot() {
        mAll.fetch_sub(1, std::memory_order_relaxed);
        mOfPeer.fetch_sub(1, std::memory_order_relaxed);
    }
    CallSlot(const CallSlot&) = delete;
    CallSlot& operator=(const CallSlot&) = delete;

    /** False when there are as many as may be. */
    bool free() const { return mFree; }

private:
    std::atomic<size_t>& mAll;
    std::atomic<size_t>& mOfPeer;
    const bool mFree;
};

/**
 * Has the object answer a call of which the start was `received`, or refuses it.
 *
 * @return false when the connection is of no more use
 */
bool answerCall(MessageStream& stream, Received received, const MessageHead& request, const CallSlot& slot,
                const sp<BBinder>& object);

/** Refuses the call that has come in on a connection, without waiting. @return as answerCall */
bool refuseCall(MessageStream& stream);

} // namespace android
