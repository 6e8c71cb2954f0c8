// Programs are recorded, and meet their recording again.

#include "simulator/Simulator.h"
#include "support/RuntimeDir.h"
#include "tools/recordings/Conversation.h"
#include "tools/recordings/Recorded.h"

#include "recording/Reader.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <cstdint>
#include <fstream>
#include <iterator>
#include <map>
#include <regex>
#include <string>
#include <variant>
#include <vector>

namespace kelutv::test {
namespace {

using Words = std::vector<std::string>;

/** How many events a report says were published; -1 when not all were. */
int publishedIn(const std::string& report) {
    std::smatch found;
    return std::regex_search(report, found, std::regex("; ([0-9]+) of \\1 events published")) ? std::stoi(found[1])
                                                                                              : -1;
}

/** How often a text stands in another. */
std::size_t countOf(const std::string& text, const std::string& whole) {
    std::size_t count = 0;
    for (std::size_t at = whole.find(text); at != std::string::npos; at = whole.find(text, at + 1)) {
        ++count;
    }
    return count;
}

/** How many events each process was given. */
std::map<std::int32_t, int> eventsOf(const std::vector<recording::Line>& lines) {
    std::map<std::int32_t, int> events;
    for (const recording::Line& line : lines) {
        if (const auto* const event = std::get_if<recording::Event>(&line.content)) {
            ++events[event->moment.process];
        }
    }
    return events;
}

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
        const auto recorded = record(file, television, program);
        const auto before = conversationsOf(recorded);
        const ToolRun first = mRun;
        ASSERT_FALSE(before.empty());
        for (const char* const match : {"strictly", "loosely"}) {
            const auto after = record(mFolders.pathOf(match), {"--replay", file, "--match", match}, program);
            EXPECT_EQ(mExit, 0) << match << '\n' << mOutput << mComplaints;
            EXPECT_EQ(conversationsOf(after), before) << match;
            expectEvents(eventsOf(recorded));
            EXPECT_EQ(countOf("the service dies, as recorded", mComplaints), television.empty() ? 0 : 1) << mComplaints;
            // The last event may come too late for a program, and so may the news of a death.
            const ToolRun diff = runTool({"recording", "diff", file, mFolders.pathOf(match), "--ignore",
                                          "volumeChanged", "--ignore", "internetTimeChanged"});
            EXPECT_TRUE(diff.exit == 0 || !television.empty()) << diff.output;
            EXPECT_EQ(mRun.exit, first.exit);
            EXPECT_EQ(mRun.output, first.output);
        }
    }

    /** That as many were published: one that several processes were given is one. */
    void expectEvents(const std::map<std::int32_t, int>& given) {
        int most = 0;
        int all = 0;
        for (const auto& [process, count] : given) {
            most = std::max(most, count);
            all += count;
        }
        EXPECT_GE(publishedIn(mOutput), most) << mOutput;
        EXPECT_LE(publishedIn(mOutput), all) << mOutput;
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
