#include "tools/Tool.h"

#include "simulator/Simulator.h"
#include "support/RuntimeDir.h"
#include "support/TestFolder.h"
#include "tools/process/Redirection.h"

#include <fcntl.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <fstream>

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

TEST(Manners, noMessageActsOnATerminal) {
    const RuntimeDir empty;
    const std::string word = "\x1b[2J\x9b\xc2\x9b" + std::string(2000, 'w');
    const std::vector<std::vector<std::string>> lines{
        {word},
        {"--" + word},
        {"--color", word, "status"},
        {"call", "audio.setVolume", word, "1"},
        {"call", "factory.setOverscan", word},
        {"call", "factory.setOverscan", "x=" + word},
        {"call", "factory.setMacAddress", "hex:" + word},
        {"call", "factory.setMacAddress", '@' + word},
        {"decode", word},
        {"decode", '@' + word},
        {"decode", "--command", word, "--reply", "00"},
        {"describe", word},
        {"eep", "dump", "tv", "--offset", word},
        {"eep", "load", "tv", word},
        {"eep", "read", word, "0"},
        {"eep", "write", "tv", "0x8A00", word},
        {"get", word},
        {"list", word},
        {"monitor", "--count", word},
        {"monitor", "--event", word},
        {"monitor", "--events", word},
        {"monitor", "--module", word},
        {"set", "volume", word},
        {"sim", "--file", word},
        {"trace", "--filter", word, "true"},
        {"trace", "--output", word, "true"},
        {"trace", word},
    };
    for (std::vector<std::string> line : lines) {
        const std::string command = line.front().substr(0, 20);
        for (const bool asJson : {false, true}) {
            const ToolRun run = runTool(line);
            EXPECT_NE(run.exit, 0) << command;
            EXPECT_EQ(run.output, "") << command;
            // A path is shown whole.
            EXPECT_LT(run.error.size(), 3000U) << command;
            EXPECT_EQ(run.error.find_first_of("\x1b\x9b"), std::string::npos) << command;
            EXPECT_EQ(run.error.find(asJson ? "{\"error\":" : "kelutv: "), 0U) << run.error.substr(0, 200);
            line.insert(line.begin(), "--json");
        }
    }
}

/** Starts the tool with a standard output that nobody reads. */
std::unique_ptr<ChildProcess> startUnread(std::vector<std::string> arguments) {
    int ends[2];
    EXPECT_EQ(::pipe2(ends, O_CLOEXEC), 0);
    ::close(ends[0]);
    ChildProcess::Options options;
    options.captureError = true;
    arguments.insert(arguments.begin(), KELUTV_TOOL_PROGRAM);
    const process::Redirection output(STDOUT_FILENO, ends[1]);
    ::close(ends[1]);
    return std::make_unique<ChildProcess>(std::move(arguments), options);
}

TEST(Unread, everyCommandEndsQuietly) {
    const RuntimeDir directory;
    const Simulator simulator;
    for (const std::vector<std::string>& arguments : {std::vector<std::string>{"list"},
                                                      {"list", "--json"},
                                                      {"describe", "audio.setVolume"},
                                                      {"help"},
                                                      {"--version"},
                                                      {"status"},
                                                      {"get"},
                                                      {"call", "audio.getVolume", "speaker", "--wire"},
                                                      {"encode", "audio.getVolume", "speaker", "--raw"},
                                                      {"eep", "dump", "tv"},
                                                      {"sim", "show"}}) {
        const auto tool = startUnread(arguments);
        EXPECT_EQ(tool->exitCode(), 0) << arguments.front();
        EXPECT_EQ(tool->error().text(), "") << arguments.front();
    }
}

TEST(Unread, changesAreMadeWholeAndFailuresTold) {
    const RuntimeDir directory;
    const Simulator simulator;
    EXPECT_EQ(startUnread({"call", "audio.setVolume", "speaker", "31"})->exitCode(), 0);
    EXPECT_EQ(runTool({"get", "volume"}).output, "31\n");
    EXPECT_EQ(startUnread({"set", "volume", "32"})->exitCode(), 0);
    EXPECT_EQ(runTool({"get", "volume"}).output, "32\n");
    const TestFolder folder;
    const std::string lines = folder.pathOf("lines");
    std::ofstream(lines) << "get audio.volume[0]\nget audio.mute[0]\nset audio.volume[0] = 33\n";
    EXPECT_EQ(startUnread({"sim", "--file", lines})->exitCode(), 0);
    EXPECT_EQ(runTool({"get", "volume"}).output, "33\n");
    const auto refused = startUnread({"call", "factory.setMacAddress", "1,2,3"});
    EXPECT_EQ(refused->exitCode(), 4);
    EXPECT_NE(refused->error().text().find("kelutv: factory.setMacAddress: "), std::string::npos);
}

TEST(Unread, watchingEndsWithTheNextEvent) {
    const RuntimeDir directory;
    const Simulator simulator;
    const auto monitor = startUnread({"monitor"});
    ASSERT_TRUE(monitor->error().waitFor("watching for events\n"));
    EXPECT_EQ(runTool({"set", "volume", "34"}).exit, 0);
    EXPECT_EQ(monitor->exitCode(), 0);
    const std::string messages = monitor->error().text();
    EXPECT_EQ(messages.substr(messages.find("kelutv: ")), "kelutv: watching for events\n");
}

TEST(Manners, optionsStandBeforeOrBehindTheCommand) {
    const RuntimeDir empty;
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
              "A VALUE that is a name can be shortened as long as one is meant. 'kelutv get' lists every SETTING and "
              "its values.\n"
              "\n");
    EXPECT_EQ(runTool({"set", "--help"}).output, run.output);
}

TEST(Manners, onlyTheCommandGivesHelpAsJson) {
    EXPECT_EQ(runTool({"--json", "set", "--help"}).output, runTool({"set", "--help"}).output);
    EXPECT_EQ(runTool({"--json", "--version"}).output, runTool({"--version"}).output);
    EXPECT_EQ(runTool({"help", "--json", "set"}).output.substr(0, 27), "{\"help\":\"Examples:\\n  kelut");
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
