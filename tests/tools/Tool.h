#pragma once

#include "support/ChildProcess.h"

#include <memory>
#include <string>
#include <vector>

namespace kelutv::test {

/** What one run of the tool gave. */
struct ToolRun {
    int exit;
    std::string output;
    std::string error;
};

/**
 * The program that is tested: the one of this build, unless KELUTV_TEST_TOOL names another, so that tests which need no
 * service say the same of a tool that was built for another platform.
 */
std::string toolProgram();

/** The interface token of that tool's requests as hexadecimal digits; KELUTV_TEST_TOKEN has that of another platform.
 */
std::string tokenDigits();

/**
 * Runs `kelutv` as a person would, with these arguments, until its end.
 *
 * An end that does not come in time fails the test; `exit` is -1 then.
 */
ToolRun runTool(std::vector<std::string> arguments, const std::vector<std::string>& environment = {});

/** Runs `kelutv` with a standard output to which nothing can be written. */
ToolRun runToolOnFullDevice(std::vector<std::string> arguments);

/** Starts `kelutv` with its output and its messages caught; the test waits for its end. */
std::unique_ptr<ChildProcess> startTool(std::vector<std::string> arguments,
                                        const std::vector<std::string>& environment = {});

/** What a wrong use of a command puts on standard error. */
std::string usageError(const std::string& command, const std::string& message);

} // namespace kelutv::test
