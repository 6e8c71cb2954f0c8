#include "tools/Terminal.h"
#include "tools/Tool.h"

#include "simulator/Simulator.h"
#include "support/ChildProcess.h"
#include "support/RuntimeDir.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>

namespace kelutv::test {
namespace {

/** What may follow in a begun command line, in every shell. */
struct Line {
    std::string begun;
    std::string names;
};

std::string begunOf(const std::vector<Line>& lines) {
    std::string begun;
    for (const Line& line : lines) {
        begun += (begun.empty() ? "" : "\n") + line.begun;
    }
    return begun;
}

std::string namesOf(const std::vector<Line>& lines) {
    std::string names;
    for (const Line& line : lines) {
        names += line.names + '\n';
    }
    return names;
}

/** Runs in a shell for each of the lines in BEGUN, and prints what each may become in a line of its own. */
constexpr char kInBash[] = R"sh(
. "$COMPLETION"
while IFS= read -r line; do
    COMP_LINE=$line COMP_POINT=${#line}
    _kelutv ${line%% *}
    word=${line##*[[:space:]]} names=()
    for name in "${COMPREPLY[@]}"; do
        eval "names+=(\"\${word%\"\${word##*[:=@]}\"}\"$name)"
    done
    (IFS='|'; echo "${names[*]}")
done <<< "$BEGUN"
)sh";
/** What takes the names is that of an interactive shell alone. */
constexpr char kInZsh[] = R"sh(
functions[_kelutv]="$(<$COMPLETION)"
compadd() { [[ $1 == -S ]] && shift 2; found+=("${(@P)2}") }
for line in "${(@f)BEGUN}"; do
    found=() words=("${(@z)line}")
    [[ $line == *' ' ]] && words+=('')
    CURRENT=$#words PREFIX=$words[-1]
    _kelutv
    print -r -- ${(j:|:)${(o)found}}
done
)sh";
constexpr char kInFish[] = R"sh(
source $COMPLETION
for line in (string split \n -- $BEGUN)
    echo (complete -C $line | sort | string join '|')
end
)sh";

/** A folder with a few files, in which the shells work. */
class Completion : public ::testing::Test {
protected:
    void SetUp() override {
        for (const char* const name : {"image.bin", "image two.bin", "other"}) {
            std::ofstream(mFolder.path() + '/' + name) << 'x';
        }
        std::ofstream(mFolder.path() + "/television.md")
            << "## Events\n| identifier | event | payload | when |\n| 0x60001 | lampSwitched | - | Always. |\n";
    }

    std::string outputOf(std::vector<std::string> shell, const std::string& completion, const std::string& script,
                         const std::string& lines) const {
        ChildProcess::Options options;
        options.captureOutput = true;
        options.captureError = true;
        options.environment = {"BEGUN=" + lines, "COMPLETION=" KELUTV_COMPLETIONS "/" + completion, "LC_ALL=C",
                               "HOME=" + mFolder.path(),
                               std::string("PATH=") + KELUTV_PROGRAM_FOLDERS + ":/usr/bin:/bin"};
        shell.insert(shell.end(), {"-c", "cd '" + mFolder.path() + "'\n" + script});
        ChildProcess process(shell, options);
        EXPECT_EQ(process.exitCode(), 0) << process.error().text();
        EXPECT_EQ(process.error().text(), "");
        return process.output().text();
    }

    void expectInBash(const std::vector<Line>& lines) const {
        EXPECT_EQ(outputOf({"/bin/bash", "--norc"}, "kelutv", kInBash, begunOf(lines)), namesOf(lines));
    }

    void expectInEveryShell(const std::vector<Line>& lines) const {
        expectInBash(lines);
        EXPECT_EQ(outputOf({"/usr/bin/zsh", "-f"}, "_kelutv", kInZsh, begunOf(lines)), namesOf(lines));
        EXPECT_EQ(outputOf({"/usr/bin/fish", "--no-config"}, "kelutv.fish", kInFish, begunOf(lines)), namesOf(lines));
    }

