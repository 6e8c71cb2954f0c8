#include "DeathWatcher.h"

#include "socket/Descriptors.h"
#include "socket/ProcessLife.h"
#include "socket/QuietThread.h"

#include <poll.h>
#include <sys/epoll.h>

#include <algorithm>
#include <cerrno>
#include <utility>

namespace android {

namespace {

// How long until a line that was refused is tried again.
constexpr int kRenewMs = 500;
constexpr uint32_t kGreetingOrEnd = EPOLLIN | EPOLLRDHUP | EPOLLONESHOT;
constexpr uint32_t kEnd = EPOLLRDHUP | EPOLLONESHOT;

void tell(const std::function<void()>& onEnd) {
    if (onEnd && kq::DeliveryGate::instance().enter()) {
        onEnd();
        kq::DeliveryGate::instance().leave();
    }
}

} // namespace

DeathWatcher& DeathWatcher::instance() {
    static DeathWatcher* const watcher = new DeathWatcher;
    return *watcher;
}

/** With the lock held. */
bool DeathWatcher::start() {
    if (!mEpoll) {
        mEpoll = kq::openDescriptor([] { return ::epoll_create1(EPOLL_CLOEXEC); });
    }
    mRunning = mRunning || (mEpoll && kq::startDetachedThread("kq:death", kq::kDefaultStack, [this] { run(); }) == 0);
    return mRunning;
}

bool DeathWatcher::arm(uint64_t id, const Watch& watch, int operation, uint32_t events) const {
    epoll_event event{};
    event.events = events;
    event.data.u64 = id;
    return ::epoll_ctl(mEpoll.get(), operation, watch.line->socket(), &event) == 0;
}

uint64_t DeathWatcher::add(std::shared_ptr<LifeLine> line, std::function<void()> onEnd) {
    const std::lock_guard<std::mutex> lock(mMutex);
    const uint64_t id = ++mLastId;
    const auto watch = mWatches.emplace(id, Watch{std::move(line), std::move(onEnd)}).first;
    if (!start() || !arm(id, watch->second, EPOLL_CTL_ADD, kGreetingOrEnd)) {
        mWatches.erase(watch);
        return 0;
    }
    return id;
}

void DeathWatcher::remove(uint64_t id) {
    Watch dropped;
    const std::lock_guard<std::mutex> lock(mMutex);
    if (const auto watch = mWatches.find(id); watch != mWatches.end()) {
        dropped = std::move(watch->second);
        mWatches.erase(watch);
    }
}

/** What is to be told after the lock; nothing unless the line has ended. */
std::function<void()> DeathWatcher::settle(uint64_t id, Watch* watch, LifeLine::State state) {
    watch->refused = state == LifeLine::State::Refused;
    if (state != LifeLine::State::Ended) {
        return nullptr;
    }
    std::function<void()> onEnd = std::move(watch->onEnd);
    mWatches.erase(id);
    return onEnd;
}

void DeathWatcher::lookAt(uint64_t id) {
    std::function<void()> onEnd;
    {
        const std::lock_guard<std::mutex> lock(mMutex);
        const auto watch = mWatches.find(id);
        if (watch == mWatches.end()) {
            return;
        }
        const LifeLine::State state = watch->second.line->look();
        if (state == LifeLine::State::Stands) {
            arm(id, watch->second, EPOLL_CTL_MOD, kEnd);
        }
        onEnd = settle(id, &watch->second, state);
    }
    tell(onEnd);
}

void DeathWatcher::renew(uint64_t id) {
    std::function<void()> onEnd;
    {
        const std::lock_guard<std::mutex> lock(mMutex);
        const auto watch = mWatches.find(id);
        if (watch == mWatches.end()) {
            return;
        }
        const LifeLine::State state = watch->second.line->renew();
        if (state == LifeLine::State::Stands) {
            arm(id, watch->second, EPOLL_CTL_ADD, kGreetingOrEnd);
        }
        onEnd = settle(id, &watch->second, state);
    }
    tell(onEnd);
}

/** The next of the lines that were refused; 0 for none. */
uint64_t DeathWatcher::nextRefused(uint64_t after) {
    const std::lock_guard<std::mutex> lock(mMutex);
    const auto next = std::find_if(mWatches.upper_bound(after), mWatches.end(),
                                   [](const auto& watch) { return watch.second.refused; });
    return next == mWatches.end() ? 0 : next->first;
}

void DeathWatcher::run() {
    for (;;) {
        epoll_event event{};
        const int came = ::epoll_wait(mEpoll.get(), &event, 1, nextRefused(0) == 0 ? -1 : kRenewMs);
        if (came == 1) {
            lookAt(event.data.u64);
        } else if (came == 0) {
            for (uint64_t id = nextRefused(0); id != 0; id = nextRefused(id)) {
                renew(id);
            }
        } else if (errno != EINTR) {
            ::poll(nullptr, 0, kRenewMs);
        }
    }
}

} // namespace android
