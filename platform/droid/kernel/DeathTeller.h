#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>

namespace android {

/** Tells of deaths one after the other, on one thread of the runtime and through the delivery gate. */
class DeathTeller {
public:
    /** Starts the thread unless it runs already; false when there is none to be had. */
    bool start();
    void tell(std::function<void()> onDeath);

private:
    [[noreturn]] void run();
    std::function<void()> next();

    std::mutex mMutex;
    std::condition_variable mCame;
    bool mRunning = false;
    std::deque<std::function<void()>> mToTell;
};

} // namespace android