    RuntimeDir mFolder;
};

TEST_F(Completion, completesInEveryShell) {
    expectInEveryShell({
        {"kelutv st", "status"},
        {"kelutv get --co", "--color"},
        {"kelutv set source hd", "hdmi1|hdmi2|hdmi3|hdmi4"},
        {"kelutv 'get' volu", "volume"},
        {"kelutv nothing ", ""},
        {"kelutv describe CConfig::GetARC", "CConfig::GetARCEnable|CConfig::GetARCMode"},
        {"kelutv call audio.setVolume @ima", "@image two.bin|@image.bin"},
        {"kelutv trace --output oth", "other"},
        {"kelutv snapshot restore oth", "other"},
        {"kelutv monitor --event=vol", "--event=volumeChanged"},
        {"kelutv wait volumeChanged ch", "channel="},
        {"kelutv wait volumeChanged channel=sp", "channel=spdif|channel=speaker"},
        {"kelutv sim cec add log", "logAddr="},
        {"kelutv-simulator --scenario ho", "hotel"},
    });
}

TEST_F(Completion, knowsWhatMayStandInALine) {
    expectInBash({
        {"kelutv st", "status"},
        {"kelutv --json desc", "describe"},
        {"kelutv --color ", "always|auto|never"},
        {"kelutv get --", "--all|--color|--help|--json|--quiet|--timeout|--version"},
        {"kelutv get vol", "volume"},
        {"kelutv get las", "last-power-off"},
        {"kelutv set las", ""},
        {"kelutv set mute ", "off|on|toggle"},
        {"kelutv set source hd", "hdmi1|hdmi2|hdmi3|hdmi4"},
        {"kelutv set volume ", ""},
        {"kelutv cec ", "key|select"},
        {"kelutv cec key volume", "volume_down|volume_up"},
        {"kelutv power s", "suspend"},
        {"kelutv list --kind e", "enumeration|event"},
        {"kelutv describe KELU_TV_WINDOW_", "KELU_TV_WINDOW_ATTR_S|KELU_TV_WINDOW_AUTO|KELU_TV_WINDOW_BUTT|KELU_TV_"
                                            "WINDOW_E|KELU_TV_WINDOW_MAIN|KELU_TV_WINDOW_SUB"},
        {"kelutv help s", "set|sim|snapshot|sources|status"},
        {"kelutv call audio.setVol", "audio.setVolume|audio.setVolumeByC|audio.setVolumeToReg"},
        {"kelutv call linux_tv_Audio_setVolume", "linux_tv_Audio_setVolume|linux_tv_Audio_setVolumeToReg"},
        {"kelutv describe CConfig::GetARC", "CConfig::GetARCEnable|CConfig::GetARCMode"},
        {"kelutv call audio.setVolume sp", "spdif|speaker"},
        {"kelutv call audio.setVolume KELU_TV_AUDIO_CHANNEL_S",
         "KELU_TV_AUDIO_CHANNEL_SOCOUTPUT|KELU_TV_AUDIO_CHANNEL_SPDIF|KELU_TV_AUDIO_CHANNEL_SPEAKER"},
        {"kelutv call audio.setVolume b", "bluetooth"},
        {"kelutv call audio.setVolume KELU_TV_AUDIO_CHANNEL_B", "KELU_TV_AUDIO_CHANNEL_BLUETOOTH"},
        {"kelutv call audio.setMute speaker t", "true"},
        {"kelutv encode audio.setVolume sp", "spdif|speaker"},
        {"kelutv call nothing.here s", ""},
        {"kelutv call audio.setVolume @ima", "@image two.bin|@image.bin"},
        {"kelutv call audio.setVolume @none", ""},
        {"kelutv 'get' volu", "volume"},
        {"kelutv nothing ", ""},
        {"kelutv eep du", "dump"},
        {"kelutv eep dump t", "tv"},
        {"kelutv monitor --module vo", "volume"},
        {"kelutv monitor --event vol", "volumeChanged"},
        {"kelutv monitor -e vol", "volumeChanged"},
        {"kelutv monitor -e volumeChanged -e bootV", "bootVolumeChanged"},
        {"kelutv monitor --events oth", "other"},
        {"kelutv new-service oth", "other"},
        {"kelutv new-service other --module pc", "pcmplayer|pcsetting"},
        {"kelutv snapshot ", "diff|restore"},
        {"kelutv snapshot diff oth", "other"},
        {"kelutv recording diff other oth", "other"},
        {"kelutv recording replay oth", "other"},
        {"kelutv recording diff other other --ignore volumeC", "volumeChanged"},
        {"kelutv snapshot diff other oth", "other"},
        {"kelutv snapshot restore other --only audio.soundM", "audio.soundMode"},
        {"kelutv wait ser", "service"},
        {"kelutv wait vol", "volume|volumeChanged"},
        {"kelutv wait source=hd", "source=hdmi1|source=hdmi2|source=hdmi3|source=hdmi4"},
        {"kelutv wait mute=", "mute=off|mute=on"},
        {"kelutv wait nothing=", ""},
        {"kelutv wait --events television.md lamp", "lampSwitched"},
        {"kelutv wait volumeChanged ", "channel=|volume="},
        {"kelutv wait 0x60001 channel=speaker v", "volume="},
        {"kelutv wait volumeChanged volume=", ""},
        {"kelutv wait service ", ""},
        {"kelutv wait nothing ", ""},
        {"kelutv monitor --events television.md --event ", "lampSwitched"},
        {"kelutv monitor --events other --event ", ""},
        {"kelutv decode --command CMD_AUDIO_GETVOL", "CMD_AUDIO_GETVOLUME"},
        {"kelutv decode @oth", "@other"},
        {"kelutv trace --filter CMD_AUDIO_GETVOL", "CMD_AUDIO_GETVOLUME"},
        {"kelutv trace --filter CMDID_AUDIO_GET_MAX_V", "CMDID_AUDIO_GET_MAX_VOLUME"},
        {"kelutv trace -- oth", "other"},
        {"kelutv sim --file oth", "other"},
        {"kelutv-simulator --ver", "--version"},
        {"kelutv-simulator --eep oth", "other"},
        {"kelutv-simulator --trace --sta", "--state"},
        {"kelutv-simulator --scenario oth", "other"},
        {"kelutv-simulator --fault CMD_AUDIO_GETVOL", "CMD_AUDIO_GETVOLUME"},
    });
}

TEST_F(Completion, knowsTheVerbsOfTheSimulatorWithoutOne) {
    expectInBash({
        {"kelutv sim p", "plug|power"},
        {"kelutv sim audio.vol", "audio.volume|audio.volumeToReg"},
        {"kelutv sim plug hd", "hdmi1|hdmi2|hdmi3|hdmi4"},
        {"kelutv sim plug KELU_TV_SRC_HDMI1", "KELU_TV_SRC_HDMI1"},
        {"kelutv sim plug c", "cec|cvbs1|cvbs2|cvbs3"},
        {"kelutv sim unplug cec ", ""},
        {"kelutv sim signal hdmi1 n", "none"},
        {"kelutv sim cec ", "add|keep|play|put|remove"},
        {"kelutv sim cec add log", "logAddr="},
        {"kelutv sim power s", "shallow|suspended"},
        {"kelutv sim power on w", "wakeupMode="},
        {"kelutv sim key volume_", "volume_down|volume_up"},
        {"kelutv sim key power p", "press"},
        {"kelutv sim event volumeC", "volumeChanged"},
        {"kelutv sim event 0x60001 @oth", "@other"},
        {"kelutv sim fault CMD_AUDIO_GETVOL", "CMD_AUDIO_GETVOLUME"},
        {"kelutv sim fault any d", "delay|die"},
        {"kelutv sim fault any die ", "after|before"},
        {"kelutv sim get audio.spe", "audio.speakerOutput"},
        {"kelutv sim reset audio.volume e", "except"},
        {"kelutv sim show pow", "power"},
        {"kelutv sim help vb", "vbi"},
        {"kelutv sim set audio.hangMode = w", "wall"},
    });
}

/** Of another television. */
TEST_F(Completion, asksTheSimulatorThatRuns) {
    const std::string configuration = mFolder.path() + "/tv.json";
    std::ofstream(configuration) << R"({
        "signals": {"wide": {"sourcemanager.signalStatus": 1}},
        "sources": {"KELU_TV_SRC_HDMI2": null},
        "cec": {"devices": [{"logAddr": 11, "hdmiDevPort": 0, "name": "Console", "phyAddr": "1.0.0.0", "listText": "",
                             "plugged": true}]}
    })";
    const Simulator simulator({"--config", configuration});
    expectInBash({
        {"kelutv sim plug hd", "hdmi1|hdmi3|hdmi4"},
        {"kelutv sim plug cec ", "11"},
        {"kelutv sim cec remove ", "11"},
        {"kelutv sim signal hdmi1 w", "wide"},
        {"kelutv sim signal hdmi1 2160p60", "2160p60|2160p60-hdr10|2160p60-hdr10plus"},
    });
}

