#include "support/Capture.h"

#include <gtest/gtest.h>

#include <unistd.h>

#include <cstdio>

namespace kelutv::test {
namespace {

TEST(Failing, whileOutputIsCaptured) {
    FdCapture standardOutput(STDOUT_FILENO);
    for (int round = 1; round <= 100; ++round) {
        std::printf("captured %d", round);
        EXPECT_EQ(standardOutput.take(), "expected");
    }
    std::printf("never taken");
}

} // namespace
} // namespace kelutv::test
