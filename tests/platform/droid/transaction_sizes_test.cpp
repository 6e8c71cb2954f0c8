#include "Calls.h"
#include "DroidTest.h"
#include "peer/Peer.h"
#include "peer/PeerProtocol.h"
#include "peer/PeerService.h"

#include <numeric>

namespace kelutv::test {
namespace {

using android::FAILED_TRANSACTION;
using android::NO_ERROR;

constexpr size_t kPacket = 64 * 1024;

class TransactionSizes : public DroidTest {
protected:
    const Peer peer;
    const android::sp<android::IBinder> binder = peer.binder();
};

Bytes sumOf(const Bytes& bytes) {
    const int64_t sum = std::accumulate(bytes.begin(), bytes.end(), int64_t{0});
    return Wire::reply().i32(static_cast<int32_t>(bytes.size())).raw(&sum, sizeof(sum)).bytes();
}

TEST_F(TransactionSizes, bytesArriveIntactBothWays) {
    for (const size_t size : {size_t{0}, size_t{1}, size_t{4}, size_t{5}, size_t{256}, size_t{260}, kPacket - 4,
                              kPacket - 1, kPacket, kPacket + 1, kPacket + 4, 2 * kPacket - 4, 2 * kPacket,
                              2 * kPacket + 4, kLargestTransaction - 4, kLargestTransaction}) {
        const Bytes bytes = pattern(size);
        const Answer answer = call(binder, kEcho, bytes);
        EXPECT_EQ(answer.status, NO_ERROR) << size;
        EXPECT_TRUE(answer.bytes == bytes) << size;
    }
}

TEST_F(TransactionSizes, requestMayBeAsLargeAsTheLimit) {
    const Bytes largest = pattern(kLargestTransaction);
    EXPECT_EQ(call(binder, kSum, largest).bytes, sumOf(largest));
}

TEST_F(TransactionSizes, largerRequestIsRefused) {
    for (const size_t more : {1, 4, 64 * 1024}) {
        const Answer answer = call(binder, kSum, pattern(kLargestTransaction + more));
        EXPECT_EQ(answer.status, FAILED_TRANSACTION) << more;
        EXPECT_EQ(answer.bytes, Bytes());
    }
    EXPECT_EQ(call(binder, kEcho, replyOf({1})).bytes, replyOf({1}));
}

TEST_F(TransactionSizes, largerOneWayRequestIsRefused) {
    const Bytes tooLarge(kLargestTransaction + 4);
    EXPECT_EQ(call(binder, kNote, tooLarge, android::IBinder::FLAG_ONEWAY).status, FAILED_TRANSACTION);
}

TEST_F(TransactionSizes, replyMayBeAsLargeAsTheLimit) {
    const Answer answer = call(binder, kReplyOfSize, replyOf({static_cast<int32_t>(kLargestTransaction)}));
    EXPECT_EQ(answer.status, NO_ERROR);
    EXPECT_TRUE(answer.bytes == pattern(kLargestTransaction));
}

TEST_F(TransactionSizes, largerReplyIsRefused) {
    for (const int32_t more : {1, 4, 64 * 1024}) {
        const Answer answer = call(binder, kReplyOfSize, replyOf({static_cast<int32_t>(kLargestTransaction) + more}));
        EXPECT_EQ(answer.status, FAILED_TRANSACTION) << more;
        EXPECT_EQ(answer.bytes, Bytes());
    }
    EXPECT_EQ(call(binder, kEcho, replyOf({1})).bytes, replyOf({1}));
}

} // namespace
} // namespace kelutv::test
