#include "tools/Tool.h"

#include "support/RuntimeDir.h"
#include "support/ScriptedService.h"

#include <gtest/gtest.h>

namespace kelutv::test {
namespace {

class FailingService : public ::testing::Test {
protected:
    void SetUp() override { service.start(); }

    static std::string gone(const std::string& what) {
        return "kelutv: " + what + ": the service is gone or did not take it (status -32, DEAD_OBJECT)\n";
    }

    /** Where the service was looked for again. */
    std::string missing() const { return "  no service TVBaseService in " + directory.path() + "/services\n"; }

    const RuntimeDir directory;
    ScriptedService service;
};

TEST_F(FailingService, isToldApartWhenItDies) {
    service.exitBeforeReply();
    const ToolRun run = runTool({"call", "audio.setVolume", "speaker", "1"});
    EXPECT_EQ(run.exit, 3);
    EXPECT_EQ(run.output, "");
    EXPECT_EQ(run.error, gone("the request did not get through") + missing());
}

TEST_F(FailingService, isToldApartWhenItDiesOverABlock) {
    service.exitBeforeReply();
    const ToolRun run = runTool({"eep", "dump", "tv"});
    EXPECT_EQ(run.exit, 3);
    EXPECT_EQ(run.output, "");
    EXPECT_EQ(run.error, gone("cannot read 509 bytes from 0x8A00 on") + missing());
}

TEST_F(FailingService, isToldApartWhenItDiesOverSettings) {
    service.exitBeforeReply();
    const ToolRun run = runTool({"get", "volume", "mute"});
    EXPECT_EQ(run.exit, 3);
    EXPECT_EQ(run.error, gone("the request did not get through") + missing());
}

/** Another look for it may take longer than there is. */
TEST_F(FailingService, isNotLookedForAgainWithinATime) {
    service.exitBeforeReply();
    const ToolRun run = runTool({"--timeout", "10", "get", "volume"});
    EXPECT_EQ(run.exit, 3);
    EXPECT_EQ(run.error, gone("the request did not get through"));
}

TEST_F(FailingService, isToldApartWhenItRefusesABlock) {
    service.reply(replyOf({7}));
    const ToolRun run = runTool({"eep", "dump", "tv"});
    EXPECT_EQ(run.exit, 4);
    EXPECT_EQ(run.error.find("gone"), std::string::npos) << run.error;
}

TEST_F(FailingService, isToldApartWhenItAnswersWithAnError) {
    service.reply(replyOf({7}));
    const ToolRun run = runTool({"call", "audio.setVolume", "speaker", "1"});
    EXPECT_EQ(run.exit, 4);
    EXPECT_EQ(run.output, "result: 7\n");
    EXPECT_NE(run.error.find("kelutv: audio.setVolume: the service answered 7\n"), std::string::npos) << run.error;
}

TEST_F(FailingService, isToldApartWhenItsAnswerIsEmpty) {
    service.reply({});
    const ToolRun run = runTool({"call", "audio.getVolume", "speaker"});
    EXPECT_EQ(run.exit, 4);
    EXPECT_NE(run.error.find("kelutv: audio.getVolume: the service's answer has no result\n"), std::string::npos)
        << run.error;
}

/** -1 is a value where the service says so itself. */
TEST_F(FailingService, isToldApartFromAValue) {
    service.reply(replyOf({0, -1}));
    const ToolRun run = runTool({"call", "audio.getVolume", "speaker"});
    EXPECT_EQ(run.exit, 0);
    EXPECT_EQ(run.output, "result: -1\n");
}

/** Where the result word itself is what is read, no word is an error. */
TEST_F(FailingService, isToldApartFromAStatusThatIsAValue) {
    service.reply(replyOf({5}));
    const ToolRun run = runTool({"call", "Audio::getEqualLoundValue", "1", "2"});
    EXPECT_EQ(run.exit, 0);
    EXPECT_EQ(run.output, "result: 5\n");
}

TEST_F(FailingService, leavesOutputsUntouched) {
    service.reply(replyOf({3}));
    const ToolRun run = runTool({"call", "factory.getSystemupTime"});
    EXPECT_EQ(run.exit, 4);
    EXPECT_EQ(run.output, "result: -1\npBuf: (untouched)\n");
}

} // namespace
} // namespace kelutv::test
