#include <keluem/publisher.h>
#include <sys/eventfd.h>

#include <atomic>
#include <cerrno>
#include <mutex>
#include <new>
#include <optional>
#include <system_error>
#include <thread>
#include <utility>

#include "DeferredLog.h"
#include "Event.h"
#include "SubscriberRoom.h"
#include "SubscriberSet.h"
#include "socket/Descriptors.h"
#include "socket/QuietThread.h"
#include "socket/UniqueFd.h"

namespace keluem {

namespace {

/** More often than that the room is not opened for one event, should somebody delete it again and again. */
constexpr int kRoomAttempts = 3;

} // namespace

class Publisher::Implementation {
public:
    ~Implementation();

    int publish(const Event& event);
    std::uint64_t droppedEvents() const { return mDropped.load(std::memory_order_relaxed); }

private:
    std::optional<int> publishInRoom(const Event& event);
    int openRoom();
    int start();
    void wake();
    void run();
    bool serveOnce(int* timeout);

    std::mutex mMutex;
    std::atomic<std::uint64_t> mDropped{0};
    SubscriberSet mSubscribers{mDropped};
    bool mStop = false;
    kq::UniqueFd mWake;
    std::thread mThread;
};

Publisher::Implementation::~Implementation() {
    if (mThread.joinable()) {
        {
            const std::lock_guard<std::mutex> lock(mMutex);
            mStop = true;
        }
        wake();
        mThread.join();
    }
}

int Publisher::Implementation::publish(const Event& event) {
    for (int attempt = 0; attempt < kRoomAttempts; ++attempt) {
        if (const std::optional<int> result = publishInRoom(event)) {
            return *result;
        }
        if (const int error = openRoom(); error != 0) {
            return error;
        }
    }
    return -EACCES;
}

/** Nothing when the room must be opened first. */
std::optional<int> Publisher::Implementation::publishInRoom(const Event& event) {
    DeferredLog log;
    const std::lock_guard<std::mutex> lock(mMutex);
    if (const int error = mThread.joinable() ? 0 : start(); error != 0) {
        return error;
    }
    const int error = mSubscribers.serve(log);
    if (mSubscribers.needsRoom()) {
        return std::nullopt;
    }
    mSubscribers.send(event, log);
    if (mSubscribers.planned()) {
        wake();
    }
    return error;
}

/** Opens the room without the lock, since what is wrong with it is logged. */
int Publisher::Implementation::openRoom() {
    std::optional<SubscriberRoom> room = SubscriberRoom::open();
    if (!room) {
        return -EACCES;
    }
    const std::lock_guard<std::mutex> lock(mMutex);
    if (mSubscribers.needsRoom()) {
        mSubscribers.follow(std::move(*room));
    }
    return 0;
}

int Publisher::Implementation::start() {
    if (const int error = mSubscribers.open(); error != 0) {
        return error;
    }
    if (!mWake) {
        mWake = kq::openDescriptor([] { return ::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK); });
        if (!mWake) {
            return -errno;
        }
        if (!mSubscribers.poller().add(mWake.get(), EPOLLIN, nullptr)) {
            const int error = errno;
            mWake = kq::UniqueFd();
            return -error;
        }
    }
    try {
        mThread = kq::startQuietThread("keluem-publish", [this] { run(); });
    } catch (const std::system_error& error) {
        return -error.code().value();
    }
    return 0;
}

void Publisher::Implementation::wake() { static_cast<void>(::eventfd_write(mWake.get(), 1)); }

void Publisher::Implementation::run() {
    int timeout = 0;
    do {
        epoll_event any;
        mSubscribers.poller().ready(&any, 1, timeout);
        eventfd_t wakes = 0;
        static_cast<void>(::eventfd_read(mWake.get(), &wakes));
    } while (serveOnce(&timeout));
}

/** False when the publisher is being destroyed. */
bool Publisher::Implementation::serveOnce(int* timeout) {
    DeferredLog log;
    const std::lock_guard<std::mutex> lock(mMutex);
    if (!mStop) {
        mSubscribers.serve(log);
        mSubscribers.catchUp(log);
        static_cast<void>(mSubscribers.planned());
        *timeout = mSubscribers.timeToPlan();
    }
    return !mStop;
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
