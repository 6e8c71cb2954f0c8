#include "simulator/replay/UnderWay.h"

#include "simulator/faults/ProcessExit.h"

#include <unistd.h>

#include <algorithm>

namespace kelutv::simulator {

namespace {

/** For what holds up an answer besides its delay. */
constexpr std::chrono::seconds kGrace{2};

} // namespace

std::shared_ptr<void> UnderWay::begin(Clock::duration delay) {
    const std::lock_guard<std::mutex> lock(mMutex);
    mThreads.insert(::gettid());
    mLatest = std::max(mLatest, Clock::now() + delay);
    ++mCount;
    return {nullptr, [this](void*) { end(); }};
}

void UnderWay::end() {
    {
        const std::lock_guard<std::mutex> lock(mMutex);
        --mCount;
    }
    mChanged.notify_all();
}

void UnderWay::waitUntilAnswered() {
    std::unique_lock<std::mutex> lock(mMutex);
    mChanged.wait_until(lock, std::max(mLatest, Clock::now()) + kGrace, [this] { return mCount == 0; });
    std::set<pid_t> others = mThreads;
    lock.unlock();
    others.erase(::gettid());
    waitUntilIdle(others);
}

} // namespace kelutv::simulator
