// The bytes of the EEP and their file.

#include "simulator/television/EepStore.h"

#include "support/Deadline.h"
#include "support/TestFolder.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace kelutv::simulator {

namespace {

constexpr std::size_t kFileSize = 0x20000;
constexpr std::size_t kFlashStart = 0x10000;

class EepStoreTest : public ::testing::Test {
protected:
    static std::string contentOf(const std::string& path) {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    }

    static void put(const std::string& path, const std::string& content) {
        std::ofstream(path, std::ios::binary) << content;
    }

    std::string complaint() const {
        try {
            const EepStore store(mPath);
        } catch (const std::runtime_error& error) {
            return error.what();
        }
        return "";
    }

    const kelutv::test::TestFolder mFolder;
    std::string mPath = mFolder.pathOf("eep");
};

TEST_F(EepStoreTest, CoversEveryAddressOnce) {
    EXPECT_TRUE(EepStore::covers(0, 1));
    EXPECT_TRUE(EepStore::covers(0xFFFF, 1));
    EXPECT_TRUE(EepStore::covers(0, 0x10000));
    EXPECT_TRUE(EepStore::covers(0xFFFF, 0));
    EXPECT_TRUE(EepStore::covers(0x8A00, -5));
    EXPECT_FALSE(EepStore::covers(-1, 1));
    EXPECT_FALSE(EepStore::covers(0x10000, 0));
    EXPECT_FALSE(EepStore::covers(0xFFFF, 2));
    EXPECT_FALSE(EepStore::covers(1, 0x7FFFFFFF));
}

TEST_F(EepStoreTest, WithoutAFileKeepsWhatIsWritten) {
    EepStore store;
    EXPECT_EQ(store.read(Memory::FlashEep, 0xFFFE, 2), std::string(2, '\0'));
    store.write(Memory::FlashEep, 0xFFFE, "ab");
    store.commit(Memory::FlashEep);
    EXPECT_EQ(store.read(Memory::FlashEep, 0xFFFD, 3), std::string("\0ab", 3));
    EXPECT_EQ(store.read(Memory::Eep, 0xFFFE, 2), std::string(2, '\0'));
}

TEST_F(EepStoreTest, MakesTheFileAndReadsItBack) {
    {
        EepStore store(mPath);
        EXPECT_EQ(contentOf(mPath), std::string(kFileSize, '\0'));
        store.write(Memory::Eep, 1, "eep");
        store.commit(Memory::Eep);
        store.write(Memory::FlashEep, 0x8A00, "flash");
        store.commit(Memory::FlashEep);
    }
    EXPECT_EQ(contentOf(mPath).substr(1, 3), "eep");
    EXPECT_EQ(contentOf(mPath).substr(kFlashStart + 0x8A00, 5), "flash");
    const EepStore store(mPath);
    EXPECT_EQ(store.read(Memory::Eep, 1, 3), "eep");
    EXPECT_EQ(store.read(Memory::FlashEep, 0x8A00, 5), "flash");
}

TEST_F(EepStoreTest, KeepsWhatWasWrittenOutOfTheFileUntilTheCommit) {
    EepStore store(mPath);
    store.write(Memory::FlashEep, 0, "flash");
    EXPECT_EQ(store.read(Memory::FlashEep, 0, 5), "flash");
    store.write(Memory::Eep, 0, "eep");
    store.commit(Memory::Eep);
    EXPECT_EQ(contentOf(mPath).substr(0, 3), "eep");
    EXPECT_EQ(contentOf(mPath).substr(kFlashStart, 5), std::string(5, '\0'));
    store.revert(Memory::FlashEep);
    EXPECT_EQ(store.read(Memory::FlashEep, 0, 5), std::string(5, '\0'));
    EXPECT_EQ(store.read(Memory::Eep, 0, 3), "eep");
}

TEST_F(EepStoreTest, RefusesAFileThatIsNoneOfItsOwnAndLeavesIt) {
    for (const std::size_t size : {std::size_t{0}, kFileSize - 1, kFileSize + 1}) {
        const std::string content(size, 'x');
        put(mPath, content);
        EXPECT_EQ(complaint(), mPath + " is not an EEP file: it must be a regular file of 131072 bytes");
        EXPECT_EQ(contentOf(mPath), content);
    }
    ASSERT_EQ(::unlink(mPath.c_str()), 0);
    ASSERT_EQ(::mkfifo(mPath.c_str(), 0600), 0);
    EXPECT_NE(complaint().find("is not an EEP file"), std::string::npos);
}

TEST_F(EepStoreTest, RefusesAPlaceWhereThereCanBeNoFile) {
    mPath = mFolder.pathOf("none/eep");
    EXPECT_EQ(complaint(), "cannot write " + mPath + ".new: No such file or directory");
}

TEST_F(EepStoreTest, KeepsTheOldFileWhenTheNewOneCannotBeWritten) {
    EepStore store(mPath);
    ASSERT_TRUE(std::filesystem::create_directory(mPath + ".new"));
    store.write(Memory::FlashEep, 0, "new");
    EXPECT_THROW(store.commit(Memory::FlashEep), std::runtime_error);
    EXPECT_EQ(contentOf(mPath), std::string(kFileSize, '\0'));
    ASSERT_TRUE(std::filesystem::remove(mPath + ".new"));
    store.commit(Memory::FlashEep);
    EXPECT_EQ(contentOf(mPath).substr(kFlashStart, 3), "new");
}

TEST_F(EepStoreTest, ReplacesTheFileBehindALink) {
    const std::string target = mFolder.pathOf("target");
    put(target, std::string(kFileSize, 'x'));
    ASSERT_EQ(::symlink(target.c_str(), mPath.c_str()), 0);
    EepStore store(mPath);
    store.write(Memory::Eep, 0, "new");
    store.commit(Memory::Eep);
    EXPECT_EQ(contentOf(target).substr(0, 4), "newx");
    EXPECT_TRUE(std::filesystem::is_symlink(mPath));
}

/** Fills the flash EEP with one letter after another, each time committed. */
[[noreturn]] void fillForever(const std::string& path, int ready) {
    EepStore store(path);
    for (unsigned int round = 0;; ++round) {
        store.write(Memory::FlashEep, 0, std::string(EepStore::kSize, static_cast<char>('a' + round % 26)));
        store.commit(Memory::FlashEep);
        if (round == 1 && ::write(ready, "x", 1) != 1) {
            std::_Exit(1);
        }
    }
}

TEST_F(EepStoreTest, LeavesOnePatternWheneverItIsKilled) {
    int ready[2];
    ASSERT_EQ(::pipe(ready), 0);
    for (int kill = 0; kill < 40; ++kill) {
        const pid_t writer = ::fork();
        ASSERT_GE(writer, 0);
        if (writer == 0) {
            fillForever(mPath, ready[1]);
        }
        char mark = 0;
        EXPECT_EQ(::read(ready[0], &mark, 1), 1);
        ::usleep(static_cast<useconds_t>(kill * 97));
        ::kill(writer, SIGKILL);
        int status = 0;
        ASSERT_EQ(::waitpid(writer, &status, 0), writer);
        ASSERT_TRUE(WIFSIGNALED(status));
        const std::string content = contentOf(mPath);
        ASSERT_EQ(content.size(), kFileSize);
        const std::string flash = content.substr(kFlashStart);
        EXPECT_EQ(flash, std::string(flash.size(), flash[0])) << "torn after kill " << kill;
        EXPECT_GE(flash[0], 'a');
    }
    ::close(ready[0]);
    ::close(ready[1]);
}

} // namespace

} // namespace kelutv::simulator
