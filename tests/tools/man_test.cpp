#include "tools/Tool.h"

#include "support/ChildProcess.h"
#include "support/Pattern.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <sstream>

namespace kelutv::test {
namespace {

namespace fs = std::filesystem;
using Names = std::set<std::string>;

/** An option at the beginning of its line of a help text. */
constexpr char kHelpOption[] = "\n  (?:-[a-z],)?--([a-z][a-z-]*)";

/** Every first group of the pattern in the text. */
Names foundIn(const std::string& text, const std::string& pattern) {
    Names names;
    for (const auto& groups : Pattern(pattern).findAll(text)) {
        names.insert(groups[1]);
    }
    return names;
}

std::string pageOf(const std::string& name) {
    std::ifstream file(KELUTV_MAN_FOLDER "/" + name + ".1");
    return {std::istreambuf_iterator<char>(file), {}};
}

Names pageOptions(const std::string& name) { return foundIn(pageOf(name), "Fl -([a-z][a-z-]*)"); }

std::string helpOf(std::vector<std::string> path) {
    path.insert(path.begin(), "help");
    return runTool(path).output;
}

/** The commands below one, as its help lists them. */
std::vector<std::string> commandsBelow(const std::vector<std::string>& path) {
    std::istringstream help(helpOf(path));
    std::vector<std::string> commands;
    bool isList = false;
    for (std::string line; std::getline(help, line);) {
        isList = line == "Subcommands:" || (isList && !line.empty());
        if (isList && line.compare(0, 2, "  ") == 0 && line[2] != ' ') {
            commands.push_back(line.substr(2, line.find(' ', 2) - 2));
        }
    }
    return commands;
}

/** The long options of a command and of all below it. */
Names helpOptions(const std::vector<std::string>& path) {
    Names names = foundIn(helpOf(path), kHelpOption);
    for (const std::string& command : commandsBelow(path)) {
        std::vector<std::string> below = path;
        below.push_back(command);
        names.merge(helpOptions(below));
    }
    return names;
}

Names pages() {
    Names names;
    for (const fs::directory_entry& entry : fs::directory_iterator(KELUTV_MAN_FOLDER)) {
        names.insert(entry.path().stem().string());
    }
    return names;
}

TEST(Man, everyCommandHasAPageAndEveryPageItsCommand) {
    Names expected{"kelutv", "kelutv-simulator"};
    for (const std::string& command : commandsBelow({})) {
        expected.insert("kelutv-" + command);
    }
    EXPECT_EQ(pages(), expected);
    expected.erase("kelutv");
    EXPECT_EQ(foundIn(pageOf("kelutv"), "Xr (kelutv-[a-z-]+) 1"), expected);
}

TEST(Man, everyPageHasTheOptionsOfItsCommand) {
    const Names general{"color", "help", "json", "quiet", "timeout"};
    for (const std::string& command : commandsBelow({})) {
        Names expected = helpOptions({command});
        expected.insert(general.begin(), general.end());
        EXPECT_EQ(pageOptions("kelutv-" + command), expected) << command;
    }
    Names expected = foundIn(helpOf({}), kHelpOption);
    EXPECT_EQ(pageOptions("kelutv"), expected);
}

TEST(Man, thePageOfTheSimulatorHasItsOptions) {
    ChildProcess::Options options;
    options.captureOutput = true;
    ChildProcess simulator({KELUTV_SIMULATOR_PROGRAM, "--help"}, options);
    ASSERT_EQ(simulator.exitCode(), 0);
    EXPECT_EQ(pageOptions("kelutv-simulator"), foundIn(simulator.output().text(), kHelpOption));
}

TEST(Man, examplesComeFirst) {
    for (const std::string& page : pages()) {
        const std::string text = pageOf(page);
        const std::size_t examples = text.find("\n.Ss Examples\n");
        EXPECT_NE(examples, std::string::npos) << page;
        EXPECT_LT(examples, text.find("\n.Sh DESCRIPTION\n")) << page;
    }
}

TEST(Man, mandocHasNoWarnings) {
    for (const std::string& page : pages()) {
        ChildProcess::Options options;
        options.captureOutput = true;
        ChildProcess lint({"/usr/bin/mandoc", "-Tlint", "-Wwarning", KELUTV_MAN_FOLDER "/" + page + ".1"}, options);
        EXPECT_EQ(lint.exitCode(), 0) << lint.output().text();
    }
}

} // namespace
} // namespace kelutv::test
