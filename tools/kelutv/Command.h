#pragma once

#include "Errors.h"
#include "Output.h"

#include <CLI/CLI.hpp>

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

} // namespace kelutv::tool
