#include "Calls.h"
#include "DroidTest.h"
#include "peer/Peer.h"
#include "peer/PeerProtocol.h"

namespace kelutv::test {
namespace {

using android::IBinder;
using android::NO_ERROR;

constexpr int32_t kCalls = 500;

class OneWayTest : public DroidTest {
protected:
    Peer peer;
    const android::sp<IBinder> binder = peer.binder();
};

TEST_F(OneWayTest, callsArriveInOrder) {
    Bytes expected;
    for (int32_t i = 0; i < kCalls; ++i) {
        const Bytes number = replyOf({i});
        ASSERT_EQ(call(binder, kNote, number, IBinder::FLAG_ONEWAY).status, NO_ERROR);
        expected.insert(expected.end(), number.begin(), number.end());
    }
    EXPECT_TRUE(eventually([&] { return call(binder, kNotes).bytes.size() == expected.size(); }));
    EXPECT_EQ(call(binder, kNotes).bytes, expected);
}

TEST_F(OneWayTest, callReturnsBeforeItsHandler) {
    ASSERT_EQ(call(binder, kHold, {}, IBinder::FLAG_ONEWAY).status, NO_ERROR);
    ASSERT_TRUE(waitUntilHeld(binder, 1));
    EXPECT_EQ(call(binder, kRelease).status, NO_ERROR);
    EXPECT_TRUE(waitUntilHeld(binder, 0));
}

TEST_F(OneWayTest, callsMayCarryMoreInAllThanIsTakenAtOnce) {
    Bytes large(256 * 1024);
    Bytes noted;
    for (uint8_t i = 1; i <= 20; ++i) {
        large[0] = i;
        const Bytes number = replyOf({i});
        noted.insert(noted.end(), number.begin(), number.end());
        ASSERT_EQ(call(binder, kNote, large, IBinder::FLAG_ONEWAY).status, NO_ERROR) << int{i};
        ASSERT_TRUE(eventually([&] { return call(binder, kNotes).bytes == noted; })) << int{i};
    }
}

TEST_F(OneWayTest, handlersFailureIsNotToldAndNextCallsGoOn) {
    EXPECT_EQ(call(binder, kStatus, replyOf({-22}), IBinder::FLAG_ONEWAY).status, NO_ERROR);
    EXPECT_EQ(call(binder, 999, {}, IBinder::FLAG_ONEWAY).status, NO_ERROR);
    EXPECT_EQ(call(binder, kNote, replyOf({3}), IBinder::FLAG_ONEWAY).status, NO_ERROR);
    EXPECT_TRUE(eventually([&] { return call(binder, kNotes).bytes == replyOf({3}); }));
}

TEST_F(OneWayTest, callToADeadServiceFails) {
    ASSERT_EQ(call(binder, kNote, replyOf({1}), IBinder::FLAG_ONEWAY).status, NO_ERROR);
    peer.kill();
    EXPECT_EQ(call(binder, kNote, replyOf({2}), IBinder::FLAG_ONEWAY).status, android::DEAD_OBJECT);
    EXPECT_EQ(call(binder, kNote, replyOf({3}), IBinder::FLAG_ONEWAY).status, android::DEAD_OBJECT);
}

} // namespace
} // namespace kelutv::test
