#include "simulator/Simulator.h"
#include "simulator/VolumeClient.h"

#include <binder/IServiceManager.h>
#include <binder/Parcel.h>

#include <gtest/gtest.h>

#include <unistd.h>

#include <cstdlib>
#include <initializer_list>
#include <string>
#include <vector>

namespace kelutv::test {

namespace {

auto& environmentOfRefusals = SimulatorEnvironment::install();

constexpr int kSetVolume = 0x2008;
constexpr int kGetVolume = 0x2009;
constexpr int kSetItem = 0x2053;
constexpr int kSetItemText = 0x2056;
constexpr int kStartPlay = 0xE001;
constexpr int kUnknown = 0x4321;

class Refusals : public ::testing::Test {
protected:
    void SetUp() override { environmentOfRefusals.simulator().takeTrace(); }

    /** The request gives this result and nothing behind it, and this line in the trace. */
    static void expect(const Bytes& request, int result, const std::string& line) {
        EXPECT_EQ(SimulatorEnvironment::transact(request), replyOf({result}));
        const std::string caller = "[" + std::to_string(::getpid()) + "] ";
        EXPECT_EQ(environmentOfRefusals.simulator().takeTrace(), std::vector<std::string>{caller + line});
    }
};

TEST_F(Refusals, AnswerRequestsWithoutTheRightToken) {
    const std::string reason = "(the interface token is not android.ITVBaseService)";
    expect({}, -101, "request of 0 bytes -> -101 " + reason);
    expect(Wire::reply().i32(0x00400000).str16(u"android.ITVBaseServicE").i32(kGetVolume).i32(0).bytes(), -101,
           "request of 64 bytes -> -101 " + reason);
    expect(Wire::reply().i32(kGetVolume).i32(0).bytes(), -101, "request of 8 bytes -> -101 " + reason);
}

TEST_F(Refusals, TakeTokensOfEveryBinderLevel) {
    for (const int level : {28, 29, 30}) {
        expect(Wire::token(level, u"android.ITVBaseService").i32(kUnknown).bytes(), -102,
               "command 0x4321 -> -102 (unknown command)");
    }
    // The third word is the vendor's, not the system's.
    expect(Wire::reply().i32(0).i32(-1).i32(0x564E4452).str16(u"android.ITVBaseService").i32(kUnknown).bytes(), -101,
           "request of 68 bytes -> -101 (the interface token is not android.ITVBaseService)");
}

TEST_F(Refusals, AreNotForClientsOfOtherBinderLevels) {
    SimulatorEnvironment::transact(requestOf(kSetVolume, {0, 41}));
    for (const char* const level : {"29", "30"}) {
        ::setenv("KQDROID_BINDER_LEVEL", level, 1);
        EXPECT_EQ(VolumeClient(1).answers(), "41\n") << level;
    }
    ::unsetenv("KQDROID_BINDER_LEVEL");
}

TEST_F(Refusals, AnswerUnknownCommands) {
    expect(requestOf(kUnknown, {1, 2}), -102, "command 0x4321 -> -102 (unknown command)");
    expect(requestOf(-1), -102, "command 0xFFFFFFFF -> -102 (unknown command)");
}

TEST_F(Refusals, AnswerRequestsThatEndTooEarly) {
    Bytes noCommand = requestOf(0);
    noCommand.resize(noCommand.size() - 4);
    expect(noCommand, -103, "request of 56 bytes -> -103 (the command identifier is missing)");
    expect(requestOf(kSetVolume), -103, "CMD_AUDIO_SETVOLUME() -> -103 (channel is missing)");
    expect(requestOf(kSetVolume, {0}), -103,
           "CMD_AUDIO_SETVOLUME(channel=0 KELU_TV_AUDIO_CHANNEL_SPEAKER) -> -103 (vol is missing)");
    expect(requestOf(kStartPlay, {0, 0}), -103,
           "CMD_PCMPLAYER_START_PLAY(bLoop=0, bMuteDtvAudio=0) -> -103 (pathName is missing)");
}

TEST_F(Refusals, AnswerTextsWithoutAnEnd) {
    expect(Wire::request(kStartPlay).i32(0).i32(0).raw("abcd", 4).bytes(), -104,
           "CMD_PCMPLAYER_START_PLAY(bLoop=0, bMuteDtvAudio=0) -> -104 (text pathName has no end)");
    expect(Wire::request(kSetItemText).i32(1).i32(2).raw("abcdefgh", 8).bytes(), -104,
           "CMD_AUDIO_COMMON_SET_ITEM_STRVALUE(cmdID=1, param1=2) -> -104 (text stringParam has no end)");
}

TEST_F(Refusals, AnswerRequestsThatCarryTooMuch) {
    expect(requestOf(kGetVolume, {0, 7}), -105,
           "CMD_AUDIO_GETVOLUME(channel=0 KELU_TV_AUDIO_CHANNEL_SPEAKER) -> -105 (4 bytes too many)");
}

TEST_F(Refusals, AnswerUnknownItems) {
    expect(requestOf(kSetItem, {1, 2, 3, 4, 5}), -106,
           "CMD_AUDIO_COMMON_SET_ITEM_VALUE(cmdID=1, param1=2, param2=3, param3=4, param4=5) -> -106 (unknown item)");
}

TEST_F(Refusals, LeaveOtherTransactionsToTheRuntime) {
    const auto service = android::defaultServiceManager()->getService(android::String16("TVBaseService"));
    ASSERT_NE(service, nullptr);
    EXPECT_EQ(service->getInterfaceDescriptor(), android::String16("android.ITVBaseService"));
    android::Parcel data;
    android::Parcel reply;
    EXPECT_EQ(service->transact(2, data, &reply), android::UNKNOWN_TRANSACTION);
    EXPECT_TRUE(environmentOfRefusals.simulator().takeTrace().empty());
}

TEST_F(Refusals, TakeOneWayRequestsWithoutAnAnswer) {
    const auto service = android::defaultServiceManager()->getService(android::String16("TVBaseService"));
    ASSERT_NE(service, nullptr);
    const Bytes request = requestOf(kSetVolume, {8, 44});
    android::Parcel data;
    data.setData(request.data(), request.size());
    EXPECT_EQ(service->transact(1, data, nullptr, android::IBinder::FLAG_ONEWAY), android::NO_ERROR);
    EXPECT_TRUE(eventually([] {
        return SimulatorEnvironment::transact(requestOf(kGetVolume, {8})) == replyOf({0, 44});
    }));
}

} // namespace

} // namespace kelutv::test
