#pragma once

#include "Errors.h"
#include "History.h"

#include <optional>
#include <string>
#include <vector>

namespace kelutv::tool {

/** Carries out lines as the command line would, over one connection, until there are no more. */
class Repl {
public:
    /**
     * @param options words that stand before those of every line
     * @param stopAtFailure ends with the first line that fails
     */
    Repl(std::vector<std::string> options, bool stopAtFailure);

    /**
     * Reads lines, with editing, completion and history when both ends are terminals.
     *
     * @return what the last line that failed gave; always success at a terminal
     */
    Exit run();

private:
    std::optional<std::string> nextLine();
    Exit runLine(const std::string& line);
    Exit runWords(std::vector<std::string> words);

    std::vector<std::string> mOptions;
    bool mStopAtFailure;
    bool mAtTerminal;
    bool mEnded = false;
    History mHistory;
};

} // namespace kelutv::tool
