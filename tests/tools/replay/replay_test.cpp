#include "tools/recordings/Recorded.h"
#include "tools/recordings/RecordingText.h"

#include "recording/Reader.h"
#include "simulator/Simulator.h"
#include "support/RuntimeDir.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <memory>

namespace kelutv::test {
namespace {

using Words = std::vector<std::string>;

constexpr char kGet[] = "CMD_AUDIO_GETVOLUME(channel=0 KELU_TV_AUDIO_CHANNEL_SPEAKER) -> 0: ";

std::string setLine(int sequence, std::uint32_t volume) { return lineOf({sequence, setVolumeWords(volume)}); }

std::string getLine(int sequence, std::uint32_t volume) {
    return lineOf({sequence, getVolumeWords(), wordDigits(0) + wordDigits(volume)});
}

/** What a television that has just been switched on answers in the same way. */
std::string sample() { return headerLine() + getLine(1, 20) + setLine(2, 35) + getLine(3, 35); }

/** A television, and recordings that are sent to it. */
class RecordingReplay : public ::testing::Test {
protected:
    void SetUp() override { turnOn(); }

    /** One that has just been switched on, in place of any before. */
    void turnOn() {
        mTelevision.reset();
        mTelevision = startSimulator({});
        ASSERT_TRUE(mTelevision->output().waitFor("ready (TVBaseService)\n")) << mTelevision->error().text();
    }

    std::string file(const std::string& name) const { return mFolder.pathOf(name); }

    std::string written(const std::string& text) const {
        std::ofstream(file("sample.jsonl")) << text;
        return file("sample.jsonl");
    }

    ToolRun replay(const std::string& text, const Words& options = {}) const { return runTool(words(text, options)); }

    Words words(const std::string& text, const Words& options) const {
        Words words{"recording", "replay", written(text)};
        words.insert(words.end(), options.begin(), options.end());
        return words;
    }

    static void sim(const std::string& line) { EXPECT_EQ(runTool({"sim", line}).exit, 0) << line; }

    static std::string volume() { return runTool({"get", "volume"}).output; }

    static std::string states() {
        return volume() + runTool({"get", "mute"}).output + runTool({"get", "brightness"}).output;
    }

