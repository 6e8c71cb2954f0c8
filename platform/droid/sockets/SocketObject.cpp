#include "SocketObject.h"

#include "DeathWatcher.h"
#include "socket/ProcessLife.h"
#include "socket/SeqPacket.h"

#include <binder/Parcel.h>

#include <poll.h>

#include <utility>

namespace android {

namespace {

/** A small number of the calling thread's own. */
size_t threadNumber() {
    static std::atomic<size_t> started{0};
    static thread_local const size_t number = started.fetch_add(1, std::memory_order_relaxed);
    return number;
}

} // namespace

class SocketObject::Connection {
public:
    explicit Connection(kq::UniqueFd socket) : mSocket(std::move(socket)), mStream(mSocket.get()) {}
    MessageStream& stream() { return mStream; }

private:
    kq::UniqueFd mSocket;
    MessageStream mStream;
};

SocketObject::SocketObject(std::string path, kq::UniqueFd watched)
    : mPath(std::move(path)), mWatched(std::move(watched)) {}

SocketObject::~SocketObject() {
    if (mWatchId != 0 && !kq::inForkedChild()) {
        DeathWatcher::instance().remove(mWatchId, mWatched.get());
    }
    for (std::atomic<Connection*>& place : mIdle) {
        delete place.load();
    }
}

status_t SocketObject::watch(std::function<void()> onDeath) {
    if (!serviceLives()) {
        return DEAD_OBJECT;
    }
    mWatchId = DeathWatcher::instance().add(mWatched.get(), std::move(onDeath));
    return mWatchId == 0 ? NO_MEMORY : NO_ERROR;
}

bool SocketObject::serviceLives() const {
    pollfd end{mWatched.get(), POLLIN | POLLRDHUP, 0};
    return ::poll(&end, 1, 0) == 0;
}

std::unique_ptr<SocketObject::Connection> SocketObject::connect() const {
    kq::UniqueFd socket = kq::connectTo(mPath);
    // Asked after connecting: while the watched connection stands, the entry is still that of the same process.
    if (!socket || !serviceLives()) {
        return nullptr;
    }
    return std::make_unique<Connection>(std::move(socket));
}

std::unique_ptr<SocketObject::Connection> SocketObject::takeConnection() {
    const size_t own = threadNumber();
    for (size_t i = 0; i < mIdle.size(); ++i) {
        std::atomic<Connection*>& place = mIdle[(own + i) % mIdle.size()];
        if (place.load(std::memory_order_relaxed) == nullptr) {
            continue;
        }
        if (Connection* const connection = place.exchange(nullptr, std::memory_order_acquire); connection != nullptr) {
            return std::unique_ptr<Connection>(connection);
        }
    }
    return connect();
}

void SocketObject::giveBack(std::unique_ptr<Connection> connection) {
    const size_t own = threadNumber();
    for (size_t i = 0; i < mIdle.size(); ++i) {
        Connection* none = nullptr;
        if (mIdle[(own + i) % mIdle.size()].compare_exchange_strong(none, connection.get(), std::memory_order_release,
                                                                    std::memory_order_relaxed)) {
            static_cast<void>(connection.release());
            return;
        }
    }
}

status_t SocketObject::transact(uint32_t code, const Parcel& data, Parcel* reply, uint32_t flags) {
    MessageHead head{0, code, flags, NO_ERROR};
    if ((flags & IBinder::FLAG_ONEWAY) != 0) {
        return sendOneWay(head, data);
    }
    std::unique_ptr<Connection> connection = takeConnection();
    if (connection == nullptr) {
        return DEAD_OBJECT;
    }
    MessageStream& stream = connection->stream();
    if (!stream.send(head, data) || !stream.receive(&head)) {
        return DEAD_OBJECT;
    }
    status_t status = head.status;
    if (status == NO_ERROR) {
        status = reply->setData(stream.body(), head.size);
    }
    giveBack(std::move(connection));
    return status;
}

status_t SocketObject::sendOneWay(const MessageHead& head, const Parcel& data) {
    const std::lock_guard<std::mutex> lock(mOneWayMutex);
    if (mOneWay == nullptr) {
        mOneWay = connect();
    }
    if (mOneWay == nullptr) {
        return DEAD_OBJECT;
    }
    if (!mOneWay->stream().send(head, data)) {
        mOneWay.reset();
        return DEAD_OBJECT;
    }
    return NO_ERROR;
}

} // namespace android
