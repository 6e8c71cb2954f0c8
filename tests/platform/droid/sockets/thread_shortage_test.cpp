#include "RawSocket.h"
#include "platform/droid/Calls.h"
#include "platform/droid/DeathNote.h"
#include "platform/droid/DroidTest.h"
#include "platform/droid/peer/Peer.h"
#include "platform/droid/peer/PeerProtocol.h"

#include <chrono>
#include <future>
#include <string>

namespace kelutv::test {
namespace {

using android::FAILED_TRANSACTION;
using android::IBinder;
using android::NO_ERROR;
using android::sp;

/** A service that the system gives only so many threads. */
class ThreadShortage : public DroidTest {
protected:
    static ChildProcess::Options threads(int number) {
        ChildProcess::Options options;
        options.environment = {"KELUTV_TEST_THREADS=" + std::to_string(number)};
        options.captureOutput = true;
        options.captureError = true;
        return options;
    }
};

TEST_F(ThreadShortage, serviceWithoutThreadsFailsVisibly) {
    for (const int number : {0, 1}) {
        ChildProcess starved({kPeerProgram, "serve", "starved"}, threads(number));
        EXPECT_EQ(starved.exitCode(), 1) << number;
        EXPECT_EQ(starved.output().text(), "");
        EXPECT_NE(starved.error().text().find("serving callers: Resource temporarily unavailable"), std::string::npos);
    }
}

TEST_F(ThreadShortage, callWithoutAThreadIsRefusedAndNobodyDies) {
    // One that waits for calls, and one that answers them.
    ChildProcess starved({kPeerProgram, "serve", "starved"}, threads(2));
    ASSERT_TRUE(starved.output().waitFor(kPeerReady));
    const sp<IBinder> binder = service("starved");
    ASSERT_NE(binder, nullptr);
    const sp<DeathNote> note = new DeathNote;
    ASSERT_EQ(binder->linkToDeath(note), NO_ERROR);
    ASSERT_EQ(call(binder, kEcho).status, NO_ERROR);
    const kq::UniqueFd held = rawConnection(pathOf("starved"));
    ASSERT_TRUE(sendRaw(held, head(0, kHold)));
    Answer answer{};
    ASSERT_TRUE(eventually([&] {
        answer = call(binder, kEcho, replyOf({1}));
        return answer.status != NO_ERROR;
    }));
    EXPECT_EQ(answer.status, FAILED_TRANSACTION);
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(call(binder, kEcho, Bytes(kLargestTransaction)).status, FAILED_TRANSACTION);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(3));
    EXPECT_EQ(note->count(), 0);
    EXPECT_TRUE(binder->isBinderAlive());
}

TEST_F(ThreadShortage, connectionInConstantUseKeepsNoThreadThatOthersNeed) {
    ChildProcess starved({kPeerProgram, "serve", "starved"}, threads(2));
    ASSERT_TRUE(starved.output().waitFor(kPeerReady));
    const sp<IBinder> busy = service("starved");
    const sp<IBinder> other = service("starved");
    ASSERT_NE(busy, nullptr);
    ASSERT_NE(other, nullptr);
    for (int calls = 0; calls < 1000; ++calls) {
        ASSERT_EQ(call(busy, kEcho, replyOf({calls})).bytes, replyOf({calls}));
    }
    EXPECT_EQ(call(other, kEcho, replyOf({7})).bytes, replyOf({7}));
}

} // namespace
} // namespace kelutv::test
