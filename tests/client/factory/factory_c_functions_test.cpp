#include "client/ClientTest.h"
#include "client/Untouched.h"

#include <kelutv/linux_kelutv_factory.h>

#include <unistd.h>

#include <array>
#include <cstring>
#include <string>

namespace kelutv::test {
namespace {

using FactoryFunction = ClientTest;

/** A function whose name has the module in small letters; the text of the item calls is "abc". */
struct SmallNamed {
    const char* name;
    int (*call)();
    Bytes request;
};

char gText[] = "abc";
int gValue = 0;

Bytes text(int item, int param) { return Wire::request(0x90C3).i32(item).i32(param).cstr("abc").i32(0).bytes(); }

TEST_F(FactoryFunction, elevenNamesHaveTheModuleInSmallLetters) {
    const SmallNamed functions[] = {
        {"enterIrWBAdj", [] { return linux_tv_factory_enterIrWBAdj(); }, requestOf(0xF04B)},
        {"getIRWBStatus", [] { return linux_tv_factory_getIRWBStatus(&gValue); }, requestOf(0x9090)},
        {"getEDIDType", [] { return linux_tv_factory_getEDIDType(&gValue); }, requestOf(0xF027)},
        {"setEDIDType", [] { return linux_tv_factory_setEDIDType(3); }, requestOf(0xF028, {3})},
        {"setLvdsPort", [] { return linux_tv_factory_setLvdsPort(4); }, requestOf(0x90C1, {36938, 4, 0, 0, 0})},
        {"getLvdsPort", [] { return linux_tv_factory_getLvdsPort(&gValue); }, requestOf(0x90C2, {36939, 0, 0})},
        {"setPanelSequence", [] { return linux_tv_factory_setPanelSequence(5, 6); },
         requestOf(0x90C1, {36940, 5, 6, 0, 0})},
        {"getPanelSequence", [] { return linux_tv_factory_getPanelSequence(7, &gValue); },
         requestOf(0x90C2, {36941, 7, 0})},
        {"copyPresetChannelDB2MW", [] { return linux_tv_factory_copyPresetChannelDB2MW(gText, 8); }, text(36945, 8)},
        {"copyPresetChannelDB2USB", [] { return linux_tv_factory_copyPresetChannelDB2USB(gText, 9); }, text(36944, 9)},
        {"presetChannel", [] { return linux_tv_factory_presetChannel(gText); }, text(36946, 0)},
    };
    FdCapture output(STDOUT_FILENO);
    answer({0, 0});
    for (const SmallNamed& function : functions) {
        EXPECT_EQ(function.call(), 0) << function.name;
        EXPECT_EQ(sent(), only(function.request)) << function.name;
    }
    output.take();
}

// irregular: linux_tv_factory_getIRWBStatus
TEST_F(FactoryFunction, theInfraredStatusIsReadInTwoWays) {
    int status = kUntouched;
    answer({0, 7});
    EXPECT_EQ(linux_tv_Factory_getIRWBStatus(), 7);
    EXPECT_EQ(sent(), only(requestOf(0x9090)));
    EXPECT_EQ(linux_tv_factory_getIRWBStatus(&status), 0);
    EXPECT_EQ(sent(), only(requestOf(0x9090)));
    EXPECT_EQ(status, 7);
    EXPECT_EQ(linux_tv_factory_getIRWBStatus(nullptr), 0);
    answer({3, 7});
    EXPECT_EQ(linux_tv_Factory_getIRWBStatus(), -1);
    EXPECT_EQ(linux_tv_factory_getIRWBStatus(&status), 0);
    EXPECT_EQ(status, -1);
}

// irregular: linux_tv_factory_getEDIDType
TEST_F(FactoryFunction, theIdentificationDataIsPrintedAsItIsRead) {
    int type = kUntouched;
    FdCapture output(STDOUT_FILENO);
    answer({0, 2});
    EXPECT_EQ(linux_tv_factory_getEDIDType(&type), 0);
    EXPECT_EQ(sent(), only(requestOf(0xF027)));
    EXPECT_EQ(type, 2);
    EXPECT_EQ(output.take(), "linux_tv_factory_getEDIDType = 2\n");
    answer({3, 2});
    EXPECT_EQ(linux_tv_factory_getEDIDType(&type), 0);
    EXPECT_EQ(type, -1);
    EXPECT_EQ(linux_tv_factory_getEDIDType(nullptr), 0);
    EXPECT_EQ(output.take(), "linux_tv_factory_getEDIDType = -1\nlinux_tv_factory_getEDIDType = -1\n");
}

// irregular: linux_tv_factory_setEDIDType
TEST_F(FactoryFunction, theIdentificationDataIsPrintedBeforeItIsSet) {
    FdCapture output(STDOUT_FILENO);
    answer({5});
    EXPECT_EQ(linux_tv_factory_setEDIDType(KELU_TV_EDID_TYPE_21_4K_8K), 5);
    EXPECT_EQ(sent(), only(requestOf(0xF028, {3})));
    EXPECT_EQ(output.take(), "linux_tv_factory_setEDIDType type = 3\n");
}

// irregular: linux_tv_Factory_setUartData
TEST_F(FactoryFunction, serialDataGoesOutBehindAPrintedLine) {
    FdCapture output(STDOUT_FILENO);
    answer({5});
    EXPECT_EQ(linux_tv_Factory_setUartData("AT"), 5);
    EXPECT_EQ(sent(), only(Wire::request(0xF02A).str16(u"AT").bytes()));
    EXPECT_EQ(output.take(), "setUartData\n");
    EXPECT_EQ(linux_tv_Factory_setUartData(nullptr), -1);
    EXPECT_EQ(output.take(), "setUartData\n");
    EXPECT_EQ(sent(), kNothingSent);
    EXPECT_EQ(logged(), untaggedError("setUartData pData is null"));
}

// irregular: linux_tv_Factory_ExDevInserted
TEST_F(FactoryFunction, anInsertedDeviceIsToldBehindAPrintedLine) {
    FdCapture output(STDOUT_FILENO);
    answer({0, 9});
    EXPECT_EQ(linux_tv_Factory_ExDevInserted("sda1"), 9);
    EXPECT_EQ(sent(), only(Wire::request(0x90CA).cstr("sda1").bytes()));
    EXPECT_EQ(output.take(), "linux_tv_Factory_ExDevInserted enter\n");
    EXPECT_EQ(linux_tv_Factory_ExDevInserted(nullptr), -1);
    EXPECT_EQ(output.take(), "linux_tv_Factory_ExDevInserted enter\n");
    EXPECT_EQ(sent(), kNothingSent);
}

// irregular: linux_tv_Factory_upgradeSystem
TEST_F(FactoryFunction, anUpgradeIsLoggedWithoutItsMode) {
    answer({5});
    EXPECT_EQ(linux_tv_Factory_upgradeSystem(77), 5);
    EXPECT_EQ(sent(), only(requestOf(0x905F, {77})));
    const std::vector<LogEntry> line{{ANDROID_LOG_ERROR, "TVBASEMW@linuxFactory", "d%\n"}};
    EXPECT_EQ(logged(), line);
}

// irregular: linux_tv_Factory_getEepromDate
TEST_F(FactoryFunction, theEepromDateGivesZeroAlways) {
    char date[16] = "xxxxxxxxxxxxxxx";
    service().reply(Wire::reply().i32(0).cstr("20240229").bytes());
    EXPECT_EQ(linux_tv_Factory_getEepromDate(date), 0);
    EXPECT_EQ(sent(), only(requestOf(0x9059)));
    EXPECT_STREQ(date, "20240229");
    answer({3});
    EXPECT_EQ(linux_tv_Factory_getEepromDate(date), 0);
    EXPECT_STREQ(date, "date error");
    logged();
    sent();
    EXPECT_EQ(linux_tv_Factory_getEepromDate(nullptr), 0);
    EXPECT_EQ(sent(), kNothingSent);
    EXPECT_EQ(logged(), untaggedError("getEepromDate buf is null"));
}

// irregular: linux_tv_Factory_getBarCode
TEST_F(FactoryFunction, theBarCodeGivesZeroAlways) {
    char code[16] = "xxxxxxxxxxxxxxx";
    service().reply(Wire::reply().i32(0).cstr("123456").bytes());
    EXPECT_EQ(linux_tv_Factory_getBarCode(code), 0);
    EXPECT_EQ(sent(), only(requestOf(0x905A)));
    EXPECT_STREQ(code, "123456");
    answer({3});
    EXPECT_EQ(linux_tv_Factory_getBarCode(code), 0);
    EXPECT_STREQ(code, "error barcode");
    sent();
    EXPECT_EQ(linux_tv_Factory_getBarCode(nullptr), 0);
    EXPECT_EQ(sent(), kNothingSent);
    EXPECT_EQ(logged(), untaggedError("getBarCode buf is null"));
}

TEST_F(FactoryFunction, theColourTemperatureReportTakesTheNumberFirst) {
    char report[16] = "untouched";
    service().reply(Wire::reply().i32(0).cstr("report").bytes());
    EXPECT_EQ(getAutoColorTempDebugInfo(4, report), 0);
    EXPECT_EQ(sent(), only(requestOf(0x9084, {4})));
    EXPECT_STREQ(report, "report");
    EXPECT_EQ(getAutoColorTempDebugInfo(4, nullptr), -1);
    EXPECT_EQ(sent(), kNothingSent);
    EXPECT_EQ(logged(), untaggedError("getAutoColorTempDebugInfo buf is null"));
}

TEST_F(FactoryFunction, networkDataIsReadByTypeAndThenLength) {
    std::array<int, 4> data{};
    data.fill(kUntouched);
    answer({0, 71, 72, 73, 74});
    EXPECT_EQ(linux_tv_Factory_getNetPortDataTransmission(6, 3, data.data()), 0);
    EXPECT_EQ(sent(), only(requestOf(0x908D, {6, 3})));
    EXPECT_EQ(data, (std::array<int, 4>{71, 72, 73, kUntouched}));
    EXPECT_EQ(linux_tv_Factory_getNetPortDataTransmission(6, 3, nullptr), -1);
    EXPECT_EQ(sent(), kNothingSent);
    EXPECT_EQ(logged(), kNothingLogged);
}

TEST_F(FactoryFunction, theMemorySpreadIsSwitched) {
    answer({5});
    EXPECT_EQ(linux_tv_Factory_enableDdrSpread(true), 5);
    EXPECT_EQ(sent(), only(requestOf(0x9018, {1})));
}

/** A function that gives 1 for every value of the service but 0. */
struct Normalised {
    int command;
    int (*function)();
};

TEST_F(FactoryFunction, answersAreMadeOneOrZero) {
    const Normalised functions[] = {
        {0x904E, linux_tv_Factory_getPanelIntfOutEnable}, {0x900F, linux_tv_Factory_getPanelSpreadEnable},
        {0x9019, linux_tv_Factory_isDdrSpreadEnable},     {0x9025, linux_tv_Factory_isAgingModeEnable},
        {0x9051, linux_tv_Factory_isATVIniChnEnable},     {0x9031, linux_tv_Factory_isWdtEnable},
        {0x9033, linux_tv_Factory_isUartEnable},          {0x9043, linux_tv_Factory_isPowerMusicEnable},
        {0x907F, linux_tv_Factory_getRepairedBoard},      {0x908F, linux_tv_Factory_isSupportSocWhiteBalancePattern},
        {0x90A1, linux_tv_Factory_isSupportRouter},       {0x90A2, linux_tv_Factory_isSupportCableModem},
        {0x90A3, linux_tv_Factory_isSupportWifi},         {0x90A7, linux_tv_Factory_isSupportEOC},
        {0x90B6, linux_tv_Factory_getLaserEyeShieldMode},
    };
    for (const Normalised& each : functions) {
        answer({0, 7});
        EXPECT_EQ(each.function(), 1) << each.command;
        EXPECT_EQ(sent(), only(requestOf(each.command)));
        answer({0, 0});
        EXPECT_EQ(each.function(), 0) << each.command;
        answer({3, 0});
        EXPECT_EQ(each.function(), 1) << each.command;
        sent();
    }
}

TEST_F(FactoryFunction, anExternalChipIsThereOrNot) {
    answer({0, -7});
    EXPECT_EQ(linux_tv_Factory_isSupportExternChip(2), 1);
    EXPECT_EQ(sent(), only(requestOf(0x90BF, {2})));
    answer({0, 0});
    EXPECT_EQ(linux_tv_Factory_isSupportExternChip(2), 0);
}

TEST_F(FactoryFunction, theOverdriveTableThatCannotBeSetGivesOne) {
    answer({0});
    EXPECT_EQ(linux_tv_Factory_setLineODIndex(4), 0);
    EXPECT_EQ(sent(), only(requestOf(0x909B, {4})));
    answer({-5});
    EXPECT_EQ(linux_tv_Factory_setLineODIndex(4), 1);
}

/** A row of the white balance patterns. */
struct Pattern {
    int type;
    int onoff;
    int red;
    int green;
    int blue;
};

// irregular: linux_tv_Factory_setWBWhitePattern, linux_tv_Factory_getWBWhitePattern
TEST_F(FactoryFunction, aWhiteBalancePatternIsAFixedColour) {
    constexpr Pattern kPatterns[] = {
        {12, 1, 0, 0, 0},      {11, 1, 0, 0, 255},    {10, 1, 0, 255, 0},    {9, 1, 255, 0, 0},
        {8, 1, 255, 255, 255}, {7, 1, 230, 230, 230}, {6, 1, 204, 204, 204}, {5, 1, 178, 178, 178},
        {4, 1, 153, 153, 153}, {3, 1, 127, 127, 127}, {2, 1, 63, 63, 63},    {1, 1, 51, 51, 51},
        {0, 0, 0, 0, 0},
    };
    answer({5});
    for (const Pattern& pattern : kPatterns) {
        EXPECT_EQ(linux_tv_Factory_setWBWhitePattern(pattern.type), 5);
        EXPECT_EQ(sent(), only(requestOf(0x908C, {pattern.onoff, pattern.red, pattern.green, pattern.blue})));
        EXPECT_EQ(linux_tv_Factory_getWBWhitePattern(), pattern.type);
    }
    EXPECT_EQ(sent(), kNothingSent);
}

TEST_F(FactoryFunction, anUnknownWhiteBalancePatternIsPrintedAndForgotten) {
    FdCapture output(STDOUT_FILENO);
    linux_tv_Factory_setWBWhitePattern(9);
    sent();
    for (const int type : {13, -1, 1000}) {
        EXPECT_EQ(linux_tv_Factory_setWBWhitePattern(type), 0);
        EXPECT_EQ(output.take(), "unhandled cmd type = " + std::to_string(type));
        EXPECT_EQ(linux_tv_Factory_getWBWhitePattern(), 9);
    }
    EXPECT_EQ(sent(), kNothingSent);
}

class OverdriveTable : public ClientTest {
protected:
    OverdriveTable() { std::memset(records, 'x', sizeof records); }

