#pragma once

#include "bench/support/Child.h"

#include <sys/types.h>

#include <chrono>
#include <cstddef>
#include <functional>
#include <thread>
#include <vector>

namespace kelutv::bench {

/** Callers that call at the same time, as often as they can. */
class Crowd {
public:
    enum class Kind { Threads, Processes };
    using Call = std::function<void(size_t caller)>;

    /** @param calls the kinds of call that they can make */
    Crowd(Kind kind, size_t callers, std::vector<Call> calls);
    ~Crowd();
    Crowd(const Crowd&) = delete;
    Crowd& operator=(const Crowd&) = delete;

    /** Has all of them make calls of one kind for a time: how many they make in a second. */
    double rate(size_t call, std::chrono::milliseconds time);

private:
    struct Shared;

    void run(size_t caller) const;

    const size_t mCallers;
    const std::vector<Call> mCalls;
    Shared* mShared;
    std::vector<std::thread> mThreads;
    std::vector<Child> mProcesses;
};

} // namespace kelutv::bench
