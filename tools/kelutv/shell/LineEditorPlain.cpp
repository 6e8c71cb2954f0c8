#include "tools/kelutv/output/StandardOutput.h"
#include "tools/kelutv/output/Streams.h"
#include "tools/kelutv/shell/LineEditor.h"

#include <unistd.h>

#include <csignal>
#include <iostream>

namespace kelutv::tool {

void startEditing(const std::vector<std::string>&, const Completer&) {}

namespace {

const std::string* shownPrompt = nullptr;

/** The terminal has forgotten what was written. */
void showPromptAgain(int) {
    if (::write(::fileno(ownOutput()), "\n", 1) == 1 &&
        ::write(::fileno(ownOutput()), shownPrompt->data(), shownPrompt->size()) < 0) {
        return;
    }
}

/** While this lives an interrupt from the keyboard shows the prompt again. */
class InterruptsIgnored {
public:
    explicit InterruptsIgnored(const std::string& prompt) {
        shownPrompt = &prompt;
        struct sigaction action {};
        action.sa_handler = showPromptAgain;
        action.sa_flags = SA_RESTART;
        ::sigaction(SIGINT, &action, &mBefore);
    }
    ~InterruptsIgnored() { ::sigaction(SIGINT, &mBefore, nullptr); }
    InterruptsIgnored(const InterruptsIgnored&) = delete;
    InterruptsIgnored& operator=(const InterruptsIgnored&) = delete;

private:
    struct sigaction mBefore {};
};

} // namespace

std::optional<std::string> readLine(const std::string& prompt) {
    writeData(prompt);
    const InterruptsIgnored whileItIsWritten(prompt);
    std::string line;
    return std::getline(std::cin, line) ? std::optional<std::string>(line) : std::nullopt;
}

void rememberLine(const std::string&) {}

std::string lineEditingText() { return "without line editing"; }

} // namespace kelutv::tool
