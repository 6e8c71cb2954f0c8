#include "Calls.h"
#include "DeathNote.h"
#include "DroidTest.h"
#include "peer/PeerProtocol.h"

#include <future>

namespace kelutv::test {
namespace {

using android::DEAD_OBJECT;
using android::IBinder;
using android::NO_ERROR;
using android::sp;

class DeadObject : public DroidTest {
protected:
    static void expectDead(const sp<IBinder>& binder) {
        const Answer answer = call(binder, kEcho, replyOf({1}));
        EXPECT_EQ(answer.status, DEAD_OBJECT);
        EXPECT_EQ(answer.bytes, Bytes());
        EXPECT_EQ(call(binder, kNote, replyOf({1}), IBinder::FLAG_ONEWAY).status, DEAD_OBJECT);
        EXPECT_EQ(binder->pingBinder(), DEAD_OBJECT);
    }

    Peer peer;
    const sp<IBinder> binder = peer.binder();
};

TEST_F(DeadObject, endsCallsInProgress) {
    auto first = std::async(std::launch::async, [this] { return call(binder, kHold); });
    auto second = std::async(std::launch::async, [this] { return call(binder, kHold); });
    ASSERT_TRUE(waitUntilHeld(binder, 2));
    peer.kill();
    for (auto* const inProgress : {&first, &second}) {
        const Answer answer = inProgress->get();
        EXPECT_EQ(answer.status, DEAD_OBJECT);
        EXPECT_EQ(answer.bytes, Bytes());
    }
    expectDead(binder);
}

TEST_F(DeadObject, isMetByTheCallThatTheServiceDiesOf) {
    EXPECT_EQ(call(binder, kExit).status, DEAD_OBJECT);
    EXPECT_TRUE(peer.waitUntilGone());
    expectDead(binder);
}

TEST_F(DeadObject, isMetByAProxyThatNeverCalled) {
    peer.kill();
    expectDead(binder);
}

TEST_F(DeadObject, staysDeadWhenTheNameIsServedAgain) {
    ASSERT_EQ(call(binder, kEcho).status, NO_ERROR);
    peer.kill();
    const Peer next;
    expectDead(binder);
    EXPECT_EQ(call(next.binder(), kEcho, replyOf({1})).bytes, replyOf({1}));
    expectDead(binder);
}

TEST_F(DeadObject, staysDeadAfterItsDeathWasTold) {
    const sp<DeathNote> note = new DeathNote;
    ASSERT_EQ(binder->linkToDeath(note), NO_ERROR);
    EXPECT_TRUE(binder->isBinderAlive());
    peer.kill();
    ASSERT_TRUE(note->waitFor(1));
    EXPECT_FALSE(binder->isBinderAlive());
    const Peer next;
    expectDead(binder);
}

TEST_F(DeadObject, isRefusedOrToldWhenItIsLinkedTo) {
    peer.kill();
    const sp<DeathNote> note = new DeathNote;
    const android::status_t status = binder->linkToDeath(note);
    // The kernel's driver tells of a death, but does not say beforehand whether there was one.
    EXPECT_EQ(status, throughKernel() ? NO_ERROR : DEAD_OBJECT);
    EXPECT_TRUE(note->waitFor(status == NO_ERROR ? 1 : 0));
    EXPECT_TRUE(allDeathsTold());
    EXPECT_EQ(note->count(), status == NO_ERROR ? 1 : 0);
}

TEST_F(DeadObject, cannotBeLinkedToAfterItsDeathWasTold) {
    const sp<DeathNote> told = new DeathNote;
    ASSERT_EQ(binder->linkToDeath(told), NO_ERROR);
    peer.kill();
    ASSERT_TRUE(told->waitFor(1));
    const sp<DeathNote> late = new DeathNote;
    EXPECT_EQ(binder->linkToDeath(late), DEAD_OBJECT);
    EXPECT_EQ(binder->unlinkToDeath(told), DEAD_OBJECT);
    EXPECT_TRUE(allDeathsTold());
    EXPECT_EQ(late->count(), 0);
    EXPECT_EQ(told->count(), 1);
}

} // namespace
} // namespace kelutv::test
