#include "CallWorkers.h"

#include "CallAnswer.h"
#include "Limits.h"
#include "droid/CallerIdentity.h"
#include "socket/QuietThread.h"
#include "socket/Sanitizers.h"

#include <cerrno>
#include <utility>

namespace android {

namespace {

constexpr const char* kThreadName = "kq:call";

constexpr size_t kStack = (kq::kSanitized ? 4096 : 256) * 1024;

} // namespace

void CallWorkers::Queue::push(Connection connection) {
    ServerConnection* const added = connection.get();
    (mLast == nullptr ? mFirst : mLast->next) = std::move(connection);
    mLast = added;
    ++mSize;
}

CallWorkers::Connection CallWorkers::Queue::pop() {
    Connection first = std::move(mFirst);
    mFirst = std::move(first->next);
    mLast = mFirst == nullptr ? nullptr : mLast;
    --mSize;
    return first;
}

int CallWorkers::start() {
    {
        const std::lock_guard<std::mutex> lock(mMutex);
        if (mThreads > 0) {
            return 0;
        }
    }
    return claimThread() ? add() : 0;
}

/** Counts one more thread, which the caller then starts; false when there may be no more. */
bool CallWorkers::claimThread() {
    const std::lock_guard<std::mutex> lock(mMutex);
    if (mThreads >= kMostCalls) {
        return false;
    }
    ++mThreads;
    ++mIdle;
    return true;
}

void CallWorkers::lostThread() {
    const std::lock_guard<std::mutex> lock(mMutex);
    --mThreads;
    --mIdle;
}

/** With the lock held. */
void CallWorkers::noteStarvation() { mStarved.store(mQueue.size() > mIdle, std::memory_order_relaxed); }

/** Starts the thread that was claimed: 0 or an errno value. */
int CallWorkers::add() {
    std::unique_ptr<MessageBuffer> buffer = MessageBuffer::make();
    const auto body = [this, given = buffer.get()] {
        const std::unique_ptr<MessageBuffer> own(given);
        run(*own);
    };
    const int error = buffer == nullptr ? ENOMEM : kq::startDetachedThread(kThreadName, kStack, body);
    if (error == 0) {
        static_cast<void>(buffer.release());
    } else {
        lostThread();
    }
    return error;
}

void CallWorkers::serve(Connection connection) {
    connection->queued = std::chrono::steady_clock::now();
    bool enough = false;
    {
        const std::lock_guard<std::mutex> lock(mMutex);
        mQueue.push(std::move(connection));
        enough = mQueue.size() <= mIdle;
    }
    if (enough) {
        mCame.notify_one();
    } else if (!claimThread() || add() != 0) {
        const std::lock_guard<std::mutex> lock(mMutex);
        noteStarvation();
    }
}

CallWorkers::Connection CallWorkers::takeUnserved() {
    // The system may have a thread to give again.
    if (starved() && claimThread()) {
        add();
    }
    const std::lock_guard<std::mutex> lock(mMutex);
    noteStarvation();
    if (!starved()) {
        return nullptr;
    }
    const bool late = std::chrono::steady_clock::now() - mQueue.front()->queued >= kThreadPatience;
    return late || mCalls >= kMostCalls ? mQueue.pop() : nullptr;
}

/** The connection to attend to; null when this thread is of no more use. */
CallWorkers::Connection CallWorkers::next() {
    std::unique_lock<std::mutex> lock(mMutex);
    while (mQueue.size() == 0) {
        if (freeThreads() == 1) {
            mCame.wait(lock);
        } else if (mCame.wait_for(lock, kIdleThread) == std::cv_status::timeout && mQueue.size() == 0 &&
                   freeThreads() > 1) {
            --mThreads;
            --mIdle;
            return nullptr;
        }
    }
    --mIdle;
    Connection connection = mQueue.pop();
    noteStarvation();
    return connection;
}

void CallWorkers::run(MessageBuffer& buffer) {
    while (Connection connection = next()) {
        attend(std::move(connection), buffer);
        const std::lock_guard<std::mutex> lock(mMutex);
        ++mIdle;
    }
}

/** Counts the calling thread as one that stays; false when it may not, or no other would be there for other calls. */
bool CallWorkers::keepThread() {
    bool last = false;
    {
        const std::lock_guard<std::mutex> lock(mMutex);
        if (mKept >= kMostKeptThreads) {
            return false;
        }
        ++mKept;
        last = freeThreads() == 0;
    }
    if (last && (!claimThread() || add() != 0)) {
        releaseThread();
        return false;
    }
    return true;
}

void CallWorkers::releaseThread() {
    const std::lock_guard<std::mutex> lock(mMutex);
    --mKept;
}

// What a wait with a limit costs the kernel is 3 per cent of a call.
void CallWorkers::Stay::begin() {
    mBegun = mWorkers.keepThread();
    if (mBegun) {
        kq::limitReceiving(mSocket, std::chrono::microseconds::zero());
    }
}

CallWorkers::Stay::~Stay() {
    if (mBegun) {
        kq::limitReceiving(mSocket, kLinger);
        mWorkers.releaseThread();
    }
}

/** Answers what comes in on a connection until nothing does for a while; false when it is of no more use. */
bool CallWorkers::answerCalls(const ServerConnection& connection, MessageBuffer& buffer) {
    const CallerIdentity identity(connection.caller);
    const int socket = connection.socket.get();
    MessageStream stream(socket, buffer);
    Stay stay(*this, socket);
    for (size_t calls = 1;; ++calls) {
        MessageHead request{};
        const Received received = stream.receiveStart(&request, 0);
        if (received == Received::Nothing) {
            return true;
        }
        CallSlot slot(mCalls, connection.place->peer().calls);
        if (!answerCall(stream, received, request, slot, connection.object)) {
            return false;
        }
        if (starved()) {
            return true;
        }
        if (calls == kCallsToKeepThread) {
            stay.begin();
        }
    }
}

void CallWorkers::attend(Connection connection, MessageBuffer& buffer) {
    if (answerCalls(*connection, buffer)) {
        mPark(std::move(connection));
    }
}

} // namespace android
