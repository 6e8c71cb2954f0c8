#include "Calls.h"
#include "DeathNote.h"
#include "DroidTest.h"
#include "peer/PeerProtocol.h"

#include <binder/Binder.h>
#include <binder/IServiceManager.h>

#include <vector>

namespace kelutv::test {
namespace {

using android::DEAD_OBJECT;
using android::IBinder;
using android::NO_ERROR;
using android::sp;
using android::wp;

class DeathLink : public DroidTest {
protected:
    Peer peer;
    const sp<IBinder> binder = peer.binder();
};

TEST_F(DeathLink, firesOnceOnAThreadOfTheRuntime) {
    const sp<DeathNote> note = new DeathNote;
    ASSERT_EQ(binder->linkToDeath(note), NO_ERROR);
    peer.kill();
    ASSERT_TRUE(note->waitFor(1));
    EXPECT_NE(note->thread(), std::this_thread::get_id());
    EXPECT_TRUE(note->who() == wp<IBinder>(binder));
    call(binder, kEcho);
    EXPECT_TRUE(allDeathsTold());
    EXPECT_EQ(note->count(), 1);
}

TEST_F(DeathLink, firesForAServiceThatExits) {
    const sp<DeathNote> note = new DeathNote;
    ASSERT_EQ(binder->linkToDeath(note), NO_ERROR);
    EXPECT_EQ(call(binder, kExit).status, DEAD_OBJECT);
    EXPECT_TRUE(note->waitFor(1));
}

TEST_F(DeathLink, doesNotFireWhileTheServiceLives) {
    const sp<DeathNote> note = new DeathNote;
    ASSERT_EQ(binder->linkToDeath(note), NO_ERROR);
    call(binder, 999);
    call(binder, kEcho, Bytes(kLargestTransaction));
    EXPECT_TRUE(allDeathsTold());
    EXPECT_EQ(note->count(), 0);
}

TEST_F(DeathLink, manyFireOnceEach) {
    std::vector<sp<DeathNote>> notes;
    for (int i = 0; i < 100; ++i) {
        notes.push_back(new DeathNote);
        ASSERT_EQ(binder->linkToDeath(notes.back()), NO_ERROR);
    }
    peer.kill();
    EXPECT_TRUE(notes.back()->waitFor(1));
    EXPECT_TRUE(allDeathsTold());
    for (const sp<DeathNote>& note : notes) {
        EXPECT_EQ(note->count(), 1);
    }
}

TEST_F(DeathLink, recipientLinkedTwiceIsToldTwice) {
    const sp<DeathNote> note = new DeathNote;
    ASSERT_EQ(binder->linkToDeath(note), NO_ERROR);
    ASSERT_EQ(binder->linkToDeath(note), NO_ERROR);
    peer.kill();
    EXPECT_TRUE(note->waitFor(2));
    EXPECT_TRUE(allDeathsTold());
    EXPECT_EQ(note->count(), 2);
}

TEST_F(DeathLink, everyProxyOfAServiceTellsItsOwn) {
    const sp<IBinder> other = peer.binder();
    const sp<DeathNote> note = new DeathNote;
    const sp<DeathNote> otherNote = new DeathNote;
    ASSERT_EQ(binder->linkToDeath(note), NO_ERROR);
    ASSERT_EQ(other->linkToDeath(otherNote), NO_ERROR);
    peer.kill();
    EXPECT_TRUE(note->waitFor(1));
    EXPECT_TRUE(otherNote->waitFor(1));
}

TEST_F(DeathLink, nullRecipientIsRefused) { EXPECT_EQ(binder->linkToDeath(nullptr), android::BAD_VALUE); }

TEST_F(DeathLink, recipientMayUseTheRuntime) {
    struct {
        android::status_t call, link, unlink;
        bool found, listed, localServed;
    } seen{NO_ERROR, NO_ERROR, NO_ERROR, true, true, false};
    const sp<DeathNote> bystander = new DeathNote;
    const sp<DeathNote> note = new DeathNote([&] {
        seen.call = call(binder, kEcho).status;
        seen.link = binder->linkToDeath(bystander);
        seen.unlink = binder->unlinkToDeath(bystander);
        seen.found = !eventually([] { return service("peer") == nullptr; });
        seen.listed = android::defaultServiceManager()->listServices().size() != 0;
        seen.localServed = android::defaultServiceManager()->addService(android::String16("link.mourner"),
                                                                        new android::BBinder) == NO_ERROR;
    });
    ASSERT_EQ(binder->linkToDeath(note), NO_ERROR);
    ASSERT_EQ(binder->linkToDeath(bystander), NO_ERROR);
    peer.kill();
    ASSERT_TRUE(note->waitFor(1));
    EXPECT_TRUE(bystander->waitFor(1));
    EXPECT_EQ(seen.call, DEAD_OBJECT);
    EXPECT_EQ(seen.link, DEAD_OBJECT);
    EXPECT_EQ(seen.unlink, DEAD_OBJECT);
    EXPECT_FALSE(seen.found);
    EXPECT_FALSE(seen.listed);
    EXPECT_TRUE(seen.localServed);
}

TEST_F(DeathLink, noLockIsHeldWhileARecipientIsTold) {
    // Another thread uses the same proxy, and links to another, while the notice is under way.
    const Peer living({"living"});
    const sp<IBinder> other = living.binder("living");
    const sp<DeathNote> untold = new DeathNote;
    bool done = false;
    const sp<DeathNote> note = new DeathNote([&] {
        std::thread helper([&] {
            done = call(binder, kEcho).status == DEAD_OBJECT && binder->unlinkToDeath(untold) == DEAD_OBJECT &&
                   other->linkToDeath(untold) == NO_ERROR && other->unlinkToDeath(untold) == NO_ERROR &&
                   call(other, kEcho).status == NO_ERROR;
        });
        helper.join();
    });
    ASSERT_EQ(binder->linkToDeath(note), NO_ERROR);
    peer.kill();
    ASSERT_TRUE(note->waitFor(1));
    EXPECT_TRUE(done);
    EXPECT_EQ(untold->count(), 0);
}

TEST_F(DeathLink, recipientIsHeldWeakly) {
    sp<DeathNote> note = new DeathNote;
    const wp<DeathNote> weak = note;
    const sp<DeathNote> survivor = new DeathNote;
    ASSERT_EQ(binder->linkToDeath(note), NO_ERROR);
    ASSERT_EQ(binder->linkToDeath(survivor), NO_ERROR);
    note.clear();
    EXPECT_EQ(weak.promote(), nullptr);
    peer.kill();
    EXPECT_TRUE(survivor->waitFor(1));
}

TEST_F(DeathLink, goesWithTheProxy) {
    const sp<DeathNote> note = new DeathNote;
    {
        const sp<IBinder> shortLived = peer.binder();
        ASSERT_EQ(shortLived->linkToDeath(note), NO_ERROR);
    }
    peer.kill();
    EXPECT_TRUE(allDeathsTold());
    EXPECT_EQ(note->count(), 0);
}

TEST_F(DeathLink, lastReferenceToTheProxyMayGoWithinTheNotice) {
    sp<IBinder> last = peer.binder();
    const sp<DeathNote> note = new DeathNote([&last] { last.clear(); });
    ASSERT_EQ(last->linkToDeath(note), NO_ERROR);
    peer.kill();
    ASSERT_TRUE(note->waitFor(1));
    EXPECT_TRUE(allDeathsTold());
    EXPECT_EQ(note->who().promote(), nullptr);
}

} // namespace
} // namespace kelutv::test
