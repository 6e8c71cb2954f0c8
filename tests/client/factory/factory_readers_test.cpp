#include "client/ClientTest.h"
#include "client/factory/TheFactory.h"

#include <array>
#include <cstring>
#include <functional>
#include <string>

namespace kelutv::test {
namespace {

Bytes textReply(const char* text) { return Wire::reply().i32(0).cstr(text).bytes(); }

const Bytes kFailure = Wire::reply().i32(3).cstr("ignored").bytes();
const Bytes kNoText = replyOf({0});
const Bytes kTextWithoutEnd = Wire::reply().i32(0).raw("abcd", 4).bytes();

std::vector<LogEntry> loggedOnce(const char* text) { return text == nullptr ? kNothingLogged : untaggedError(text); }

using Text = std::array<char, 64>;

/** A buffer full of one character, but for its end. */
Text filledWith(char character) {
    Text text;
    text.fill(character);
    text.back() = '\0';
    return text;
}

/** The characters that were put over an 'x'-filled buffer, before the first x that is left. */
std::string writtenOver(const Text& text) {
    std::size_t end = text.size() - 1;
    while (end > 0 && text[end - 1] == 'x') {
        --end;
    }
    return std::string(text.data(), end);
}

/** A reader that leaves a text of its own where the service has none. */
struct Reader {
    const char* name;
    Bytes request;
    int (*read)(char* text);
    const char* standIn;
    bool terminated;
    const char* logOfFailure = nullptr;
    const char* logOfMissing = nullptr;
};

void PrintTo(const Reader& reader, std::ostream* out) { *out << reader.name; }

class FactoryText : public ClientTest, public ::testing::WithParamInterface<Reader> {
protected:
    std::string standIn() const {
        return std::string(GetParam().standIn) + (GetParam().terminated ? std::string(1, '\0') : "");
    }