/** Bash takes words apart, and puts a reply into the line as it is. */
TEST_F(Completion, repliesToBashWithWhatTheLineNeeds) {
    EXPECT_EQ(outputOf({"/bin/bash", "--norc"}, "kelutv",
                       ". \"$COMPLETION\"; COMP_LINE=$BEGUN COMP_POINT=${#BEGUN}; _kelutv kelutv\n"
                       "printf '%s|' \"${COMPREPLY[@]}\"",
                       "kelutv call audio.setVolume @ima"),
              "image\\ two.bin|image.bin|");
    EXPECT_EQ(outputOf({"/bin/bash", "--norc"}, "kelutv",
                       ". \"$COMPLETION\"; COMP_LINE=$BEGUN COMP_POINT=${#BEGUN}; _kelutv kelutv\n"
                       "printf '%s|' \"${COMPREPLY[@]}\"",
                       "kelutv 'get' \"volu"),
              "volume|");
}

TEST_F(Completion, worksAtTheKeyboardOfBash) {
    Terminal bash({"/bin/bash", "--noprofile", "--norc", "-i"},
                  {"PS1=ready> ", "INPUTRC=/dev/null", "HISTFILE=", "KQDROID_RUNTIME_DIR=" + mFolder.path()});
    ASSERT_TRUE(bash.waitFor("ready> "));
    bash.type("PATH='" KELUTV_PROGRAM_FOLDERS "':$PATH; . '" KELUTV_COMPLETIONS "/kelutv'; echo l''oaded\n");
    ASSERT_TRUE(bash.waitFor("loaded"));
    ASSERT_TRUE(bash.waitFor("ready> "));
    bash.type("kelutv wait volumeChanged ch\tspea\tvol\t");
    EXPECT_TRUE(bash.waitFor("kelutv wait volumeChanged channel=speaker volume=")) << bash.text();
    constexpr char kDiscard[] = "\x15";
    bash.type(kDiscard);
    bash.type("kelutv desc\taudio.getMaxV\t; exit 7\n");
    EXPECT_TRUE(bash.waitFor("kelutv describe audio.getMaxVolume ")) << bash.text();
    EXPECT_TRUE(bash.waitFor("int linux_tv_Audio_getMaxVolume(int channel)")) << bash.text();
    EXPECT_EQ(bash.exitCode(), 7);
}

