#include "tools/Terminal.h"
#include "tools/Tool.h"

#include "support/ChildProcess.h"
#include "support/RuntimeDir.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>

namespace kelutv::test {
namespace {

/** What follows for a begun command line. */
struct Line {
    std::string begun;
    std::string names;
};

/** A folder with a few files, in which the shell works. */
class Completion : public ::testing::Test {
protected:
    void SetUp() override {
        for (const char* const name : {"image.bin", "image two.bin", "other"}) {
            std::ofstream(mFolder.path() + '/' + name) << 'x';
        }
        std::ofstream(mFolder.path() + "/television.md")
            << "## Events\n| identifier | event | payload | when |\n| 0x60001 | lampSwitched | - | Always. |\n";
    }

    /** The candidates that bash gets, in one line. */
    std::string inBash(const std::string& line) const {
        ChildProcess::Options options;
        options.captureOutput = true;
        options.captureError = true;
        options.environment = {"LINE=" + line, "FOLDER=" + mFolder.path()};
        ChildProcess bash({"/bin/bash", "--norc", "-c",
                           "cd \"$FOLDER\" && . '" KELUTV_COMPLETION "'\n"
                           "COMP_LINE=$LINE; COMP_POINT=${#LINE}\n"
                           "program=${LINE%% *}; function=_${program//-/_}\n"
                           "kelutv() { '" KELUTV_TOOL_PROGRAM "' \"$@\"; }\n"
                           "kelutv-simulator() { '" KELUTV_SIMULATOR_PROGRAM "' \"$@\"; }\n"
                           "$function $program\n"
                           "IFS='|'; echo \"${COMPREPLY[*]}\""},
                          options);
        EXPECT_EQ(bash.exitCode(), 0) << bash.error().text();
        const std::string text = bash.output().text();
        return text.substr(0, text.find('\n'));
    }

    RuntimeDir mFolder;
};

TEST_F(Completion, completesInBash) {
    const std::vector<Line> lines{
        {"kelutv st", "status"},
        {"kelutv --json desc", "describe"},
        {"kelutv --color ", "always|auto|never"},
        {"kelutv get --", "--color|--help|--json|--quiet|--version"},
        {"kelutv get vol", "volume"},
        {"kelutv get las", "last-power-off"},
        {"kelutv set las", ""},
        {"kelutv set mute ", "off|on|toggle"},
        {"kelutv set source hd", "hdmi1|hdmi2|hdmi3|hdmi4"},
        {"kelutv set volume ", ""},
        {"kelutv help s", "set|sim|status"},
        {"kelutv call audio.setVol", "audio.setVolume|audio.setVolumeByC|audio.setVolumeToReg"},
        {"kelutv call linux_tv_Audio_setVolume", "linux_tv_Audio_setVolume|linux_tv_Audio_setVolumeToReg"},
        {"kelutv describe CConfig::GetARC", "GetARCEnable|GetARCMode"},
        {"kelutv call audio.setVolume sp", "spdif|speaker"},
        {"kelutv call audio.setVolume KELU_TV_AUDIO_CHANNEL_S",
         "KELU_TV_AUDIO_CHANNEL_SOCOUTPUT|KELU_TV_AUDIO_CHANNEL_SPDIF|KELU_TV_AUDIO_CHANNEL_SPEAKER"},
        {"kelutv call audio.setVolume b", "bluetooth"},
        {"kelutv call audio.setVolume KELU_TV_AUDIO_CHANNEL_B", "KELU_TV_AUDIO_CHANNEL_BLUETOOTH"},
        {"kelutv call audio.setMute speaker t", "true"},
        {"kelutv encode audio.setVolume sp", "spdif|speaker"},
        {"kelutv call nothing.here s", ""},
        {"kelutv call audio.setVolume @ima", "image\\ two.bin|image.bin"},
        {"kelutv call audio.setVolume @none", ""},
        {"kelutv 'get' \"volu", "volume"},
        {"kelutv nothing ", ""},
        {"kelutv eep du", "dump"},
        {"kelutv eep dump t", "tv"},
        {"kelutv monitor --module vo", "volume"},
        {"kelutv monitor --event vol", "volumeChanged"},
        {"kelutv monitor --events oth", "other"},
        {"kelutv monitor --events television.md --event ", "lampSwitched"},
        {"kelutv monitor --events other --event ", ""},
        {"kelutv decode --command CMD_AUDIO_GETVOL", "CMD_AUDIO_GETVOLUME"},
        {"kelutv decode @oth", "other"},
        {"kelutv trace --filter CMD_AUDIO_GETVOL", "CMD_AUDIO_GETVOLUME"},
        {"kelutv trace --filter CMDID_AUDIO_GET_MAX_V", "CMDID_AUDIO_GET_MAX_VOLUME"},
        {"kelutv trace --output oth", "other"},
        {"kelutv trace -- oth", "other"},
        {"kelutv-simulator --ver", "--version"},
        {"kelutv-simulator --eep oth", "other"},
    };
    for (const Line& line : lines) {
        EXPECT_EQ(inBash(line.begun), line.names) << line.begun;
    }
}

TEST_F(Completion, worksAtTheKeyboardOfBash) {
    Terminal bash({"/bin/bash", "--noprofile", "--norc", "-i"},
                  {"PS1=ready> ", "INPUTRC=/dev/null", "HISTFILE=", "KQDROID_RUNTIME_DIR=" + mFolder.path()});
    ASSERT_TRUE(bash.waitFor("ready> "));
    bash.type("PATH='" KELUTV_TOOL_FOLDER "':$PATH; . '" KELUTV_COMPLETION "'; echo l''oaded\n");
    ASSERT_TRUE(bash.waitFor("loaded"));
    ASSERT_TRUE(bash.waitFor("ready> "));
    bash.type("kelutv desc\taudio.getMaxV\t; exit 7\n");
    EXPECT_TRUE(bash.waitFor("kelutv describe audio.getMaxVolume ")) << bash.text();
    EXPECT_TRUE(bash.waitFor("int linux_tv_Audio_getMaxVolume(int channel)")) << bash.text();
    EXPECT_EQ(bash.exitCode(), 7);
}

TEST_F(Completion, givesWordsAndDocuments) {
    EXPECT_EQ(runTool({"complete", "--", "set", "mute", "t"}).output, "toggle\n");
    EXPECT_EQ(runTool({"complete", "--", "sta"}).output, "status\n");
    EXPECT_EQ(runTool({"complete", "--json", "--", "get", "bri"}).output, "{\"completions\":[\"brightness\"]}\n");
    EXPECT_EQ(runTool({"complete", "--", "get", "nothing"}).exit, 0);
}

TEST_F(Completion, offersEveryFunctionAndSetting) {
    const auto count = [](const std::string& output) { return std::count(output.begin(), output.end(), '\n'); };
    const std::string shortNames = runTool({"complete", "--", "call", ""}).output;
    EXPECT_GT(count(shortNames), 700);
    EXPECT_EQ(count(runTool({"complete", "--", "call", "linux_tv_Audio_"}).output),
              count(runTool({"list", "linux_tv_Audio_*"}).output));
    EXPECT_EQ(count(runTool({"complete", "--", "get", ""}).output), count(runTool({"get"}).output));
}

} // namespace
} // namespace kelutv::test
