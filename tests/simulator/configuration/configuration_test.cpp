// What configurations come to, and what is wrong with those that are refused.

#include "simulator/configuration/Configuration.h"
#include "support/RuntimeDir.h"
#include "wire/text/Nearest.h"

#include <kelutv/kelutv.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <fstream>
#include <ostream>
#include <string>

namespace kelutv::simulator {

namespace {

using kelutv::test::RuntimeDir;

constexpr char kVolume[] = "audio.volume";
constexpr char kStatus[] = "sourcemanager.signalStatus";
constexpr char kTiming[] = "sourcemanager.timingInfo";
constexpr char kStreamType[] = "picture.hdrStreamType";

wire::Values numbers(std::initializer_list<std::int32_t> values) { return {values.begin(), values.end()}; }

class ConfigurationFile : public ::testing::Test {
protected:
    std::string write(const std::string& text) const {
        std::ofstream(mPath) << text;
        return mPath;
    }

    Configuration read(const std::string& text) const { return Configuration::fromFile(write(text)); }

    static const StateSettings& settings(const Configuration& configuration, const char* state) {
        return configuration.settings(*wire::findState(state));
    }

    const RuntimeDir mFolder;
    const std::string mPath = mFolder.path() + "/config.json";
};

TEST_F(ConfigurationFile, ChangesWhatItNamesAndNothingElse) {
    const Configuration changed = read(R"({"audio": {"volume": {"initial": 35}}})");
    EXPECT_EQ(settings(changed, kVolume).initial, numbers({35}));
    EXPECT_EQ(settings(changed, kVolume).range->high, 100);
    EXPECT_EQ(settings(changed, kVolume).event, 0x60001U);
    const Configuration standard = Configuration::standard();
    EXPECT_EQ(settings(standard, kVolume).initial, numbers({20}));
    EXPECT_EQ(changed.sources().size(), standard.sources().size());
    EXPECT_EQ(changed.cecDevices().size(), standard.cecDevices().size());
}

TEST_F(ConfigurationFile, TakesAwayWithNull) {
    const Configuration changed = read(R"({"audio": {"volume": {"range": null, "event": null}, "maxVolume": null},
                                           "sources": {"KELU_TV_SRC_VGA": null}})");
    EXPECT_FALSE(settings(changed, kVolume).range);
    EXPECT_EQ(settings(changed, kVolume).event, 0U);
    EXPECT_EQ(settings(changed, "audio.maxVolume").initial, wire::Values{});
    EXPECT_EQ(changed.sources().count(KELU_TV_SRC_VGA), 0U);
}

TEST_F(ConfigurationFile, SetsInitialValuesForAKey) {
    const Configuration changed = read(R"({"factory": {"machineInfo": {"initial": {"KELU_TV_MACHINE_INFO_MODEL": "X"}}},
                                           "audio": {"volume": {"initial": {"1": 7}}}})");
    const StateSettings& machine = settings(changed, "factory.machineInfo");
    EXPECT_EQ(machine.initialFor({std::int32_t{KELU_TV_MACHINE_INFO_MODEL}}), wire::Values{std::string("X")});
    EXPECT_EQ(machine.initialFor({std::int32_t{KELU_TV_MACHINE_INFO_BRAND_NAME}}), wire::Values{std::string("Sample")});
    EXPECT_EQ(settings(changed, kVolume).initialFor(numbers({1})), numbers({7}));
    EXPECT_EQ(settings(changed, kVolume).initialFor(numbers({0})), wire::Values{});
}

TEST_F(ConfigurationFile, ReplacesASourceAsAWhole) {
    const Configuration changed = read(R"({
        "signals": {"wide": {"sourcemanager.signalStatus": 1,
                             "sourcemanager.timingInfo": [2560, 1080, 75, 0, 1, 0, 0, 0, 1]}},
        "sources": {"KELU_TV_SRC_HDMI2": {"signal": "wide"},
                    "KELU_TV_SRC_HDMI3": {"plugged": false},
                    "KELU_TV_SRC_YPBPR2": {"signal": "wide", "picture.hdrStreamType": "KELU_TV_HDR_TYPE_HLG"}}})");
    const SourceSettings& hdmi2 = changed.sources().at(KELU_TV_SRC_HDMI2);
    EXPECT_EQ(hdmi2.signal, changed.signals().at("wide"));
    EXPECT_EQ(hdmi2.signal.at(wire::findState(kTiming)), numbers({2560, 1080, 75, 0, 1, 0, 0, 0, 1}));
    EXPECT_EQ(hdmi2.signal.at(wire::findState(kStreamType)), numbers({0}));
    EXPECT_TRUE(hdmi2.plugged);
    EXPECT_FALSE(changed.sources().at(KELU_TV_SRC_HDMI3).plugged);
    EXPECT_EQ(changed.sources().at(KELU_TV_SRC_HDMI3).signal, changed.noSignal());
    EXPECT_EQ(changed.sources().at(KELU_TV_SRC_YPBPR2).name, "KELU_TV_SRC_YPBPR2");
    EXPECT_EQ(changed.sources().at(KELU_TV_SRC_YPBPR2).signal.at(wire::findState(kStreamType)),
              numbers({KELU_TV_HDR_TYPE_HLG}));
}

