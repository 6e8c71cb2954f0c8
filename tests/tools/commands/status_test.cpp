#include "tools/ParsedJson.h"
#include "tools/Tool.h"

#include "simulator/Simulator.h"

#include <gtest/gtest.h>

namespace kelutv::test {
namespace {

constexpr char kScreen[] = "source              atv\n"
                           "signal              on\n"
                           "timing              720x576, 50 Hz, interlaced\n"
                           "stream-type         sdr\n"
                           "volume              20\n"
                           "mute                off\n"
                           "sound-mode          standard\n"
                           "picture-mode        standard\n"
                           "brightness          50\n"
                           "contrast            50\n"
                           "saturation          50\n"
                           "sharpness           50\n"
                           "hue                 50\n"
                           "backlight           80\n"
                           "color-temperature   nature\n"
                           "aspect              16_9\n"
                           "language            english\n"
                           "screen              on\n"
                           "half-standby        0\n"
                           "last-power-off      0\n"
                           "wakeup              0\n"
                           "hotel               off\n"
                           "middleware-version  2.4.0\n"
                           "platform            KTV-1000\n"
                           "input atv           plugged, signal, main, sub\n"
                           "input dig1          plugged, signal\n"
                           "input cvbs1         plugged, signal\n"
                           "input cvbs2         plugged, no signal\n"
                           "input vga           plugged, signal\n"
                           "input ypbpr1        plugged, signal\n"
                           "input hdmi1         plugged, signal\n"
                           "input hdmi2         plugged, signal\n"
                           "input hdmi3         plugged, signal\n"
                           "input hdmi4         plugged, no signal\n"
                           "input media         plugged, signal\n"
                           "input media2        plugged, signal\n"
                           "cec 4               hdmi1, 1.0.0.0, Disc player\n"
                           "cec 5               hdmi2, 2.0.0.0, Soundbar\n";

class Status : public ::testing::Test {
protected:
    RuntimeDir mRuntimeDir;
    Simulator mSimulator;
};

TEST_F(Status, showsTheTelevision) {
    const ToolRun run = runTool({"status"});
    EXPECT_EQ(run.exit, 0);
    EXPECT_EQ(run.output, kScreen);
    EXPECT_EQ(run.error, "");
}

TEST_F(Status, showsTheRestWhenOneValueCannotBeRead) {
    ASSERT_EQ(runTool({"set", "source", "cvbs2"}).exit, 0);
    const ToolRun run = runTool({"status"});
    EXPECT_EQ(run.exit, 0);
    EXPECT_EQ(run.output.substr(0, run.output.find("stream-type")),
              "source              cvbs2\n"
              "signal              off\n"
              "timing              unreadable: the service gives no value for timing\n");
    EXPECT_NE(run.output.find("\nplatform            KTV-1000\n"), std::string::npos);
}

TEST_F(Status, isADocument) {
    ASSERT_EQ(runTool({"set", "source", "cvbs2"}).exit, 0);
    ASSERT_EQ(runTool({"set", "volume", "31"}).exit, 0);
    const auto document = parsedJson(runTool({"status", "--json"}).output);
    EXPECT_EQ(document.at("source"), parsedJson(R"({"value": 4, "enumerator": "KELU_TV_SRC_CVBS2"})"));
    EXPECT_EQ(document.at("signal"), false);
    EXPECT_EQ(document.at("volume"), 31);
    EXPECT_TRUE(document.at("timing").isNull());
    EXPECT_EQ(document.at("unreadable"), (tool::Json{{"timing", "the service gives no value for timing"}}));
    EXPECT_EQ(document.at("platform"), "KTV-1000");
    EXPECT_EQ(document.at("inputs").entries().size(), 12U);
    EXPECT_EQ(
        document.at("inputs").entries()[3],
        parsedJson(R"({"source": {"value": 4, "enumerator": "KELU_TV_SRC_CVBS2"}, "plugged": true, "signal": false,
                             "windows": [{"value": 0, "enumerator": "KELU_TV_WINDOW_MAIN"}]})"));
    EXPECT_EQ(document.at("cec-devices").entries().at(1).at("name"), "Soundbar");
}

TEST_F(Status, showsTheRestWhenTheInputsCannotBeRead) {
    ASSERT_EQ(runTool({"sim", "fault", "CMD_SOURCE_GETSOURCELIST", "error", "-22", "once"}).exit, 0);
    const ToolRun run = runTool({"status"});
    EXPECT_EQ(run.exit, 0);
    EXPECT_NE(
        run.output.find("\ninputs              unreadable: sourcemanager.getSourceList: the service answered -22, "
                        "BAD_VALUE\ncec 4 "),
        std::string::npos)
        << run.output;
}

TEST_F(Status, failsWhenNothingCanBeRead) {
    ASSERT_EQ(runTool({"sim", "fault", "*", "error", "-22"}).exit, 0);
    for (const std::string command : {"status", "power"}) {
        const ToolRun run = runTool({command});
        EXPECT_EQ(run.exit, 4) << command;
        EXPECT_NE(run.output.find("screen              unreadable: "), std::string::npos) << run.output;
        EXPECT_EQ(run.error, "kelutv: nothing of this could be read\n");
    }
}

TEST_F(Status, hasColourWhenAsked) {
    const ToolRun run = runTool({"status", "--color", "always"});
    EXPECT_NE(run.output.find("volume              \033[33m20\033[0m\n"), std::string::npos);
    EXPECT_NE(run.output.find("signal              \033[32mon\033[0m\n"), std::string::npos);
}

} // namespace
} // namespace kelutv::test
