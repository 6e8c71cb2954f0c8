#include "EventRecorder.h"
#include "FakeSubscriber.h"
#include "SubscriberProcess.h"
#include "support/Capture.h"

#include <keluem/emal.h>
#include <keluem/publisher.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <memory>
#include <optional>
#include <string>

#include <gtest/gtest.h>

namespace {

using kelutv::test::EventRecorder;
using kelutv::test::FakeSubscriber;
using kelutv::test::SubscriberProcess;

constexpr unsigned int kForkModule = 0xE0000;

/** Runs `work` in a forked child; its exit code is the first 8 bits of what `work` gives. */
template <typename Work> int inForkedChild(Work work) {
    const pid_t child = ::fork();
    if (child == 0) {
        ::alarm(20);
        ::_exit(work());
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

void ignore(unsigned int /*id*/, void* /*payload*/, unsigned int /*length*/, void* /*previous*/) {}

TEST(ForkedChild, isRefusedByEveryCall) {
    EventRecorder recorder(kForkModule);
    auto publisher = std::make_unique<keluem::Publisher>();
    publisher->publish(kForkModule, nullptr, 0);
    EXPECT_EQ(inForkedChild([] { return -EMAL_AddListener(0xF0000, ignore); }), EPERM);
    EXPECT_EQ(inForkedChild([] { return -EMAL_RemoveListener(kForkModule); }), EPERM);
    EXPECT_EQ(inForkedChild([&] { return -publisher->publish(kForkModule, nullptr, 0); }), EPERM);
    EXPECT_EQ(inForkedChild([&] {
                  publisher.reset();
                  return 7;
              }),
              7);
}

TEST(ForkedChild, leavesItsParentAsItWas) {
    EventRecorder recorder(kForkModule);
    keluem::Publisher publisher;
    publisher.publish(kForkModule, nullptr, 0);
    EXPECT_EQ(recorder.takeIds(1).size(), 1U);
    EXPECT_EQ(inForkedChild([] { return 0; }), 0);
    publisher.publish(kForkModule + 1, nullptr, 0);
    EXPECT_EQ(recorder.takeIds(1), std::vector<unsigned int>{kForkModule + 1});
}

TEST(ForkedChild, getsNoEventsAndItsParentGetsThemAll) {
    SubscriberProcess process("fork", kForkModule);
    ASSERT_TRUE(process.ready());
    keluem::Publisher publisher;
    publisher.publish(kForkModule, "x", 1);
    publisher.publish(kForkModule + 0xFFFF, "y", 1);
    EXPECT_EQ(process.process().exitCode(), 0);
    EXPECT_EQ(process.printed(), "e0000 x\neffff y\n");
}

pid_t childNamedBy(SubscriberProcess& process) {
    const std::string text = process.process().output().text();
    return std::stoi(text.substr(text.find("child ") + 6));
}

TEST(ForkedChild, doesNotKeepItsDeadParentSubscribed) {
    kelutv::test::LogCapture log;
    SubscriberProcess process("fork", kForkModule);
    ASSERT_TRUE(process.ready());
    keluem::Publisher publisher;
    publisher.publish(kForkModule, "x", 1);
    process.process().kill(SIGKILL);
    process.process().wait();
    EXPECT_TRUE(kelutv::test::eventually([&] { return kelutv::test::entriesOf(process.process().pid()) == 0; }));
    EXPECT_EQ(::kill(childNamedBy(process), SIGKILL), 0);
}

TEST(ForkedChild, ofAListenerEndsWhenItReturns) {
    SubscriberProcess process("fork-listener", kForkModule);
    ASSERT_TRUE(process.ready());
    keluem::Publisher publisher;
    publisher.publish(kForkModule, nullptr, 0);
    EXPECT_EQ(process.process().exitCode(), 0);
    EXPECT_EQ(process.printed(), "child exit 0\n");
}

TEST(ForkedChild, doesNotKeepItsDeadParentPublishing) {
    FakeSubscriber subscriber("1-listening");
    SubscriberProcess process("publish-fork", kForkModule);
    ASSERT_TRUE(process.ready());
    subscriber.accept();
    process.process().kill(SIGKILL);
    process.process().wait();
    EXPECT_TRUE(subscriber.isClosed());
    EXPECT_EQ(::kill(childNamedBy(process), SIGKILL), 0);
}

TEST(ForkedChild, maySubscribeWhenItsParentNeverDid) {
    SubscriberProcess process("fork-first", kForkModule);
    ASSERT_TRUE(process.ready());
    keluem::Publisher publisher;
    publisher.publish(kForkModule + 0xFFFF, "x", 1);
    EXPECT_EQ(process.process().exitCode(), 0);
}

} // namespace
