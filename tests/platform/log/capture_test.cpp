#include "support/Capture.h"

#include <android/log.h>
#include <kqlog/capture.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

namespace {

using kelutv::test::FdCapture;

struct Entry {
    int priority;
    const char* tag;
    std::string text;
};

class RecordingSink : public kqlog::Sink {
public:
    RecordingSink() { kqlog::installSink(this); }
    ~RecordingSink() override { kqlog::removeSink(); }
    void write(int priority, const char* tag, const char* text) override {
        entries.push_back({priority, tag, text});
        errno = EIO;
    }

    std::vector<Entry> entries;
};

TEST(LogSink, getsEverythingAsPassed) {
    FdCapture standardError(STDERR_FILENO);
    RecordingSink sink;
    const char* tag = "TVBaseService@Client";
    EXPECT_EQ(__android_log_write(ANDROID_LOG_ERROR, tag, "invoke failure\n"), 1);
    EXPECT_EQ(__android_log_print(ANDROID_LOG_INFO, nullptr, "%d\n\n", 5), 1);
    EXPECT_EQ(__android_log_write(ANDROID_LOG_VERBOSE, tag, nullptr), 1);
    EXPECT_EQ(standardError.take(), "");
    ASSERT_EQ(sink.entries.size(), 3U);
    EXPECT_EQ(sink.entries[0].priority, ANDROID_LOG_ERROR);
    EXPECT_EQ(sink.entries[0].tag, tag);
    EXPECT_EQ(sink.entries[0].text, "invoke failure\n");
    EXPECT_EQ(sink.entries[1].tag, nullptr);
    EXPECT_EQ(sink.entries[1].text, "5\n\n");
    EXPECT_EQ(sink.entries[2].priority, ANDROID_LOG_VERBOSE);
    EXPECT_EQ(sink.entries[2].text, "");
}

TEST(LogSink, getsLongTextsWhole) {
    RecordingSink sink;
    const std::string text(50000, 'x');
    __android_log_print(ANDROID_LOG_INFO, "t", "%s", text.c_str());
    ASSERT_EQ(sink.entries.size(), 1U);
    EXPECT_EQ(sink.entries[0].text, text);
}

TEST(LogSink, leavesErrnoAlone) {
    RecordingSink sink;
    errno = ENOENT;
    __android_log_write(ANDROID_LOG_INFO, "t", "x");
    EXPECT_EQ(errno, ENOENT);
}

TEST(LogSink, removedGivesBackStandardError) {
    FdCapture standardError(STDERR_FILENO);
    { RecordingSink sink; }
    __android_log_write(ANDROID_LOG_INFO, "t", "after");
    EXPECT_NE(standardError.take().find("after"), std::string::npos);
}

TEST(LogSink, replacesAnEarlierOne) {
    RecordingSink first;
    RecordingSink second;
    __android_log_write(ANDROID_LOG_INFO, "t", "x");
    EXPECT_EQ(first.entries.size(), 0U);
    EXPECT_EQ(second.entries.size(), 1U);
}

class TalkativeSink : public kqlog::Sink {
public:
    void write(int /*priority*/, const char* /*tag*/, const char* /*text*/) override {
        __android_log_write(ANDROID_LOG_INFO, "sink", "from the sink");
    }
};

TEST(LogSink, mayLogToStandardError) {
    FdCapture standardError(STDERR_FILENO);
    TalkativeSink sink;
    kqlog::installSink(&sink);
    __android_log_write(ANDROID_LOG_INFO, "t", "x");
    kqlog::removeSink();
    EXPECT_NE(standardError.take().find("from the sink"), std::string::npos);
}

/** Notices a call after its life. */
class MortalSink : public kqlog::Sink {
public:
    explicit MortalSink(std::atomic<int>& lateCalls) : mLateCalls(lateCalls) { kqlog::installSink(this); }
    ~MortalSink() override {
        kqlog::removeSink();
        mAlive = false;
    }
    void write(int /*priority*/, const char* /*tag*/, const char* /*text*/) override {
        std::this_thread::yield();
        mLateCalls += mAlive ? 0 : 1;
    }

private:
    std::atomic<int>& mLateCalls;
    std::atomic<bool> mAlive{true};
};

TEST(LogSink, isNotCalledAfterItsRemoval) {
    FdCapture standardError(STDERR_FILENO);
    std::atomic<int> lateCalls{0};
    std::atomic<bool> stop{false};
    std::thread threads[3];
    for (std::thread& thread : threads) {
        thread = std::thread([&stop] {
            while (!stop) {
                __android_log_write(ANDROID_LOG_INFO, "t", "x");
            }
        });
    }
    for (int i = 0; i < 200; ++i) {
        const MortalSink sink(lateCalls);
        std::this_thread::yield();
    }
    stop = true;
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(lateCalls, 0);
    standardError.take();
}

} // namespace
