#include "support/RuntimeDir.h"
#include "support/ScriptedService.h"

#include <binder/Parcel.h>
#include <gtest/gtest.h>

#include <unistd.h>

#include <thread>

namespace kelutv::test {
namespace {

class ScriptedServiceTest : public ::testing::Test {
protected:
    void SetUp() override { service.start(); }

    android::status_t ask(std::int32_t question) {
        android::Parcel request;
        request.writeInt32(question);
        return service.binder()->transact(scripted::kRequest, request, &answer, 0);
    }

    RuntimeDir directory;
    ScriptedService service;
    android::Parcel answer;
};

TEST_F(ScriptedServiceTest, answersAsToldAndRemembers) {
    service.reply(replyOf({5, 6}));
    ASSERT_EQ(ask(1), android::NO_ERROR);
    EXPECT_EQ(answer.readInt32(), 5);
    EXPECT_EQ(answer.readInt32(), 6);
    ASSERT_EQ(ask(2), android::NO_ERROR);
    EXPECT_EQ(service.takeRequests(), (std::vector<Bytes>{replyOf({1}), replyOf({2})}));
    EXPECT_TRUE(service.takeRequests().empty());
}

TEST_F(ScriptedServiceTest, answersOneCommandInItsOwnWay) {
    const auto answered = [this](int command) {
        android::Parcel request;
        const Bytes bytes = requestOf(command);
        request.setData(bytes.data(), bytes.size());
        EXPECT_EQ(service.binder()->transact(scripted::kRequest, request, &answer, 0), android::NO_ERROR);
        return answer.readInt32();
    };
    service.reply(replyOf({5}));
    service.replyTo(0x2003, replyOf({6}));
    EXPECT_EQ(answered(0x2003), 6);
    EXPECT_EQ(answered(0x2004), 5);
    service.reply(replyOf({7}));
    EXPECT_EQ(answered(0x2003), 7);
}

TEST_F(ScriptedServiceTest, answersWithOddLengths) {
    service.reply({1, 2, 3});
    ASSERT_EQ(ask(1), android::NO_ERROR);
    EXPECT_EQ(answer.dataSize(), 3U);
}

TEST_F(ScriptedServiceTest, failsTransactionsUntilANewReply) {
    service.replyStatus(android::BAD_VALUE);
    EXPECT_EQ(ask(1), android::BAD_VALUE);
    service.reply(replyOf({0}));
    EXPECT_EQ(ask(1), android::NO_ERROR);
}

TEST_F(ScriptedServiceTest, knowsItsCaller) {
    ASSERT_EQ(ask(1), android::NO_ERROR);
    const ScriptedService::Caller caller = service.callingUidPid();
    EXPECT_EQ(caller.uid, ::getuid());
    EXPECT_EQ(caller.pid, ::getpid());
}

TEST_F(ScriptedServiceTest, holdsARequestUntilReleased) {
    service.hangNext();
    android::status_t status = android::UNKNOWN_ERROR;
    std::thread caller([&] { status = ask(1); });
    EXPECT_TRUE(service.waitUntilHanging());
    service.release();
    caller.join();
    EXPECT_EQ(status, android::NO_ERROR);
}

TEST_F(ScriptedServiceTest, endsBeforeTheReply) {
    service.exitBeforeReply();
    EXPECT_EQ(ask(1), android::DEAD_OBJECT);
    EXPECT_TRUE(service.waitUntilGone());
}

TEST_F(ScriptedServiceTest, endsAfterTheReply) {
    service.reply(replyOf({9}));
    service.exitAfterReply();
    ASSERT_EQ(ask(1), android::NO_ERROR);
    EXPECT_EQ(answer.readInt32(), 9);
    EXPECT_TRUE(service.waitUntilGone());
}

TEST_F(ScriptedServiceTest, isKilledInTheMiddleOfARequest) {
    service.hangNext();
    android::status_t status = android::NO_ERROR;
    std::thread caller([&] { status = ask(1); });
    EXPECT_TRUE(service.waitUntilHanging());
    service.kill();
    caller.join();
    EXPECT_EQ(status, android::DEAD_OBJECT);
}

} // namespace
} // namespace kelutv::test
