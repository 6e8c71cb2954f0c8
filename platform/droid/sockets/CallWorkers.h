#pragma once

#include "ServerConnection.h"
#include "SocketProtocol.h"

#include <atomic>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>

namespace android {

/** The threads that answer calls: as many as there are calls under way, and one. */
class CallWorkers {
public:
    using Connection = std::unique_ptr<ServerConnection>;

    /** `park` takes a connection on which no call is under way. */
    explicit CallWorkers(std::function<void(Connection)> park) : mPark(std::move(park)) {}

    /** Starts the thread that stays, unless it runs already: 0 or an errno value. */
    int start();
    /** Has the call that has come in on a connection answered, as soon as there is a thread. */
    void serve(Connection connection);
    /** One that has waited for a thread for too long; null for none. */
    Connection takeUnserved();
    /** True while some wait because the system gives no thread. */
    bool starved() const { return mStarved.load(std::memory_order_relaxed); }

private:
    class Queue {
    public:
        void push(Connection connection);
        Connection pop();
        const ServerConnection* front() const { return mFirst.get(); }
        size_t size() const { return mSize; }

    private:
        Connection mFirst;
        ServerConnection* mLast = nullptr;
        size_t mSize = 0;
    };

    /** A thread that waits on its connection for as long as it takes, once it was asked to and may. */
    class Stay {
    public:
        Stay(CallWorkers& workers, int socket) : mWorkers(workers), mSocket(socket) {}
        ~Stay();
        Stay(const Stay&) = delete;
        Stay& operator=(const Stay&) = delete;

        void begin();

    private:
        CallWorkers& mWorkers;
        const int mSocket;
        bool mBegun = false;
    };

    int add();
    bool claimThread();
    void lostThread();
    void noteStarvation();
    void run(MessageBuffer& buffer);
    Connection next();
    void attend(Connection connection, MessageBuffer& buffer);
    bool answerCalls(const ServerConnection& connection, MessageBuffer& buffer);
    bool keepThread();
    void releaseThread();
    size_t freeThreads() const { return mThreads - mKept; }

    const std::function<void(Connection)> mPark;
    std::mutex mMutex;
    std::condition_variable mCame;
    Queue mQueue;
    size_t mThreads = 0;
    // Of these, those that stay on their connections.
    size_t mKept = 0;
    // Those that wait for a connection, and those that have still to begin.
    size_t mIdle = 0;
    std::atomic<bool> mStarved{false};
    std::atomic<size_t> mCalls{0};
};

} // namespace android
