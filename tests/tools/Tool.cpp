#include "tools/Tool.h"

#include "support/Deadline.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>

namespace kelutv::test {

namespace {

constexpr char kStandInsToken[] =
    "000040001600000061006e00640072006f00690064002e00490054005600420061007300650053006500720076006900630065"
    "0000000000";

std::string environmentOr(const char* variable, const char* otherwise) {
    const char* const value = std::getenv(variable);
    return value != nullptr ? value : otherwise;
}

} // namespace

std::string toolProgram() { return environmentOr("KELUTV_TEST_TOOL", KELUTV_TOOL_PROGRAM); }

std::string tokenDigits() { return environmentOr("KELUTV_TEST_TOKEN", kStandInsToken); }

std::unique_ptr<ChildProcess> startTool(std::vector<std::string> arguments,
                                        const std::vector<std::string>& environment) {
    ChildProcess::Options options;
    options.environment = environment;
    options.captureOutput = true;
    options.captureError = true;
    arguments.insert(arguments.begin(), toolProgram());
    return std::make_unique<ChildProcess>(std::move(arguments), options);
}

ToolRun runTool(std::vector<std::string> arguments, const std::vector<std::string>& environment) {
    const auto process = startTool(std::move(arguments), environment);
    // One run may call every function there is, beside other tests.
    const auto exit = process->exitCode(3 * kPatience);
    EXPECT_TRUE(exit.has_value()) << "the tool was ended by a signal or did not end";
    return {exit.value_or(-1), process->output().text(), process->error().text()};
}

ToolRun runToolOnFullDevice(std::vector<std::string> arguments) {
    ChildProcess::Options options;
    options.captureError = true;
    arguments.insert(arguments.begin(), toolProgram());
    std::fflush(stdout);
    const int own = ::fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, 0);
    const int full = ::open("/dev/full", O_WRONLY | O_CLOEXEC);
    EXPECT_EQ(::dup2(full, STDOUT_FILENO), STDOUT_FILENO);
    ChildProcess process(std::move(arguments), options);
    EXPECT_EQ(::dup2(own, STDOUT_FILENO), STDOUT_FILENO);
    ::close(full);
    ::close(own);
    return {process.exitCode(3 * kPatience).value_or(-1), "", process.error().text()};
}

std::string usageError(const std::string& command, const std::string& message) {
    return "kelutv: " + message + "\nTry 'kelutv help " + command + "'.\n";
}

} // namespace kelutv::test