TEST_F(ConfigurationFile, ShowsTheSignalOfTheFirstSource) {
    const Configuration hdmi = read(R"({"sourcemanager": {"curSource": {"initial": "KELU_TV_SRC_HDMI2"}}})");
    EXPECT_EQ(settings(hdmi, kStreamType).initial, numbers({KELU_TV_HDR_TYPE_HDR10}));
    EXPECT_EQ(settings(hdmi, kStatus).initial, numbers({1}));
    EXPECT_TRUE(settings(hdmi, kStatus).ofSignal);
    const Configuration unplugged = read(R"({"sources": {"KELU_TV_SRC_ATV": {"signal": "pal", "plugged": false}}})");
    EXPECT_EQ(settings(unplugged, kStatus).initial, numbers({0}));
    EXPECT_EQ(settings(unplugged, kTiming).initial, numbers({0, 0, 0, 0, 0, 0, 0, 0, 0}));
}

TEST_F(ConfigurationFile, ReplacesTheCecDevices) {
    const Configuration changed = read(R"({"cec": {"devices": [{"logAddr": 11, "hdmiDevPort": 3, "name": "Player",
        "phyAddr": "4.0.0.F", "listText": "HDMI4 Player", "plugged": true}]}})");
    ASSERT_EQ(changed.cecDevices().size(), 1U);
    EXPECT_EQ(changed.cecDevices()[0].name, "Player");
    EXPECT_EQ(changed.cecDevices()[0].phyAddr, "4.0.0.F");
    EXPECT_EQ(changed.arcPort(), 1);
}

struct Bad {
    const char* name;
    const char* text;
    /** Behind the name of the file. */
    const char* complaint;
};

void PrintTo(const Bad& bad, std::ostream* out) { *out << bad.name; }

