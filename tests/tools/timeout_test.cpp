#include "tools/Terminal.h"
#include "tools/Tool.h"

#include "simulator/Simulator.h"
#include "support/ScriptedService.h"

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <fstream>
#include <iterator>

namespace kelutv::test {
namespace {

using Words = std::vector<std::string>;

constexpr char kTimeOver[] = "kelutv: the time was over after 0.2 s\n";

/** A run that is given up: its time, and no more than it takes to end it on a busy machine. */
ToolRun runGivenUp(Words arguments, const std::vector<std::string>& environment = {}) {
    const auto start = std::chrono::steady_clock::now();
    ToolRun run = runTool(std::move(arguments), environment);
    const auto time = std::chrono::steady_clock::now() - start;
    EXPECT_GE(time, std::chrono::milliseconds(200));
    EXPECT_LT(time, kPatience);
    EXPECT_EQ(run.exit, 5) << run.error;
    return run;
}

/** Whether the error text ends so; the library may have logged before. */
bool endsWith(const std::string& text, const std::string& end) {
    return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
}

/** The only child of a process, once it has one. */
pid_t childOf(pid_t process) {
    const std::string path = "/proc/" + std::to_string(process) + "/task/" + std::to_string(process) + "/children";
    pid_t child = 0;
    EXPECT_TRUE(eventually([&path, &child] { return static_cast<bool>(std::ifstream(path) >> child); }));
    return child;
}

/** One that nobody has waited for is no longer running either. */
bool isRunning(pid_t process) {
    std::ifstream file("/proc/" + std::to_string(process) + "/stat");
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    const std::size_t state = text.rfind(") ");
    return state != std::string::npos && text[state + 2] != 'Z' && text[state + 2] != 'X';
}

class TimeLimit : public ::testing::Test {
protected:
    const RuntimeDir directory;
};

TEST_F(TimeLimit, holdsForEveryCommandWhenTheServiceIsStopped) {
    Simulator simulator;
    simulator.process().kill(SIGSTOP);
    for (const Words& words : {Words{"get", "volume"},
                               {"set", "volume", "3"},
                               {"status"},
                               {"call", "audio.getVolume", "speaker"},
                               {"eep", "dump", "tv"},
                               {"sim", "show", "audio"},
                               {"wait", "volume>=0"}}) {
        Words limited = words;
        limited.insert(limited.end(), {"--timeout", "0.2"});
        const ToolRun run = runGivenUp(limited);
        EXPECT_EQ(run.output, "") << words.front();
        EXPECT_TRUE(endsWith(run.error, kTimeOver)) << words.front() << ": " << run.error;
    }
    simulator.process().kill(SIGCONT);
    EXPECT_EQ(runTool({"--timeout", "10", "get", "volume"}).exit, 0);
}

TEST_F(TimeLimit, comesFromTheEnvironmentUnlessItIsGiven) {
    Simulator simulator;
    simulator.process().kill(SIGSTOP);
    EXPECT_TRUE(endsWith(runGivenUp({"get", "volume"}, {"KELUTV_TIMEOUT=0.2"}).error, kTimeOver));
    EXPECT_TRUE(endsWith(runGivenUp({"get", "volume", "-t", "0.2"}, {"KELUTV_TIMEOUT=1000"}).error, kTimeOver));
    simulator.process().kill(SIGCONT);
}

TEST_F(TimeLimit, leavesWhatWasPrintedBefore) {
    const Simulator simulator({"--fault", "CMD_AUDIO_GETVOLUME delay 600s"});
    const ToolRun run = runGivenUp({"status", "--timeout", "0.2"});
    EXPECT_EQ(run.output.substr(0, 7), "source ") << run.output;
    EXPECT_EQ(run.output.find("\nvolume "), std::string::npos) << run.output;
}

TEST_F(TimeLimit, changesNothingForWhatEndsInTime) {
    const Simulator simulator;
    const Words limit{"--timeout", "1e3"};
    for (const Words& words : {Words{"get", "volume"},
                               {"get", "nothing"},
                               {"set", "source", "scart1"},
                               {"list", "audio"},
                               {"--json", "call", "audio.getVolume", "speaker"}}) {
        const ToolRun plain = runTool(words);
        Words limited = words;
        limited.insert(limited.begin(), limit.begin(), limit.end());
        const ToolRun run = runTool(limited);
        EXPECT_EQ(run.exit, plain.exit);
        EXPECT_EQ(run.output, plain.output);
        EXPECT_EQ(run.error, plain.error);
    }
}

TEST_F(TimeLimit, isNotReachedWhenTheServiceDies) {
    ScriptedService service;
    service.start();
    service.exitBeforeReply();
    EXPECT_EQ(runTool({"--timeout", "1000", "get", "volume"}).exit, 3);
    EXPECT_EQ(runTool({"--timeout", "1000", "get", "volume"}).exit, 3); // There is none any more.
}

TEST_F(TimeLimit, endsACallThatIsNeverAnswered) {
    ScriptedService service;
    service.start();
    service.hangNext();
    EXPECT_TRUE(endsWith(runGivenUp({"get", "volume", "--timeout", "0.2"}).error, kTimeOver));
    service.release();
}

TEST_F(TimeLimit, isGivenUpWithTheToolWhateverEndsIt) {
    ScriptedService service;
    service.start();
    for (const int signal : {SIGKILL, SIGTERM, SIGINT}) {
        service.hangNext();
        const auto tool = startTool({"get", "volume", "--timeout", "1000"});
        ASSERT_TRUE(service.waitUntilHanging());
        const pid_t worker = childOf(tool->pid());
        tool->kill(signal);
        const std::optional<int> status = tool->wait();
        ASSERT_TRUE(status && WIFSIGNALED(*status));
        EXPECT_EQ(WTERMSIG(*status), signal);
        EXPECT_TRUE(eventually([worker] { return !isRunning(worker); }));
        service.release();
    }
}

TEST_F(TimeLimit, endsByTheKeyboardBefore) {
    ScriptedService service;
    service.start();
    service.hangNext();
    Terminal terminal(
        {"/bin/sh", "-c", "trap : INT; '" KELUTV_TOOL_PROGRAM "' --timeout 1000 get volume; echo code $?"}, {});
    ASSERT_TRUE(service.waitUntilHanging());
    terminal.type("\x03");
    EXPECT_TRUE(terminal.waitFor("code 130")) << terminal.text();
    service.release();
}

TEST_F(TimeLimit, restoresTheTerminal) {
    Terminal terminal({"/bin/sh", "-c",
                       "'" KELUTV_TOOL_PROGRAM "' --timeout 0.2 trace -- /bin/sh -c 'stty -echo; exec sleep 1000'; "
                       "stty | grep -c -e -echo; echo done"},
                      {});
    EXPECT_TRUE(terminal.waitFor("the time was over after 0.2 s")) << terminal.text();
    EXPECT_TRUE(terminal.waitFor("0\r\ndone")) << terminal.text();
}

TEST_F(TimeLimit, endsAProgramThatIsTraced) {
    const ToolRun run = runGivenUp({"trace", "--timeout", "0.2", "--", "/bin/sh", "-c", "echo $$; exec sleep 1000"});
    const pid_t program = std::stoi(run.output);
    EXPECT_TRUE(eventually([program] { return !isRunning(program); }));
}

/** The look-up itself takes longer. */
TEST_F(TimeLimit, endsAMonitorThatHasNothingToWatchYet) {
    const std::vector<std::string> patient{"KQDROID_SERVICE_WAIT_MS=60000"};
    const ToolRun run = runGivenUp({"monitor", "--timeout", "0.2"}, patient);
    EXPECT_TRUE(endsWith(run.error, kTimeOver)) << run.error;
    const auto monitor = startTool({"monitor", "--timeout", "1000"}, patient);
    const pid_t worker = childOf(monitor->pid());
    monitor->kill(SIGINT);
    EXPECT_EQ(monitor->exitCode(), 0);
    EXPECT_TRUE(eventually([worker] { return !isRunning(worker); }));
}

TEST_F(TimeLimit, isRefusedWhenItIsNone) {
    for (const char* const text : {"0", "-1", "nan", "inf", "1e7", "0.0001", "", "2s", "0x10"}) {
        const ToolRun run = runTool({"get", "volume", "--timeout", text});
        EXPECT_EQ(run.exit, 2) << text;
        EXPECT_EQ(run.error,
                  usageError("get",
                             std::string("--timeout takes a time from 0.001 to 1000000 seconds, not '") + text + '\''));
    }
    const ToolRun run = runTool({"get", "volume"}, {"KELUTV_TIMEOUT=soon"});
    EXPECT_EQ(run.exit, 2);
    EXPECT_EQ(run.error, usageError("get", "KELUTV_TIMEOUT takes a time from 0.001 to 1000000 seconds, not 'soon'"));
}

TEST_F(TimeLimit, countsAreNotNone) {
    for (const char* const text : {"0", "-1", "x", "1.5", "1000000001"}) {
        const std::string complaint =
            std::string("--count takes a whole number from 1 to 1000000000, not '") + text + '\'';
        const ToolRun monitor = runTool({"monitor", "--count", text});
        EXPECT_EQ(monitor.exit, 2);
        EXPECT_EQ(monitor.error, usageError("monitor", complaint));
        const ToolRun trace = runTool({"trace", "--count", text, "--", "true"});
        EXPECT_EQ(trace.exit, 2);
        EXPECT_EQ(trace.error, usageError("trace", complaint));
    }
}

/** A service that publishes nothing. */
TEST(Wait, readsAgainWhatChangesSilently) {
    const RuntimeDir directory;
    ScriptedService service;
    service.start();
    service.reply(replyOf({0, 5}));
    const auto waiting = startTool({"wait", "volume>=20", "--timeout", "1000"});
    ASSERT_TRUE(waiting->error().waitFor("kelutv: waiting for volume>=20\n")) << waiting->error().text();
    service.reply(replyOf({0, 30}));
    EXPECT_EQ(waiting->exitCode(), 0);
    EXPECT_EQ(waiting->output().text(), "30\n");
}

} // namespace
} // namespace kelutv::test
