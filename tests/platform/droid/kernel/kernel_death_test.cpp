#include "KernelTest.h"

#include "droid/BpBinder.h"
#include "droid/kernel/KernelObject.h"
#include "platform/droid/DeathNote.h"
#include "platform/droid/StartLine.h"

#include <cerrno>
#include <thread>
#include <utility>

namespace kelutv::test {
namespace {

using android::BpBinder;
using android::DEAD_OBJECT;
using android::IBinder;
using android::KernelObject;
using android::NO_ERROR;
using android::sp;
using Codes = std::vector<uint32_t>;

class KernelDeath : public KernelTest {
protected:
    sp<IBinder> proxy() {
        std::unique_ptr<KernelObject> object = KernelObject::hold(binder, kHandle);
        return object == nullptr ? nullptr : new BpBinder(std::move(object));
    }

    static void link(const sp<IBinder>& linked, const sp<DeathNote>& recipient) {
        ASSERT_EQ(linked->linkToDeath(recipient), NO_ERROR);
    }

    /** The cookie of the one death notice asked for since the last look; 0 for none. */
    binder_uintptr_t cookieAskedFor() {
        binder_uintptr_t cookie = 0;
        for (const Command& sent : driver.takeSent()) {
            if (sent.code == BC_REQUEST_DEATH_NOTIFICATION) {
                EXPECT_EQ(cookie, 0u) << "asked for twice";
                const auto asked = sent.as<binder_handle_cookie>();
                EXPECT_EQ(uint32_t{asked.handle}, kHandle);
                cookie = asked.cookie;
            }
        }
        return cookie;
    }

