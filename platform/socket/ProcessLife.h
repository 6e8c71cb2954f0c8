#pragma once

#include <condition_variable>
#include <mutex>
#include <thread>

namespace kq {

/** Makes inForkedChild() work for children that are forked from now on. */
void watchForks();

/**
 * True in a process forked, without exec, from one in which the runtime was at work. The runtime's threads and
 * connections belong to the parent there, and its locks may be held for ever: nothing of it may be touched.
 */
bool inForkedChild();

/**
 * The gate through which the runtime calls out (death notices, events) on its one thread for that.
 *
 * It closes when the process begins to exit: what is being delivered then may finish (within two seconds), and nothing
 * more is delivered while static objects are destroyed.
 */
class DeliveryGate {
public:
    /** The gate of this library; never destroyed. */
    static DeliveryGate& instance();

    /** Asks to call out: false when the process is exiting. */
    bool enter();
    void leave();

private:
    static void closeAtExit();
    void close();

    std::mutex mMutex;
    std::condition_variable mIdle;
    std::thread::id mBusy;
    bool mArmed = false;
    bool mClosed = false;
};

} // namespace kq
