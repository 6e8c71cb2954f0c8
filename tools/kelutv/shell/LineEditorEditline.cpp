#include "tools/kelutv/shell/LineEditor.h"
#include "tools/kelutv/shell/Tokenizer.h"

#include <editline/readline.h>

#include <cstdlib>
#include <cstring>
#include <memory>

namespace kelutv::tool {

namespace {

constexpr int kNothing = 0;
constexpr int kBlank = 0x20;

Completer completer;
std::vector<std::string> candidates;

/** What stands in the line for a word, so that it is read as one. */
std::string escaped(const std::string& text) {
    const std::string special = " \t'\"\\#";
    std::string line;
    for (const char letter : text) {
        line += special.find(letter) == std::string::npos ? "" : "\\";
        line += letter;
    }
    return line;
}

char* nextCandidate(const char*, int state) {
    static std::size_t next = 0;
    if (state == 0) {
        next = 0;
    }
    return next < candidates.size() ? ::strdup(candidates[next++].c_str()) : nullptr;
}

char** complete(const char* text, int, int end) {
    rl_attempted_completion_over = 1; // No other kind of completion when there is nothing.
    const LineTokens tokens = tokenizeUnfinished(std::string(rl_line_buffer, static_cast<std::size_t>(end)));
    candidates.clear();
    for (const std::string& word : completer(tokens.complete, tokens.begun)) {
        candidates.push_back(text + escaped(word.substr(tokens.begun.size())));
    }
    const bool isFolder = candidates.size() == 1 && candidates.front().back() == '/';
    rl_completion_append_character = isFolder ? kNothing : kBlank;
    return candidates.empty() ? nullptr : rl_completion_matches(text, nextCandidate);
}

} // namespace

void startEditing(const std::vector<std::string>& history, const Completer& completions) {
    static char breaks[] = " \t\n";
    static char program[] = "kelutv";
    completer = completions;
    rl_readline_name = program;
    ::rl_initialize();
    ::using_history();
    rl_completer_word_break_characters = breaks;
    rl_attempted_completion_function = complete;
    for (const std::string& line : history) {
        rememberLine(line);
    }
}

std::optional<std::string> readLine(const std::string& prompt) {
    const std::unique_ptr<char, decltype(&std::free)> line(::readline(prompt.c_str()), &std::free);
    return line == nullptr ? std::nullopt : std::optional<std::string>(line.get());
}

void rememberLine(const std::string& line) { ::add_history(line.c_str()); }

std::string lineEditingText() { return "line editing by libedit"; }

} // namespace kelutv::tool
