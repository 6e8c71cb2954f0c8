#include "support/Capture.h"

#include <android/log.h>
#include <unistd.h>

#include <atomic>
#include <cstddef>
#include <string>

#include <gtest/gtest.h>

extern "C" void* __libc_malloc(std::size_t size);

namespace {

std::atomic<bool> counting{false};
std::atomic<int> allocations{0};

} // namespace

extern "C" void* malloc(std::size_t size) {
    allocations += counting ? 1 : 0;
    return __libc_malloc(size);
}

namespace {

int allocationsOfLogging(const std::string& text) {
    kelutv::test::FdCapture standardError(STDERR_FILENO);
    allocations = 0;
    counting = true;
    __android_log_print(ANDROID_LOG_INFO, "t", "%s", text.c_str());
    counting = false;
    standardError.take();
    return allocations;
}

TEST(LogAllocation, noneForOrdinaryLines) {
    EXPECT_EQ(allocationsOfLogging("invoke failure\n"), 0);
    EXPECT_EQ(allocationsOfLogging(std::string(1000, 'x')), 0);
}

TEST(LogAllocation, someForLongLines) { EXPECT_GT(allocationsOfLogging(std::string(5000, 'x')), 0); }

} // namespace
