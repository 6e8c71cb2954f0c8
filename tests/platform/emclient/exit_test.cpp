#include "SubscriberProcess.h"
#include "support/Deadline.h"

#include <keluem/publisher.h>

#include <atomic>
#include <cstddef>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

namespace {

using kelutv::test::SubscriberProcess;

constexpr unsigned int kExitModule = 0xD0000;

/** Publishes events without end for as long as the object lives. */
class EndlessEvents {
public:
    EndlessEvents() {
        kelutv::test::runtimeDir();
        mThread = std::thread([this] {
            while (!mStop) {
                mPublisher.publish(kExitModule, "payload", 7);
                std::this_thread::yield();
            }
        });
    }
    ~EndlessEvents() {
        mStop = true;
        mThread.join();
    }
    EndlessEvents(const EndlessEvents&) = delete;
    EndlessEvents& operator=(const EndlessEvents&) = delete;

private:
    keluem::Publisher mPublisher;
    std::atomic<bool> mStop{false};
    std::thread mThread;
};

/** Starts that many processes side by side and expects each to end well. */
void expectCleanExits(const char* subscriberCase, std::size_t processes) {
    std::vector<std::unique_ptr<SubscriberProcess>> started;
    for (std::size_t i = 0; i < processes; ++i) {
        started.push_back(std::make_unique<SubscriberProcess>(subscriberCase, kExitModule));
        ASSERT_TRUE(started.back()->ready());
    }
    for (const auto& process : started) {
        ASSERT_EQ(process->process().exitCode(), 0);
    }
}

/** Waits until the main thread of the process has ended, which the other threads outlive. */
bool mainThreadEnds(pid_t pid) {
    return kelutv::test::eventually([pid] {
        std::ifstream file("/proc/" + std::to_string(pid) + "/stat");
        const std::string status{std::istreambuf_iterator<char>(file), {}};
        return status.find(") Z ") != std::string::npos;
    });
}

TEST(ExitOfASubscriber, isCleanWhileEventsArrive) {
    const EndlessEvents events;
    for (int batch = 0; batch < 5; ++batch) {
        expectCleanExits("exit-main", 10);
    }
}

TEST(ExitOfASubscriber, mayBeCalledByItsListener) {
    const EndlessEvents events;
    expectCleanExits("exit-listener", 10);
}

TEST(ExitOfASubscriber, isNotToldTheFirstEventWhileItExits) {
    SubscriberProcess process("exit-first", kExitModule);
    ASSERT_TRUE(process.ready());
    ASSERT_TRUE(process.waitFor("exiting\n"));
    keluem::Publisher publisher;
    publisher.publish(kExitModule, nullptr, 0);
    EXPECT_EQ(process.process().exitCode(), 0);
}

TEST(ExitOfASubscriber, isNotTheEndOfItsMainThreadAlone) {
    SubscriberProcess process("end-main-thread", kExitModule);
    ASSERT_TRUE(process.ready());
    ASSERT_TRUE(mainThreadEnds(process.process().pid()));
    keluem::Publisher publisher;
    publisher.publish(kExitModule, nullptr, 0);
    EXPECT_EQ(process.process().exitCode(), 0);
}

TEST(ExitOfASubscriber, doesNotWaitForEverForAStuckListener) {
    SubscriberProcess process("exit-stuck", kExitModule);
    ASSERT_TRUE(process.ready());
    keluem::Publisher publisher;
    publisher.publish(kExitModule, nullptr, 0);
    EXPECT_EQ(process.process().exitCode(), 0);
}

TEST(ExitOfASubscriber, leavesNoEntry) {
    SubscriberProcess process("exit-listener", kExitModule);
    keluem::Publisher publisher;
    publisher.publish(kExitModule, nullptr, 0);
    EXPECT_EQ(process.process().exitCode(), 0);
    EXPECT_EQ(kelutv::test::entriesOf(process.process().pid()), 0U);
}

} // namespace
