#include "Calls.h"
#include "DroidTest.h"
#include "peer/Peer.h"
#include "peer/PeerProtocol.h"
#include "peer/PeerService.h"

#include <binder/IInterface.h>
#include <binder/IServiceManager.h>
#include <binder/Parcel.h>

#include <optional>
#include <ostream>

namespace kelutv::test {
namespace {

using android::IBinder;
using android::NO_ERROR;
using android::Parcel;
using android::sp;

enum class Where { Elsewhere, Here };

std::ostream& operator<<(std::ostream& out, Where where) {
    return out << (where == Where::Here ? "Here" : "Elsewhere");
}

/** What holds for an object wherever it lives. */
class TransactionTest : public DroidTest, public ::testing::WithParamInterface<Where> {
protected:
    void SetUp() override {
        if (GetParam() == Where::Elsewhere) {
            mPeer.emplace();
            binder = mPeer->binder();
            return;
        }
        binder = new PeerService;
        ASSERT_EQ(android::defaultServiceManager()->addService(android::String16("here"), binder), NO_ERROR);
        ASSERT_EQ(service("here"), binder);
    }

    sp<IBinder> binder;

private:
    std::optional<Peer> mPeer;
};

INSTANTIATE_TEST_SUITE_P(All, TransactionTest, ::testing::Values(Where::Elsewhere, Where::Here));

TEST_P(TransactionTest, replyTakesThePlaceOfWhatWasThere) {
    const Answer answer = call(binder, kEcho, replyOf({1, 2}));
    EXPECT_EQ(answer.status, NO_ERROR);
    EXPECT_EQ(answer.bytes, replyOf({1, 2}));
}

TEST_P(TransactionTest, requestAndReplyArriveAtTheirStart) {
    Parcel request;
    request.writeInt32(1);
    request.writeInt32(2);
    Parcel reply;
    ASSERT_EQ(binder->transact(kPositions, request, &reply), NO_ERROR);
    EXPECT_EQ(reply.dataPosition(), 0u);
    ASSERT_EQ(reply.dataSize(), 4u);
    EXPECT_EQ(reply.readInt32(), 0);
    EXPECT_EQ(request.dataSize(), 8u);
}

TEST_P(TransactionTest, handlersStatusComesBackWithAnEmptyReply) {
    for (const int32_t status : {-1, -22, 77, static_cast<int32_t>(android::UNKNOWN_ERROR)}) {
        const Answer answer = call(binder, kStatus, replyOf({status}));
        EXPECT_EQ(answer.status, status);
        EXPECT_EQ(answer.bytes, Bytes());
    }
}

TEST_P(TransactionTest, unknownCodeIsRefused) {
    const Answer answer = call(binder, 999, replyOf({1}));
    EXPECT_EQ(answer.status, android::UNKNOWN_TRANSACTION);
    EXPECT_EQ(answer.bytes, Bytes());
}

TEST_P(TransactionTest, replyMayBeUnwanted) {
    Parcel request;
    request.writeInt32(5);
    EXPECT_EQ(binder->transact(kNote, request, nullptr), NO_ERROR);
    EXPECT_EQ(binder->transact(kEcho, request, nullptr), NO_ERROR);
    EXPECT_EQ(call(binder, kNotes).bytes, replyOf({5}));
}

TEST_P(TransactionTest, answersPing) {
    EXPECT_EQ(binder->pingBinder(), NO_ERROR);
    EXPECT_EQ(call(binder, IBinder::PING_TRANSACTION).status, NO_ERROR);
    EXPECT_TRUE(binder->isBinderAlive());
}

TEST_P(TransactionTest, namesItsInterface) {
    EXPECT_TRUE(binder->getInterfaceDescriptor() == android::String16(kPeerDescriptor));
    EXPECT_EQ(call(binder, IBinder::INTERFACE_TRANSACTION).bytes, Wire::reply().str16(u"kelutv.test.Peer").bytes());
}

TEST_P(TransactionTest, knowsWhereItLives) {
    const bool here = GetParam() == Where::Here;
    EXPECT_EQ(binder->localBinder() != nullptr, here);
    EXPECT_EQ(binder->remoteBinder() != nullptr, !here);
    EXPECT_EQ(binder->queryLocalInterface(android::String16("any.IOther")), nullptr);
}

TEST_P(TransactionTest, oneWayCallsLeaveTheReplyEmpty) {
    EXPECT_EQ(call(binder, kNote, replyOf({1}), IBinder::FLAG_ONEWAY).bytes, Bytes());
}

TEST(TransactionOfABareObject, knowsNoCodeAndNoInterface) {
    const sp<IBinder> bare = new android::BBinder;
    EXPECT_EQ(call(bare, 1).status, android::UNKNOWN_TRANSACTION);
    EXPECT_EQ(bare->getInterfaceDescriptor().size(), 0u);
    EXPECT_EQ(call(bare, IBinder::INTERFACE_TRANSACTION).bytes, Bytes(8, 0));
}

} // namespace
} // namespace kelutv::test
