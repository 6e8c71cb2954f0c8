#include "SocketObject.h"

#include "ClientConnection.h"
#include "DeathWatcher.h"
#include "Limits.h"
#include "socket/Descriptors.h"
#include "socket/SeqPacket.h"

#include <binder/Parcel.h>

#include <cerrno>
#include <utility>

namespace android {

namespace {

constexpr std::chrono::milliseconds kNoBound{0};

/** A small number of the calling thread's own. */
size_t threadNumber() {
    static std::atomic<size_t> started{0};
    static thread_local size_t number = 0;
    if (number == 0) {
        number = started.fetch_add(1, std::memory_order_relaxed) + 1;
    }
    return number;
}

} // namespace

SocketObject::SocketObject(std::string path, kq::UniqueFd watched)
    : mLine(std::make_shared<LifeLine>(std::move(path), std::move(watched))) {}

SocketObject::~SocketObject() {
    if (mWatchId != 0 && !kq::inForkedChild()) {
        DeathWatcher::instance().remove(mWatchId);
    }
    for (std::atomic<ClientConnection*>& place : mIdle) {
        delete place.load();
    }
}

status_t SocketObject::watch(std::function<void()> onDeath) {
    LifeLine::State state = mLine->look();
    if (state == LifeLine::State::Refused) {
        state = mLine->renew();
    }
    if (state != LifeLine::State::Stands) {
        return state == LifeLine::State::Ended ? DEAD_OBJECT : FAILED_TRANSACTION;
    }
    mWatchId = DeathWatcher::instance().add(mLine, std::move(onDeath));
    return mWatchId == 0 ? NO_MEMORY : NO_ERROR;
}

status_t SocketObject::whyNotConnected(int error) {
    switch (error) {
    case ECONNREFUSED:
        return DEAD_OBJECT;
    case ENOENT:
        // While the life line stands, somebody has taken the entry from a living service.
        return mLine->look() == LifeLine::State::Stands ? FAILED_TRANSACTION : DEAD_OBJECT;
    case EAGAIN:
    case EACCES:
        return mLine->look() == LifeLine::State::Ended ? DEAD_OBJECT : FAILED_TRANSACTION;
    default:
        return -error;
    }
}

status_t SocketObject::connect(std::chrono::milliseconds patience, std::unique_ptr<ClientConnection>* connection) {
    kq::UniqueFd socket = kq::connectTo(mLine->path());
    if (!socket) {
        return whyNotConnected(errno);
    }
    // Asked after connecting: while the life line stands, the entry is still that of the same process.
    const LifeLine::State state = mLine->look();
    if (state == LifeLine::State::Ended) {
        return DEAD_OBJECT;
    }
    std::unique_ptr<ClientConnection> made = ClientConnection::make(std::move(socket), mLine);
    if (made == nullptr) {
        return NO_MEMORY;
    }
    if (patience != kNoBound && !made->setPatience(patience)) {
        return FAILED_TRANSACTION;
    }
    // Without a life line only the greeting tells whose the entry is.
    const status_t status = state == LifeLine::State::Refused ? made->greet(true) : static_cast<status_t>(NO_ERROR);
    if (status == NO_ERROR) {
        *connection = std::move(made);
    }
    return status;
}

/** A connection that another thread used last; null for none. */
std::unique_ptr<ClientConnection> SocketObject::takeOther(size_t own) {
    for (size_t i = 1; i < mIdle.size(); ++i) {
        std::atomic<ClientConnection*>& place = placeOf(own + i);
        if (place.load(std::memory_order_relaxed) == nullptr) {
            continue;
        }
        if (ClientConnection* const idle = place.exchange(nullptr, std::memory_order_acquire); idle != nullptr) {
            return std::unique_ptr<ClientConnection>(idle);
        }
    }
    return nullptr;
}

/** A connection for a thread that has none; null, with the reason in `status`, when there is none to be had. */
std::unique_ptr<ClientConnection> SocketObject::takeOrConnect(size_t own, status_t* status) {
    std::unique_ptr<ClientConnection> connection = takeOther(own);
    if (connection == nullptr) {
        *status = connect(kNoBound, &connection);
    }
    return connection;
}

inline bool SocketObject::giveBackTo(size_t number, std::unique_ptr<ClientConnection>& connection) {
    ClientConnection* none = nullptr;
    const bool given = placeOf(number).compare_exchange_strong(none, connection.get(), std::memory_order_release,
                                                               std::memory_order_relaxed);
    if (given) {
        static_cast<void>(connection.release());
    }
    return given;
}

void SocketObject::giveBackElsewhere(size_t own, std::unique_ptr<ClientConnection> connection) {
    for (size_t i = 1; i < mIdle.size() && !giveBackTo(own + i, connection); ++i) {
    }
}

status_t SocketObject::transact(uint32_t code, const Parcel& data, Parcel* reply, uint32_t flags) {
    if ((flags & IBinder::FLAG_ONEWAY) != 0) {
        return sendOneWay(code, flags, data);
    }
    const size_t own = threadNumber();
    std::unique_ptr<ClientConnection> connection(placeOf(own).exchange(nullptr, std::memory_order_acquire));
    if (connection == nullptr) {
        status_t failure = NO_ERROR;
        connection = takeOrConnect(own, &failure);
        if (connection == nullptr) {
            return failure;
        }
    }
    const status_t status = connection->call(code, flags, data, reply);
    if (connection->usable() && !giveBackTo(own, connection)) {
        giveBackElsewhere(own, std::move(connection));
    }
    return status;
}

/** False when those before did not end in time. */
bool SocketObject::beginOneWay() {
    std::unique_lock<std::mutex> lock(mOneWayMutex);
    const bool free = mOneWayFree.wait_for(lock, kOneWayPatience, [this] { return !mOneWayBusy; });
    mOneWayBusy = true;
    return free;
}

void SocketObject::endOneWay() {
    const std::lock_guard<std::mutex> lock(mOneWayMutex);
    mOneWayBusy = false;
    mOneWayFree.notify_one();
}

status_t SocketObject::sendOneWay(uint32_t code, uint32_t flags, const Parcel& data) {
    if (!beginOneWay()) {
        return FAILED_TRANSACTION;
    }
    status_t status = mOneWay == nullptr ? connect(kOneWayPatience, &mOneWay) : static_cast<status_t>(NO_ERROR);
    if (status == NO_ERROR) {
        status = mOneWay->send(code, flags, data);
    }
    if (mOneWay != nullptr && !mOneWay->usable()) {
        mOneWay.reset();
    }
    endOneWay();
    return status;
}

} // namespace android
