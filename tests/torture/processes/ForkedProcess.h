#pragma once

#include "support/Deadline.h"
#include "support/OutputFile.h"

#include <sys/types.h>

#include <functional>
#include <optional>
#include <string>

namespace kelutv::test {

/**
 * A child of this process that runs a function and then exits as a program does, with its exit handlers.
 *
 * The parent must not have used the runtime. What the child writes to standard output and standard error is kept. It
 * dies with the thread that started it, and is killed and reaped when the object goes.
 */
class ForkedProcess {
public:
    explicit ForkedProcess(const std::function<void()>& body);
    ~ForkedProcess();
    ForkedProcess(const ForkedProcess&) = delete;
    ForkedProcess& operator=(const ForkedProcess&) = delete;

    pid_t pid() const { return mPid; }

    /** The wait status once the process has ended; nothing when the time is over before. */
    std::optional<int> wait(std::chrono::milliseconds patience = kPatience);

    /** Sends a signal; does nothing after the end has been seen. */
    void signal(int number);

    /** Sends SIGKILL and returns when the process is gone. */
    void kill();

    /** What it has written to standard output and standard error so far. */
    std::string text() const { return mText.text(); }

private:
    OutputFile mText;
    pid_t mPid;
    std::optional<int> mStatus;
};

} // namespace kelutv::test
