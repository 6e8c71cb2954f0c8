#pragma once

#include "Errors.h"
#include "Output.h"
#include "Subcommand.h"

namespace CLI {
class App;
}

namespace kelutv::tool {

/** What every command has at hand. */
struct Context {
    Output output;
    Exit exit = Exit::Success;
};

/**
 * Adds every command to the program. A command is a function `addNAMECommand(CLI::App&, Context&)` of its own file; its
 * callback does the work, prints through the context's output, and ends with an exception of Errors.h or with
 * `context.exit`. Its description is laid out as Help.h says.
 */
void addCommands(CLI::App& app, Context& context);

/** Makes the program of one command line: its commands, the options that all of them have, and its help. */
void makeProgram(CLI::App& app, Context& context);

/** The names of the commands below a command or the whole program. */
std::vector<std::string> commandNames(const CLI::App& app);

/** The command of this name right below another or the whole program; null when there is none. */
const CLI::App* commandNamed(const CLI::App& app, const std::string& name);

/** The long options of a command and those of all above it, with their dashes. */
std::vector<std::string> optionNames(const CLI::App& command);

} // namespace kelutv::tool
