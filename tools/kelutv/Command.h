#pragma once

#include "Errors.h"
#include "Output.h"

#include <CLI/CLI.hpp>

#include <string>
#include <vector>

namespace kelutv::tool {

/** What every command has at hand. */
struct Context {
    Output output;
    Exit exit = Exit::Success;
};

/**
 * Adds every command to the program. A command is a function `addNAMECommand(CLI::App&, Context&)` of its own file; its
 * callback does the work, prints through the context's output, and ends with an exception of Errors.h or with
 * `context.exit`.
 */
void addCommands(CLI::App& app, Context& context);

/** Runs one command line, the program's name left out, and says what went wrong; never throws. */
Exit runCommandLine(std::vector<std::string> words);

} // namespace kelutv::tool