/** The file is found by its name, as that of a package is. */
TEST_F(Completion, worksAtTheKeyboardOfZsh) {
    Terminal zsh({"/usr/bin/zsh", "-f", "-i"},
                 {"PS1=ready> ", "HOME=" + mFolder.path(), "TERM=dumb", "KQDROID_RUNTIME_DIR=" + mFolder.path()});
    ASSERT_TRUE(zsh.waitFor("ready> "));
    zsh.type("path=('" KELUTV_TOOL_FOLDER "' $path) fpath=('" KELUTV_COMPLETIONS "' $fpath); "
             "autoload -Uz compinit; compinit -u -D; print l''oaded\n");
    ASSERT_TRUE(zsh.waitFor("loaded"));
    ASSERT_TRUE(zsh.waitFor("ready> "));
    zsh.type("kelutv desc\taudio.getMaxV\t; exit 7\n");
    EXPECT_TRUE(zsh.waitFor("int linux_tv_Audio_getMaxVolume(int channel)")) << zsh.text();
    EXPECT_EQ(zsh.exitCode(), 7);
}

/** Fish loads the file of the program's name from such a folder. */
TEST_F(Completion, isFoundByFish) {
    EXPECT_EQ(outputOf({"/usr/bin/fish", "--no-config"}, "",
                       "set fish_complete_path '" KELUTV_COMPLETIONS "'\ncomplete -C $BEGUN", "kelutv stat"),
              "status\n");
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
