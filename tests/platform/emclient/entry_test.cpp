// A subscriber's entry in the event room, when somebody removes it.

#include "EventRecorder.h"
#include "support/Deadline.h"

#include <keluem/publisher.h>

#include <filesystem>
#include <vector>

#include <gtest/gtest.h>

namespace {

using kelutv::test::EventRecorder;
using kelutv::test::eventually;

constexpr unsigned int kEntryModule = 0x150000;

/** Longer than the five seconds after which a process looks for its entry. */
constexpr std::chrono::milliseconds kNextLook{15000};

void removeEntries() {
    for (const std::string& name : kelutv::test::eventEntries()) {
        std::filesystem::remove(kelutv::test::eventRoom() + '/' + name);
    }
}

TEST(RemovedEntry, costsNoConnection) {
    EventRecorder recorder(kEntryModule);
    keluem::Publisher publisher;
    ASSERT_EQ(publisher.publish(kEntryModule, nullptr, 0), 0);
    removeEntries();
    for (unsigned int id = kEntryModule + 1; id < kEntryModule + 100; ++id) {
        ASSERT_EQ(publisher.publish(id, nullptr, 0), 0);
    }
    EXPECT_EQ(recorder.take(100).size(), 100U);
}

TEST(RemovedEntry, isMadeAgainByTheNextListener) {
    EventRecorder recorder(kEntryModule);
    keluem::Publisher before;
    ASSERT_EQ(before.publish(kEntryModule, nullptr, 0), 0);
    removeEntries();
    EventRecorder other(kEntryModule + 0x10000);
    EXPECT_EQ(kelutv::test::eventEntries().size(), 1U);
    keluem::Publisher after;
    ASSERT_EQ(before.publish(kEntryModule + 1, nullptr, 0), 0); // not twice
    ASSERT_EQ(before.publish(kEntryModule + 2, nullptr, 0), 0);
    EXPECT_EQ(recorder.takeIds(3), (std::vector<unsigned int>{kEntryModule, kEntryModule + 1, kEntryModule + 2}));
    ASSERT_EQ(after.publish(kEntryModule + 3, nullptr, 0), 0);
    EXPECT_EQ(recorder.takeIds(1), std::vector<unsigned int>{kEntryModule + 3});
}

TEST(RemovedEntry, isMadeAgainInTime) {
    EventRecorder recorder(kEntryModule);
    std::filesystem::remove_all(kelutv::test::eventRoom());
    const auto isThere = [] {
        return std::filesystem::exists(kelutv::test::eventRoom()) && kelutv::test::eventEntries().size() == 1;
    };
    ASSERT_TRUE(eventually(isThere, kNextLook));
    keluem::Publisher publisher;
    ASSERT_EQ(publisher.publish(kEntryModule, nullptr, 0), 0);
    EXPECT_EQ(recorder.takeIds(1), std::vector<unsigned int>{kEntryModule});
}

} // namespace
