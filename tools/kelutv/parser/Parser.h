#pragma once

#include "tools/kelutv/output/Errors.h"

#include "cli/CommandParser.h"

#include <string>
#include <vector>

namespace kelutv::tool {

using cli::Command;
using cli::Operand;
using cli::Subcommand;

/** A word that is neither a command, an option nor an argument where it stands. */
struct UnexpectedWord : UsageError {
    explicit UnexpectedWord(const std::string& word);

    std::string word;
};

/** The parser of the tool's command lines, which complains in the tool's words. */
class Parser : private cli::CommandParser {
public:
    using cli::CommandParser::CommandParser;
    using cli::CommandParser::named;
    using cli::CommandParser::program;

    /**
     * Carries out the action of the command that the words name, or prints the help or the version that they ask for.
     *
     * @throws UnexpectedWord, UsageError, and what the action throws
     */
    void run(std::vector<std::string> words);
};

} // namespace kelutv::tool
