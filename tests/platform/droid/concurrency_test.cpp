#include "Calls.h"
#include "DroidTest.h"
#include "StartLine.h"
#include "peer/Peer.h"
#include "peer/PeerProtocol.h"
#include "peer/PeerService.h"
#include "support/Deadline.h"

#include <pthread.h>

#include <atomic>
#include <csignal>
#include <future>
#include <thread>
#include <vector>

namespace kelutv::test {
namespace {

constexpr int32_t kCallers = 72; // more than connections are kept for

class ConcurrencyTest : public DroidTest {
protected:
    const Peer peer;
    const android::sp<android::IBinder> binder = peer.binder();
};

TEST_F(ConcurrencyTest, callersAreInTheHandlerAtTheSameTime) {
    std::vector<std::future<int32_t>> met;
    for (int32_t i = 0; i < kCallers; ++i) {
        met.push_back(std::async(std::launch::async, [this] { return ask(binder, kMeet, replyOf({kCallers})); }));
    }
    for (std::future<int32_t>& one : met) {
        EXPECT_EQ(one.get(), 1);
    }
}

TEST_F(ConcurrencyTest, longCallOfOneThreadBlocksNoOther) {
    auto longCall = std::async(std::launch::async, [this] { return call(binder, kHold).status; });
    ASSERT_TRUE(waitUntilHeld(binder, 1));
    EXPECT_EQ(call(binder, kEcho, replyOf({1})).bytes, replyOf({1}));
    EXPECT_EQ(call(binder, kNote, replyOf({2}), android::IBinder::FLAG_ONEWAY).status, android::NO_ERROR);
    EXPECT_EQ(ask(binder, kHeld), 1);
    EXPECT_EQ(call(binder, kRelease).status, android::NO_ERROR);
    EXPECT_EQ(longCall.get(), android::NO_ERROR);
}

std::atomic<int> gSignals{0};

/** Counts SIGUSR1, which interrupts what the thread waits for. */
class Interruptions {
public:
    Interruptions() {
        struct sigaction counting {};
        counting.sa_handler = [](int) { ++gSignals; };
        ::sigaction(SIGUSR1, &counting, &mBefore);
    }
    ~Interruptions() { ::sigaction(SIGUSR1, &mBefore, nullptr); }
    Interruptions(const Interruptions&) = delete;
    Interruptions& operator=(const Interruptions&) = delete;

    /** Interrupts the thread, several times. */
    static void of(pthread_t thread) {
        for (int number = 1; number <= 5; ++number) {
            const int before = gSignals;
            ASSERT_EQ(::pthread_kill(thread, SIGUSR1), 0);
            ASSERT_TRUE(eventually([before] { return gSignals > before; }));
        }
    }

private:
    struct sigaction mBefore {};
};

TEST_F(ConcurrencyTest, signalsDoNotEndACall) {
    const Interruptions interruptions;
    android::status_t status = android::UNKNOWN_ERROR;
    std::thread caller([&] { status = call(binder, kHold).status; });
    const bool held = waitUntilHeld(binder, 1);
    if (held) {
        Interruptions::of(caller.native_handle());
    }
    EXPECT_EQ(ask(binder, kHeld), held ? 1 : 0);
    EXPECT_EQ(call(binder, kRelease).status, android::NO_ERROR);
    caller.join();
    EXPECT_TRUE(held);
    EXPECT_EQ(status, android::NO_ERROR);
}

TEST_F(ConcurrencyTest, threadsGetTheirOwnAnswers) {
    StartLine line(4);
    std::vector<std::future<bool>> right;
    for (int32_t thread = 0; thread < 4; ++thread) {
        right.push_back(std::async(std::launch::async, [this, &line, thread] {
            line.wait();
            bool all = true;
            for (int32_t i = 0; i < 100; ++i) {
                const Bytes mine = pattern(static_cast<size_t>(thread) * 1000 + static_cast<size_t>(i));
                all = all && call(binder, kEcho, mine).bytes == mine;
            }
            return all;
        }));
    }
    for (std::future<bool>& one : right) {
        EXPECT_TRUE(one.get());
    }
}

} // namespace
} // namespace kelutv::test
