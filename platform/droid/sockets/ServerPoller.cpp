#include "ServerPoller.h"

#include "CallAnswer.h"
#include "Greeting.h"
#include "Limits.h"
#include "socket/Descriptors.h"
#include "socket/QuietThread.h"

#include <android/log.h>

#include <poll.h>
#include <sys/epoll.h>
#include <sys/eventfd.h>
#include <sys/socket.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <new>
#include <utility>

namespace android {

namespace {

using Clock = std::chrono::steady_clock;

constexpr const char* kTag = "kqdroid";
constexpr int kPauseMs = 100;
constexpr int kStarvedMs = 10;
constexpr std::chrono::seconds kBetweenRefusalLines{1};
constexpr uint32_t kConnectionEvents = EPOLLIN | EPOLLRDHUP;
constexpr uint32_t kListenerEvents = EPOLLIN | EPOLLONESHOT;

kq::UniqueFd newSpare() {
    return kq::openDescriptor([] { return ::eventfd(0, EFD_CLOEXEC); });
}

bool greet(int socket, status_t status) {
    const Greeting greeting = greetingOfProcess(status);
    return kq::sendPacket(socket, &greeting, sizeof(greeting), MSG_DONTWAIT);
}

bool hasEnded(int socket) {
    char byte = 0;
    return kq::receivePacket(socket, &byte, sizeof(byte), MSG_PEEK | MSG_DONTWAIT) <= 0;
}

} // namespace

ServerPoller::ServerPoller(Published published)
    : mPublished(std::move(published)),
      mWorkers([this](std::unique_ptr<ServerConnection> idle) { park(std::move(idle)); }) {}

int ServerPoller::open() {
    if (!mEpoll) {
        mEpoll = kq::openDescriptor([] { return ::epoll_create1(EPOLL_CLOEXEC); });
    }
    return mEpoll ? 0 : errno;
}

int ServerPoller::start() {
    if (const int error = open(); error != 0) {
        return error;
    }
    if (const int error = mWorkers.start(); error != 0) {
        return error;
    }
    mBuffer = MessageBuffer::make();
    mSpare = newSpare();
    return mBuffer == nullptr ? ENOMEM : kq::startDetachedThread("kq:accept", kq::kDefaultStack, [this] { run(); });
}

bool ServerPoller::arm(ServerSocket* source, int operation, uint32_t events) const {
    epoll_event event{};
    event.events = events;
    event.data.ptr = source;
    return ::epoll_ctl(mEpoll.get(), operation, source->socket.get(), &event) == 0;
}

int ServerPoller::add(ServerListener& listener) {
    if (const int error = open(); error != 0) {
        return error;
    }
    return arm(&listener, EPOLL_CTL_ADD, kListenerEvents) ? 0 : errno;
}

int ServerPoller::timeout() const {
    if (mWorkers.starved()) {
        return kStarvedMs;
    }
    return mPaused == nullptr ? -1 : kPauseMs;
}

void ServerPoller::run() {
    std::array<epoll_event, 64> events{};
    for (;;) {
        const int came = ::epoll_wait(mEpoll.get(), events.data(), static_cast<int>(events.size()), timeout());
        if (came < 0 && errno != EINTR) {
            ::poll(nullptr, 0, kPauseMs);
        }
        for (int i = 0; i < came; ++i) {
            const epoll_event& event = events[static_cast<size_t>(i)];
            handle(static_cast<ServerSocket*>(event.data.ptr), event.events);
        }
        refuseUnserved();
        if (mPaused != nullptr && Clock::now() >= mResume) {
            resume();
        }
    }
}

void ServerPoller::handle(ServerSocket* source, uint32_t events) {
    if (source->isListener) {
        acceptFrom(*static_cast<ServerListener*>(source));
        return;
    }
    // Taken out, not just disarmed: a connection that is waited for costs each packet on it time.
    ::epoll_ctl(mEpoll.get(), EPOLL_CTL_DEL, source->socket.get(), nullptr);
    std::unique_ptr<ServerConnection> connection = mParked.take(static_cast<ServerConnection*>(source));
    const bool hungUp = (events & (EPOLLRDHUP | EPOLLHUP | EPOLLERR)) != 0;
    if (!hungUp || !hasEnded(connection->socket.get())) {
        mWorkers.serve(std::move(connection));
    }
}

/** From then on the poller has it, and may have given it to another thread before this call returns. */
void ServerPoller::park(std::unique_ptr<ServerConnection> connection) {
    ServerConnection* const parked = mParked.park(std::move(connection));
    if (!arm(parked, EPOLL_CTL_ADD, kConnectionEvents)) {
        mParked.take(parked);
    }
}

void ServerPoller::refuseUnserved() {
    while (mWorkers.starved()) {
        std::unique_ptr<ServerConnection> connection = mWorkers.takeUnserved();
        if (connection == nullptr) {
            return;
        }
        MessageStream stream(connection->socket.get(), *mBuffer);
        if (refuseCall(stream)) {
            park(std::move(connection));
        }
    }
}

void ServerPoller::acceptFrom(ServerListener& listener) {
    kq::Peer caller{};
    kq::UniqueFd socket = kq::acceptFrom(listener.socket.get(), &caller);
    if (socket) {
        accept(listener, std::move(socket), caller);
    } else if (!acceptFailed(listener, caller, errno)) {
        // Out of memory: the caller still waits, and asking again at once would only spin.
        listener.nextPaused = std::exchange(mPaused, &listener);
        mResume = Clock::now() + std::chrono::milliseconds(kPauseMs);
        return;
    }
    arm(&listener, EPOLL_CTL_MOD, kListenerEvents);
}

void ServerPoller::resume() {
    while (mPaused != nullptr) {
        ServerListener* const listener = std::exchange(mPaused, mPaused->nextPaused);
        arm(listener, EPOLL_CTL_MOD, kListenerEvents);
    }
}

void ServerPoller::accept(const ServerListener& listener, kq::UniqueFd socket, const kq::Peer& caller) {
    std::unique_ptr<PeerTable::Place> place = mPeers.enter(caller.pid);
    std::unique_ptr<ServerConnection> connection(place == nullptr ? nullptr : new (std::nothrow) ServerConnection);
    if (connection == nullptr) {
        greet(socket.get(), FAILED_TRANSACTION);
        logRefusal(listener, caller);
        return;
    }
    connection->socket = std::move(socket);
    connection->caller = caller;
    connection->place = std::move(place);
    connection->object = mPublished(listener.entry);
    if (greet(connection->socket.get(), NO_ERROR) && kq::limitReceiving(connection->socket.get(), kLinger)) {
        park(std::move(connection));
    }
}

/** False when the listener is not to be asked for a while. */
bool ServerPoller::acceptFailed(const ServerListener& listener, const kq::Peer& caller, int error) {
    switch (error) {
    case EAGAIN:
    case EINTR:
    case ECONNABORTED:
        return true;
    case EACCES:
        __android_log_print(ANDROID_LOG_WARN, kTag, "%s: process %d of uid %u refused", listener.entry.c_str(),
                            caller.pid, static_cast<unsigned>(caller.uid));
        return true;
    case EMFILE:
    case ENFILE:
        if (mSpare) {
            return refuseOne(listener);
        }
        break;
    default:
        break;
    }
    __android_log_print(ANDROID_LOG_ERROR, kTag, "%s: accepting a caller: %s", listener.entry.c_str(),
                        std::strerror(error));
    return false;
}

/** Refuses a caller for which there is no descriptor. */
bool ServerPoller::refuseOne(const ServerListener& listener) {
    mSpare = kq::UniqueFd();
    kq::Peer caller{};
    kq::UniqueFd socket = kq::acceptFrom(listener.socket.get(), &caller);
    const bool refused = socket && greet(socket.get(), FAILED_TRANSACTION);
    socket = kq::UniqueFd();
    mSpare = newSpare();
    if (refused) {
        logRefusal(listener, caller);
    }
    return refused;
}

void ServerPoller::logRefusal(const ServerListener& listener, const kq::Peer& caller) {
    const Clock::time_point now = Clock::now();
    if (now >= mNextRefusalLine) {
        mNextRefusalLine = now + kBetweenRefusalLines;
        __android_log_print(ANDROID_LOG_WARN, kTag, "%s: too many connections; one of process %d refused",
                            listener.entry.c_str(), caller.pid);
    }
}

} // namespace android
