#include "support/ChildProcess.h"

#include "tools/process/Spawn.h"

#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <sstream>
#include <system_error>
#include <utility>

namespace kelutv::test {

namespace {

std::vector<std::string> emulated(std::vector<std::string> arguments) {
    const char* const emulator = std::getenv("KELUTV_EMULATOR");
    std::istringstream words(emulator != nullptr ? emulator : "");
    std::vector<std::string> command;
    for (std::string word; words >> word;) {
        command.push_back(word);
    }
    command.insert(command.end(), arguments.begin(), arguments.end());
    return command;
}

/** Under some emulators spawning a program that is missing succeeds. */
void requireProgram(const std::string& program) {
    if (program.find('/') != std::string::npos && ::access(program.c_str(), X_OK) != 0) {
        throw std::system_error(errno, std::generic_category(), "cannot start " + program);
    }
}

std::vector<std::pair<int, int>> descriptorsFor(const OutputFile* output, const OutputFile* error) {
    std::vector<std::pair<int, int>> descriptors;
    if (output != nullptr) {
        descriptors.emplace_back(STDOUT_FILENO, output->fd());
    }
    if (error != nullptr) {
        descriptors.emplace_back(STDERR_FILENO, error->fd());
    }
    return descriptors;
}

} // namespace

ChildProcess::ChildProcess(std::vector<std::string> arguments, const Options& options)
    : mOutput(options.captureOutput ? std::make_unique<OutputFile>() : nullptr),
      mError(options.captureError ? std::make_unique<OutputFile>() : nullptr), mOwner(::getpid()) {
    requireProgram(arguments.front());
    mPid = process::spawn(
        {emulated(std::move(arguments)), {}, options.environment, descriptorsFor(mOutput.get(), mError.get())});
}

ChildProcess::~ChildProcess() {
    if (::getpid() == mOwner && !mStatus) {
        kill(SIGKILL);
        wait();
    }
}

std::optional<int> ChildProcess::wait(std::chrono::milliseconds patience) {
    eventually([this] { return reap(); }, patience);
    return mStatus;
}

std::optional<int> ChildProcess::exitCode(std::chrono::milliseconds patience) {
    const std::optional<int> status = wait(patience);
    if (!status || !WIFEXITED(*status)) {
        return std::nullopt;
    }
    return WEXITSTATUS(*status);
}

void ChildProcess::kill(int signal) {
    if (!mStatus) {
        ::kill(mPid, signal);
    }
}

bool reapIfEnded(pid_t child, std::optional<int>& status) {
    int ended = 0;
    if (!status && ::waitpid(child, &ended, WNOHANG) == child) {
        status = ended;
    }
    return status.has_value();
}

bool ChildProcess::reap() { return reapIfEnded(mPid, mStatus); }

} // namespace kelutv::test
