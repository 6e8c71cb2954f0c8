// Whichever allocation fails, an operation gives what the service gave, or its failure value, or it ends the process
// with one line that says so. What is sent is whole, and a later operation is none the worse.

#include "client/memory/Operation.h"
#include "support/ChildProcess.h"
#include "support/Pattern.h"
#include "support/RuntimeDir.h"
#include "support/ScriptedService.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <optional>
#include <sstream>
#include <tuple>

#include <sys/wait.h>

namespace kelutv::test {
namespace {

constexpr int kMost = 1000;

struct Told {
    bool fed;
    int number;
    std::string outcome;
};

std::vector<std::string> linesOf(const std::string& text) {
    std::istringstream stream(text);
    std::vector<std::string> lines;
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(line);
    }
    return lines;
}

std::vector<Told> readTold(const std::string& output) {
    static const Pattern kLine("(starved|fed) ([0-9]+) (.*)");
    std::vector<Told> told;
    for (const std::string& line : linesOf(output)) {
        if (const auto parts = kLine.match(line); !parts.empty()) {
            told.push_back({parts[1] == "fed", std::stoi(parts[2]), parts[3]});
        }
    }
    return told;
}

class OutOfMemory : public ::testing::TestWithParam<std::tuple<Operation, const char*>> {
protected:
    static void SetUpTestSuite() {
        sDirectory.emplace();
        sService.emplace().start();
    }

    static void TearDownTestSuite() {
        sService.reset();
        sDirectory.reset();
    }

    const Operation& operation() const { return std::get<0>(GetParam()); }

    /** Starves the operation from this allocation on. Returns the next to try; nothing when all have been tried. */
    std::optional<int> starveFrom(int first);
    void expectDocumented(const Told& told) const;
    void expectTheEnd(int waitStatus, const std::string& error) const;
    void expectWholeRequests() const;

    static std::optional<RuntimeDir> sDirectory;
    static std::optional<ScriptedService> sService;
};

std::optional<RuntimeDir> OutOfMemory::sDirectory;
std::optional<ScriptedService> OutOfMemory::sService;

void OutOfMemory::expectDocumented(const Told& told) const {
    const bool mayFail = !told.fed || operation().connects;
    const auto& failures = operation().failures;
    const bool failed = mayFail && std::find(failures.begin(), failures.end(), told.outcome) != failures.end();
    EXPECT_TRUE(failed || told.outcome == operation().right)
        << (told.fed ? "after allocation " : "without allocation ") << told.number << ": " << told.outcome;
}

void OutOfMemory::expectTheEnd(int waitStatus, const std::string& error) const {
    ASSERT_TRUE(WIFSIGNALED(waitStatus)) << error;
    EXPECT_EQ(WTERMSIG(waitStatus), SIGABRT);
    static const Pattern kEnd("F TVBaseService@Client  [0-9]+/[0-9]+ out of memory");
    // The last is what an emulator says of an abort.
    static const Pattern kOther("D/.*|[DEW] .*|qemu: .*");
    int ends = 0;
    for (const std::string& line : linesOf(error)) {
        const bool end = kEnd.matches(line);
        ends += end ? 1 : 0;
        EXPECT_TRUE(end || kOther.matches(line)) << line;
    }
    EXPECT_EQ(ends, 1) << error;
}

void OutOfMemory::expectWholeRequests() const {
    for (const Bytes& request : sService->takeRequests()) {
        const auto& known = operation().requests;
        EXPECT_NE(std::find(known.begin(), known.end(), request), known.end()) << hex(request);
    }
}

std::optional<int> OutOfMemory::starveFrom(int first) {
    ChildProcess::Options options;
    options.captureOutput = true;
    options.captureError = true;
    ChildProcess client({KELUTV_STARVED_CLIENT, operation().name, std::get<1>(GetParam()), std::to_string(first)},
                        options);
    const std::optional<int> waitStatus = client.wait();
    if (!waitStatus.has_value()) {
        ADD_FAILURE() << "hangs without allocation " << first << " or a later one";
        return std::nullopt;
    }
    const std::string output = client.output().text();
    const std::vector<Told> told = readTold(output);
    for (const Told& one : told) {
        expectDocumented(one);
    }
    const int reached = told.empty() ? first : told.back().number + 1;
    if (WIFEXITED(*waitStatus)) {
        EXPECT_EQ(WEXITSTATUS(*waitStatus), 0) << client.error().text();
        return output.find("\nall\n") != std::string::npos || HasFailure() ? std::nullopt : std::optional(reached);
    }
    SCOPED_TRACE("without allocation " + std::to_string(reached));
    expectTheEnd(*waitStatus, client.error().text());
    return reached + 1;
}

TEST_P(OutOfMemory, isAnAnswerOrAFailureOrTheEnd) {
    sService->takeRequests();
    sService->reply(replyOf({-103}));
    for (const auto& [command, reply] : operation().replies) {
        sService->replyTo(command, reply);
    }
    std::optional<int> next = 1;
    while (next.has_value() && *next < kMost) {
        next = starveFrom(*next);
    }
    EXPECT_FALSE(next.has_value()) << "no end of allocations";
    expectWholeRequests();
}

std::string nameOf(const ::testing::TestParamInfo<OutOfMemory::ParamType>& info) {
    return std::get<0>(info.param).name + (std::string(std::get<1>(info.param)) == "once" ? "Once" : "FromThenOn");
}

INSTANTIATE_TEST_SUITE_P(Operations, OutOfMemory,
                         ::testing::Combine(::testing::ValuesIn(operations()), ::testing::Values("once", "on")),
                         nameOf);

} // namespace
} // namespace kelutv::test
