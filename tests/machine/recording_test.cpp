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

/** A recording of a program that sets the volume and runs itself again in a child. */
std::string recorded(const std::string& file) {
    return messagesOf({"record", "-o", file, "--", KELUTV_TRACED_CLIENT, "fork"});
}

TEST(RecordingOverTheDriver, isMadeCheckedComparedAndSent) {
    const RuntimeDir directory;
    const Simulator television;
    const TestFolder folder;
    const std::string first = folder.pathOf("first");
    const std::string second = folder.pathOf("second");
    recorded(first);
    recorded(second);
    EXPECT_EQ(runTool({"recording", "check", first}).output,
              "1 section, 3 calls, 0 events, 0 losses, 0 left out; nothing is wrong\n");
    EXPECT_EQ(messagesOf({"recording", "diff", first, second}), "kelutv: 0 differences in 3 calls and events\n");
    messagesOf({"record", "-o", second, "--", toolProgram(), "call", "audio.setVolume", "speaker", "36"});
    const ToolRun diff = runTool({"recording", "diff", first, second});
    EXPECT_EQ(diff.exit, 1);
    EXPECT_NE(diff.output.find("-> 36\n"), std::string::npos) << diff.output;
    const ToolRun replayed = runTool({"recording", "replay", first, "--restore"});
    EXPECT_EQ(replayed.exit, 0) << replayed.output << replayed.error;
    EXPECT_EQ(replayed.output, "audio.volume[speaker]: 2 -> 36\n");
    EXPECT_EQ(runTool({"get", "volume"}).output, "36\n");
}

} // namespace
} // namespace kelutv::test
