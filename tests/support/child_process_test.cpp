#include "support/ChildProcess.h"

#include "support/TestFolder.h"

#include <gtest/gtest.h>

#include <sys/wait.h>

#include <csignal>
#include <cstdlib>
#include <system_error>

namespace kelutv::test {
namespace {

/** Runs programs of the build machine, also where the tests themselves are emulated. */
class ChildProcessTest : public ::testing::Test {
protected:
    void SetUp() override { ::unsetenv("KELUTV_EMULATOR"); }
};

TEST_F(ChildProcessTest, tellsTheExitCode) {
    ChildProcess child({"/bin/sh", "-c", "exit 7"});
    EXPECT_EQ(child.exitCode(), 7);
}

TEST_F(ChildProcessTest, capturesBothOutputs) {
    ChildProcess::Options options;
    options.captureOutput = true;
    options.captureError = true;
    ChildProcess child({"/bin/sh", "-c", "echo out; echo error >&2"}, options);
    ASSERT_EQ(child.exitCode(), 0);
    EXPECT_EQ(child.output().take(), "out\n");
    EXPECT_EQ(child.error().take(), "error\n");
}

TEST_F(ChildProcessTest, replacesSettingsOfTheEnvironment) {
    ::setenv("KELUTV_TEST_SETTING", "old", 1);
    ChildProcess::Options options;
    options.environment = {"KELUTV_TEST_SETTING=new"};
    options.captureOutput = true;
    ChildProcess child({"/bin/sh", "-c", "env | grep ^KELUTV_TEST_SETTING="}, options);
    ASSERT_EQ(child.exitCode(), 0);
    EXPECT_EQ(child.output().take(), "KELUTV_TEST_SETTING=new\n");
}

TEST_F(ChildProcessTest, waitsNoLongerThanTold) {
    ChildProcess child({"/bin/sleep", "60"});
    EXPECT_FALSE(child.wait(std::chrono::milliseconds(5)));
    child.kill(SIGTERM);
    const std::optional<int> status = child.wait();
    ASSERT_TRUE(status);
    EXPECT_TRUE(WIFSIGNALED(*status));
    EXPECT_FALSE(child.exitCode());
}

TEST_F(ChildProcessTest, goesThroughTheEmulator) {
    ::setenv("KELUTV_EMULATOR", "/usr/bin/env KELUTV_TEST_SETTING=emulated", 1);
    ChildProcess::Options options;
    options.captureOutput = true;
    ChildProcess child({"/bin/sh", "-c", "echo $KELUTV_TEST_SETTING"}, options);
    ASSERT_EQ(child.exitCode(), 0);
    EXPECT_EQ(child.output().take(), "emulated\n");
}

TEST_F(ChildProcessTest, saysWhatCannotBeStarted) {
    const TestFolder folder;
    EXPECT_THROW(ChildProcess({folder.pathOf("program")}), std::system_error);
}

} // namespace
} // namespace kelutv::test
