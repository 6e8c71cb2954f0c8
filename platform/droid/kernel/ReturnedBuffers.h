#pragma once

#include "BinderCommands.h"
#include "OwedCommands.h"

#include <atomic>
#include <cstddef>
#include <cstdint>

namespace android {

class ThreadEnd;

/**
 * Received buffers that nobody needs any more, on their way back to the driver.
 *
 * Giving one back alone costs an ioctl. So a thread keeps small ones until it exchanges something with the driver
 * anyway, or ends.
 */
class ReturnedBuffers {
public:
    /** The most bytes of a buffer that a thread keeps. */
    static constexpr size_t kLargestKept = 2048;
    /** The most buffers that one thread keeps. */
    static constexpr size_t kMostOfThread = 8;
    /** The most buffers that all threads keep together. */
    static constexpr size_t kMostOfProcess = 128;

    explicit ReturnedBuffers(OwedCommands& owed);

    /** Keeps a buffer for this thread's next exchange; gives it back at once when that would be too many. */
    void keep(const uint8_t* data);
    /** Gives a buffer back at once, and with it those that this thread keeps. */
    void giveBack(const uint8_t* data);
    /** Has what this thread keeps given back with other commands. Takes no memory: where they need some, it stays. */
    void takeKept(BinderCommands* commands);

private:
    bool mayKeep();
    bool countOne();
    static void giveKeptBack();
    static const ThreadEnd& threadEnd();

    OwedCommands& mOwed;
    std::atomic<size_t> mKept{0};
};

} // namespace android
