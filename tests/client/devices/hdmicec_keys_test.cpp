#include "client/ClientTest.h"

#include <kelutv/HdmiCEC.h>
#include <kelutv/linux_kelutv_hdmicec.h>

#include <unistd.h>

#include <cstddef>
#include <type_traits>

namespace kelutv::test {
namespace {

static_assert(std::is_empty_v<HdmiCEC> && !std::is_polymorphic_v<HdmiCEC> && !std::is_default_constructible_v<HdmiCEC>);
static_assert(sizeof(KELU_CEC_CMD_INFO_S) == 8 && offsetof(KELU_CEC_CMD_INFO_S, KeyPressed) == 4);
static_assert(std::is_same_v<E_MW_CEC_UI_CMD, enum _E_MW_CEC_UI_CMD> && sizeof(E_MW_CEC_UI_CMD) == 4);

// Both ends of every run of keys, and the odd spellings.
static_assert(E_MW_CEC_UI_CMD_SELECT == 0 && E_MW_CEC_UI_CMD_EXIT == 13);
static_assert(E_MW_CEC_UI_CMD_RIGHT_UP == 5 && E_MW_CEC_UI_CMD_LEFT_UP == 7 && E_MW_CEC_UI_CMD_ROOTMENU == 9);
static_assert(E_MW_CEC_UI_CMD_NUMBER_0 == 32 && E_MW_CEC_UI_CMD_NUMBER_9 == 41 && E_MW_CEC_UI_CMD_CLEAR == 44);
static_assert(E_MW_CEC_UI_CMD_NEXT_FAVORITE == 47 && E_MW_CEC_UI_CMD_PAGE_DOWN == 56);
static_assert(E_MW_CEC_UI_CMD_POWER == 64 && E_MW_CEC_UI_CMD_PAUSE == 70 && E_MW_CEC_UI_CMD_PAUSE_RECORD == 78);
static_assert(E_MW_CEC_UI_CMD_ANGLE == 80 && E_MW_CEC_UI_CMD_INITIAL_CONFIGURATION == 85);
static_assert(E_MW_CEC_UI_CMD_PLAY_FUN == 96 && E_MW_CEC_UI_CMD_PSUSE_PLAY_FUN == 97);
static_assert(E_MW_CEC_UI_CMD_TUNE_FUN == 103 && E_MW_CEC_UI_CMD_POWER_ON_FUN == 109);
static_assert(E_MW_CEC_UI_CMD_F1_BLUE == 113 && E_MW_CEC_UI_CMD_DATA == 118 && E_MW_CEC_UI_CMD_UNKNOW == 255);

using CecKey = ClientTest;

// irregular: HdmiCEC::sendCecCmd
TEST_F(CecKey, isToldWithoutALineEndAndSent) {
    FdCapture told(STDERR_FILENO);
    KELU_CEC_CMD_INFO_S key{E_MW_CEC_UI_CMD_F1_BLUE, true};
    answer({5});
    EXPECT_EQ(HdmiCEC::instance()->sendCecCmd(&key), 5);
    EXPECT_EQ(sent(), only(requestOf(0x5019, {113, 1})));
    key.KeyPressed = false;
    EXPECT_EQ(HdmiCEC::instance()->sendCecCmd(&key), 5);
    EXPECT_EQ(sent(), only(requestOf(0x5019, {113, 0})));
    EXPECT_EQ(told.take(), "D/HdmiCEC sendCecCmd() KeyEvent: ir code: 0x71, Down(1)."
                           "D/HdmiCEC sendCecCmd() KeyEvent: ir code: 0x71, Down(0).");
    EXPECT_EQ(logged(), kNothingLogged);
}

// irregular: linux_tv_HdmiCEC_sendCecCommand
TEST_F(CecKey, isToldAndSentInC) {
    FdCapture told(STDERR_FILENO);
    KELU_CEC_CMD_INFO_S key{static_cast<E_MW_CEC_UI_CMD>(-2), true};
    answer({-6});
    EXPECT_EQ(linux_tv_HdmiCEC_sendCecCommand(&key), -6);
    EXPECT_EQ(sent(), only(requestOf(0x5019, {-2, 1})));
    EXPECT_EQ(told.take(), "D/HdmiCEC sendCecCmd() KeyEvent: ir code: 0xfffffffe, Down(1).");
}

TEST_F(CecKey, needsAnApplicationThatIsReady) {
    answer({4});
    EXPECT_EQ(HdmiCEC::instance()->appReadyForCec(), 4);
    EXPECT_EQ(sent(), only(requestOf(0x501B)));
}

using CecDevice = ClientTest;

TEST_F(CecDevice, isSelectedWithTheValueOfTheAnswer) {
    answer({0, 4});
    EXPECT_EQ(linux_tv_HdmiCEC_selectDevice(11), 4);
    EXPECT_EQ(sent(), only(requestOf(0x501C, {11})));
    answer({4, 0});
    EXPECT_EQ(HdmiCEC::instance()->selectDevice(11), -1);
    EXPECT_EQ(logged(), kNothingLogged);
}

TEST_F(CecDevice, thatPlaysIsTold) {
    answer({0, 8});
    EXPECT_EQ(HdmiCEC::instance()->getPlayingDeviceLogAddr(), 8);
    EXPECT_EQ(sent(), only(requestOf(0x501D)));
}

TEST_F(CecDevice, theReturnChannelIsTold) {
    answer({0, 2});
    EXPECT_TRUE(HdmiCEC::instance()->isArcSupported());
    EXPECT_EQ(sent(), only(requestOf(0x500F)));
    EXPECT_TRUE(HdmiCEC::instance()->GetARCActiveStatus());
    EXPECT_EQ(sent(), only(requestOf(0x5010)));
    EXPECT_EQ(linux_tv_HdmiCEC_getSupportArcPort(), 2);
    EXPECT_EQ(sent(), only(requestOf(0x501E)));
    answer({0, 0});
    EXPECT_FALSE(HdmiCEC::instance()->isArcSupported());
    EXPECT_FALSE(HdmiCEC::instance()->GetARCActiveStatus());
    EXPECT_EQ(HdmiCEC::instance()->getSupportArcPort(), 0);
}

TEST_F(CecDevice, hasOneControl) { EXPECT_EQ(HdmiCEC::instance(), HdmiCEC::instance()); }

} // namespace
} // namespace kelutv::test
