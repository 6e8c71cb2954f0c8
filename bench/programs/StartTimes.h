#pragma once

#include <chrono>
#include <cstdio>
#include <cstdlib>

namespace kelutv::bench {

/** Made when main begins. */
class StartTimes {
public:
    /** @param started when the program was started, in nanoseconds of the monotonic clock; null is never */
    explicit StartTimes(const char* started) : mStarted(started == nullptr ? 0 : std::strtoll(started, nullptr, 10)) {}

    /** Prints the times to main, and from there to now, in nanoseconds. */
    void print() const {
        const long long now = clock();
        std::printf("exec to main: %lld\nmain to answer: %lld\n", mMain - mStarted, now - mMain);
    }

private:
    static long long clock() {
        return std::chrono::nanoseconds(std::chrono::steady_clock::now().time_since_epoch()).count();
    }

    const long long mMain = clock();
    const long long mStarted;
};

} // namespace kelutv::bench
