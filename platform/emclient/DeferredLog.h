#pragma once

#include <chrono>
#include <cstddef>

namespace keluem {

/** Lets something happen once a second. */
class OncePerSecond {
public:
    bool due();

private:
    std::chrono::steady_clock::time_point mNext{};
};

/**
 * Lines for the log, written when the object is destroyed. Declared before a lock is taken it writes them after the
 * lock is released: whoever does not read the log must not hold up whoever needs the lock.
 */
class DeferredLog {
public:
    DeferredLog() = default;
    ~DeferredLog();
    DeferredLog(const DeferredLog&) = delete;
    DeferredLog& operator=(const DeferredLog&) = delete;

    /** Adds a line, cut at `kLength`; more than `kLines` are left out. */
    void add(int priority, const char* format, ...) __attribute__((format(printf, 3, 4)));

private:
    static constexpr std::size_t kLines = 4;
    static constexpr std::size_t kLength = 256;

    struct Line {
        int priority;
        char text[kLength];
    };

    Line mLines[kLines];
    std::size_t mCount = 0;
};

} // namespace keluem
