#include "support/Capture.h"
#include "support/ChildProcess.h"
#include "tools/process/Redirection.h"
#include "tools/process/Spawn.h"

#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <system_error>

namespace kelutv::test {
namespace {

using process::Program;
using process::Redirection;

int exitCodeOf(const Program& program) {
    const pid_t child = process::spawn(program);
    std::optional<int> status;
    if (!eventually([child, &status] { return reapIfEnded(child, status); }) || !WIFEXITED(*status)) {
        ADD_FAILURE() << program.words.front() << " does not end by itself";
        return -1;
    }
    return WEXITSTATUS(*status);
}

int exitCodeOf(Program program, const std::string& script) {
    program.words = {"sh", "-c", script};
    return exitCodeOf(program);
}

TEST(Redirection, endsWithTheObject) {
    FdCapture output(STDOUT_FILENO);
    FdCapture error(STDERR_FILENO);
    {
        const Redirection redirection(STDOUT_FILENO, STDERR_FILENO);
        EXPECT_TRUE(redirection.isActive());
        std::fputs("during", stdout);
    }
    std::fputs("after", stdout);
    EXPECT_EQ(error.take(), "during");
    EXPECT_EQ(output.take(), "after");
}

TEST(Redirection, leavesTheDescriptorWithoutAnother) {
    FdCapture output(STDOUT_FILENO);
    const Redirection redirection(STDOUT_FILENO, -1);
    EXPECT_FALSE(redirection.isActive());
    std::fputs("written", stdout);
    EXPECT_EQ(output.take(), "written");
}

TEST(Spawn, addsAndReplacesSettings) {
    ASSERT_EQ(::setenv("KELUTV_TEST_KEPT", "kept", 1), 0);
    ASSERT_EQ(::setenv("KELUTV_TEST_REPLACED", "before", 1), 0);
    Program program;
    program.settings = {"KELUTV_TEST_REPLACED=after", "KELUTV_TEST_ADDED=added"};
    EXPECT_EQ(exitCodeOf(program, "test \"$KELUTV_TEST_KEPT $KELUTV_TEST_REPLACED $KELUTV_TEST_ADDED\" = "
                                  "'kept after added'"),
              0);
}

TEST(Spawn, givesDescriptors) {
    FdCapture error(STDERR_FILENO);
    Program program;
    program.descriptors = {{STDOUT_FILENO, STDERR_FILENO}};
    EXPECT_EQ(exitCodeOf(program, "echo written"), 0);
    EXPECT_EQ(error.take(), "written\n");
}

TEST(Spawn, givesSignalsTheirDefaultAction) {
    struct sigaction ignored {};
    ignored.sa_handler = SIG_IGN;
    struct sigaction before {};
    ASSERT_EQ(::sigaction(SIGUSR1, &ignored, &before), 0);
    EXPECT_EQ(exitCodeOf({}, "sh -c 'kill -USR1 $$'; test $? = 0"), 0);
    Program program;
    program.defaultSignals = {SIGUSR1};
    EXPECT_EQ(exitCodeOf(program, "sh -c 'kill -USR1 $$'; test $? -gt 128"), 0);
    ::sigaction(SIGUSR1, &before, nullptr);
}

TEST(Spawn, blocksSignals) {
    // The tenth of the bits is that of SIGUSR1; a shell would unblock it.
    const Program looking{{"grep", "-q", "^SigBlk:[[:space:]]*0*200$", "/proc/self/status"}};
    EXPECT_EQ(exitCodeOf(looking), 1);
    Program blocking(looking);
    blocking.blockedSignals.emplace();
    ::sigemptyset(&*blocking.blockedSignals);
    ::sigaddset(&*blocking.blockedSignals, SIGUSR1);
    EXPECT_EQ(exitCodeOf(blocking), 0);
}

TEST(Spawn, runsAnotherFileByItsName) {
    EXPECT_EQ(exitCodeOf({{"another name", "-c", "test \"$0\" = 'another name'"}, "/bin/sh"}), 0);
}

TEST(Spawn, saysWhyAProgramCannotBeStarted) {
    try {
        process::spawn({{"no-such-program-of-kelutv"}});
        FAIL() << "started";
    } catch (const std::system_error& error) {
        EXPECT_EQ(error.code().value(), ENOENT);
    }
}

} // namespace
} // namespace kelutv::test
