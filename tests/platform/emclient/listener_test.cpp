#include "EventRecorder.h"
#include "support/Deadline.h"

#include <fcntl.h>
#include <keluem/emal.h>
#include <keluem/publisher.h>

#include <atomic>
#include <cerrno>
#include <filesystem>
#include <numeric>
#include <thread>

#include <gtest/gtest.h>

namespace {

using kelutv::test::EventRecorder;
using kelutv::test::eventually;
using kelutv::test::RecordedEvent;

constexpr unsigned int kListenersModule = 0x60000;
constexpr unsigned int kOtherModule = 0x70000;

int publish(keluem::Publisher& publisher, unsigned int id, const std::string& payload = "") {
    return publisher.publish(id, payload.data(), payload.size());
}

std::vector<unsigned int> idsFrom(unsigned int first, std::size_t count) {
    std::vector<unsigned int> ids(count);
    std::iota(ids.begin(), ids.end(), first);
    return ids;
}

TEST(Listener, getsTheEventAsPublished) {
    EventRecorder recorder(kListenersModule);
    ASSERT_EQ(recorder.status(), 0);
    keluem::Publisher publisher;
    EXPECT_EQ(publish(publisher, kListenersModule + 5, std::string("a\0b\xff", 4)), 0);
    const std::vector<RecordedEvent> events = recorder.take(1);
    ASSERT_EQ(events.size(), 1U);
    EXPECT_EQ(events[0].id, kListenersModule + 5);
    EXPECT_EQ(events[0].payload, std::string("a\0b\xff", 4));
    EXPECT_TRUE(events[0].nullPrevious);
    EXPECT_TRUE(events[0].aligned);
}

TEST(Listener, getsNullForAnEmptyPayload) {
    EventRecorder recorder(kListenersModule);
    keluem::Publisher publisher;
    EXPECT_EQ(publisher.publish(kListenersModule, nullptr, 0), 0);
    EXPECT_EQ(publisher.publish(kListenersModule, "x", 0), 0);
    const std::vector<RecordedEvent> events = recorder.take(2);
    ASSERT_EQ(events.size(), 2U);
    EXPECT_TRUE(events[0].nullPayload);
    EXPECT_TRUE(events[1].nullPayload);
}

TEST(Listener, getsTheLargestPayloadIntact) {
    EventRecorder recorder(kListenersModule);
    keluem::Publisher publisher;
    std::string payload(keluem::kMaxPayload, 'x');
    for (std::size_t i = 0; i < payload.size(); ++i) {
        payload[i] = static_cast<char>(i * 7 + i / 256);
    }
    EXPECT_EQ(publish(publisher, kListenersModule, payload), 0);
    const std::vector<RecordedEvent> events = recorder.take(1);
    ASSERT_EQ(events.size(), 1U);
    EXPECT_EQ(events[0].payload, payload);
}

TEST(Listener, getsEveryEventOnceAndInOrder) {
    EventRecorder recorder(kListenersModule);
    keluem::Publisher publisher;
    for (unsigned int i = 0; i < 1000; ++i) {
        publish(publisher, kListenersModule + i, "payload");
    }
    publish(publisher, kListenersModule + 0xFFFF);
    std::vector<unsigned int> expected = idsFrom(kListenersModule, 1000);
    expected.push_back(kListenersModule + 0xFFFF);
    EXPECT_EQ(recorder.takeIds(1001), expected);
}

TEST(Listener, getsOnlyTheEventsOfItsModule) {
    EventRecorder recorder(kListenersModule);
    keluem::Publisher publisher;
    publish(publisher, kOtherModule);
    publish(publisher, kListenersModule - 1);
    publish(publisher, kListenersModule + 0xFFFF);
    publish(publisher, kListenersModule + 0x10000);
    publish(publisher, 0);
    publish(publisher, kListenersModule);
    EXPECT_EQ(recorder.takeIds(2), (std::vector<unsigned int>{kListenersModule + 0xFFFF, kListenersModule}));
}

TEST(Listener, getsTheEventsOfEveryPublisher) {
    EventRecorder recorder(kListenersModule);
    keluem::Publisher one;
    keluem::Publisher two;
    publish(one, kListenersModule + 1);
    EXPECT_EQ(recorder.takeIds(1), std::vector<unsigned int>{kListenersModule + 1});
    publish(two, kListenersModule + 2);
    EXPECT_EQ(recorder.takeIds(1), std::vector<unsigned int>{kListenersModule + 2});
}

TEST(Listener, getsNothingFromBeforeItsTime) {
    kelutv::test::runtimeDir();
    keluem::Publisher publisher;
    EventRecorder other(kOtherModule);
    EXPECT_EQ(publish(publisher, kListenersModule), 0);
    EventRecorder recorder(kListenersModule);
    publish(publisher, kListenersModule + 1);
    EXPECT_EQ(recorder.takeIds(1), std::vector<unsigned int>{kListenersModule + 1});
}

TEST(Listener, getsNothingOnceRemoved) {
    keluem::Publisher publisher;
    EventRecorder other(kOtherModule);
    {
        EventRecorder recorder(kListenersModule);
        publish(publisher, kListenersModule);
        recorder.take(1);
    }
    publish(publisher, kListenersModule);
    publish(publisher, kOtherModule);
    EXPECT_EQ(other.takeIds(1), std::vector<unsigned int>{kOtherModule});
}

std::atomic<int> firstCalls{0};
std::atomic<int> secondCalls{0};

TEST(Listener, replacesTheOneBefore) {
    kelutv::test::runtimeDir();
    keluem::Publisher publisher;
    EXPECT_EQ(EMAL_AddListener(kListenersModule, [](unsigned int, void*, unsigned int, void*) { ++firstCalls; }), 0);
    EXPECT_EQ(EMAL_AddListener(kListenersModule, [](unsigned int, void*, unsigned int, void*) { ++secondCalls; }), 0);
    publish(publisher, kListenersModule);
    EXPECT_TRUE(eventually([] { return secondCalls == 1; }));
    EXPECT_EQ(EMAL_RemoveListener(kListenersModule), 0);
    EXPECT_EQ(EMAL_RemoveListener(kListenersModule), -ENOENT);
    EXPECT_EQ(firstCalls, 0);
}

std::atomic<bool> entered{false};
std::atomic<bool> released{false};
std::atomic<bool> left{false};

void lingeringListener(unsigned int /*id*/, void* /*payload*/, unsigned int /*length*/, void* /*previous*/) {
    entered = true;
    eventually([] { return released.load(); });
    left = true;
}

TEST(Listener, inACallIsWaitedForByItsRemoval) {
    kelutv::test::runtimeDir();
    entered = released = left = false;
    keluem::Publisher publisher;
    ASSERT_EQ(EMAL_AddListener(kListenersModule, lingeringListener), 0);
    publish(publisher, kListenersModule);
    ASSERT_TRUE(eventually([] { return entered.load(); }));
    std::atomic<bool> removing{false};
    std::atomic<bool> leftBeforeReturn{false};
    std::thread remover([&] {
        removing = true;
        EMAL_RemoveListener(kListenersModule);
        leftBeforeReturn = left.load();
    });
    eventually([&] { return removing.load(); });
    released = true;
    remover.join();
    EXPECT_TRUE(leftBeforeReturn);
}

TEST(Listener, inACallDoesNotHoldUpTheRemovalOfOthers) {
    entered = released = left = false;
    keluem::Publisher publisher;
    EventRecorder other(kOtherModule);
    ASSERT_EQ(EMAL_AddListener(kListenersModule, lingeringListener), 0);
    publish(publisher, kListenersModule);
    ASSERT_TRUE(eventually([] { return entered.load(); }));
    EXPECT_EQ(EMAL_RemoveListener(kOtherModule), 0);
    EXPECT_FALSE(left);
    released = true;
    EXPECT_EQ(EMAL_RemoveListener(kListenersModule), 0);
    EXPECT_TRUE(left);
}

std::atomic<int> selfRemoval{1};

void selfRemovingListener(unsigned int /*id*/, void* /*payload*/, unsigned int /*length*/, void* /*previous*/) {
    selfRemoval = EMAL_RemoveListener(kListenersModule);
}

TEST(Listener, mayRemoveItself) {
    keluem::Publisher publisher;
    EventRecorder other(kOtherModule);
    ASSERT_EQ(EMAL_AddListener(kListenersModule, selfRemovingListener), 0);
    publish(publisher, kListenersModule);
    publish(publisher, kListenersModule);
    publish(publisher, kOtherModule);
    EXPECT_EQ(other.takeIds(1).size(), 1U);
    EXPECT_EQ(selfRemoval, 0);
    EXPECT_EQ(EMAL_RemoveListener(kListenersModule), -ENOENT);
}

keluem::Publisher* echoPublisher = nullptr;
std::atomic<int> lateCalls{0};

void echoingListener(unsigned int id, void* /*payload*/, unsigned int /*length*/, void* /*previous*/) {
    EMAL_AddListener(0x90000, [](unsigned int, void*, unsigned int, void*) { ++lateCalls; });
    echoPublisher->publish(kOtherModule + (id & 0xFFFF), nullptr, 0);
    echoPublisher->publish(0x90000, nullptr, 0);
}

TEST(Listener, maySubscribeAndPublish) {
    keluem::Publisher publisher;
    echoPublisher = &publisher;
    EventRecorder other(kOtherModule);
    ASSERT_EQ(EMAL_AddListener(kListenersModule, echoingListener), 0);
    publish(publisher, kListenersModule + 3);
    EXPECT_EQ(other.takeIds(1), std::vector<unsigned int>{kOtherModule + 3});
    EXPECT_TRUE(eventually([] { return lateCalls == 1; }));
    EXPECT_EQ(EMAL_RemoveListener(kListenersModule), 0);
    EXPECT_EQ(EMAL_RemoveListener(0x90000), 0);
}

TEST(Listener, isRefusedWhenItOrItsModuleIsNone) {
    kelutv::test::runtimeDir();
    EXPECT_EQ(EMAL_AddListener(kListenersModule, nullptr), -EINVAL);
    EXPECT_EQ(EMAL_AddListener(kListenersModule + 1, lingeringListener), -EINVAL);
    EXPECT_EQ(EMAL_RemoveListener(kListenersModule + 1), -EINVAL);
    EXPECT_EQ(EMAL_RemoveListener(kListenersModule), -ENOENT);
}

TEST(Listener, comesAndGoesWhileEventsArrive) {
    keluem::Publisher publisher;
    std::atomic<bool> stop{false};
    EventRecorder first(kListenersModule);
    std::thread publishing([&] {
        while (!stop) {
            publish(publisher, kListenersModule);
        }
    });
    for (int i = 0; i < 200; ++i) {
        EXPECT_EQ(EMAL_AddListener(kOtherModule, [](unsigned int, void*, unsigned int, void*) {}), 0);
        EXPECT_EQ(EMAL_RemoveListener(kOtherModule), 0);
    }
    stop = true;
    publishing.join();
}

bool closedOnExec(const std::string& fd) {
    const int flags = ::fcntl(std::stoi(fd), F_GETFD);
    return flags < 0 || (flags & FD_CLOEXEC) != 0;
}

TEST(Listener, leavesNoDescriptorOpenAcrossExec) {
    EventRecorder recorder(kListenersModule);
    keluem::Publisher publisher;
    publish(publisher, kListenersModule);
    recorder.take(1);
    int sockets = 0;
    for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
        std::error_code error;
        const std::string target = std::filesystem::read_symlink(entry.path(), error);
        if (target.rfind("socket:", 0) == 0 || target.rfind("anon_inode:", 0) == 0) {
            EXPECT_TRUE(closedOnExec(entry.path().filename())) << target;
            ++sockets;
        }
    }
    EXPECT_GE(sockets, 5); // listener, both ends of the connection, watch and wake-up
}

} // namespace
