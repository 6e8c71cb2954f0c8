#include "Calls.h"
#include "DeathNote.h"
#include "DroidTest.h"
#include "RawSocket.h"
#include "StartLine.h"

#include <thread>

namespace kelutv::test {
namespace {

using android::DEAD_OBJECT;
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

/** One race of a death against unlinking: the status decides whether the link fires. */
void raceUnlinkAgainstDeath(RawService& raw, const std::string& name, int* fired, sp<DeathNote> const& note) {
    const sp<IBinder> binder = service(name);
    ASSERT_NE(binder, nullptr);
    kq::UniqueFd watched = raw.accept();
    ASSERT_EQ(binder->linkToDeath(note), NO_ERROR);
    StartLine line(2);
    std::thread end([&] {
        line.wait();
        watched = kq::UniqueFd();
    });
    line.wait();
    const android::status_t status = binder->unlinkToDeath(note);
    end.join();
    ASSERT_TRUE(status == NO_ERROR || status == DEAD_OBJECT) << status;
    *fired = status == DEAD_OBJECT ? 1 : 0;
    ASSERT_TRUE(note->waitFor(*fired));
}

TEST_F(DeathUnlink, racesWithDeathWithOneOutcomeOrTheOther) {
    RawService raw(pathOf("raced"));
    std::vector<std::pair<sp<DeathNote>, int>> outcomes;
    for (int round = 0; round < 200; ++round) {
        const sp<DeathNote> raced = new DeathNote;
        int fired = 0;
        ASSERT_NO_FATAL_FAILURE(raceUnlinkAgainstDeath(raw, "raced", &fired, raced));
        outcomes.emplace_back(raced, fired);
    }
    EXPECT_TRUE(allDeathsTold());
    for (const auto& [raced, fired] : outcomes) {
        EXPECT_EQ(raced->count(), fired);
    }
}

TEST_F(DeathUnlink, proxyMayGoWhileItsDeathIsTold) {
    RawService raw(pathOf("raced"));
    for (int round = 0; round < 200; ++round) {
        sp<IBinder> shortLived = service("raced");
        ASSERT_NE(shortLived, nullptr);
        kq::UniqueFd watched = raw.accept();
        const sp<DeathNote> raced = new DeathNote;
        ASSERT_EQ(shortLived->linkToDeath(raced), NO_ERROR);
        StartLine line(2);
        std::thread end([&] {
            line.wait();
            watched = kq::UniqueFd();
        });
        line.wait();
        shortLived.clear();
        end.join();
        ASSERT_LE(raced->count(), 1);
    }
    EXPECT_TRUE(allDeathsTold());
}

} // namespace
} // namespace kelutv::test
