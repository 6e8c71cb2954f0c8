#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <optional>
#include <thread>

namespace kelutv::simulator {

/** Lets happen, in a thread of its own, what a replay has to happen without a request. */
class ReplayClock {
public:
    using Clock = std::chrono::steady_clock;
    /** Does what is due. @return when it is to be called next, unless the clock is set before */
    using Tick = std::function<std::optional<Clock::time_point>()>;

    ReplayClock() = default;
    ~ReplayClock();
    ReplayClock(const ReplayClock&) = delete;
    ReplayClock& operator=(const ReplayClock&) = delete;

    void start(Tick tick);
    /** Lets it tick at once; what is due has changed. */
    void set();
    void stop();

private:
    void run();
    /** False when the clock is stopped. */
    bool waitUntil(std::optional<Clock::time_point> next);

    Tick mTick;
    std::mutex mMutex;
    std::condition_variable mChanged;
    bool mIsSet = false;
    bool mIsStopping = false;
    std::thread mThread;
};

} // namespace kelutv::simulator
