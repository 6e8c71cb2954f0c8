#include "support/JoinedTests.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <utility>
#include <vector>

namespace kelutv::test {

namespace {

// With a slash before each; the compiler may have seen them by paths that begin elsewhere.
std::vector<std::string> allSources;
std::vector<std::string> startedSources;

bool isOneOf(const std::vector<std::string>& sources, const std::string& file) {
    return std::any_of(sources.begin(), sources.end(), [&](const std::string& source) {
        return file.size() >= source.size() && file.compare(file.size() - source.size(), source.size(), source) == 0;
    });
}

class EnvironmentOfSource : public ::testing::Environment {
public:
    EnvironmentOfSource(std::unique_ptr<::testing::Environment> environment, const char* source)
        : mEnvironment(std::move(environment)), mSource(source) {}

    void SetUp() override {
        mIsWanted = isOneOf(startedSources, mSource) || !isOneOf(allSources, mSource);
        if (mIsWanted) {
            mEnvironment->SetUp();
        }
    }

    void TearDown() override {
        if (mIsWanted) {
            mEnvironment->TearDown();
        }
    }

private:
    const std::unique_ptr<::testing::Environment> mEnvironment;
    const std::string mSource;
    bool mIsWanted = false;
};

/** Appends a pattern for the suite, or for each of its tests that is wanted if some are not. */
void appendPatterns(const ::testing::TestSuite& suite, bool ofStarted, std::string& patterns) {
    std::vector<std::string> wanted;
    for (int at = 0; at < suite.total_test_count(); ++at) {
        const ::testing::TestInfo& test = *suite.GetTestInfo(at);
        if (isOneOf(startedSources, test.file()) == ofStarted) {
            wanted.push_back(std::string(suite.name()) + "." + test.name());
        }
    }
    if (wanted.size() == static_cast<std::size_t>(suite.total_test_count())) {
        wanted = {std::string(suite.name()) + ".*"};
    }
    for (const std::string& pattern : wanted) {
        patterns += (patterns.empty() ? "" : ":") + pattern;
    }
}

/** Patterns of the tests of the started program, or of all others. */
std::string patterns(bool ofStarted) {
    const ::testing::UnitTest& program = *::testing::UnitTest::GetInstance();
    std::string result;
    for (int at = 0; at < program.total_test_suite_count(); ++at) {
        appendPatterns(*program.GetTestSuite(at), ofStarted, result);
    }
    return result;
}

/** What is asked for, of the started program alone. */
std::string filterOfStarted(const std::string& asked) {
    if (asked == "*") {
        return patterns(true);
    }
    return asked + (asked.find('-') == std::string::npos ? "-" : ":") + patterns(false);
}

} // namespace

int runJoinedTests(int argc, char** argv, std::initializer_list<JoinedSource> sources) {
    const std::string started = std::filesystem::path(argv[0]).filename();
    for (const JoinedSource& source : sources) {
        allSources.push_back("/" + source.path);
        if (source.program == started) {
            startedSources.push_back(allSources.back());
        }
    }
    ::testing::InitGoogleTest(&argc, argv);
    if (patterns(true).empty()) {
        std::cerr << argv[0] << ": no test of these joined programs has this name\n";
        return EXIT_FAILURE;
    }
    GTEST_FLAG_SET(filter, filterOfStarted(GTEST_FLAG_GET(filter)));
    const int status = RUN_ALL_TESTS();
    if (!GTEST_FLAG_GET(list_tests) && ::testing::UnitTest::GetInstance()->test_to_run_count() == 0) {
        std::cerr << argv[0] << ": no test was asked for\n";
        return EXIT_FAILURE;
    }
    return status;
}

void addEnvironmentOfSource(std::unique_ptr<::testing::Environment> environment, const char* source) {
    ::testing::AddGlobalTestEnvironment(new EnvironmentOfSource(std::move(environment), source));
}

} // namespace kelutv::test
