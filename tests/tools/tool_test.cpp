#include "tools/Tool.h"

#include <gtest/gtest.h>

namespace kelutv::test {
namespace {

TEST(Tool, tellsItsVersion) {
    const ToolRun run = runTool({"--version"});
    EXPECT_EQ(run.exit, 0);
    EXPECT_EQ(run.output.substr(0, 7), "kelutv ");
    EXPECT_EQ(run.error, "");
}

TEST(Tool, needsACommand) {
    const ToolRun run = runTool({});
    EXPECT_EQ(run.exit, 2);
    EXPECT_EQ(run.output, "");
}

} // namespace
} // namespace kelutv::test
