#include "socket/RuntimeDirectory.h"
#include "socket/SeqPacket.h"
#include "support/Capture.h"
#include "support/RuntimeDir.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <future>
#include <utility>

namespace kelutv::test {
namespace {

using kq::RuntimeDirectory;
using std::chrono::milliseconds;

bool isForItsOwnerAlone(const std::string& path) {
    return std::filesystem::symlink_status(path).permissions() == std::filesystem::perms::owner_all;
}

class RuntimeDirectoryTest : public ::testing::Test {
protected:
    RuntimeDir parent;
};

TEST_F(RuntimeDirectoryTest, isMadeForItsOwnerAlone) {
    const std::string path = parent.path() + "/new";
    ::setenv("KQDROID_RUNTIME_DIR", path.c_str(), 1);
    const mode_t before = ::umask(0);
    const auto room = RuntimeDirectory::open("room");
    ::umask(before);
    ASSERT_TRUE(room);
    EXPECT_EQ(room->path(), path + "/room");
    EXPECT_EQ(room->pathOf("entry"), path + "/room/entry");
    EXPECT_TRUE(isForItsOwnerAlone(path));
    EXPECT_TRUE(isForItsOwnerAlone(path + "/room"));
}

TEST_F(RuntimeDirectoryTest, liesInTheUsersRuntimeDirectoryByDefault) {
    ::unsetenv("KQDROID_RUNTIME_DIR");
    ::setenv("XDG_RUNTIME_DIR", parent.path().c_str(), 1);
    const auto room = RuntimeDirectory::open("room");
    ASSERT_TRUE(room);
    EXPECT_EQ(room->path(), parent.path() + "/kqdroid/room");
}

TEST_F(RuntimeDirectoryTest, emptySettingCountsAsNone) {
    ::setenv("KQDROID_RUNTIME_DIR", "", 1);
    ::setenv("XDG_RUNTIME_DIR", parent.path().c_str(), 1);
    const auto room = RuntimeDirectory::open("room");
    ASSERT_TRUE(room);
    EXPECT_EQ(room->path(), parent.path() + "/kqdroid/room");
}

TEST_F(RuntimeDirectoryTest, isNamedAfterTheUserAsALastResort) {
    ::unsetenv("KQDROID_RUNTIME_DIR");
    ::unsetenv("XDG_RUNTIME_DIR");
    const std::string path = "/tmp/kqdroid-" + std::to_string(::geteuid());
    const bool wasThere = std::filesystem::exists(path);
    const auto room = RuntimeDirectory::open("kelutv-test");
    ASSERT_TRUE(room);
    EXPECT_EQ(room->path(), path + "/kelutv-test");
    std::filesystem::remove(room->path());
    if (!wasThere) {
        std::filesystem::remove(path);
    }
}

TEST_F(RuntimeDirectoryTest, refusesADirectoryThatOthersMayEnter) {
    ::chmod(parent.path().c_str(), 0750);
    LogCapture log;
    EXPECT_FALSE(RuntimeDirectory::open("room"));
    const std::vector<LogEntry> entries = log.take();
    ASSERT_EQ(entries.size(), 1u);
    EXPECT_EQ(entries[0].priority, 6);
    EXPECT_EQ(entries[0].tag, "kqdroid");
    EXPECT_EQ(entries[0].text, "runtime directory " + parent.path() + " must be a directory of uid " +
                                   std::to_string(::geteuid()) + " that only its owner may enter");
}

TEST_F(RuntimeDirectoryTest, refusesALinkHoweverItIsWritten) {
    std::filesystem::create_directory_symlink(parent.path(), parent.path() + "/link");
    for (const char* tail : {"", "/", "/.", "//", "/./", "/.//."}) {
        ::setenv("KQDROID_RUNTIME_DIR", (parent.path() + "/link" + tail).c_str(), 1);
        const LogCapture log;
        EXPECT_FALSE(RuntimeDirectory::open("room")) << tail;
    }
    EXPECT_FALSE(std::filesystem::exists(parent.path() + "/room"));
}

TEST_F(RuntimeDirectoryTest, refusesAPathThatDoesNotBeginAtTheRoot) {
    ::setenv("KQDROID_RUNTIME_DIR", "run", 1);
    LogCapture log;
    EXPECT_FALSE(RuntimeDirectory::open("room"));
    const std::vector<LogEntry> entries = log.take();
    ASSERT_EQ(entries.size(), 1u);
    EXPECT_EQ(entries[0].priority, 6);
    EXPECT_EQ(entries[0].text, "runtime directory run must be a path that begins with /");
    EXPECT_FALSE(std::filesystem::exists("run"));
}

TEST_F(RuntimeDirectoryTest, mayEndInASlash) {
    ::setenv("KQDROID_RUNTIME_DIR", (parent.path() + "/./").c_str(), 1);
    const auto room = RuntimeDirectory::open("room");
    ASSERT_TRUE(room);
    EXPECT_EQ(room->path(), parent.path() + "/room");
}

TEST_F(RuntimeDirectoryTest, listsSocketsOnlyInOrder) {
    const auto room = RuntimeDirectory::open("room");
    ASSERT_TRUE(room);
    EXPECT_EQ(room->entries().value(), std::vector<std::string>());
    const kq::UniqueFd second = kq::listenAt(room->pathOf("b"));
    const kq::UniqueFd first = kq::listenAt(room->pathOf("a"));
    std::ofstream(room->pathOf("file")) << "x";
    std::filesystem::create_directory(room->pathOf("folder"));
    std::filesystem::create_symlink("a", room->pathOf("link"));
    EXPECT_EQ(room->entries().value(), (std::vector<std::string>{"a", "b"}));
}

TEST_F(RuntimeDirectoryTest, roomThatCannotBeReadIsNoEmptyOne) {
    const auto room = RuntimeDirectory::open("room");
    ASSERT_TRUE(room);
    std::filesystem::remove(room->path());
    EXPECT_FALSE(room->entries());
    EXPECT_EQ(errno, ENOENT);
}

TEST_F(RuntimeDirectoryTest, waitGivesUpWhenTheTimeIsOver) {
    const auto room = RuntimeDirectory::open("room");
    ASSERT_TRUE(room);
    int looks = 0;
    const auto never = [&looks] {
        ++looks;
        return false;
    };
    EXPECT_FALSE(room->waitUntil(milliseconds(0), never));
    EXPECT_EQ(looks, 1);
    const auto start = std::chrono::steady_clock::now();
    EXPECT_FALSE(room->waitUntil(milliseconds(50), never));
    EXPECT_GE(std::chrono::steady_clock::now() - start, milliseconds(50));
}

bool watchesAnything() {
    for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
        std::error_code gone;
        if (std::filesystem::read_symlink(entry.path(), gone) == "anon_inode:inotify") {
            return true;
        }
    }
    return false;
}

TEST_F(RuntimeDirectoryTest, waitThatEndsAtOnceWatchesNothing) {
    const auto room = RuntimeDirectory::open("room");
    ASSERT_TRUE(room);
    EXPECT_TRUE(room->waitUntil(kPatience, [] { return !watchesAnything(); }));
    EXPECT_TRUE(room->waitUntil(kPatience, [] { return watchesAnything(); }));
}

TEST_F(RuntimeDirectoryTest, waitEndsWithWhatItWaitsFor) {
    const auto room = RuntimeDirectory::open("room");
    ASSERT_TRUE(room);
    std::promise<void> looked;
    bool first = true;
    auto waiting = std::async(std::launch::async, [&] {
        return room->waitUntil(milliseconds(60'000), [&] {
            if (std::exchange(first, false)) {
                looked.set_value();
            }
            return room->entries() == std::vector<std::string>{"wanted"};
        });
    });
    looked.get_future().wait();
    const kq::UniqueFd other = kq::listenAt(room->pathOf("z"));
    std::filesystem::remove(room->pathOf("z"));
    const kq::UniqueFd wanted = kq::listenAt(room->pathOf("wanted"));
    ASSERT_EQ(waiting.wait_for(kPatience), std::future_status::ready);
    EXPECT_TRUE(waiting.get());
}

TEST_F(RuntimeDirectoryTest, lockIsExclusiveUntilItGoes) {
    const auto room = RuntimeDirectory::open("room");
    ASSERT_TRUE(room);
    kq::UniqueFd lock = room->lock();
    ASSERT_TRUE(lock);
    const kq::UniqueFd other(::open(room->pathOf(".lock").c_str(), O_RDWR | O_CLOEXEC));
    EXPECT_EQ(::flock(other.get(), LOCK_EX | LOCK_NB), -1);
    EXPECT_EQ(errno, EWOULDBLOCK);
    lock = kq::UniqueFd();
    EXPECT_EQ(::flock(other.get(), LOCK_EX | LOCK_NB), 0);
}

TEST_F(RuntimeDirectoryTest, lockThatCannotBeHadIsGivenUp) {
    const auto room = RuntimeDirectory::open("room");
    ASSERT_TRUE(room);
    const kq::UniqueFd other(::open(room->pathOf(".lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600));
    ASSERT_EQ(::flock(other.get(), LOCK_EX), 0);
    LogCapture log;
    auto locking = std::async(std::launch::async, [&] { return static_cast<bool>(room->lock()); });
    const bool inTime = locking.wait_for(kPatience) == std::future_status::ready;
    EXPECT_TRUE(inTime);
    ::flock(other.get(), LOCK_UN);
    EXPECT_EQ(locking.get(), !inTime);
    const std::vector<LogEntry> entries = log.take();
    ASSERT_EQ(entries.size(), 1u);
    EXPECT_EQ(entries[0].priority, 6);
    EXPECT_EQ(entries[0].text, "locking " + room->pathOf(".lock") + ": Resource temporarily unavailable");
}

TEST_F(RuntimeDirectoryTest, lockOnSomethingElseThanAFileIsRefused) {
    const auto room = RuntimeDirectory::open("room");
    ASSERT_TRUE(room);
    std::filesystem::create_symlink("/dev/null", room->pathOf(".lock"));
    const LogCapture log;
    EXPECT_FALSE(room->lock());
    EXPECT_EQ(errno, ELOOP);
}

} // namespace
} // namespace kelutv::test
