// Lines are written beside those who print them, whatever their reader does.

#include "simulator/output/LineWriter.h"
#include "support/Deadline.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstddef>
#include <optional>
#include <string>

namespace kelutv::test {

namespace {

class LineWriterTest : public ::testing::Test {
protected:
    LineWriterTest() {
        std::signal(SIGPIPE, SIG_IGN);
        EXPECT_EQ(::pipe2(mPipe, O_CLOEXEC), 0);
        mWriter.emplace(mPipe[1]);
    }

    ~LineWriterTest() override {
        ::close(mPipe[0]);
        mWriter.reset();
        ::close(mPipe[1]);
    }

    /** What can be read up to and with this text, which must come. */
    std::string readUntil(const std::string& end) const {
        std::string text;
        while (text.find(end) == std::string::npos) {
            pollfd ready{mPipe[0], POLLIN, 0};
            if (::poll(&ready, 1, static_cast<int>(kPatience.count())) != 1) {
                ADD_FAILURE() << end << " does not come";
                break;
            }
            char bytes[4096];
            const ssize_t count = ::read(mPipe[0], bytes, sizeof(bytes));
            text.append(bytes, static_cast<std::size_t>(count > 0 ? count : 0));
        }
        return text;
    }

    int mPipe[2]{-1, -1};
    std::optional<simulator::LineWriter> mWriter;
};

TEST_F(LineWriterTest, HasWrittenWhatItFlushed) {
    mWriter->add("one");
    mWriter->add("two");
    mWriter->flush();
    char bytes[16];
    ASSERT_EQ(::fcntl(mPipe[0], F_SETFL, O_NONBLOCK), 0);
    ASSERT_EQ(::read(mPipe[0], bytes, sizeof(bytes)), 8);
    EXPECT_EQ(std::string(bytes, 8), "one\ntwo\n");
}

TEST_F(LineWriterTest, LeavesOutWhatNobodyReadsAndSaysSo) {
    constexpr int kLines = 40000;
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < kLines; ++i) {
        mWriter->add(std::to_string(i) + std::string(95, '.'));
        mWriter->flush();
    }
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
    std::string text = readUntil(" lines left out\n");
    // As many as the queue and the pipe hold, in order, then the rest as a number.
    const std::size_t notice = text.find("... ");
    const int missing = std::stoi(text.substr(notice + 4));
    const auto written = std::count(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(notice), '\n');
    EXPECT_EQ(written + missing, kLines);
    EXPECT_GT(written, 5000);
    EXPECT_LT(written, 15000);
    mWriter->add("afterwards");
    EXPECT_NE(readUntil("afterwards\n").find("afterwards\n"), std::string::npos);
}

TEST_F(LineWriterTest, EndsSoonWhenNobodyReads) {
    mWriter->add(std::string(200000, 'x'));
    const auto start = std::chrono::steady_clock::now();
    mWriter.reset();
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
    readUntil("\n"); // What still writes is done with the descriptor then.
}

TEST_F(LineWriterTest, WritesEverythingBeforeItEnds) {
    std::string expected;
    for (int i = 0; i < 100; ++i) {
        mWriter->add(std::to_string(i));
        expected += std::to_string(i) + '\n';
    }
    mWriter.reset();
    EXPECT_EQ(readUntil("99\n"), expected);
}

} // namespace

} // namespace kelutv::test