    ChildProcess& television() { return *mTelevision; }

private:
    TestFolder mFolder;
    RuntimeDir mRuntimeDir;
    std::unique_ptr<ChildProcess> mTelevision;
};

TEST_F(RecordingReplay, agreesWithATelevisionThatAnswersAlike) {
    const ToolRun run = replay(sample());
    EXPECT_EQ(run.exit, 0);
    EXPECT_EQ(run.output, "");
    EXPECT_EQ(run.error, "kelutv: 0 differences in 3 calls\n");
    EXPECT_EQ(volume(), "35\n");
}

/** What the examples were answered when they were recorded is what they are answered today. */
TEST_F(RecordingReplay, agreesWithTheRecordingsThatAreKept) {
    std::size_t count = 0;
    for (const auto& entry : std::filesystem::directory_iterator(KELUTV_RECORDINGS)) {
        if (entry.path().extension() != ".jsonl") {
            continue;
        }
        turnOn();
        const ToolRun run = runTool({"recording", "replay", entry.path()});
        EXPECT_EQ(run.exit, 0) << entry.path() << '\n' << run.output << run.error;
        const std::size_t calls = all<recording::Transaction>(recording::linesOfFile(entry.path())).size();
        EXPECT_EQ(run.error, "kelutv: 0 differences in " + std::to_string(calls) + " calls\n") << entry.path();
        EXPECT_EQ(runTool({"recording", "diff", entry.path(), entry.path()}).exit, 0) << entry.path();
        ++count;
    }
    EXPECT_EQ(count, 4U);
}

TEST_F(RecordingReplay, namesWhatIsAnsweredOtherwise) {
    sim("set audio.volume[speaker] = 7");
    sim("fault CMD_AUDIO_SETVOLUME error -5");
    const ToolRun run = replay(sample());
    EXPECT_EQ(run.exit, 1);
    EXPECT_EQ(run.output, "2 changed " + std::string(kGet) +
                              "20: value 20 -> 7\n"
                              "3 changed CMD_AUDIO_SETVOLUME(channel=0 KELU_TV_AUDIO_CHANNEL_SPEAKER, vol=35) -> 0: "
                              "result 0 -> -5\n"
                              "4 changed " +
                              kGet + "35: value 35 -> 7\n");
    EXPECT_EQ(run.error, "kelutv: 3 differences in 3 calls\n");
    EXPECT_EQ(replay(sample(), {"--ignore", "any:value", "--ignore", "any:result"}).exit, 0);
    EXPECT_EQ(replay(sample(), {"--ignore", "CMD_AUDIO_*"}).exit, 0);
}

TEST_F(RecordingReplay, comparesEveryByte) {
    // The right answer, and a word behind it that nobody expects.
    sim("fault CMD_AUDIO_SETVOLUME long 4");
    const ToolRun run = replay(sample());
    EXPECT_EQ(run.exit, 1);
    EXPECT_NE(run.output.find("-> 0: "), std::string::npos) << run.output;
}

TEST_F(RecordingReplay, sendsTheBytesThatWereRecorded) {
    const RecordingFolders folders;
    const ToolRun recorded = runTool(
        {"record", "-o", folders.file(), "--", toolProgram(), "recording", "replay", written(sample()), "--quiet"},
        folders.environment());
    ASSERT_EQ(recorded.exit, 0) << recorded.error;
    const auto sent = all<recording::Transaction>(recording::linesOfFile(folders.file()));
    const auto before = all<recording::Transaction>(recording::linesOfFile(file("sample.jsonl")));
    ASSERT_EQ(sent.size(), before.size());
    for (std::size_t i = 0; i < sent.size(); ++i) {
        EXPECT_EQ(sent[i].request, before[i].request) << i;
        EXPECT_EQ(sent[i].reply, before[i].reply) << i;
    }
}

/** A recording of a television with another platform names another token. */
TEST_F(RecordingReplay, writesTheTokenOfThisPlatform) {
    const std::string other = "00000080ffffffff5453595316000000" + tokenDigits().substr(16);
    std::string text = sample();
    text.replace(text.find(R"("token":"")"), 10, R"("token":")" + other + '"');
    for (std::size_t at = text.find('\n'); (at = text.find(tokenDigits(), at)) != std::string::npos;
         at += other.size()) {
        text.replace(at, tokenDigits().size(), other);
    }
    const ToolRun run = replay(text);
    EXPECT_EQ(run.exit, 0) << run.output;
    EXPECT_EQ(run.error, "kelutv: 0 differences in 3 calls\n");
}

/** CMD_SYSTEM_RESTOREDEFAULT is dangerous; nobody knows what command 0x7fffffff does. */
TEST_F(RecordingReplay, leavesOutWhatIsDangerous) {
    const std::string text =
        sample() + lineOf({4, wordDigits(0x8002)}) + lineOf({5, wordDigits(0x7fffffff), "9affffff"});
    const ToolRun run = replay(text);
    EXPECT_EQ(run.exit, 0) << run.output;
    EXPECT_EQ(run.error, "kelutv: dangerous or unknown, left out unless --allow-dangerous names them: "
                         "CMD_SYSTEM_RESTOREDEFAULT (1), command 0x7FFFFFFF (1)\n"
                         "kelutv: 0 differences in 3 calls, 2 dangerous left out\n");
    EXPECT_EQ(volume(), "35\n");
    const ToolRun allowed = replay(text, {"--allow-dangerous", "CMD_SYSTEM_RESTOREDEFAULT", "--ignore", "any:value"});
    EXPECT_EQ(allowed.exit, 0) << allowed.output;
    EXPECT_EQ(allowed.error.substr(allowed.error.find('\n')),
              "\nkelutv: 0 differences in 4 calls, 1 dangerous left out\n");
    EXPECT_EQ(replay(text, {"--allow-dangerous", "any", "--ignore", "any:value"}).error,
              "kelutv: 0 differences in 5 calls\n");
}

/** An item is as dangerous as the functions that send it, not as those that hand on any item. */
TEST_F(RecordingReplay, knowsTheItemsThatAreNotDangerous) {
    // CMDID_AUDIO_SET_BOOT_VOLUME by its command, and CMDID_AUDIO_SET_VOLUME_TO_REG, which is dangerous.
    const RecordingFolders folders;
    std::ofstream(file("lines")) << "call audio.setBootVolume speaker 7\ncall audio.setVolumeToReg speaker 7\n";
    runTool(
        {"record", "-o", folders.file(), "--", "/bin/sh", "-c", "exec " + toolProgram() + " repl < " + file("lines")},
        folders.environment());
    const ToolRun run = runTool({"recording", "replay", folders.file()});
    EXPECT_EQ(run.exit, 0) << run.output;
    EXPECT_EQ(run.error, "kelutv: dangerous or unknown, left out unless --allow-dangerous names them: "
                         "CMDID_AUDIO_SET_VOLUME_TO_REG (1)\n"
                         "kelutv: 0 differences in 1 call, 1 dangerous left out\n");
}

TEST_F(RecordingReplay, sendsWhatIsChosen) {
    const ToolRun run =
        replay(sample() + lineOf({4, setVolumeWords(1), "null"}), {"--only", "CMD_AUDIO_SETVOLUME", "--json"});
    EXPECT_EQ(run.exit, 0);
    EXPECT_EQ(run.output,
              R"({"calls":1,"sent":1,"differences":0,"dangerous":{},"unanswered":1,"notMeant":2,"missing":0,)"
              R"("gone":false})"
              "\n");
    EXPECT_EQ(volume(), "35\n");
}

TEST_F(RecordingReplay, putsBackWhatItSet) {
    sim("set audio.volume[speaker] = 12");
    const ToolRun run = replay(sample(), {"--restore", "--ignore", "any:value"});
    EXPECT_EQ(run.exit, 0);
    EXPECT_EQ(run.output, "audio.volume[speaker]: 35 -> 12\n");
    EXPECT_EQ(run.error, "kelutv: 0 differences in 3 calls\n"
                         "kelutv: 1 state set, 0 did not take, 0 as wanted, 0 dangerous left alone\n");
    EXPECT_EQ(volume(), "12\n");
}

/** What cannot be told does not keep a state from being put back. */
TEST_F(RecordingReplay, putsAllBackWhenNothingCanBeWritten) {
    // The volume, the mute and the brightness.
    const std::string text = headerLine() + setLine(1, 35) +
                             lineOf({2, wordDigits(0x200A) + wordDigits(0) + wordDigits(1) + wordDigits(0)}) +
                             lineOf({3, wordDigits(0x1004) + wordDigits(71)});
    const std::string before = states();
    const ToolRun run = runToolOnFullDevice(words(text, {"--restore"}));
    EXPECT_EQ(run.exit, 1);
    EXPECT_NE(run.error.find("kelutv: 0 differences in 3 calls\n"), std::string::npos) << run.error;
    EXPECT_NE(run.error.find("No space left on device"), std::string::npos) << run.error;
    EXPECT_EQ(run.error.find("not known"), std::string::npos) << run.error;
    EXPECT_EQ(states(), before);
}

TEST_F(RecordingReplay, saysWhatCannotBePutBack) {
    // CMD_AUDIO_RESTORESOUNDSETS sets back much that the catalogue does not name.
    const ToolRun run = replay(headerLine() + lineOf({1, wordDigits(0x204A)}),
                               {"--restore", "--allow-dangerous", "CMD_AUDIO_RESTORESOUNDSETS"});
    EXPECT_EQ(run.exit, 0) << run.output;
    EXPECT_EQ(run.error.substr(0, run.error.find('\n')),
              "kelutv: cannot be put back: CMD_AUDIO_RESTORESOUNDSETS (the catalogue has no state that it sets)");
    const ToolRun unknown = replay(headerLine() + lineOf({1, wordDigits(0x7fffffff), "9affffff"}),
                                   {"--restore", "--allow-dangerous", "any"});
    EXPECT_EQ(unknown.exit, 0) << unknown.output;
    EXPECT_EQ(unknown.error.substr(0, unknown.error.find('\n')),
              "kelutv: cannot be put back: command 0x7FFFFFFF (the catalogue does not know what it does)");
}

TEST_F(RecordingReplay, putsBackWhenASignalEndsIt) {
    for (const int signal : {SIGINT, SIGTERM}) {
        // The television carries it out at once.
        sim("fault CMD_AUDIO_SETVOLUME delay 3600s once");
        const auto tool = startTool(words(sample(), {"--restore"}));
        ASSERT_TRUE(eventually([] { return runTool({"sim", "faults"}).output.empty(); })) << "the call was not made";
        tool->kill(signal);
        const std::optional<int> status = tool->wait();
        ASSERT_TRUE(status);
        EXPECT_TRUE(WIFSIGNALED(*status) && WTERMSIG(*status) == signal) << *status;
        EXPECT_EQ(tool->output().text(), "audio.volume[speaker]: 35 -> 20\n");
        EXPECT_EQ(tool->error().text(),
                  std::string("kelutv: not all was sent: ") + ::strsignal(signal) +
                      "\nkelutv: 1 state set, 0 did not take, 0 as wanted, 0 dangerous left alone\n");
        EXPECT_EQ(volume(), "20\n");
    }
}

TEST_F(RecordingReplay, saysThatTheServiceIsGone) {
    sim("fault CMD_AUDIO_SETVOLUME nth 2 die before");
    const ToolRun run = replay(sample() + setLine(4, 34) + getLine(5, 34), {"--restore"});
    EXPECT_EQ(run.exit, 3);
    EXPECT_EQ(run.output,
              "5 changed CMD_AUDIO_SETVOLUME(channel=0 KELU_TV_AUDIO_CHANNEL_SPEAKER, vol=34) -> 0: status a reply -> "
              "no reply: the link is dead\n");
    EXPECT_NE(run.error.find("kelutv: the service is gone after 4 of 5 calls\n"), std::string::npos) << run.error;
    EXPECT_NE(run.error.find("not known to be as before: audio.volume[speaker]\n"), std::string::npos) << run.error;
    EXPECT_EQ(replay(sample()).exit, 3);
    EXPECT_EQ(replay(sample(), {"--restore"}).exit, 3);
}

TEST_F(RecordingReplay, endsInTime) {
    sim("fault CMD_AUDIO_SETVOLUME delay 3600s");
    const ToolRun run = replay(sample(), {"--timeout", "0.3"});
    EXPECT_EQ(run.exit, 5);
    EXPECT_EQ(run.error, "kelutv: the time was over after 0.3 s\n");
}

TEST_F(RecordingReplay, refusesBadInput) {
    EXPECT_EQ(replay(sample() + "nonsense\n").exit, 2);
    EXPECT_EQ(volume(), "20\n") << "something was sent";
    EXPECT_EQ(replay("").exit, 2);
    EXPECT_EQ(replay(sample(), {"--only", "CMD_AUDIO_SETVOLUMES"}).exit, 2);
    EXPECT_EQ(replay(sample(), {"--ignore", "volumeChange:"}).exit, 2);
    EXPECT_EQ(replay(sample(), {"--allow-dangerous", "nothing"}).exit, 2);
    EXPECT_EQ(runTool({"recording", "replay", file("none")}).exit, 2);
}

} // namespace
} // namespace kelutv::test
