#include "client/ClientTest.h"

#include <kelutv/linux_kelutv_factory.h>

#include <array>
#include <cstring>

namespace kelutv::test {
namespace {

using FactoryRecord = ClientTest;

/** The words of a record, which are all of its bytes. */
template <std::size_t Count, typename Record> std::array<std::int32_t, Count> words(const Record& record) {
    std::array<std::int32_t, Count> all{};
    static_assert(sizeof all == sizeof record);
    std::memcpy(all.data(), &record, sizeof record);
    return all;
}

/** Reads three times into the record: an answer of 1 to 12, the service's error, and without a record. */
template <std::size_t Count, typename Record, typename Read>
void expectRecord(ScriptedService& service, const Bytes& request, Read read) {
    Record record;
    std::memset(&record, 0x5A, sizeof record);
    service.reply(replyOf({0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}));
    EXPECT_EQ(read(&record), 0);
    EXPECT_EQ(hex(service.takeRequests().front()), hex(request));
    for (std::size_t i = 0; i < Count; ++i) {
        EXPECT_EQ(words<Count>(record)[i], static_cast<std::int32_t>(i) + 1);
    }
    service.reply(replyOf({3, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}));
    EXPECT_EQ(read(&record), 0);
    EXPECT_EQ(words<Count>(record), (std::array<std::int32_t, Count>{}));
    service.takeRequests();
    EXPECT_EQ(read(static_cast<Record*>(nullptr)), -1);
    EXPECT_TRUE(service.takeRequests().empty());
}

// irregular: linux_tv_Factory_getADCGainOffset
TEST_F(FactoryRecord, ofTheConverterIsZeroAfterAFailure) {
    expectRecord<6, CalibrationInfo>(service(), requestOf(0x9005, {11}), [](CalibrationInfo* record) {
        return linux_tv_Factory_getADCGainOffset(11, record);
    });
}

// irregular: linux_tv_Factory_getColorTemp
TEST_F(FactoryRecord, ofTheColourTemperatureIsZeroAfterAFailure) {
    expectRecord<6, ColorTempData>(service(), requestOf(0x9007, {12}),
                                   [](ColorTempData* record) { return linux_tv_Factory_getColorTemp(12, record); });
}

// irregular: linux_tv_Factory_getNLAPoint
TEST_F(FactoryRecord, ofACurveStandsBetweenTheNumbers) {
    expectRecord<5, NlaInfo>(service(), requestOf(0x900A, {13, 9}), [](NlaInfo* record) {
        return linux_tv_Factory_getNLAPoint(13, record, KELU_TV_SRC_HDMI1);
    });
}

// irregular: linux_tv_Factory_getOverscan
TEST_F(FactoryRecord, ofTheOverscanIsZeroAfterAFailure) {
    expectRecord<4, KeluRect>(service(), requestOf(0x900C),
                              [](KeluRect* record) { return linux_tv_Factory_getOverscan(record); });
}

// irregular: linux_tv_Factory_getSoundPEQ
TEST_F(FactoryRecord, ofTheEqualiserIsZeroAfterAFailure) {
    expectRecord<12, SoundPeqData>(service(), requestOf(0x9062),
                                   [](SoundPeqData* record) { return linux_tv_Factory_getSoundPEQ(record); });
}

struct Refusal {
    const char* name;
    int (*call)();
};

char gText[64];
double gNumber = 0;

TEST_F(ClientTest, factoryFunctionsRefuseNullUnloggedAndSendNothing) {
    const Refusal refusals[] = {
        {"getEmmcID", [] { return linux_tv_Factory_getEmmcID(nullptr); }},
        {"getSocChipID", [] { return linux_tv_Factory_getSocChipID(nullptr); }},
        {"getInnerTconVersion", [] { return linux_tv_Factory_getInnerTconVersion(nullptr); }},
        {"getExternalMemcVersion", [] { return linux_tv_Factory_getExternalMemcVersion(nullptr); }},
        {"getPanelPQVersion", [] { return linux_tv_Factory_getPanelPQVersion(nullptr); }},
        {"getNetPortDataTransmission", [] { return linux_tv_Factory_getNetPortDataTransmission(1, 2, nullptr); }},
        {"startRecorderTsStream", [] { return linux_tv_Factory_startRecorderTsStream(nullptr); }},
        {"operateFlashEEPROM", [] { return linux_tv_Factory_operateFlashEEPROM(0, nullptr); }},
        {"getPanelDataVersion", [] { return linux_tv_Factory_getPanelDataVersion(nullptr); }},
        {"getUDiskNum", [] { return linux_tv_Factory_getUDiskNum(nullptr); }},
        {"getSystemupTime", [] { return linux_tv_Factory_getSystemupTime(nullptr); }},
        {"setInternetTime", [] { return linux_tv_Factory_setInternetTime(nullptr); }},
        {"getInternetTime", [] { return linux_tv_Factory_getInternetTime(nullptr); }},
        {"getPlatFormSupportUsbNum", [] { return linux_tv_Factory_getPlatFormSupportUsbNum(nullptr); }},
        {"getBurnKeyStatus", [] { return linux_tv_Factory_getBurnKeyStatus(nullptr); }},
        {"getDtvSn", [] { return linux_tv_Factory_getDtvSn(1, nullptr); }},
        {"getNTPQPlatFormVer", [] { return linux_tv_Factory_getNTPQPlatFormVer(nullptr); }},
        {"getLaserFWVersion", [] { return linux_tv_Factory_getLaserFWVersion(1, nullptr); }},
        {"getLaserItemValue", [] { return linux_tv_Factory_getLaserItemValue(1, 2, nullptr); }},
        {"getEP9169PlatFormVer", [] { return linux_tv_Factory_getEP9169PlatFormVer(nullptr); }},
        {"upgradeEP9169IC", [] { return linux_tv_Factory_upgradeEP9169IC(nullptr); }},
        {"setLaserItemStringValue", [] { return linux_tv_Factory_setLaserItemStringValue(1, 2, nullptr); }},
        {"setFactoryItemStrValue", [] { return linux_tv_Factory_setFactoryItemStrValue(1, 2, 3, nullptr); }},
        {"getFactoryItemStrValue", [] { return linux_tv_Factory_getFactoryItemStrValue(1, 2, 3, nullptr); }},
        {"getFactoryItemValue", [] { return linux_tv_Factory_getFactoryItemValue(1, 2, 3, nullptr); }},
        {"getSoundCurve", [] { return linux_tv_Factory_getSoundCurve(nullptr, 1); }},
        {"setSoundCurve", [] { return linux_tv_Factory_setSoundCurve(nullptr, 1); }},
        {"setStbOtpBurn without data", [] { return linux_tv_Factory_setStbOtpBurn(0, nullptr, gText); }},
        {"setStbOtpBurn without a place", [] { return linux_tv_Factory_setStbOtpBurn(0, "abc", nullptr); }},
        {"upgradeNTPQIC", [] { return linux_tv_Factory_upgradeNTPQIC(1, nullptr); }},
    };
    for (const Refusal& refusal : refusals) {
        EXPECT_EQ(refusal.call(), -1) << refusal.name;
        EXPECT_EQ(sent(), kNothingSent) << refusal.name;
        EXPECT_EQ(logged(), kNothingLogged) << refusal.name;
    }
}

TEST_F(ClientTest, factoryFunctionsWithoutACheckLeaveItToTheClass) {
    EXPECT_EQ(linux_tv_Factory_getPanelID(nullptr), -1);
    EXPECT_EQ(logged(), untaggedError("getPanelID buf is null"));
    EXPECT_EQ(linux_tv_Factory_getPlatform(nullptr), -1);
    EXPECT_EQ(logged(), untaggedError("getPlatform buf is null"));
    EXPECT_EQ(linux_tv_Factory_getMacAddress(nullptr), -1);
    EXPECT_EQ(logged(), untaggedError("getMacAddress buf is null"));
    EXPECT_EQ(sent(), kNothingSent);
}

TEST_F(ClientTest, factoryFunctionsWithACheckForwardWhatTheyAreGiven) {
    service().reply(Wire::reply().i32(0).cstr("abc").bytes());
    EXPECT_EQ(linux_tv_Factory_getFactoryItemStrValue(11, 12, 13, gText), 0);
    EXPECT_EQ(sent(), only(requestOf(0x90C4, {11, 12, 13})));
    EXPECT_STREQ(gText, "abc");
    EXPECT_EQ(linux_tv_Factory_getLaserFWVersion(14, gText), 0);
    EXPECT_EQ(sent(), only(requestOf(0x90B7, {14})));
    answer({5});
    EXPECT_EQ(linux_tv_Factory_setFactoryItemStrValue(11, 12, 13, "abc"), 5);
    EXPECT_EQ(sent(), only(Wire::request(0x90C3).i32(11).i32(12).cstr("abc").i32(13).bytes()));
    EXPECT_EQ(linux_tv_Factory_setLaserItemStringValue(11, 12, "abc"), 5);
    EXPECT_EQ(sent(), only(Wire::request(0x90C0).i32(11).i32(12).cstr("abc").bytes()));
    EXPECT_EQ(linux_tv_Factory_operateFlashEEPROM(KELU_TV_EEFLASH_PART, "abc"), 5);
    EXPECT_EQ(sent(), only(Wire::request(0x908B).i32(1).cstr("abc").bytes()));
    EXPECT_EQ(linux_tv_Factory_upgradeNTPQIC(15, "abc"), 5);
    EXPECT_EQ(sent(), only(Wire::request(0x90AF).i32(15).cstr("abc").bytes()));
    gNumber = -2.5;
    EXPECT_EQ(linux_tv_Factory_setSoundCurve(&gNumber, 1), 5);
    EXPECT_EQ(sent(), only(Wire::request(0x9061).i32(1).f64(-2.5).bytes()));
}

} // namespace
} // namespace kelutv::test