constexpr Bad kBad[] = {
    {"NoJson", "{",
     ": this is not JSON: parse error at line 1, column 2: syntax error while parsing object key - "
     "unexpected end of input; expected string literal"},
    {"List", "[]", ": an object is needed, not []"},
    {"Twice", R"({"audio": {"volume": {}, "volume": {}}})", ": 'volume' is given twice in one object"},
    {"Module", R"({"audoi": {}})",
     ": /audoi: there is no 'audoi' here, only audio, config, factory, pcmplayer, pcsetting, picture, sourcemanager, "
     "systemsetting, video, $schema, cec, signals, sources; nearest: audio"},
    {"State", R"({"audio": {"volum": {}}})",
     ": /audio/volum: there is no state 'volum' in audio; nearest: volume, maxVolume, bootVolume, inputVolume, "
     "volumeToReg"},
    {"Setting", R"({"audio": {"volume": {"intial": 3}}})",
     ": /audio/volume/intial: there is no 'intial' here, only initial, range, event, source; nearest: initial"},
    {"Settings", R"({"audio": {"volume": 3}})", ": /audio/volume: an object is needed, not 3"},
    {"Text", R"({"audio": {"volume": {"initial": "loud"}}})",
     ": /audio/volume/initial: there is no enumerator 'loud'; nearest: "
     "KELU_TV_AUDIO_ADVANCED_EFFECT_PARAM_SWS_LOUDNESS_GAIN_E, "
     "KELU_TV_AUDIO_ADVANCED_EFFECT_PARAM_SWS_LOUDNESS_ONOFF_E"},
    {"Enumerator", R"({"systemsetting": {"menuLanguage": {"initial": "KQ_LANG_ENGLSH"}}})",
     ": /systemsetting/menuLanguage/initial: 'KQ_LANG_ENGLSH' is not one of chinese, english, traditional_chinese, "
     "czech, german, spanish, french, italian; nearest: KQ_LANG_ENGLISH"},
    {"Number", R"({"factory": {"panelID": {"initial": 55}}})", ": /factory/panelID/initial: a text is needed, not 55"},
    {"Fraction", R"({"audio": {"volume": {"initial": 0.5}}})",
     ": /audio/volume/initial: an integer of 32 bits is needed, not 0.5"},
    {"Truth", R"({"audio": {"mute": {"initial": [0, true]}}})",
     ": /audio/mute/initial/1: an integer of 32 bits is needed, not true"},
    {"TooBig", R"({"audio": {"mute": {"initial": 18446744073709551615}}})",
     ": /audio/mute/initial: an integer of 32 bits is needed, not 18446744073709551615"},
    {"TooSmall", R"({"audio": {"mute": {"initial": -2147483649}}})",
     ": /audio/mute/initial: an integer of 32 bits is needed, not -2147483649"},
    {"Key", R"({"picture": {"picModeEnable": {"initial": {"KELU_TV_HDR_TYPE_HDR": [1]}}}})",
     ": /picture/picModeEnable/initial/KELU_TV_HDR_TYPE_HDR: 'KELU_TV_HDR_TYPE_HDR' is not one of sdr, hdr10, "
     "dolby_hdr, sdr_to_hdr, hdr10_plus, photo, hlg; nearest: KELU_TV_HDR_TYPE_SDR, KELU_TV_HDR_TYPE_HDR10, "
     "KELU_TV_HDR_TYPE_HLG, KELU_TV_HDR_TYPE_DOLBY_HDR, KELU_TV_HDR_TYPE_HDR10_PLUS"},
    {"NoKeys", R"({"sourcemanager": {"selectSource": {"initial": {"0": 1}}}})",
     ": /sourcemanager/selectSource/initial: sourcemanager.selectSource is not kept for each of several numbers"},
    {"Range", R"({"audio": {"volume": {"range": [100, 0]}}})",
     ": /audio/volume/range: a range is [LOWEST, HIGHEST]; [100,0] is reversed"},
    {"HalfRange", R"({"audio": {"volume": {"range": [0]}}})",
     ": /audio/volume/range: a range is [LOWEST, HIGHEST], not [0]"},
    {"OutOfRange", R"({"audio": {"volume": {"initial": 101}}})",
     ": /audio/volume: the initial value 101 is out of the range from 0 to 100"},
    {"Event", R"({"audio": {"volume": {"event": "volumChanged"}}})",
     ": /audio/volume/event: there is no event 'volumChanged'; nearest: volumeChanged, voiceChanged, hueChanged, "
     "maxVolumeChanged"},
    {"EventOfText", R"({"factory": {"panelID": {"event": "brightnessChanged"}}})",
     ": /factory/panelID/event: the payload of brightnessChanged cannot carry factory.panelID, which has 0 keys and "
     "texts"},
    {"EventWithoutKeys", R"({"audio": {"volume": {"event": "brightnessChanged"}}})",
     ": /audio/volume/event: the payload of brightnessChanged cannot carry audio.volume, which has 1 key and integers"},
    {"EventOfReals", R"({"factory": {"soundCurve": {"event": "brightnessChanged"}}})",
     ": /factory/soundCurve/event: the payload of brightnessChanged cannot carry factory.soundCurve, which has 0 keys "
     "and numbers"},
    {"Role", R"({"sourcemanager": {"curSource": {"source": "window"}}})",
     ": /sourcemanager/curSource/source: a source is the key or the value, not 'window'"},
    {"RoleOfText", R"({"factory": {"panelID": {"source": "value"}}})",
     ": /factory/panelID/source: the value of factory.panelID is not an integer"},
    {"NoSource", R"({"sources": {"KELU_TV_SRC_ATV": null}})",
     ": /sourcemanager/bootSource/initial: \"KELU_TV_SRC_ATV\" is not a source of the television"},
    {"SourceName", R"({"sources": {"KELU_TV_SRC_HDM1": {}}})",
     ": /sources/KELU_TV_SRC_HDM1: 'KELU_TV_SRC_HDM1' is not one of atv, dig1, dig2, cvbs1, cvbs2, cvbs3, vga, ypbpr1, "
     "ypbpr2, hdmi1, hdmi2, hdmi3, hdmi4, media, media1, media2, scart1, scart2, auto; nearest: KELU_TV_SRC_HDMI1, "
     "KELU_TV_SRC_HDMI2, KELU_TV_SRC_HDMI3, KELU_TV_SRC_HDMI4, "
     "KELU_TV_SRC_DIG1"},
    {"SourceTwice", R"({"sources": {"KELU_TV_SRC_MEDIA": {}}})",
     ": /sources/KELU_TV_SRC_MEDIA1: KELU_TV_SRC_MEDIA1 and KELU_TV_SRC_MEDIA are the same source"},
    {"SourceState", R"({"sources": {"KELU_TV_SRC_ATV": {"sourcemanager.signalState": 1}}})",
     ": /sources/KELU_TV_SRC_ATV/sourcemanager.signalState: there is no state 'sourcemanager.signalState'; "
     "nearest: sourcemanager.signalStatus, sourcemanager.mhlStatus"},
    {"SignalOfTexts", R"({"sources": {"KELU_TV_SRC_ATV": {"factory.panelID": "x"}}})",
     ": /sources/KELU_TV_SRC_ATV/factory.panelID: factory.panelID cannot show a signal: it is not made of integers, or "
     "is kept for each of several keys"},
    {"SignalLength", R"({"sources": {"KELU_TV_SRC_ATV": {"sourcemanager.timingInfo": [1920, 1080]}}})",
     ": /sources/KELU_TV_SRC_ATV/sourcemanager.timingInfo: sourcemanager.timingInfo has 2 values here and 9 in another "
     "signal"},
    {"SignalName", R"({"sources": {"KELU_TV_SRC_ATV": {"signal": "secam"}}})",
     ": /sources/KELU_TV_SRC_ATV/signal: there is no signal \"secam\" in /signals"},
    {"Device", R"({"cec": {"devices": [{"logAddr": 4}]}})", ": /cec/devices/0: 'hdmiDevPort' is missing"},
    {"DeviceTwice", R"({"cec": {"devices": [
        {"logAddr": 4, "hdmiDevPort": 0, "name": "", "phyAddr": "1.0.0.0", "listText": "", "plugged": true},
        {"logAddr": 4, "hdmiDevPort": 1, "name": "", "phyAddr": "2.0.0.0", "listText": "", "plugged": true}]}})",
     ": /cec/devices/1/logAddr: logical address 4 is given twice"},
    {"DeviceAddress", R"({"cec": {"devices": [
        {"logAddr": 4, "hdmiDevPort": 0, "name": "", "phyAddr": "1.0.0", "listText": "", "plugged": true}]}})",
     ": /cec/devices/0: phyAddr has four hexadecimal digits as in 1.0.0.0, it cannot be '1.0.0'"},
    {"ArcPort", R"({"cec": {"arcPort": -1}})", ": /cec/arcPort: this is the number of a port, it cannot be -1"},
};

