#include "platform/droid/ProcessCounts.h"
#include "support/RuntimeDir.h"
#include "torture/Report.h"
#include "torture/Size.h"
#include "torture/operations/EveryShape.h"
#include "torture/processes/PlainService.h"

#include <gtest/gtest.h>

#include <unistd.h>

#include <algorithm>
#include <random>
#include <thread>

namespace kelutv::test {
namespace {

constexpr int kThreads = 8;
/** How many calls each thread makes after its first failure. */
constexpr int kCallsAfterDeath = 20;
constexpr int kMostCallsBeforeDeath = 2000;

/** What the threads of one client saw. */
struct Sights {
    std::atomic<int> calls{0};
    std::atomic<int> right{0};
    std::atomic<int> failed{0};
    /** Neither, or right after a failure. */
    std::atomic<int> wrong{0};
};

void callUntilDeath(const std::vector<Operation>& operations, std::size_t first, Sights& sights) {
    int failures = 0;
    for (std::size_t next = first; failures <= kCallsAfterDeath; ++next) {
        const Operation& operation = operations[next % operations.size()];
        Outcome outcome;
        operation.call(outcome);
        const bool right = operation.right == outcome.text();
        const bool failed = outcome.text() == operation.failures.front();
        failures += failed || failures > 0 ? 1 : 0;
        ++(right && failures == 0 ? sights.right : failed ? sights.failed : sights.wrong);
        ++sights.calls;
    }
}

void callInThreads(const std::vector<Operation>& operations, Sights& sights) {
    std::vector<std::thread> threads;
    for (std::size_t i = 0; i < kThreads; ++i) {
        threads.emplace_back([&, i] { callUntilDeath(operations, i * operations.size() / kThreads, sights); });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
}

/** Every death is told to every thread, as a failure of the call under way or of the next, and never otherwise. */
TEST(SoakKills, noCallIsWrongOrHangs) {
    const RuntimeDir runtimeDir;
    // Composed operations may see the service die between their commands.
    std::vector<Operation> operations = everyShape();
    operations.erase(std::remove_if(operations.begin(), operations.end(),
                                    [](const Operation& operation) { return operation.exchanges.size() > 1; }),
                     operations.end());
    PlainService service(operations);
    Shared<Sights> sights;
    const unsigned int seed = std::random_device()();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    const ProcessCounts before = countsOf(::getpid());
    const int kills = ofSize(5, 50, 1000);
    long right = 0;
    long failed = 0;
    for (int kill = 0; kill < kills; ++kill) {
        service.start();
        sights.renew();
        ForkedProcess client([&] { callInThreads(operations, *sights); });
        const int moment = std::uniform_int_distribution(0, kMostCallsBeforeDeath)(random);
        ASSERT_TRUE(eventually([&] { return sights->calls >= moment; })) << client.text();
        service.kill();
        ASSERT_EQ(client.wait(), 0) << "after " << moment << " calls: " << client.text();
        ASSERT_EQ(sights->wrong, 0) << "after " << moment << " calls";
        ASSERT_EQ(sights->failed, kThreads * (kCallsAfterDeath + 1));
        ASSERT_EQ(sights->right + sights->failed, sights->calls);
        right += sights->right;
        failed += sights->failed;
    }
    EXPECT_EQ(countsOf(::getpid()), before);
    report("%d kills under %d threads: %ld calls right, %ld failed", kills, kThreads, right, failed);
}

} // namespace
} // namespace kelutv::test
