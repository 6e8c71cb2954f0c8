// Recordings and snapshots.

#include "foreign/ForeignService.h"
#include "support/TestFolder.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>
#include <fstream>
#include <iterator>

namespace kelutv::test {
namespace {

std::string token() { return std::getenv("KELUTV_TEST_TOKEN"); }

std::string contentOf(const std::string& path) {
    std::ifstream file(path);
    return {std::istreambuf_iterator<char>(file), {}};
}

TEST(ForeignFiles, recordsRequestsEventsAndTheLossOfTheService) {
    ForeignService service;
    const TestFolder folder;
    const std::string file = folder.pathOf("recording");
    const auto recorder = startTool(
        {"record", "--events", "-o", file, "--", toolProgram(), "monitor", "--exit-on-loss"}, service.environment());
    ASSERT_TRUE(recorder->error().waitFor("kelutv: watching for events\n")) << recorder->error().text();
    service.output({"set", "volume", "36"});
    EXPECT_TRUE(recorder->output().waitFor("volume=36\n")) << recorder->output().text();
    service.process().kill(SIGKILL);
    EXPECT_EQ(recorder->exitCode(), 3);
    const std::string recorded = contentOf(file);
    EXPECT_NE(recorded.find("\"token\":\"" + token() + '"'), std::string::npos) << recorded;
    EXPECT_NE(recorded.find("\"event\":393217,\"payload\":\"0000000024000000\""), std::string::npos) << recorded;
    EXPECT_NE(recorded.find("\"kind\":\"loss\""), std::string::npos) << recorded;
}

TEST(ForeignFiles, recordsTheBytesThatAreSent) {
    ForeignService service;
    const TestFolder folder;
    const std::string file = folder.pathOf("recording");
    EXPECT_EQ(
        service.output({"-q", "record", "-o", file, "--", toolProgram(), "call", "audio.setVolume", "speaker", "35"}),
        "result: 0\n");
    EXPECT_NE(contentOf(file).find("\"request\":\"" + token() + "082000000000000023000000\",\"reply\":\"00000000\""),
              std::string::npos)
        << contentOf(file);
    const ToolRun check = runTool({"recording", "check", file});
    EXPECT_EQ(check.output, "1 section, 1 call, 0 events, 0 losses, 0 left out; nothing is wrong\n");
}

/** A recording of another platform is sent with the token of this one, and compared without it. */
TEST(ForeignFiles, comparesAndSendsRecordingsOfOtherPlatforms) {
    ForeignService service;
    const TestFolder folder;
    const std::string file = folder.pathOf("recording");
    service.output({"set", "volume", "20"});
    service.output({"-q", "record", "-o", file, "--", toolProgram(), "call", "audio.setVolume", "speaker", "35"});
    const ToolRun diff = runTool({"recording", "diff", KELUTV_RECORDINGS "/volume.jsonl", file});
    EXPECT_EQ(diff.exit, 1);
    EXPECT_EQ(diff.output.find("token"), std::string::npos) << diff.output;
    EXPECT_EQ(diff.error, "kelutv: 3 differences in 4 calls and events\n") << diff.output;
    service.output({"set", "volume", "20"});
    const std::size_t before = service.requests().size();
    const ToolRun replayed = service.run({"recording", "replay", KELUTV_RECORDINGS "/volume.jsonl", "--restore"});
    EXPECT_EQ(replayed.exit, 0) << replayed.output << replayed.error;
    EXPECT_EQ(replayed.output, "audio.volume[speaker]: 35 -> 20\n");
    const std::vector<std::string> requests = service.requests();
    EXPECT_GT(requests.size(), before + 3);
    for (const std::string& request : requests) {
        EXPECT_EQ(request.substr(0, token().size()), token());
    }
}

TEST(ForeignFiles, keepsATelevisionInASnapshotAndPutsItBack) {
    const ForeignService service;
    const TestFolder folder;
    const std::string golden = folder.pathOf("golden.json");
    service.output({"set", "volume", "34"});
    service.output({"set", "source", "hdmi1"});
    service.output({"call", "audio.setPreScale", "speaker", "integer=3,decimal=500"});
    const ToolRun taken = service.run({"snapshot", "-o", golden});
    EXPECT_EQ(taken.exit, 0) << taken.error;
    EXPECT_NE(taken.error.find(" of 3463 readable states in "), std::string::npos) << taken.error;
    const ForeignService next;
    EXPECT_EQ(next.output({"snapshot", "restore", golden, "--quiet"}),
              "sourcemanager.curSource[main]: 11 (hdmi3) -> 9 (hdmi1)\n"
              "audio.volume[speaker]: 33 -> 34\n"
              "audio.preScale[speaker]: [0, 0] -> [3, 500]\n");
    const std::string unit = folder.pathOf("unit.json");
    next.output({"snapshot", "--quiet", "-o", unit});
    EXPECT_EQ(next.output({"snapshot", "diff", golden, unit, "--quiet"}), "");
}

} // namespace
} // namespace kelutv::test
