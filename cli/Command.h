#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace kelutv::cli {

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
    /** Takes numbers from the least to the most. */
    void option(const char* names, double& value, double least, double most, const char* form, const char* help) const;
    /** Takes any number of whole numbers from 0 to the most, and may be given several times. */
    void option(const char* names, std::vector<std::uint32_t>& values, std::uint32_t most, const char* form,
                const char* help) const;
    /** May be given several times. */
    void option(const char* names, std::vector<std::string>& values, const char* form, const char* help) const;
    /** Hands the value over; what it throws leaves the parser. */
    void option(const char* names, const std::function<void(const std::string&)>& take, const char* form,
                const char* help) const;
    bool isGiven(const char* option) const;

    /** Takes the value of an option from this variable of the environment where the option is not given. */
    void environment(const char* option, const char* variable) const;
    /** Refuses an option without the other one. */
    void needs(const char* option, const char* other) const;
    /** Refuses two options together. */
    void excludes(const char* option, const char* other) const;

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
    /** Of the program: comes before the action of any command, when all words have been read. What it throws leaves the
     * parser. */
    void beforeAction(const std::function<void()>& act) const;
};

} // namespace kelutv::cli
