#pragma once

#include <condition_variable>
#include <mutex>

namespace kelutv::test {

/** Lets a number of threads go at the same time. */
class StartLine {
public:
    explicit StartLine(int threads) : mMissing(threads) {}

    void wait() {
        std::unique_lock lock(mMutex);
        --mMissing;
        mChanged.notify_all();
        mChanged.wait(lock, [this] { return mMissing <= 0; });
    }

private:
    std::mutex mMutex;
    std::condition_variable mChanged;
    int mMissing;
};

} // namespace kelutv::test