    const sp<DeathNote> note = new DeathNote;
};

TEST_F(KernelDeath, proxiesOfAHandleShareItsReferences) {
    {
        const sp<IBinder> first = proxy();
        const sp<IBinder> second = proxy();
        EXPECT_EQ(driver.takeSentCodes(), (Codes{BC_INCREFS, BC_ACQUIRE}));
    }
    EXPECT_EQ(driver.takeSentCodes(), (Codes{BC_RELEASE, BC_DECREFS}));
}

TEST_F(KernelDeath, isAskedForOnceAndToldToEveryProxy) {
    const sp<IBinder> first = proxy();
    const sp<IBinder> second = proxy();
    const sp<DeathNote> other = new DeathNote;
    link(first, note);
    link(second, other);
    const binder_uintptr_t cookie = cookieAskedFor();
    ASSERT_NE(cookie, 0u);
    driver.sayToServers({command(BR_DEAD_BINDER, cookie)});
    EXPECT_TRUE(note->waitFor(1));
    EXPECT_TRUE(other->waitFor(1));
    driver.sayToServers({command(BR_NOOP)});
    EXPECT_TRUE(driver.waitForSent(BC_DEAD_BINDER_DONE));
    EXPECT_FALSE(first->isBinderAlive());
    EXPECT_EQ(proxy()->linkToDeath(new DeathNote), DEAD_OBJECT);
}

TEST_F(KernelDeath, isAskedOfTheDriverAlone) {
    const sp<IBinder> watched = proxy();
    link(watched, note);
    for (const uint32_t code : driver.takeSentCodes()) {
        EXPECT_NE(code, static_cast<uint32_t>(BC_TRANSACTION)) << "the service hears of it";
    }
}

TEST_F(KernelDeath, ofAnObjectThatIsDeadAlreadyIsTold) {
    const sp<IBinder> dead = proxy();
    link(dead, note);
    driver.sayToServers({command(BR_DEAD_BINDER, cookieAskedFor())});
    EXPECT_TRUE(note->waitFor(1));
    EXPECT_EQ(dead->linkToDeath(note), DEAD_OBJECT);
}

TEST_F(KernelDeath, objectThatTheDriverDoesNotLetBeHeldHasNoProxyAndIsNotReleased) {
    driver.failNext(-ENOMEM);
    EXPECT_EQ(proxy(), nullptr);
    EXPECT_TRUE(driver.takeSent().empty());
    EXPECT_NE(proxy(), nullptr);
    EXPECT_EQ(driver.takeSentCodes(), (Codes{BC_INCREFS, BC_ACQUIRE, BC_RELEASE, BC_DECREFS}));
}

TEST_F(KernelDeath, releaseThatIsNotTakenGoesBeforeTheNextHold) {
    sp<IBinder> dropped = proxy();
    driver.takeSent();
    driver.failNext(-ENOMEM);
    dropped = nullptr;
    EXPECT_TRUE(driver.takeSent().empty());
    const sp<IBinder> held = proxy();
    EXPECT_EQ(driver.takeSentCodes(), (Codes{BC_RELEASE, BC_DECREFS, BC_INCREFS, BC_ACQUIRE}));
}

TEST_F(KernelDeath, requestThatIsNotTakenFailsAndCanBeMadeAgain) {
    ASSERT_TRUE(binder.startTelling());
    ASSERT_TRUE(driver.waitForSent(BC_ENTER_LOOPER));
    const sp<IBinder> watched = proxy();
    driver.takeSent();
    driver.failNext(-ENOMEM);
    EXPECT_EQ(watched->linkToDeath(note), android::NO_MEMORY);
    EXPECT_EQ(cookieAskedFor(), 0u);
    link(watched, note);
    const binder_uintptr_t cookie = cookieAskedFor();
    ASSERT_NE(cookie, 0u);
    driver.sayToServers({command(BR_DEAD_BINDER, cookie)});
    EXPECT_TRUE(note->waitFor(1));
}

TEST_F(KernelDeath, noticeGoesWithTheLastProxy) {
    ASSERT_TRUE(binder.startServing());
    ASSERT_TRUE(driver.waitForSent(BC_ENTER_LOOPER));
    {
        const sp<IBinder> shortLived = proxy();
        link(shortLived, note);
        ASSERT_NE(cookieAskedFor(), 0u);
    }
    EXPECT_EQ(driver.takeSentCodes(), (Codes{BC_CLEAR_DEATH_NOTIFICATION, BC_RELEASE, BC_DECREFS}));
}

TEST_F(KernelDeath, noticeOfAForgottenCookieIsOnlyAcknowledged) {
    const sp<IBinder> living = proxy();
    link(living, note);
    driver.sayToServers({command(BR_DEAD_BINDER, binder_uintptr_t{12345})});
    driver.sayToServers({command(BR_NOOP)});
    EXPECT_TRUE(driver.waitForSent(BC_DEAD_BINDER_DONE));
    EXPECT_TRUE(living->isBinderAlive());
    EXPECT_EQ(note->count(), 0);
}

TEST_F(KernelDeath, racesWithUnlinkingWithOneOutcomeOrTheOther) {
    for (int round = 0; round < 200; ++round) {
        sp<IBinder> raced = proxy();
        const sp<DeathNote> own = new DeathNote;
        ASSERT_NO_FATAL_FAILURE(link(raced, own));
        const binder_uintptr_t cookie = cookieAskedFor();
        StartLine line(2);
        std::thread end([&] {
            line.wait();
            driver.sayToServers({command(BR_DEAD_BINDER, cookie)});
        });
        line.wait();
        const android::status_t status = raced->unlinkToDeath(own);
        end.join();
        ASSERT_TRUE(status == NO_ERROR || status == DEAD_OBJECT) << status;
        ASSERT_TRUE(own->waitFor(status == DEAD_OBJECT ? 1 : 0));
        ASSERT_TRUE(eventually([&] { return !raced->isBinderAlive(); }));
        ASSERT_LE(own->count(), status == DEAD_OBJECT ? 1 : 0);
        // Who tells of the death may hold the proxy a little longer, and with it what is known of the handle.
        raced = nullptr;
        ASSERT_TRUE(driver.waitForSent(BC_DECREFS));
    }
}

} // namespace
} // namespace kelutv::test
