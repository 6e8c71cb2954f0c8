#include "tools/kelutv/commands/Commands.h"
#include "tools/kelutv/shell/Completion.h"
#include "tools/kelutv/shell/SimulatorOptions.h"
#include "tools/kelutv/shell/Tokenizer.h"

#include <memory>
#include <string>
#include <vector>

namespace kelutv::tool {

namespace {

constexpr char kSimulator[] = "kelutv-simulator";

void printNames(const Output& output, const std::vector<std::string>& names) {
    for (const std::string& name : names) {
        output.line(name);
    }
    output.document({{"completions", names}});
}

/** What the begun word of another command line may become, of which only the command that it names is described. */
std::vector<std::string> completionsOfLine(const Context& context, const std::vector<std::string>& words,
                                           const std::string& begun) {
    Context other{context.runCommandLine, context.makeProgram};
    const Parser parser = context.makeProgram(other, words);
    return completionsOf(parser.program(), words, begun);
}

/** A line of the shell, which begins with the name of the program. */
void completeLine(const Context& context, const std::string& line) {
    const LineTokens tokens = tokenizeUnfinished(line);
    if (tokens.complete.empty()) {
        return;
    }
    const std::string& name = tokens.complete.front();
    const std::vector<std::string> words(tokens.complete.begin() + 1, tokens.complete.end());
    const bool isSimulator = name.substr(name.rfind('/') + 1) == kSimulator;
    printNames(context.output, isSimulator ? narrowed(simulatorOptions(name, words, tokens.begun), tokens.begun)
                                           : completionsOfLine(context, words, tokens.begun));
}

void completeWords(const Context& context, std::vector<std::string> words) {
    const std::string begun = words.empty() ? "" : words.back();
    if (!words.empty()) {
        words.pop_back();
    }
    printNames(context.output, completionsOfLine(context, words, begun));
}

} // namespace

void addCompleteCommand(const Command& program, Context& context) {
    const Subcommand command(
        program, "complete",
        "Print what the last word may become, one a line\n\nExamples:\nkelutv complete -- get vol");
    command.hide(); // For shells, not for people.
    const auto line = std::make_shared<std::string>();
    const auto words = std::make_shared<std::vector<std::string>>();
    command.option("--line", *line, "LINE",
                   "The line up to the cursor, instead of words: one of kelutv or of kelutv-simulator");
    command.words("WORD", *words, "The words up to the cursor, behind --");
    command.action([&context, command, line, words] {
        if (command.isGiven("--line")) {
            completeLine(context, *line);
        } else {
            completeWords(context, *words);
        }
    });
}

} // namespace kelutv::tool
