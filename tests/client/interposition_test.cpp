#include "support/ChildProcess.h"
#include "support/RuntimeDir.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

namespace kelutv::test {
namespace {

/** Sanitizers object to a library loaded before theirs. */
std::string sanitizerOptions() {
    const char* const options = std::getenv("ASAN_OPTIONS");
    return "ASAN_OPTIONS=" + (options != nullptr ? std::string(options) + ":" : "") + "verify_asan_link_order=0";
}

TEST(Interposition, aPreloadedInvokeSeesEveryCommand) {
    const RuntimeDir directory;
    ChildProcess::Options options;
    options.environment = {"LD_PRELOAD=" KELUTV_INVOKE_RECORDER, sanitizerOptions()};
    options.captureOutput = true;
    options.captureError = true;
    ChildProcess client({KELUTV_INTERPOSED_CLIENT}, options);
    EXPECT_EQ(client.exitCode(), 0) << client.error().text();

    std::string expected;
    for (int i = 0; i < 26; ++i) {
        expected += "0x4321\n";
    }
    EXPECT_EQ(client.output().text(), expected + "0x2009\n0x2008\n0xe003\n");
}

} // namespace
} // namespace kelutv::test
