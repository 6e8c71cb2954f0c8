#pragma once

#include "Descriptors.h"

#include <array>
#include <condition_variable>
#include <mutex>
#include <thread>

namespace kq {

/**
 * The gate through which the runtime calls out (death notices, events), on the one thread that each of its libraries
 * has for that.
 *
 * It closes when the process begins to exit: what is being delivered then may finish (within two seconds for all of
 * it), and nothing more is delivered while static objects are destroyed. An exit by the main thread, when that loaded
 * the library, is noticed before anything is destroyed; any other only when an exit handler runs, see arm().
 */
class DeliveryGate {
public:
    /** The gate of this process, whatever library asks; never destroyed. */
    static DeliveryGate& instance();

    /** Has the gate close before the static objects are destroyed that are there at the first call of this function. */
    void arm();

    /** Asks to call out: false when the process is exiting. */
    bool enter();
    /** After a call out. Does not return in a child that the call forked. */
    void leave();

private:
    /** Called when the main thread exits or ends, before any static object is destroyed. */
    static void mainThreadEnds(void*);

    [[gnu::constructor]] static void watchMainThread();

    // More than there are threads that deliver.
    static constexpr size_t kMostBusy = 8;

    static void closeAtExit();
    void close();
    bool othersAreBusy() const;
    void replaceBusy(std::thread::id before, std::thread::id after);

    std::mutex mMutex;
    std::condition_variable mIdle;
    std::array<std::thread::id, kMostBusy> mBusy;
    bool mArmed = false;
    bool mClosed = false;
};

} // namespace kq
