#include "SubscriberProcess.h"
#include "support/Capture.h"

#include <keluem/publisher.h>

#include <algorithm>
#include <csignal>
#include <cstdint>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

using kelutv::test::eventually;
using kelutv::test::SubscriberProcess;

constexpr unsigned int kSubscribersModule = 0xB0000;
constexpr unsigned int kLast = kSubscribersModule + 0xFFFF;

std::string lineOf(unsigned int id, const std::string& payload) {
    std::ostringstream line;
    line << std::hex << id << ' ' << payload << '\n';
    return line.str();
}

TEST(SubscriberProcess, getsEveryEventOnceAndInOrder) {
    SubscriberProcess first("print", kSubscribersModule);
    SubscriberProcess second("print", kSubscribersModule);
    SubscriberProcess other("print", 0xC0000);
    ASSERT_TRUE(first.ready() && second.ready() && other.ready());
    keluem::Publisher publisher;
    std::string expected;
    for (unsigned int id = kSubscribersModule; id < kSubscribersModule + 500; ++id) {
        const std::string payload = "event " + std::to_string(id);
        ASSERT_EQ(publisher.publish(id, payload.data(), payload.size()), 0);
        expected += lineOf(id, payload);
    }
    ASSERT_EQ(publisher.publish(kLast, "end", 3), 0);
    expected += lineOf(kLast, "end");
    ASSERT_EQ(publisher.publish(0xCFFFF, "end", 3), 0);
    EXPECT_EQ(first.process().exitCode(), 0);
    EXPECT_EQ(second.process().exitCode(), 0);
    EXPECT_EQ(other.process().exitCode(), 0);
    EXPECT_EQ(first.printed(), expected);
    EXPECT_EQ(second.printed(), expected);
    EXPECT_EQ(other.printed(), lineOf(0xCFFFF, "end"));
    EXPECT_EQ(publisher.droppedEvents(), 0U);
}

TEST(SubscriberProcess, isReachedByAPublisherThatIsAtWork) {
    kelutv::test::runtimeDir();
    keluem::Publisher publisher;
    ASSERT_EQ(publisher.publish(kSubscribersModule, "early", 5), 0);
    for (int i = 0; i < 5; ++i) {
        SubscriberProcess process("print", kSubscribersModule);
        ASSERT_TRUE(process.ready());
        ASSERT_EQ(publisher.publish(kLast, "x", 1), 0);
        EXPECT_EQ(process.process().exitCode(), 0);
        EXPECT_EQ(process.printed(), lineOf(kLast, "x"));
    }
}

TEST(SubscriberProcess, thatEndsLeavesNoEntry) {
    SubscriberProcess process("print", kSubscribersModule);
    EXPECT_EQ(kelutv::test::entriesOf(process.process().pid()), 1U);
    keluem::Publisher publisher;
    publisher.publish(kLast, nullptr, 0);
    EXPECT_EQ(process.process().exitCode(), 0);
    EXPECT_EQ(kelutv::test::entriesOf(process.process().pid()), 0U);
}

TEST(SubscriberProcess, thatIsKilledIsForgottenByPublishers) {
    SubscriberProcess process("print", kSubscribersModule);
    SubscriberProcess survivor("print", kSubscribersModule);
    keluem::Publisher publisher;
    publisher.publish(kSubscribersModule, "x", 1);
    process.process().kill(SIGKILL);
    process.process().wait();
    EXPECT_TRUE(eventually([&] { return kelutv::test::entriesOf(process.process().pid()) == 0; }));
    EXPECT_EQ(publisher.publish(kLast, "y", 1), 0);
    EXPECT_EQ(survivor.process().exitCode(), 0);
    EXPECT_EQ(survivor.printed(), lineOf(kSubscribersModule, "x") + lineOf(kLast, "y"));
}

TEST(SubscriberProcess, isRefusedWithoutADirectory) {
    kelutv::test::ChildProcess::Options options;
    const std::string path = kelutv::test::runtimeDir().path() + "/nowhere/at/all";
    options.environment = {"KQDROID_RUNTIME_DIR=" + path};
    options.captureOutput = true;
    options.captureError = true;
    kelutv::test::ChildProcess process({KELUTV_EVENT_SUBSCRIBER, "print", std::to_string(kSubscribersModule)}, options);
    EXPECT_EQ(process.exitCode(), 1);
    EXPECT_EQ(process.output().text(), "refused\n");
    EXPECT_NE(process.error().text().find(path), std::string::npos);
}

TEST(SubscriberProcess, withAStuckListenerLosesOnlyItsOwnEvents) {
    kelutv::test::LogCapture log;
    SubscriberProcess slow("slow", kSubscribersModule);
    keluem::Publisher publisher;
    publisher.publish(kSubscribersModule, "x", 1);
    ASSERT_TRUE(slow.waitFor("stuck\n"));
    kelutv::test::EventRecorder prompt(0xC0000);
    for (int i = 0; i < 4000; ++i) {
        ASSERT_EQ(publisher.publish(kSubscribersModule + 1, "x", 1), 0);
    }
    publisher.publish(0xC0000, nullptr, 0);
    EXPECT_EQ(prompt.takeIds(1), std::vector<unsigned int>{0xC0000});
    const std::uint64_t dropped = publisher.droppedEvents();
    EXPECT_GT(dropped, 0U);
    slow.process().kill(SIGUSR1);
    ASSERT_EQ(publisher.publish(kLast, "x", 1), 0);
    EXPECT_EQ(slow.process().exitCode(), 0);
    const std::string printed = slow.printed();
    const auto received = static_cast<std::uint64_t>(std::count(printed.begin(), printed.end(), '\n'));
    EXPECT_EQ(received - 1 + publisher.droppedEvents(), 4000U + 2U);
}

} // namespace
