#include "tools/Terminal.h"
#include "tools/recordings/Recorded.h"

#include "recording/Reader.h"
#include "simulator/Simulator.h"
#include "support/Deadline.h"
#include "support/Pattern.h"

#include <sys/stat.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <map>
#include <optional>
#include <random>
#include <set>
#include <sstream>

namespace kelutv::test {
namespace {

using Words = std::vector<std::string>;
using recording::Gap;
using recording::Line;
using recording::Transaction;

SimulatorEnvironment& television = SimulatorEnvironment::install();

/** A run of `record` and what it left. */
struct Recorded {
    ToolRun run;
    std::vector<Line> lines;
};

Recorded record(const RecordingFolders& folders, Words options, const Words& program) {
    options.insert(options.begin(), {"record", "--output", folders.file()});
    options.emplace_back("--");
    options.insert(options.end(), program.begin(), program.end());
    ToolRun run = runTool(options, folders.environment());
    EXPECT_TRUE(folders.areLeftEmpty());
    return {run, recording::linesOfFile(folders.file())};
}

Recorded recordClient(const std::string& action, const Words& options = {}) {
    const RecordingFolders folders;
    return record(folders, options, {KELUTV_TRACED_CLIENT, action});
}

std::string reasonOf(const std::vector<Line>& lines) {
    const auto ends = all<recording::End>(lines);
    return ends.size() == 1 && std::holds_alternative<recording::End>(lines.back().content) ? ends.front().reason : "";
}

std::int64_t leftOut(const std::vector<Line>& lines) {
    std::int64_t count = 0;
    for (const Gap& gap : all<Gap>(lines)) {
        count += gap.count;
    }
    return count;
}

std::string contentOf(const std::string& file) {
    std::ifstream input(file);
    return {std::istreambuf_iterator<char>(input), {}};
}

TEST(Record, leavesTheProgramAlone) {
    const Recorded recorded = recordClient("print");
    EXPECT_EQ(recorded.run.exit, 0);
    EXPECT_EQ(recorded.run.output, "to standard output\n");
    EXPECT_NE(recorded.run.error.find("to standard error\n"), std::string::npos);
    EXPECT_NE(recorded.run.error.find("kelutv: 1 call and 0 events recorded in "), std::string::npos);
    EXPECT_EQ(recordClient("fail").run.exit, 7);
    EXPECT_EQ(recordClient("killed").run.exit, 128 + SIGKILL);
}

TEST(Record, hasTheBytesThatWereSentAndCameBack) {
    const ToolRun encoded = runTool({"encode", "audio.setVolume", "speaker", "5"});
    const Recorded recorded = recordClient("print");
    const auto calls = all<Transaction>(recorded.lines);
    ASSERT_EQ(calls.size(), 1U);
    std::string digits;
    for (const std::uint8_t byte : calls[0].request) {
        char text[3];
        std::snprintf(text, sizeof(text), "%02x", byte);
        digits += text;
    }
    EXPECT_EQ(digits + '\n', encoded.output);
    // The result word alone.
    EXPECT_EQ(calls[0].reply, (recording::Bytes{0, 0, 0, 0}));
    EXPECT_EQ(calls[0].status, 0);
    EXPECT_EQ(calls[0].moment.process, calls[0].moment.thread);
    EXPECT_GT(calls[0].duration, 0);
    EXPECT_GT(calls[0].moment.time, 0);
    EXPECT_EQ(calls[0].decoded,
              R"({"request":{"command":"CMD_AUDIO_SETVOLUME","number":8200,"arguments":[{"name":"channel","value":0,)"
              R"("enumerator":"KELU_TV_AUDIO_CHANNEL_SPEAKER"},{"name":"vol","value":5}]},)"
              R"("reply":{"result":0,"fields":[]}})");
    EXPECT_EQ(reasonOf(recorded.lines), "program");
    EXPECT_TRUE(Pattern(R"(\d{4}-\d\d-\d\dT\d\d:\d\d:\d\d\.\d{9}Z)")
                    .matches(all<recording::Header>(recorded.lines).front().start));
}

/** Of a line that has this text, the one of the file with another byte at its place. */
void expectFound(const std::string& file, const std::string& text, std::size_t place) {
    const std::string before = contentOf(file);
    EXPECT_EQ(runTool({"recording", "check", file}).exit, 0);
    const std::size_t at = before.find(text);
    ASSERT_NE(at, std::string::npos) << text;
    std::string other = before;
    other[at + place] = other[at + place] == '4' ? '5' : '4';
    std::ofstream(file) << other;
    const ToolRun check = runTool({"recording", "check", file});
    EXPECT_EQ(check.exit, 1);
    const auto line = std::count(before.begin(), before.begin() + static_cast<std::ptrdiff_t>(at), '\n') + 1;
    EXPECT_NE(check.output.find(':' + std::to_string(line) + ": the decoded form is not that of the bytes\n"),
              std::string::npos)
        << check.output;
    std::ofstream(file) << before;
}

TEST(Record, aByteThatIsAnotherIsFound) {
    const RecordingFolders folders;
    record(folders, {"--events"}, {KELUTV_TRACED_CLIENT, "event"});
    // The volume at the end of the first request, and that at the end of the first event.
    expectFound(folders.file(), "01000000\",", 1);
    expectFound(folders.file(), "\"payload\":\"00000000", 20);
    // The number of the event: of another, and of none.
    expectFound(folders.file(), "\"event\":393217", 13);
}

TEST(Record, isWholeForEveryThread) {
    const auto calls = all<Transaction>(recordClient("threads").lines);
    ASSERT_EQ(calls.size(), 200U);
    std::map<std::int32_t, std::vector<Transaction>> threads;
    for (std::size_t i = 0; i < calls.size(); ++i) {
        EXPECT_EQ(calls[i].moment.sequence, static_cast<std::int64_t>(i) + 1);
        threads[calls[i].moment.thread].push_back(calls[i]);
    }
    ASSERT_EQ(threads.size(), 4U);
    std::vector<int> ascending;
    for (int volume = 0; volume < 50; ++volume) {
        ascending.push_back(volume);
    }
    for (const auto& [thread, own] : threads) {
        EXPECT_EQ(lastWordsOf(own), ascending) << thread;
    }
}

/** Its threads have other numbers in each run, and come in another order. */
TEST(Record, twoRunsOfAProgramDoNotDiffer) {
    for (const char* const action : {"threads", "fork"}) {
        const RecordingFolders first;
        const RecordingFolders second;
        for (const RecordingFolders* const folders : {&first, &second}) {
            EXPECT_EQ(record(*folders, {}, {KELUTV_TRACED_CLIENT, action}).run.exit, 0);
        }
        const ToolRun diff = runTool({"recording", "diff", first.file(), second.file()});
        EXPECT_EQ(diff.exit, 0) << diff.output;
        const auto calls = all<Transaction>(recording::linesOfFile(first.file()));
        EXPECT_EQ(diff.error, "kelutv: 0 differences in " + std::to_string(calls.size()) + " calls and events\n");
    }
}

TEST(Record, goesAcrossForkAndExec) {
    EXPECT_EQ(lastWordsOf(all<Transaction>(recordClient("fork").lines)), (std::vector<int>{1, 5, 2}));
    EXPECT_EQ(lastWordsOf(all<Transaction>(recordClient("exec").lines)), (std::vector<int>{4, 5}));
}

TEST(Record, hasAllThatWasSentBeforeAKill) {
    EXPECT_EQ(lastWordsOf(all<Transaction>(recordClient("killed").lines)), std::vector<int>{3});
}

TEST(Record, hasEventsWhenAsked) {
    const auto events = all<recording::Event>(recordClient("event", {"--events"}).lines);
    ASSERT_FALSE(events.empty());
    EXPECT_EQ(events.front().event, 0x60001U);
    // Channel 0, and the volume.
    EXPECT_EQ(events.front().payload.size(), 8U);
    EXPECT_NE(events.front().decoded.find(R"("name":"volumeChanged","module":"KELU_EM_MODE_VOLUME")"),
              std::string::npos);
    EXPECT_TRUE(all<recording::Event>(recordClient("event").lines).empty());
}

TEST(Record, hasEventsThatTheProgramListensToByItself) {
    const Recorded recorded = recordClient("listener", {"--events"});
    EXPECT_EQ(recorded.run.exit, 0);
    const auto events = all<recording::Event>(recorded.lines);
    ASSERT_FALSE(events.empty());
    EXPECT_EQ(events.back().event, 0x60001U);
    EXPECT_EQ(events.back().payload.size(), 8U);
    // One for each change, though two have listened.
    const auto twice = std::adjacent_find(
        events.begin(), events.end(), [](const auto& one, const auto& other) { return one.payload == other.payload; });
    EXPECT_EQ(twice, events.end());
}

TEST(Record, endsAtALimitAndLetsTheProgramRun) {
    const Recorded small = recordClient("threads", {"--max-size", "2K"});
    EXPECT_EQ(small.run.exit, 0);
    EXPECT_EQ(reasonOf(small.lines), "size");
    EXPECT_NE(small.run.error.find("--max-size is reached"), std::string::npos);
    EXPECT_LT(all<Transaction>(small.lines).size(), 10U);
    const RecordingFolders folders;
    const Recorded limited = record(folders, {"--max-size", "2000"}, {KELUTV_TRACED_CLIENT, "threads"});
    EXPECT_LE(std::filesystem::file_size(folders.file()), 2000U);

    const Recorded brief = recordClient("print", {"--for", "0.001"});
    EXPECT_EQ(brief.run.output, "to standard output\n");
    EXPECT_EQ(reasonOf(brief.lines), "time");
}

TEST(Record, aFullDiskEndsTheRecordingAndNotTheProgram) {
    const RecordingFolders folders;
    // Eight kilobytes may be written.
    const std::string line = "ulimit -f 8; exec " KELUTV_TOOL_PROGRAM " record -o " + folders.file() +
                             " -- " KELUTV_TRACED_CLIENT " threads";
    ChildProcess::Options options;
    options.environment = folders.environment();
    options.captureError = true;
    ChildProcess shell({"/bin/bash", "-c", line}, options);
    EXPECT_EQ(shell.exitCode(), 0);
    EXPECT_NE(shell.error().text().find("the file cannot be written"), std::string::npos) << shell.error().text();
    EXPECT_GT(all<Transaction>(recording::linesOfFile(folders.file())).size(), 3U);
    EXPECT_EQ(runTool({"record", "-o", "/dev/full", "--", KELUTV_TRACED_CLIENT, "print"}, folders.environment()).exit,
              1);
}

TEST(Record, aRecorderThatIsStoppedDelaysNoCall) {
    const Recorded recorded = recordClient("slow");
    EXPECT_EQ(recorded.run.exit, 0);
    const auto slowest = Pattern("slowest (\\d+) ms\n").match(recorded.run.output);
    ASSERT_FALSE(slowest.empty());
    EXPECT_LT(std::stoi(slowest[1]), 100);
    EXPECT_GT(leftOut(recorded.lines), 0);
    EXPECT_EQ(static_cast<std::int64_t>(all<Transaction>(recorded.lines).size()) + leftOut(recorded.lines), 200);
}

TEST(Record, aCallThatCannotBeSentLeavesAGap) {
    const RecordingFolders folders;
    Words environment = folders.environment();
    // As seen from the folder of the test, which the program leaves.
    std::string& meetings = environment.back();
    meetings = "TMPDIR=" + std::filesystem::relative(meetings.substr(meetings.find('=') + 1)).string();
    const ToolRun run = runTool({"record", "-o", folders.file(), "--", KELUTV_TRACED_CLIENT, "unopened"}, environment);
    EXPECT_EQ(run.exit, 0) << run.error;
    const auto lines = recording::linesOfFile(folders.file());
    EXPECT_EQ(lastWordsOf(all<Transaction>(lines)), (std::vector<int>{1, 3, 4}));
    EXPECT_EQ(leftOut(lines), 1);
    EXPECT_TRUE(folders.areLeftEmpty());
}

TEST(Record, callsReachARecorderThatLooksWhetherItMayEnd) {
    const RecordingFolders folders;
    const ToolRun run =
        runTool({"record", "-o", folders.file(), "--", KELUTV_TRACED_CLIENT, "hidden"}, folders.environment());
    EXPECT_EQ(run.exit, 0) << run.error;
    const auto lines = recording::linesOfFile(folders.file());
    EXPECT_EQ(lastWordsOf(all<Transaction>(lines)), (std::vector<int>{1, 2, 3}));
    EXPECT_EQ(leftOut(lines), 0);
}

TEST(Record, aDiskThatTakesNothingDelaysNoCall) {
    const RecordingFolders folders;
    const std::string pipe = folders.pathOf("pipe");
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    const auto tool = startTool({"record", "-o", pipe, "--", KELUTV_TRACED_CLIENT, "many"}, folders.environment());
    // Four times as much as the pipe has room for, and nobody reads.
    ASSERT_TRUE(tool->output().waitFor("done\n"));
    std::ifstream input(pipe);
    recording::Reader reader(input, pipe);
    std::size_t calls = 0;
    while (const auto line = reader.next()) {
        calls += std::holds_alternative<Transaction>(line->content) ? 1 : 0;
        if (std::holds_alternative<recording::End>(line->content)) {
            break;
        }
    }
    EXPECT_EQ(calls, 400U);
    EXPECT_EQ(tool->exitCode(), 0);
}

TEST(Record, aSignalEndsARecorderWhoseDiskTakesNothing) {
    const RecordingFolders folders;
    const std::string pipe = folders.pathOf("pipe");
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    const auto tool =
        startTool({"record", "-o", pipe, "--for", "0.2", "--", KELUTV_TRACED_CLIENT, "many"}, folders.environment());
    // The program ends while the pipe, which nobody reads, is full, and its traces are gone.
    ASSERT_TRUE(tool->output().waitFor("done\n"));
    ASSERT_TRUE(folders.areLeftEmpty());
    const auto deadline = std::chrono::steady_clock::now() + kPatience;
    std::optional<int> status;
    while (!(status = tool->wait(std::chrono::milliseconds(20))) && std::chrono::steady_clock::now() < deadline) {
        // The first may come before signals end the tool.
        tool->kill(SIGTERM);
    }
    EXPECT_EQ(status, SIGTERM);
}

/** The environment in which programs record themselves. */
Words ownRecording(const RecordingFolders& folders) {
    Words environment = folders.environment();
    environment.push_back("KELUTV_RECORD=" + folders.file());
    environment.emplace_back("LD_PRELOAD=" KELUTV_TRACE_LIBRARY);
    return environment;
}

TEST(RecordByEnvironment, takesSeveralProgramsIntoOneFile) {
    const RecordingFolders folders;
    ChildProcess::Options options;
    options.environment = ownRecording(folders);
    options.captureOutput = true;
    std::vector<std::unique_ptr<ChildProcess>> programs;
    for (int i = 0; i < 3; ++i) {
        programs.push_back(std::make_unique<ChildProcess>(Words{KELUTV_TRACED_CLIENT, "threads"}, options));
    }
    programs.push_back(std::make_unique<ChildProcess>(Words{KELUTV_TRACED_CLIENT, "fork"}, options));
    for (const auto& program : programs) {
        EXPECT_EQ(program->exitCode(), 0);
    }
    EXPECT_TRUE(folders.areLeftEmpty());
    const auto lines = recording::linesOfFile(folders.file());
    const auto calls = all<Transaction>(lines);
    EXPECT_EQ(calls.size(), 603U);
    std::set<std::int32_t> processes;
    std::transform(calls.begin(), calls.end(), std::inserter(processes, processes.end()),
                   [](const Transaction& call) { return call.moment.process; });
    EXPECT_EQ(processes.size(), 5U);
    EXPECT_EQ(leftOut(lines), 0);
}

/** How often something is tried whose moment is left to chance: in full with `KELUTV_TORTURE=long`. */
int tries(int few, int many) {
    const char* const size = std::getenv("KELUTV_TORTURE");
    return size != nullptr && std::string(size) == "long" ? many : few;
}

/**
 * Each of them finds that nobody records, or that who did is about to end, which takes as long as the call: what one
 * sends must be in the file, whoever came first.
 */
TEST(RecordByEnvironment, programsThatBeginAtOnceLoseNothing) {
    constexpr int kPrograms = 4;
    const RecordingFolders folders;
    ChildProcess::Options options;
    options.environment = ownRecording(folders);
    options.captureOutput = true;
    const int rounds = tries(3, 100);
    for (int round = 0; round < rounds; ++round) {
        std::vector<std::unique_ptr<ChildProcess>> programs;
        for (int i = 0; i < kPrograms; ++i) {
            programs.push_back(std::make_unique<ChildProcess>(Words{KELUTV_TRACED_CLIENT, "print"}, options));
        }
        for (const auto& program : programs) {
            EXPECT_EQ(program->exitCode(), 0);
        }
        if (round % 2 == 0) {
            EXPECT_TRUE(folders.areLeftEmpty());
        }
    }
    EXPECT_TRUE(folders.areLeftEmpty());
    const auto lines = recording::linesOfFile(folders.file());
    EXPECT_EQ(all<Transaction>(lines).size(), static_cast<std::size_t>(rounds * kPrograms));
    EXPECT_EQ(leftOut(lines), 0);
    EXPECT_EQ(all<recording::Header>(lines).size(), all<recording::End>(lines).size());
    const ToolRun check = runTool({"recording", "check", folders.file()});
    EXPECT_EQ(check.exit, 0) << check.output;
}

TEST(RecordByEnvironment, addsASectionToWhatWasCutOff) {
    const RecordingFolders folders;
    ChildProcess::Options options;
    options.environment = ownRecording(folders);
    for (int i = 0; i < 2; ++i) {
        ChildProcess program({KELUTV_TRACED_CLIENT, "killed"}, options);
        EXPECT_EQ(program.wait(), SIGKILL);
        EXPECT_TRUE(folders.areLeftEmpty());
        std::ofstream(folders.file(), std::ios::app) << R"({"kind":"transac)";
    }
    ChildProcess program({KELUTV_TRACED_CLIENT, "print"}, options);
    EXPECT_EQ(program.exitCode(), 0);
    EXPECT_TRUE(folders.areLeftEmpty());
    const auto lines = recording::linesOfFile(folders.file());
    EXPECT_EQ(all<recording::Header>(lines).size(), 3U);
    EXPECT_EQ(lastWordsOf(all<Transaction>(lines)), (std::vector<int>{3, 3, 5}));
}

TEST(RecordByEnvironment, aFileThatCannotBeWrittenStopsNoProgram) {
    const RecordingFolders folders;
    ChildProcess::Options options;
    options.environment = folders.environment();
    options.environment.push_back("KELUTV_RECORD=" + folders.pathOf("nowhere/file"));
    options.environment.emplace_back("LD_PRELOAD=" KELUTV_TRACE_LIBRARY);
    options.captureOutput = true;
    options.captureError = true;
    ChildProcess program({KELUTV_TRACED_CLIENT, "print"}, options);
    EXPECT_EQ(program.exitCode(), 0);
    EXPECT_EQ(program.output().text(), "to standard output\n");
    EXPECT_NE(program.error().text().find("kelutv: cannot record to " + folders.pathOf("nowhere/file") +
                                          ": No such file or directory\n"),
              std::string::npos);
}

TEST(RecordByEnvironment, aFileThatIsNoRecordingStaysAsItIs) {
    const RecordingFolders folders;
    for (const std::string& text : {std::string("no line end"), std::string("a line\nand half of one"),
                                    std::string("{\"kind\":\"end\"}\n"), std::string(200000, 'x')}) {
        std::ofstream(folders.file()) << text;
        const ToolRun run = runTool({"record", "--background", "-o", folders.file()}, folders.environment());
        EXPECT_EQ(run.exit, 1);
        EXPECT_EQ(run.error, "kelutv: cannot add to " + folders.file() + ": it does not begin as a recording does\n");
        EXPECT_EQ(contentOf(folders.file()), text);
    }
    EXPECT_TRUE(folders.areLeftEmpty());
}

TEST(RecordByEnvironment, aRecorderThatCannotBeginSaysSoOnce) {
    const RecordingFolders folders;
    EXPECT_EQ(runTool({"record", "--background", "--max-size", "10", "-o", folders.file()}, folders.environment()).exit,
              2);
    std::ofstream(folders.file()) << "no recording\n";
    ChildProcess::Options options;
    options.environment = ownRecording(folders);
    options.captureError = true;
    ChildProcess program({KELUTV_TRACED_CLIENT, "print"}, options);
    EXPECT_EQ(program.exitCode(), 0);
    const std::string error = program.error().text();
    const std::size_t first = error.find("cannot add to ");
    ASSERT_NE(first, std::string::npos) << error;
    EXPECT_EQ(error.find("cannot add to ", first + 1), std::string::npos) << error;
    EXPECT_TRUE(folders.areLeftEmpty());
}

TEST(RecordByEnvironment, aMeetingPlaceOfOthersIsRefused) {
    const RecordingFolders folders;
    std::ofstream(folders.file()).flush();
    struct stat file {};
    ASSERT_EQ(::stat(folders.file().c_str(), &file), 0);
    char name[96];
    std::snprintf(name, sizeof(name), "kelutv-record-%u-%llx-%llx", ::geteuid(),
                  static_cast<unsigned long long>(file.st_dev), static_cast<unsigned long long>(file.st_ino));
    const std::string meetings = folders.environment().back();
    const std::filesystem::path place = std::filesystem::path(meetings.substr(meetings.find('=') + 1)) / name;
    const std::function<void()> ways[] = {[&] { std::filesystem::create_directory_symlink(folders.pathOf(""), place); },
                                          [&] {
                                              ::mkdir(place.c_str(), 0700);
                                              ::chmod(place.c_str(), 0755);
                                          },
                                          [&] {
                                              ::mkdir(place.c_str(), 0700);
                                              if (::geteuid() == 0) {
                                                  ::chown(place.c_str(), 65534, 65534);
                                              } else {
                                                  ::chmod(place.c_str(), 0770);
                                              }
                                          }};
    for (const auto& make : ways) {
        make();
        const ToolRun run = runTool({"record", "--background", "-o", folders.file()}, folders.environment());
        EXPECT_EQ(run.exit, 1);
        EXPECT_NE(run.error.find("kelutv: cannot make the folder "), std::string::npos) << run.error;
        EXPECT_EQ(std::filesystem::file_size(folders.file()), 0U);
        std::filesystem::remove(place);
    }
    EXPECT_TRUE(folders.areLeftEmpty());
}

TEST(RecordByEnvironment, goesOnBehindTheEndOfTheFirstThread) {
    const RecordingFolders folders;
    ChildProcess::Options options;
    options.environment = ownRecording(folders);
    options.captureOutput = true;
    ChildProcess program({KELUTV_TRACED_CLIENT, "headless"}, options);
    ASSERT_TRUE(program.output().waitFor("in another thread\n"));
    // The recorder looks five times a second; one that takes the program for ended goes.
    EXPECT_FALSE(folders.areLeftEmpty(std::chrono::milliseconds(500)));
    program.kill(SIGUSR1);
    EXPECT_EQ(program.exitCode(), 0);
    EXPECT_TRUE(folders.areLeftEmpty());
    EXPECT_EQ(lastWordsOf(all<Transaction>(recording::linesOfFile(folders.file()))), (std::vector<int>{1, 2}));
}

/** All that the file says once a recorder or its program was killed: whole lines up to the last. */
void expectReadable(const std::string& file) {
    std::ifstream input(file);
    recording::Reader reader(input, file);
    std::int64_t sequence = 0;
    while (const auto line = reader.next()) {
        if (const std::int64_t* const own = recording::sequenceOf(*line)) {
            EXPECT_EQ(*own, ++sequence);
        }
    }
    EXPECT_GT(sequence, 0);
}

/** Of recorder and program by turns: 500 in full. */
TEST(Record, aKillAtAnyMomentLeavesWholeLines) {
    std::mt19937 random(20261122);
    const int kills = tries(8, 500);
    for (int i = 0; i < kills; ++i) {
        const RecordingFolders folders;
        // The shell's process is the program's; its number stands in the file.
        const std::string pid = folders.pathOf("pid");
        const auto tool = startTool({"record", "-o", folders.file(), "--", "/bin/sh", "-c",
                                     "echo $$ > " + pid + "; exec " KELUTV_TRACED_CLIENT " busy"},
                                    folders.environment());
        const std::size_t size = 4000 + random() % 200000;
        ASSERT_TRUE(eventually([&] {
            std::error_code none;
            return std::filesystem::file_size(folders.file(), none) > size && !none;
        }));
        pid_t program = 0;
        std::ifstream(pid) >> program;
        ASSERT_GT(program, 0);
        if (i % 2 == 0) {
            tool->kill(SIGKILL);
            EXPECT_EQ(tool->wait(), SIGKILL);
            EXPECT_EQ(::kill(program, 0), 0) << "the program has ended with the recorder";
            ::kill(program, SIGKILL);
        } else {
            ::kill(program, SIGKILL);
            EXPECT_EQ(tool->exitCode(), 128 + SIGKILL);
        }
        expectReadable(folders.file());
    }
}

TEST(Record, refusesBadInput) {
    struct Case {
        Words arguments;
        const char* error;
    };
    const Case cases[] = {
        {{"record"}, "kelutv: PROGRAM is missing: the program to record, behind --\n"},
        {{"record", "--background", "--", "true"}, "kelutv: --background takes no PROGRAM"},
        {{"record", "--max-size", "10X", "--", "true"},
         "kelutv: --max-size takes a number of bytes above 0, as 4096, 64K, 10M or 2G, not '10X'\n"},
        {{"record", "--for", "soon", "--", "true"}, "--for"},
        {{"record", "-o", "recording.jsonl", "--max-size", "10", "--", "true"}, "kelutv: --max-size: the header"},
    };
    for (const Case& test : cases) {
        const ToolRun run = runTool(test.arguments);
        EXPECT_EQ(run.exit, 2) << run.error;
        EXPECT_NE(run.error.find(test.error), std::string::npos) << run.error;
    }
    std::filesystem::remove("recording.jsonl");
}

TEST(Record, aRunThatCannotBeginLeavesTheFileAlone) {
    const RecordingFolders folders;
    std::ofstream(folders.file()) << "what was recorded before\n";
    const std::string data = folders.pathOf("data");
    std::ofstream(data) << "no program\n";
    const struct {
        Words arguments;
        int exit;
        std::string error;
    } cases[] = {{{"--", "no-such-program"}, 127, "kelutv: cannot run no-such-program: No such file or directory\n"},
                 {{"--", data}, 126, "kelutv: cannot run " + data + ": Permission denied\n"},
                 {{"--", folders.pathOf("")}, 126, "Permission denied\n"},
                 {{"--max-size", "10", "--", "true"}, 2, "kelutv: --max-size: the header"}};
    for (const auto& each : cases) {
        Words words{"record", "-o", folders.file()};
        words.insert(words.end(), each.arguments.begin(), each.arguments.end());
        const ToolRun run = runTool(words, folders.environment());
        EXPECT_EQ(run.exit, each.exit);
        EXPECT_NE(run.error.find(each.error), std::string::npos) << run.error;
        EXPECT_EQ(contentOf(folders.file()), "what was recorded before\n");
    }
    EXPECT_EQ(runTool({"record", "-o", "/dev/full", "--", "true"}, folders.environment()).error,
              "kelutv: cannot write the recording: No space left on device\n");
    EXPECT_TRUE(folders.areLeftEmpty());
}

TEST(Record, refusesEventsThatCannotBeRead) {
    const RecordingFolders folders;
    Words environment = folders.environment();
    environment.push_back("KELUTV_EVENTS=" + folders.pathOf("nothing"));
    for (const char* const way : {"--quiet", "--background"}) {
        const ToolRun run =
            runTool(way == std::string("--quiet") ? Words{"record", way, "--events", "-o", folders.file(), "--", "true"}
                                                  : Words{"record", way, "--events", "-o", folders.file()},
                    environment);
        EXPECT_EQ(run.exit, 2) << run.error;
        EXPECT_NE(run.error.find(folders.pathOf("nothing")), std::string::npos) << run.error;
        EXPECT_FALSE(std::filesystem::exists(folders.file()));
    }
}

TEST(Record, twoRunsShareNoFile) {
    const RecordingFolders folders;
    const auto first =
        startTool({"record", "-o", folders.file(), "--", KELUTV_TRACED_CLIENT, "wait"}, folders.environment());
    ASSERT_TRUE(eventually([&] { return contentOf(folders.file()).find("transaction") != std::string::npos; }));
    const ToolRun second = runTool({"record", "-o", folders.file(), "--", "true"}, folders.environment());
    EXPECT_EQ(second.exit, 1);
    EXPECT_EQ(second.error, "kelutv: another program records into the file\n");
    first->kill(SIGTERM);
    EXPECT_EQ(first->exitCode(), 128 + SIGTERM);
    EXPECT_EQ(all<Transaction>(recording::linesOfFile(folders.file())).size(), 1U);
}

TEST(Top, cutsItsLinesToTheTerminal) {
    const RecordingFolders folders;
    // A call with a text of 20000 letters, at a terminal of 200 columns.
    Terminal terminal({KELUTV_TOOL_PROGRAM, "top", "--", KELUTV_TRACED_CLIENT, "large"}, folders.environment());
    EXPECT_EQ(terminal.exitCode(), 0);
    std::istringstream text(terminal.text());
    std::size_t longest = 0;
    for (std::string line; std::getline(text, line);) {
        line = line.substr(line.rfind('\x1b') == std::string::npos ? 0 : line.rfind("[J") + 2);
        longest = std::max(longest, line.size() - (!line.empty() && line.back() == '\r' ? 1 : 0));
    }
    EXPECT_EQ(longest, 200U);
}

/** The last one, since it ends the television. */
TEST(RecordedLoss, isInTheRecording) {
    const RecordingFolders folders;
    const auto tool =
        startTool({"record", "-o", folders.file(), "--", KELUTV_TRACED_CLIENT, "lost"}, folders.environment());
    ASSERT_TRUE(tool->output().waitFor("connected\n"));
    television.simulator().process().kill(SIGTERM);
    EXPECT_TRUE(eventually([&] {
        const auto lines = recording::linesOfFile(folders.file());
        return all<recording::Loss>(lines).size() == 1 && all<Transaction>(lines).back().status != 0;
    }));
    tool->kill(SIGTERM);
    EXPECT_EQ(tool->exitCode(), 128 + SIGTERM);
    const auto lines = recording::linesOfFile(folders.file());
    EXPECT_FALSE(all<Transaction>(lines).back().reply);
    EXPECT_EQ(reasonOf(lines), "program");
}

} // namespace
} // namespace kelutv::test
