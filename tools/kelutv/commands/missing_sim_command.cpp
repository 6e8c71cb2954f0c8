#include "tools/kelutv/commands/Commands.h"

#include <memory>

namespace kelutv::tool {

void addSimCommand(const Command& program, Context& /*context*/) {
    const Subcommand command(program, "sim",
                             "Drive the simulator while it runs: not in this build, which has no simulator\n\n"
                             "Example: kelutv sim help");
    const auto words = std::make_shared<std::vector<std::string>>();
    const auto file = std::make_shared<std::string>();
    command.option("--file", *file, "FILE", "Carry out the lines of this file");
    command.words("VERB", *words, "The verb with its arguments, or - for lines from standard input");
    command.action([words, file] { throw ToolError(Exit::Usage, "this build of kelutv has no simulator to drive"); });
}

} // namespace kelutv::tool
