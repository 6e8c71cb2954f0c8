#pragma once

#include "BinderCommands.h"

#include <atomic>
#include <mutex>

namespace android {

/** Commands that must reach the driver, from whatever thread: what it does not take now goes out later. */
class OwedCommands {
public:
    explicit OwedCommands(BinderDriver& driver) : mDriver(driver) {}

    /** Sends the commands after those that are owed already; none stays in `commands`. */
    void send(BinderCommands* commands);
    /** Sends what is owed; false when some of it still is. */
    bool settle() { return !mOwes || settleAll(); }

private:
    bool settleAll();
    bool flush();

    BinderDriver& mDriver;
    std::mutex mMutex;
    BinderCommands mCommands;
    std::atomic<bool> mOwes{false};
};

} // namespace android
