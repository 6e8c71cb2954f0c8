#include "simulator/control/ControlClient.h"
#include "simulator/control/ControlMessage.h"
#include "simulator/control/ControlVerbs.h"
#include "tools/kelutv/commands/Commands.h"
#include "tools/kelutv/shell/Completion.h"
#include "tools/kelutv/sim/SimDocument.h"
#include "tools/kelutv/sim/SimWords.h"
#include "wire/text/Quote.h"
#include "wire/text/Shown.h"

#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>

namespace kelutv::tool {

namespace {

using simulator::Answer;
using simulator::ControlClient;

struct SimOptions {
    std::string file;
    std::vector<std::string> words;
};

/** `place` is put before a complaint, to say where the line stands. */
void print(Context& context, const Answer& answer, const std::string& place) {
    context.output.document(answer.ok ? simDocument(answer.text) : simRefusalDocument(answer.text));
    if (!answer.ok) {
        context.output.complain(place + answer.text, Exit::Failure);
        context.exit = Exit::Failure;
    } else if (!answer.text.empty()) {
        context.output.line(answer.text);
    }
}

/** As it has to stand in a line, so that the simulator reads this word. */
std::string inLine(const std::string& word) {
    const bool isPlain = !word.empty() && word.find_first_of(" \t\r\\") == std::string::npos;
    return isPlain || word.find('"') != std::string::npos ? word : wire::inQuotes(word);
}

/** The simulator has a working directory of its own. */
std::string withWholePath(const std::string& word) {
    return word.size() > 1 && word[0] == '@' ? '@' + inLine(std::filesystem::absolute(word.substr(1)).string())
                                             : inLine(word);
}

/** The words of the command line as one line; a single word is taken as a line that stands as it is. */
std::string lineOf(const std::vector<std::string>& words) {
    if (words.size() == 1) {
        return words.front();
    }
    std::string line;
    for (const std::string& word : words) {
        line += (line.empty() ? "" : " ") + withWholePath(word);
    }
    return line;
}

Answer ask(ControlClient& client, const std::string& line) {
    try {
        return client.ask(line);
    } catch (const simulator::NoSimulator& error) {
        throw LinkError(error.what());
    } catch (const std::invalid_argument& error) {
        return {false, error.what()};
    }
}

std::unique_ptr<ControlClient> connect() {
    try {
        return std::make_unique<ControlClient>();
    } catch (const simulator::NoSimulator& error) {
        throw LinkError(error.what());
    }
}

/** Carries out line after line; one that is refused does not end it. */
void runLines(Context& context, std::istream& input, const std::string& name) {
    const auto client = connect();
    std::size_t number = 0;
    for (std::string line; std::getline(input, line);) {
        ++number;
        print(context, ask(*client, line), name + ':' + std::to_string(number) + ": ");
    }
    if (input.bad()) {
        throw ToolError(Exit::Failure, "cannot read " + name);
    }
}

void runFile(Context& context, const std::string& path) {
    std::ifstream file(path);
    if (!file || std::filesystem::is_directory(path)) {
        throw ToolError(Exit::Failure, "cannot read " + wire::shown(path, wire::kMostOfPath));
    }
    runLines(context, file, path);
}

bool asksForHelp(const std::vector<std::string>& words) {
    return words.front() == "help" && (words.size() == 1 || simulator::findControlVerb(words[1]) != nullptr);
}

void run(Context& context, const SimOptions& options) {
    const std::vector<std::string>& words = options.words;
    if (options.file.empty() == words.empty()) {
        throw UsageError("sim takes a verb with its arguments, - for lines from standard input, or --file FILE");
    }
    if (!options.file.empty()) {
        runFile(context, options.file);
    } else if (words == std::vector<std::string>{"-"}) {
        runLines(context, std::cin, "standard input");
    } else if (asksForHelp(words)) {
        const std::string verb = words.size() > 1 ? words[1] : "";
        context.output.document(simHelpDocument(verb));
        context.output.line(simulator::controlHelp(verb));
    } else {
        print(context, ask(*connect(), lineOf(words)), "");
    }
}

std::string footer() {
    std::string text = "Verbs:\n";
    for (const simulator::ControlVerb& verb : simulator::controlVerbs()) {
        text += std::string("  ") + verb.name + ' ' + verb.form + '\n';
    }
    return text + "\nkelutv sim help says what they mean.";
}

} // namespace

void addSimCommand(const Command& program, Context& context) {
    const Subcommand command(program, "sim",
                             "Drive the simulator while it runs\n\n"
                             "Examples: kelutv sim unplug hdmi1\n          kelutv sim show audio");
    const auto options = std::make_shared<SimOptions>();
    command.option("--file", options->file, "FILE", "Carry out the lines of this file");
    command.words("VERB", options->words, "The verb with its arguments, or - for lines from standard input");
    command.footer(footer());
    completeAs("VERB", simWords);
    command.action([options, &context] { run(context, *options); });
}

} // namespace kelutv::tool
