#include "tools/kelutv/commands/Commands.h"
#include "wire/text/Nearest.h"
#include "wire/text/Shown.h"

#include <memory>
#include <string>
#include <vector>

namespace kelutv::tool {

namespace {

void printHelp(Command command, const Output& output, const std::vector<std::string>& path) {
    for (const std::string& name : path) {
        const std::optional<Command> below = command.below(name);
        if (!below) {
            throw UsageError("unknown command '" + wire::shown(name) + '\'' +
                             wire::nearestHint(name, command.namesBelow()));
        }
        command = *below;
    }
    const std::string text = command.help();
    output.line(text.substr(0, text.find_last_not_of('\n') + 1));
    output.document({{"help", text}});
}

} // namespace

void addHelpCommand(const Command& program, Context& context) {
    const Subcommand command(program, "help",
                             "Show what a command does\n\nExamples:\n"
                             "kelutv help\n"
                             "kelutv help set");
    const auto path = std::make_shared<std::vector<std::string>>();
    command.words("COMMAND", *path, "The command; without one, what commands there are");
    command.action([program, &context, path] { printHelp(program, context.output, *path); });
}

} // namespace kelutv::tool
