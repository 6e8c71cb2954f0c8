#include "Subscription.h"

#include <android/log.h>
#include <keluem/publisher.h>
#include <pthread.h>
#include <sys/random.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <new>
#include <system_error>

#include "Event.h"
#include "ListenerTable.h"
#include "ModuleList.h"
#include "socket/ProcessLife.h"
#include "socket/QuietThread.h"
#include "socket/RuntimeDirectory.h"
#include "socket/SeqPacket.h"

namespace keluem {

namespace {

constexpr int kAcceptPauseMs = 100;
constexpr std::size_t kIdSize = sizeof(Event::id);

std::string newEntryName() {
    std::uint32_t number = 0;
    static_cast<void>(::getrandom(&number, sizeof(number), 0));
    return std::to_string(::getpid()) + '-' + std::to_string(number);
}

} // namespace

/** A received event, placed so that the payload is aligned for any type. */
struct Subscription::Packet {
    alignas(std::max_align_t) unsigned char gapAndId[sizeof(std::max_align_t)];
    unsigned char payload[kMaxPayload];

    unsigned char* start() { return payload - kIdSize; }
};

Subscription& Subscription::ofProcess() {
    static Subscription* const subscription = new Subscription;
    return *subscription;
}

Subscription::Subscription() : mPacket(std::make_unique<Packet>()) {
    kq::watchForks();
    ::pthread_atfork([] { ofProcess().mDescriptors.lock(); }, [] { ofProcess().mDescriptors.unlock(); },
                     [] { ofProcess().closeInForkedChild(); });
}

int Subscription::start() {
    const std::lock_guard<std::mutex> lock(mStart);
    if (mStarted) {
        return 0;
    }
    int error = open();
    if (error == 0) {
        error = startDelivery();
    }
    mStarted = error == 0;
    return error;
}

int Subscription::tellModules() {
    const std::lock_guard<std::mutex> lock(mStart);
    return writeModules(mEntryPath, ListenerTable::ofProcess().modules());
}

/** The entry gets its name only when the socket listens, so an entry that refuses a connection is a dead one. */
int Subscription::open() {
    const auto room = kq::RuntimeDirectory::open(kEventRoom);
    if (!room) {
        return -EACCES;
    }
    const std::string name = newEntryName();
    const std::string unfinished = room->pathOf('.' + name);
    const std::lock_guard<std::mutex> lock(mDescriptors);
    mListener = kq::listenAt(unfinished);
    if (!mListener) {
        const int error = errno;
        __android_log_print(ANDROID_LOG_ERROR, kLogTag, "listening at %s: %s", unfinished.c_str(),
                            std::strerror(error));
        return -error;
    }
    mEntryPath = room->pathOf(name);
    if (std::rename(unfinished.c_str(), mEntryPath.c_str()) != 0) {
        const int error = errno;
        ::unlink(unfinished.c_str());
        return -error;
    }
    return 0;
}

int Subscription::startDelivery() {
    mPolled.assign(1, {mListener.get(), POLLIN, 0});
    try {
        kq::startQuietThread("keluem-events", [this] { run(); }).detach();
    } catch (const std::system_error& error) {
        leaveRoom();
        return -error.code().value();
    }
    std::atexit([] { ofProcess().leaveRoom(); });
    return 0;
}

void Subscription::leaveRoom() {
    if (!kq::inForkedChild()) {
        removeSubscriber(mEntryPath);
    }
}

/** A socket left open here would keep the parent's subscription looking alive after the parent's death. */
void Subscription::closeInForkedChild() {
    mListener = kq::UniqueFd();
    mConnections.clear();
    mDescriptors.unlock();
}

void Subscription::run() {
    for (;;) {
        mPolled[0].events = mAcceptPaused ? 0 : POLLIN;
        const int ready = ::poll(mPolled.data(), mPolled.size(), mAcceptPaused ? kAcceptPauseMs : -1);
        mAcceptPaused = false;
        if (ready <= 0) {
            continue;
        }
        for (std::size_t index = mConnections.size(); index-- > 0;) {
            if (mPolled[index + 1].revents != 0 && !receiveEvent(mPolled[index + 1].fd)) {
                closeConnection(index);
            }
        }
        if (mPolled[0].revents != 0) {
            acceptConnection();
        }
    }
}

void Subscription::acceptConnection() {
    kq::Peer peer{};
    try {
        const std::lock_guard<std::mutex> lock(mDescriptors);
        kq::UniqueFd connection = kq::acceptFrom(mListener.get(), &peer);
        if (connection) {
            addConnection(std::move(connection));
            return;
        }
    } catch (const std::bad_alloc&) {
        errno = ENOMEM;
    }
    if (errno == EACCES) {
        __android_log_print(ANDROID_LOG_ERROR, kLogTag, "publisher of uid %u refused",
                            static_cast<unsigned int>(peer.uid));
    } else {
        // Out of descriptors or memory: the connection stays in the backlog, and trying at once would only spin.
        mAcceptPaused = true;
    }
}

void Subscription::addConnection(kq::UniqueFd connection) {
    mPolled.reserve(mPolled.size() + 1);
    mConnections.push_back(std::move(connection));
    mPolled.push_back({mConnections.back().get(), POLLIN, 0});
}

void Subscription::closeConnection(std::size_t index) {
    const std::lock_guard<std::mutex> lock(mDescriptors);
    mConnections[index] = std::move(mConnections.back());
    mConnections.pop_back();
    mPolled[index + 1] = mPolled.back();
    mPolled.pop_back();
}

bool Subscription::receiveEvent(int connection) {
    const std::size_t size = kq::receivePacket(connection, mPacket->start(), kIdSize + kMaxPayload);
    if (size == 0) {
        return false;
    }
    if (size < kIdSize || size > kIdSize + kMaxPayload) {
        __android_log_print(ANDROID_LOG_ERROR, kLogTag, "publisher of pid %d sent %zu bytes, which is no event: closed",
                            kq::peerOf(connection).pid, size);
        return false;
    }
    std::uint32_t id = 0;
    std::memcpy(&id, mPacket->start(), kIdSize);
    const std::size_t length = size - kIdSize;
    ListenerTable::ofProcess().deliver(id, length == 0 ? nullptr : mPacket->payload, static_cast<unsigned int>(length));
    return true;
}

} // namespace keluem
