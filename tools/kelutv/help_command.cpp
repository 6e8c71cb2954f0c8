#include "Commands.h"
#include "Nearest.h"

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

#include <memory>
#include <string>
#include <vector>

namespace kelutv::tool {

namespace {

void printHelp(const CLI::App& program, const Context& context, const std::vector<std::string>& path) {
    const CLI::App* command = &program;
    std::string above;
    for (const std::string& name : path) {
        const CLI::App* const below = commandNamed(*command, name);
        if (below == nullptr) {
            throw UsageError("unknown command '" + name + '\'' + nearestHint(name, commandNames(*command)));
        }
        above += (above.empty() ? "" : " ") + command->get_name();
        command = below;
    }
    const std::string text = command->get_formatter()->make_help(
        command, above.empty() ? command->get_name() : above + ' ' + command->get_name(), CLI::AppFormatMode::Normal);
    context.output.line(text.substr(0, text.find_last_not_of('\n') + 1));
    context.output.document({{"help", text}});
}

} // namespace

void addHelpCommand(CLI::App& app, Context& context) {
    const Subcommand command(app, "help",
                             "Tell what a command does\n\nExamples:\n"
                             "kelutv help\n"
                             "kelutv help set");
    const auto path = std::make_shared<std::vector<std::string>>();
    command.words("COMMAND", *path, "The command; without one, what commands there are");
    command.action([&app, &context, path] { printHelp(app, context, *path); });
}

} // namespace kelutv::tool
