#include "support/ChildProcess.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace kelutv::test {
namespace {

/** Expects that kqservicemanager refuses its arguments with this message. */
void expectRefused(std::vector<std::string> arguments, const std::string& message) {
    ChildProcess::Options options;
    options.captureError = true;
    arguments.insert(arguments.begin(), KELUTV_SERVICE_MANAGER);
    ChildProcess manager(arguments, options);
    EXPECT_EQ(manager.exitCode(), 2);
    EXPECT_EQ(manager.error().text(), message + "\nRun with --help for more information.\n");
}

TEST(CommandLine, saysWhichUsersThereAre) {
    expectRefused({"--allow-uid", "shell"}, "--allow-uid: Value shell not in range 0 to 4294967294");
    expectRefused({"--allow-uid", "4294967295"}, "--allow-uid: Value 4294967295 not in range 0 to 4294967294");
}

} // namespace
} // namespace kelutv::test
