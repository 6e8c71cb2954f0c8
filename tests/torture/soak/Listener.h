#pragma once

#include "torture/processes/ForkedProcess.h"
#include "torture/processes/Shared.h"

#include <atomic>
#include <memory>

namespace kelutv::test {

/** The module of the events, whose payload is their number, a `long` from 1. */
constexpr unsigned int kSoakModule = 0x60000;

/** A process that subscribes to the module and counts what comes. */
class Listener {
public:
    /** Starts the process and returns when it has subscribed. Each event keeps its listener busy for the time given. */
    explicit Listener(std::chrono::microseconds work = std::chrono::microseconds(0));

    long received() const { return mCounts->received; }

    /** The numbers of its first event and of the last so far; 0 before any. */
    long first() const { return mCounts->first; }
    long last() const { return mCounts->last; }

    /** Events that came twice, late, or that are none of the test. */
    long wrong() const { return mCounts->wrong; }

    /** How many of the events between the first and the last did not come. */
    long missing() const { return received() == 0 ? 0 : last() - first() + 1 - received(); }

    /** Ends it by a signal, or lets it go on. */
    void signal(int number) { mProcess->signal(number); }
    void kill() { mProcess->kill(); }

    /** Lets it exit, and says whether it did so well. */
    bool finish();

private:
    struct Counts {
        std::atomic<bool> subscribed{false};
        std::atomic<bool> finished{false};
        std::atomic<long> received{0};
        std::atomic<long> first{0};
        std::atomic<long> last{0};
        std::atomic<long> wrong{0};
    };
    /** What this process is to count in, when it is a listener's. */
    static Counts* gCounts;
    static std::chrono::microseconds gWork;

    void live(std::chrono::microseconds work);
    static void onEvent(unsigned int event, void* data, unsigned int length, void* unused);

    Shared<Counts> mCounts;
    std::unique_ptr<ForkedProcess> mProcess;
};

} // namespace kelutv::test
