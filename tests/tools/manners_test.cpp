#include "tools/Tool.h"

#include "support/RuntimeDir.h"

#include <gtest/gtest.h>

namespace kelutv::test {
namespace {

/** A command line that is wrong, and what is said of it. */
struct Mistake {
    std::vector<std::string> arguments;
    std::string complaint;
};

TEST(Manners, everyMistakeHasOneMessageAndAHint) {
    const std::vector<Mistake> mistakes{
        {{}, "kelutv: a command is missing\nTry 'kelutv help'.\n"},
        {{"gte"}, "kelutv: unknown command 'gte'; nearest: get\nTry 'kelutv help'.\n"},
        {{"descirbe", "x"}, "kelutv: unknown command 'descirbe'; nearest: describe\nTry 'kelutv help'.\n"},
        {{"--quiet", "xyzzy"}, "kelutv: unknown command 'xyzzy'\nTry 'kelutv help'.\n"},
        {{"help", "sett"}, "kelutv: unknown command 'sett'; nearest: set\nTry 'kelutv help'.\n"},
        {{"get", "--jsno"}, "kelutv: unknown option '--jsno'; nearest: --json\nTry 'kelutv help get'.\n"},
        {{"--versoin"}, "kelutv: unknown option '--versoin'; nearest: --version\nTry 'kelutv help'.\n"},
        {{"-x", "status"}, "kelutv: unknown option '-x'\nTry 'kelutv help status'.\n"},
        {{"status", "now"}, "kelutv: unexpected argument 'now'\nTry 'kelutv help status'.\n"},
        {{"--color=maybe", "status"},
         "kelutv: --color takes auto, always or never, not 'maybe'\nTry 'kelutv help status'.\n"},
        {{"call"}, "kelutv: FUNCTION is required\nTry 'kelutv help call'.\n"},
    };
    const RuntimeDir empty;
    for (const Mistake& mistake : mistakes) {
        const ToolRun run = runTool(mistake.arguments);
        EXPECT_EQ(run.exit, 2);
        EXPECT_EQ(run.output, "");
        EXPECT_EQ(run.error, mistake.complaint);
    }
}

TEST(Manners, longAndStrangeWordsAreShownShortenedAndEscaped) {
    const std::string word(100 * 1024, 'A');
    const RuntimeDir empty;
    for (const std::vector<std::string>& words : {std::vector<std::string>{"call"},
                                                  {"describe"},
                                                  {"list"},
                                                  {"get"},
                                                  {"encode"},
                                                  {"help"},
                                                  {"eep", "dump"},
                                                  {}}) {
        std::vector<std::string> arguments = words;
        arguments.push_back(word);
        const ToolRun run = runTool(arguments);
        EXPECT_EQ(run.exit, 2) << (words.empty() ? "" : words.front());
        EXPECT_LT(run.error.size(), 1000U) << run.error.substr(0, 200);
        EXPECT_NE(run.error.find("AAA..."), std::string::npos) << run.error.substr(0, 200);
    }
    EXPECT_LT(runTool({"trace", "-f", word, "true"}).error.size(), 1000U);
    EXPECT_EQ(runTool({"get", "vol\x1b[2J\xff"}).error.find('\x1b'), std::string::npos);
}

TEST(Manners, optionsStandBeforeOrBehindTheCommand) {
    const std::string before = runTool({"--json", "get"}).output;
    EXPECT_EQ(before.substr(0, 19), "{\"thing\":\"source\",\"");
    EXPECT_EQ(runTool({"get", "--json"}).output, before);
}

TEST(Manners, helpBeginsWithExamples) {
    const ToolRun run = runTool({"help", "set"});
    EXPECT_EQ(run.exit, 0);
    EXPECT_EQ(run.error, "");
    EXPECT_EQ(run.output.substr(0, run.output.find("Positionals")),
              "Examples:\n"
              "  kelutv set volume 35\n"
              "  kelutv set volume +5\n"
              "  kelutv set mute toggle\n"
              "  kelutv set source hdmi2\n"
              "\n"
              "Usage: kelutv set [OPTIONS] SETTING VALUE\n"
              "\n"
              "Change a setting of the television, and print its new value\n"
              "Names can be shortened as long as one is meant. 'kelutv get' lists every SETTING and its values.\n"
              "\n");
    EXPECT_EQ(runTool({"set", "--help"}).output, run.output);
}

TEST(Manners, helpTellsOfCommandsAndExitCodes) {
    const std::string help = runTool({"help"}).output;
    EXPECT_EQ(runTool({"--help"}).output, help);
    for (const char* const part : {"\n  status ", "\n  get ", "\n  set ", "\n  repl ", "\n  call ", "\nExit codes:\n",
                                   "\n  3  there is no service, or it is gone\n"}) {
        EXPECT_NE(help.find(part), std::string::npos) << part;
    }
    EXPECT_EQ(help.find("\n  complete"), std::string::npos);
}

TEST(Manners, everyCommandHasExamples) {
    std::string help = runTool({"help"}).output;
    help = help.substr(help.find("Subcommands:\n"));
    std::size_t line = help.find("\n  ");
    for (; line < help.find("\nExit codes"); line = help.find("\n  ", line + 1)) {
        const std::string command = help.substr(line + 3, help.find(' ', line + 3) - line - 3);
        const std::string text = runTool({"help", command}).output;
        EXPECT_EQ(text.find("Examples:\n  kelutv "), 0U) << command;
        EXPECT_LT(text.find("kelutv " + command), text.find("Usage:")) << command;
    }
}

TEST(Manners, theVersionTellsOfLineEditing) {
    EXPECT_EQ(runTool({"--version"}).output, "kelutv " KELUTV_VERSION " (" KELUTV_LINE_EDITING_TEXT ")\n");
}

} // namespace
} // namespace kelutv::test
