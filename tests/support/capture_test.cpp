#include "support/Capture.h"

#include <android/log.h>
#include <gtest/gtest.h>

#include <unistd.h>

#include <cstdio>

namespace kelutv::test {
namespace {

TEST(FdCapture, takesWhatIsWrittenInBetween) {
    FdCapture standardOutput(STDOUT_FILENO);
    std::printf("one\n");
    EXPECT_EQ(standardOutput.take(), "one\n");
    std::printf("two");
    EXPECT_EQ(standardOutput.take(), "two");
    EXPECT_EQ(standardOutput.take(), "");
}

TEST(FdCapture, givesTheDescriptorBack) {
    FdCapture outer(STDERR_FILENO);
    {
        FdCapture inner(STDERR_FILENO);
        std::fprintf(stderr, "inner");
        EXPECT_EQ(inner.take(), "inner");
    }
    std::fprintf(stderr, "outer");
    EXPECT_EQ(outer.take(), "outer");
}

TEST(FdCapture, waitsForText) {
    FdCapture standardError(STDERR_FILENO);
    std::fprintf(stderr, "some text");
    EXPECT_TRUE(standardError.waitFor("text"));
    EXPECT_FALSE(standardError.waitFor("other", std::chrono::milliseconds(5)));
    standardError.take();
}

TEST(LogCapture, keepsNullTagAndLineEnd) {
    LogCapture log;
    __android_log_print(ANDROID_LOG_ERROR, nullptr, "failed %d\n", 3);
    __android_log_print(ANDROID_LOG_DEBUG, "tag", "text");
    const std::vector<LogEntry> expected{{ANDROID_LOG_ERROR, std::nullopt, "failed 3\n"},
                                         {ANDROID_LOG_DEBUG, "tag", "text"}};
    EXPECT_EQ(log.take(), expected);
    EXPECT_TRUE(log.take().empty());
}

} // namespace
} // namespace kelutv::test
