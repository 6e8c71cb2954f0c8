#include "tools/kelutv/events/EventQueue.h"

#include <poll.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <map>
#include <thread>
#include <vector>

namespace kelutv::test {
namespace {

using tool::EventQueue;

constexpr int kLimitMs = 10000;
constexpr std::uint8_t kEvents = 200;

bool becomesReadable(const EventQueue& queue) {
    pollfd readable{queue.fd(), POLLIN, 0};
    return ::poll(&readable, 1, kLimitMs) == 1;
}

void putNumbered(std::uint32_t id) {
    for (std::uint8_t number = 0; number < kEvents; ++number) {
        EventQueue::instance().put(id, &number, sizeof(number));
    }
}

std::vector<std::uint8_t> numbersUpTo(std::uint8_t count) {
    std::vector<std::uint8_t> numbers;
    for (std::uint8_t number = 0; number < count; ++number) {
        numbers.push_back(number);
    }
    return numbers;
}

TEST(EventQueueTest, keepsTheOrderOfEachThread) {
    EventQueue& queue = EventQueue::instance();
    std::thread one(putNumbered, 1);
    std::thread two(putNumbered, 2);
    std::map<std::uint32_t, std::vector<std::uint8_t>> taken;
    while ((taken[1].size() < kEvents || taken[2].size() < kEvents) && becomesReadable(queue)) {
        for (const tool::ReceivedEvent& event : queue.take()) {
            taken[event.id].insert(taken[event.id].end(), event.payload.begin(), event.payload.end());
        }
    }
    one.join();
    two.join();
    EXPECT_EQ(taken[1], numbersUpTo(kEvents));
    EXPECT_EQ(taken[2], numbersUpTo(kEvents));
    EXPECT_EQ(taken.size(), 2U);
}

TEST(EventQueueTest, wakesForTheLoss) {
    EventQueue& queue = EventQueue::instance();
    EXPECT_FALSE(queue.isLost());
    std::thread other([&queue] { queue.putLoss(); });
    EXPECT_TRUE(becomesReadable(queue));
    other.join();
    EXPECT_TRUE(queue.isLost());
    EXPECT_TRUE(queue.take().empty());
}

} // namespace
} // namespace kelutv::test
