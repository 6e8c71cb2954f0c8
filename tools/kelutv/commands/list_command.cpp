#include "tools/kelutv/commands/Commands.h"
#include "tools/kelutv/names/Directory.h"
#include "tools/kelutv/text/Lists.h"
#include "wire/text/FunctionNames.h"
#include "wire/text/Nearest.h"
#include "wire/text/Shown.h"

#include <algorithm>
#include <map>
#include <memory>

namespace kelutv::tool {

namespace {

constexpr char kFunction[] = "function";

struct Options {
    std::string pattern;
    std::string kind;
    bool modules = false;
};

std::vector<std::string> allKinds() {
    std::vector<std::string> kinds = entryKinds();
    kinds.insert(kinds.begin(), kFunction);
    return kinds;
}

void requireKind(const std::string& kind) {
    const std::vector<std::string> kinds = allKinds();
    if (!kind.empty() && std::find(kinds.begin(), kinds.end(), kind) == kinds.end()) {
        throw UsageError("there is no kind '" + wire::shown(kind) + "', there are " + joined(kinds, ", ") +
                         wire::nearestHint(kind, kinds));
    }
}

bool isModule(const std::string& name) {
    const auto functions = wire::allFunctions();
    return std::any_of(functions.begin(), functions.end(),
                       [&name](const wire::Function& function) { return function.module == name; });
}

[[noreturn]] void refuse(const Options& options, const Directory& directory) {
    std::vector<std::string> names = directory.names();
    for (const wire::Function& function : wire::allFunctions()) {
        names.emplace_back(function.module);
        names.emplace_back(function.shortName);
    }
    const std::string what = options.kind.empty() ? "module or name" : options.kind;
    throw UsageError("no " + what + " matches '" + wire::shown(options.pattern) + '\'' +
                     wire::nearestHint(options.pattern, names));
}

void printFunctions(const Output& output, const std::vector<const wire::Function*>& functions) {
    for (const wire::Function* function : functions) {
        output.line(output.styled(Style::Name, function->shortName) + "  " +
                    output.styled(Style::Dim, function->texts->brief));
        output.document({{"kind", kFunction},
                         {"function", function->name},
                         {"short", function->shortName},
                         {"module", function->module},
                         {"brief", function->texts->brief}});
    }
}

void printEntries(const Output& output, const std::vector<const Entry*>& entries) {
    for (const Entry* const entry : entries) {
        output.line(output.styled(Style::Name, entry->name()) + "  " +
                    output.styled(Style::Dim, entry->kind() + (": " + entry->brief())));
        output.document({{"kind", entry->kind()}, {"name", entry->name()}, {"brief", entry->brief()}});
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

/** A module means its functions, and so does nothing at all. */
void list(const Output& output, const Options& options) {
    requireKind(options.kind);
    const Directory directory;
    const bool hasFunctions = options.kind.empty() || options.kind == kFunction;
    const bool hasEntries = options.kind.empty()
                                ? !options.pattern.empty() && !options.modules && !isModule(options.pattern)
                                : options.kind != kFunction;
    const auto functions =
        hasFunctions ? wire::functionsMatching(options.pattern) : std::vector<const wire::Function*>();
    const auto entries = hasEntries ? directory.matching(options.pattern, options.kind) : std::vector<const Entry*>();
    if (functions.empty() && entries.empty()) {
        refuse(options, directory);
    }
    if (options.modules) {
        return printModules(output, functions);
    }
    printFunctions(output, functions);
    printEntries(output, entries);
}

} // namespace

void addListCommand(const Command& program, Context& context) {
    const auto options = std::make_shared<Options>();
    const Subcommand command(program, "list",
                             "List functions, commands, items, types and events by name\n"
                             "Without a PATTERN, or for a module: the functions that can be called. Otherwise whatever "
                             "has such a name.\n\n"
                             "Examples:\n"
                             "kelutv list\n"
                             "kelutv list audio\n"
                             "kelutv list '*Volume*'\n"
                             "kelutv list CMD_AUDIO_SETVOLUME\n"
                             "kelutv list --kind event\n"
                             "kelutv list --modules");
    command.optional("PATTERN", options->pattern, "A module, a name, a piece of one, or a pattern with *, ? and [...]");
    command.option("-k,--kind", options->kind, "KIND",
                   "Only names of this kind: function, command, item, enumeration, value, record or event");
    command.flag("-m,--modules", options->modules, "List the modules with the number of their functions");
    command.action([options, &context] { list(context.output, *options); });
}

} // namespace kelutv::tool
