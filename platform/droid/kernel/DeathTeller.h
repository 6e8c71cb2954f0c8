#pragma once

#include "RemoteHandles.h"

#include <condition_variable>
#include <list>
#include <mutex>

namespace android {

/** Tells of deaths one after the other, on one thread of the runtime and through the delivery gate. */
class DeathTeller {
public:
    /** Starts the thread unless it runs already; false when there is none to be had. */
    bool start();
    /** Takes no memory. */
    void tell(std::list<RemoteHandles::Watch> deaths);

private:
    [[noreturn]] void run();
    std::list<RemoteHandles::Watch> next();

    std::mutex mMutex;
    std::condition_variable mCame;
    bool mRunning = false;
    std::list<RemoteHandles::Watch> mToTell;
};

} // namespace android
