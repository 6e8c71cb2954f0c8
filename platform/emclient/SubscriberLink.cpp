#include "SubscriberLink.h"

#include <android/log.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/uio.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <new>
#include <optional>

#include "socket/SeqPacket.h"

namespace keluem {

namespace {

using std::chrono::milliseconds;

/** The pauses between attempts to reach a subscriber grow from the first to the longest. */
constexpr milliseconds kFirstPause{50};
constexpr milliseconds kLongestPause{1600};

/** A subscriber that ends a connection sooner than this does not want it. */
constexpr milliseconds kShortLife{1000};

/** More lists than a subscriber sends ahead of what is read. */
constexpr int kMaxLists = 256;

} // namespace

bool SubscriberLink::connect(DeferredLog& log) {
    mSocket = kq::connectTo(mPath, kq::Waiting::Never);
    if (!mSocket && refused(errno, log)) {
        return false;
    }
    if (mSocket && !mAround.poller.add(mSocket.get(), EPOLLIN, this)) {
        mSocket = kq::UniqueFd();
    }
    mConnected = Clock::now();
    if (!mSocket) {
        plan(std::max(mPause, kFirstPause));
    }
    return true;
}

/** True when no later attempt would succeed; what a dead subscriber has left is removed then. */
bool SubscriberLink::refused(int error, DeferredLog& log) {
    struct stat entry {};
    const bool present = ::lstat(mPath.c_str(), &entry) == 0;
    if (error == EACCES && present && mAround.complaint.due()) {
        log.add(ANDROID_LOG_ERROR, "subscriber of uid %u refused", static_cast<unsigned int>(entry.st_uid));
    }
    if (error == ECONNREFUSED && present && S_ISSOCK(entry.st_mode)) {
        ::unlink(mPath.c_str());
    }
    return error == ECONNREFUSED || error == ENOENT || error == EACCES;
}

void SubscriberLink::plan(milliseconds pause) {
    mDue = Clock::now() + pause;
    mPause = std::clamp(2 * pause, kFirstPause, kLongestPause);
    mAround.planned = true;
}

/** After the end of a connection. Only another attempt tells whether the subscriber has ended, too. */
bool SubscriberLink::reconnect(DeferredLog& log) {
    disconnect();
    plan(Clock::now() - mConnected >= kShortLife ? milliseconds(0) : mPause);
    return catchUp(log);
}

void SubscriberLink::disconnect() {
    if (mSocket) {
        mAround.poller.remove(mSocket.get());
        mSocket = kq::UniqueFd();
    }
    mModules = ModuleList();
    mTold = false;
    mShortage = false;
    mWatchedForSpace = false;
}

bool SubscriberLink::serve(std::uint32_t events, DeferredLog& log) {
    const bool usable = readLists(log) && (events & (EPOLLHUP | EPOLLERR)) == 0 && flush(log);
    return usable || reconnect(log);
}

bool SubscriberLink::catchUp(DeferredLog& log) {
    if (!planned() || Clock::now() < mDue) {
        return true;
    }
    if (!mSocket && !connect(log)) {
        return false;
    }
    mShortage = false;
    return !mSocket || flush(log) || reconnect(log);
}

bool SubscriberLink::readLists(DeferredLog& log) {
    for (int lists = 0; lists < kMaxLists; ++lists) {
        unsigned char packet[ModuleList::kMaxPacket];
        const ssize_t size = ::recv(mSocket.get(), packet, sizeof(packet), MSG_DONTWAIT | MSG_TRUNC);
        if (size <= 0) {
            return size < 0 && (errno == EAGAIN || errno == EINTR);
        }
        if (!readList(packet, static_cast<std::size_t>(size), log)) {
            return false;
        }
    }
    return false;
}

bool SubscriberLink::readList(const void* packet, std::size_t size, DeferredLog& log) {
    try {
        const std::optional<ModuleList> list = ModuleList::of(packet, size);
        if (!list && mAround.complaint.due()) {
            log.add(ANDROID_LOG_ERROR, "subscriber %s sent %zu bytes, which is no list of modules: closed",
                    mPath.c_str(), size);
        }
        mModules = list.value_or(ModuleList());
        mTold = list.has_value();
    } catch (const std::bad_alloc&) {
        mModules = ModuleList(); // rather more than it wants than less
        mTold = true;
    }
    if (mTold) {
        countWanted(log);
    }
    return mTold;
}

void SubscriberLink::send(const Event& event, DeferredLog& log) {
    const Outcome outcome = mSocket && mQueue.empty() ? transmit(event, log) : Outcome::Full;
    if (outcome != Outcome::Taken) {
        enqueue(event, log);
    }
    watch();
}

bool SubscriberLink::flush(DeferredLog& log) {
    Outcome outcome = Outcome::Taken;
    while (!mQueue.empty() && outcome == Outcome::Taken) {
        const Event oldest = mQueue.front();
        if (wants(moduleOf(oldest.id))) {
            outcome = transmit(oldest, log);
        }
        if (outcome == Outcome::Taken) {
            mQueue.pop();
        }
    }
    mOverflowing = mOverflowing && !mQueue.empty();
    watch();
    return outcome != Outcome::Gone;
}

/** Learns of space for what waits, if there is any to wait for. */
void SubscriberLink::watch() {
    const bool forSpace = mSocket && !mQueue.empty() && !mShortage;
    if (forSpace != mWatchedForSpace) {
        mWatchedForSpace = forSpace;
        mAround.poller.change(mSocket.get(), forSpace ? EPOLLIN | EPOLLOUT : EPOLLIN, this);
    }
}

SubscriberLink::Outcome SubscriberLink::transmit(const Event& event, DeferredLog& log) {
    std::uint32_t id = event.id;
    const iovec pieces[] = {{&id, sizeof(id)}, {const_cast<void*>(event.payload), event.length}};
    if (kq::sendPacket(mSocket.get(), pieces, 2)) {
        return Outcome::Taken;
    }
    switch (errno) {
    case EAGAIN:
        return Outcome::Full;
    case ENOBUFS:
    case ENOMEM:
        noteShortage();
        return Outcome::Shortage;
    case EMSGSIZE: // the system's socket buffers are smaller than this event: no later attempt would fare better
        drop(event, log);
        return Outcome::Taken;
    default:
        return Outcome::Gone;
    }
}

/** The connection has space and the system has no memory: only time helps. */
void SubscriberLink::noteShortage() {
    mShortage = true;
    mDue = Clock::now() + kFirstPause;
    mAround.planned = true;
}

void SubscriberLink::enqueue(const Event& event, DeferredLog& log) {
    try {
        mQueue.push(event);
    } catch (const std::bad_alloc&) {
        drop(event, log);
    }
    while (mQueue.overfull()) {
        drop(mQueue.front(), log);
        mQueue.pop();
    }
}

/** Only what a subscriber wants is lost to it, and perhaps it has not told that yet. */
void SubscriberLink::drop(const Event& event, DeferredLog& log) {
    const std::uint32_t module = moduleOf(event.id);
    if (mTold) {
        countDropped(wants(module) ? 1 : 0, log);
        return;
    }
    try {
        ++mDroppedUntold[module];
    } catch (const std::bad_alloc&) {
        countDropped(1, log);
    }
}

void SubscriberLink::countWanted(DeferredLog& log) {
    for (const auto& [module, events] : mDroppedUntold) {
        countDropped(wants(module) ? events : 0, log);
    }
    mDroppedUntold.clear();
}

void SubscriberLink::countDropped(std::uint64_t events, DeferredLog& log) {
    if (events == 0) {
        return;
    }
    mAround.dropped.fetch_add(events, std::memory_order_relaxed);
    if (!mOverflowing) {
        mOverflowing = true;
        log.add(ANDROID_LOG_WARN, "subscriber %s does not keep up: its oldest events are dropped", mPath.c_str());
    }
}

} // namespace keluem
