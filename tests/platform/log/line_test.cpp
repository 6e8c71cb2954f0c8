#include "support/Capture.h"
#include "tools/process/Redirection.h"

#include <android/log.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <sstream>
#include <string>
#include <thread>

#include <gtest/gtest.h>

namespace {

using kelutv::process::Redirection;
using kelutv::test::FdCapture;

std::string ids() { return "  " + std::to_string(::getpid()) + "/" + std::to_string(::gettid()) + " "; }

std::string written(int priority, const char* tag, const char* text) {
    FdCapture standardError(STDERR_FILENO);
    EXPECT_EQ(__android_log_write(priority, tag, text), 1);
    return standardError.take();
}

TEST(LogLine, showsPriorityTagIdsAndText) {
    EXPECT_EQ(written(ANDROID_LOG_ERROR, "TVBaseService@Client", "invoke failure"),
              "E TVBaseService@Client" + ids() + "invoke failure\n");
}

TEST(LogLine, hasALetterPerPriority) {
    EXPECT_EQ(written(ANDROID_LOG_DEBUG, "t", "x")[0], 'D');
    EXPECT_EQ(written(ANDROID_LOG_INFO, "t", "x")[0], 'I');
    EXPECT_EQ(written(ANDROID_LOG_WARN, "t", "x")[0], 'W');
    EXPECT_EQ(written(ANDROID_LOG_ERROR, "t", "x")[0], 'E');
    EXPECT_EQ(written(ANDROID_LOG_FATAL, "t", "x")[0], 'F');
    EXPECT_EQ(written(ANDROID_LOG_SILENT, "t", "x")[0], 'S');
    EXPECT_EQ(written(99, "t", "x")[0], '?');
}

TEST(LogLine, showsADashForANullTag) { EXPECT_EQ(written(ANDROID_LOG_INFO, nullptr, "x"), "I -" + ids() + "x\n"); }

TEST(LogLine, takesANullTextAsEmpty) { EXPECT_EQ(written(ANDROID_LOG_INFO, "t", nullptr), "I t" + ids() + "\n"); }

TEST(LogLine, takesANullFormatAsEmpty) {
    FdCapture standardError(STDERR_FILENO);
    const char* format = nullptr;
    EXPECT_EQ(__android_log_print(ANDROID_LOG_INFO, "t", format, 1), 1);
    EXPECT_EQ(standardError.take(), "I t" + ids() + "\n");
}

TEST(LogLine, dropsOneLineEndAndEscapesTheOthers) {
    EXPECT_EQ(written(ANDROID_LOG_INFO, "t", "one\n"), "I t" + ids() + "one\n");
    EXPECT_EQ(written(ANDROID_LOG_INFO, "t", "one\n\n"), "I t" + ids() + "one\\n\n");
    EXPECT_EQ(written(ANDROID_LOG_INFO, "t\nu", "one\ntwo"), "I t\\nu" + ids() + "one\\ntwo\n");
}

TEST(LogLine, formats) {
    FdCapture standardError(STDERR_FILENO);
    EXPECT_EQ(__android_log_print(ANDROID_LOG_DEBUG, "t", "ret = %d, %s", 7, "seven"), 1);
    EXPECT_EQ(standardError.take(), "D t" + ids() + "ret = 7, seven\n");
}

TEST(LogLine, isNotCutWhateverItsLength) {
    for (const std::size_t length : {1000U, 1023U, 1024U, 1025U, 1536U, 5000U, 100000U}) {
        const std::string text(length, 'x');
        EXPECT_EQ(written(ANDROID_LOG_INFO, "t", text.c_str()), "I t" + ids() + text + "\n");
        FdCapture standardError(STDERR_FILENO);
        __android_log_print(ANDROID_LOG_INFO, "t", "%s.", text.c_str());
        EXPECT_EQ(standardError.take(), "I t" + ids() + text + ".\n");
    }
}

TEST(LogLine, growsWithEscapedLineEnds) {
    std::string escaped;
    for (int i = 0; i < 2000; ++i) {
        escaped += "\\n";
    }
    const std::string text = std::string(2000, '\n') + "x";
    EXPECT_EQ(written(ANDROID_LOG_INFO, "t", text.c_str()), "I t" + ids() + escaped + "x\n");
}

TEST(LogLine, isBelowTheDefaultLevelWhenVerbose) {
    FdCapture standardError(STDERR_FILENO);
    EXPECT_EQ(__android_log_write(ANDROID_LOG_VERBOSE, "t", "x"), -EPERM);
    EXPECT_EQ(__android_log_print(ANDROID_LOG_VERBOSE, "t", "%d", 1), -EPERM);
    EXPECT_EQ(standardError.take(), "");
}

TEST(LogLine, leavesErrnoAloneAndShowsIt) {
    FdCapture standardError(STDERR_FILENO);
    // Not written in the call, where the compiler holds it against the standard, which has no %m.
    const char* format = "%m%s";
    errno = ENOENT;
    __android_log_print(ANDROID_LOG_INFO, "t", format, "");
    EXPECT_EQ(errno, ENOENT);
    EXPECT_EQ(standardError.take(), "I t" + ids() + std::strerror(ENOENT) + "\n");
}

TEST(LogLine, isWrittenByOneCall) {
    int ends[2];
    ASSERT_EQ(::socketpair(AF_UNIX, SOCK_SEQPACKET, 0, ends), 0);
    const std::string text(5000, 'x');
    {
        const Redirection socket(STDERR_FILENO, ends[0]);
        __android_log_print(ANDROID_LOG_INFO, "t", "%s", text.c_str());
    }
    ::close(ends[0]);
    char packet[8192];
    const ssize_t size = ::recv(ends[1], packet, sizeof(packet), 0);
    EXPECT_EQ(std::string(packet, size > 0 ? static_cast<std::size_t>(size) : 0), "I t" + ids() + text + "\n");
    EXPECT_EQ(::recv(ends[1], packet, sizeof(packet), 0), 0);
    ::close(ends[1]);
}

TEST(LogLine, reportsAStandardErrorThatRefuses) {
    int ends[2];
    ASSERT_EQ(::pipe(ends), 0);
    int result = 0;
    errno = 0;
    {
        const Redirection readEnd(STDERR_FILENO, ends[0]);
        result = __android_log_write(ANDROID_LOG_INFO, "t", "x");
    }
    EXPECT_EQ(result, -EBADF);
    ::close(ends[0]);
    ::close(ends[1]);
}

TEST(LogLine, staysWholeWhenManyThreadsLog) {
    FdCapture standardError(STDERR_FILENO);
    std::thread threads[4];
    for (std::thread& thread : threads) {
        thread = std::thread([] {
            for (int i = 0; i < 200; ++i) {
                __android_log_write(ANDROID_LOG_INFO, "t", "abcdefghijklmnopqrstuvwxyz");
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    std::istringstream lines(standardError.take());
    int count = 0;
    for (std::string line; std::getline(lines, line); ++count) {
        EXPECT_EQ(line.substr(0, 5), "I t  ");
        EXPECT_EQ(line.substr(line.size() - 27), " abcdefghijklmnopqrstuvwxyz");
    }
    EXPECT_EQ(count, 800);
}

} // namespace
