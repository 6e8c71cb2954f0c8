#include "tools/kelutv/output/Streams.h"
#include "tools/kelutv/shell/LineEditor.h"
#include "tools/kelutv/shell/Tokenizer.h"

#include <editline/readline.h>

#include <poll.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>

namespace kelutv::tool {

namespace {

constexpr int kNothing = 0;
constexpr int kBlank = 0x20;
constexpr int kLineEnd = '\n';
constexpr int kEndOfInput = -1;
constexpr unsigned char kLastAscii = 0x7F;

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
    const bool goesOn =
        candidates.size() == 1 && (candidates.front().back() == '/' || candidates.front().back() == '=');
    rl_completion_append_character = goesOn ? kNothing : kBlank;
    return candidates.empty() ? nullptr : rl_completion_matches(text, nextCandidate);
}

volatile std::sig_atomic_t isInterrupted = 0;

void noteInterrupt(int) { isInterrupted = 1; }

/** While this lives an interrupt from the keyboard is noted, and only where it is waited for. */
class InterruptsNoted {
public:
    InterruptsNoted() {
        isInterrupted = 0;
        struct sigaction action {};
        action.sa_handler = noteInterrupt;
        ::sigaction(SIGINT, &action, &mActionBefore);
        sigset_t interrupt;
        ::sigemptyset(&interrupt);
        ::sigaddset(&interrupt, SIGINT);
        ::sigprocmask(SIG_BLOCK, &interrupt, &mMaskBefore);
    }
    ~InterruptsNoted() {
        ::sigprocmask(SIG_SETMASK, &mMaskBefore, nullptr);
        ::sigaction(SIGINT, &mActionBefore, nullptr);
    }
    InterruptsNoted(const InterruptsNoted&) = delete;
    InterruptsNoted& operator=(const InterruptsNoted&) = delete;

private:
    struct sigaction mActionBefore {};
    sigset_t mMaskBefore{};
};

/** Waits for a byte. @return false when it is interrupted */
bool waitForKey(int descriptor) {
    sigset_t mask;
    ::sigprocmask(SIG_SETMASK, nullptr, &mask);
    ::sigdelset(&mask, SIGINT);
    pollfd key{descriptor, POLLIN, 0};
    while (::ppoll(&key, 1, nullptr, &mask) < 0 && isInterrupted == 0) {
    }
    return isInterrupted == 0;
}

/**
 * A key; the end of the line when it is interrupted, since the editor knows no other way to leave it. What is not ASCII
 * is left out, as the editor does by itself.
 */
int nextKey(std::FILE* input) {
    unsigned char byte = kLastAscii;
    do {
        if (!waitForKey(::fileno(input))) {
            return kLineEnd;
        }
        if (::read(::fileno(input), &byte, 1) != 1) {
            return kEndOfInput;
        }
    } while (byte > kLastAscii);
    return byte;
}

} // namespace

void startEditing(const std::vector<std::string>& history, const Completer& completions) {
    static char breaks[] = " \t\n";
    static char program[] = "kelutv";
    rl_getc_function = nextKey;
    completer = completions;
    rl_readline_name = program;
    rl_outstream = ownOutput();
    ::rl_initialize();
    ::using_history();
    rl_completer_word_break_characters = breaks;
    rl_attempted_completion_function = complete;
    for (const std::string& line : history) {
        rememberLine(line);
    }
}

std::optional<std::string> readLine(const std::string& prompt) {
    const InterruptsNoted whileItIsWritten;
    const std::unique_ptr<char, decltype(&std::free)> line(::readline(prompt.c_str()), &std::free);
    if (isInterrupted != 0) {
        return "";
    }
    return line == nullptr ? std::nullopt : std::optional<std::string>(line.get());
}

void rememberLine(const std::string& line) { ::add_history(line.c_str()); }

std::string lineEditingText() { return "line editing by libedit"; }

} // namespace kelutv::tool
