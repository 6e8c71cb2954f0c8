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
    // It tells of a few changes only.
    const ToolRun run = service.run({"compliance", "form.audio.*", "state.audio.*", "refusal.audio.*", "form.hotel.*",
                                     "state.hotel.*", "refusal.hotel.*", "events.audio.setVolume*",
                                     "load.threads.8.answers", "life.service.killedCallers", "--keep", journal});
    EXPECT_EQ(run.exit, 0) << run.output << run.error;
    EXPECT_NE(run.output.find(" passed, "), std::string::npos) << run.output;
    EXPECT_FALSE(std::filesystem::exists(journal));
}

} // namespace
} // namespace kelutv::test
