#include "tools/Tool.h"

#include "simulator/Simulator.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace kelutv::test {
namespace {

SimulatorEnvironment& environmentOfEquipment = SimulatorEnvironment::install();

/** What a command prints that does all that it is to do. */
std::string printed(const std::vector<std::string>& arguments) {
    const ToolRun run = runTool(arguments);
    EXPECT_EQ(run.exit, 0) << run.error;
    EXPECT_EQ(run.error, "");
    return run.output;
}

/** What the simulator has got since the last time, in its own words. */
std::string traced() {
    std::string text;
    for (const std::string& line : environmentOfEquipment.simulator().takeTrace()) {
        text += line + '\n';
    }
    return text;
}

/** All cases have one television; each leaves it as it was. */
class Equipment : public ::testing::Test {
protected:
    void TearDown() override {
        for (const std::string& line : mAfterwards) {
            printed({"sim", line});
        }
    }

    void afterwards(std::vector<std::string> lines) { mAfterwards = std::move(lines); }

private:
    std::vector<std::string> mAfterwards;
};

TEST_F(Equipment, sourcesTellWhatIsPluggedInHasASignalAndIsShown) {
    afterwards({"plug hdmi1", "set sourcemanager.curSource[0] = atv"});
    printed({"sim", "unplug hdmi1"});
    printed({"sim", "set sourcemanager.curSource[0] = hdmi2"});
    EXPECT_EQ(printed({"sources"}), "atv       plugged, signal, sub\n"
                                    "dig1      plugged, signal\n"
                                    "cvbs1     plugged, signal\n"
                                    "cvbs2     plugged, no signal\n"
                                    "vga       plugged, signal\n"
                                    "ypbpr1    plugged, signal\n"
                                    "hdmi1     unplugged, no signal\n"
                                    "hdmi2     plugged, signal, main\n"
                                    "hdmi3     plugged, signal\n"
                                    "hdmi4     plugged, no signal\n"
                                    "media     plugged, signal\n"
                                    "media2    plugged, signal\n");
}

TEST_F(Equipment, sourcesAreADocumentEach) {
    const std::string documents = printed({"sources", "--json"});
    EXPECT_EQ(std::count(documents.begin(), documents.end(), '\n'), 12);
    EXPECT_EQ(documents.substr(0, documents.find('\n')),
              R"({"source":{"value":0,"enumerator":"KELU_TV_SRC_ATV"},"plugged":true,"signal":true,)"
              R"("windows":[{"value":0,"enumerator":"KELU_TV_WINDOW_MAIN"},)"
              R"({"value":1,"enumerator":"KELU_TV_WINDOW_SUB"}]})");
}

TEST_F(Equipment, cecListsDevicesAndTheReturnChannel) {
    EXPECT_EQ(printed({"cec"}), "4   hdmi1, 1.0.0.0, Disc player\n"
                                "5   hdmi2, 2.0.0.0, Soundbar\n"
                                "arc hdmi2, supported, active\n");
    afterwards({"plug cec 5", "unplug cec 4", "plug cec 4"});
    printed({"sim", "unplug cec 5"});
    printed({"cec", "select", "4"});
    EXPECT_EQ(printed({"cec"}), "4   hdmi1, 1.0.0.0, Disc player, playing\n"
                                "arc hdmi2, supported, not active\n");
    EXPECT_EQ(printed({"cec", "--json"}),
              R"({"devices":[{"address":4,"port":0,"source":{"value":9,"enumerator":"KELU_TV_SRC_HDMI1"},)"
              R"("physicalAddress":"1.0.0.0","name":"Disc player","text":"HDMI1 Disc player","playing":true}],)"
              R"("arc":{"supported":true,"active":false,"port":1,)"
              R"("source":{"value":10,"enumerator":"KELU_TV_SRC_HDMI2"}}})"
              "\n");
}

TEST_F(Equipment, cecPressesAndReleasesAKey) {
    environmentOfEquipment.simulator().takeTrace();
    printed({"cec", "key", "volume_up"});
    const std::string both = traced();
    const std::size_t pressed = both.find(
        "CMD_CEC_SEND_CEC_COMMAND(pCecCmdInfo.IrCommand=65 E_MW_CEC_UI_CMD_VOLUME_UP, pCecCmdInfo.KeyPressed=1)");
    ASSERT_NE(pressed, std::string::npos) << both;
    EXPECT_NE(
        both.find(
            "CMD_CEC_SEND_CEC_COMMAND(pCecCmdInfo.IrCommand=65 E_MW_CEC_UI_CMD_VOLUME_UP, pCecCmdInfo.KeyPressed=0)",
            pressed + 1),
        std::string::npos)
        << both;
}

TEST_F(Equipment, cecNamesADeviceThatIsNotThere) {
    const ToolRun run = runTool({"cec", "select", "8"});
    EXPECT_EQ(run.exit, 4);
    EXPECT_EQ(run.error, "kelutv: hdmicec.selectDevice: the service answered -109, no such CEC device\n");
}

TEST_F(Equipment, powerShowsWhatIsKnownAndChangesOnlyWhenTold) {
    EXPECT_EQ(printed({"power"}), "screen              on\n"
                                  "half-standby        0\n"
                                  "last-power-off      0\n"
                                  "wakeup              0\n"
                                  "power-on-mode       0\n"
                                  "suspend-mode        0\n");
    environmentOfEquipment.simulator().takeTrace();
    printed({"power", "suspend"});
    EXPECT_NE(traced().find("] CMD_SYSTEM_SUSPEND() -> 0\n"), std::string::npos);
    printed({"power", "resume", "3"});
    EXPECT_NE(traced().find("] CMD_SYSTEM_RESUME(powerType=3) -> 0\n"), std::string::npos);
    EXPECT_EQ(printed({"power", "--json"}), R"({"screen":true,"half-standby":0,"last-power-off":1,"wakeup":3,)"
                                            R"("power-on-mode":0,"suspend-mode":0})"
                                            "\n");
}

struct Mistake {
    std::vector<std::string> arguments;
    std::string message;
};

TEST_F(Equipment, refusesWhatItCannotDoAndSendsNothing) {
    const std::vector<Mistake> mistakes{
        {{"cec", "selcet", "4"}, "cec can do select and key, not 'selcet'; nearest: select"},
        {{"cec", "select"}, "cec select takes the logical address of a device"},
        {{"cec", "select", "16"}, "'16' is no logical address, 0 to 15; 'kelutv cec' lists them"},
        {{"cec", "key", "play", "stop"}, "cec key takes a key"},
        {{"power", "off"}, "power can do suspend and resume, not 'off'"},
        {{"power", "suspend", "now"}, "power suspend takes nothing more"},
        {{"power", "resume", "x"}, "power resume takes a wake-up mode, a whole number, or nothing for 0"},
    };
    environmentOfEquipment.simulator().takeTrace();
    for (const Mistake& mistake : mistakes) {
        const ToolRun run = runTool(mistake.arguments);
        EXPECT_EQ(run.exit, 2);
        EXPECT_EQ(run.output, "");
        EXPECT_EQ(run.error, usageError(mistake.arguments.front(), mistake.message));
    }
    EXPECT_EQ(traced(), "");
}

TEST_F(Equipment, getGivesSeveralSettingsALineEach) {
    EXPECT_EQ(printed({"get", "volume", "source", "mute"}), "volume 20\nsource atv\nmute off\n");
    EXPECT_EQ(printed({"get", "volume", "source", "--json"}),
              R"({"thing":"volume","value":20})"
              "\n"
              R"({"thing":"source","value":0,"enumerator":"KELU_TV_SRC_ATV"})"
              "\n");
}

TEST_F(Equipment, getGivesWhatCanBeReadWhenSomethingCannot) {
    afterwards({"set sourcemanager.curSource[0] = atv"});
    printed({"sim", "set sourcemanager.curSource[0] = cvbs2"});
    const ToolRun run = runTool({"get", "volume", "timing", "mute"});
    EXPECT_EQ(run.exit, 4);
    EXPECT_EQ(run.output, "volume 20\nmute off\n");
    EXPECT_EQ(run.error, "kelutv: the service gives no value for timing\n");
}

/** The line, or the document, of one setting among those of all. */
std::string lineWith(const std::string& text, const std::string& beginning) {
    const std::size_t at = ('\n' + text).find('\n' + beginning);
    return at == std::string::npos ? "" : text.substr(at, text.find('\n', at) - at);
}

TEST_F(Equipment, getShowsAllWithWhatIsKnownOfThem) {
    const std::string all = printed({"get"});
    EXPECT_EQ(printed({"get", "--all"}), all);
    EXPECT_EQ(lineWith(all, "volume "), "volume              20              The volume of the speakers: "
                                        "0..100, +N, -N; step ?, unit ?, default ?");
    EXPECT_EQ(lineWith(all, "spdif-delay "), "spdif-delay         0 ms            How much later the digital output "
                                             "sounds: 0..500 ms, +N, -N; step ?, unit ms, default ?");
    EXPECT_EQ(lineWith(all, "mute "), "mute                off             Whether the speakers are silent: on, off, "
                                      "toggle");
    EXPECT_EQ(lineWith(all, "color-temperature "),
              "color-temperature   nature          The colour temperature: nature, "
              "cool, warm, user");
    EXPECT_EQ(lineWith(all, "signal "), "signal              on              Whether the source has a signal");
}

TEST_F(Equipment, getShowsAllAsDocuments) {
    const std::string all = printed({"get", "--json"});
    EXPECT_EQ(lineWith(all, R"({"thing":"volume")"),
              R"({"thing":"volume","value":20,"meaning":"The volume of the speakers",)"
              R"("allowed":{"min":0,"max":100,"step":null},"unit":null,"default":null})");
    EXPECT_EQ(lineWith(all, R"({"thing":"spdif-delay")"),
              R"({"thing":"spdif-delay","value":0,"meaning":"How much later the digital output sounds",)"
              R"("allowed":{"min":0,"max":500,"step":null},"unit":"ms","default":null})");
    EXPECT_EQ(lineWith(all, R"({"thing":"signal")"), R"({"thing":"signal","value":true,"meaning":"Whether the source )"
                                                     R"(has a signal","allowed":null,"unit":null,"default":null})");
    EXPECT_EQ(lineWith(all, R"({"thing":"mute")"), R"({"thing":"mute","value":false,"meaning":"Whether the speakers )"
                                                   R"(are silent","allowed":[false,true],"unit":null,"default":null})");
}

TEST_F(Equipment, getListsTheSettingsWithoutAService) {
    const ToolRun run =
        runTool({"get"}, {"KQDROID_RUNTIME_DIR=" + std::string(std::getenv("KQDROID_RUNTIME_DIR")) + "/none"});
    EXPECT_EQ(run.exit, 3);
    EXPECT_EQ(lineWith(run.output, "volume "), "volume              -               The volume of the speakers: "
                                               "0..100, +N, -N; step ?, unit ?, default ?");
    EXPECT_EQ(run.error.find("kelutv: there is no television service"), 0U) << run.error;
}

} // namespace
} // namespace kelutv::test
