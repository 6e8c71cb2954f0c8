// What a listener is promised: every event published after its subscription, once, and none from before.

#include "EventRecorder.h"
#include "support/Deadline.h"

#include <keluem/emal.h>
#include <keluem/publisher.h>

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace {

using kelutv::test::EventRecorder;
using kelutv::test::eventually;

constexpr unsigned int kDeliveredModule = 0x110000;
constexpr unsigned int kOtherModule = 0x120000;

std::mutex mutex;
std::vector<std::uint64_t> numbers;

void recordNumber(unsigned int /*id*/, void* payload, unsigned int length, void* /*previous*/) {
    std::uint64_t number = 0;
    std::memcpy(&number, payload, std::min<std::size_t>(length, sizeof(number)));
    const std::lock_guard<std::mutex> lock(mutex);
    numbers.push_back(number);
}

std::vector<std::uint64_t> takeNumbers() {
    const std::lock_guard<std::mutex> lock(mutex);
    return std::exchange(numbers, {});
}

bool received(std::uint64_t number) {
    const std::lock_guard<std::mutex> lock(mutex);
    return std::find(numbers.begin(), numbers.end(), number) != numbers.end();
}

std::atomic<std::uint64_t> beats{0};

/** Publishes numbered events on a thread of its own for as long as the object lives. */
class NumberedEvents {
public:
    /** Takes a new publisher after every `eventsOfOne` events. */
    explicit NumberedEvents(std::uint64_t eventsOfOne) {
        kelutv::test::runtimeDir();
        EMAL_AddListener(kOtherModule, [](unsigned int, void*, unsigned int, void*) { ++beats; });
        mThread = std::thread([=] { run(eventsOfOne); });
    }
    ~NumberedEvents() {
        mStop = true;
        mThread.join();
        EMAL_RemoveListener(kOtherModule);
    }
    NumberedEvents(const NumberedEvents&) = delete;
    NumberedEvents& operator=(const NumberedEvents&) = delete;

    /** The first number whose publication has certainly not begun yet. */
    std::uint64_t next() const { return mBegun + 1; }

    bool failed() const { return mFailed; }

private:
    void run(std::uint64_t eventsOfOne) {
        auto publisher = std::make_unique<keluem::Publisher>();
        while (!mStop && !mFailed) {
            const std::uint64_t number = ++mBegun;
            mFailed = publisher->publish(kDeliveredModule, &number, sizeof(number)) != 0;
            if (number % kAhead == 0) {
                awaitBeat(*publisher);
            }
            if (number % eventsOfOne == 0) {
                mFailed = mFailed || publisher->droppedEvents() > 0;
                publisher = std::make_unique<keluem::Publisher>();
            }
        }
        mFailed = mFailed || publisher->droppedEvents() > 0;
    }

    /** Lets the subscriber catch up: nothing may be lost because it is slow. */
    void awaitBeat(keluem::Publisher& publisher) {
        const std::uint64_t before = beats;
        mFailed = publisher.publish(kOtherModule, nullptr, 0) != 0 || !eventually([=] { return beats > before; });
    }

    static constexpr std::uint64_t kAhead = 100;

    std::atomic<std::uint64_t> mBegun{0};
    std::atomic<bool> mFailed{false};
    std::atomic<bool> mStop{false};
    std::thread mThread;
};

/** Subscribes, sees that everything from the subscription on comes, once and without a gap, and unsubscribes. */
void expectEverythingFromHereOn(const NumberedEvents& events) {
    ASSERT_EQ(EMAL_AddListener(kDeliveredModule, recordNumber), 0);
    const std::uint64_t first = events.next();
    const std::uint64_t last = first + 20;
    const bool came = eventually([=] { return received(last); });
    ASSERT_EQ(EMAL_RemoveListener(kDeliveredModule), 0);
    std::vector<std::uint64_t> got = takeNumbers();
    ASSERT_TRUE(came) << "from " << first;
    std::sort(got.begin(), got.end());
    const auto start = std::find(got.begin(), got.end(), first);
    ASSERT_NE(start, got.end()) << "the first is missing";
    for (auto number = start; *number != last; ++number) {
        ASSERT_EQ(*(number + 1), *number + 1);
    }
}

TEST(Delivery, beginsWithTheSubscriptionWhileEventsArrive) {
    const NumberedEvents events(1000000);
    for (int round = 0; round < 200 && !HasFatalFailure(); ++round) {
        expectEverythingFromHereOn(events);
    }
    EXPECT_FALSE(events.failed());
}

TEST(Delivery, beginsWithTheSubscriptionWhilePublishersComeAndGo) {
    const NumberedEvents events(7);
    for (int round = 0; round < 20 && !HasFatalFailure(); ++round) {
        expectEverythingFromHereOn(events);
    }
    EXPECT_FALSE(events.failed());
}

TEST(Delivery, neverBringsWhatWasPublishedBefore) {
    EventRecorder other(kOtherModule);
    for (int round = 0; round < 100; ++round) {
        keluem::Publisher publisher;
        ASSERT_EQ(publisher.publish(kDeliveredModule + 1, nullptr, 0), 0);
        ASSERT_EQ(publisher.publish(kDeliveredModule + 2, nullptr, 0), 0);
        EventRecorder recorder(kDeliveredModule);
        ASSERT_EQ(publisher.publish(kDeliveredModule + 3, nullptr, 0), 0);
        ASSERT_EQ(recorder.takeIds(1), std::vector<unsigned int>{kDeliveredModule + 3});
    }
}

TEST(Delivery, doesNotNeedThePublisherToStay) {
    EventRecorder recorder(kDeliveredModule);
    for (unsigned int id = kDeliveredModule; id < kDeliveredModule + 100; ++id) {
        ASSERT_EQ(keluem::Publisher().publish(id, "x", 1), 0);
        ASSERT_EQ(recorder.takeIds(1), std::vector<unsigned int>{id});
    }
}

std::atomic<bool> entered{false};
std::atomic<bool> released{false};

TEST(Delivery, waitsForNoPublisherWhileAListenerIsStuck) {
    kelutv::test::runtimeDir();
    const auto stuck = [](unsigned int, void*, unsigned int, void*) {
        entered = true;
        eventually([] { return released.load(); });
    };
    ASSERT_EQ(EMAL_AddListener(kOtherModule, stuck), 0);
    keluem::Publisher first;
    ASSERT_EQ(first.publish(kOtherModule, nullptr, 0), 0);
    ASSERT_TRUE(eventually([] { return entered.load(); }));
    {
        keluem::Publisher second; // whose connection nobody accepts for now
        ASSERT_EQ(second.publish(kDeliveredModule, nullptr, 0), 0);
        EventRecorder recorder(kDeliveredModule);
        ASSERT_EQ(second.publish(kDeliveredModule + 1, nullptr, 0), 0);
        ASSERT_EQ(first.publish(kDeliveredModule + 2, nullptr, 0), 0);
        released = true;
        std::vector<unsigned int> ids = recorder.takeIds(2);
        std::sort(ids.begin(), ids.end());
        EXPECT_EQ(ids, (std::vector<unsigned int>{kDeliveredModule + 1, kDeliveredModule + 2}));
    }
    EXPECT_EQ(EMAL_RemoveListener(kOtherModule), 0);
}

} // namespace
