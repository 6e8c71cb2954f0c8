#include "DeathWatcher.h"

#include "droid/RuntimeThread.h"
#include "socket/ProcessLife.h"

#include <sys/epoll.h>

#include <utility>

namespace android {

DeathWatcher& DeathWatcher::instance() {
    static DeathWatcher* const watcher = new DeathWatcher;
    return *watcher;
}

DeathWatcher::DeathWatcher() : mEpoll(kq::openDescriptor([] { return ::epoll_create1(EPOLL_CLOEXEC); })) {}

uint64_t DeathWatcher::add(int socket, std::function<void()> onEnd) {
    const std::lock_guard<std::mutex> lock(mMutex);
    const uint64_t id = ++mLastId;
    epoll_event event{};
    // One-shot: a connection whose end was told must not wake the thread again before it is closed.
    event.events = EPOLLIN | EPOLLRDHUP | EPOLLONESHOT;
    event.data.u64 = id;
    mWatched.emplace(id, std::move(onEnd));
    mRunning = mRunning || startRuntimeThread("kq:death", [this] { run(); });
    if (!mRunning || ::epoll_ctl(mEpoll.get(), EPOLL_CTL_ADD, socket, &event) != 0) {
        mWatched.erase(id);
        return 0;
    }
    return id;
}

void DeathWatcher::remove(uint64_t id, int socket) {
    std::function<void()> dropped;
    const std::lock_guard<std::mutex> lock(mMutex);
    ::epoll_ctl(mEpoll.get(), EPOLL_CTL_DEL, socket, nullptr);
    if (const auto entry = mWatched.find(id); entry != mWatched.end()) {
        dropped = std::move(entry->second);
        mWatched.erase(entry);
    }
}

std::function<void()> DeathWatcher::take(uint64_t id) {
    const std::lock_guard<std::mutex> lock(mMutex);
    const auto entry = mWatched.find(id);
    if (entry == mWatched.end()) {
        return nullptr;
    }
    std::function<void()> onEnd = std::move(entry->second);
    mWatched.erase(entry);
    return onEnd;
}

void DeathWatcher::deliver(uint64_t id) {
    const std::function<void()> onEnd = take(id);
    if (onEnd && kq::DeliveryGate::instance().enter()) {
        onEnd();
        kq::DeliveryGate::instance().leave();
    }
}

void DeathWatcher::run() {
    for (;;) {
        epoll_event event{};
        if (::epoll_wait(mEpoll.get(), &event, 1, -1) == 1) {
            deliver(event.data.u64);
        }
    }
}

} // namespace android
