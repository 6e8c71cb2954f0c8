#include "tools/ReplOnPipe.h"

#include "tools/Tool.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <utility>

namespace kelutv::test {

namespace {

constexpr char kLines[] = "lines";

std::vector<std::string> command(const TestFolder& folder, const std::string& options) {
    const std::string lines = folder.pathOf(kLines);
    EXPECT_EQ(::mkfifo(lines.c_str(), 0600), 0);
    return {"/bin/sh", "-c", "exec '" + toolProgram() + "' repl " + options + " < '" + lines + '\''};
}

ChildProcess::Options captured(const std::vector<std::string>& environment) {
    ChildProcess::Options options;
    options.environment = environment;
    options.captureOutput = true;
    options.captureError = true;
    return options;
}

} // namespace

ReplOnPipe::ReplOnPipe(const std::string& options, const std::vector<std::string>& environment)
    : mProcess(command(mFolder, options), captured(environment)) {
    mLines = ::open(mFolder.pathOf(kLines).c_str(), O_WRONLY | O_CLOEXEC); // Returns when the other end is open.
}

void ReplOnPipe::write(const std::string& line) const {
    const std::string text = line + '\n';
    ASSERT_EQ(::write(mLines, text.data(), text.size()), static_cast<ssize_t>(text.size()));
}

void ReplOnPipe::close() {
    if (mLines >= 0) {
        ::close(std::exchange(mLines, -1));
    }
}

} // namespace kelutv::test
