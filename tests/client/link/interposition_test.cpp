#include "support/ChildProcess.h"
#include "support/RuntimeDir.h"
#include "support/Sanitizers.h"

#include <gtest/gtest.h>

#include <string>

namespace kelutv::test {
namespace {

/** Runs a client with a library loaded before it and gives what both print to standard output. */
std::string outputWithPreloaded(const char* library, const char* clientProgram) {
    const RuntimeDir directory;
    ChildProcess::Options options;
    options.environment = {"LD_PRELOAD=" + std::string(library), sanitizerOptions()};
    options.captureOutput = true;
    options.captureError = true;
    ChildProcess client({clientProgram}, options);
    EXPECT_EQ(client.exitCode(), 0) << client.error().text();
    return client.output().text();
}

TEST(Interposition, aPreloadedInvokeSeesEveryCommand) {
    std::string expected;
    for (int i = 0; i < 26; ++i) {
        expected += "0x4321\n";
    }
    EXPECT_EQ(outputWithPreloaded(KELUTV_INVOKE_RECORDER, KELUTV_INTERPOSED_CLIENT),
              expected + "0x2009\n0x2008\n0xe003\n");
}

TEST(Interposition, preloadedItemFunctionsSeeEveryItem) {
    EXPECT_EQ(outputWithPreloaded(KELUTV_SYSTEM_ITEM_RECORDER, KELUTV_INTERPOSED_ITEMS_CLIENT),
              "set 32771 3 0 0 0\nset 32814 1 0 0 0\nset 32811 4 1 0 0\n"
              "get 32770 0 0\nget 32791 0 0\nget 32816 2 0\nget 32815 0 0\nget 32817 0 0\n"
              "text 32790 0 0\n");
}

} // namespace
} // namespace kelutv::test
