#include "LifeLine.h"

#include "Greeting.h"
#include "socket/SeqPacket.h"

#include <poll.h>

#include <cerrno>

namespace android {

namespace {

bool hungUp(int socket) {
    pollfd end{socket, POLLRDHUP, 0};
    return ::poll(&end, 1, 0) == 1;
}

} // namespace

LifeLine::State LifeLine::end() {
    mEnded = true;
    return State::Ended;
}

/** Takes the greeting, if it is there. */
LifeLine::State LifeLine::greeted() {
    Greeting greeting{};
    switch (takeGreeting(mSocket.get(), false, &greeting)) {
    case Greeted::NotYet:
        return State::Stands;
    case Greeted::Gone:
        return end();
    case Greeted::Malformed:
        // Whoever it is lives; the calls tell that it cannot be talked to.
        mGreeted = true;
        return State::Stands;
    case Greeted::Yes:
        break;
    }
    if (mInstance != 0 && mInstance != greeting.instance) {
        return end();
    }
    mInstance = greeting.instance;
    mGreeted = greeting.status == NO_ERROR;
    if (!mGreeted) {
        mSocket = kq::UniqueFd();
    }
    return mGreeted ? State::Stands : State::Refused;
}

LifeLine::State LifeLine::look() {
    const std::lock_guard<std::mutex> lock(mMutex);
    if (mEnded) {
        return State::Ended;
    }
    if (!mSocket) {
        return State::Refused;
    }
    if (!mGreeted) {
        if (const State state = greeted(); state != State::Stands || !mGreeted) {
            return state;
        }
    }
    return hungUp(mSocket.get()) ? end() : State::Stands;
}

LifeLine::State LifeLine::renew() {
    const std::lock_guard<std::mutex> lock(mMutex);
    if (mEnded || mSocket) {
        return mEnded ? State::Ended : State::Stands;
    }
    mSocket = kq::connectTo(mPath);
    if (!mSocket) {
        return errno == ECONNREFUSED || errno == ENOENT ? end() : State::Refused;
    }
    return State::Stands;
}

bool LifeLine::isOf(uint64_t instance) {
    const std::lock_guard<std::mutex> lock(mMutex);
    if (!mEnded && mSocket && !mGreeted) {
        greeted();
    }
    if (mInstance == 0 && !mEnded) {
        mInstance = instance;
    }
    return mInstance == instance;
}

int LifeLine::socket() {
    const std::lock_guard<std::mutex> lock(mMutex);
    return mSocket.get();
}

} // namespace android
