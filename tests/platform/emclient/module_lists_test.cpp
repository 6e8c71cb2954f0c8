// What a subscriber tells its publishers of the modules that it wants.

#include "EventRecorder.h"
#include "FakePublisher.h"
#include "support/Deadline.h"

#include <keluem/emal.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstddef>
#include <vector>

#include <gtest/gtest.h>

namespace {

using kelutv::test::EventRecorder;
using kelutv::test::eventually;
using kelutv::test::FakePublisher;
using kelutv::test::Words;

constexpr unsigned int kListedModule = 0x140000;
constexpr unsigned int kVersion = 1;
constexpr unsigned int kEverything = 0xFFFFFFFF;
constexpr std::size_t kMostModules = 1024;

void ignore(unsigned int /*id*/, void* /*payload*/, unsigned int /*length*/, void* /*previous*/) {}

TEST(Subscriber, tellsEveryPublisherWhatItWants) {
    EventRecorder recorder(kListedModule);
    const FakePublisher publisher;
    EXPECT_EQ(publisher.next(), (Words{kVersion, 1, kListedModule}));
    ASSERT_EQ(EMAL_AddListener(0x10000, ignore), 0);
    EXPECT_EQ(publisher.received(), (Words{kVersion, 2, 0x10000, kListedModule}));
    ASSERT_EQ(EMAL_RemoveListener(0x10000), 0);
    EXPECT_EQ(publisher.received(), (Words{kVersion, 1, kListedModule}));
    EXPECT_EQ(publisher.received(), Words{});
}

TEST(Subscriber, tellsOfListenersThatComeTogetherAtOnce) {
    const Words others{0x10000, 0x20000, 0x30000, 0x40000, 0x50000, 0x60000};
    EventRecorder recorder(kListedModule);
    // Again where this thread was held up between them.
    EXPECT_TRUE(eventually([&] {
        const FakePublisher publisher;
        for (const unsigned int module : others) {
            EXPECT_EQ(EMAL_AddListener(module, ignore), 0);
        }
        const Words told = publisher.next();
        for (const unsigned int module : others) {
            EXPECT_EQ(EMAL_RemoveListener(module), 0);
        }
        return told == Words{kVersion, 7, 0x10000, 0x20000, 0x30000, 0x40000, 0x50000, 0x60000, kListedModule};
    }));
}

TEST(Subscriber, listensToNoMoreModulesThanAListHolds) {
    EventRecorder recorder(kListedModule);
    const FakePublisher publisher;
    EXPECT_EQ(publisher.next(), (Words{kVersion, 1, kListedModule}));
    unsigned int added = 0;
    while (EMAL_AddListener(0x1000000 + added * 0x10000, ignore) == 0) {
        publisher.received();
        ++added;
    }
    EXPECT_EQ(added + 1, kMostModules);
    EXPECT_EQ(EMAL_AddListener(0x10000, ignore), -ENOSPC);
    EXPECT_EQ(EMAL_RemoveListener(0x10000), -ENOENT);
    EXPECT_EQ(EMAL_AddListener(0x1000000, ignore), 0); // replaces one
    for (unsigned int i = 0; i < added; ++i) {
        EXPECT_EQ(EMAL_RemoveListener(0x1000000 + i * 0x10000), 0);
    }
}

/** The packets that wait for a publisher. */
std::vector<Words> takeAll(const FakePublisher& publisher) {
    std::vector<Words> packets;
    for (Words words = publisher.received(); !words.empty(); words = publisher.received()) {
        packets.push_back(words);
    }
    return packets;
}

TEST(Subscriber, asksAPublisherThatStandsStillForEverything) {
    EventRecorder recorder(kListedModule);
    const FakePublisher publisher;
    EXPECT_EQ(publisher.next(), (Words{kVersion, 1, kListedModule}));
    for (int i = 0; i < 2000; ++i) {
        ASSERT_EQ(EMAL_AddListener(0x10000, ignore), 0);
        ASSERT_EQ(EMAL_RemoveListener(0x10000), 0);
    }
    ASSERT_EQ(EMAL_AddListener(0x20000, ignore), 0);
    const std::vector<Words> packets = takeAll(publisher);
    ASSERT_FALSE(packets.empty());
    EXPECT_NE(std::find(packets.begin(), packets.end(), Words{kVersion, kEverything}), packets.end());
    const Words last = packets.back();
    EXPECT_TRUE(last == (Words{kVersion, kEverything}) || last == (Words{kVersion, 2, 0x20000, kListedModule}));
    if (last == Words{kVersion, kEverything}) {
        EXPECT_EQ(publisher.next(), (Words{kVersion, 2, 0x20000, kListedModule})); // now that it has read
    }
    EXPECT_EQ(EMAL_RemoveListener(0x20000), 0);
}

TEST(Subscriber, tellsAPublisherThatStandsStillNoMoreListsThanItReads) {
    constexpr std::size_t kMostUnread = 256;
    EventRecorder recorder(kListedModule);
    const FakePublisher still;
    for (int round = 0; round < 300; ++round) {
        const FakePublisher passing;
        ASSERT_TRUE(passing.sendEvent(kListedModule)); // it is told before that is delivered
        ASSERT_FALSE(passing.next().empty());
        ASSERT_EQ(EMAL_AddListener(0x10000, ignore), 0) << round;
        ASSERT_EQ(EMAL_RemoveListener(0x10000), 0);
    }
    const std::vector<Words> packets = takeAll(still);
    ASSERT_FALSE(packets.empty());
    EXPECT_LT(packets.size(), kMostUnread);
    const bool isToldLater = packets.back() == Words{kVersion, kEverything}; // now that it has read
    EXPECT_EQ(isToldLater ? still.next() : packets.back(), (Words{kVersion, 1, kListedModule}));
}

std::atomic<int> delivered{0};
std::atomic<bool> released{false};
std::atomic<const FakePublisher*> newcomer{nullptr};
Words toldBefore;

/** Waits with the second event, and notes with the third what the newcomer has been told. */
void holdingListener(unsigned int /*id*/, void* /*payload*/, unsigned int /*length*/, void* /*previous*/) {
    if (delivered == 2) {
        toldBefore = newcomer.load()->received();
    }
    if (++delivered == 2) {
        eventually([] { return released.load(); });
    }
}

TEST(Subscriber, tellsAPublisherWhatItWantsBeforeItDeliversAnEventThatCameAtTheSameTime) {
    kelutv::test::runtimeDir();
    delivered = 0;
    released = false;
    ASSERT_EQ(EMAL_AddListener(kListedModule, holdingListener), 0);
    const FakePublisher first;
    const FakePublisher second;
    ASSERT_EQ(first.next(), (Words{kVersion, 1, kListedModule}));
    ASSERT_EQ(second.next(), (Words{kVersion, 1, kListedModule}));
    // Nothing of the second waits any more when the newcomer connects, who thus comes before its event.
    ASSERT_TRUE(second.sendEvent(kListedModule));
    ASSERT_TRUE(eventually([] { return delivered == 1; }));
    ASSERT_TRUE(first.sendEvent(kListedModule));
    ASSERT_TRUE(eventually([] { return delivered == 2; }));
    const FakePublisher third;
    newcomer = &third;
    EXPECT_TRUE(second.sendEvent(kListedModule));
    released = true;
    EXPECT_TRUE(eventually([] { return delivered == 3; }));
    EXPECT_EQ(EMAL_RemoveListener(kListedModule), 0);
    EXPECT_EQ(toldBefore, (Words{kVersion, 1, kListedModule}));
}

} // namespace
