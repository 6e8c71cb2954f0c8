#include "Command.h"

#include "CommandLine.h"
#include "Commands.h"
#include "Help.h"
#include "LineEditor.h"
#include "Nearest.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cstdio>
#include <exception>
#include <map>
#include <memory>

namespace kelutv::tool {

namespace {

constexpr char kProgram[] = "kelutv";
constexpr char kExitCodes[] = "Exit codes:\n"
                              "  0  done\n"
                              "  1  a file, a pipe or another program did not do what it had to\n"
                              "  2  the command line is wrong; nothing was sent\n"
                              "  3  there is no service, or it is gone\n"
                              "  4  the service or the library refused the operation\n"
                              "  5  the time was over before what was waited for came";
constexpr char kMoreHelp[] = "Every command has --json, --quiet and --color, too: kelutv help.";

void addGeneralOptions(CLI::App& app, Context& context) {
    static const std::map<std::string, Color> colors{
        {"auto", Color::Automatic}, {"always", Color::Always}, {"never", Color::Never}};
    app.add_flag("--json", context.output.json, "Print data as JSON, one document a line");
    app.add_flag("-q,--quiet", context.output.quiet, "Print data and errors, no other messages");
    app.add_option_function<std::string>(
           "--color",
           [&context](const std::string& when) {
               const auto found = colors.find(when);
               if (found == colors.end()) {
                   throw CLI::ValidationError("--color takes auto, always or never, not '" + when + '\'');
               }
               context.output.color = found->second;
           },
           "Colour on standard output: auto, always or never")
        ->option_text("WHEN");
}

/** The command that was named last. */
const CLI::App& commandNamedIn(const CLI::App& app) {
    const CLI::App* command = &app;
    while (!command->get_subcommands().empty()) {
        command = command->get_subcommands().front();
    }
    return *command;
}

std::string pathOf(const CLI::App& command) {
    const CLI::App* const parent = command.get_parent();
    return parent == nullptr ? "" : pathOf(*parent) + ' ' + command.get_name();
}

std::string whatIsUnknown(const CLI::App& command, const std::string& word) {
    if (word.size() > 1 && word.front() == '-') {
        return "unknown option '" + word + '\'' + nearestHint(word, optionNames(command));
    }
    const std::vector<std::string> names = commandNames(command);
    if (!names.empty()) {
        return "unknown command '" + word + '\'' + nearestHint(word, names);
    }
    return "unexpected argument '" + word + '\'';
}

std::string complaintOf(const CLI::App& app, const CLI::ParseError& error) {
    const CLI::App& command = commandNamedIn(app);
    const bool isRequirement = error.get_exit_code() == static_cast<int>(CLI::ExitCodes::RequiredError);
    if (isRequirement || error.get_exit_code() == static_cast<int>(CLI::ExitCodes::ExtrasError)) {
        const std::vector<std::string> rest = app.remaining(true);
        if (!rest.empty()) {
            return whatIsUnknown(command, unguarded(rest.front()));
        }
        if (isRequirement && !commandNames(command).empty()) {
            return "a command is missing";
        }
    }
    return error.what();
}

Exit complainOfUsage(const CLI::App& app, const std::string& complaint) {
    Output::complain(complaint);
    const std::string path = pathOf(commandNamedIn(app));
    std::fprintf(stderr, "Try '%s help%s'.\n", kProgram, path == " help" ? "" : path.c_str());
    return Exit::Usage;
}

Exit runParsed(CLI::App& app, const Context& context, std::vector<std::string> words) {
    guardBrackets(words);
    std::reverse(words.begin(), words.end()); // The order in which the parser takes them.
    try {
        app.parse(words);
        return context.exit;
    } catch (const CLI::ParseError& error) {
        return error.get_exit_code() == 0 ? static_cast<Exit>(app.exit(error))
                                          : complainOfUsage(app, complaintOf(app, error));
    } catch (const UsageError& error) {
        return complainOfUsage(app, error.what());
    } catch (const ToolError& error) {
        if (*error.what() != '\0') {
            Output::complain(error.what());
        }
        return error.exit();
    } catch (const std::exception& error) {
        Output::complain(error.what());
        return Exit::Failure;
    }
}

} // namespace

std::vector<std::string> commandNames(const CLI::App& app) {
    std::vector<std::string> names;
    for (const CLI::App* const command : app.get_subcommands([](const CLI::App*) { return true; })) {
        if (!command->get_group().empty()) {
            names.push_back(command->get_name());
        }
    }
    return names;
}

const CLI::App* commandNamed(const CLI::App& app, const std::string& name) {
    const auto found = app.get_subcommands([&name](const CLI::App* each) { return each->get_name() == name; });
    return found.empty() ? nullptr : found.front();
}

std::vector<std::string> optionNames(const CLI::App& command) {
    std::vector<std::string> names;
    for (const CLI::App* app = &command; app != nullptr; app = app->get_parent()) {
        for (const CLI::Option* const option : app->get_options()) {
            for (const std::string& name : option->get_lnames()) {
                names.push_back("--" + name);
            }
        }
    }
    std::sort(names.begin(), names.end());
    names.erase(std::unique(names.begin(), names.end()), names.end());
    return names;
}

void addCommands(CLI::App& app, Context& context) {
    addStatusCommand(app, context);
    addGetCommand(app, context);
    addSetCommand(app, context);
    addListCommand(app, context);
    addDescribeCommand(app, context);
    addCallCommand(app, context);
    addEncodeCommand(app, context);
    addDecodeCommand(app, context);
    addTraceCommand(app, context);
    addMonitorCommand(app, context);
    addEepCommand(app, context);
    addSimCommand(app, context);
    addReplCommand(app, context);
    addHelpCommand(app, context);
    addCompleteCommand(app, context);
}

void makeProgram(CLI::App& app, Context& context) {
    app.name(kProgram);
    app.description("Reads, changes and watches the television.\n\nExamples:\n"
                    "kelutv status\n"
                    "kelutv set volume 35\n"
                    "kelutv call audio.setVolume speaker 35\n"
                    "kelutv help set");
    app.set_version_flag("--version", "kelutv " KELUTV_VERSION " (" + lineEditingText() + ')');
    app.formatter(std::make_shared<HelpFormatter>());
    app.footer(kMoreHelp);
    app.require_subcommand(1);
    app.fallthrough();
    addCommands(app, context);
    addGeneralOptions(app, context);
    app.footer(kExitCodes);
}

Exit runCommandLine(std::vector<std::string> words) {
    Context context;
    CLI::App app;
    makeProgram(app, context);
    return runParsed(app, context, std::move(words));
}

} // namespace kelutv::tool
