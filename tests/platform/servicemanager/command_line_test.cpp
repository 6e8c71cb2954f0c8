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
    EXPECT_EQ(manager.error().text(), "kqservicemanager: " + message + "\nTry 'kqservicemanager --help'.\n");
}

TEST(CommandLine, explainsItself) {
    ChildProcess::Options options;
    options.captureOutput = true;
    ChildProcess manager({KELUTV_SERVICE_MANAGER, "--help"}, options);
    EXPECT_EQ(manager.exitCode(), 0);
    EXPECT_EQ(manager.output().text(),
              "Examples:\n"
              "  kqservicemanager --allow-uid 2000\n\n"
              "Usage: kqservicemanager [OPTIONS]\n\n"
              "Service manager for the kernel's binder driver, where none runs: services are added and found by name.\n"
              "Root and the system user (1000) may add services.\n\n"
              "Options:\n"
              "  -h,--help                       Print this help message and exit\n"
              "  --device PATH                   The driver's device\n"
              "  --allow-uid UID                 Let this user add services too; may be given again\n"
              "  --version                       Display program version information and exit\n");
}

TEST(CommandLine, takesTheDeviceThatTheEnvironmentNames) {
    ChildProcess::Options options;
    options.captureError = true;
    options.environment = {"KQDROID_BINDER_DEVICE=/dev/null/binder"};
    ChildProcess manager({KELUTV_SERVICE_MANAGER}, options);
    EXPECT_EQ(manager.exitCode(), 1);
    EXPECT_NE(manager.error().text().find("/dev/null/binder"), std::string::npos) << manager.error().text();
}

TEST(CommandLine, namesWhatItDoesNotKnow) {
    expectRefused({"--allow"}, "unknown option '--allow'");
    expectRefused({"/dev/binder"}, "unexpected argument '/dev/binder'");
    expectRefused({"\x1b[2J\xc2\x9b"}, "unexpected argument '\\x1b[2J\\xc2\\x9b'");
}

TEST(CommandLine, saysWhichUsersThereAre) {
    expectRefused({"--allow-uid", "shell"}, "--allow-uid: Value shell not in range 0 to 4294967294");
    expectRefused({"--allow-uid", "4294967295"}, "--allow-uid: Value 4294967295 not in range 0 to 4294967294");
}

} // namespace
} // namespace kelutv::test
