#include "client/ClientTest.h"
#include "client/factory/TheFactory.h"

#include <list>
#include <string>
#include <type_traits>
#include <unistd.h>

namespace kelutv::test {
namespace {

using FactoryCommand = ClientTest;

static_assert(std::is_empty_v<Factory> && !std::is_polymorphic_v<Factory>);
static_assert(!std::is_copy_constructible_v<Factory> && !std::is_default_constructible_v<Factory>);

static_assert(sizeof(BOE_OD_TableInfo) == 90 && sizeof(BOE_OD_TableInfo{}.ODTableStr[0]) == 10);
static_assert(KELU_TV_EDID_TYPE_21_4K_8K == 3);
static_assert(KELU_MW_SOC_TEMP_HISTORY_MAX == 2);
static_assert(KELU_TV_MUL_KEY_THREE_IN_ONE == 18);
static_assert(KELU_TV_PATTERN_50_WHITE == 8);
static_assert(KELU_TV_PATTERN_TYPE_100_GREY_SACALE_WHITE == 8 && KELU_TV_PATTERN_TYPE_BLACK == 12);
static_assert(KELU_TV_EEFLASH_UPDATE_HOTEL == 4);
static_assert(KELU_TV_PQ_IOCTL_BUTT_Color == 15 && KELU_TV_PQ_IOCTL_AIPQ_CMD_GET_DCI_SKIN_LUT == 17);
static_assert(KELU_TV_DTV_SN_TV == 1 && KELU_TV_OPT_CA_TYPE_UNITEND == 0);
static_assert(KELU_TV_IR_PROTOCOL_SONY == 4 && KELU_TV_PASSWORD_TYPE_HOTEL == 2);
static_assert(KELU_TV_MACHINE_INFO_BROWSER_TYPE == 9 && KELU_TV_LED_DISTURBING_MODE_OFF_BUTT == 2);

// irregular: Factory::get24GConnectStatus
TEST_F(FactoryCommand, connectStatusIsASetCommand) {
    answer({5});
    EXPECT_EQ(factory().get24GConnectStatus(), 5);
    EXPECT_EQ(sent(), only(requestOf(0x9056)));
    answer({0, 7});
    EXPECT_EQ(factory().get24GConnectStatus(), 0);
    failTransactions();
    EXPECT_EQ(factory().get24GConnectStatus(), -1);
    EXPECT_EQ(logged(), kInvokeFailure);
}

// irregular: Factory::enterIrWBAdj
TEST_F(FactoryCommand, infraredAdjustmentIsAGetCommand) {
    answer({0, 7});
    EXPECT_EQ(factory().enterIrWBAdj(), 7);
    EXPECT_EQ(sent(), only(requestOf(0xF04B)));
    answer({7});
    EXPECT_EQ(factory().enterIrWBAdj(), -1);
    failTransactions();
    EXPECT_EQ(factory().enterIrWBAdj(), -1);
    EXPECT_EQ(logged(), kNothingLogged);
}

// irregular: Factory::setLineODIndex
TEST_F(FactoryCommand, lineOverdriveIndexGivesAFlag) {
    answer({0});
    EXPECT_FALSE(factory().setLineODIndex(4));
    EXPECT_EQ(sent(), only(requestOf(0x909B, {4})));
    answer({-3});
    EXPECT_TRUE(factory().setLineODIndex(4));
    static_assert(std::is_same_v<decltype(factory().setLineODIndex(0)), bool>);
}

// irregular: Factory::getLineODListTable
TEST_F(FactoryCommand, lineOverdriveTablesAreReadToTheEnd) {
    service().reply(Wire::reply().i32(0).cstr("one").cstr("").cstr("a longer name").bytes());
    EXPECT_EQ(factory().getLineODListTable(), (std::list<std::string>{"one", "", "a longer name"}));
    EXPECT_EQ(sent(), only(requestOf(0x909D)));
    service().reply(Wire::reply().i32(0).cstr("one").raw("abcd", 4).bytes());
    EXPECT_EQ(factory().getLineODListTable(), (std::list<std::string>{"one"}));
    service().reply(Wire::reply().i32(1).cstr("one").bytes());
    EXPECT_TRUE(factory().getLineODListTable().empty());
}

TEST_F(FactoryCommand, someQuestionsGiveNumbers) {
    static_assert(std::is_same_v<decltype(factory().getPanelIntfOutEnable()), int>);
    static_assert(std::is_same_v<decltype(factory().getOLEDPixelShiftEnable()), int>);
    static_assert(std::is_same_v<decltype(factory().getIsBurnOtpRsa()), int>);
    static_assert(std::is_same_v<decltype(factory().isOperatorCustomized()), int>);
    static_assert(std::is_same_v<decltype(factory().getPanelSpreadEnable()), bool>);
    static_assert(std::is_same_v<decltype(factory().getRepairedBoard()), bool>);
    static_assert(std::is_same_v<decltype(factory().getLaserEyeShieldMode()), bool>);
    static_assert(std::is_same_v<decltype(factory().isSupportExternChip(0)), bool>);
    answer({0, 2});
    EXPECT_EQ(factory().getPanelIntfOutEnable(), 2);
    EXPECT_EQ(factory().getOLEDPixelShiftEnable(), 2);
    EXPECT_EQ(factory().getIsBurnOtpRsa(), 2);
    EXPECT_EQ(factory().isOperatorCustomized(), 2);
    EXPECT_TRUE(factory().isSupportExternChip(6));
    sent();
    EXPECT_TRUE(factory().getPanelSpreadEnable());
    EXPECT_EQ(sent(), only(requestOf(0x900F)));
}

TEST_F(FactoryCommand, flagsTravelAsNumbers) {
    EXPECT_EQ(factory().setWhiteBalanceColor(true, 1, -2, 3), 0);
    EXPECT_EQ(sent(), only(requestOf(0x908C, {1, 1, -2, 3})));
    EXPECT_EQ(factory().EnableDdrSpread(false), 0);
    EXPECT_EQ(sent(), only(requestOf(0x9018, {0})));
    EXPECT_EQ(factory().EnableDdrSpread(true), 0);
    EXPECT_EQ(sent(), only(requestOf(0x9018, {1})));
}

// irregular: Factory::updataNLAToSource
// irregular: Factory::pqSetGammaValue
TEST_F(FactoryCommand, twoOperationsPrintTheirNames) {
    FdCapture errors(STDERR_FILENO);
    answer({4});
    EXPECT_EQ(factory().updataNLAToSource(), 4);
    EXPECT_EQ(errors.take(), "updataNLAToSource\n");
    EXPECT_EQ(sent(), only(requestOf(0x90D0)));
    EXPECT_EQ(factory().pqSetGammaValue(-6), 4);
    EXPECT_EQ(errors.take(), "pqSetGammaValue\n");
    EXPECT_EQ(sent(), only(requestOf(0x90E0, {-6})));
    EXPECT_EQ(logged(), kNothingLogged);
}

// irregular: Factory::pqIoCtl
TEST_F(FactoryCommand, colourTableIsSentByItsNumberAlone) {
    FdCapture errors(STDERR_FILENO);
    int parameter = 99;
    EXPECT_EQ(factory().pqIoCtl(KELU_TV_PQ_IOCTL_AIPQ_CMD_SET_SOURCE_COLOR_LUT, &parameter), 0);
    EXPECT_EQ(sent(), only(requestOf(0x90CF, {21})));
    EXPECT_EQ(factory().pqIoCtl(KELU_TV_PQ_IOCTL_Red_Color, nullptr), 0);
    EXPECT_EQ(sent(), only(requestOf(0x90CF, {1})));
    EXPECT_EQ(errors.take(), "");
    for (const int result : {1, -5}) {
        answer({result});
        EXPECT_EQ(factory().pqIoCtl(KELU_TV_PQ_IOCTL_Red_Color, &parameter), -1);
        EXPECT_EQ(errors.take(), "pqIoCtl error");
    }
    EXPECT_EQ(parameter, 99);
    EXPECT_EQ(logged(), kNothingLogged);
}

// irregular: Factory::getPQBinVersion
TEST_F(FactoryCommand, dataVersionIsPrintedBeforeTheBufferIsLookedAt) {
    FdCapture errors(STDERR_FILENO);
    char text[32] = "untouched";
    service().reply(Wire::reply().i32(0).cstr("v7").bytes());
    EXPECT_EQ(factory().getPQBinVersion(nullptr), -1);
    EXPECT_EQ(sent(), only(requestOf(0x90CE)));
    EXPECT_EQ(errors.take(), "pStr=v7\ngetPQBinVersion error\n");
    EXPECT_EQ(factory().getPQBinVersion(text), 0);
    EXPECT_STREQ(text, "v7");
    EXPECT_EQ(errors.take(), "pStr=v7\n");
    answer({0});
    EXPECT_EQ(factory().getPQBinVersion(text), -1);
    EXPECT_EQ(errors.take(), "pStr=(null)\ngetPQBinVersion error\n");
    answer({1});
    EXPECT_EQ(factory().getPQBinVersion(text), -1);
    EXPECT_EQ(errors.take(), "");
    EXPECT_STREQ(text, "v7");
    EXPECT_EQ(logged(), kNothingLogged);
}

// irregular: Factory::setFactoryItemStrValue
TEST_F(FactoryCommand, textItemHasItsTextBeforeTheLastParameter) {
    answer({6});
    EXPECT_EQ(factory().setFactoryItemStrValue(11, 12, 13, "alpha"), 6);
    EXPECT_EQ(sent(), only(Wire::request(0x90C3).i32(11).i32(12).cstr("alpha").i32(13).bytes()));
    EXPECT_EQ(factory().setAdjustParam(5), 6);
    EXPECT_EQ(sent(), only(Wire::request(0x90C3).i32(36867).i32(5).cstr("").i32(0).bytes()));
}

// irregular: Factory::startRecorderTsStream
TEST_F(FactoryCommand, recordingIsLoggedFirst) {
    answer({6});
    EXPECT_EQ(factory().startRecorderTsStream("/usb/a.ts"), 6);
    EXPECT_EQ(sent(), only(Wire::request(0x9089).cstr("/usb/a.ts").bytes()));
    EXPECT_EQ(logged(), untaggedError("DtvChannel startRecorderTsStream usbPath = /usb/a.ts"));
    EXPECT_EQ(factory().startRecorderTsStream(nullptr), 6);
    EXPECT_EQ(sent(), only(Wire::request(0x9089).cstr("").bytes()));
    EXPECT_EQ(logged(), untaggedError("DtvChannel startRecorderTsStream usbPath = (null)"));
    failTransactions();
    EXPECT_EQ(factory().startRecorderTsStream("b"), -1);
    const std::vector<LogEntry> lines{untaggedError("DtvChannel startRecorderTsStream usbPath = b").front(),
                                      kInvokeFailure.front()};
    EXPECT_EQ(logged(), lines);
}

TEST_F(FactoryCommand, serialPortTextTravelsInSixteenBitUnits) {
    answer({6});
    EXPECT_EQ(factory().setUartData("ok \xC3\xBC \xF0\x9F\x98\x80"), 6);
    EXPECT_EQ(sent(), only(Wire::request(0xF02A).str16(u"ok \u00FC \U0001F600").bytes()));
    EXPECT_EQ(factory().setUartData(""), 6);
    EXPECT_EQ(sent(), only(Wire::request(0xF02A).str16(u"").bytes()));
}

TEST_F(FactoryCommand, textsTravelAfterTheirNumbers) {
    char path[] = "up.bin";
    EXPECT_EQ(factory().set24GUpgradePath(path), 0);
    EXPECT_EQ(sent(), only(Wire::request(0x9055).cstr("up.bin").bytes()));
    EXPECT_EQ(factory().operateFlashEEPROM(KELU_TV_EEFLASH_ALL, "all.bin"), 0);
    EXPECT_EQ(sent(), only(Wire::request(0x908B).i32(2).cstr("all.bin").bytes()));
    EXPECT_EQ(factory().setLaserItemStringValue(7, 8, "text"), 0);
    EXPECT_EQ(sent(), only(Wire::request(0x90C0).i32(7).i32(8).cstr("text").bytes()));
    EXPECT_EQ(factory().upgradeNTPQIC(3, "ic"), 0);
    EXPECT_EQ(sent(), only(Wire::request(0x90AF).i32(3).cstr("ic").bytes()));
    EXPECT_EQ(factory().upgradeEP9169IC("ep"), 0);
    EXPECT_EQ(sent(), only(Wire::request(0x90BE).cstr("ep").bytes()));
    EXPECT_EQ(factory().setInternetTime("2026"), 0);
    EXPECT_EQ(sent(), only(Wire::request(0x9094).cstr("2026").bytes()));
}

TEST_F(FactoryCommand, missingTextsTravelAsEmptyOnes) {
    EXPECT_EQ(factory().set24GUpgradePath(nullptr), 0);
    EXPECT_EQ(sent(), only(Wire::request(0x9055).cstr("").bytes()));
    EXPECT_EQ(factory().operateFlashEEPROM(1, nullptr), 0);
    EXPECT_EQ(sent(), only(Wire::request(0x908B).i32(1).cstr("").bytes()));
}

} // namespace
} // namespace kelutv::test
