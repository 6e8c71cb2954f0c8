#include "support/ChildProcess.h"
#include "support/TestFolder.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>

namespace kelutv::test {
namespace {

TEST(TestFolder, isOfItsOwnAndForItsOwnerAlone) {
    const TestFolder one;
    const TestFolder other;
    EXPECT_NE(one.path(), other.path());
    EXPECT_EQ(std::filesystem::status(one.path()).permissions(), std::filesystem::perms::owner_all);
    EXPECT_EQ(one.pathOf("entry"), one.path() + "/entry");
}

TEST(TestFolder, liesWhereTheTestMayLeaveThings) {
    const TestFolder folder;
    const std::string before = std::filesystem::temp_directory_path();
    ::setenv("TMPDIR", folder.path().c_str(), 1);
    {
        const TestFolder inner;
        EXPECT_EQ(inner.path().rfind(folder.path() + '/', 0), 0U) << inner.path();
    }
    ::setenv("TMPDIR", before.c_str(), 1);
}

TEST(TestFolder, goesWithAllThatIsInIt) {
    std::optional<TestFolder> folder(std::in_place);
    const std::string path = folder->path();
    std::filesystem::create_directories(path + "/some/where");
    std::ofstream(path + "/some/where/file") << "x";
    folder.reset();
    EXPECT_FALSE(std::filesystem::exists(path));
}

TEST(TestFolder, isLeftAloneByAForkedChild) {
    const TestFolder folder;
    const pid_t child = ::fork();
    if (child == 0) {
        folder.~TestFolder();
        ::_exit(0);
    }
    int status = -1;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
    EXPECT_TRUE(std::filesystem::exists(folder.path()));
}

/** The launcher that every registered test runs under. */
class LeaveNothing : public ::testing::Test {
protected:
    LeaveNothing() {
        ::unsetenv("KELUTV_EMULATOR");
        mOptions.environment = {"TMPDIR=" + mFolder.path()};
        mOptions.captureOutput = true;
    }

    void run(const std::string& script) {
        ChildProcess test({"/bin/sh", KELUTV_TEST_LAUNCHER, "/bin/sh", "-c", script}, mOptions);
        exit = test.exitCode().value_or(-1);
        output = test.output().text();
    }

    bool nothingIsLeft() const { return std::filesystem::is_empty(mFolder.path()); }

    int exit = -1;
    std::string output;

private:
    TestFolder mFolder;
    ChildProcess::Options mOptions;
};

TEST_F(LeaveNothing, passesATestOnThatCleansUp) {
    run("mkdir \"$TMPDIR/a\" && rmdir \"$TMPDIR/a\" && echo done");
    EXPECT_EQ(exit, 0);
    EXPECT_EQ(output, "done\n");
    EXPECT_TRUE(nothingIsLeft());
}

TEST_F(LeaveNothing, keepsTheResultOfAFailedTest) {
    run("exit 7");
    EXPECT_EQ(exit, 7);
    run("touch \"$TMPDIR/file\"; exit 7");
    EXPECT_EQ(exit, 7);
    EXPECT_TRUE(nothingIsLeft());
}

TEST_F(LeaveNothing, failsATestThatLeavesSomethingAndRemovesIt) {
    run("mkdir \"$TMPDIR/.folder\" && touch \"$TMPDIR/.folder/file\"");
    EXPECT_EQ(exit, 1);
    EXPECT_EQ(output, "left in the temporary folder of this test:\n./.folder\n./.folder/file\n");
    EXPECT_TRUE(nothingIsLeft());
}

TEST_F(LeaveNothing, cleansUpAfterATestThatIsKilled) {
    run("touch \"$TMPDIR/file\"; kill -KILL $$");
    EXPECT_EQ(exit, 128 + SIGKILL);
    EXPECT_TRUE(nothingIsLeft());
}

} // namespace
} // namespace kelutv::test
