#include "client/ClientTest.h"
#include "client/CommandCalls.h"

#include <limits>

namespace kelutv::test {
namespace {

using android::Parcel;

constexpr int kFailed = -1;

class CommandCallReply : public ClientTest, public ::testing::WithParamInterface<CommandCall> {
protected:
    CommandCallReply() {
        result.writeInt32(1001);
        result.writeInt32(1002);
        result.setDataPosition(4);
    }

    int call() { return GetParam().make(result); }

    int callAnswered(std::initializer_list<std::int32_t> words) {
        answer(words);
        return call();
    }

    void expectResultUntouched() {
        EXPECT_EQ(result.dataSize(), 8U);
        EXPECT_EQ(result.readInt32(), 1002);
    }

    Parcel result;
};

class StatusReply : public CommandCallReply {};

TEST_P(StatusReply, isReturnedUnchanged) {
    for (const std::int32_t word :
         {0, 1, 5, -1, -7, -32, std::numeric_limits<std::int32_t>::max(), std::numeric_limits<std::int32_t>::min()}) {
        EXPECT_EQ(callAnswered({word}), word);
    }
    EXPECT_EQ(logged(), kNothingLogged);
}

TEST_P(StatusReply, hasOnlyItsFirstWordRead) {
    EXPECT_EQ(callAnswered({0, 7}), 0);
    EXPECT_EQ(callAnswered({5, 7}), 5);
}

TEST_P(StatusReply, isZeroWhenEmpty) {
    EXPECT_EQ(callAnswered({}), 0);
    EXPECT_EQ(logged(), kNothingLogged);
}

INSTANTIATE_TEST_SUITE_P(Link, StatusReply, ::testing::ValuesIn(commandCallsOf(ReplyShape::Status)), nameOf);

class ValueReply : public CommandCallReply {};

TEST_P(ValueReply, isTheWordBehindAZero) {
    EXPECT_EQ(callAnswered({0, 7}), 7);
    EXPECT_EQ(callAnswered({0, 0}), 0);
    EXPECT_EQ(callAnswered({0, -1}), -1);
    EXPECT_EQ(callAnswered({0, -7, 8}), -7);
}

TEST_P(ValueReply, isAFailureBehindAnythingElse) {
    EXPECT_EQ(callAnswered({3, 7}), kFailed);
    EXPECT_EQ(callAnswered({-1, 7}), kFailed);
    EXPECT_EQ(callAnswered({1, 0}), kFailed);
    EXPECT_EQ(logged(), kNothingLogged);
}

TEST_P(ValueReply, isZeroWhenMissing) {
    EXPECT_EQ(callAnswered({0}), 0);
    EXPECT_EQ(callAnswered({}), 0);
}

INSTANTIATE_TEST_SUITE_P(Link, ValueReply, ::testing::ValuesIn(commandCallsOf(ReplyShape::Value)), nameOf);

class ParcelReply : public CommandCallReply {};

TEST_P(ParcelReply, replacesTheCallersParcel) {
    EXPECT_EQ(callAnswered({0, 1, 2}), 0);
    EXPECT_EQ(result.dataSize(), 8U);
    EXPECT_EQ(result.dataPosition(), 0U);
    EXPECT_EQ(result.readInt32(), 1);
    EXPECT_EQ(result.readInt32(), 2);
    EXPECT_EQ(result.dataAvail(), 0U);
    EXPECT_EQ(logged(), kNothingLogged);
}

TEST_P(ParcelReply, leavesTheCallersParcelOnAnyOtherResult) {
    for (const std::int32_t failure : {1, -1, 3}) {
        EXPECT_EQ(callAnswered({failure, 1, 2}), kFailed);
        EXPECT_EQ(logged(), GetParam().logsFailure ? kInvokeFailure : kNothingLogged);
    }
    expectResultUntouched();
}

TEST_P(ParcelReply, isEmptyBehindTheResultAlone) {
    EXPECT_EQ(callAnswered({0}), 0);
    EXPECT_EQ(result.dataSize(), 0U);
    EXPECT_EQ(result.readInt32(), 0);
}

TEST_P(ParcelReply, isEmptyWhenTheReplyIsTooShortForAResult) {
    EXPECT_EQ(callAnswered({}), 0);
    EXPECT_EQ(result.dataSize(), 0U);

    service().reply({0, 0, 0});
    EXPECT_EQ(call(), 0);
    EXPECT_EQ(result.dataSize(), 0U);
}

TEST_P(ParcelReply, keepsAnOddLength) {
    service().reply({0, 0, 0, 0, 9, 8});
    EXPECT_EQ(call(), 0);
    ASSERT_EQ(result.dataSize(), 2U);
    EXPECT_EQ(result.data()[0], 9);
    EXPECT_EQ(result.data()[1], 8);
}

TEST_P(ParcelReply, carriesLargePayloads) {
    Wire reply = Wire::reply().i32(0);
    for (std::int32_t i = 0; i < 20000; ++i) {
        reply.i32(i);
    }
    service().reply(reply.bytes());
    EXPECT_EQ(call(), 0);
    ASSERT_EQ(result.dataSize(), 80000U);
    for (std::int32_t i = 0; i < 20000; ++i) {
        ASSERT_EQ(result.readInt32(), i);
    }
}

INSTANTIATE_TEST_SUITE_P(Link, ParcelReply, ::testing::ValuesIn(commandCallsOf(ReplyShape::Parcel)), nameOf);

} // namespace
} // namespace kelutv::test
