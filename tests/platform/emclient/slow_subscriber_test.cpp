#include "EventRecorder.h"
#include "FakeSubscriber.h"
#include "support/Capture.h"

#include <keluem/publisher.h>

#include <algorithm>
#include <numeric>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

using kelutv::test::EventRecorder;
using kelutv::test::FakeSubscriber;
using kelutv::test::LogCapture;
using kelutv::test::LogEntry;

constexpr unsigned int kSlowSubscribersModule = 0xA0000;

void publishRange(keluem::Publisher& publisher, unsigned int first, unsigned int count, const std::string& payload) {
    for (unsigned int id = first; id < first + count; ++id) {
        ASSERT_EQ(publisher.publish(id, payload.data(), payload.size()), 0);
    }
}

/** Makes the publisher find the subscriber, which says that it wants the module. */
void link(keluem::Publisher& publisher, FakeSubscriber& subscriber, unsigned int module) {
    ASSERT_EQ(publisher.publish(0, nullptr, 0), 0);
    subscriber.accept({module});
    ASSERT_EQ(subscriber.nextId(), 0U);
}

std::vector<unsigned int> idsFrom(unsigned int first, std::size_t count) {
    std::vector<unsigned int> ids(count);
    std::iota(ids.begin(), ids.end(), first);
    return ids;
}

std::size_t overflowLines(LogCapture& log) {
    const std::vector<LogEntry> entries = log.take();
    return static_cast<std::size_t>(std::count_if(entries.begin(), entries.end(), [](const LogEntry& entry) {
        return entry.tag == "keluem" && entry.text.find("does not keep up") != std::string::npos;
    }));
}

/** Checks that `ids` begins the range and ends with its last `queued`, with everything between dropped. */
void expectHeadAndTail(const std::vector<unsigned int>& ids, unsigned int first, unsigned int count,
                       std::size_t queued) {
    ASSERT_GT(ids.size(), queued);
    const std::size_t head = ids.size() - queued;
    EXPECT_EQ(std::vector<unsigned int>(ids.begin(), ids.end() - static_cast<long>(queued)), idsFrom(first, head));
    EXPECT_EQ(std::vector<unsigned int>(ids.end() - static_cast<long>(queued), ids.end()),
              idsFrom(first + count - static_cast<unsigned int>(queued), queued));
}

TEST(SlowSubscriber, losesTheOldestBeyondTheBoundOfEvents) {
    constexpr unsigned int kCount = 5000;
    LogCapture log;
    FakeSubscriber slow("1-slow");
    keluem::Publisher publisher;
    link(publisher, slow, kSlowSubscribersModule);
    publishRange(publisher, kSlowSubscribersModule, kCount, "sixteen bytes ..");
    const std::uint64_t dropped = publisher.droppedEvents();
    const std::vector<unsigned int> ids = slow.idsUntil(kSlowSubscribersModule + kCount - 1);
    expectHeadAndTail(ids, kSlowSubscribersModule, kCount, keluem::kMaxQueuedEvents);
    EXPECT_EQ(ids.size() + dropped, kCount);
    EXPECT_EQ(publisher.droppedEvents(), dropped);
    EXPECT_EQ(overflowLines(log), 1U);
}

TEST(SlowSubscriber, losesTheOldestBeyondTheBoundOfPayload) {
    constexpr unsigned int kCount = 100;
    FakeSubscriber slow("1-slow");
    LogCapture log;
    keluem::Publisher publisher;
    link(publisher, slow, kSlowSubscribersModule);
    publishRange(publisher, kSlowSubscribersModule, kCount, std::string(keluem::kMaxPayload, 'x'));
    const std::uint64_t dropped = publisher.droppedEvents();
    const std::vector<unsigned int> ids = slow.idsUntil(kSlowSubscribersModule + kCount - 1);
    expectHeadAndTail(ids, kSlowSubscribersModule, kCount, keluem::kMaxQueuedPayload / keluem::kMaxPayload);
    EXPECT_EQ(ids.size() + dropped, kCount);
}

