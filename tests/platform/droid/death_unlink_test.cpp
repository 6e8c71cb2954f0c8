#include "Calls.h"
#include "DeathNote.h"
#include "DroidTest.h"

namespace kelutv::test {
namespace {

using android::IBinder;
using android::NAME_NOT_FOUND;
using android::NO_ERROR;
using android::sp;
using android::wp;

class DeathUnlink : public DroidTest {
protected:
    Peer peer;
    const sp<IBinder> binder = peer.binder();
    const sp<DeathNote> note = new DeathNote;
};

TEST_F(DeathUnlink, meansThatTheLinkNeverFires) {
    const sp<DeathNote> other = new DeathNote;
    ASSERT_EQ(binder->linkToDeath(note), NO_ERROR);
    ASSERT_EQ(binder->linkToDeath(other), NO_ERROR);
    EXPECT_EQ(binder->unlinkToDeath(note), NO_ERROR);
    peer.kill();
    EXPECT_TRUE(other->waitFor(1));
    EXPECT_TRUE(allDeathsTold());
    EXPECT_EQ(note->count(), 0);
}

TEST_F(DeathUnlink, takesOneLinkAtATime) {
    ASSERT_EQ(binder->linkToDeath(note), NO_ERROR);
    ASSERT_EQ(binder->linkToDeath(note), NO_ERROR);
    EXPECT_EQ(binder->unlinkToDeath(note), NO_ERROR);
    peer.kill();
    EXPECT_TRUE(note->waitFor(1));
    EXPECT_TRUE(allDeathsTold());
    EXPECT_EQ(note->count(), 1);
}

TEST_F(DeathUnlink, findsNoLinkThatIsNotThere) {
    EXPECT_EQ(binder->unlinkToDeath(note), NAME_NOT_FOUND);
    ASSERT_EQ(binder->linkToDeath(note), NO_ERROR);
    const sp<DeathNote> other = new DeathNote;
    EXPECT_EQ(binder->unlinkToDeath(other), NAME_NOT_FOUND);
    EXPECT_EQ(peer.binder()->unlinkToDeath(note), NAME_NOT_FOUND) << "links belong to one proxy";
    EXPECT_EQ(binder->unlinkToDeath(note), NO_ERROR);
    EXPECT_EQ(binder->unlinkToDeath(note), NAME_NOT_FOUND);
}

TEST_F(DeathUnlink, findsALinkByItsCookie) {
    int cookie = 0;
    int otherCookie = 0;
    const sp<DeathNote> other = new DeathNote;
    ASSERT_EQ(binder->linkToDeath(other, &otherCookie), NO_ERROR);
    ASSERT_EQ(binder->linkToDeath(note, &cookie), NO_ERROR);
    wp<IBinder::DeathRecipient> taken;
    EXPECT_EQ(binder->unlinkToDeath(nullptr, &cookie, 0, &taken), NO_ERROR);
    EXPECT_TRUE(taken == wp<IBinder::DeathRecipient>(note));
    EXPECT_EQ(binder->unlinkToDeath(nullptr, &cookie), NAME_NOT_FOUND);
    EXPECT_EQ(binder->unlinkToDeath(nullptr), NAME_NOT_FOUND);
    peer.kill();
    EXPECT_TRUE(other->waitFor(1));
    EXPECT_EQ(note->count(), 0);
}

TEST_F(DeathUnlink, leavesTheOutRecipientAloneWhenThereIsNoLink) {
    const sp<DeathNote> other = new DeathNote;
    wp<IBinder::DeathRecipient> taken = wp<IBinder::DeathRecipient>(sp<IBinder::DeathRecipient>(other));
    EXPECT_EQ(binder->unlinkToDeath(note, nullptr, 0, &taken), NAME_NOT_FOUND);
    EXPECT_TRUE(taken == wp<IBinder::DeathRecipient>(other));
}

TEST_F(DeathUnlink, ofARecipientThatIsGoneWorks) {
    sp<DeathNote> gone = new DeathNote;
    const wp<IBinder::DeathRecipient> weak = gone;
    ASSERT_EQ(binder->linkToDeath(gone), NO_ERROR);
    gone.clear();
    EXPECT_EQ(binder->unlinkToDeath(weak), NO_ERROR);
}

TEST_F(DeathUnlink, linkMayBeMadeAgain) {
    ASSERT_EQ(binder->linkToDeath(note), NO_ERROR);
    ASSERT_EQ(binder->unlinkToDeath(note), NO_ERROR);
    ASSERT_EQ(binder->linkToDeath(note), NO_ERROR);
    peer.kill();
    EXPECT_TRUE(note->waitFor(1));
}

} // namespace
} // namespace kelutv::test
