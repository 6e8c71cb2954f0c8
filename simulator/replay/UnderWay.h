#pragma once

#include <sys/types.h>

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <memory>
#include <mutex>
#include <set>

namespace kelutv::simulator {

/** Which requests have been taken and are not answered yet. */
class UnderWay {
public:
    using Clock = std::chrono::steady_clock;

    /**
     * The calling thread has taken a request.
     *
     * @param delay how much later its answer is to come
     * @return what is to live until its reply is written
     */
    std::shared_ptr<void> begin(Clock::duration delay);

    /** Waits until all requests but one of the calling thread are answered; a few seconds at most behind the time at
     * which their answers are to come. */
    void waitUntilAnswered();

private:
    void end();

    std::mutex mMutex;
    std::condition_variable mChanged;
    std::size_t mCount = 0;
    Clock::time_point mLatest;
    /** All that have ever taken one. */
    std::set<pid_t> mThreads;
};

} // namespace kelutv::simulator
