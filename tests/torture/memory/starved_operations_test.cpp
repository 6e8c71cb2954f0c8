// Whichever allocation fails, an operation gives what the service gave, or its failure value, or it ends the process
// with one line that says so. What is sent is whole, and a later operation is none the worse.

#include "support/Pattern.h"
#include "support/RuntimeDir.h"
#include "torture/memory/MemoryOperations.h"
#include "torture/memory/StarvedOperation.h"

#include <kelutv/Audio.h>
#include <kelutv/Factory.h>
#include <kelutv/link/TVBaseClient.h>

#include <gtest/gtest.h>

#include <sys/wait.h>

#include <csignal>
#include <cstdlib>
#include <sstream>
#include <tuple>

namespace kelutv::test {
namespace {

constexpr std::size_t kHeldByAParcel = 256;
constexpr int kCommand = 0x4321;

/** Every one; where a process costs much and finds nothing that others do not, as under an emulator, one in eight. */
int step() { return std::getenv("KELUTV_EMULATOR") != nullptr || throughKernel() ? 8 : 1; }

std::vector<Operation> chosenOperations() {
    const std::vector<Operation> all = memoryOperations();
    std::vector<Operation> chosen;
    for (std::size_t number = 0; number < all.size(); number += static_cast<std::size_t>(step())) {
        chosen.push_back(all[number]);
    }
    return chosen;
}

/** How often the pattern is a line of the text. Any other line but a print of the library is a failure. */
int linesLike(const Pattern& pattern, const std::string& text) {
    // The last is what an emulator says of an abort.
    static const Pattern kOther("|D/.*|[DEW] .*|qemu: .*");
    std::istringstream stream(text);
    int lines = 0;
    for (std::string line; std::getline(stream, line);) {
        const bool alike = pattern.matches(line);
        lines += alike ? 1 : 0;
        EXPECT_TRUE(alike || kOther.matches(line)) << line;
    }
    return lines;
}

void expectOutOfMemory(const OperationRun& run) {
    ASSERT_TRUE(WIFSIGNALED(run.status)) << run.text;
    EXPECT_EQ(WTERMSIG(run.status), SIGABRT);
    static const Pattern kEnd("F TVBaseService@Client  [0-9]+/[0-9]+ out of memory");
    EXPECT_EQ(linesLike(kEnd, run.text), 1) << run.text;
}

/** One service for all tests. Raw pointers: what has a destructor would end the service when a forked client exits. */
class StarvedOperations : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        sDirectory = new RuntimeDir;
        sClients = new StarvedOperation(memoryOperations());
    }

    static void TearDownTestSuite() {
        delete sClients;
        delete sDirectory;
    }

    /** Nothing was wrong, and the process ended as it may. */
    static void expectDocumented(const OperationRun& run) {
        SCOPED_TRACE("without allocation " + std::to_string(run.reached));
        EXPECT_EQ(run.wrong, "");
        if (WIFEXITED(run.status)) {
            EXPECT_EQ(WEXITSTATUS(run.status), 0) << run.text;
        } else {
            expectOutOfMemory(run);
        }
    }

    static StarvedOperation* sClients;

private:
    static RuntimeDir* sDirectory;
};

StarvedOperation* StarvedOperations::sClients;
RuntimeDir* StarvedOperations::sDirectory;

using Case = std::tuple<Operation, bool>;

std::string nameOf(const ::testing::TestParamInfo<Case>& info) {
    return std::string(std::get<0>(info.param).name) + (std::get<1>(info.param) ? "FromThenOn" : "Once");
}

class EachOperation : public StarvedOperations, public ::testing::WithParamInterface<Case> {};

TEST_P(EachOperation, isAnAnswerOrAFailureOrTheEnd) {
    const auto& [operation, lasting] = GetParam();
    OperationRun run;
    while (!run.all && !HasFailure()) {
        run = sClients->run(operation, run.reached + 1, lasting);
        expectDocumented(run);
        ASSERT_TRUE(run.all || WIFSIGNALED(run.status)) << "no end of allocations";
    }
    EXPECT_EQ(sClients->wrongRequest(), "");
}

INSTANTIATE_TEST_SUITE_P(Operations, EachOperation,
                         ::testing::Combine(::testing::ValuesIn(chosenOperations()), ::testing::Bool()), nameOf);

class Connection : public StarvedOperations, public ::testing::WithParamInterface<bool> {};

TEST_P(Connection, isMadeOrFailsOrIsTheEnd) {
    const Operation get = {
        "exeCmdGet",
        {},
        [](Outcome& outcome) { outcome.add("%d", android::TVBaseClient::self()->exeCmdGet(kCommand)); },
        "7",
        {"-1"}};
    OperationRun run;
    for (long nth = 1; !run.all && !HasFailure(); nth += step()) {
        run = sClients->connect(get, nth, GetParam());
        expectDocumented(run);
    }
    EXPECT_EQ(sClients->wrongRequest(), "");
}

INSTANTIATE_TEST_SUITE_P(Lacking, Connection, ::testing::Bool(),
                         [](const auto& way) { return way.param ? "FromThenOn" : "Once"; });

/** Operations whose request needs memory of its own and nothing else does before. */
std::vector<Operation> longRequests() {
    std::vector<Operation> chosen;
    for (const Operation& operation : chosenOperations()) {
        // UTF-16 is made before the request is written.
        if (operation.exchanges.front().request.size() > kHeldByAParcel && std::string(operation.name) != "WideText") {
            chosen.push_back(operation);
        }
    }
    return chosen;
}

TEST_F(StarvedOperations, sendNothingWithoutMemoryForTheRequest) {
    for (const Operation& operation : longRequests()) {
        SCOPED_TRACE(operation.name);
        const int before = sClients->requests();
        const OperationRun run = sClients->lack(operation, 1);
        EXPECT_EQ(run.wrong, "");
        EXPECT_EQ(WEXITSTATUS(run.status), 0) << run.text;
        EXPECT_EQ(sClients->requests(), before);
    }
}

void setAddress(Outcome& outcome) {
    std::array<int, 100> address = hundredNumbers();
    outcome.add("%d", Factory::instance()->setMacAddress(address.data(), 100));
}

void setText(Outcome& outcome) { outcome.add("%d", Audio::instance()->setAudioItemStrValue(1, 2, 3, longText())); }

TEST_F(StarvedOperations, logAnUnsentSetLikeAFailingLink) {
    static const Pattern kFailure("E TVBaseService@Client  [0-9]+/[0-9]+ invoke failure");
    for (const auto set : {setAddress, setText}) {
        const OperationRun run = sClients->lack({"the set", {}, set, "unsent", {"-1"}}, 1);
        EXPECT_EQ(run.wrong, "");
        EXPECT_EQ(linesLike(kFailure, run.text), 1) << run.text;
    }
}

TEST_F(StarvedOperations, failWithoutMemoryForTheReply) {
    for (const Operation& operation : readerOperations()) {
        if (std::string(operation.name) == "Block") {
            // Sockets read the reply before a parcel takes it over; the driver leaves it where it is.
            for (long nth = 1; nth <= (throughKernel() ? 1 : 2); ++nth) {
                const OperationRun run = sClients->lack(operation, nth);
                EXPECT_EQ(run.wrong, "") << nth;
                EXPECT_EQ(WEXITSTATUS(run.status), 0) << run.text;
            }
        }
    }
}

} // namespace
} // namespace kelutv::test
