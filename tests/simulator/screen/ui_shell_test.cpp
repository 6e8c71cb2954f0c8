// The screen of the simulator in a shell with job control.

#include "support/RuntimeDir.h"
#include "tools/Terminal.h"

#include <gtest/gtest.h>

#include <string>

namespace kelutv::test {

namespace {

constexpr char kEnter[] = "\x1b[?1049h\x1b[?25l";
constexpr char kLeave[] = "\x1b[?25h\x1b[?1049l";
constexpr char kCtrlZ[] = "\x1a";

class UiInAShell : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(mShell.waitFor("ready> "));
        mShell.type("'" KELUTV_SIMULATOR "' --ui\n");
        ASSERT_TRUE(mShell.waitFor(kEnter)) << mShell.text();
        ASSERT_TRUE(mShell.waitFor("Events")) << mShell.text();
    }

    const RuntimeDir mRuntimeDir;
    Terminal mShell{{"/bin/bash", "--noprofile", "--norc", "--noediting", "-i"},
                    {"PS1=ready> ", "HISTFILE=", "TERM=xterm", "KQDROID_RUNTIME_DIR=" + mRuntimeDir.path()}};
};

TEST_F(UiInAShell, GivesTheTerminalBackWhileItIsStopped) {
    mShell.type(kCtrlZ);
    ASSERT_TRUE(mShell.waitFor(kLeave)) << mShell.text();
    ASSERT_TRUE(mShell.waitFor("ready> ")) << mShell.text();
    mShell.type("stty -a | grep -o -w -e '-\\?icanon' -e '-\\?echo' | tr '\\n' ' '; echo done\n");
    EXPECT_TRUE(mShell.waitFor("icanon echo done")) << mShell.text();
    mShell.type("fg\n");
    ASSERT_TRUE(mShell.waitFor(kEnter)) << mShell.text();
    EXPECT_TRUE(mShell.waitFor("Power")) << mShell.text();
    mShell.type("+");
    EXPECT_TRUE(mShell.waitFor("] 21")) << mShell.text();
    mShell.type("q");
    ASSERT_TRUE(mShell.waitFor(kLeave)) << mShell.text();
    ASSERT_TRUE(mShell.waitFor("ready> ")) << mShell.text();
    mShell.type("exit $?\n");
    EXPECT_EQ(mShell.exitCode(), 0);
}

TEST_F(UiInAShell, IsLeftByCtrlC) {
    mShell.type("\x03");
    ASSERT_TRUE(mShell.waitFor(kLeave)) << mShell.text();
    ASSERT_TRUE(mShell.waitFor("ready> ")) << mShell.text();
    mShell.type("exit 7\n");
    EXPECT_EQ(mShell.exitCode(), 7);
}

} // namespace

} // namespace kelutv::test
