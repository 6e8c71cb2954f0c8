#include "RawSocket.h"
#include "platform/droid/Calls.h"
#include "platform/droid/DroidTest.h"
#include "platform/droid/peer/PeerProtocol.h"
#include "platform/droid/peer/PeerService.h"

#include <future>
#include <optional>
#include <ostream>
#include <vector>

namespace kelutv::test {
namespace {

using android::IBinder;
using android::sp;

constexpr uint32_t kPacket = 64 * 1024;

struct Hostility {
    const char* what;
    std::vector<Bytes> packets;
    bool staysOpen = true;
    android::status_t status = staysOpen ? android::FAILED_TRANSACTION : android::DEAD_OBJECT;
};

std::ostream& operator<<(std::ostream& out, const Hostility& hostility) { return out << hostility.what; }

/** What a service may send back instead of an answer: the caller gets a failure and an empty reply, no more. */
class HostileService : public DroidTest, public ::testing::WithParamInterface<Hostility> {
protected:
    void SetUp() override {
        mRaw.emplace(pathOf("raw"));
        binder = service("raw");
        ASSERT_NE(binder, nullptr);
        mWatched = mRaw->accept();
    }

    /** The connection of a call that is under way, its request received. */
    kq::UniqueFd acceptCall() {
        kq::UniqueFd connection = mRaw->accept();
        EXPECT_EQ(receiveRaw(connection), message(head(4, kEcho), replyOf({7})));
        return connection;
    }

    std::future<Answer> callEcho() {
        return std::async(std::launch::async, [this] { return call(binder, kEcho, replyOf({7})); });
    }

    void expectGoodAnswer() {
        auto good = callEcho();
        const kq::UniqueFd connection = acceptCall();
        EXPECT_TRUE(sendRaw(connection, message(head(4, kEcho), replyOf({7}))));
        EXPECT_EQ(good.get().bytes, replyOf({7}));
    }

    sp<IBinder> binder;

private:
    std::optional<RawService> mRaw;
    kq::UniqueFd mWatched;
};

TEST_P(HostileService, failsItsOwnCallOnly) {
    auto other = callEcho();
    const kq::UniqueFd otherConnection = acceptCall();
    auto attacked = callEcho();
    {
        kq::UniqueFd connection = acceptCall();
        for (const Bytes& packet : GetParam().packets) {
            EXPECT_TRUE(sendRaw(connection, packet));
        }
        if (!GetParam().staysOpen) {
            connection = kq::UniqueFd();
        }
        const Answer answer = attacked.get();
        EXPECT_EQ(answer.status, GetParam().status);
        EXPECT_EQ(answer.bytes, Bytes());
    }
    EXPECT_TRUE(sendRaw(otherConnection, message(head(4, kEcho), replyOf({7}))));
    EXPECT_EQ(other.get().bytes, replyOf({7}));
}

const Hostility kHostilities[] = {
    {"no answer", {}, false},
    {"an empty packet", {{}}},
    {"one byte", {{1}}},
    {"a head cut short", {Bytes(19, 0)}},
    {"a size without bytes", {head(8, kEcho)}, false},
    {"fewer bytes than the size says", {message(head(8, kEcho), replyOf({1}))}, false},
    {"more bytes than the size says", {message(head(4, kEcho), replyOf({1, 2}))}},
    {"bytes and no size", {message(head(0, kEcho), replyOf({1}))}},
    {"the largest size there is", {message(head(0xFFFFFFFF, kEcho), replyOf({1}))}},
    {"a negative size", {head(0x80000000, kEcho)}},
    {"a size just over the limit", {head(static_cast<uint32_t>(kLargestTransaction) + 1, kEcho)}},
    {"a packet larger than any", {message(head(kPacket + 4, kEcho), pattern(kPacket + 4))}},
    {"an empty packet in the middle", {message(head(kPacket + 8, kEcho), pattern(kPacket)), {}}},
    {"the end in the middle", {message(head(kPacket + 8, kEcho), pattern(kPacket)), Bytes(4)}, false},
    {"more than the rest", {message(head(kPacket + 8, kEcho), pattern(kPacket)), Bytes(9)}},
    {"text", {{'H', 'T', 'T', 'P', '/', '1', '.', '1', ' ', '2', '0', '0', ' ', 'O', 'K', '\r', '\n'}}},
};

INSTANTIATE_TEST_SUITE_P(All, HostileService, ::testing::ValuesIn(kHostilities));

class OddService : public HostileService {};

TEST_F(OddService, answersInManySmallPacketsAreTaken) {
    auto answer = callEcho();
    const kq::UniqueFd connection = acceptCall();
    EXPECT_TRUE(sendRaw(connection, message(head(6, kEcho), {1})));
    for (uint8_t byte = 2; byte <= 6; ++byte) {
        EXPECT_TRUE(sendRaw(connection, {byte}));
    }
    EXPECT_EQ(answer.get().bytes, (Bytes{1, 2, 3, 4, 5, 6}));
}

TEST_F(OddService, answerThatComesTwiceIsTakenForNoOther) {
    auto answer = callEcho();
    {
        const kq::UniqueFd connection = acceptCall();
        const Bytes twice = message(head(4, kEcho), replyOf({7}));
        EXPECT_TRUE(sendRaw(connection, twice));
        EXPECT_TRUE(sendRaw(connection, twice));
        EXPECT_EQ(answer.get().bytes, replyOf({7}));
        auto next = callEcho();
        EXPECT_EQ(receiveRaw(connection), message(head(4, kEcho, 0, 0, 2), replyOf({7})));
        EXPECT_EQ(next.get().status, android::FAILED_TRANSACTION);
        EXPECT_EQ(receiveRaw(connection), Bytes()) << "the connection has not ended";
    }
    expectGoodAnswer();
}

TEST_F(OddService, answerOfAnotherRequestIsNone) {
    auto answer = callEcho();
    const kq::UniqueFd connection = acceptCall();
    EXPECT_TRUE(sendRaw(connection, message(head(4, kEcho, 0, 0, 2), replyOf({7}))));
    EXPECT_EQ(answer.get().status, android::FAILED_TRANSACTION);
}

TEST_F(OddService, bytesBesideAFailureAreDropped) {
    auto answer = callEcho();
    const kq::UniqueFd connection = acceptCall();
    EXPECT_TRUE(sendRaw(connection, message(head(4, kEcho, 0, -22), replyOf({1}))));
    const Answer failed = answer.get();
    EXPECT_EQ(failed.status, -22);
    EXPECT_EQ(failed.bytes, Bytes());
}

TEST_F(OddService, nextCallAfterAFailedOneMakesANewConnection) {
    auto answer = callEcho();
    acceptCall();
    EXPECT_EQ(answer.get().status, android::DEAD_OBJECT);
    expectGoodAnswer();
}

} // namespace
} // namespace kelutv::test
