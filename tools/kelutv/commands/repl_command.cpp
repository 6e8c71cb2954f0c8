#include "tools/kelutv/commands/Commands.h"
#include "tools/kelutv/parser/Amounts.h"
#include "tools/kelutv/shell/LineEditor.h"
#include "tools/kelutv/shell/Repl.h"

#include <memory>
#include <string>
#include <vector>

namespace kelutv::tool {

namespace {

/** The options of the repl as those of its lines. */
std::vector<std::string> optionsOf(const Output& output) {
    std::vector<std::string> words;
    if (output.json) {
        words.emplace_back("--json");
    }
    if (output.quiet) {
        words.emplace_back("--quiet");
    }
    if (output.color != Color::Automatic) {
        words.emplace_back(output.color == Color::Always ? "--color=always" : "--color=never");
    }
    return words;
}

} // namespace

void addReplCommand(const Command& program, Context& context) {
    const Subcommand command(
        program, "repl",
        "Carry out lines, each a command line without 'kelutv', over one connection\n"
        "Words are quoted as in a shell; # begins a comment; quit, exit or the end of the input ends it. "
        "A line that finds the service gone fails, the next ones look for it again; --timeout is for each line. "
        "At a terminal there are completion and history (" +
            lineEditingText() +
            "). From a file or a pipe the exit code is that of the last line that failed.\n\n"
            "Examples:\n"
            "kelutv repl\n"
            "kelutv repl --json < commands\n"
            "kelutv repl -e < commands");
    const auto stop = std::make_shared<bool>(false);
    command.flag("-e,--stop", *stop, "End with the first line that fails, and with its exit code");
    command.action([program, &context, stop] {
        if (context.time) {
            putIntoEnvironment(*context.time);
        }
        context.exit = Repl(program, context.runCommandLine, optionsOf(context.output), *stop, context.output).run();
    });
}

} // namespace kelutv::tool
