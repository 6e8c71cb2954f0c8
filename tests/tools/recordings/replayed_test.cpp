// Programs are recorded, and meet their recording again.

#include "simulator/Simulator.h"
#include "support/RuntimeDir.h"
#include "tools/recordings/Conversation.h"
#include "tools/recordings/Recorded.h"

#include "recording/Reader.h"

#include <gtest/gtest.h>

#include <csignal>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace kelutv::test {
namespace {

using Words = std::vector<std::string>;

class RoundTrip : public ::testing::Test {
protected:
    /** Records a program with its events against a television that has these options. */
    std::vector<recording::Line> record(const std::string& file, const Words& options, const Words& program) {
        Simulator simulator(options);
        Words words{"record", "--events", "--output", file, "--"};
        words.insert(words.end(), program.begin(), program.end());
        mRun = runTool(words, mFolders.environment());
        simulator.process().kill(SIGTERM);
        mExit = simulator.process().exitCode().value_or(-1);
        mOutput = simulator.process().output().text();
        mComplaints = simulator.process().error().text();
        return recording::linesOfFile(file);
    }

    /** That a program meets its recording without a difference, and is told the same again. */
    void expectTheSame(const Words& program, const Words& television = {}) {
        const std::string file = mFolders.file();
        const auto before = conversationsOf(record(file, television, program));
        const ToolRun first = mRun;
        ASSERT_FALSE(before.empty());
        for (const char* const match : {"strictly", "loosely"}) {
            const auto after = record(mFolders.pathOf(match), {"--replay", file, "--match", match}, program);
            EXPECT_EQ(mExit, 0) << match << '\n' << mOutput << mComplaints;
            EXPECT_EQ(conversationsOf(after), before) << match;
            // The last event may come too late for a program, and so may the news of a death.
            const ToolRun diff =
                runTool({"recording", "diff", file, mFolders.pathOf(match), "--ignore", "volumeChanged"});
            EXPECT_TRUE(diff.exit == 0 || !television.empty()) << diff.output;
            EXPECT_EQ(mRun.exit, first.exit);
            EXPECT_EQ(mRun.output, first.output);
        }
    }

    const RuntimeDir mRuntimeDir;
    RecordingFolders mFolders;
    ToolRun mRun{};
    int mExit = 0;
    std::string mOutput;
    std::string mComplaints;
};

TEST_F(RoundTrip, ofThreads) { expectTheSame({KELUTV_TRACED_CLIENT, "threads"}); }

TEST_F(RoundTrip, acrossForkAndExec) {
    expectTheSame({KELUTV_TRACED_CLIENT, "fork"});
    expectTheSame({KELUTV_TRACED_CLIENT, "exec"});
}

TEST_F(RoundTrip, ofSeveralProgramsOneAfterTheOther) {
    const std::string client = KELUTV_TRACED_CLIENT;
    expectTheSame({"/bin/sh", "-c", client + " large; " + client + " proxy & wait; " + client + " fork"});
}

TEST_F(RoundTrip, ofAProgramThatOutlivesItsService) {
    expectTheSame({KELUTV_TRACED_CLIENT, "busy"}, {"--fault", "CMD_AUDIO_SETVOLUME nth 5 die before"});
    EXPECT_EQ(mComplaints, "kelutv-simulator: the service dies, as recorded, and comes back\n");
}

TEST_F(RoundTrip, findsAByteThatIsAnother) {
    const std::string file = mFolders.file();
    record(file, {}, {KELUTV_TRACED_CLIENT, "print"});
    std::ifstream input(file);
    std::string text{std::istreambuf_iterator<char>(input), {}};
    // The volume at the end of the request.
    text.replace(text.find("05000000\"", text.find("\"request\"")), 8, "04000000");
    std::ofstream(file) << text;
    record(mFolders.pathOf("again"), {"--replay", file}, {KELUTV_TRACED_CLIENT, "print"});
    EXPECT_EQ(mExit, 1);
    EXPECT_NE(mComplaints.find("vol=5) was not recorded; nearest: CMD_AUDIO_SETVOLUME(channel=0 "
                               "KELU_TV_AUDIO_CHANNEL_SPEAKER, vol=4) of line "),
              std::string::npos)
        << mComplaints;
}

} // namespace
} // namespace kelutv::test
