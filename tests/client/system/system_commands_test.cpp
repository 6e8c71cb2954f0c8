#include "client/ClientTest.h"
#include "client/Untouched.h"

#include <kelutv/SystemSetting.h>
#include <kelutv/linux_kelutv_systemsetting.h>

#include <array>
#include <list>

namespace kelutv::test {
namespace {

SystemSetting& settings() { return *SystemSetting::instance(); }

std::vector<LogEntry> error(const std::string& text) { return {{ANDROID_LOG_ERROR, "TVBASEMW@SystemSetting", text}}; }

using SystemCommand = ClientTest;

// irregular: SystemSetting::OledJbOffrsRepairProc
// irregular: SystemSetting::setPanelOffrsRepair
TEST_F(SystemCommand, theRepairsOfThePanelAreAnsweredBehindTheResult) {
    answer({0, 0});
    EXPECT_FALSE(settings().OledJbOffrsRepairProc());
    EXPECT_EQ(sent(), only(requestOf(0x802C)));
    EXPECT_FALSE(settings().setPanelOffrsRepair());
    EXPECT_EQ(sent(), only(requestOf(0x802F)));
    EXPECT_EQ(linux_tv_SystemSetting_OledJbOffrsRepairProc(), 0);
    EXPECT_EQ(linux_tv_SystemSetting_setPanelOffrsRepair(), 0);
    for (const std::initializer_list<std::int32_t> words : {std::initializer_list<std::int32_t>{0, 7}, {3, 0}}) {
        answer(words);
        EXPECT_TRUE(settings().OledJbOffrsRepairProc());
        EXPECT_TRUE(settings().setPanelOffrsRepair());
        EXPECT_EQ(linux_tv_SystemSetting_OledJbOffrsRepairProc(), 1);
        EXPECT_EQ(linux_tv_SystemSetting_setPanelOffrsRepair(), 1);
    }
    EXPECT_EQ(logged(), kNothingLogged);
}

// irregular: SystemSetting::setTimerWakeupParam
TEST_F(SystemCommand, theTimerIsAnsweredBehindTheResult) {
    answer({0, 41});
    EXPECT_EQ(settings().setTimerWakeupParam(600, 2, 1), 41);
    EXPECT_EQ(sent(), only(requestOf(0x8054, {600, 2, 1})));
    answer({3, 41});
    EXPECT_EQ(settings().setTimerWakeupParam(600, 2, 1), -1);
    failTransactions();
    EXPECT_EQ(settings().setTimerWakeupParam(600, 2, 1), -1);
    EXPECT_EQ(logged(), kNothingLogged);
}

// irregular: SystemSetting::getSupportedTvResolution
TEST_F(SystemCommand, theResolutionsAreTheIntsOfTheReply) {
    service().reply(Wire::reply().i32(0).i32(5).i32(-6).i32(7).bytes());
    EXPECT_EQ(settings().getSupportedTvResolution(), (std::list<int>{5, -6, 7}));
    EXPECT_EQ(sent(), only(requestOf(0x8041)));
    answer({2, 5});
    EXPECT_TRUE(settings().getSupportedTvResolution().empty());
}

// irregular: linux_tv_SystemSetting_getSupportedTvResolution
TEST_F(SystemCommand, theResolutionsAreCountedAlsoWhenThereAreNone) {
    std::array<int, 3> modes{kUntouched, kUntouched, kUntouched};
    int size = 99;
    answer({0, 5, -6});
    EXPECT_EQ(linux_tv_SystemSetting_getSupportedTvResolution(modes.data(), &size), 0);
    EXPECT_EQ(modes, (std::array<int, 3>{5, -6, kUntouched}));
    EXPECT_EQ(size, 2);
    EXPECT_EQ(linux_tv_SystemSetting_getSupportedTvResolution(nullptr, nullptr), 0);
    for (const std::initializer_list<std::int32_t> words : {std::initializer_list<std::int32_t>{0}, {3, 5}}) {
        size = 99;
        answer(words);
        EXPECT_EQ(linux_tv_SystemSetting_getSupportedTvResolution(modes.data(), &size), -1);
        EXPECT_EQ(size, 0);
        EXPECT_EQ(modes[0], 5);
    }
}

// irregular: linux_tv_SystemSetting_setAIScreenStandby
TEST_F(SystemCommand, theStandbyOfAClosedScreenGivesFalseForSuccessInC) {
    answer({0});
    EXPECT_EQ(settings().setAIScreenStandby(4), 0);
    sent();
    EXPECT_FALSE(linux_tv_SystemSetting_setAIScreenStandby(4));
    EXPECT_EQ(sent(), only(requestOf(0x803C, {4})));
    for (const std::int32_t result : {1, -1, 9}) {
        answer({result});
        EXPECT_EQ(settings().setAIScreenStandby(4), result);
        EXPECT_TRUE(linux_tv_SystemSetting_setAIScreenStandby(4));
    }
}

TEST_F(SystemCommand, theClosingOfTheScreenIsAFlagInC) {
    answer({0, 7});
    EXPECT_EQ(settings().getAICloseScreenMode(), 7);
    EXPECT_TRUE(linux_tv_SystemSetting_getAICloseScreenMode());
    answer({0, 0});
    EXPECT_FALSE(linux_tv_SystemSetting_getAICloseScreenMode());
    sent();
    EXPECT_EQ(linux_tv_SystemSetting_setAICloseScreenMode(true), 0);
    EXPECT_EQ(sent(), only(requestOf(0x803B, {1})));
}

TEST_F(SystemCommand, flagsBetweenNumbersAreSentAsOneAndZero) {
    EXPECT_EQ(settings().setPWMInfo(3, true, 4000, 50, false), 0);
    EXPECT_EQ(sent(), only(requestOf(0x8017, {3, 1, 4000, 50, 0})));
    EXPECT_EQ(linux_tv_SystemSetting_setPWMInfo(3, false, 4000, 50, true), 0);
    EXPECT_EQ(sent(), only(requestOf(0x8017, {3, 0, 4000, 50, 1})));
}

// irregular: linux_tv_SystemSetting_reportKeyEvent
TEST_F(SystemCommand, aKeyIsLoggedInCBeforeItIsReported) {
    answer({6});
    EXPECT_EQ(linux_tv_SystemSetting_reportKeyEvent(KELU_TV_LINUX_KEYCODE_KELU_KEY_HOME, KELU_TV_KPC_EV_KEY_PRESS), 6);
    EXPECT_EQ(sent(), only(requestOf(0x8050, {102, 1})));
    const std::vector<LogEntry> line{{ANDROID_LOG_INFO, "TVBASEMW@linuxSystemSetting",
                                      "linnuxapi linux_tv_SystemSetting_reportKeyEvent iKeyValue = 102,iStatus = 1"}};
    EXPECT_EQ(logged(), line);
    settings().reportKeyEvent(KELU_TV_LINUX_KEYCODE_KELU_KEY_UP, KELU_TV_KPC_EV_KEY_RELEASE);
    EXPECT_EQ(sent(), only(requestOf(0x8050, {103, 0})));
    EXPECT_EQ(logged(), kNothingLogged);
}

TEST_F(SystemCommand, exactlyTwelveIntsOfTheGeometryAreRead) {
    std::array<int, 13> values{};
    values.fill(kUntouched);
    answer({0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, -12, 13});
    EXPECT_EQ(settings().getBoxOutputDispPara(values.data()), 0);
    EXPECT_EQ(sent(), only(requestOf(0x8034)));
    EXPECT_EQ(values, (std::array<int, 13>{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, -12, kUntouched}));
    answer({0, 31});
    EXPECT_EQ(linux_tv_SystemSetting_getBoxOutputDispPara(values.data()), 0);
    EXPECT_EQ(values, (std::array<int, 13>{31, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, kUntouched}));
    answer({1, 41});
    EXPECT_EQ(settings().getBoxOutputDispPara(values.data()), -1);
    EXPECT_EQ(values[0], 31);
    sent();
    EXPECT_EQ(linux_tv_SystemSetting_getBoxOutputDispPara(nullptr), -1);
    EXPECT_EQ(sent(), kNothingSent);
    EXPECT_EQ(logged(), kNothingLogged);
}

/** The two stores, of the EEPROM and of the flash EEPROM. */
struct Store {
    int read;
    int write;
    int (SystemSetting::*get)(int, int*, int);
    int (SystemSetting::*set)(int, int*, int);
    const char* name;
};

class SystemBlock : public ClientTest, public ::testing::WithParamInterface<Store> {
protected:
    int get(int* values, int count) { return (settings().*GetParam().get)(0x40, values, count); }
    int set(int* values, int count) { return (settings().*GetParam().set)(0x40, values, count); }
};

// irregular: SystemSetting::getEepMulti
// irregular: SystemSetting::getFlashEepMulti
TEST_P(SystemBlock, isReadUpToItsLength) {
    std::array<int, 4> values{kUntouched, kUntouched, kUntouched, kUntouched};
    answer({0, 11, -12, 13, 14});
    EXPECT_EQ(get(values.data(), 3), 0);
    EXPECT_EQ(sent(), only(requestOf(GetParam().read, {0x40, 3})));
    EXPECT_EQ(values, (std::array<int, 4>{11, -12, 13, kUntouched}));
    answer({0, 21});
    EXPECT_EQ(get(values.data(), 3), 0);
    EXPECT_EQ(values, (std::array<int, 4>{21, 0, 0, kUntouched}));
    answer({2, 31, 32, 33});
    EXPECT_EQ(get(values.data(), 3), -1);
    EXPECT_EQ(values[0], 21);
    EXPECT_EQ(logged(), kNothingLogged);
}

TEST_P(SystemBlock, ofNoLengthIsAskedForAndNotRead) {
    for (const int length : {0, -1}) {
        int value = kUntouched;
        answer({0, 11});
        EXPECT_EQ(get(&value, length), 0);
        EXPECT_EQ(sent(), only(requestOf(GetParam().read, {0x40, length})));
        EXPECT_EQ(value, kUntouched);
    }
}

TEST_P(SystemBlock, isNotReadWithoutABuffer) {
    EXPECT_EQ(get(nullptr, 3), -1);
    EXPECT_EQ(sent(), kNothingSent);
    EXPECT_EQ(logged(), error(GetParam().name + std::string(" input buf is null")));
}

// irregular: SystemSetting::setEepMulti
// irregular: SystemSetting::setFlashEepMulti
TEST_P(SystemBlock, isWrittenBehindItsAddressAndLength) {
    std::array<int, 3> values{11, -12, 13};
    answer({8});
    EXPECT_EQ(set(values.data(), 2), 8);
    EXPECT_EQ(sent(), only(requestOf(GetParam().write, {0x40, 2, 11, -12})));
    for (const int length : {0, -1}) {
        EXPECT_EQ(set(nullptr, length), 8);
        EXPECT_EQ(sent(), only(requestOf(GetParam().write, {0x40, length})));
    }
    EXPECT_EQ(logged(), kNothingLogged);
}

INSTANTIATE_TEST_SUITE_P(Stores, SystemBlock,
                         ::testing::Values(Store{0x800F, 0x8011, &SystemSetting::getEepMulti,
                                                 &SystemSetting::setEepMulti, "getEepMulti"},
                                           Store{0x8013, 0x8015, &SystemSetting::getFlashEepMulti,
                                                 &SystemSetting::setFlashEepMulti, "getFlashEepMulti"}),
                         [](const auto& store) { return std::string(store.param.name); });

/** An operation that reads one text. */
struct TextGetter {
    Bytes request;
    int (*read)(char*);
    const char* null;
    const char* failure;
    const char* missing;
};

int readItemText(char* text) { return settings().getSystemItemStrValue(0x8016, 11, 22, text); }
int readBootVersion(char* text) { return settings().getBootVersion(text); }

const TextGetter kTextGetters[] = {
    {requestOf(0x800C), readBootVersion, "getBootVersion buf is null", "getBootVersion error,return error",
     "getBootVersion error,return null"},
    {requestOf(0x8049, {0x8016, 11, 22}), readItemText, "getSystemItemStrValue input buf is null",
     "getSystemItemStrValue error", "getSystemItemStrValue output buf is null"},
};

TEST_F(SystemCommand, aTextIsCopiedWholeWithItsTerminator) {
    const std::string longText(4000, 'x');
    for (const TextGetter& getter : kTextGetters) {
        std::vector<char> text(4096, 'z');
        service().reply(Wire::reply().i32(0).cstr(longText.c_str()).bytes());
        EXPECT_EQ(getter.read(text.data()), 0);
        EXPECT_EQ(sent(), only(getter.request));
        EXPECT_EQ(text.data(), longText);
        EXPECT_EQ(text[4001], 'z');
        EXPECT_EQ(logged(), kNothingLogged);
    }
}

TEST_F(SystemCommand, aTextThatCannotBeReadIsLogged) {
    for (const TextGetter& getter : kTextGetters) {
        char text[] = "before";
        answer({4});
        EXPECT_EQ(getter.read(text), -1);
        EXPECT_EQ(logged(), error(getter.failure));
        answer({0});
        EXPECT_EQ(getter.read(text), -1);
        EXPECT_EQ(logged(), error(getter.missing));
        service().reply(Wire::reply().i32(0).raw("abcd", 4).bytes());
        EXPECT_EQ(getter.read(text), -1);
        EXPECT_EQ(logged(), error(getter.missing));
        EXPECT_STREQ(text, "before");
        sent();
        EXPECT_EQ(getter.read(nullptr), -1);
        EXPECT_EQ(logged(), error(getter.null));
        EXPECT_EQ(sent(), kNothingSent);
    }
}

// irregular: linux_tv_SystemSetting_getBootVersion
// irregular: linux_tv_SystemSetting_getSystemItemValue
// irregular: linux_tv_SystemSetting_getSystemItemStrValue
// irregular: linux_tv_SystemSetting_getMiddlewareVersion
TEST_F(SystemCommand, aNullPointerIsRefusedUnloggedInC) {
    EXPECT_EQ(linux_tv_SystemSetting_getBootVersion(nullptr), -1);
    EXPECT_EQ(linux_tv_SystemSetting_setBootPicPath(nullptr), -1);
    EXPECT_EQ(linux_tv_SystemSetting_getSystemItemValue(32770, 1, 2, nullptr), -1);
    EXPECT_EQ(linux_tv_SystemSetting_setSystemItemStrValue(32790, 1, 2, nullptr), -1);
    EXPECT_EQ(linux_tv_SystemSetting_getSystemItemStrValue(32790, 1, 2, nullptr), -1);
    EXPECT_EQ(linux_tv_SystemSetting_getMiddlewareVersion(nullptr), -1);
    EXPECT_EQ(sent(), kNothingSent);
    EXPECT_EQ(logged(), kNothingLogged);
}

// irregular: SystemSetting::setSystemItemStrValue
TEST_F(SystemCommand, theTextOfAnItemIsSentBeforeTheSecondParameter) {
    answer({4});
    EXPECT_EQ(settings().setSystemItemStrValue(32790, 11, 22, "alpha"), 4);
    const Bytes request = Wire::request(0x8048).i32(32790).i32(11).cstr("alpha").i32(22).bytes();
    EXPECT_EQ(sent(), only(request));
    EXPECT_EQ(linux_tv_SystemSetting_setSystemItemStrValue(32790, 11, 22, "alpha"), 4);
    EXPECT_EQ(sent(), only(request));
}

TEST_F(SystemCommand, singleItemsFillTwoHundredAndFiftyFiveInts) {
    struct Getter {
        int item;
        int (SystemSetting::*read)(int*);
    };
    for (const Getter& getter :
         {Getter{32770, &SystemSetting::GetMenuLanguage}, Getter{32773, &SystemSetting::GetIsEthandWifiCompatible},
          Getter{32774, &SystemSetting::GetIsSupportSoundCareMode},
          Getter{32776, &SystemSetting::GetSoundBarAudioInputSource}}) {
        std::array<int, 256> values{};
        values.fill(kUntouched);
        answer({0, 71, -72});
        EXPECT_EQ((settings().*getter.read)(values.data()), 0);
        EXPECT_EQ(sent(), only(requestOf(0x8047, {getter.item, 0, 0})));
        EXPECT_EQ(values[0], 71);
        EXPECT_EQ(values[1], -72);
        EXPECT_EQ(values[254], 0);
        EXPECT_EQ(values[255], kUntouched);
        EXPECT_EQ((settings().*getter.read)(nullptr), -1);
        EXPECT_EQ(logged(), error("getSystemItemValue input buf is null"));
        EXPECT_EQ(sent(), kNothingSent);
    }
}

TEST_F(SystemCommand, singleItemsAreSetWithZerosBehindTheValue) {
    answer({5});
    EXPECT_EQ(settings().systemReboot(), 5);
    EXPECT_EQ(sent(), only(requestOf(0x8046, {33026, 0, 0, 0, 0})));
    EXPECT_EQ(settings().SetWirelessSubWooferGpio(7), 5);
    EXPECT_EQ(sent(), only(requestOf(0x8046, {32769, 7, 0, 0, 0})));
    EXPECT_EQ(settings().SetMenuLanguage(KQ_LANG_GERMAN), 5);
    EXPECT_EQ(sent(), only(requestOf(0x8046, {32771, 8, 0, 0, 0})));
    EXPECT_EQ(settings().SetSoundBarAudioInputSource(-1), 5);
    EXPECT_EQ(sent(), only(requestOf(0x8046, {32775, -1, 0, 0, 0})));
}

} // namespace
} // namespace kelutv::test
