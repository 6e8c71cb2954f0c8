// A simulator with a configuration of the user's, seen through the library.

#include "simulator/Simulator.h"
#include "support/RuntimeDir.h"
#include "support/Wire.h"

#include <kelutv/kelutv.h>

#include <gtest/gtest.h>

#include <csignal>
#include <fstream>
#include <list>
#include <string>
#include <utility>

namespace kelutv::test {

namespace {

constexpr char kConfiguration[] = R"({
    "audio": {"volume": {"initial": 7, "range": [0, 30]}},
    "factory": {"panelID": {"initial": "PANEL-43"}, "machineInfo": {"initial": {"KELU_TV_MACHINE_INFO_MODEL": "TV43"}}},
    "systemsetting": {"menuLanguage": {"initial": "KQ_LANG_GERMAN"},
                      "languageList": {"initial": [2, "KQ_LANG_GERMAN", "KQ_LANG_FRENCH"]}},
    "sourcemanager": {"curSource": {"initial": "KELU_TV_SRC_HDMI1"}},
    "sources": {"KELU_TV_SRC_HDMI1": {"signal": "2160p60-hdr10"}, "KELU_TV_SRC_HDMI3": {"signal": "pal", "plugged": false},
                "KELU_TV_SRC_CVBS1": null, "KELU_TV_SRC_CVBS2": null, "KELU_TV_SRC_MEDIA1": null,
                "KELU_TV_SRC_MEDIA2": null},
    "cec": {"arcPort": 2, "devices": [{"logAddr": 5, "hdmiDevPort": 2, "name": "Bar", "phyAddr": "3.0.0.0",
                                       "listText": "HDMI3 Bar", "plugged": true}]}
})";

Bytes send(int command, std::initializer_list<std::int32_t> arguments = {}) {
    return SimulatorEnvironment::transact(requestOf(command, arguments));
}

class ConfigFile : public ::testing::Test {
protected:
    std::string write(const std::string& text) const {
        const std::string path = mRuntimeDir.path() + "/config.json";
        std::ofstream(path) << text;
        return path;
    }

    const RuntimeDir mRuntimeDir;
};

TEST_F(ConfigFile, MakesAnotherTelevision) {
    Simulator simulator({"--config", write(kConfiguration)});
    EXPECT_EQ(linux_tv_Audio_getVolume(KELU_TV_AUDIO_CHANNEL_SPEAKER), 7);
    EXPECT_EQ(linux_tv_Audio_setVolume(KELU_TV_AUDIO_CHANNEL_SPEAKER, 31), -107);
    EXPECT_EQ(linux_tv_Audio_getMaxVolume(KELU_TV_AUDIO_CHANNEL_SPEAKER), 100);
    SourceManager& manager = *SourceManager::instance();
    EXPECT_EQ(manager.getSourceList(), (std::list<int>{0, 1, 2, 6, 7, 9, 10, 11, 12}));
    EXPECT_EQ(manager.getAvailSourceList(), (std::list<int>{0, 1, 2, 6, 7, 9, 10, 12}));
    EXPECT_EQ(manager.getCurSourceId(KELU_TV_WINDOW_MAIN), KELU_TV_SRC_HDMI1);
    EXPECT_EQ(manager.getTimingInfo().width, 3840U);
    EXPECT_EQ(linux_tv_Picture_getHdrStreamType(), KELU_TV_HDR_TYPE_HDR10);
    EXPECT_EQ(manager.selectSource(KELU_TV_SRC_CVBS1, KELU_TV_WINDOW_MAIN), -108);
    char panel[256] = {};
    EXPECT_EQ(Factory::instance()->getPanelID(panel), 0);
    EXPECT_STREQ(panel, "PANEL-43");
    simulator.process().kill(SIGTERM);
    EXPECT_EQ(simulator.process().exitCode(), 0) << simulator.process().error().text();
}

TEST_F(ConfigFile, WithNothingOfTheDefaultsServesAllTheSame) {
    Simulator simulator({"--config", write(R"({"audio": null, "picture": null, "sourcemanager": null, "video": null,
        "systemsetting": null, "factory": null, "cec": null, "signals": null, "sources": null})")});
    EXPECT_EQ(send(CMD_AUDIO_GETVOLUME, {0}), replyOf({0, 0}));
    EXPECT_EQ(send(CMD_SOURCE_SELECTSOURCE, {77, 0}), replyOf({0}));
    EXPECT_EQ(send(CMD_SOURCE_DESELECTSOURCE, {77, 0}), replyOf({0}));
    EXPECT_EQ(send(CMD_SOURCE_GETSINGALSTATE, {77}), replyOf({0, 0}));
    EXPECT_EQ(send(CMD_SOURCE_GETSOURCELIST), replyOf({0}));
    EXPECT_EQ(send(CMD_CEC_GETDEVICELISTALLINFO), replyOf({0}));
    EXPECT_EQ(hex(SimulatorEnvironment::transact(Wire::request(CMD_FACTORY_SETSTBOTPBURN).i32(0).cstr("x").bytes())),
              hex(Wire::reply().i32(0).cstr("").bytes()));
    simulator.process().kill(SIGTERM);
    EXPECT_EQ(simulator.process().exitCode(), 0) << simulator.process().error().text();
}

TEST_F(ConfigFile, ThatIsWrongEndsTheSimulatorBeforeItServes) {
    const std::string path = write(R"({"audio": {"volume": {"range": [100, 0]}}})");
    const auto simulator = startSimulator({"--config", path});
    EXPECT_EQ(simulator->exitCode(), 2);
    EXPECT_EQ(simulator->output().text(), "");
    EXPECT_EQ(simulator->error().text(),
              "kelutv-simulator: " + path +
                  ": /audio/volume/range: a range is [LOWEST, HIGHEST]; [100,0] is reversed\n");
}

TEST_F(ConfigFile, ThatIsNestedWithoutEndOrHasNoNumbersEndsTheSimulator) {
    const std::pair<std::string, std::string> faults[] = {
        {std::string(200000, '['), "objects and lists are nested more than 32 deep"},
        {R"({"audio": {"volume": {"initial": 1e999}}})", "this cannot be read: number overflow parsing '1e999'"},
    };
    for (const auto& [text, complaint] : faults) {
        const std::string path = write(text);
        const auto simulator = startSimulator({"--config", path});
        EXPECT_EQ(simulator->exitCode(), 2);
        EXPECT_EQ(simulator->error().text(), "kelutv-simulator: " + path + ": " + complaint + "\n");
    }
}

TEST_F(ConfigFile, ThatIsNotThereEndsTheSimulator) {
    const std::string path = mRuntimeDir.path() + "/none.json";
    const auto simulator = startSimulator({"--config", path});
    EXPECT_EQ(simulator->exitCode(), 2);
    EXPECT_EQ(simulator->error().text(), "kelutv-simulator: cannot read " + path + ": No such file or directory\n");
}

} // namespace

} // namespace kelutv::test
