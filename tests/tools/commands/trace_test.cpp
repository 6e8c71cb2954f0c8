#include "tools/ParsedJson.h"
#include "tools/Tool.h"

#include "simulator/Simulator.h"
#include "support/Deadline.h"
#include "support/Pattern.h"
#include "support/Sanitizers.h"
#include "support/TestFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>

namespace kelutv::test {
namespace {

SimulatorEnvironment& television = SimulatorEnvironment::install();

using Lines = std::vector<std::string>;

std::string contentOf(const std::string& path) {
    std::stringstream content;
    content << std::ifstream(path).rdbuf();
    return content.str();
}

/** The folder that the pipes of the test's tools are in; gone with the object. */
class PipeFolder {
public:
    std::vector<std::string> environment() const { return {sanitizerOptions(), "TMPDIR=" + mFolder.path()}; }
    bool isEmpty() const { return std::filesystem::is_empty(mFolder.path()); }

private:
    TestFolder mFolder;
};

/** One traced run; its folder for pipes must be empty behind it. */
ToolRun trace(Lines arguments) {
    const PipeFolder folder;
    arguments.insert(arguments.begin(), "trace");
    ToolRun run = runTool(arguments, folder.environment());
    EXPECT_TRUE(folder.isEmpty());
    return run;
}

ToolRun traceClient(const char* action) { return trace({"--", KELUTV_TRACED_CLIENT, action}); }

/** The trace lines among others, without processes and times. */
Lines traced(const std::string& error) {
    // The pieces apart, since an expression for the whole line would go as deep as the line is long.
    static const Pattern caller(R"(\[\d+(?::\d+)?\] )");
    static const Pattern duration(R"( <\d+\.\d{6}>)");
    Lines lines;
    std::istringstream stream(error);
    for (std::string line; std::getline(stream, line);) {
        const std::size_t begin = line.find("] ");
        const std::size_t end = line.rfind(" <");
        if (begin < end && end != std::string::npos && caller.matches(line.substr(0, begin + 2)) &&
            duration.matches(line.substr(end))) {
            lines.push_back(line.substr(begin + 2, end - begin - 2));
        }
    }
    return lines;
}

std::string setSpeaker(const std::string& volume) {
    return "CMD_AUDIO_SETVOLUME(channel=0 KELU_TV_AUDIO_CHANNEL_SPEAKER, vol=" + volume + ") -> 0";
}

TEST(Trace, leavesTheProgramsOutputAlone) {
    const ToolRun run = traceClient("print");
    EXPECT_EQ(run.exit, 0);
    EXPECT_EQ(run.output, "to standard output\n");
    EXPECT_NE(run.error.find("to standard error\n"), std::string::npos);
    EXPECT_EQ(traced(run.error), Lines{setSpeaker("5")});
}

TEST(Trace, seesWhatAProgramSendsByTheProxyItself) {
    const ToolRun run = traceClient("proxy");
    EXPECT_EQ(run.exit, 0) << run.error;
    EXPECT_EQ(traced(run.error), Lines{setSpeaker("7")});
}

TEST(Trace, seesALibraryThatTheProgramOpens) {
    for (const std::string scope : {"local", "global"}) {
        const ToolRun run = trace({"--", KELUTV_OPENING_CLIENT, KELUTV_CLIENT_LIBRARY, scope});
        EXPECT_EQ(run.exit, 0) << run.error;
        EXPECT_EQ(traced(run.error), Lines{setSpeaker(std::to_string(scope.size()))});
    }
}

TEST(Trace, decodesRefusalsAndValues) {
    const ToolRun run = trace({"--", KELUTV_TOOL_PROGRAM, "-q", "call", "audio.setVolume", "speaker", "101"});
    EXPECT_EQ(run.exit, 4);
    EXPECT_EQ(
        traced(run.error),
        Lines{"CMD_AUDIO_SETVOLUME(channel=0 KELU_TV_AUDIO_CHANNEL_SPEAKER, vol=101) -> -107, value out of range"});
    const ToolRun get = trace({"--", KELUTV_TOOL_PROGRAM, "call", "sourcemanager.getCurSourceId", "0"});
    EXPECT_EQ(traced(get.error).size(), 1U) << get.error;
}

TEST(Trace, writesToAFile) {
    const TestFolder folder;
    const std::string path = folder.pathOf("output");
    const ToolRun run = trace({"--output", path, "--", KELUTV_TRACED_CLIENT, "print"});
    EXPECT_EQ(run.exit, 0);
    EXPECT_EQ(traced(run.error), Lines{});
    EXPECT_EQ(traced(contentOf(path)), Lines{setSpeaker("5")});
}

TEST(Trace, writesDocuments) {
    const TestFolder folder;
    const std::string path = folder.pathOf("output");
    EXPECT_EQ(trace({"--json", "-o", path, "--", KELUTV_TRACED_CLIENT, "print"}).exit, 0);
    const auto document = parsedJson(contentOf(path));
    EXPECT_EQ(document.at("process"), document.at("thread"));
    EXPECT_GT(document.at("start").asReal(), 1.0e9);
    EXPECT_GT(document.at("duration").asReal(), 0);
    EXPECT_EQ(document.at("status"), 0);
    EXPECT_EQ(document.at("request").at("command"), "CMD_AUDIO_SETVOLUME");
    EXPECT_EQ(document.at("request").at("arguments").entries().at(1), parsedJson(R"({"name": "vol", "value": 5})"));
    EXPECT_EQ(document.at("reply"), parsedJson(R"({"result": 0, "fields": []})"));
}

TEST(Trace, tellsOfEveryThread) {
    const ToolRun run = traceClient("threads");
    EXPECT_EQ(run.exit, 0);
    const Lines lines = traced(run.error);
    EXPECT_EQ(lines.size(), 200U);
    EXPECT_EQ(std::set<std::string>(lines.begin(), lines.end()).size(), 200U);
    EXPECT_EQ(std::count(lines.begin(), lines.end(), setSpeaker("49")), 1);
}

TEST(Trace, tellsOfChildren) {
    const ToolRun run = traceClient("fork");
    EXPECT_EQ(run.exit, 0);
    EXPECT_EQ(traced(run.error), (Lines{setSpeaker("1"), setSpeaker("5"), setSpeaker("2")}));
    EXPECT_EQ(traced(trace({"--", "sh", "-c", std::string(KELUTV_TRACED_CLIENT) + " print; exit 3"}).error),
              Lines{setSpeaker("5")});
}

TEST(Trace, needsNoDescriptorOfTheProgram) {
    const PipeFolder folder;
    auto environment = folder.environment();
    // To close what other threads read from is what ThreadSanitizer reports.
    environment.emplace_back("TSAN_OPTIONS=report_bugs=0");
    const ToolRun run = runTool({"trace", "--", KELUTV_TRACED_CLIENT, "close"}, environment);
    EXPECT_EQ(run.exit, 0);
    const Lines lines = traced(run.error);
    ASSERT_EQ(lines.size(), 2U) << run.error;
    EXPECT_EQ(lines[0], setSpeaker("1"));
}

TEST(Trace, tellsOfAllThatWasSentBeforeAKill) {
    const ToolRun run = traceClient("killed");
    EXPECT_EQ(run.exit, 128 + SIGKILL);
    EXPECT_EQ(traced(run.error), Lines{setSpeaker("3")});
}

TEST(Trace, carriesLargeRequests) {
    const ToolRun run = traceClient("large");
    const Lines lines = traced(run.error);
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_EQ(lines[0], "CMD_FACTORY_SETINTERNETTIME(time=\"" + std::string(20000, 't') + "\") -> 0");
}

TEST(Trace, tellsOfADeadLink) {
    const TestFolder elsewhere;
    const PipeFolder folder;
    auto environment = folder.environment();
    environment.push_back("KQDROID_RUNTIME_DIR=" + elsewhere.pathOf("runtime"));
    const ToolRun run = runTool({"trace", "--", KELUTV_TRACED_CLIENT, "print"}, environment);
    EXPECT_EQ(run.exit, 0);
    EXPECT_EQ(traced(run.error), Lines{"CMD_AUDIO_SETVOLUME(channel=0 KELU_TV_AUDIO_CHANNEL_SPEAKER, vol=5) -> "
                                       "no reply: the link is dead"});
}

TEST(Trace, tellsOnlyOfWhatIsWanted) {
    const auto volumes = [](Lines options) {
        options.insert(options.end(), {"--", KELUTV_TRACED_CLIENT, "fork"});
        return traced(trace(options).error).size();
    };
    EXPECT_EQ(volumes({"--filter", "cmd_audio_set*"}), 3U);
    EXPECT_EQ(volumes({"--filter", "GETVOLUME"}), 0U);
    EXPECT_EQ(volumes({"--filter", "CMD_AUDIO_SETVOLUME"}), 3U);
    EXPECT_EQ(volumes({"--filter", "0x2008"}), 3U);
    EXPECT_EQ(volumes({"--filter", "0x2009"}), 0U);
    EXPECT_EQ(volumes({"--filter", "any"}), 3U);
    EXPECT_EQ(volumes({"-f", "GETVOLUME", "-f", "SETVOLUME"}), 3U);
    EXPECT_EQ(volumes({"--count", "2"}), 2U);
}

TEST(Trace, sumsUp) {
    const ToolRun run = trace({"--summary", "--", KELUTV_TRACED_CLIENT, "fork"});
    EXPECT_EQ(run.exit, 0);
    EXPECT_EQ(traced(run.error), Lines{});
    EXPECT_NE(run.error.find("\n       3        0 "), std::string::npos) << run.error;
    EXPECT_NE(run.error.find(" us  command\n"), std::string::npos);
    const ToolRun none = trace({"--summary", "--filter", "GETVOLUME", "--", KELUTV_TRACED_CLIENT, "print"});
    EXPECT_EQ(none.error.find("CMD_AUDIO_SETVOLUME"), std::string::npos);
}

TEST(Top, showsTheSameAnew) {
    const PipeFolder folder;
    const auto tool =
        startTool({"top", "--json", "--interval", "0.1", "--", KELUTV_TRACED_CLIENT, "wait"}, folder.environment());
    // Twice, and the program runs still.
    const std::string call = R"("calls":1,)";
    ASSERT_TRUE(tool->output().waitFor(call));
    ASSERT_TRUE(eventually([&] {
        const std::string text = tool->output().text();
        return text.find(call) != text.rfind(call);
    }));
    tool->kill(SIGTERM);
    EXPECT_EQ(tool->exitCode(), 128 + SIGTERM);
    const ToolRun run = runTool({"top", "--", KELUTV_TRACED_CLIENT, "fail"}, folder.environment());
    EXPECT_EQ(run.exit, 7);
    EXPECT_EQ(runTool({"top", "--", KELUTV_TRACED_CLIENT, "print"}, folder.environment()).error, "");
}

TEST(Trace, endsAsTheProgramEnds) {
    EXPECT_EQ(traceClient("fail").exit, 7);
    EXPECT_EQ(trace({"--", "sh", "-c", "exit 77"}).exit, 77);
    const ToolRun missing = trace({"--", "no-such-program"});
    EXPECT_EQ(missing.exit, 127);
    EXPECT_EQ(missing.error, "kelutv: cannot run no-such-program: No such file or directory\n");
    EXPECT_EQ(trace({"--", "/dev/null"}).exit, 126);
}

TEST(Trace, handsSignalsOn) {
    const PipeFolder folder;
    const auto tool = startTool({"trace", "--", KELUTV_TRACED_CLIENT, "wait"}, folder.environment());
    ASSERT_TRUE(tool->error().waitFor(setSpeaker("6")));
    tool->kill(SIGTERM);
    EXPECT_EQ(tool->exitCode(), 128 + SIGTERM);
}

TEST(Trace, leavesTheProgramRunningWhenTheToolIsKilled) {
    const PipeFolder folder;
    const auto tool = startTool({"trace", "--", KELUTV_TRACED_CLIENT, "orphan"}, folder.environment());
    EXPECT_TRUE(tool->output().waitFor("set the volume: 0\n"));
    EXPECT_EQ(tool->wait(), SIGKILL);
}

TEST(Trace, refusesBadInput) {
    struct Case {
        Lines arguments;
        const char* error;
    };
    const Case cases[] = {
        {{"trace"}, "PROGRAM"},
        {{"trace", "--filter", "CMD_AUDIO_SETVOLUMES", "--", "true"},
         "kelutv: --filter: no command or item is called CMD_AUDIO_SETVOLUMES; nearest: CMD_AUDIO_SETVOLUME"},
        {{"trace", "--count", "many", "--", "true"}, "--count"},
    };
    for (const Case& test : cases) {
        const ToolRun run = runTool(test.arguments);
        EXPECT_EQ(run.exit, 2);
        EXPECT_NE(run.error.find(test.error), std::string::npos) << run.error;
    }
    const TestFolder folder;
    EXPECT_EQ(runTool({"trace", "--output", folder.pathOf("nowhere/file"), "--", "true"}).exit, 1);
}

TEST(Trace, aToolThatIsStoppedStopsNoProgram) {
    const ToolRun run = traceClient("stop");
    EXPECT_EQ(run.exit, 0);
    EXPECT_EQ(run.output, "went on\n");
    std::size_t shown = 0;
    for (std::size_t at = 0; (at = run.error.find("] CMD_", at)) != std::string::npos; ++at) {
        ++shown;
    }
    const std::string end = run.error.substr(run.error.rfind("... "));
    const auto leftOut = Pattern(R"(\.\.\. (\d+) commands left out\n)").match(end);
    ASSERT_FALSE(leftOut.empty()) << end.substr(0, 200);
    EXPECT_EQ(shown + std::stoul(leftOut[1]), 200U);
    EXPECT_GT(shown, 1U);
}

TEST(Trace, noCallWaitsForASummary) {
    const ToolRun run = trace({"--summary", "--", KELUTV_TRACED_CLIENT, "slow"});
    EXPECT_EQ(run.exit, 0);
    const auto slowest = Pattern("slowest (\\d+) ms\n").match(run.output);
    ASSERT_FALSE(slowest.empty()) << run.output;
    EXPECT_LT(std::stoi(slowest[1]), 200); // what a call waits for a trace
    EXPECT_NE(run.error.find("left out: "), std::string::npos) << run.error;
}

} // namespace
} // namespace kelutv::test
