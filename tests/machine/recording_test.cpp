#include "simulator/Simulator.h"
#include "support/RuntimeDir.h"
#include "support/TestFolder.h"
#include "tools/Tool.h"

#include <gtest/gtest.h>

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

} // namespace
} // namespace kelutv::test
