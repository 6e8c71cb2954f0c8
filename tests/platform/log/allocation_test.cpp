#include "support/AllocationGuard.h"
#include "support/Capture.h"

#include <android/log.h>
#include <unistd.h>

#include <string>

#include <gtest/gtest.h>

namespace {

int allocationsOfLogging(const std::string& text) {
    kelutv::test::FdCapture standardError(STDERR_FILENO);
    int allocations = 0;
    {
        const kelutv::test::AllocationGuard guard;
        __android_log_print(ANDROID_LOG_INFO, "t", "%s", text.c_str());
        allocations = guard.allocations();
    }
    standardError.take();
    return allocations;
}

TEST(LogAllocation, noneForOrdinaryLines) {
    EXPECT_EQ(allocationsOfLogging("invoke failure\n"), 0);
    EXPECT_EQ(allocationsOfLogging(std::string(1000, 'x')), 0);
}

TEST(LogAllocation, someForLongLines) { EXPECT_GT(allocationsOfLogging(std::string(5000, 'x')), 0); }

} // namespace
