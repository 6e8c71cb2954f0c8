#pragma once

#include "peer/Peer.h"
#include "support/Deadline.h"

#include <binder/IBinder.h>

#include <atomic>
#include <functional>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

namespace kelutv::test {

/** Remembers how often, on which thread and for whom it was told of a death. */
class DeathNote : public android::IBinder::DeathRecipient {
public:
    DeathNote() = default;
    /** `action` runs within the notice. */
    explicit DeathNote(std::function<void()> action) : mAction(std::move(action)) {}

    void binderDied(const android::wp<android::IBinder>& who) override {
        if (mAction) {
            mAction();
        }
        const std::lock_guard lock(mMutex);
        mThread = std::this_thread::get_id();
        mWho = who;
        ++mCount;
    }

    int count() const { return mCount; }
    bool waitFor(int count) const {
        return eventually([&] { return mCount >= count; });
    }
    std::thread::id thread() const {
        const std::lock_guard lock(mMutex);
        return mThread;
    }
    android::wp<android::IBinder> who() const {
        const std::lock_guard lock(mMutex);
        return mWho;
    }

private:
    const std::function<void()> mAction;
    mutable std::mutex mMutex;
    std::atomic<int> mCount{0};
    std::thread::id mThread;
    android::wp<android::IBinder> mWho;
};

/** Returns when every death that happened before has been told: notices come one after the other. */
inline bool allDeathsTold() {
    Peer last({"last.to.die"});
    const android::sp<android::IBinder> binder = last.binder("last.to.die");
    const android::sp<DeathNote> note = new DeathNote;
    if (binder->linkToDeath(note) != android::NO_ERROR) {
        return false;
    }
    last.kill();
    return note->waitFor(1);
}

} // namespace kelutv::test
