#include "simulator/Simulator.h"
#include "support/RuntimeDir.h"
#include "support/TestFolder.h"
#include "tools/Tool.h"

#include <gtest/gtest.h>

#include <csignal>
#include <string>
#include <vector>

namespace kelutv::test {
namespace {

/** What the tool prints on standard error in a run that must succeed. */
std::string messagesOf(const std::vector<std::string>& arguments) {
    const ToolRun run = runTool(arguments);
    EXPECT_EQ(run.exit, 0) << run.output << run.error;
    return run.error;
}

/** Each run of the tool takes half a second there, so that these are few. */
TEST(RecordingOverTheDriver, isMadeCheckedComparedAndSent) {
    const RuntimeDir directory;
    const Simulator television;
    const TestFolder folder;
    const std::string forked = folder.pathOf("forked");
    const std::string called = folder.pathOf("called");
    // A program that sets the volume to 1, runs itself in a child that does so, too, and sets it to 2.
    messagesOf({"record", "-o", forked, "--", KELUTV_TRACED_CLIENT, "fork"});
    messagesOf({"record", "-o", called, "--", toolProgram(), "call", "audio.setVolume", "speaker", "36"});
    EXPECT_EQ(runTool({"recording", "check", forked}).output,
              "1 section, 3 calls, 0 events, 0 losses, 0 left out; nothing is wrong\n");
    const ToolRun diff = runTool({"recording", "diff", forked, called});
    EXPECT_EQ(diff.exit, 1);
    EXPECT_NE(diff.output.find(" -> 36\n"), std::string::npos) << diff.output;
    EXPECT_EQ(diff.error, "kelutv: 3 differences in 3 calls and events\n") << diff.output;
    const ToolRun replayed = runTool({"recording", "replay", forked, "--restore"});
    EXPECT_EQ(replayed.exit, 0) << replayed.output << replayed.error;
    EXPECT_EQ(replayed.output, "audio.volume[speaker]: 2 -> 36\n");
}

/** What a simulator says at the end, whose exit code must be 0. */
std::string reportOf(Simulator& simulator) {
    simulator.process().kill(SIGTERM);
    EXPECT_EQ(simulator.process().exitCode(), 0) << simulator.process().error().text();
    return simulator.process().output().text();
}

TEST(RecordingOverTheDriver, isPlayedAsTheService) {
    const RuntimeDir directory;
    const TestFolder folder;
    const std::string first = folder.pathOf("first");
    const std::string again = folder.pathOf("again");
    {
        Simulator television;
        messagesOf({"record", "-o", first, "--", KELUTV_TRACED_CLIENT, "fork"});
        reportOf(television);
    }
    {
        Simulator recording({"--replay", first});
        messagesOf({"record", "-o", again, "--", KELUTV_TRACED_CLIENT, "fork"});
        const std::string report = reportOf(recording);
        EXPECT_NE(report.find(": 3 of 3 recorded requests asked for, 0 early, 0 that were not recorded; 0 of 0 events "
                              "published; no difference\n"),
                  std::string::npos)
            << report;
    }
    const ToolRun diff = runTool({"recording", "diff", first, again});
    EXPECT_EQ(diff.exit, 0) << diff.output << diff.error;
}

} // namespace
} // namespace kelutv::test
