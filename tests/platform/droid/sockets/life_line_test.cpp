#include "RawSocket.h"
#include "platform/droid/Calls.h"
#include "platform/droid/DeathNote.h"
#include "platform/droid/DroidTest.h"
#include "platform/droid/peer/PeerProtocol.h"

#include <future>
#include <optional>

namespace kelutv::test {
namespace {

using android::DEAD_OBJECT;
using android::FAILED_TRANSACTION;
using android::IBinder;
using android::NO_ERROR;
using android::sp;

/** What the greeting on each connection tells of the service. */
class LifeLineTest : public DroidTest {
protected:
    void SetUp() override {
        mRaw.emplace(pathOf("raw"));
        binder = service("raw");
        ASSERT_NE(binder, nullptr);
    }

    const RawService& raw() const { return *mRaw; }

    /** A call whose connection is greeted so, and answered. */
    android::status_t statusOfCall(const Bytes& greeting) const {
        auto status = std::async(std::launch::async, [this] { return call(binder, kEcho).status; });
        const kq::UniqueFd connection = raw().accept(greeting);
        receiveRaw(connection);
        sendRaw(connection, head(0, kEcho));
        return status.get();
    }

    sp<IBinder> binder;
    const sp<DeathNote> note = new DeathNote;

private:
    std::optional<RawService> mRaw;
};

TEST_F(LifeLineTest, itsEndIsToldThoughAGreetingCameFirst) {
    ASSERT_EQ(binder->linkToDeath(note), NO_ERROR);
    kq::UniqueFd line = raw().accept();
    line = kq::UniqueFd();
    EXPECT_TRUE(note->waitFor(1));
}

TEST_F(LifeLineTest, refusalIsNoEnd) {
    ASSERT_EQ(binder->linkToDeath(note), NO_ERROR);
    raw().accept(greeting(FAILED_TRANSACTION));
    // It is asked for again, and then its end is the service's.
    kq::UniqueFd line = raw().accept();
    EXPECT_EQ(statusOfCall(greeting()), NO_ERROR);
    EXPECT_EQ(note->count(), 0);
    line = kq::UniqueFd();
    EXPECT_TRUE(note->waitFor(1));
}

TEST_F(LifeLineTest, refusedLineOfAnotherInstanceIsTheEnd) {
    ASSERT_EQ(binder->linkToDeath(note), NO_ERROR);
    raw().accept(greeting(FAILED_TRANSACTION, 1));
    const kq::UniqueFd line = raw().accept(greeting(0, 2));
    EXPECT_TRUE(note->waitFor(1));
}

TEST_F(LifeLineTest, refusedCallFailsWithTheReason) {
    const kq::UniqueFd line = raw().accept();
    EXPECT_EQ(statusOfCall(greeting(FAILED_TRANSACTION)), FAILED_TRANSACTION);
    EXPECT_EQ(statusOfCall(greeting()), NO_ERROR);
}

TEST_F(LifeLineTest, answerThatCameBeforeTheEndIsTaken) {
    ASSERT_EQ(binder->linkToDeath(note), NO_ERROR);
    kq::UniqueFd line = raw().accept();
    auto status = std::async(std::launch::async, [this] { return call(binder, kEcho).status; });
    const kq::UniqueFd connection = raw().acceptSilently();
    receiveRaw(connection);
    line = kq::UniqueFd();
    EXPECT_TRUE(note->waitFor(1));
    EXPECT_TRUE(sendRaw(connection, greeting()));
    EXPECT_TRUE(sendRaw(connection, head(0, kEcho)));
    EXPECT_EQ(status.get(), NO_ERROR);
}

TEST_F(LifeLineTest, answerOfAnotherInstanceAfterTheEndIsNone) {
    ASSERT_EQ(binder->linkToDeath(note), NO_ERROR);
    kq::UniqueFd line = raw().accept(greeting(0, 1));
    auto status = std::async(std::launch::async, [this] { return call(binder, kEcho).status; });
    const kq::UniqueFd connection = raw().acceptSilently();
    receiveRaw(connection);
    line = kq::UniqueFd();
    EXPECT_TRUE(note->waitFor(1));
    EXPECT_TRUE(sendRaw(connection, greeting(0, 2)));
    EXPECT_EQ(status.get(), DEAD_OBJECT);
}

TEST_F(LifeLineTest, callThatReachesAnotherInstanceIsDead) {
    const kq::UniqueFd line = raw().accept(greeting(0, 1));
    EXPECT_EQ(statusOfCall(greeting(0, 2)), DEAD_OBJECT);
}

TEST_F(LifeLineTest, serviceOfAnotherProtocolCannotBeCalled) {
    const kq::UniqueFd line = raw().accept(greeting(0, 1, 1));
    EXPECT_EQ(statusOfCall(greeting(0, 1, 1)), FAILED_TRANSACTION);
    ASSERT_EQ(binder->linkToDeath(note), NO_ERROR);
    EXPECT_EQ(note->count(), 0);
}

TEST_F(LifeLineTest, connectionThatEndsWithoutAGreetingIsDead) {
    const kq::UniqueFd line = raw().accept();
    auto status = std::async(std::launch::async, [this] { return call(binder, kEcho).status; });
    raw().acceptSilently();
    EXPECT_EQ(status.get(), DEAD_OBJECT);
}

} // namespace
} // namespace kelutv::test