TEST(SlowSubscriber, losesNothingThatItDoesNotWant) {
    LogCapture log;
    FakeSubscriber slow("1-slow");
    keluem::Publisher publisher;
    publishRange(publisher, kSlowSubscribersModule, 4000, "sixteen bytes ..");
    publishRange(publisher, kSlowSubscribersModule + 0x10000, 4000, "sixteen bytes ..");
    EXPECT_EQ(publisher.droppedEvents(), 0U); // it may want neither
    EXPECT_EQ(overflowLines(log), 0U);
    slow.accept({kSlowSubscribersModule + 0x10000});
    std::vector<unsigned int> ids = slow.idsUntil(kSlowSubscribersModule + 0x10000 + 3999);
    const auto isWanted = [](unsigned int id) { return id >= kSlowSubscribersModule + 0x10000; };
    const auto wanted = std::count_if(ids.begin(), ids.end(), isWanted);
    EXPECT_EQ(static_cast<std::uint64_t>(wanted) + publisher.droppedEvents(), 4000U);
    EXPECT_EQ(overflowLines(log), 1U);
}

TEST(SlowSubscriber, isNamedOncePerOverflow) {
    LogCapture log;
    FakeSubscriber slow("1-slow");
    keluem::Publisher publisher;
    link(publisher, slow, kSlowSubscribersModule);
    publishRange(publisher, kSlowSubscribersModule, 4000, "x");
    slow.idsUntil(kSlowSubscribersModule + 3999);
    EXPECT_EQ(overflowLines(log), 1U);
    publishRange(publisher, kSlowSubscribersModule + 5000, 4000, "x");
    EXPECT_EQ(overflowLines(log), 1U);
}

TEST(SlowSubscriber, holdsUpNobodyElse) {
    LogCapture log;
    FakeSubscriber slow("1-slow");
    EventRecorder prompt(kSlowSubscribersModule);
    keluem::Publisher publisher;
    link(publisher, slow, kSlowSubscribersModule);
    for (unsigned int first = 0; first < 5000; first += 500) {
        publishRange(publisher, kSlowSubscribersModule + first, 500, "x");
        EXPECT_EQ(prompt.takeIds(500), idsFrom(kSlowSubscribersModule + first, 500));
    }
    EXPECT_GT(publisher.droppedEvents(), 0U);
}

TEST(SlowSubscriber, thatCatchesUpGetsEventsInOrder) {
    FakeSubscriber slow("1-slow");
    keluem::Publisher publisher;
    link(publisher, slow, kSlowSubscribersModule);
    publishRange(publisher, kSlowSubscribersModule, 800, std::string(1000, 'x'));
    EXPECT_EQ(slow.idsUntil(kSlowSubscribersModule + 799), idsFrom(kSlowSubscribersModule, 800));
    publishRange(publisher, kSlowSubscribersModule + 800, 10, "x");
    EXPECT_EQ(slow.idsUntil(kSlowSubscribersModule + 809), idsFrom(kSlowSubscribersModule + 800, 10));
    EXPECT_EQ(publisher.droppedEvents(), 0U);
}

TEST(SlowSubscriber, withAFullBacklogIsReachedLater) {
    FakeSubscriber slow("1-slow");
    slow.limitBacklog(1);
    keluem::Publisher first;
    keluem::Publisher second;
    EXPECT_EQ(first.publish(kSlowSubscribersModule + 1, nullptr, 0), 0);
    EXPECT_EQ(second.publish(kSlowSubscribersModule + 2, nullptr, 0), 0);
    EXPECT_EQ(second.publish(kSlowSubscribersModule + 3, nullptr, 0), 0);
    slow.accept();
    EXPECT_EQ(slow.nextId(), kSlowSubscribersModule + 1);
    slow.accept();
    EXPECT_EQ(slow.idsUntil(kSlowSubscribersModule + 3),
              (std::vector<unsigned int>{kSlowSubscribersModule + 2, kSlowSubscribersModule + 3}));
}

TEST(SlowSubscriber, isForgottenWhenItDies) {
    LogCapture log;
    FakeSubscriber slow("1-slow");
    keluem::Publisher publisher;
    link(publisher, slow, kSlowSubscribersModule);
    publishRange(publisher, kSlowSubscribersModule, 3000, "x");
    slow.die();
    EXPECT_EQ(publisher.publish(kSlowSubscribersModule, nullptr, 0), 0);
    const std::uint64_t dropped = publisher.droppedEvents();
    publishRange(publisher, kSlowSubscribersModule, 3000, "x");
    EXPECT_EQ(publisher.droppedEvents(), dropped);
}

} // namespace
