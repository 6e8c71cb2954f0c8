#include "RawSocket.h"
#include "platform/droid/Calls.h"
#include "platform/droid/DeathNote.h"
#include "platform/droid/DroidTest.h"
#include "platform/droid/StartLine.h"

#include <thread>
#include <utility>
#include <vector>

namespace kelutv::test {
namespace {

using android::DEAD_OBJECT;
using android::IBinder;
using android::NO_ERROR;
using android::sp;

/** A raw socket dies faster and more often than a process can. */
using SocketDeathRace = DroidTest;

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

TEST_F(SocketDeathRace, unlinkingHasOneOutcomeOrTheOther) {
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

TEST_F(SocketDeathRace, proxyMayGoWhileItsDeathIsTold) {
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
