#include "support/ChildProcess.h"
#include "support/RuntimeDir.h"
#include "support/ScriptedService.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace kelutv::test {
namespace {

constexpr int kRuns = 30;
constexpr std::size_t kRunsAtOnce = 3;

/** A client that ends while it is busy leaves cleanly and at once, and the service outlives it. */
TEST(ProcessExit, whileRepliesAreInFlight) {
    const RuntimeDir directory;
    ScriptedService service;
    service.start();
    service.reply(replyOf({0, 7}));
    for (int run = 0; run < kRuns; run += static_cast<int>(kRunsAtOnce)) {
        std::vector<std::unique_ptr<ChildProcess>> clients;
        for (std::size_t i = 0; i < kRunsAtOnce; ++i) {
            ChildProcess::Options options;
            options.captureOutput = true;
            options.captureError = true;
            clients.push_back(
                std::make_unique<ChildProcess>(std::vector<std::string>{KELUTV_BUSY_EXIT_CLIENT}, options));
        }
        for (const auto& client : clients) {
            ASSERT_EQ(client->exitCode(), 0) << client->error().text();
        }
        EXPECT_EQ(service.binder()->pingBinder(), android::NO_ERROR);
    }
}

} // namespace
} // namespace kelutv::test
