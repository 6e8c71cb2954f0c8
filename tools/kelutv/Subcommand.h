#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace kelutv::tool {

/**
 * One command with what it takes: the part of the option parser that commands need, which keeps the parser's own
 * headers out of their files. Values are written before the action runs; they must live as long as the program of the
 * command line. Names are `-s,--long` for options and `NAME` for what stands at a place of its own.
 */
class Subcommand {
public:
    /** Adds a command below the program; its description is laid out as Help.h says. */
    Subcommand(CLI::App& above, const char* name, const std::string& description);
    /** Adds a command below another. */
    Subcommand(const Subcommand& above, const char* name, const std::string& description);

    void flag(const char* names, bool& value, const char* help) const;
    void option(const char* names, std::string& value, const char* form, const char* help) const;
    void option(const char* names, std::size_t& value, const char* form, const char* help) const;
    /** Takes numbers above 0. */
    void option(const char* names, double& value, const char* form, const char* help) const;
    /** May be given several times. */
    void option(const char* names, std::vector<std::string>& values, const char* form, const char* help) const;
    bool isGiven(const char* option) const;

    void optional(const char* name, std::string& value, const char* help) const;
    void required(const char* name, std::string& value, const char* help) const;
    /** Any number of words to the end; unlike the parser's own lists, words in brackets stay whole. */
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

private:
    CLI::App* mApp;
};

/** Makes words in brackets safe from the parser, which would take them apart; `words` and the like undo it. */
void guardBrackets(std::vector<std::string>& words);
/** The word as it was before. */
std::string unguarded(std::string word);

} // namespace kelutv::tool
