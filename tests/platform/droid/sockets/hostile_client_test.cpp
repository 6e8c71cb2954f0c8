#include "RawSocket.h"
#include "platform/droid/Calls.h"
#include "platform/droid/DroidTest.h"
#include "platform/droid/ProcessCounts.h"
#include "platform/droid/peer/Peer.h"
#include "platform/droid/peer/PeerProtocol.h"
#include "platform/droid/peer/PeerService.h"

#include <ostream>
#include <vector>

namespace kelutv::test {
namespace {

constexpr uint32_t kPacket = 64 * 1024;

struct Hostility {
    const char* what;
    std::vector<Bytes> packets;
};

std::ostream& operator<<(std::ostream& out, const Hostility& hostility) { return out << hostility.what; }

class HostileClient : public DroidTest, public ::testing::WithParamInterface<Hostility> {
protected:
    void expectUnharmed() {
        EXPECT_TRUE(peer.alive());
        EXPECT_EQ(call(binder, kEcho, replyOf({7})).bytes, replyOf({7}));
        EXPECT_TRUE(fallsTo(before, peer.pid())) << "the service keeps something of the attack";
    }

    kq::UniqueFd connect() const { return rawConnection(pathOf("peer")); }

    Peer peer;
    const android::sp<android::IBinder> binder = peer.binder();

private:
    void SetUp() override {
        // The connections that stay are made before anything is counted.
        ASSERT_EQ(call(binder, kEcho).status, android::NO_ERROR);
        before = settledCountsOf(peer.pid());
    }

    ProcessCounts before;
};

TEST_P(HostileClient, isCutOff) {
    {
        const kq::UniqueFd connection = connect();
        for (const Bytes& packet : GetParam().packets) {
            EXPECT_TRUE(sendRaw(connection, packet));
        }
        EXPECT_EQ(receiveRaw(connection), Bytes());
    }
    expectUnharmed();
}

TEST_P(HostileClient, mayLeaveAtOnce) {
    {
        const kq::UniqueFd connection = connect();
        for (const Bytes& packet : GetParam().packets) {
            sendRaw(connection, packet);
        }
    }
    expectUnharmed();
}

const Hostility kHostilities[] = {
    {"an empty packet", {{}}},
    {"one byte", {{1}}},
    {"a head cut short", {Bytes(19, 0xFF)}},
    {"more bytes than the size says", {message(head(4, kEcho), replyOf({1, 2}))}},
    {"bytes and no size", {message(head(0, kEcho), replyOf({1}))}},
    {"the largest size there is", {message(head(0xFFFFFFFF, kEcho), replyOf({1}))}},
    {"a negative size", {head(0x80000000, kEcho)}},
    {"a size just over the limit", {head(static_cast<uint32_t>(kLargestTransaction) + 1, kEcho)}},
    {"a packet larger than any", {message(head(kPacket + 4, kEcho), pattern(kPacket + 4))}},
    {"an empty packet in the middle", {message(head(kPacket + 8, kEcho), pattern(kPacket)), {}}},
    {"more than the rest", {message(head(kPacket + 8, kEcho), pattern(kPacket)), Bytes(9)}},
    {"a good one-way call, then noise", {head(0, kNotes, 1), Bytes(16, 0xFF)}},
};

INSTANTIATE_TEST_SUITE_P(All, HostileClient, ::testing::ValuesIn(kHostilities));

class OddClient : public HostileClient {};

TEST_F(OddClient, mayLeaveInTheMiddleOfARequest) {
    sendRaw(connect(), message(head(kPacket + 8, kEcho), pattern(kPacket)));
    expectUnharmed();
}

TEST_F(OddClient, mayLeaveBeforeItsAnswer) {
    {
        const kq::UniqueFd connection = connect();
        EXPECT_TRUE(sendRaw(connection, head(0, kHold)));
        EXPECT_TRUE(waitUntilHeld(binder, 1));
    }
    EXPECT_EQ(call(binder, kRelease).status, android::NO_ERROR);
    expectUnharmed();
}

TEST_F(OddClient, mayLeaveALargeAnswerUnread) {
    const Bytes size = replyOf({static_cast<int32_t>(kLargestTransaction)});
    sendRaw(connect(), message(head(4, kReplyOfSize), size));
    expectUnharmed();
}

TEST_F(OddClient, mayConnectAndSayNothing) {
    std::vector<kq::UniqueFd> silent;
    for (int i = 0; i < 50; ++i) {
        silent.push_back(connect());
    }
    EXPECT_EQ(call(binder, kEcho, replyOf({7})).bytes, replyOf({7}));
    silent.clear();
    expectUnharmed();
}

TEST_F(OddClient, isAnsweredAsItAsks) {
    const kq::UniqueFd connection = connect();
    EXPECT_TRUE(sendRaw(connection, message(head(4, kEcho), replyOf({7}))));
    EXPECT_EQ(receiveRaw(connection), message(head(4, kEcho), replyOf({7})));
    EXPECT_TRUE(sendRaw(connection, message(head(4, kStatus), replyOf({-22}))));
    EXPECT_EQ(receiveRaw(connection), head(0, kStatus, 0, -22));
}

} // namespace
} // namespace kelutv::test
