#pragma once

#include "cli/Command.h"

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace kelutv::cli {

/** What is wrong with a command line. */
struct Refusal : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/** No command is named where one is needed. */
struct MissingCommand : Refusal {
    using Refusal::Refusal;
};

/** A word is neither a command, an option nor an argument where it stands. */
struct UnexpectedWord : Refusal {
    UnexpectedWord(const std::string& complaint, std::string which) : Refusal(complaint), word(std::move(which)) {}

    std::string word;
};

/** The parser of a program with commands. */
class CommandParser {
public:
    /** @param footer what stands at the end of the help of each command */
    CommandParser(const char* name, const std::string& description, const std::string& version,
                  const std::string& footer);
    CommandParser(CommandParser&&) noexcept;
    CommandParser& operator=(CommandParser&&) noexcept;
    ~CommandParser();

    Command program() const;
    /** The command that was named last in the words of `run`. */
    Command named() const;

    /**
     * Carries out the action of the command that the words name.
     *
     * @return the help or the version when the words ask for that instead
     * @throws UnexpectedWord, MissingCommand, Refusal, and what the action throws
     */
    std::string run(std::vector<std::string> words);

private:
    [[noreturn]] void refuse(const std::string& complaint, int why) const;

    std::unique_ptr<CLI::App> mApp;
};

} // namespace kelutv::cli
