// `kelutv sim` against a simulator of its own.

#include "simulator/Simulator.h"
#include "support/RuntimeDir.h"
#include "support/TestFolder.h"
#include "support/WorkingFolder.h"
#include "tools/Tool.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <unistd.h>

#include <csignal>
#include <fstream>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

namespace kelutv::test {
namespace {

using Words = std::vector<std::string>;

ToolRun sim(Words words) {
    words.insert(words.begin(), "sim");
    return runTool(std::move(words));
}

void expectData(const Words& words, const std::string& data) {
    const ToolRun run = sim(words);
    EXPECT_EQ(run.exit, 0) << run.error;
    EXPECT_EQ(run.output, data);
    EXPECT_EQ(run.error, "");
}

class SimCommand : public ::testing::Test {
protected:
    std::string file(const std::string& name, const std::string& content) const {
        const std::string path = mRuntimeDir.path() + '/' + name;
        std::ofstream(path) << content;
        return path;
    }

    bool happens(const std::string& line) { return mSimulator->process().output().waitFor(line + '\n'); }

    const RuntimeDir mRuntimeDir;
    std::optional<Simulator> mSimulator{std::in_place};
};

TEST_F(SimCommand, SendsItsWordsAsALine) {
    expectData({"set", "audio.volume[speaker]", "=", "35"}, "");
    expectData({"get", "audio.volume[0]"}, "audio.volume[0] = 35\n");
    expectData({"set audio.volume[speaker] = 36"}, "");
    expectData({"set", "audio.volume[speaker] = 37"}, "");
    expectData({"get", "audio.volume[speaker]"}, "audio.volume[0] = 37\n");
    EXPECT_TRUE(happens("event 0x60001 volumeChanged: audio.volume[0] = 35"));
    EXPECT_TRUE(happens("event 0x60001 volumeChanged: audio.volume[0] = 37"));
}

TEST_F(SimCommand, KeepsWordsWithBlanksTogether) {
    expectData({"cec", "add", "logAddr=11", "hdmiDevPort=2", "name=Game \\ console"}, "");
    expectData({"show", "cec game*"}, "cec put logAddr=11 hdmiDevPort=2 name=\"Game \\\\ console\" phyAddr=\"3.0.0.0\" "
                                      "listText=\"HDMI3 Game \\\\ console\" plugged=1\n");
    expectData({"event", "0x60001", "two words"}, "");
    expectData({"event", "0x60001", "\"one\""}, "");
    EXPECT_TRUE(happens("event 0x60001 volumeChanged: from the control channel, 9 bytes"));
    EXPECT_TRUE(happens("event 0x60001 volumeChanged: from the control channel, 3 bytes"));
}

TEST_F(SimCommand, TakesNegativeNumbers) {
    expectData({"set", "picture.hue", "=", "-5"}, "");
    expectData({"get", "picture.hue"}, "picture.hue = -5\n");
}

TEST_F(SimCommand, FindsAPayloadFromWhereItWasStarted) {
    const std::string path = file("pay load", "12345");
    {
        const WorkingFolder folder(mRuntimeDir.path());
        expectData({"event", "0x60001", "@pay load"}, "");
    }
    EXPECT_TRUE(happens("event 0x60001 volumeChanged: from the control channel, 5 bytes"));
}

TEST_F(SimCommand, CarriesOutTheLinesOfAFile) {
    const std::string path = file(
        "lines", "# what happens\nset audio.volume[0] = 35\n\nexplode\nget audio.volume[0]\nset audio.mute[0] = 1");
    const ToolRun run = sim({"--file", path});
    EXPECT_EQ(run.exit, 1);
    EXPECT_EQ(run.output, "audio.volume[0] = 35\n");
    EXPECT_EQ(run.error,
              "kelutv: " + path +
                  ":4: there is no control command 'explode'; allowed: cec, event, fault, faults, get, help, key, "
                  "plug, power, reset, set, show, signal, signals, unplug and vbi\n");
    expectData({"get", "audio.mute[0]"}, "audio.mute[0] = 1\n");
}

TEST_F(SimCommand, CarriesOutTheLinesOfStandardInput) {
    int ends[2];
    ASSERT_EQ(::pipe2(ends, O_CLOEXEC), 0);
    const int input = ::fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, 0);
    ASSERT_EQ(::dup2(ends[0], STDIN_FILENO), STDIN_FILENO);
    const std::string lines = "set audio.volume[0] = 35\nget audio.volume[0]\n";
    EXPECT_EQ(::write(ends[1], lines.data(), lines.size()), static_cast<ssize_t>(lines.size()));
    ::close(ends[0]);
    ::close(ends[1]);
    expectData({"-"}, "audio.volume[0] = 35\n");
    if (input >= 0) {
        ::dup2(input, STDIN_FILENO);
        ::close(input);
    }
}

TEST_F(SimCommand, GivesJsonADocumentALine) {
    expectData({"--json", "set", "audio.volume[0]", "=", "35"}, "{\"ok\":true,\"lines\":[]}\n");
    const std::string speaker = "{\"value\":0,\"enumerator\":\"KELU_TV_AUDIO_CHANNEL_SPEAKER\"}";
    expectData({"get", "audio.volume", "--json"}, "{\"ok\":true,\"lines\":[\"audio.volume[0] = 35\","
                                                  "\"# audio.volume of any other key: 20\"],"
                                                  "\"states\":[{\"state\":\"audio.volume\",\"keys\":[" +
                                                      speaker +
                                                      "],\"values\":[35],\"settable\":true}],"
                                                      "\"initial\":[{\"state\":\"audio.volume\",\"values\":[20]}]}\n");
    const ToolRun run = runTool({"--json", "sim", "get", "audio.volum"});
    EXPECT_EQ(run.exit, 1);
    EXPECT_EQ(
        run.output,
        "{\"ok\":false,\"lines\":[\"there is no state 'audio.volum'; nearest: audio.volume, audio.volumeToReg; show "
        "lists them\"]}\n");
    EXPECT_EQ(run.error, "{\"error\":{\"message\":\"there is no state 'audio.volum'; nearest: audio.volume, "
                         "audio.volumeToReg; show lists them\",\"exit\":1}}\n");
}

/** The part of the document of a line behind its lines. */
std::string dataOf(const Words& words) {
    const ToolRun run = sim(words);
    EXPECT_EQ(run.exit, 0) << run.error;
    const std::size_t end = run.output.find("],\"");
    return end == std::string::npos ? run.output : run.output.substr(end + 2);
}

TEST_F(SimCommand, GivesAsDataWhatItShows) {
    EXPECT_EQ(dataOf({"--json", "show", "powe[r]"}),
              "\"power\":{\"state\":{\"value\":0,\"enumerator\":\"KELU_SIM_POWER_STATE_ON\"},"
              "\"lastPowerOffMode\":0,\"wakeupMode\":0}}\n");
    EXPECT_EQ(dataOf({"--json", "show", "cec soundbar"}),
              "\"cecDevices\":[{\"logAddr\":5,\"hdmiDevPort\":1,\"name\":\"Soundbar\",\"phyAddr\":\"2.0.0.0\","
              "\"listText\":\"HDMI2 Soundbar\",\"plugged\":true}]}\n");
    expectData({"unplug", "hdmi1"}, "");
    const std::string source = dataOf({"--json", "show", "source*hdmi1"});
    EXPECT_EQ(source.rfind("\"sources\":[{\"source\":{\"value\":9,\"enumerator\":\"KELU_TV_SRC_HDMI1\"},"
                           "\"plugged\":false,\"signal\":{",
                           0),
              0U)
        << source;
    EXPECT_NE(source.find("\"sourcemanager.timingInfo\":[1920,1080,60,0,"), std::string::npos) << source;
    expectData({"fault", "any", "error", "-5"}, "");
    EXPECT_EQ(dataOf({"--json", "faults"}), "\"faults\":[\"any error -5\"]}\n");
    expectData({"fault", "clear"}, "");
    EXPECT_EQ(
        dataOf({"--json", "get", "picture.currentPictureMode"}),
        "\"states\":[{\"state\":\"picture.currentPictureMode\",\"keys\":[],\"values\":[0],\"settable\":true}]}\n");
    EXPECT_EQ(dataOf({"--json", "help", "vbi"}),
              "\"verbs\":[{\"verb\":\"vbi\",\"form\":\"TYPE [HEX]\",\"meaning\":\"Delivers a VBI block of this type, 1 "
              "to 65535, with these bytes, at most 65532.\",\"example\":\"vbi 7 0102ff\"}]}\n");
}

TEST_F(SimCommand, BringsBackWhatWasShown) {
    const std::string first = sim({"show"}).output;
    for (const Words& change :
         {Words{"set", "picture.hue", "=", "7"}, Words{"set", "audio.volume[3]", "=", "7"}, Words{"cec", "remove", "4"},
          Words{"set", "sourcemanager.curSource[0]", "=", "vga"}, Words{"power", "memory"}, Words{"unplug", "vga"}}) {
        expectData(change, "");
    }
    EXPECT_NE(sim({"show"}).output, first);
    expectData({"--file", file("before", first)}, "");
    EXPECT_EQ(sim({"show"}).output, first);
}

TEST_F(SimCommand, RefusesALineThatIsNone) {
    const ToolRun run = sim({"set audio.volume[0] = 35\nfaults"});
    EXPECT_EQ(run.exit, 1);
    EXPECT_EQ(run.output, "");
    EXPECT_EQ(run.error, "kelutv: a line has neither line ends nor zeros in it\n");
}

TEST_F(SimCommand, SaysWhenThereIsNoSimulator) {
    mSimulator->process().kill(SIGKILL);
    EXPECT_TRUE(mSimulator->process().wait());
    for (const Words& words : {Words{"show"}, Words{"--file", file("lines", "show\n")}}) {
        const ToolRun run = sim(words);
        EXPECT_EQ(run.exit, 3);
        EXPECT_EQ(run.output, "");
        EXPECT_EQ(run.error, "kelutv: no simulator is running (nothing listens at " + mRuntimeDir.path() +
                                 "/simulator/control)\n");
    }
}

TEST(SimCommandAlone, HelpsWithoutASimulator) {
    expectData({"help", "vbi"},
               "vbi TYPE [HEX]\n    Delivers a VBI block of this type, 1 to 65535, with these bytes, at "
               "most 65532.\n    Example: vbi 7 0102ff\n");
    const ToolRun all = sim({"help"});
    EXPECT_EQ(all.exit, 0);
    EXPECT_NE(all.output.find("\nunplug SOURCE | cec ADDRESS | ADDRESS\n"), std::string::npos);
    const ToolRun options = sim({"--help"});
    EXPECT_EQ(options.exit, 0);
    EXPECT_NE(options.output.find("\n  unplug SOURCE | cec ADDRESS | ADDRESS\n"), std::string::npos);
}

struct BadUse {
    Words words;
    int exit;
    std::string error;
};

TEST(SimCommandAlone, RefusesWrongUse) {
    const std::string wrongUse =
        usageError("sim", "sim takes a verb with its arguments, - for lines from standard input, or --file FILE");
    const TestFolder folder;
    const std::string nowhere = folder.pathOf("nowhere");
    const BadUse uses[] = {
        {{}, 2, wrongUse},
        {{"--file", nowhere, "show"}, 2, wrongUse},
        {{"--file", nowhere}, 1, "kelutv: cannot read " + nowhere + "\n"},
        {{"--file", folder.path()}, 1, "kelutv: cannot read " + folder.path() + "\n"},
    };
    for (const BadUse& use : uses) {
        const ToolRun run = sim(use.words);
        EXPECT_EQ(run.exit, use.exit);
        EXPECT_EQ(run.output, "");
        EXPECT_EQ(run.error, use.error);
    }
}

} // namespace
} // namespace kelutv::test
