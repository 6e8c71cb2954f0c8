#include "tools/kelutv/shell/Repl.h"

#include "tools/kelutv/output/StandardOutput.h"
#include "tools/kelutv/output/Streams.h"
#include "tools/kelutv/shell/Completion.h"
#include "tools/kelutv/shell/LineEditor.h"
#include "tools/kelutv/shell/Tokenizer.h"
#include "wire/text/Shown.h"

#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <initializer_list>
#include <iostream>
#include <utility>

namespace kelutv::tool {

namespace {

bool isAnyOf(const std::string& word, std::initializer_list<const char*> words) {
    return std::any_of(words.begin(), words.end(), [&word](const char* each) { return word == each; });
}

/** The first word that is neither an option nor its value. */
std::string commandOf(const std::vector<std::string>& words) {
    auto word = words.begin();
    while (word != words.end() && word->compare(0, 1, "-") == 0) {
        word += isAnyOf(*word, {"--color", "--timeout", "-t"}) && word + 1 != words.end() ? 2 : 1;
    }
    return word == words.end() ? "" : *word;
}

std::vector<std::string> completions(const Command& program, const std::vector<std::string>& words,
                                     const std::string& begun) {
    std::vector<std::string> names = completionsOf(program, words, begun);
    if (words.empty() && std::strncmp("quit", begun.c_str(), begun.size()) == 0) {
        names.emplace_back("quit");
    }
    return names;
}

} // namespace

Repl::Repl(const Command& program, RunCommandLine runCommandLine, std::vector<std::string> options, bool stopAtFailure,
           const Output& output)
    : mOptions(std::move(options)), mStopAtFailure(stopAtFailure), mOutput(output),
      mAtTerminal(::isatty(STDIN_FILENO) == 1 && ::isatty(::fileno(ownOutput())) == 1),
      mWorker(runCommandLine, mAtTerminal), mHistory(mAtTerminal ? History::usualPath() : "") {
    if (!mAtTerminal) {
        std::setvbuf(stdin, nullptr, _IONBF, 0); // What a line reads itself begins behind that line.
    } else {
        startEditing(mHistory.lines(), [program](const std::vector<std::string>& words, const std::string& begun) {
            return completions(program, words, begun);
        });
    }
}

Exit Repl::run() {
    Exit failure = Exit::Success;
    while (!mEnded) {
        const std::optional<std::string> line = nextLine();
        if (!line) {
            break;
        }
        const Exit exit = runLine(*line);
        failure = exit == Exit::Success ? failure : exit;
        mEnded = mEnded || (mStopAtFailure && exit != Exit::Success);
    }
    return mAtTerminal && !mStopAtFailure ? Exit::Success : failure;
}

std::optional<std::string> Repl::nextLine() {
    ++mLineNumber;
    if (!mAtTerminal) {
        std::string line;
        return std::getline(std::cin, line) ? std::optional<std::string>(line) : std::nullopt;
    }
    std::optional<std::string> line = readLine("kelutv> ");
    if (!line) {
        writeData("\n");
    } else if (line->find_first_not_of(" \t") != std::string::npos) {
        rememberLine(*line);
        mHistory.add(*line);
    }
    return line;
}

Exit Repl::runLine(const std::string& line) {
    try {
        std::vector<std::string> words = tokenize(line);
        if (!words.empty() && words.front() == "kelutv") {
            words.erase(words.begin());
        }
        return words.empty() ? Exit::Success : runWords(std::move(words));
    } catch (const ToolError& error) {
        Output::setPlace(place());
        mOutput.complain(error.what(), error.exit());
        return error.exit();
    }
}

std::string Repl::place() const { return mAtTerminal ? "" : "line " + std::to_string(mLineNumber); }

Exit Repl::runWords(std::vector<std::string> words) {
    const std::string command = commandOf(words);
    if (isAnyOf(command, {"quit", "exit"})) {
        if (words.back() != command) {
            throw UsageError("unexpected argument '" + wire::shown(words.back()) + '\'');
        }
        mEnded = true;
        return Exit::Success;
    }
    if (command == "repl") {
        throw UsageError("this is the repl already");
    }
    words.insert(words.begin(), mOptions.begin(), mOptions.end());
    if (!mAtTerminal) {
        words.insert(words.begin(), {kPlaceWord, place()});
    }
    // These change the process that they run in, watch until they are interrupted, or need one without a connection.
    return isAnyOf(command, {"doctor", "encode", "monitor", "snapshot", "trace"}) ? mWorker.runAlone(words)
                                                                                  : mWorker.run(words);
}

} // namespace kelutv::tool
