#include "tools/Tool.h"

#include "support/RuntimeDir.h"
#include "support/ScriptedService.h"

#include <gtest/gtest.h>

namespace kelutv::test {
namespace {

class FailingService : public ::testing::Test {
protected:
    void SetUp() override { service.start(); }

    const RuntimeDir directory;
    ScriptedService service;
};

TEST_F(FailingService, isToldApartWhenItDies) {
    service.exitBeforeReply();
    const ToolRun run = runTool({"call", "audio.setVolume", "speaker", "1"});
    EXPECT_EQ(run.exit, 3);
    EXPECT_EQ(run.output, "");
    EXPECT_NE(run.error.find("kelutv: the request did not get through: the service is gone or did not take it "
                             "(status -32, DEAD_OBJECT)\n"),
              std::string::npos)
        << run.error;
}

TEST_F(FailingService, isToldApartWhenItDiesOverABlock) {
    service.exitBeforeReply();
    const ToolRun run = runTool({"eep", "dump", "tv"});
    EXPECT_EQ(run.exit, 3);
    EXPECT_EQ(run.output, "");
    EXPECT_NE(run.error.find(": the service is gone\n"), std::string::npos) << run.error;
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
