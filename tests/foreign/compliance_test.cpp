// Judging a service of another platform.

#include "foreign/ForeignService.h"

#include "support/TestFolder.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace kelutv::test {
namespace {

TEST(ForeignCompliance, judgesAServiceOfAnotherPlatform) {
    const ForeignService service;
    const TestFolder folder;
    const std::string journal = folder.pathOf("put-back.json");
    const ToolRun run = service.run({"compliance", "audio", "hotel", "--keep", journal});
    EXPECT_EQ(run.exit, 0) << run.output << run.error;
    EXPECT_NE(run.output.find(" passed, "), std::string::npos) << run.output;
    EXPECT_FALSE(std::filesystem::exists(journal));
}

} // namespace
} // namespace kelutv::test
