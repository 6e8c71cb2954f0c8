#include "SubscriberLink.h"

#include <android/log.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <new>

#include "ModuleList.h"
#include "socket/SeqPacket.h"

namespace keluem {

namespace {

/** A connection made without waiting for room in the listener's backlog; empty with errno set on failure. */
kq::UniqueFd connectAtOnce(const std::string& path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.size() >= sizeof(address.sun_path)) {
        errno = ENAMETOOLONG;
        return kq::UniqueFd();
    }
    std::memcpy(address.sun_path, path.c_str(), path.size() + 1);
    kq::UniqueFd socket(::socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    if (socket && ::connect(socket.get(), reinterpret_cast<const sockaddr*>(&address), sizeof(address)) != 0) {
        const int error = errno;
        socket = kq::UniqueFd();
        errno = error;
    }
    return socket;
}

} // namespace

SubscriberLink::Attempt SubscriberLink::connect() {
    mSocket = connectAtOnce(mPath);
    if (!mSocket) {
        return errno == ECONNREFUSED || errno == ENOENT ? Attempt::Dead : Attempt::Later;
    }
    const uid_t uid = kq::peerOf(mSocket.get()).uid;
    if (uid != ::geteuid()) {
        mSocket = kq::UniqueFd();
        __android_log_print(ANDROID_LOG_ERROR, kLogTag, "subscriber of uid %u refused", static_cast<unsigned int>(uid));
        return Attempt::Foreign;
    }
    return Attempt::Connected;
}

void SubscriberLink::readModules() { mModules = keluem::readModules(mPath); }

bool SubscriberLink::wants(std::uint32_t module) const {
    return std::find(mModules.begin(), mModules.end(), module) != mModules.end();
}

bool SubscriberLink::send(const Event& event) {
    if (!flush()) {
        return false;
    }
    if (waiting() || !mSocket) {
        enqueue(event);
        return true;
    }
    const Outcome outcome = transmit(event);
    if (outcome == Outcome::Full) {
        enqueue(event);
    }
    return outcome != Outcome::Gone;
}

bool SubscriberLink::flush() {
    if (!connected()) {
        return false;
    }
    while (mSocket && waiting()) {
        const Outcome outcome = transmit(mQueue.front());
        if (outcome != Outcome::Taken) {
            return outcome == Outcome::Full;
        }
        mQueue.pop();
    }
    mOverflowing = mOverflowing && waiting();
    return true;
}

/** False when there is no use in trying again. */
bool SubscriberLink::connected() {
    if (mSocket) {
        return true;
    }
    const Attempt attempt = connect();
    return attempt == Attempt::Connected || attempt == Attempt::Later;
}

SubscriberLink::Outcome SubscriberLink::transmit(const Event& event) {
    std::uint32_t id = event.id;
    const iovec pieces[] = {{&id, sizeof(id)}, {const_cast<void*>(event.payload), event.length}};
    if (kq::sendPacket(mSocket.get(), pieces, 2)) {
        return Outcome::Taken;
    }
    switch (errno) {
    case EAGAIN:
    case ENOBUFS:
    case ENOMEM:
        return Outcome::Full;
    case EMSGSIZE: // the system's socket buffers are smaller than this event: no later attempt would fare better
        countDropped(1);
        return Outcome::Taken;
    default:
        return Outcome::Gone;
    }
}

void SubscriberLink::enqueue(const Event& event) {
    try {
        countDropped(mQueue.push(event));
    } catch (const std::bad_alloc&) {
        countDropped(1);
    }
}

void SubscriberLink::countDropped(std::size_t events) {
    if (events == 0) {
        return;
    }
    mDropped.fetch_add(events, std::memory_order_relaxed);
    if (!mOverflowing) {
        mOverflowing = true;
        __android_log_print(ANDROID_LOG_WARN, kLogTag, "subscriber %s does not keep up: its oldest events are dropped",
                            mPath.c_str());
    }
}

} // namespace keluem
