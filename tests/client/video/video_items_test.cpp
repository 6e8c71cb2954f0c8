#include "client/ClientTest.h"
#include "client/Untouched.h"

#include <kelutv/Video3D.h>
#include <kelutv/linux_kelutv_video.h>

#include <unistd.h>

#include <array>

namespace kelutv::test {
namespace {

Bytes itemSet(int item, std::int32_t param1, std::int32_t param2 = 0, std::int32_t param3 = 0) {
    return requestOf(0x300D, {item, param1, param2, param3, 0});
}

Bytes itemGet(int item, std::int32_t param1 = 0) { return requestOf(0x300E, {item, param1, 0}); }

using VideoItem = ClientTest;

// irregular: Video3D::getVideoItemValue
TEST_F(VideoItem, withoutABufferIsLoggedUnderTheNameOfAChannelFunction) {
    EXPECT_EQ(Video3D::instance()->getVideoItemValue(12291, 1, 2, nullptr), -1);
    EXPECT_EQ(logged(), untaggedError("getChannelItemValue input buf is null"));
    EXPECT_EQ(sent(), kNothingSent);
}

// irregular: linux_tv_Video_getVideoItemValue
TEST_F(VideoItem, withoutABufferIsRefusedUnloggedInC) {
    EXPECT_EQ(linux_tv_Video_getVideoItemValue(12291, 1, 2, nullptr), -1);
    EXPECT_EQ(logged(), kNothingLogged);
    EXPECT_EQ(sent(), kNothingSent);
}

TEST_F(VideoItem, fillsTwoHundredAndFiftyFiveInts) {
    std::array<int, 256> values{};
    values.fill(kUntouched);
    answer({0, 71, -72});
    EXPECT_EQ(linux_tv_Video_getVideoItemValue(12291, 1, 2, values.data()), 0);
    EXPECT_EQ(sent(), only(requestOf(0x300E, {12291, 1, 2})));
    EXPECT_EQ(values[0], 71);
    EXPECT_EQ(values[1], -72);
    EXPECT_EQ(values[2], 0);
    EXPECT_EQ(values[254], 0);
    EXPECT_EQ(values[255], kUntouched);
}

TEST_F(VideoItem, theSignalIsReadAndZeroAfterAFailure) {
    KELU_TV_SIGNAL_E status = 99;
    answer({0, -3});
    EXPECT_EQ(linux_tv_Video_getSignalStatusSync(KELU_TV_SRC_HDMI1, &status), 0);
    EXPECT_EQ(sent(), only(itemGet(12290, 9)));
    EXPECT_EQ(status, -3);
    EXPECT_EQ(linux_tv_Video_getSignalStatusSync(KELU_TV_SRC_HDMI1, nullptr), 0);
    answer({3, 7});
    EXPECT_EQ(linux_tv_Video_getSignalStatusSync(KELU_TV_SRC_HDMI1, &status), -1);
    EXPECT_EQ(status, 0);
}

/** A getter of one flag, which takes null as well. */
struct FlagGetter {
    int item;
    int (*function)(bool*);
};

TEST_F(VideoItem, flagsAreStoredAlsoAfterAFailedRead) {
    for (const FlagGetter& getter :
         {FlagGetter{12291, linux_tv_Video_get625Mode}, FlagGetter{12292, linux_tv_Video_isSignalLock}}) {
        bool flag = false;
        answer({0, -3});
        EXPECT_EQ(getter.function(&flag), 0);
        EXPECT_EQ(sent(), only(itemGet(getter.item)));
        EXPECT_TRUE(flag);
        EXPECT_EQ(getter.function(nullptr), 0);
        answer({3, 1});
        EXPECT_EQ(getter.function(&flag), -1);
        EXPECT_FALSE(flag);
        EXPECT_EQ(getter.function(nullptr), -1);
        sent();
    }
}

// irregular: linux_tv_Video_muteWindow
TEST_F(VideoItem, theColourOfTheMutedWindowHasGreenTwiceAndNoBlue) {
    KELU_TV_COLOR_S color{1, 2, 3};
    answer({5});
    EXPECT_EQ(linux_tv_Video_muteWindow(true, &color, false), 5);
    EXPECT_EQ(sent(), only(itemSet(12293, 1, 0x020201, 0)));
    color = {0, 0, 0xFFFFFFFFU};
    EXPECT_EQ(linux_tv_Video_muteWindow(false, &color, true), 5);
    EXPECT_EQ(sent(), only(itemSet(12293, 0, 0, 1)));
}

TEST_F(VideoItem, theColourOfTheMutedWindowKeepsRedWholeAndGreensLowByte) {
    KELU_TV_COLOR_S color{0x81000040U, 0, 0};
    linux_tv_Video_muteWindow(true, &color, true);
    EXPECT_EQ(sent(), only(itemSet(12293, 1, static_cast<std::int32_t>(0x81000040U), 1)));
    color = {0, 0xABCDEF12U, 0};
    linux_tv_Video_muteWindow(true, &color, true);
    EXPECT_EQ(sent(), only(itemSet(12293, 1, 0x121200, 1)));
    color = {0x0F, 0xFF, 0xFF};
    linux_tv_Video_muteWindow(true, &color, true);
    EXPECT_EQ(sent(), only(itemSet(12293, 1, 0xFFFF0F, 1)));
}

TEST_F(VideoItem, theMutedWindowMayHaveNoColour) {
    linux_tv_Video_muteWindow(true, nullptr, true);
    EXPECT_EQ(sent(), only(itemSet(12293, 1, 0, 1)));
}

// irregular: linux_tv_Video_getMuteWindowStatus
TEST_F(VideoItem, theMuteStatusIsReadAndFalseAfterAFailure) {
    bool mute = false;
    bool freeze = true;
    FdCapture output(STDOUT_FILENO);
    answer({0, -1, 0});
    EXPECT_EQ(linux_tv_Video_getMuteWindowStatus(&mute, &freeze), 0);
    EXPECT_EQ(sent(), only(itemGet(12297)));
    EXPECT_TRUE(mute);
    EXPECT_FALSE(freeze);
    answer({0, 0, 2});
    EXPECT_EQ(linux_tv_Video_getMuteWindowStatus(&mute, &freeze), 0);
    EXPECT_FALSE(mute);
    EXPECT_TRUE(freeze);
    answer({3, 1, 1});
    EXPECT_EQ(linux_tv_Video_getMuteWindowStatus(&mute, &freeze), -1);
    EXPECT_FALSE(freeze);
    EXPECT_EQ(output.take(), "");
}

TEST_F(VideoItem, theMuteStatusNeedsTwoPlaces) {
    const char* told = "[linux_tv_Video_getMuteWindowStatus, 162] parmer invalid";
    bool flag = true;
    FdCapture output(STDOUT_FILENO);
    EXPECT_EQ(linux_tv_Video_getMuteWindowStatus(nullptr, &flag), -1);
    EXPECT_EQ(output.take(), told);
    EXPECT_EQ(linux_tv_Video_getMuteWindowStatus(&flag, nullptr), -1);
    EXPECT_EQ(output.take(), told);
    EXPECT_EQ(linux_tv_Video_getMuteWindowStatus(nullptr, nullptr), -1);
    EXPECT_EQ(output.take(), told);
    EXPECT_TRUE(flag);
    EXPECT_EQ(sent(), kNothingSent);
    EXPECT_EQ(logged(), kNothingLogged);
}

} // namespace
} // namespace kelutv::test
