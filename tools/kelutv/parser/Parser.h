#pragma once

#include "tools/kelutv/output/Errors.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace kelutv::tool {

/** What a command takes at a place of its own or behind an option. */
struct Operand {
    /** As the help has it: `FILE`, `NAME|NUMBER`. */
    std::string form;
    /** How many words it takes at most; 0 for an option without a value. */
    std::size_t most;
};

/** A command, or the whole program; valid as long as its parser. */
class Command {
public:
    explicit Command(CLI::App& app) : mApp(&app) {}

    std::string name() const;
    /** The names from the program's down to its own. */
    std::string path() const;
    /** The text that explains it, examples first. */
    std::string help() const;

    std::optional<Command> above() const;
    std::optional<Command> below(const std::string& name) const;
    /** The names of the commands below it, but for hidden ones. */
    std::vector<std::string> namesBelow() const;

    /** Its long options and those of all above it, with their dashes, in order. */
    std::vector<std::string> optionNames() const;
    /** What stands behind an option of its own or of those above it; nothing when there is no such option. */
    std::optional<Operand> optionNamed(const std::string& name) const;
    /** What stands at a place of its own, in order. */
    std::vector<Operand> positionals() const;

protected:
    CLI::App* mApp;
};

/**
 * A command while it is made. Values are written before the action runs; they must live as long as the parser. Names
 * are `-s,--long` for options and `NAME` for what stands at a place of its own.
 */
class Subcommand : public Command {
public:
    /** Adds a command below the program or another command; its description is laid out as Help.h says. */
    Subcommand(const Command& above, const char* name, const std::string& description);

    /** Adds no command, but goes on with one. */
    explicit Subcommand(const Command& command) : Command(command) {}

    void flag(const char* names, bool& value, const char* help) const;
    void option(const char* names, std::string& value, const char* form, const char* help) const;
    void option(const char* names, std::size_t& value, const char* form, const char* help) const;
    /** Takes numbers above 0. */
    void option(const char* names, double& value, const char* form, const char* help) const;
    /** May be given several times. */
    void option(const char* names, std::vector<std::string>& values, const char* form, const char* help) const;
    /** Hands the value over; may throw a UsageError. */
    void option(const char* names, const std::function<void(const std::string&)>& take, const char* form,
                const char* help) const;
    bool isGiven(const char* option) const;

    void optional(const char* name, std::string& value, const char* help) const;
    void required(const char* name, std::string& value, const char* help) const;
    /** Any number of words to the end; words in brackets stay whole. */
    void words(const char* name, std::vector<std::string>& values, const char* help) const;
    /** One word at least. */
    void requiredWords(const char* name, std::vector<std::string>& values, const char* help) const;

    /** What stands behind the options in the help. */
    void footer(const std::string& text) const;
    /** Leaves the command out of the help. */
    void hide() const;
    /** Does nothing by itself: one of the commands below it must be named. */
    void requireSubcommand() const;

    void action(const std::function<void()>& act) const;
};

/** A word that is neither a command, an option nor an argument where it stands. */
struct UnexpectedWord : UsageError {
    explicit UnexpectedWord(const std::string& word);

    std::string word;
};

/** The parser of a command line: all that the tool has of the library for it, whose headers are slow to compile. */
class Parser {
public:
    /** @param footer what stands at the end of the help of each command */
    Parser(const char* name, const std::string& description, const std::string& version, const std::string& footer);
    Parser(Parser&&) noexcept;
    Parser& operator=(Parser&&) noexcept;
    ~Parser();

    Command program() const;
    /** The command that was named last in the words of `run`. */
    Command named() const;

    /**
     * Carries out the action of the command that the words name, or prints the help or the version that they ask for.
     *
     * @throws UnexpectedWord, UsageError, and what the action throws
     */
    void run(std::vector<std::string> words);

private:
    [[noreturn]] void refuse(const std::string& complaint, int why) const;

    std::unique_ptr<CLI::App> mApp;
};

} // namespace kelutv::tool
