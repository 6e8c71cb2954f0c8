#pragma once

#include "tools/kelutv/output/Errors.h"
#include "tools/kelutv/output/Output.h"
#include "tools/kelutv/parser/Parser.h"
#include "tools/kelutv/shell/History.h"
#include "tools/kelutv/worker/LineWorker.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace kelutv::tool {

/**
 * Carries out lines as the command line would, over one connection, until there are no more. A line that finds the
 * service gone, or is given up, fails; the next ones are carried out over a new connection.
 */
class Repl {
public:
    /**
     * @param program what the words at a terminal are completed by; must live as long as this
     * @param runCommandLine runs the words of a line
     * @param options words that stand before those of every line
     * @param stopAtFailure ends with the first line that fails
     * @param output for what is wrong with a line itself; must live as long as this
     */
    Repl(const Command& program, RunCommandLine runCommandLine, std::vector<std::string> options, bool stopAtFailure,
         const Output& output);

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
    /** Of the present line in a script; empty at a terminal. */
    std::string place() const;

    std::vector<std::string> mOptions;
    bool mStopAtFailure;
    const Output& mOutput;
    bool mAtTerminal;
    bool mEnded = false;
    LineWorker mWorker;
    std::size_t mLineNumber = 0;
    History mHistory;
};

} // namespace kelutv::tool
