#include "foreign/ForeignService.h"
#include "tools/ReplOnPipe.h"
#include "tools/Samples.h"

#include "tools/kelutv/calls/Call.h"
#include "tools/kelutv/text/Hex.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

namespace kelutv::test {
namespace {

/** `kelutv repl` with these lines, and a tool before it that sees what it sends. */
ToolRun runLines(const std::string& lines, const ForeignService& service, const std::string& before = "") {
    const TestFolder folder;
    std::ofstream(folder.pathOf("lines")) << lines;
    ChildProcess::Options options;
    options.environment = service.environment();
    options.environment.push_back("LINES_OF_TEST=" + folder.pathOf("lines"));
    options.environment.push_back("TOOL_OF_TEST=" + toolProgram());
    options.captureOutput = true;
    options.captureError = true;
    ChildProcess repl({"/bin/sh", "-c", "exec " + before + R"( "$TOOL_OF_TEST" repl < "$LINES_OF_TEST")"}, options);
    return {repl.exitCode(3 * kPatience).value_or(-1), repl.output().text(), repl.error().text()};
}

std::string quoted(const std::string& word) { return '\'' + word + '\''; }

/** What the library built on the stand-ins sends, with the other platform's token. */
std::vector<std::string> expectedOf(const wire::Function& function, const std::vector<std::string>& arguments) {
    constexpr std::size_t kStandInsToken = 56;
    std::vector<std::string> requests;
    for (const auto& request : tool::requestsOf(function, arguments)) {
        requests.push_back(tokenDigits() + tool::hexOf({request.begin() + kStandInsToken, request.end()}));
    }
    return requests;
}

/** Another television gets the very same requests when the recording is sent to it, and answers alike. */
void expectAnsweredAlike(const std::string& file, const std::vector<std::string>& requests) {
    ForeignService another;
    const ToolRun replayed = another.run({"recording", "replay", file, "--allow-dangerous", "any"});
    EXPECT_EQ(replayed.exit, 0) << replayed.output;
    EXPECT_EQ(replayed.error, "kelutv: 0 differences in " + std::to_string(requests.size()) + " calls\n");
    EXPECT_EQ(another.requests(), requests);
}

TEST(ForeignRepl, everyFunctionSendsWhatItSendsElsewhere) {
    ForeignService service;
    std::string calls;
    std::string decodings;
    std::vector<std::string> expected;
    for (const wire::Function& function : wire::allFunctions()) {
        const std::vector<std::string> arguments = sampleArguments(function);
        calls += std::string("call ") + function.name;
        for (const std::string& argument : arguments) {
            calls += ' ' + quoted(argument);
        }
        calls += '\n';
        for (const std::string& request : expectedOf(function, arguments)) {
            expected.push_back(request);
            decodings += "decode " + request + '\n';
        }
    }
    ASSERT_GT(expected.size(), 700U);
    const TestFolder folder;
    const std::string recorded = folder.pathOf("recorded");
    runLines(calls, service, R"("$TOOL_OF_TEST" -q record -o )" + recorded + " --");
    EXPECT_EQ(service.requests(), expected);
    expectAnsweredAlike(recorded, expected);
    const ToolRun decoded = runLines(decodings, service);
    EXPECT_EQ(decoded.exit, 0) << decoded.error;
    EXPECT_EQ(decoded.error, "");
}

TEST(ForeignRepl, goesOnWhenTheServiceIsBack) {
    ForeignService service;
    ReplOnPipe repl("", service.environment());
    repl.write("set volume 15");
    ASSERT_TRUE(repl.process().output().waitFor("15\n"));
    service.end();
    repl.write("get volume");
    ASSERT_TRUE(repl.process().error().waitFor("kelutv: line 2: the request did not get through: "));
    repl.write("get volume");
    ASSERT_TRUE(repl.process().error().waitFor("kelutv: line 3: there is no television service"));
    service.startAgain();
    repl.write("set volume 16");
    ASSERT_TRUE(repl.process().output().waitFor("16\n")) << repl.process().error().text();
    repl.close();
    EXPECT_EQ(repl.process().exitCode(), 3);
}

TEST(ForeignTrace, showsWhatAProgramSends) {
    const ForeignService service;
    const ToolRun run = service.run({"trace", "--", KELUTV_FOREIGN_EXAMPLE});
    EXPECT_EQ(run.exit, 0) << run.error;
    EXPECT_NE(run.output.find("the speaker's volume is 48\n"), std::string::npos) << run.output;
    std::size_t at = 0;
    for (const char* const request : {"] CMD_AUDIO_GETVOLUME(channel=0 KELU_TV_AUDIO_CHANNEL_SPEAKER) -> 0: 33 <",
                                      "] CMD_AUDIO_SETVOLUME(channel=0 KELU_TV_AUDIO_CHANNEL_SPEAKER, vol=48) -> 0 <",
                                      "] CMD_AUDIO_GETVOLUME(channel=0 KELU_TV_AUDIO_CHANNEL_SPEAKER) -> 0: 48 <"}) {
        at = run.error.find(request, at);
        ASSERT_NE(at, std::string::npos) << request << '\n' << run.error;
    }
}

} // namespace
} // namespace kelutv::test
