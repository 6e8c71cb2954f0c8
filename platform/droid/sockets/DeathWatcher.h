#pragma once

#include "socket/UniqueFd.h"

#include <cstdint>
#include <functional>
#include <map>
#include <mutex>

namespace android {

/** Watches connections that carry no calls, on one thread of the runtime, and tells of their end. */
class DeathWatcher {
public:
    /** Never destroyed. */
    static DeathWatcher& instance();

    /** Calls `onEnd` once when the connection ends; the identifier to remove it with, 0 when it cannot be watched. */
    uint64_t add(int socket, std::function<void()> onEnd);
    /** Forgets a connection; `onEnd` may be running and is not waited for. */
    void remove(uint64_t id, int socket);

private:
    DeathWatcher();

    [[noreturn]] void run();
    void deliver(uint64_t id);
    std::function<void()> take(uint64_t id);

    const kq::UniqueFd mEpoll;
    std::mutex mMutex;
    uint64_t mLastId = 0;
    bool mRunning = false;
    std::map<uint64_t, std::function<void()>> mWatched;
};

} // namespace android
