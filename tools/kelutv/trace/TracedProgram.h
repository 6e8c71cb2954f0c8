#pragma once

#include <sys/types.h>

#include <csignal>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace kelutv::tool {

/** A program that runs with the trace library loaded before its own. */
class TracedProgram {
public:
    /**
     * Starts it, looked for as a shell does.
     *
     * @param setting `NAME=value`, for its environment
     * @param descriptors of the program, and those of this process that they are copies of
     * @param mask the signals that are blocked in it
     * @throws ToolError with 127 when there is no such program, 126 when it cannot be run
     */
    TracedProgram(const std::vector<std::string>& words, const std::string& setting,
                  const std::vector<std::pair<int, int>>& descriptors, const sigset_t& mask);

    /** Looks whether it could be started. @throws ToolError as the constructor, and when the trace library is missing
     */
    static void requireRunnable(const std::vector<std::string>& words);

    /** What its end gives a shell: its exit code, or 128 and the signal; empty while it runs. */
    std::optional<int> exitCode();

    void kill(int signal) const;

private:
    pid_t mPid = -1;
};

} // namespace kelutv::tool
