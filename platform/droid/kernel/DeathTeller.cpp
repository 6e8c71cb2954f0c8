#include "DeathTeller.h"

#include "socket/ProcessLife.h"
#include "socket/QuietThread.h"

namespace android {

bool DeathTeller::start() {
    const std::lock_guard<std::mutex> lock(mMutex);
    mRunning = mRunning || kq::startDetachedThread("kq:death", kq::kDefaultStack, [this] { run(); }) == 0;
    return mRunning;
}

void DeathTeller::tell(std::list<RemoteHandles::Watch> deaths) {
    const std::lock_guard<std::mutex> lock(mMutex);
    mToTell.splice(mToTell.end(), deaths);
    mCame.notify_one();
}

std::list<RemoteHandles::Watch> DeathTeller::next() {
    std::unique_lock<std::mutex> lock(mMutex);
    mCame.wait(lock, [this] { return !mToTell.empty(); });
    std::list<RemoteHandles::Watch> first;
    first.splice(first.end(), mToTell, mToTell.begin());
    return first;
}

void DeathTeller::run() {
    for (;;) {
        const std::list<RemoteHandles::Watch> first = next();
        if (kq::DeliveryGate::instance().enter()) {
            first.front().onDeath();
            kq::DeliveryGate::instance().leave();
        }
    }
}

} // namespace android
