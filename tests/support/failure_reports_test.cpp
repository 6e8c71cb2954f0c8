#include "support/ChildProcess.h"

#include <gtest/gtest.h>

namespace kelutv::test {
namespace {

std::size_t countOf(const std::string& part, const std::string& text) {
    std::size_t count = 0;
    for (std::size_t place = text.find(part); place != std::string::npos; place = text.find(part, place + 1)) {
        ++count;
    }
    return count;
}

TEST(FailureReports, areOnStandardOutputAndNotInWhatATestCaptures) {
    ChildProcess::Options options;
    options.captureOutput = true;
    ChildProcess program({KELUTV_FAILING_PROGRAM}, options);
    EXPECT_EQ(program.exitCode(), 1);
    const std::string output = program.output().text();
    EXPECT_EQ(countOf(": Failure\n", output), 100U);
    EXPECT_EQ(countOf("  standardOutput.take()\n    Which is: \"captured 100\"\n", output), 1U);
    EXPECT_LT(output.find("\"captured 100\""), output.find("never taken"));
    EXPECT_EQ(countOf("[  FAILED  ] Failing.whileOutputIsCaptured", output), 2U);
}

} // namespace
} // namespace kelutv::test
