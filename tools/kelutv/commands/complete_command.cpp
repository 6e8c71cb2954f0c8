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

/** A line of the shell, which begins with the name of the program. */
void completeLine(const Command& program, const Output& output, const std::string& line) {
    const LineTokens tokens = tokenizeUnfinished(line);
    if (tokens.complete.empty()) {
        return;
    }
    const std::string& name = tokens.complete.front();
    const std::vector<std::string> words(tokens.complete.begin() + 1, tokens.complete.end());
    const bool isSimulator = name.substr(name.rfind('/') + 1) == kSimulator;
    printNames(output, isSimulator ? narrowed(simulatorOptions(name, words, tokens.begun), tokens.begun)
                                   : completionsOf(program, words, tokens.begun));
}

void completeWords(const Command& program, const Output& output, std::vector<std::string> words) {
    const std::string begun = words.empty() ? "" : words.back();
    if (!words.empty()) {
        words.pop_back();
    }
    printNames(output, completionsOf(program, words, begun));
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
    command.action([program, &context, command, line, words] {
        if (command.isGiven("--line")) {
            completeLine(program, context.output, *line);
        } else {
            completeWords(program, context.output, *words);
        }
    });
}

} // namespace kelutv::tool
