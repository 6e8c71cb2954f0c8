#include "tools/Terminal.h"

#include "support/TestFolder.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

#include <algorithm>
#include <fstream>
#include <iterator>

namespace kelutv::test {
namespace {

/** The repl at a terminal, its history in a folder of its own. */
class ReplAtTerminal : public ::testing::Test {
protected:
    std::vector<std::string> settings() const { return {"XDG_STATE_HOME=" + mState.path()}; }
    std::string historyPath() const { return mState.pathOf("kelutv/history"); }
    std::string history() const {
        std::ifstream file(historyPath());
        return {std::istreambuf_iterator<char>(file), {}};
    }

    const TestFolder mState;
};

TEST_F(ReplAtTerminal, editsCompletesAndRemembers) {
    {
        Terminal terminal({KELUTV_TOOL_PROGRAM, "repl"}, settings());
        ASSERT_TRUE(terminal.waitFor("kelutv> "));
        terminal.type("set vol\t41\n");
        ASSERT_TRUE(terminal.waitFor("\n41\r\n")) << terminal.text();
        ASSERT_TRUE(terminal.waitFor("kelutv> "));
        terminal.type("call audio.getMaxV\tspeak\t\n");
        ASSERT_TRUE(terminal.waitFor("result: 100")) << terminal.text();
        ASSERT_TRUE(terminal.waitFor("kelutv> "));
        terminal.type("wait volumeChanged ch\tspea\tvol\t1 --timeout 0.01\n");
        ASSERT_TRUE(terminal.waitFor("the time was over")) << terminal.text();
        ASSERT_TRUE(terminal.waitFor("kelutv> "));
        terminal.type("get nothing\n");
        ASSERT_TRUE(terminal.waitFor("there is no 'nothing' to get or set"));
        ASSERT_TRUE(terminal.waitFor("kelutv> "));
        ASSERT_TRUE(terminal.waitForEditing());
        terminal.type("\x04");
        EXPECT_EQ(terminal.exitCode(), 0);
    }
    EXPECT_EQ(
        history(),
        "set volume 41\ncall audio.getMaxVolume speaker \nwait volumeChanged channel=speaker volume=1 --timeout 0.01\n"
        "get nothing\n");
    struct stat file {};
    ASSERT_EQ(::stat(historyPath().c_str(), &file), 0);
    EXPECT_EQ(file.st_mode & 07777, 0600U);

    Terminal terminal({KELUTV_TOOL_PROGRAM, "repl"}, settings());
    ASSERT_TRUE(terminal.waitFor("kelutv> "));
    terminal.type("\x1b[A\x1b[A\x1b[A\x1b[A\n");
    ASSERT_TRUE(terminal.waitFor("\n41\r\n")) << terminal.text();
    ASSERT_TRUE(terminal.waitFor("kelutv> "));
    terminal.type("quit\n");
    EXPECT_EQ(terminal.exitCode(), 0);
}

TEST_F(ReplAtTerminal, anInterruptDiscardsTheLine) {
    Terminal terminal({KELUTV_TOOL_PROGRAM, "repl"}, settings());
    ASSERT_TRUE(terminal.waitFor("kelutv> "));
    terminal.type("set volume 99");
    ASSERT_TRUE(terminal.waitFor("set volume 99"));
    terminal.type("\x03");
    ASSERT_TRUE(terminal.waitFor("kelutv> ")) << terminal.text();
    terminal.type("help get\n");
    ASSERT_TRUE(terminal.waitFor("Usage: kelutv get ")) << terminal.text();
    ASSERT_TRUE(terminal.waitFor("kelutv> "));
    terminal.type("\x03");
    ASSERT_TRUE(terminal.waitFor("kelutv> ")) << terminal.text();
    ASSERT_TRUE(terminal.waitForEditing());
    terminal.type("\x04");
    EXPECT_EQ(terminal.exitCode(), 0);
    EXPECT_EQ(history(), "help get\n");
}

TEST_F(ReplAtTerminal, keepsTheNewestThousandLines) {
    ASSERT_EQ(::mkdir(mState.pathOf("kelutv").c_str(), 0700), 0);
    {
        std::ofstream file(historyPath());
        for (int line = 0; line < 1500; ++line) {
            file << "line " << line << '\n';
        }
    }
    Terminal terminal({KELUTV_TOOL_PROGRAM, "repl"}, settings());
    ASSERT_TRUE(terminal.waitFor("kelutv> "));
    terminal.type("quit\n");
    EXPECT_EQ(terminal.exitCode(), 0);
    const std::string kept = history();
    EXPECT_EQ(kept.substr(0, 9), "line 500\n");
    EXPECT_EQ(std::count(kept.begin(), kept.end(), '\n'), 1001);
}

} // namespace
} // namespace kelutv::test