    /** The names that answer. */
    void answerNames(const std::vector<std::string>& names) {
        Wire reply = Wire::reply().i32(0);
        for (const std::string& name : names) {
            reply.cstr(name.c_str());
        }
        service().reply(reply.bytes());
    }

    const char* record(int index) const { return reinterpret_cast<const char*>(records) + 90 * index; }
    std::string start(int index, std::size_t length) const { return {record(index), length}; }

    BOE_OD_TableInfo records[10];
};

// irregular: linux_tv_Factory_getLineODListTable
TEST_F(OverdriveTable, holdsEachNameInARecordOfItsOwn) {
    answerNames({"first", "second", "third"});
    EXPECT_EQ(linux_tv_Factory_getLineODListTable(records), 0);
    EXPECT_EQ(sent(), only(requestOf(0x909D)));
    EXPECT_EQ(start(0, 90), "first" + std::string(85, '\0'));
    EXPECT_EQ(start(1, 90), "second" + std::string(84, 'x'));
    EXPECT_EQ(start(2, 90), "third" + std::string(85, 'x'));
    EXPECT_EQ(start(3, 90), std::string(90, 'x'));
}

TEST_F(OverdriveTable, cutsANameToTenBytesWithoutATerminator) {
    answerNames({"abcdefghijklmno", "0123456789", ""});
    EXPECT_EQ(linux_tv_Factory_getLineODListTable(records), 0);
    EXPECT_EQ(start(0, 12), "abcdefghij" + std::string(2, '\0'));
    EXPECT_EQ(start(1, 12), "0123456789xx");
    EXPECT_EQ(start(2, 2), "xx");
}

TEST_F(OverdriveTable, holdsNineNamesAtMost) {
    answerNames({"a", "b", "c", "d", "e", "f", "g", "h", "i", "j", "k", "l"});
    EXPECT_EQ(linux_tv_Factory_getLineODListTable(records), 0);
    EXPECT_EQ(start(8, 2), "ix");
    EXPECT_EQ(start(9, 90), std::string(90, 'x'));
}

TEST_F(OverdriveTable, isUntouchedWithoutANameOrAfterAFailure) {
    answer({0});
    EXPECT_EQ(linux_tv_Factory_getLineODListTable(records), -1);
    service().reply(Wire::reply().i32(3).cstr("first").bytes());
    EXPECT_EQ(linux_tv_Factory_getLineODListTable(records), -1);
    EXPECT_EQ(start(0, 90), std::string(90, 'x'));
}

TEST_F(OverdriveTable, mayHaveNoPlace) {
    answerNames({"first"});
    EXPECT_EQ(linux_tv_Factory_getLineODListTable(nullptr), 0);
    answer({0});
    EXPECT_EQ(linux_tv_Factory_getLineODListTable(nullptr), -1);
}

// irregular: linux_tv_Factory_getBurnKeyType
TEST_F(FactoryFunction, theKindsOfKeyOfAFolderAreListed) {
    std::array<int, 4> kinds{};
    kinds.fill(kUntouched);
    int count = kUntouched;
    answer({0, 5, 3, 18});
    EXPECT_EQ(linux_tv_Factory_getBurnKeyType("/mnt", kinds.data(), &count), 0);
    EXPECT_EQ(sent(), only(Wire::request(0x90C9).cstr("/mnt").bytes()));
    EXPECT_EQ(count, 3);
    EXPECT_EQ(kinds, (std::array<int, 4>{5, 3, 18, kUntouched}));
    for (const int status : {0, 3}) {
        count = kUntouched;
        answer({status});
        EXPECT_EQ(linux_tv_Factory_getBurnKeyType("/mnt", kinds.data(), &count), -1);
        EXPECT_EQ(count, 0);
        EXPECT_EQ(kinds[0], 5);
    }
}

TEST_F(FactoryFunction, theKindsOfKeyNeedEveryPointer) {
    const std::string told = "get tv BurnKeyType fail,path is null,return -1";
    int kind = kUntouched;
    int count = kUntouched;
    FdCapture output(STDOUT_FILENO);
    EXPECT_EQ(linux_tv_Factory_getBurnKeyType(nullptr, &kind, &count), -1);
    EXPECT_EQ(output.take(), told);
    EXPECT_EQ(linux_tv_Factory_getBurnKeyType("/mnt", nullptr, &count), -1);
    EXPECT_EQ(output.take(), told);
    EXPECT_EQ(linux_tv_Factory_getBurnKeyType("/mnt", &kind, nullptr), -1);
    EXPECT_EQ(output.take(), told);
    EXPECT_EQ(count, kUntouched);
    EXPECT_EQ(sent(), kNothingSent);
    EXPECT_EQ(logged(), kNothingLogged);
}

} // namespace
} // namespace kelutv::test
