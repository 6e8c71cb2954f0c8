#include "DeathTeller.h"

#include "socket/ProcessLife.h"
#include "socket/QuietThread.h"

#include <utility>

namespace android {

bool DeathTeller::start() {
    const std::lock_guard<std::mutex> lock(mMutex);
    mRunning = mRunning || kq::startDetachedThread("kq:death", kq::kDefaultStack, [this] { run(); }) == 0;
    return mRunning;
}

void DeathTeller::tell(std::function<void()> onDeath) {
    const std::lock_guard<std::mutex> lock(mMutex);
    mToTell.push_back(std::move(onDeath));
    mCame.notify_one();
}

std::function<void()> DeathTeller::next() {
    std::unique_lock<std::mutex> lock(mMutex);
    mCame.wait(lock, [this] { return !mToTell.empty(); });
    std::function<void()> onDeath = std::move(mToTell.front());
    mToTell.pop_front();
    return onDeath;
}

void DeathTeller::run() {
    for (;;) {
        const std::function<void()> onDeath = next();
        if (kq::DeliveryGate::instance().enter()) {
            onDeath();
            kq::DeliveryGate::instance().leave();
        }
    }
}

} // namespace android
