#include "tools/kelutv/commands/Commands.h"
#include "wire/text/FunctionNames.h"
#include "wire/text/Nearest.h"
#include "wire/text/Shown.h"

#include <algorithm>
#include <map>
#include <memory>

namespace kelutv::tool {

namespace {

struct Options {
    std::string pattern;
    bool modules = false;
};

std::vector<const wire::Function*> chosen(const std::string& pattern) {
    const auto functions = wire::functionsMatching(pattern);
    if (functions.empty()) {
        std::vector<std::string> names;
        for (const wire::Function& function : wire::allFunctions()) {
            names.emplace_back(function.module);
            names.emplace_back(function.shortName);
        }
        throw UsageError("no module or function matches '" + wire::shown(pattern) + '\'' +
                         wire::nearestHint(pattern, names));
    }
    return functions;
}

void printFunctions(const Output& output, const std::vector<const wire::Function*>& functions) {
    for (const wire::Function* function : functions) {
        output.line(output.styled(Style::Name, function->shortName) + "  " +
                    output.styled(Style::Dim, function->texts->brief));
        output.document({{"function", function->name},
                         {"short", function->shortName},
                         {"module", function->module},
                         {"brief", function->texts->brief}});
    }
}

void printModules(const Output& output, const std::vector<const wire::Function*>& functions) {
    std::map<std::string, int> counts;
    for (const wire::Function* function : functions) {
        ++counts[function->module];
    }
    for (const auto& [module, count] : counts) {
        output.line(output.styled(Style::Name, module) + "  " + std::to_string(count));
        output.document({{"module", module}, {"functions", count}});
    }
}

} // namespace

void addListCommand(const Command& program, Context& context) {
    const auto options = std::make_shared<Options>();
    const Subcommand command(program, "list",
                             "List the functions that can be called\n\n"
                             "Examples:\n"
                             "kelutv list\n"
                             "kelutv list audio\n"
                             "kelutv list '*Volume*'\n"
                             "kelutv list --modules");
    command.optional("PATTERN", options->pattern, "A module, a name, a piece of one, or a pattern with *, ? and [...]");
    command.flag("-m,--modules", options->modules, "List the modules with the number of their functions");
    command.action([options, &context] {
        const auto functions = chosen(options->pattern);
        options->modules ? printModules(context.output, functions) : printFunctions(context.output, functions);
    });
}

} // namespace kelutv::tool
