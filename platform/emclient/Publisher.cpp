#include <keluem/publisher.h>
#include <poll.h>
#include <sys/eventfd.h>

#include <atomic>
#include <cerrno>
#include <iterator>
#include <map>
#include <mutex>
#include <new>
#include <string>
#include <system_error>
#include <thread>
#include <vector>

#include "Event.h"
#include "ModuleList.h"
#include "SubscriberLink.h"
#include "SubscriberRoom.h"
#include "socket/ProcessLife.h"
#include "socket/QuietThread.h"
#include "socket/UniqueFd.h"

namespace keluem {

namespace {

/** How long until a subscriber that could not be reached is tried again. */
constexpr int kRetryMs = 50;

} // namespace

class Publisher::Implementation {
public:
    ~Implementation();

    int publish(const Event& event);
    std::uint64_t droppedEvents() const { return mDropped.load(std::memory_order_relaxed); }

private:
    int prepare();
    int startFlushing();
    void findSubscribers();
    void addSubscriber(const std::string& entry);
    /** Calls `take` on every link and forgets those for which it gives false: their subscribers are gone. */
    template <typename Function> void forEachLink(Function take);
    bool anyWaiting() const;
    void wakeFlushing();

    void runFlushing();
    bool flushOnce(std::vector<pollfd>& polled);
    int collectWaiting(std::vector<pollfd>& polled) const;

    std::mutex mMutex;
    SubscriberRoom mRoom;
    std::map<std::string, SubscriberLink> mLinks;
    std::atomic<std::uint64_t> mDropped{0};

    bool mStop = false;
    kq::UniqueFd mWake;
    std::thread mFlushing;
};

Publisher::Implementation::~Implementation() {
    if (mFlushing.joinable()) {
        {
            const std::lock_guard<std::mutex> lock(mMutex);
            mStop = true;
        }
        wakeFlushing();
        mFlushing.join();
    }
}

int Publisher::Implementation::publish(const Event& event) {
    const std::lock_guard<std::mutex> lock(mMutex);
    const int error = prepare();
    if (error == 0) {
        const std::uint32_t module = moduleOf(event.id);
        forEachLink([&](SubscriberLink& link) { return !link.wants(module) || link.send(event); });
        if (anyWaiting()) {
            wakeFlushing();
        }
    }
    return error;
}

int Publisher::Implementation::prepare() {
    if (!mRoom.follow()) {
        return -EACCES;
    }
    const int error = mFlushing.joinable() ? 0 : startFlushing();
    if (error == 0 && mRoom.changed()) {
        findSubscribers();
    }
    return error;
}

int Publisher::Implementation::startFlushing() {
    mWake = kq::UniqueFd(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK));
    if (!mWake) {
        return -errno;
    }
    try {
        mFlushing = kq::startQuietThread("keluem-publish", [this] { runFlushing(); });
    } catch (const std::system_error& error) {
        return -error.code().value();
    }
    return 0;
}

void Publisher::Implementation::findSubscribers() {
    for (const std::string& entry : mRoom.entries()) {
        if (mLinks.count(entry) == 0) {
            addSubscriber(entry);
        }
    }
    for (auto& link : mLinks) {
        link.second.readModules();
    }
}

void Publisher::Implementation::addSubscriber(const std::string& entry) {
    const std::string path = mRoom.pathOf(entry);
    const auto added = mLinks.try_emplace(entry, path, mDropped).first;
    const SubscriberLink::Attempt attempt = added->second.connect();
    if (attempt == SubscriberLink::Attempt::Dead) {
        removeSubscriber(path);
    }
    if (attempt == SubscriberLink::Attempt::Dead || attempt == SubscriberLink::Attempt::Foreign) {
        mLinks.erase(added);
    }
}

template <typename Function> void Publisher::Implementation::forEachLink(Function take) {
    bool anyGone = false;
    for (auto link = mLinks.begin(); link != mLinks.end();) {
        const bool gone = !take(link->second);
        link = gone ? mLinks.erase(link) : std::next(link);
        anyGone = anyGone || gone;
    }
    if (anyGone) {
        findSubscribers(); // removes what the dead left in the room
    }
}

bool Publisher::Implementation::anyWaiting() const {
    for (const auto& link : mLinks) {
        if (link.second.waiting()) {
            return true;
        }
    }
    return false;
}

void Publisher::Implementation::wakeFlushing() { static_cast<void>(::eventfd_write(mWake.get(), 1)); }

void Publisher::Implementation::runFlushing() {
    std::vector<pollfd> polled;
    bool more = true;
    while (more) {
        try {
            more = flushOnce(polled);
        } catch (const std::bad_alloc&) {
            ::poll(nullptr, 0, kRetryMs);
        }
    }
}

/** False when the publisher is being destroyed. */
bool Publisher::Implementation::flushOnce(std::vector<pollfd>& polled) {
    int timeout = 0;
    {
        const std::lock_guard<std::mutex> lock(mMutex);
        if (mStop) {
            return false;
        }
        timeout = collectWaiting(polled);
    }
    ::poll(polled.data(), polled.size(), timeout);
    eventfd_t wakes = 0;
    static_cast<void>(::eventfd_read(mWake.get(), &wakes));
    const std::lock_guard<std::mutex> lock(mMutex);
    forEachLink([](SubscriberLink& link) { return link.flush(); });
    return true;
}

/** Lists what to wait for; returns the longest time to wait, in milliseconds. */
int Publisher::Implementation::collectWaiting(std::vector<pollfd>& polled) const {
    polled.assign(1, {mWake.get(), POLLIN, 0});
    int timeout = -1;
    for (const auto& entry : mLinks) {
        const SubscriberLink& link = entry.second;
        if (link.waiting() && link.fd() >= 0) {
            polled.push_back({link.fd(), POLLOUT, 0});
        } else if (link.waiting()) {
            timeout = kRetryMs;
        }
    }
    return timeout;
}

Publisher::Publisher() noexcept : mImplementation(new (std::nothrow) Implementation) { kq::watchForks(); }

Publisher::~Publisher() {
    if (kq::inForkedChild()) {
        // Locks may be held and the thread is the parent's: what is here is left as it is.
        static_cast<void>(mImplementation.release());
    }
}

int Publisher::publish(unsigned int eventId, const void* payload, std::size_t length) noexcept {
    if (kq::inForkedChild()) {
        return -EPERM;
    }
    if (payload == nullptr && length > 0) {
        return -EINVAL;
    }
    if (length > kMaxPayload) {
        return -EMSGSIZE;
    }
    try {
        return mImplementation != nullptr ? mImplementation->publish({eventId, payload, length}) : -ENOMEM;
    } catch (const std::bad_alloc&) {
        return -ENOMEM;
    }
}

std::uint64_t Publisher::droppedEvents() const noexcept {
    return mImplementation != nullptr ? mImplementation->droppedEvents() : 0;
}

} // namespace keluem
