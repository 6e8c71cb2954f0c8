#include "support/ChildProcess.h"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <sstream>
#include <system_error>

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

/** Spawning does not tell of a missing program under every emulator. */
void requireProgram(const std::string& program) {
    if (program.find('/') != std::string::npos && ::access(program.c_str(), X_OK) != 0) {
        throw std::system_error(errno, std::generic_category(), "cannot start " + program);
    }
}

std::string nameOf(const std::string& setting) { return setting.substr(0, setting.find('=') + 1); }

std::vector<std::string> environmentWith(const std::vector<std::string>& settings) {
    std::vector<std::string> all(settings);
    for (char** entry = environ; *entry != nullptr; ++entry) {
        const std::string inherited(*entry);
        bool replaced = false;
        for (const std::string& setting : settings) {
            replaced = replaced || nameOf(setting) == nameOf(inherited);
        }
        if (!replaced) {
            all.push_back(inherited);
        }
    }
    return all;
}

std::vector<char*> pointersTo(std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    for (std::string& text : texts) {
        pointers.push_back(text.data());
    }
    pointers.push_back(nullptr);
    return pointers;
}

class FileActions {
public:
    FileActions() { ::posix_spawn_file_actions_init(&mActions); }
    ~FileActions() { ::posix_spawn_file_actions_destroy(&mActions); }
    FileActions(const FileActions&) = delete;
    FileActions& operator=(const FileActions&) = delete;

    void redirect(int fd, const OutputFile* to) {
        if (to != nullptr) {
            ::posix_spawn_file_actions_adddup2(&mActions, to->fd(), fd);
        }
    }
    const posix_spawn_file_actions_t* get() const { return &mActions; }

private:
    posix_spawn_file_actions_t mActions{};
};

} // namespace

ChildProcess::ChildProcess(std::vector<std::string> arguments, const Options& options)
    : mOutput(options.captureOutput ? std::make_unique<OutputFile>() : nullptr),
      mError(options.captureError ? std::make_unique<OutputFile>() : nullptr), mOwner(::getpid()) {
    requireProgram(arguments.front());
    std::vector<std::string> command = emulated(std::move(arguments));
    std::vector<std::string> environment = environmentWith(options.environment);
    FileActions actions;
    actions.redirect(STDOUT_FILENO, mOutput.get());
    actions.redirect(STDERR_FILENO, mError.get());
    const int error = ::posix_spawnp(&mPid, command.front().c_str(), actions.get(), nullptr, pointersTo(command).data(),
                                     pointersTo(environment).data());
    if (error != 0) {
        throw std::system_error(error, std::generic_category(), "cannot start " + command.front());
    }
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
