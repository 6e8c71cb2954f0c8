#include "simulator/replay/ReplayClock.h"

#include "simulator/output/Shortage.h"

#include <utility>

namespace kelutv::simulator {

ReplayClock::~ReplayClock() { stop(); }

void ReplayClock::start(Tick tick) {
    mTick = std::move(tick);
    mThread = std::thread([this] { run(); });
}

void ReplayClock::set() {
    {
        const std::lock_guard<std::mutex> lock(mMutex);
        mIsSet = true;
    }
    mChanged.notify_all();
}

void ReplayClock::stop() {
    {
        const std::lock_guard<std::mutex> lock(mMutex);
        mIsStopping = true;
    }
    mChanged.notify_all();
    if (mThread.joinable()) {
        mThread.join();
    }
}

void ReplayClock::run() {
    std::optional<Clock::time_point> next = Clock::now();
    while (waitUntil(next)) {
        if (!withMemory([&] { next = mTick(); })) {
            next = Clock::now();
        }
    }
}

bool ReplayClock::waitUntil(std::optional<Clock::time_point> next) {
    const auto isOver = [this] { return mIsSet || mIsStopping; };
    std::unique_lock<std::mutex> lock(mMutex);
    if (next && *next != Clock::time_point::max()) {
        mChanged.wait_until(lock, *next, isOver);
    } else {
        mChanged.wait(lock, isOver);
    }
    mIsSet = false;
    return !mIsStopping;
}

} // namespace kelutv::simulator
