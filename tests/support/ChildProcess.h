#pragma once

#include "support/Deadline.h"
#include "support/OutputFile.h"

#include <sys/types.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace kelutv::test {

/**
 * A program run beside the test; it is killed and reaped when the object goes.
 *
 * The program is started through the emulator named by `KELUTV_EMULATOR` (words apart by spaces) when that is set.
 */
class ChildProcess {
public:
    struct Options {
        /** "NAME=value" settings added to the environment of the test. */
        std::vector<std::string> environment;
        bool captureOutput = false;
        bool captureError = false;
    };

    explicit ChildProcess(std::vector<std::string> arguments) : ChildProcess(std::move(arguments), Options{}) {}
    ChildProcess(std::vector<std::string> arguments, const Options& options);
    ~ChildProcess();
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    pid_t pid() const { return mPid; }

    /** The wait status once the process has ended; nothing when the time is over before. */
    std::optional<int> wait(std::chrono::milliseconds patience = kPatience);

    /** The exit code; nothing when the process was ended by a signal or has not ended in time. */
    std::optional<int> exitCode(std::chrono::milliseconds patience = kPatience);

    /** Sends a signal; does nothing after the end has been seen. */
    void kill(int signal);

    /** What the process has written to standard output so far (with `captureOutput`). */
    OutputFile& output() { return *mOutput; }

    /** What the process has written to standard error so far (with `captureError`). */
    OutputFile& error() { return *mError; }

private:
    bool reap();

    std::unique_ptr<OutputFile> mOutput;
    std::unique_ptr<OutputFile> mError;
    pid_t mPid = -1;
    pid_t mOwner;
    std::optional<int> mStatus;
};

/** Whether the child has ended; its wait status is put down when that is seen for the first time. Never waits. */
bool reapIfEnded(pid_t child, std::optional<int>& status);

} // namespace kelutv::test
