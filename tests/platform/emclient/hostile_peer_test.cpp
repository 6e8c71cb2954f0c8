// Peers of the same user that do not keep to the protocol.

#include "Descriptors.h"
#include "EventRecorder.h"
#include "FakePublisher.h"
#include "FakeSubscriber.h"
#include "support/Capture.h"
#include "support/ChildProcess.h"
#include "support/Deadline.h"

#include <keluem/publisher.h>
#include <kqlog/capture.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <csignal>
#include <cstddef>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

namespace {

using kelutv::test::ChildProcess;
using kelutv::test::countIn;
using kelutv::test::EventRecorder;
using kelutv::test::eventually;
using kelutv::test::FakePublisher;
using kelutv::test::FakeSubscriber;
using kelutv::test::LogCapture;
using kelutv::test::Words;

constexpr unsigned int kHostilePeersModule = 0x140000;
constexpr unsigned int kVersion = 1;
constexpr unsigned int kEverything = 0xFFFFFFFF;
constexpr std::size_t kMostModules = 1024;

std::size_t linesWith(LogCapture& log, const std::string& part) {
    const auto entries = log.take();
    return static_cast<std::size_t>(std::count_if(
        entries.begin(), entries.end(), [&](const auto& entry) { return entry.text.find(part) != std::string::npos; }));
}

TEST(Subscriber, shutsOutWhatSendsNoEvents) {
    LogCapture log;
    EventRecorder recorder(kHostilePeersModule);
    for (const std::size_t size : {std::size_t{0}, std::size_t{1}, std::size_t{3}, 4 + keluem::kMaxPayload + 1}) {
        const FakePublisher publisher;
        EXPECT_FALSE(publisher.next().empty());
        EXPECT_TRUE(publisher.send(std::vector<unsigned char>(size)));
        EXPECT_TRUE(publisher.next().empty()) << size;
    }
    EXPECT_GE(linesWith(log, "which is no event: closed"), 1U);
    keluem::Publisher publisher;
    publisher.publish(kHostilePeersModule, nullptr, 0);
    EXPECT_EQ(recorder.takeIds(1), std::vector<unsigned int>{kHostilePeersModule});
}

TEST(Subscriber, takesFewConnectionsOfOneProcess) {
    LogCapture log;
    EventRecorder recorder(kHostilePeersModule);
    keluem::Publisher publisher;
    publisher.publish(kHostilePeersModule, nullptr, 0);
    ASSERT_EQ(recorder.takeIds(1).size(), 1U);
    const std::size_t descriptors = countIn("/proc/self/fd");
    ChildProcess::Options options;
    options.captureOutput = true;
    ChildProcess crowd({KELUTV_EVENT_PEER, "crowd", "0", kelutv::test::ownEntry(), "500"}, options);
    ASSERT_TRUE(crowd.output().waitFor("kept 4\n")) << crowd.output().text();
    EXPECT_LE(countIn("/proc/self/fd"), descriptors + 4 + 1); // and what the child has printed
    EXPECT_GE(linesWith(log, "has too many connections: closed"), 1U);
    keluem::Publisher other;
    other.publish(kHostilePeersModule + 1, nullptr, 0);
    publisher.publish(kHostilePeersModule + 2, nullptr, 0);
    EXPECT_EQ(recorder.take(2).size(), 2U);
    const std::size_t crowded = countIn("/proc/self/fd");
    crowd.kill(SIGKILL);
    EXPECT_TRUE(eventually([=] { return countIn("/proc/self/fd") == crowded - 4; }));
}

TEST(Publisher, shutsOutASubscriberThatSendsNoList) {
    LogCapture log;
    EventRecorder recorder(kHostilePeersModule);
    const Words noLists[] = {
        {kVersion},                                   // no number
        {kVersion + 1, 1, kHostilePeersModule},       // another version
        {kVersion, 2, kHostilePeersModule},           // fewer than it says
        {kVersion, 0, kHostilePeersModule},           // more than it says
        {kVersion, kEverything, kHostilePeersModule}, // everything and more
        Words(2 + kMostModules + 1),                  // too long
        Words(30000, 0x10000),                        // far too long
    };
    Words tooMany(2 + kMostModules + 1, 0x10000);
    tooMany[0] = kVersion;
    tooMany[1] = kMostModules + 1;
    const auto expectShutOut = [&](const Words& words) {
        FakeSubscriber subscriber("1-hostile");
        keluem::Publisher publisher;
        publisher.publish(kHostilePeersModule, nullptr, 0);
        subscriber.accept();
        EXPECT_TRUE(subscriber.send(words));
        EXPECT_TRUE(subscriber.isClosed()) << words.size() << " words";
        publisher.publish(kHostilePeersModule + 1, nullptr, 0);
        EXPECT_EQ(recorder.takeIds(2), (std::vector<unsigned int>{kHostilePeersModule, kHostilePeersModule + 1}));
    };
    for (const Words& words : noLists) {
        expectShutOut(words);
    }
    expectShutOut(tooMany);
    EXPECT_GE(linesWith(log, "which is no list of modules: closed"), 1U);
}

TEST(Publisher, isNotKeptBusyByASubscriberThatShutsItOut) {
    FakeSubscriber hostile("1-hostile");
    keluem::Publisher publisher;
    publisher.publish(kHostilePeersModule, nullptr, 0);
    int connections = 0;
    const auto start = std::chrono::steady_clock::now();
    // Pauses of 0, 50, 100, 200 and 400 ms lie between six connections.
    for (; connections < 6; ++connections) {
        hostile.accept();
        hostile.dropConnection();
    }
    EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(700));
}

/** A log that nobody reads: each line waits until it is told to go on. */
class StuckLog : private kqlog::Sink {
public:
    StuckLog() { kqlog::installSink(this); }
    ~StuckLog() override {
        read();
        kqlog::removeSink();
    }
    StuckLog(const StuckLog&) = delete;
    StuckLog& operator=(const StuckLog&) = delete;

    bool stuck() const { return mStuck; }
    void read() { mRead = true; }

private:
    void write(int /*priority*/, const char* /*tag*/, const char* /*text*/) override {
        mStuck = true;
        eventually([this] { return mRead.load(); });
    }

    std::atomic<bool> mStuck{false};
    std::atomic<bool> mRead{false};
};

TEST(Publisher, publishesWhileItsLogIsNotRead) {
    EventRecorder recorder(kHostilePeersModule);
    FakeSubscriber slow("1-slow");
    keluem::Publisher publisher;
    publisher.publish(kHostilePeersModule, nullptr, 0);
    slow.accept({0x10000});
    ASSERT_EQ(recorder.takeIds(1).size(), 1U);
    StuckLog log;
    std::thread overflowing([&] {
        while (!log.stuck()) {
            publisher.publish(0x10000, "sixteen bytes ..", 16);
        }
    });
    EXPECT_TRUE(eventually([&] { return log.stuck(); }));
    EXPECT_EQ(publisher.publish(kHostilePeersModule + 1, nullptr, 0), 0);
    EXPECT_EQ(recorder.takeIds(1), std::vector<unsigned int>{kHostilePeersModule + 1});
    log.read();
    overflowing.join();
}

} // namespace
