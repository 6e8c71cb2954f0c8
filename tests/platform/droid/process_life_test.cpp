#include "Calls.h"
#include "DeathNote.h"
#include "DroidTest.h"
#include "ProcessCounts.h"
#include "peer/ExitingCaller.h"
#include "peer/LateNotice.h"
#include "peer/Peer.h"
#include "peer/PeerProtocol.h"
#include "peer/PeerService.h"

#include <binder/IServiceManager.h>
#include <binder/ProcessState.h>
#include <keluem/publisher.h>

#include <unistd.h>

#include <chrono>
#include <future>
#include <string>
#include <vector>

namespace kelutv::test {
namespace {

using android::IBinder;
using android::NO_ERROR;
using android::sp;

using ProcessLifeTest = DroidTest;

TEST_F(ProcessLifeTest, exitsWithThreadsInCalls) {
    const Peer peer;
    for (int run = 0; run < 30; ++run) {
        ChildProcess caller({kPeerProgram, "exit-in-calls", "peer"});
        ASSERT_EQ(caller.exitCode(), 0) << "run " << run;
    }
    EXPECT_EQ(call(peer.binder(), kEcho, replyOf({1})).bytes, replyOf({1}));
}

TEST_F(ProcessLifeTest, exitWaitsTwoSecondsForAllThatIsBeingDelivered) {
    Peer peer;
    ChildProcess::Options options;
    options.captureOutput = true;
    ChildProcess exiting({kPeerProgram, "exit-in-deliveries", "peer"}, options);
    ASSERT_TRUE(exiting.output().waitFor(kPeerReady));
    keluem::Publisher publisher;
    publisher.publish(kDeliveredModule, nullptr, 0);
    peer.kill();
    ASSERT_TRUE(exiting.output().waitFor(kDelivered));
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(exiting.exitCode(), 0);
    const auto time = std::chrono::steady_clock::now() - start;
    EXPECT_GE(time, std::chrono::milliseconds(1500));
    EXPECT_LT(time, std::chrono::milliseconds(3500));
}

/** The service dies while the process destroys the static object that watches it, and nothing was told before. */
void expectNoticeComesTooLate(const std::string& way) {
    Peer peer;
    ChildProcess::Options options;
    options.captureOutput = true;
    ChildProcess exiting({kPeerProgram, "late-notice", "peer", way}, options);
    ASSERT_TRUE(exiting.output().waitFor(kExiting));
    peer.kill();
    EXPECT_EQ(exiting.exitCode(), 0);
}

TEST_F(ProcessLifeTest, firstNoticeIsNotToldToAStaticObjectThatIsBeingDestroyed) { expectNoticeComesTooLate("main"); }

TEST_F(ProcessLifeTest, firstNoticeIsNotToldDuringExitWhereAnotherThreadAskedForIt) {
    expectNoticeComesTooLate("thread");
}

TEST_F(ProcessLifeTest, closedStandardDescriptorsDoNotBecomeConnections) {
    const Peer peer;
    ChildProcess caller({kPeerProgram, "closed-streams", "peer"});
    EXPECT_EQ(caller.exitCode(), 0);
}

/** One proxy from its making to its end, with several calls at a time. */
void useOnce(const std::string& name) {
    const sp<IBinder> binder = service(name);
    ASSERT_NE(binder, nullptr);
    const sp<DeathNote> note = new DeathNote;
    ASSERT_EQ(binder->linkToDeath(note), NO_ERROR);
    std::vector<std::future<int32_t>> calls;
    for (int i = 0; i < 3; ++i) {
        calls.push_back(std::async(std::launch::async, [&] { return ask(binder, kEcho, replyOf({1})); }));
    }
    for (std::future<int32_t>& one : calls) {
        EXPECT_EQ(one.get(), 1);
    }
    EXPECT_EQ(call(binder, kNote, replyOf({1}), IBinder::FLAG_ONEWAY).status, NO_ERROR);
    EXPECT_EQ(call(binder, kEcho, Bytes(kLargestTransaction)).status, NO_ERROR);
    EXPECT_EQ(service("nobody"), nullptr);
}

TEST_F(ProcessLifeTest, usedProxiesLeaveNothingBehindOnEitherSide) {
    const Peer peer;
    useOnce("peer"); // starts what the runtime keeps
    const ProcessCounts mine = settledCountsOf(::getpid());
    const ProcessCounts theirs = settledCountsOf(peer.pid());
    for (int cycle = 0; cycle < 20; ++cycle) {
        useOnce("peer");
    }
    EXPECT_TRUE(fallsTo(mine, ::getpid())) << countsOf(::getpid()) << ", not " << mine;
    EXPECT_TRUE(fallsTo(theirs, peer.pid())) << countsOf(peer.pid()) << ", not " << theirs;
}

TEST_F(ProcessLifeTest, deadServicesLeaveNothingBehind) {
    ASSERT_TRUE(allDeathsTold());
    const ProcessCounts before = settledCountsOf(::getpid());
    for (int cycle = 0; cycle < 5; ++cycle) {
        ASSERT_TRUE(allDeathsTold());
    }
    EXPECT_TRUE(fallsTo(before, ::getpid())) << countsOf(::getpid()) << ", not " << before;
}

TEST_F(ProcessLifeTest, programsThatAreStartedInheritNothing) {
    const Peer peer;
    const sp<IBinder> binder = peer.binder();
    const sp<DeathNote> note = new DeathNote;
    ASSERT_EQ(binder->linkToDeath(note), NO_ERROR);
    ASSERT_EQ(call(binder, kEcho).status, NO_ERROR);
    ASSERT_EQ(call(binder, kNote, replyOf({1}), IBinder::FLAG_ONEWAY).status, NO_ERROR);
    android::ProcessState::self()->startThreadPool();
    ASSERT_EQ(android::defaultServiceManager()->addService(android::String16("life.served"), new PeerService),
              NO_ERROR);
    ChildProcess::Options options;
    options.captureOutput = true;
    ChildProcess heir({kPeerProgram, "descriptors"}, options);
    ASSERT_EQ(heir.exitCode(), 0);
    EXPECT_EQ(heir.output().take(), "");
}

} // namespace
} // namespace kelutv::test
