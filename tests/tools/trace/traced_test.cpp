#include "simulator/Simulator.h"
#include "support/RuntimeDir.h"
#include "support/Sanitizers.h"
#include "support/TestFolder.h"
#include "tools/ParsedJson.h"
#include "tools/Samples.h"
#include "tools/Tool.h"
#include "tools/recordings/Conversation.h"

#include "recording/Reader.h"
#include "tools/kelutv/calls/Call.h"
#include "tools/kelutv/decoding/Decoding.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <string>
#include <vector>

namespace kelutv::test {
namespace {

SimulatorEnvironment& environmentOfTraced = SimulatorEnvironment::install();

std::string quoted(const std::string& word) {
    std::string text = "'";
    for (const char character : word) {
        text += character == '\'' ? std::string("'\\''") : std::string(1, character);
    }
    return text + '\'';
}

std::string lineFor(const wire::Function& function, const std::vector<std::string>& arguments) {
    std::string line = std::string("call ") + function.name;
    for (const std::string& argument : arguments) {
        line += ' ' + quoted(argument);
    }
    return line + '\n';
}

/** That no byte is another one. */
void expectRecorded(const std::string& file, const std::vector<recording::Bytes>& requests) {
    std::size_t index = 0;
    for (const recording::Line& line : recording::linesOfFile(file)) {
        EXPECT_FALSE(std::holds_alternative<recording::Gap>(line.content));
        if (const auto* const call = std::get_if<recording::Transaction>(&line.content)) {
            ASSERT_LT(index, requests.size());
            EXPECT_EQ(call->request, requests[index]) << index;
            ++index;
        }
    }
    EXPECT_EQ(index, requests.size());
    EXPECT_EQ(runTool({"recording", "check", file}).exit, 0);
}

/** Another television that has just been switched on answers all of it alike. */
void expectAnsweredAlike(const std::string& file, std::size_t calls) {
    const RuntimeDir another;
    const Simulator fresh;
    const ToolRun replayed = runTool({"recording", "replay", file, "--allow-dangerous", "any"});
    EXPECT_EQ(replayed.exit, 0) << replayed.output;
    EXPECT_EQ(replayed.error, "kelutv: 0 differences in " + std::to_string(calls) + " calls\n");
}

/** That the program meets its recording without a difference, and is told the same. */
void expectReplayed(const std::string& file, const std::string& lines, const std::string& match) {
    const TestFolder folder;
    const RuntimeDir place;
    Simulator simulator({"--replay", file, "--match", match, "--exit-at-end"});
    runTool({"record", "--output", folder.pathOf("again"), "--", "/bin/sh", "-c",
             std::string("exec " KELUTV_TOOL_PROGRAM " repl < ") + lines},
            {sanitizerOptions()});
    EXPECT_EQ(simulator.process().exitCode(), 0);
    EXPECT_EQ(simulator.process().error().text(), "");
    EXPECT_EQ(conversationsOf(recording::linesOfFile(folder.pathOf("again"))),
              conversationsOf(recording::linesOfFile(file)));
}

/**
 * One program calls every function; its trace and its recording hold what each of them sends, in order and with nothing
 * between.
 */
TEST(Traced, isWhatEveryFunctionSends) {
    const std::string folder = std::getenv("KQDROID_RUNTIME_DIR");
    const std::string lines = folder + "/lines";
    const std::string trace = folder + "/trace";
    const std::string recorded = folder + "/recorded";
    std::vector<tool::Json> expected;
    std::vector<recording::Bytes> requests;
    std::ofstream script(lines);
    for (const wire::Function& function : wire::allFunctions()) {
        const std::vector<std::string> arguments = sampleArguments(function);
        script << lineFor(function, arguments);
        for (const auto& bytes : tool::requestsOf(function, arguments)) {
            requests.push_back(bytes);
            expected.push_back(parsedJson(tool::documentOf(tool::decodeRequest(bytes)).dump()));
        }
    }
    script.close();

    runTool({"record", "--output", recorded, "--", KELUTV_TOOL_PROGRAM, "trace", "--json", "--output", trace, "--",
             "/bin/sh", "-c", std::string("exec " KELUTV_TOOL_PROGRAM " repl < ") + lines},
            {sanitizerOptions()});

    std::ifstream traced(trace);
    std::size_t index = 0;
    for (std::string line; std::getline(traced, line); ++index) {
        ASSERT_LT(index, expected.size()) << line;
        const tool::Json document = parsedJson(line);
        EXPECT_EQ(document.at("request"), expected[index]);
        EXPECT_EQ(document.at("status"), 0) << line;
        EXPECT_FALSE(document.at("reply").isNull()) << line;
    }
    EXPECT_EQ(index, expected.size());
    EXPECT_GE(expected.size(), 750U);
    expectRecorded(recorded, requests);
    expectAnsweredAlike(recorded, requests.size());
    expectReplayed(recorded, lines, "strictly");
    expectReplayed(recorded, lines, "loosely");
}

} // namespace
} // namespace kelutv::test
