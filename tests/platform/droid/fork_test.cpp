#include "Calls.h"
#include "DeathNote.h"
#include "DroidTest.h"
#include "ProcessCounts.h"
#include "peer/Peer.h"
#include "peer/PeerProtocol.h"

#include <signal.h>

#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

namespace kelutv::test {
namespace {

using android::IBinder;
using android::NO_ERROR;
using android::sp;

/** What children that are forked without exec hold of their parents: nothing. */
class ForkTest : public DroidTest {
protected:
    ~ForkTest() override {
        for (const pid_t child : mChildren) {
            ::kill(child, SIGKILL);
        }
    }

    /** To be ended with the test, at the latest. */
    void willEnd(pid_t child) { mChildren.push_back(child); }
    bool allStay() const {
        for (const pid_t child : mChildren) {
            if (::kill(child, 0) != 0) {
                return false;
            }
        }
        return !mChildren.empty();
    }

private:
    std::vector<pid_t> mChildren;
};

/** A forked child has the memory of threads that it does not have: to a leak check all of that is lost. */
std::string withoutLeakCheck() {
    const char* const options = std::getenv("ASAN_OPTIONS");
    return "ASAN_OPTIONS=" + (options == nullptr ? std::string() : std::string(options) + ':') + "detect_leaks=0";
}

TEST_F(ForkTest, forkedChildIsKeptOutAndTheParentGoesOn) {
    const Peer peer;
    ChildProcess::Options options;
    options.environment = {withoutLeakCheck()};
    ChildProcess caller({kPeerProgram, "fork", "peer"}, options);
    EXPECT_EQ(caller.exitCode(2 * kPatience), 0);
}

TEST_F(ForkTest, childForkedInAServicesCallIsKeptOut) {
    ChildProcess::Options options;
    options.environment = {withoutLeakCheck()};
    options.captureOutput = true;
    ChildProcess forking({kPeerProgram, "serve", "forking"}, options);
    ASSERT_TRUE(forking.output().waitFor(kPeerReady));
    const sp<IBinder> binder = service("forking");
    ASSERT_NE(binder, nullptr);
    EXPECT_EQ(ask(binder, kFork), 1);
    EXPECT_EQ(ask(binder, kEcho, replyOf({2})), 2);
}

TEST_F(ForkTest, childThatReturnsFromADeathNoticeEndsQuietly) {
    Peer peer;
    ChildProcess::Options options;
    options.environment = {withoutLeakCheck()};
    options.captureOutput = true;
    ChildProcess forking({kPeerProgram, "fork-in-notice", "peer"}, options);
    ASSERT_TRUE(forking.output().waitFor(kPeerReady));
    peer.kill();
    EXPECT_EQ(forking.exitCode(3 * kPatience), 0);
}

TEST_F(ForkTest, serviceThatDiesIsDeadWhateverItForked) {
    Peer peer;
    const sp<IBinder> binder = peer.binder();
    const sp<DeathNote> note = new DeathNote;
    ASSERT_EQ(binder->linkToDeath(note), NO_ERROR);
    willEnd(ask(binder, kForkHelper));
    peer.kill();
    EXPECT_TRUE(note->waitFor(1));
    EXPECT_EQ(call(binder, kEcho).status, android::DEAD_OBJECT);
    // The helper may not have come to close what it was forked with.
    EXPECT_TRUE(eventually([] { return service("peer") == nullptr; }));
    const Peer next;
    EXPECT_EQ(call(next.binder(), kEcho, replyOf({1})).bytes, replyOf({1}));
    EXPECT_TRUE(allStay());
}

TEST_F(ForkTest, clientsThatDieLeaveNothingBehindWhateverTheyForked) {
    const Peer peer;
    ASSERT_EQ(call(peer.binder(), kEcho).status, NO_ERROR);
    const ProcessCounts before = settledCountsOf(peer.pid());
    ChildProcess::Options options;
    options.environment = {withoutLeakCheck()};
    options.captureOutput = true;
    std::vector<std::unique_ptr<ChildProcess>> clients;
    for (int i = 0; i < 3; ++i) {
        clients.push_back(
            std::make_unique<ChildProcess>(std::vector<std::string>{kPeerProgram, "fork-and-stay", "peer"}, options));
        ASSERT_TRUE(clients.back()->output().waitFor("\n"));
        willEnd(std::stoi(clients.back()->output().text()));
    }
    for (const std::unique_ptr<ChildProcess>& client : clients) {
        client->kill(SIGKILL);
        EXPECT_TRUE(client->wait());
    }
    EXPECT_TRUE(fallsTo(before, peer.pid())) << countsOf(peer.pid()) << ", not " << before;
    EXPECT_TRUE(allStay());
}

} // namespace
} // namespace kelutv::test
