// A subscriber whose thread that delivers events has no memory.

#include "EventRecorder.h"
#include "FakePublisher.h"
#include "support/Deadline.h"

#include <keluem/emal.h>

#include <atomic>
#include <cstddef>
#include <cstdlib>
#include <new>

#include <gtest/gtest.h>

namespace {

std::atomic<bool> shortage{false};
std::atomic<int> refusals{0};
thread_local bool tConcerned = false;

bool refused() {
    const bool refuses = tConcerned && shortage;
    refusals += refuses ? 1 : 0;
    return refuses;
}

} // namespace

// All that a sanitizer would compare with each other.
void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
    return refused() ? nullptr : std::malloc(size == 0 ? 1 : size);
}
void* operator new(std::size_t size) {
    void* const block = operator new(size, std::nothrow);
    return block != nullptr ? block : throw std::bad_alloc();
}
void operator delete(void* block) noexcept { std::free(block); }
void operator delete(void* block, std::size_t /*size*/) noexcept { std::free(block); }
void operator delete(void* block, const std::nothrow_t& /*tag*/) noexcept { std::free(block); }

namespace {

using kelutv::test::eventually;
using kelutv::test::FakePublisher;
using kelutv::test::Words;

constexpr unsigned int kMemoryShortageModule = 0x150000;
constexpr unsigned int kOtherModule = 0x160000;

std::atomic<int> delivered{0};
std::atomic<bool> connected{false};

void ignore(unsigned int /*id*/, void* /*payload*/, unsigned int /*length*/, void* /*previous*/) {}

/** With the first event takes the connection that comes meanwhile, and then all memory from its thread. */
void starvingListener(unsigned int /*id*/, void* /*payload*/, unsigned int /*length*/, void* /*previous*/) {
    if (++delivered == 1) {
        eventually([] { return connected.load(); });
        EMAL_AddListener(kOtherModule, ignore);
        tConcerned = true;
        shortage = true;
    }
}

TEST(SubscriberWithoutMemory, deliversAndTellsItsPublishersLater) {
    kelutv::test::runtimeDir();
    delivered = refusals = 0;
    connected = false;
    ASSERT_EQ(EMAL_AddListener(kMemoryShortageModule, starvingListener), 0);
    const FakePublisher first;
    ASSERT_TRUE(first.sendEvent(kMemoryShortageModule));
    ASSERT_TRUE(eventually([] { return delivered == 1; }));
    const FakePublisher second;
    EXPECT_TRUE(second.sendEvent(kMemoryShortageModule));
    connected = true;
    EXPECT_TRUE(eventually([] { return delivered == 2; })) << "an event that came needs no memory";
    EXPECT_TRUE(eventually([] { return refusals >= 2; })) << "the list is tried again";
    EXPECT_EQ(second.received(), Words{});
    shortage = false;
    EXPECT_EQ(second.next(), (Words{1, 2, kMemoryShortageModule, kOtherModule}));
    EXPECT_EQ(EMAL_RemoveListener(kOtherModule), 0);
    EXPECT_EQ(EMAL_RemoveListener(kMemoryShortageModule), 0);
}

} // namespace
