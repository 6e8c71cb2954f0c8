#include "simulator/Simulator.h"
#include "support/TestFolder.h"
#include "tools/Tool.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace kelutv::test {
namespace {

class PutBackRuns : public ::testing::Test {
protected:
    void SetUp() override {
        mTelevision = startSimulator({"--state", file("state.json")});
        ASSERT_TRUE(mTelevision->output().waitFor("ready (TVBaseService)\n")) << mTelevision->error().text();
    }

    std::string file(const std::string& name) const { return mFolder.pathOf(name); }
    std::string journal() const { return file("put-back.json"); }
    bool isKept() const { return std::filesystem::exists(journal()); }

    static std::string textOf(const std::string& path) {
        std::ifstream stream(path);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

    void write(const std::string& name, const std::string& text) const { std::ofstream(file(name)) << text; }

    static void run(std::vector<std::string> words) {
        const ToolRun run = runTool(std::move(words));
        EXPECT_EQ(run.exit, 0) << run.output << run.error;
    }

    /** Judges with the file of this test. */
    ToolRun judge(std::vector<std::string> words) const {
        words.insert(words.begin(), {"--quiet", "compliance", "--keep", journal()});
        return runTool(std::move(words));
    }

    static void hasTold(const std::string& text, const std::string& told) {
        EXPECT_NE(text.find(told), std::string::npos) << text;
    }

private:
    TestFolder mFolder;
    RuntimeDir mRuntimeDir;
    std::unique_ptr<ChildProcess> mTelevision;
};

/** The catalogue gives no keys of the state, so that a snapshot does not ask for it. */
TEST_F(PutBackRuns, haveEveryStateThatIsSetInTheFile) {
    run({"call", "picture.setDemoMode", "0", "1"});
    run({"sim", "fault CMD_PICTURE_SETDEMOMODE delay 3600s"});
    const ToolRun judged = judge({"state.picture.setDemoMode*", "--limit", "1.5"});
    EXPECT_EQ(judged.exit, 1);
    hasTold(judged.output, "failed  state.television.unchanged: ");
    ASSERT_TRUE(isKept());
    hasTold(textOf(journal()), "picture.demoMode[0]");
    run({"sim", "fault clear"});
    run({"call", "picture.setDemoMode", "0", "0"});
    run({"compliance", "--put-back", journal()});
    EXPECT_FALSE(isKept());
    EXPECT_EQ(runTool({"sim", "get picture.demoMode[0]"}).output, "picture.demoMode[0] = 1\n");
}

TEST_F(PutBackRuns, leaveOutWhatCouldNotBeReadBefore) {
    run({"sim", "fault CMD_AUDIO_GETINPUTVOLUME once error -5"});
    const ToolRun judged = judge({"state.audio.setInputVolume.kept", "--all"});
    EXPECT_EQ(judged.exit, 0) << judged.output;
    hasTold(judged.output, "left out  state.audio.setInputVolume.kept: it could not be read before the run");
}

/** What was given up may be done by the service after all was read. */
TEST_F(PutBackRuns, keepTheFileWhenASetWasGivenUp) {
    run({"sim", "fault CMD_AUDIO_SETINPUTVOLUME once delay 3600s"});
    write("expect.json", R"({"format": "kelutv known failures 1", "failures": [{"check": "*", "reason": "slow"}]})");
    const ToolRun judged =
        judge({"state.audio.setInputVolume.kept", "--limit", "1.5", "--expect", file("expect.json")});
    EXPECT_EQ(judged.exit, 1) << "nothing excuses a television that may be changed";
    EXPECT_TRUE(isKept());
    hasTold(judged.error, "put-back.json stays: a check that sets something was given up");
    run({"compliance", "--put-back", journal()});
    EXPECT_FALSE(isKept());
}

/** Starts the tool with nowhere to write to. */
std::unique_ptr<ChildProcess> startOnAFullDisk(std::vector<std::string> words) {
    words.insert(words.begin(), toolProgram());
    ChildProcess::Options options;
    options.captureError = true;
    const int own = ::dup(STDOUT_FILENO);
    const int full = ::open("/dev/full", O_WRONLY | O_CLOEXEC);
    ::dup2(full, STDOUT_FILENO);
    auto tool = std::make_unique<ChildProcess>(std::move(words), options);
    ::dup2(own, STDOUT_FILENO);
    ::close(full);
    ::close(own);
    return tool;
}

TEST_F(PutBackRuns, putBackWhenTheyCannotTell) {
    const auto tool =
        startOnAFullDisk({"--quiet", "compliance", "state.audio.setInputVolume.*", "--all", "--keep", journal()});
    EXPECT_EQ(tool->exitCode(), 1);
    hasTold(tool->error().text(), "No space left on device");
    EXPECT_FALSE(isKept());
}

TEST_F(PutBackRuns, setAndTakeAwayNoFileOfAnother) {
    run({"--quiet", "snapshot", "-o", file("snapshot.json")});
    const ToolRun put = runTool({"compliance", "--put-back", file("snapshot.json")});
    EXPECT_EQ(put.exit, 2);
    hasTold(put.error, "is no file that a run of 'kelutv compliance' has left; 'kelutv snapshot restore ");
    EXPECT_TRUE(std::filesystem::exists(file("snapshot.json")));
}

/** The name is taken before anything is read. */
TEST_F(PutBackRuns, doNotShareAFile) {
    run({"sim", "fault CMD_AUDIO_GETINPUTVOLUME delay 3600s"});
    const auto first = startTool({"compliance", "state.audio.setInputVolume.*", "--keep", journal()});
    ASSERT_TRUE(eventually([&] { return isKept(); }));
    const ToolRun second = judge({"state.audio.setInputVolume.*"});
    EXPECT_EQ(second.exit, 2);
    hasTold(second.error, "or another one is at work");
    first->kill(SIGKILL);
    first->wait();
    ASSERT_TRUE(isKept());
    run({"compliance", "--put-back", journal(), "--dry-run"});
}

TEST_F(PutBackRuns, refuseOptionsThatWouldReplaceTheFile) {
    const ToolRun same = judge({"audio", "-o", file("./put-back.json")});
    EXPECT_EQ(same.exit, 2);
    hasTold(same.error, "--keep and -o name the same file");
    EXPECT_EQ(judge({"audio", "--html", file("a"), "--junit", file("a")}).exit, 2);
    EXPECT_EQ(judge({"--discover", journal()}).exit, 2);
    EXPECT_EQ(judge({"audio", "--html", "/dev/null", "--junit", "/dev/null", "--dry-run"}).exit, 0);
}

TEST_F(PutBackRuns, refuseWhatADiscoveryDoesNotDo) {
    for (const char* const option : {"--dry-run", "--all"}) {
        EXPECT_EQ(judge({"--discover", file("board.json"), option}).exit, 2) << option;
    }
    for (const char* const option : {"--expect", "--capabilities", "-o", "--junit", "--html", "--put-back"}) {
        EXPECT_EQ(judge({"--discover", file("board.json"), option, file("other")}).exit, 2) << option;
    }
    const ToolRun word = judge({"audio", "--discover", file("board.json")});
    EXPECT_EQ(word.exit, 2);
    hasTold(word.error, "--discover chooses its checks itself, so that it takes no 'audio'");
}

TEST_F(PutBackRuns, tellACommandThatAShellTakes) {
    const std::string path = file(std::string(90, 'a') + " b.json");
    write(std::string(90, 'a') + " b.json", "");
    const ToolRun judged = runTool({"compliance", "state.audio.setInputVolume.*", "--keep", path});
    EXPECT_EQ(judged.exit, 2);
    hasTold(judged.error, "kelutv compliance --put-back '" + path + "'");
}

} // namespace
} // namespace kelutv::test