    /** Both the result and the bytes put down for one answer. */
    void expectStandIn(const Bytes& answer, const char* line) {
        service().reply(answer);
        Text text = filledWith('x');
        EXPECT_EQ(GetParam().read(text.data()), 0);
        EXPECT_EQ(writtenOver(text), standIn());
        EXPECT_EQ(logged(), loggedOnce(line));
        Text zeroed = filledWith('\0');
        EXPECT_EQ(GetParam().read(zeroed.data()), 0);
        EXPECT_STREQ(zeroed.data(), GetParam().standIn);
        EXPECT_EQ(logged(), loggedOnce(line));
    }
};

// irregular: Factory::getPlatform
// irregular: Factory::getEepromDate
TEST_P(FactoryText, isCopiedWithItsEnd) {
    service().reply(textReply("some text"));
    Text text = filledWith('x');
    EXPECT_EQ(GetParam().read(text.data()), 0);
    EXPECT_EQ(sent(), only(GetParam().request));
    EXPECT_EQ(writtenOver(text), std::string("some text") + '\0');
    service().reply(textReply(""));
    text = filledWith('x');
    EXPECT_EQ(GetParam().read(text.data()), 0);
    EXPECT_EQ(writtenOver(text), std::string(1, '\0'));
}

TEST_P(FactoryText, standsInForAFailure) { expectStandIn(kFailure, GetParam().logOfFailure); }

TEST_P(FactoryText, standsInForAMissingText) {
    expectStandIn(kNoText, GetParam().logOfMissing);
    expectStandIn(kTextWithoutEnd, GetParam().logOfMissing);
}

const Reader kReaders[] = {
    {"platform", requestOf(0x9067), [](char* text) { return factory().getPlatform(text); }, "default", true,
     "getPlatform return error,use default", "getPlatform return null,use default"},
    {"eepromDate", requestOf(0x9059), [](char* text) { return factory().getEepromDate(text); }, "date error", true,
     "getEepromDate,return error,return data error", "getEepromDate,return buf is null,return data error"},
    {"barCode", requestOf(0x905A), [](char* text) { return factory().getBarCode(text); }, "error barcode", true},
    {"panelID", requestOf(0x905B), [](char* text) { return factory().getPanelID(text); }, "error panelId", true},
    {"macAddress", requestOf(0x905C), [](char* text) { return factory().getMacAddress(text); }, "error mac", true},
    {"emmcID", requestOf(0x906E), [](char* text) { return factory().getEmmcID(text); }, "error_emmc_id", false},
    {"socChipID", requestOf(0x906F), [](char* text) { return factory().getSocChipID(text); }, "error_chip_id", false},
    {"innerTconVersion", requestOf(0x9076), [](char* text) { return factory().getInnerTconVersion(text); },
     "error_inner_tcon_ver", false},
    {"externalMemcVersion", requestOf(0x9077), [](char* text) { return factory().getExternalMemcVersion(text); },
     "error_external_memc_ver", false},
    {"panelPQVersion", requestOf(0x9078), [](char* text) { return factory().getPanelPQVersion(text); },
     "error_panel_pq_ver", false},
    {"panelDataVersion", requestOf(0x908E), [](char* text) { return factory().getPanelDataVersion(text); },
     "error_external_panel_ver", false},
    {"internetTime", requestOf(0x9095), [](char* text) { return factory().getInternetTime(text); }, "19700101", false},
    {"laserFWVersion", requestOf(0x90B7, {6}), [](char* text) { return factory().getLaserFWVersion(6, text); }, "error",
     false},
};

INSTANTIATE_TEST_SUITE_P(Factory, FactoryText, ::testing::ValuesIn(kReaders),
                         [](const auto& each) { return std::string(each.param.name); });

/** A call that refuses null with a message of its own and sends nothing. */
struct Refusal {
    const char* name;
    std::function<int()> call;
    const char* message;
};

void PrintTo(const Refusal& refusal, std::ostream* out) { *out << refusal.name; }

class FactoryNull : public ClientTest, public ::testing::WithParamInterface<Refusal> {};

TEST_P(FactoryNull, isRefusedInItsOwnWords) {
    EXPECT_EQ(GetParam().call(), -1);
    EXPECT_EQ(logged(), untaggedError(GetParam().message));
    EXPECT_EQ(sent(), kNothingSent);
}

int gValue;

const Refusal kRefusals[] = {
    {"getPlatform", [] { return factory().getPlatform(nullptr); }, "getPlatform buf is null"},
    {"getEepromDate", [] { return factory().getEepromDate(nullptr); }, "getEepromDate buf is null"},
    {"getBarCode", [] { return factory().getBarCode(nullptr); }, "getBarCode buf is null"},
    {"getPanelID", [] { return factory().getPanelID(nullptr); }, "getPanelID buf is null"},
    {"getMacAddress", [] { return factory().getMacAddress(nullptr); }, "getMacAddress buf is null"},
    {"getEmmcID", [] { return factory().getEmmcID(nullptr); }, "getEmmcID buf is null"},
    {"getSocChipID", [] { return factory().getSocChipID(nullptr); }, "getSocChipID buf is null"},
    {"getInnerTconVersion", [] { return factory().getInnerTconVersion(nullptr); }, "getInnerTconVersion buf is null"},
    {"getExternalMemcVersion", [] { return factory().getExternalMemcVersion(nullptr); },
     "getExternalMemcVersion buf is null"},
    {"getPanelPQVersion", [] { return factory().getPanelPQVersion(nullptr); }, "getPanelPQVersion buf is null"},
    {"getPanelDataVersion", [] { return factory().getPanelDataVersion(nullptr); }, "getPanelDataVersion buf is null"},
    {"getInternetTime", [] { return factory().getInternetTime(nullptr); }, "getInternetTime buf is null"},
    {"getAutoColorTempDebugInfo", [] { return factory().getAutoColorTempDebugInfo(nullptr, 1); },
     "getAutoColorTempDebugInfo buf is null"},
    {"getFactoryItemStrValue", [] { return factory().getFactoryItemStrValue(1, 2, 3, nullptr); },
     "getSystemItemStrValue input buf is null"},
    {"getFactoryItemValue", [] { return factory().getFactoryItemValue(1, 2, 3, nullptr); },
     "getFactoryItemValue pData buf is null"},
    {"getNTPQPlatFormVer", [] { return factory().getNTPQPlatFormVer(nullptr); }, "getNTPQPlatFormVer Data buf is null"},
    {"getEP9169PlatFormVer", [] { return factory().getEP9169PlatFormVer(nullptr); },
     "getNTPQPlatFormVer Data buf is null"},
    {"getUDiskNum", [] { return factory().getUDiskNum(nullptr); }, "getUDiskNum input buf is null"},
    {"getSystemupTime", [] { return factory().getSystemupTime(nullptr); }, "getMicroDimmingData input buf is null"},
    {"getPlatFormSupportUsbNum", [] { return factory().getPlatFormSupportUsbNum(nullptr); },
     "getPlatFormSupportUsbNum input buf is null"},
    {"getBurnKeyStatus", [] { return factory().getBurnKeyStatus(nullptr); }, "getBurnKeyStatus input buf is null"},
    {"getLaserItemValue", [] { return factory().getLaserItemValue(1, 2, nullptr); },
     "getLaserItemValue input buf is null"},
    {"getNetPortDataTransmission", [] { return factory().getNetPortDataTransmission(1, nullptr, 2); },
     "getMicroDimmingData input buf is null"},
    {"getSoundCurve", [] { return factory().getSoundCurve(nullptr, 2); }, "getSoundCurve pData is NULL"},
    {"setSoundCurve", [] { return factory().setSoundCurve(nullptr, 2); }, "setSoundCurve info is NULL"},
    {"soundCurvePoints", [] { return factory().getSoundCurveCtlData(nullptr, &gValue); },
     "soundCurveCtlData or volumeNum is null"},
    {"soundCurveCount", [] { return factory().getSoundCurveCtlData(&gValue, nullptr); },
     "soundCurveCtlData or volumeNum is null"},
    {"headPhonePoints", [] { return factory().getHeadPhoneSoundCurveCtlData(nullptr, &gValue); },
     "soundCurveCtlData or volumeNum is null"},
    {"headPhoneCount", [] { return factory().getHeadPhoneSoundCurveCtlData(&gValue, nullptr); },
     "soundCurveCtlData or volumeNum is null"},
    {"setUartData", [] { return factory().setUartData(nullptr); }, "setUartData pData is null"},
    {"exDevInserted", [] { return factory().exDevInserted(nullptr); }, "exDevInserted pData is null"},
    {"getBurnKeyType", [] { return factory().getBurnKeyType(nullptr).empty() ? -1 : 0; },
     "getBurnKeyType path is null"},
};

INSTANTIATE_TEST_SUITE_P(Factory, FactoryNull, ::testing::ValuesIn(kRefusals),
                         [](const auto& each) { return std::string(each.param.name); });

class FactoryReader : public ClientTest {
protected:
    Text text = filledWith('x');
};

// irregular: Factory::getInternetTime
TEST_F(FactoryReader, internetTimeIsLoggedWhenItWasRead) {
    service().reply(textReply("20261121"));
    EXPECT_EQ(factory().getInternetTime(text.data()), 0);
    EXPECT_STREQ(text.data(), "20261121");
    EXPECT_EQ(logged(), untaggedError("getInternetTime 20261121"));
}

// irregular: Factory::getLaserFWVersion
TEST_F(FactoryReader, laserVersionIsReadForNobody) {
    for (const Bytes& reply : {textReply("1.2"), kNoText, kFailure}) {
        service().reply(reply);
        EXPECT_EQ(factory().getLaserFWVersion(6, nullptr), 0);
        EXPECT_EQ(sent(), only(requestOf(0x90B7, {6})));
        EXPECT_EQ(logged(), kNothingLogged);
    }
}

// irregular: Factory::getAutoColorTempDebugInfo
TEST_F(FactoryReader, debugInfoHasNoStandIn) {
    service().reply(textReply("report"));
    EXPECT_EQ(factory().getAutoColorTempDebugInfo(text.data(), 2), 0);
    EXPECT_EQ(sent(), only(requestOf(0x9084, {2})));
    EXPECT_EQ(writtenOver(text), std::string("report") + '\0');
    EXPECT_EQ(logged(), kNothingLogged);
    text = filledWith('x');
    service().reply(kFailure);
    EXPECT_EQ(factory().getAutoColorTempDebugInfo(text.data(), 2), -1);
    EXPECT_EQ(logged(), untaggedError("getAutoColorTempDebugInfo return error"));
    service().reply(kNoText);
    EXPECT_EQ(factory().getAutoColorTempDebugInfo(text.data(), 2), -1);
    EXPECT_EQ(logged(), untaggedError("getAutoColorTempDebugInfo return null"));
    EXPECT_EQ(writtenOver(text), "");
}

// irregular: Factory::getFactoryItemStrValue
TEST_F(FactoryReader, textItemHasNoStandIn) {
    service().reply(textReply("value"));
    EXPECT_EQ(factory().getFactoryItemStrValue(11, 12, 13, text.data()), 0);
    EXPECT_EQ(sent(), only(requestOf(0x90C4, {11, 12, 13})));
    EXPECT_EQ(writtenOver(text), std::string("value") + '\0');
    text = filledWith('x');
    for (const Bytes& reply : {kFailure, kNoText}) {
        service().reply(reply);
        EXPECT_EQ(factory().getFactoryItemStrValue(11, 12, 13, text.data()), -1);
        EXPECT_EQ(logged(), untaggedError("getSystemItemStrValue error"));
    }
    EXPECT_EQ(writtenOver(text), "");
}

TEST_F(FactoryReader, versionsOfTheChipsAreTextItems) {
    service().reply(textReply("4.5.5"));
    EXPECT_EQ(factory().get455Version(text.data()), 0);
    EXPECT_EQ(sent(), only(requestOf(0x90C4, {36865, 0, 0})));
    EXPECT_STREQ(text.data(), "4.5.5");
    EXPECT_EQ(factory().get457Version(text.data()), 0);
    EXPECT_EQ(sent(), only(requestOf(0x90C4, {36866, 0, 0})));
    EXPECT_EQ(factory().get457Version(nullptr), -1);
    EXPECT_EQ(logged(), untaggedError("getSystemItemStrValue input buf is null"));
    EXPECT_EQ(sent(), kNothingSent);
}

// irregular: Factory::getNTPQPlatFormVer
// irregular: Factory::getEP9169PlatFormVer
TEST_F(FactoryReader, chipVersionsSucceedWithoutAText) {
    const struct {
        int (*read)(char* text);
        Bytes request;
    } versions[] = {{[](char* out) { return factory().getNTPQPlatFormVer(out); }, requestOf(0x90AE)},
                    {[](char* out) { return factory().getEP9169PlatFormVer(out); }, requestOf(0x90BD)}};
    for (const auto& version : versions) {
        service().reply(textReply("7.8"));
        text = filledWith('x');
        EXPECT_EQ(version.read(text.data()), 0);
        EXPECT_EQ(sent(), only(version.request));
        EXPECT_EQ(writtenOver(text), std::string("7.8") + '\0');
        text = filledWith('x');
        service().reply(kNoText);
        EXPECT_EQ(version.read(text.data()), 0);
        service().reply(kFailure);
        EXPECT_EQ(version.read(text.data()), -1);
        EXPECT_EQ(writtenOver(text), "");
        EXPECT_EQ(logged(), kNothingLogged);
        sent();
    }
}

} // namespace
} // namespace kelutv::test
