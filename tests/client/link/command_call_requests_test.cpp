#include "client/ClientTest.h"
#include "client/CommandCalls.h"

#include <kelutv/link/TVBaseClient.h>

#include <unistd.h>

namespace kelutv::test {
namespace {

using android::Parcel;

TEST(CommandCallList, isComplete) {
    EXPECT_EQ(commandCallsOf(ReplyShape::Status).size(), 16U);
    EXPECT_EQ(commandCallsOf(ReplyShape::Value).size(), 4U);
    EXPECT_EQ(commandCallsOf(ReplyShape::Parcel).size(), 6U);
}

class CommandCallRequest : public ClientTest, public ::testing::WithParamInterface<CommandCall> {};

TEST_P(CommandCallRequest, isSentByteForByte) {
    Parcel result;
    GetParam().make(result);
    EXPECT_EQ(sent(), only(GetParam().request));
}

INSTANTIATE_TEST_SUITE_P(Link, CommandCallRequest, ::testing::ValuesIn(commandCalls()), nameOf);

/** The call that carries a raw buffer. */
class BufferCall : public ClientTest {
protected:
    int call(int dataSize) {
        unsigned char data[] = {1, 2, 3, 4, 5, 6, 7, 8};
        Parcel result;
        return android::TVBaseClient::self()->exeCmdGet(0x4321, 11, 22, dataSize, &size, data, result);
    }

    int size = 77;
};

TEST_F(BufferCall, padsTheBytes) {
    EXPECT_EQ(call(5), 0);
    EXPECT_EQ(sent(), only(Wire::request(0x4321).i32(11).i32(22).i32(5).i32(77).raw("\1\2\3\4\5", 5).bytes()));
}

TEST_F(BufferCall, sendsNoBytesForASizeOfZero) {
    EXPECT_EQ(call(0), 0);
    EXPECT_EQ(sent(), only(requestOf(0x4321, {11, 22, 0, 77})));
}

TEST_F(BufferCall, sendsNoBytesForANegativeSize) {
    EXPECT_EQ(call(-1), 0);
    EXPECT_EQ(sent(), only(requestOf(0x4321, {11, 22, -1, 77})));
}

TEST_F(BufferCall, neverWritesTheSizeBack) {
    answer({0, 99});
    EXPECT_EQ(call(4), 0);
    EXPECT_EQ(size, 77);
}

TEST_F(ClientTest, anAppendedParcelIsSentWholeWhereverItsPositionIs) {
    Parcel argument;
    argument.writeInt32(1);
    argument.writeInt32(2);
    argument.setDataPosition(4);
    android::TVBaseClient::self()->exeCmdSet(0x4321, argument);
    EXPECT_EQ(sent(), only(requestOf(0x4321, {1, 2})));
}

TEST_F(ClientTest, anEmptyParcelAddsNothing) {
    const Parcel argument;
    android::TVBaseClient::self()->exeCmdSet(0x4321, 11, 22, argument);
    EXPECT_EQ(sent(), only(requestOf(0x4321, {11, 22})));
}

TEST_F(ClientTest, aLargeParcelArrivesWhole) {
    Parcel argument;
    Wire expected = Wire::request(0x4321);
    for (int i = 0; i < 25000; ++i) {
        argument.writeInt32(i);
        expected.i32(i);
    }
    android::TVBaseClient::self()->exeCmdSet(0x4321, argument);
    EXPECT_TRUE(sent() == only(expected.bytes()));
}

TEST_F(ClientTest, aRequestBeyondTheTransportsLimitFails) {
    Parcel argument;
    const std::vector<std::uint8_t> block(2U << 20U, 0x5A);
    argument.write(block.data(), block.size());
    EXPECT_EQ(android::TVBaseClient::self()->exeCmdSet(0x4321, argument), -1);
    EXPECT_EQ(logged(), kInvokeFailure);
    EXPECT_EQ(sent(), kNothingSent);
    EXPECT_EQ(android::TVBaseClient::self()->exeCmdSet(0x4321), 0);
}

TEST_F(ClientTest, theServiceSeesItsTrueCaller) {
    android::TVBaseClient::self()->exeCmdGet(0x4321);
    EXPECT_EQ(service().callingUidPid().uid, ::getuid());
    EXPECT_EQ(service().callingUidPid().pid, ::getpid());
}

} // namespace
} // namespace kelutv::test
