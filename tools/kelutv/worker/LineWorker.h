#pragma once

#include "tools/kelutv/output/Errors.h"
#include "tools/kelutv/parser/Context.h"

#include <memory>
#include <string>
#include <vector>

namespace kelutv::tool {

/**
 * Carries out command lines in another process, one after the other over one connection. A new process takes its place
 * when it has lost the service, has ended, or was given up. This process must not use the runtime itself.
 */
class LineWorker {
public:
    /** @param isInterruptedAlone whether an interrupt from the keyboard ends the line, not this process */
    LineWorker(RunCommandLine runCommandLine, bool isInterruptedAlone);
    ~LineWorker();

    /**
     * Carries out a line within the time that is set for it.
     *
     * @return its exit code, Failure when it was interrupted
     * @throws ToolError when the time is over or a signal ended it
     */
    Exit run(const std::vector<std::string>& words);

    /** Carries out a line in a process for it alone; an interrupt from the keyboard ends only that. */
    Exit runAlone(const std::vector<std::string>& words) const;

private:
    class Process;

    RunCommandLine mRun;
    bool mIsInterruptedAlone;
    std::unique_ptr<Process> mProcess;
};

} // namespace kelutv::tool
