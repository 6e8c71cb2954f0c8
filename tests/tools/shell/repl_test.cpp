#include "simulator/Simulator.h"

#include <gtest/gtest.h>

#include <set>

namespace kelutv::test {
namespace {

SimulatorEnvironment& environmentOfRepl = SimulatorEnvironment::install();

struct ReplRun {
    int exit;
    std::string output;
    std::string error;
};

/** `kelutv repl` with these lines from a pipe. */
ReplRun runLines(const std::string& lines, const std::string& options = "") {
    ChildProcess::Options capture;
    capture.captureOutput = true;
    capture.captureError = true;
    capture.environment = {"LINES_OF_TEST=" + lines};
    ChildProcess process(
        {"/bin/sh", "-c", "printf '%s' \"$LINES_OF_TEST\" | '" KELUTV_TOOL_PROGRAM "' repl " + options}, capture);
    return {process.exitCode().value_or(-1), process.output().text(), process.error().text()};
}

TEST(Repl, carriesOutLinesOverOneConnection) {
    environmentOfRepl.simulator().takeTrace();
    const ReplRun run = runLines("set volume 12\n\n# nothing\nget volume # and more\nkelutv get 'volume'\n"
                                 "call audio.getVolume speaker");
    EXPECT_EQ(run.exit, 0);
    EXPECT_EQ(run.output, "12\n12\n12\nresult: 12\n");
    std::set<std::string> processes;
    for (const std::string& line : environmentOfRepl.simulator().takeTrace()) {
        if (line.front() == '[') {
            processes.insert(line.substr(0, line.find(']')));
        }
    }
    EXPECT_EQ(processes.size(), 1U);
}

TEST(Repl, goesOnAfterAMistake) {
    const ReplRun run = runLines("get volme\nfoo\nget \"volume\n# nothing\nset volume x\nset volume 3\nget volume\n");
    EXPECT_EQ(run.exit, 2);
    EXPECT_EQ(run.output, "3\n3\n");
    EXPECT_EQ(run.error, "kelutv: line 1: there is no 'volme' to get or set; nearest: volume\nTry 'kelutv help get'.\n"
                         "kelutv: line 2: unknown command 'foo'\nTry 'kelutv help'.\n"
                         "kelutv: line 3: the quotation mark \" is not closed\n"
                         "kelutv: line 5: volume cannot be 'x', allowed: 0..100, +N, -N\nTry 'kelutv help set'.\n");
}

TEST(Repl, givesTheExitCodeOfTheLastLineThatFailed) {
    EXPECT_EQ(runLines("get volme\nset source scart1\nget volume\n").exit, 4);
    EXPECT_EQ(runLines("set source scart1\nget volme\n").exit, 2);
}

TEST(Repl, endsWithTheFirstFailureWhenAsked) {
    const ReplRun run = runLines("set volume 4\nset source scart1\nset volume 5\n", "-e");
    EXPECT_EQ(run.exit, 4);
    EXPECT_EQ(run.output, "4\n");
}

TEST(Repl, endsWithQuit) {
    for (const char* const word : {"quit", "exit"}) {
        const ReplRun run = runLines("set volume 6\n" + std::string(word) + "\nset volume 7\n");
        EXPECT_EQ(run.exit, 0);
        EXPECT_EQ(run.output, "6\n");
    }
    const ReplRun run = runLines("quit now\nset volume 7\n");
    EXPECT_EQ(run.output, "7\n");
    EXPECT_NE(run.error.find("kelutv: line 1: unexpected argument 'now'\n"), std::string::npos) << run.error;
}

TEST(Repl, itsOptionsHoldForEveryLine) {
    EXPECT_EQ(runLines("set volume 8\nget mute\n", "--json").output,
              "{\"thing\":\"volume\",\"value\":8}\n{\"thing\":\"mute\",\"value\":false}\n");
}

TEST(Repl, readsQuotesLikeAShell) {
    const ReplRun run = runLines(R"(get 'vol'"ume"
set vol\ume "9"
get "a\"b\\c d"
get 'x # y'
get z#
)");
    EXPECT_EQ(run.output.substr(run.output.find('\n') + 1), "9\n");
    EXPECT_NE(run.error.find("no 'a\"b\\c d' to get"), std::string::npos) << run.error;
    EXPECT_NE(run.error.find("no 'x # y' to get"), std::string::npos) << run.error;
    EXPECT_NE(run.error.find("no 'z#' to get"), std::string::npos) << run.error;
}

TEST(Repl, encodesBesideItsConnection) {
    const ReplRun run = runLines("set volume 10\nencode audio.getMute speaker\nget volume\n");
    EXPECT_EQ(run.exit, 0);
    EXPECT_EQ(run.output, "10\n"
                          "000040001600000061006e00640072006f00690064002e0049005400560042006100730065005300650072007600"
                          "690063006500000000000b20000000000000\n"
                          "10\n");
}

TEST(Repl, isNotStartedTwice) {
    const ReplRun run = runLines("repl\n");
    EXPECT_EQ(run.exit, 2);
    EXPECT_EQ(run.error, "kelutv: line 1: this is the repl already\n");
}

TEST(Repl, givesUpALineWhoseTimeIsOver) {
    const ReplRun run = runLines("set volume 10\n"
                                 "sim fault CMD_AUDIO_GETVOLUME delay 600s once\n"
                                 "get volume\n"
                                 "set volume 11 --timeout 1000\n"
                                 "sim fault CMD_AUDIO_GETVOLUME delay 600s once\n"
                                 "get volume --timeout 0.2\n"
                                 "get volume\n",
                                 "--timeout 0.3");
    EXPECT_EQ(run.exit, 5);
    EXPECT_EQ(run.output, "10\n11\n11\n");
    EXPECT_EQ(run.error,
              "kelutv: line 3: the time was over after 0.3 s\nkelutv: line 6: the time was over after 0.2 s\n");
}

TEST(Repl, leavesTheRestOfItsInputToWhatReadsIt) {
    const ReplRun run = runLines("set mute off\nsim -\nfaults\nnonsense\n");
    EXPECT_EQ(run.output.substr(0, run.output.find('\n')), "off");
    EXPECT_NE(run.error.find("standard input:2: "), std::string::npos) << run.output << run.error;
}

} // namespace
} // namespace kelutv::test
