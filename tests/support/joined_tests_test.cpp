#include "support/ChildProcess.h"
#include "support/TestFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

namespace kelutv::test {
namespace {

using Lines = std::vector<std::string>;

/** What the joined programs did by one of their names. */
struct Outcome {
    std::optional<int> exit;
    /** Its environments and the tests that passed, in order. */
    Lines lines;
};

Outcome runAs(const std::string& name, const Lines& arguments = {}) {
    const TestFolder folder;
    std::filesystem::create_symlink(KELUTV_JOINED_PROGRAM, folder.pathOf(name));
    ChildProcess::Options options;
    options.captureOutput = true;
    options.captureError = true;
    Lines command{folder.pathOf(name)};
    command.insert(command.end(), arguments.begin(), arguments.end());
    ChildProcess program(command, options);
    Outcome run;
    run.exit = program.exitCode();
    std::istringstream output(program.output().text());
    for (std::string line; std::getline(output, line);) {
        if (line.find(" OK ] ") != std::string::npos) {
            run.lines.push_back(line.substr(line.find("] ") + 2, line.rfind(" (") - line.find("] ") - 2));
        } else if (line.find(" for one") != std::string::npos) {
            run.lines.push_back(line);
        }
    }
    return run;
}

TEST(JoinedTests, runThoseOfTheNameAlone) {
    const Outcome one = runAs("one");
    EXPECT_EQ(one.exit, 0);
    EXPECT_EQ(one.lines, (Lines{"set up for one", "Shared.ofOne", "One.first", "One.second", "torn down for one"}));
    const Outcome two = runAs("two");
    EXPECT_EQ(two.exit, 0);
    EXPECT_EQ(two.lines, (Lines{"Shared.ofTwo", "Numbers/Two.each/0", "Numbers/Two.each/1"}));
}

TEST(JoinedTests, areFilteredAsOthersAre) {
    EXPECT_EQ(runAs("one", {"--gtest_filter=*first:Shared*"}).lines,
              (Lines{"set up for one", "Shared.ofOne", "One.first", "torn down for one"}));
    EXPECT_EQ(runAs("one", {"--gtest_filter=-One.f*:Shared.*"}).lines,
              (Lines{"set up for one", "One.second", "torn down for one"}));
    EXPECT_EQ(runAs("two", {"--gtest_filter=*"}).lines.size(), 3U);
}

TEST(JoinedTests, failWhenThereAreNone) {
    EXPECT_EQ(runAs("three").exit, 1);
    const Outcome ofAnother = runAs("two", {"--gtest_filter=One.first"});
    EXPECT_EQ(ofAnother.exit, 1);
    EXPECT_EQ(ofAnother.lines, Lines{});
}

} // namespace
} // namespace kelutv::test
