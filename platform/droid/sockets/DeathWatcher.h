#pragma once

#include "LifeLine.h"
#include "socket/UniqueFd.h"

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <mutex>

namespace android {

/** Watches life lines, on one thread of the runtime, and tells of their end. */
class DeathWatcher {
public:
    /** Never destroyed. */
    static DeathWatcher& instance();

    /** Calls `onEnd` once when the line ends; the identifier to remove it with, 0 when it cannot be watched. */
    uint64_t add(std::shared_ptr<LifeLine> line, std::function<void()> onEnd);
    /** Forgets a line; `onEnd` may be running and is not waited for. */
    void remove(uint64_t id);

private:
    struct Watch {
        std::shared_ptr<LifeLine> line;
        std::function<void()> onEnd;
        bool refused = false;
    };

    bool start();
    bool arm(uint64_t id, const Watch& watch, int operation, uint32_t events) const;
    [[noreturn]] void run();
    void lookAt(uint64_t id);
    uint64_t nextRefused(uint64_t after);
    void renew(uint64_t id);
    std::function<void()> settle(uint64_t id, Watch* watch, LifeLine::State state);

    std::mutex mMutex;
    kq::UniqueFd mEpoll;
    uint64_t mLastId = 0;
    bool mRunning = false;
    std::map<uint64_t, Watch> mWatches;
};

} // namespace android
