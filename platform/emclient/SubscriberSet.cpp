#include "SubscriberSet.h"

#include <android/log.h>
#include <keluem/publisher.h>

#include <algorithm>
#include <cerrno>
#include <iterator>
#include <new>
#include <utility>
#include <vector>

namespace keluem {

namespace {

using std::chrono::milliseconds;

/** Until a room that could not be read is looked at again. */
constexpr milliseconds kLookAgain{50};

/** Until a watch that the system did not give is asked for again. */
constexpr std::chrono::seconds kWatchAgain{10};

} // namespace

bool SubscriberSet::needsRoom() const {
    return !mRoom || (mRoom->watch() < 0 && Clock::now() >= mRoomOpened + kWatchAgain);
}

void SubscriberSet::follow(SubscriberRoom room) {
    leaveRoom();
    mRoom = std::move(room);
    mRoomOpened = Clock::now();
    if (mRoom->watch() >= 0) {
        mPoller.add(mRoom->watch(), EPOLLIN, &mRoom);
    }
}

void SubscriberSet::leaveRoom() {
    if (mRoom && mRoom->watch() >= 0) {
        mPoller.remove(mRoom->watch());
    }
    mRoom.reset();
}

int SubscriberSet::serve(DeferredLog& log) {
    epoll_event ready[64];
    std::size_t count = std::size(ready);
    bool roomChanged = false;
    for (std::size_t left = mLinks.size() + 2; left > 0 && count == std::size(ready); left -= std::min(left, count)) {
        count = mPoller.ready(ready, std::size(ready), 0);
        for (std::size_t i = 0; i < count; ++i) {
            if (ready[i].data.ptr == &mRoom) {
                roomChanged = true;
            } else if (auto* link = static_cast<SubscriberLink*>(ready[i].data.ptr);
                       link != nullptr && !link->serve(ready[i].events, log)) {
                forget(*link);
            }
        }
    }
    const bool look = mRoom && (roomChanged || mRoom->hasUnread() || mRoom->watch() < 0);
    return look ? findSubscribers(log) : 0;
}

int SubscriberSet::findSubscribers(DeferredLog& log) {
    if (mRoom->hasUnread()) {
        mBeyondLimit = 0;
    }
    int error = 0;
    try {
        std::vector<std::string> entries;
        error = mRoom->news(&entries);
        for (const std::string& entry : entries) {
            addSubscriber(mRoom->pathOf(entry), log);
        }
    } catch (const std::bad_alloc&) {
        mRoom->lookAgain();
        error = -ENOMEM;
    }
    if (mRoom->gone()) {
        leaveRoom();
    } else if (mRoom->hasUnread()) {
        mNextLook = Clock::now() + kLookAgain;
        mAround.planned = true;
    }
    return error;
}

void SubscriberSet::addSubscriber(const std::string& path, DeferredLog& log) {
    if (mLinks.count(path) > 0) {
        return;
    }
    if (mLinks.size() == kMaxSubscribers) {
        ++mBeyondLimit;
        if (mAround.complaint.due()) {
            log.add(ANDROID_LOG_ERROR, "more than %zu subscribers: %s gets no events", kMaxSubscribers, path.c_str());
        }
        return;
    }
    const auto added = mLinks.try_emplace(path, path, mAround).first;
    if (!added->second.connect(log)) {
        mLinks.erase(added);
    }
}

void SubscriberSet::forget(const SubscriberLink& link) {
    mLinks.erase(mLinks.find(link.path()));
    if (mBeyondLimit > 0 && mRoom) {
        mRoom->lookAgain();
    }
}

void SubscriberSet::catchUp(DeferredLog& log) {
    for (auto next = mLinks.begin(); next != mLinks.end();) {
        SubscriberLink& link = next++->second;
        if (!link.catchUp(log)) {
            forget(link);
        }
    }
}

void SubscriberSet::send(const Event& event, DeferredLog& log) {
    const std::uint32_t module = moduleOf(event.id);
    for (auto& entry : mLinks) {
        if (entry.second.wants(module)) {
            entry.second.send(event, log);
        }
    }
    mDropped.fetch_add(mBeyondLimit, std::memory_order_relaxed);
}

bool SubscriberSet::planned() { return std::exchange(mAround.planned, false); }

int SubscriberSet::timeToPlan() const {
    Clock::time_point next = mRoom && mRoom->hasUnread() ? mNextLook : Clock::time_point::max();
    for (const auto& entry : mLinks) {
        if (entry.second.planned()) {
            next = std::min(next, entry.second.due());
        }
    }
    if (next == Clock::time_point::max()) {
        return -1;
    }
    const auto left = std::chrono::ceil<milliseconds>(next - Clock::now());
    return static_cast<int>(std::max(left, milliseconds(0)).count());
}

} // namespace keluem
