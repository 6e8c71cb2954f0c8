#include "SocketServer.h"

#include "SocketProtocol.h"
#include "droid/CallerIdentity.h"
#include "droid/ReceivedParcel.h"
#include "droid/RuntimeThread.h"
#include "droid/Transport.h"
#include "socket/ProcessLife.h"

#include <android/log.h>

#include <poll.h>
#include <sys/epoll.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <utility>

namespace android {

namespace {

constexpr const char* kTag = "kqdroid";
// Beyond this many, callers wait in the listening socket's queue until a connection ends.
constexpr size_t kMostConnections = 1024;
constexpr int kAcceptPauseMs = 100;

status_t statusOf(int error) { return error == 0 ? UNKNOWN_ERROR : -error; }

/** One call: the object's answer goes back unless the call was one-way. False when the caller is gone. */
bool answer(MessageStream& stream, const MessageHead& request, const sp<BBinder>& object) {
    ReceivedParcel data(stream.body(), request.size);
    Parcel reply;
    if ((request.flags & IBinder::FLAG_ONEWAY) != 0) {
        object->transact(request.code, data.parcel(), nullptr, request.flags);
        return true;
    }
    status_t status = object->transact(request.code, data.parcel(), &reply, request.flags);
    if (status == NO_ERROR && reply.dataSize() > kMaxTransaction) {
        status = FAILED_TRANSACTION;
        reply.freeData();
    }
    return stream.send({0, request.code, request.flags, status}, reply);
}

} // namespace

SocketServer::SocketServer() : mEpoll(kq::openDescriptor([] { return ::epoll_create1(EPOLL_CLOEXEC); })) {}

sp<BBinder> SocketServer::published(const std::string& entry) {
    const std::lock_guard<std::mutex> lock(mMutex);
    const auto service = mServices.find(entry);
    return service == mServices.end() ? nullptr : service->second->object;
}

status_t SocketServer::publish(const std::string& entry, sp<BBinder> object) {
    const std::lock_guard<std::mutex> lock(mMutex);
    if (const auto service = mServices.find(entry); service != mServices.end()) {
        // The object that stood there goes with the argument, after the lock.
        std::swap(service->second->object, object);
        return NO_ERROR;
    }
    return listen(entry, object);
}

status_t SocketServer::listen(const std::string& entry, const sp<BBinder>& object) {
    const auto directory = kq::RuntimeDirectory::open("services");
    if (!directory) {
        return PERMISSION_DENIED;
    }
    const std::string path = directory->pathOf(entry);
    const kq::UniqueFd lock = directory->lock();
    if (!lock) {
        return statusOf(errno);
    }
    if (kq::isStale(path)) {
        ::unlink(path.c_str());
    }
    kq::UniqueFd listener = kq::listenAt(path);
    if (!listener) {
        const int error = errno;
        __android_log_print(ANDROID_LOG_ERROR, kTag, "serving %s: %s", path.c_str(),
                            error == EADDRINUSE ? "another process serves it" : std::strerror(error));
        return error == EADDRINUSE ? ALREADY_EXISTS : statusOf(error);
    }
    auto service = std::make_unique<Service>(Service{entry, std::move(listener), object});
    epoll_event event{};
    event.events = EPOLLIN;
    event.data.ptr = service.get();
    if (::epoll_ctl(mEpoll.get(), EPOLL_CTL_ADD, service->listener.get(), &event) != 0) {
        return statusOf(errno);
    }
    mServices.emplace(entry, std::move(service));
    return NO_ERROR;
}

void SocketServer::serve() {
    if (kq::inForkedChild()) {
        return;
    }
    const std::lock_guard<std::mutex> lock(mMutex);
    mServing = mServing || startRuntimeThread("kq:accept", [this] { acceptConnections(); });
}

void SocketServer::acceptConnections() {
    for (;;) {
        epoll_event event{};
        if (::epoll_wait(mEpoll.get(), &event, 1, -1) == 1) {
            waitForRoom();
            accept(static_cast<const Service*>(event.data.ptr));
        }
    }
}

void SocketServer::accept(const Service* service) {
    kq::Peer caller{};
    kq::UniqueFd socket = kq::acceptFrom(service->listener.get(), &caller);
    if (!socket) {
        const int error = errno;
        connectionEnded();
        if (error == EACCES) {
            __android_log_print(ANDROID_LOG_WARN, kTag, "%s: process %d of uid %u refused", service->entry.c_str(),
                                caller.pid, static_cast<unsigned>(caller.uid));
        } else {
            __android_log_print(ANDROID_LOG_ERROR, kTag, "%s: accepting a caller: %s", service->entry.c_str(),
                                std::strerror(error));
            // Out of descriptors or memory: the caller still waits, and asking again at once would only spin.
            ::poll(nullptr, 0, kAcceptPauseMs);
        }
        return;
    }
    // Shared, since a std::function must be copyable.
    auto connection = std::make_shared<kq::UniqueFd>(std::move(socket));
    const sp<BBinder> object = published(service->entry);
    const bool started = startRuntimeThread(
        "kq:call", [this, connection, caller, object] { serveConnection(std::move(*connection), caller, object); });
    if (!started) {
        connectionEnded();
    }
}

void SocketServer::serveConnection(kq::UniqueFd socket, kq::Peer caller, const sp<BBinder>& object) {
    {
        const CallerIdentity identity(caller);
        MessageStream stream(socket.get());
        MessageHead request{};
        while (stream.receive(&request) && answer(stream, request, object)) {
        }
    }
    connectionEnded();
}

void SocketServer::waitForRoom() {
    std::unique_lock<std::mutex> lock(mMutex);
    mRoom.wait(lock, [this] { return mConnections < kMostConnections; });
    ++mConnections;
}

void SocketServer::connectionEnded() {
    if (kq::inForkedChild()) {
        return;
    }
    const std::lock_guard<std::mutex> lock(mMutex);
    --mConnections;
    mRoom.notify_one();
}

} // namespace android
