#include "support/ChildProcess.h"

#include <sys/wait.h>

#include <csignal>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

using kelutv::test::ChildProcess;

class Speaker {
public:
    explicit Speaker(const char* speakerCase, std::vector<std::string> environment = {})
        : mProcess({KELUTV_LOG_SPEAKER, speakerCase}, options(std::move(environment))) {}

    bool succeeded() { return mProcess.exitCode() == 0; }
    bool aborted() {
        const std::optional<int> status = mProcess.wait();
        return status && WIFSIGNALED(*status) && WTERMSIG(*status) == SIGABRT;
    }

    /** What it has written once it has ended. */
    std::string output() {
        mProcess.wait();
        return mProcess.output().text();
    }
    std::string error() {
        mProcess.wait();
        return mProcess.error().text();
    }

    /** The first letters of the lines on standard error. */
    std::string letters() {
        std::string found;
        bool atStart = true;
        for (const char c : error()) {
            found += atStart ? std::string(1, c) : "";
            atStart = c == '\n';
        }
        return found;
    }

private:
    static ChildProcess::Options options(std::vector<std::string> environment) {
        ChildProcess::Options options;
        options.environment = std::move(environment);
        options.captureOutput = true;
        options.captureError = true;
        return options;
    }

    ChildProcess mProcess;
};

TEST(LogLevel, namesTheLowestPriorityWritten) {
    EXPECT_EQ(Speaker("priorities", {"KQLOG_LEVEL=v"}).letters(), "VDIWEF");
    EXPECT_EQ(Speaker("priorities", {"KQLOG_LEVEL=d"}).letters(), "DIWEF");
    EXPECT_EQ(Speaker("priorities", {"KQLOG_LEVEL=i"}).letters(), "IWEF");
    EXPECT_EQ(Speaker("priorities", {"KQLOG_LEVEL=w"}).letters(), "WEF");
    EXPECT_EQ(Speaker("priorities", {"KQLOG_LEVEL=e"}).letters(), "EF");
    EXPECT_EQ(Speaker("priorities", {"KQLOG_LEVEL=f"}).letters(), "F");
    EXPECT_EQ(Speaker("priorities", {"KQLOG_LEVEL=s"}).letters(), "");
}

TEST(LogLevel, thatIsNoneIsNamedOnceAndDebugIsUsed) {
    Speaker speaker("priorities", {"KQLOG_LEVEL=loud"});
    EXPECT_EQ(speaker.letters(), "WDIWEF");
    EXPECT_NE(speaker.error().find("KQLOG_LEVEL is \"loud\" but must be one of v d i w e f s; d is used\n"),
              std::string::npos);
    EXPECT_EQ(Speaker("priorities", {"KQLOG_LEVEL="}).letters(), "WDIWEF");
}

TEST(LogLevel, decidesWhatIsLoggable) {
    EXPECT_EQ(Speaker("loggable", {"KQLOG_LEVEL=i"}).output(), "info 1, with default error 1\n");
    EXPECT_EQ(Speaker("loggable", {"KQLOG_LEVEL=e"}).output(), "info 0, with default error 0\n");
}

TEST(LogAssert, abortsWithItsMessage) {
    Speaker speaker("assert-message");
    EXPECT_TRUE(speaker.aborted());
    EXPECT_EQ(speaker.error().substr(0, 11), "F speaker  ");
    EXPECT_NE(speaker.error().find(" a is 3\n"), std::string::npos);
}

TEST(LogAssert, namesTheConditionWithoutAMessage) {
    Speaker speaker("assert-condition");
    EXPECT_TRUE(speaker.aborted());
    EXPECT_NE(speaker.error().find(" Assertion failed: a < b\n"), std::string::npos);
}

TEST(LogAssert, saysSomethingWhenGivenNothing) {
    Speaker speaker("assert-nothing");
    EXPECT_TRUE(speaker.aborted());
    EXPECT_NE(speaker.error().find(" Unspecified assertion failed\n"), std::string::npos);
}

TEST(LogAssert, isWrittenWhateverTheLevel) {
    Speaker speaker("assert-message", {"KQLOG_LEVEL=s"});
    EXPECT_TRUE(speaker.aborted());
    EXPECT_NE(speaker.error().find(" a is 3\n"), std::string::npos);
}

TEST(LogAtExit, worksInDestructorsAndWhileThreadsLog) {
    std::vector<std::unique_ptr<Speaker>> speakers;
    for (int i = 0; i < 20; ++i) {
        speakers.push_back(std::make_unique<Speaker>("exit"));
    }
    for (const auto& speaker : speakers) {
        EXPECT_TRUE(speaker->succeeded());
        EXPECT_NE(speaker->error().find(" last words\n"), std::string::npos);
    }
}

} // namespace