class BadConfiguration : public ConfigurationFile, public ::testing::WithParamInterface<Bad> {};

TEST_P(BadConfiguration, IsRefusedWithThePlaceAndWhatIsAllowed) {
    const std::string path = write(GetParam().text);
    try {
        Configuration::fromFile(path);
        FAIL() << "it was taken";
    } catch (const ConfigurationError& error) {
        EXPECT_EQ(error.what(), path + GetParam().complaint);
    }
}

std::string nameOf(const ::testing::TestParamInfo<Bad>& info) { return info.param.name; }

INSTANTIATE_TEST_SUITE_P(Each, BadConfiguration, ::testing::ValuesIn(kBad), nameOf);

TEST_F(ConfigurationFile, ThatCannotBeReadIsRefused) {
    try {
        Configuration::fromFile(mFolder.path());
        FAIL() << "it was taken";
    } catch (const ConfigurationError& error) {
        EXPECT_EQ(error.what(),
                  "cannot read " + mFolder.path() + ": it must be a regular file of at most 16777216 bytes");
    }
    EXPECT_THROW(Configuration::fromFile(mPath), ConfigurationError);
}

TEST(Signals, HaveTheirStatesAndLengths) {
    const Configuration configuration = Configuration::standard();
    EXPECT_EQ(configuration.objectionToSignal(*wire::findState(kStatus), numbers({1})), std::nullopt);
    EXPECT_EQ(configuration.objectionToSignal(*wire::findState(kTiming), numbers({1})),
              "sourcemanager.timingInfo takes 9 integers");
    EXPECT_EQ(configuration.objectionToSignal(*wire::findState(kStatus), {std::string("good")}),
              "sourcemanager.signalStatus takes 1 integer");
    EXPECT_EQ(configuration.objectionToSignal(*wire::findState(kVolume), numbers({1})),
              "audio.volume does not show a signal");
}

} // namespace

} // namespace kelutv::simulator
