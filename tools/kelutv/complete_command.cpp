#include "Commands.h"
#include "Completion.h"
#include "LineWords.h"

#include <memory>
#include <string>
#include <vector>

namespace kelutv::tool {

namespace {

void printCompletions(const Output& output, const std::vector<std::string>& words, const std::string& begun) {
    const std::vector<std::string> names = completionsOf(words, begun);
    for (const std::string& name : names) {
        output.line(name);
    }
    output.document({{"completions", names}});
}

/** A line of the shell, which begins with the name of the program. */
void completeLine(const Output& output, const std::string& line) {
    Words words = wordsBegun(line);
    if (!words.complete.empty()) {
        words.complete.erase(words.complete.begin());
    }
    printCompletions(output, words.complete, words.begun);
}

void completeWords(const Output& output, std::vector<std::string> words) {
    const std::string begun = words.empty() ? "" : words.back();
    if (!words.empty()) {
        words.pop_back();
    }
    printCompletions(output, words, begun);
}

} // namespace

void addCompleteCommand(CLI::App& app, Context& context) {
    CLI::App* const command = app.add_subcommand(
        "complete", "Print what the last word may become, one a line\n\nExamples:\nkelutv complete -- get vol");
    command->group(""); // For shells, not for persons.
    const auto line = std::make_shared<std::string>();
    const auto words = std::make_shared<std::vector<std::string>>();
    CLI::Option* const whole =
        command->add_option("--line", *line, "The line up to the cursor, instead of words")->option_text("LINE");
    addWords(*command, "WORD", *words, "The words up to the cursor, behind --");
    command->callback([&context, whole, line, words] {
        if (whole->count() > 0) {
            completeLine(context.output, *line);
        } else {
            completeWords(context.output, *words);
        }
    });
}

} // namespace kelutv::tool
