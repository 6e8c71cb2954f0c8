// A simulator that may not have the threads that it needs says so, and is never ready without answering.

#include "simulator/Simulator.h"
#include "support/Deadline.h"
#include "support/RuntimeDir.h"
#include "support/Sanitizers.h"

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <optional>
#include <stdexcept>
#include <string>

namespace kelutv::test {

namespace {

constexpr char kReady[] = "kelutv-simulator: ready (TVBaseService)\n";
constexpr int kEnough = 12;
/** The simulator would wait ten seconds for an answer to a call of its own. */
constexpr auto kShortOfItsOwnPatience = kPatience / 2;

/** A thread that has just served another client may not be gone yet. */
bool isAnswering() {
    try {
        return SimulatorEnvironment::transact(requestOf(0x2009, {0})) == replyOf({0, 20});
    } catch (const std::runtime_error&) {
        return false;
    }
}

/** Whether it gets ready with so many threads. */
bool getsReadyWith(int threads) {
    const RuntimeDir elsewhere;
    ChildProcess::Options options;
    options.environment = {"LD_PRELOAD=" KELUTV_FEW_THREADS, "KELUTV_TEST_MOST_THREADS=" + std::to_string(threads),
                           sanitizerOptions()};
    options.captureOutput = true;
    options.captureError = true;
    ChildProcess simulator({KELUTV_SIMULATOR}, options);
    std::optional<int> status;
    EXPECT_TRUE(eventually(
        [&] {
            status = simulator.wait(std::chrono::milliseconds(0));
            return status || simulator.output().text() == kReady;
        },
        kShortOfItsOwnPatience))
        << threads;
    if (!status) {
        EXPECT_TRUE(eventually(isAnswering)) << threads;
        simulator.kill(SIGTERM);
        EXPECT_EQ(simulator.exitCode(), 0) << threads;
        return true;
    }
    EXPECT_EQ(simulator.exitCode(), 1) << threads;
    EXPECT_EQ(simulator.output().text(), "") << threads;
    EXPECT_NE(simulator.error().text().find("kelutv-simulator: "), std::string::npos) << threads;
    return false;
}

TEST(FewThreads, EndTheSimulatorOrAreEnough) {
    EXPECT_FALSE(getsReadyWith(0));
    int threads = 1;
    while (!getsReadyWith(threads) && threads < kEnough) {
        ++threads;
    }
    EXPECT_LT(threads, kEnough);
}

} // namespace

} // namespace kelutv::test
