// Publishers and subscribers that run out of descriptors.

#include "Descriptors.h"
#include "EventRecorder.h"
#include "FakeSubscriber.h"
#include "SubscriberProcess.h"
#include "support/Capture.h"

#include <keluem/publisher.h>

#include <cerrno>
#include <vector>

#include <gtest/gtest.h>

namespace {

using kelutv::test::DescriptorShortage;
using kelutv::test::EventRecorder;
using kelutv::test::FakeSubscriber;
using kelutv::test::LogCapture;
using kelutv::test::SubscriberProcess;

constexpr unsigned int kShortageModule = 0x130000;

TEST(PublisherWithoutDescriptors, keepsTheSubscribersThatItHas) {
    EventRecorder recorder(kShortageModule);
    keluem::Publisher publisher;
    ASSERT_EQ(publisher.publish(kShortageModule, nullptr, 0), 0);
    ASSERT_EQ(recorder.takeIds(1).size(), 1U);
    const DescriptorShortage shortage;
    for (unsigned int id = kShortageModule + 1; id < kShortageModule + 100; ++id) {
        ASSERT_EQ(publisher.publish(id, nullptr, 0), 0);
    }
    EXPECT_EQ(recorder.take(99).size(), 99U);
    EXPECT_EQ(publisher.droppedEvents(), 0U);
}

TEST(PublisherWithoutDescriptors, reachesANewSubscriberLater) {
    FakeSubscriber late(".1-late");
    keluem::Publisher publisher;
    ASSERT_EQ(publisher.publish(kShortageModule, nullptr, 0), 0);
    {
        const DescriptorShortage shortage;
        late.rename("1-late");
        EXPECT_EQ(publisher.publish(kShortageModule + 1, nullptr, 0), 0);
        EXPECT_EQ(publisher.publish(kShortageModule + 2, nullptr, 0), 0);
    }
    late.accept();
    EXPECT_EQ(late.nextId(), kShortageModule + 1);
    EXPECT_EQ(late.nextId(), kShortageModule + 2);
    EXPECT_EQ(publisher.publish(kShortageModule + 3, nullptr, 0), 0);
    EXPECT_EQ(late.nextId(), kShortageModule + 3);
    EXPECT_EQ(publisher.droppedEvents(), 0U);
}

TEST(PublisherWithoutDescriptors, countsWhatANewSubscriberLoses) {
    constexpr unsigned int kCount = 3000;
    LogCapture log;
    FakeSubscriber late(".1-late");
    keluem::Publisher publisher;
    ASSERT_EQ(publisher.publish(kShortageModule, nullptr, 0), 0);
    {
        const DescriptorShortage shortage;
        late.rename("1-late");
        for (unsigned int id = kShortageModule; id < kShortageModule + kCount; ++id) {
            ASSERT_EQ(publisher.publish(id, nullptr, 0), 0);
        }
    }
    late.accept({kShortageModule});
    const std::size_t received = late.idsUntil(kShortageModule + kCount - 1).size();
    EXPECT_EQ(received, keluem::kMaxQueuedEvents);
    // What it has lost is known once it has told what it wants, which the publisher has read by its next publication.
    EXPECT_EQ(publisher.publish(0, nullptr, 0), 0);
    EXPECT_EQ(publisher.droppedEvents(), kCount - received);
}

TEST(PublisherWithoutDescriptors, saysWhenItCannotBegin) {
    LogCapture log;
    EventRecorder recorder(kShortageModule);
    keluem::Publisher publisher;
    {
        const DescriptorShortage shortage;
        EXPECT_EQ(publisher.publish(kShortageModule, nullptr, 0), -EMFILE);
    }
    EXPECT_EQ(publisher.publish(kShortageModule + 1, nullptr, 0), 0);
    EXPECT_EQ(recorder.takeIds(1), std::vector<unsigned int>{kShortageModule + 1});
}

TEST(SubscriberWithoutDescriptors, hearsThePublishersThatItHasAndOthersLater) {
    SubscriberProcess process("starved", kShortageModule);
    ASSERT_TRUE(process.ready());
    keluem::Publisher first;
    ASSERT_EQ(first.publish(kShortageModule, "starve", 6), 0);
    ASSERT_TRUE(process.waitFor("starve\n"));
    keluem::Publisher second;
    ASSERT_EQ(second.publish(kShortageModule, "second", 6), 0);
    ASSERT_EQ(first.publish(kShortageModule, "first", 5), 0);
    EXPECT_TRUE(process.waitFor("first\n"));
    ASSERT_EQ(first.publish(kShortageModule, "feed", 4), 0);
    EXPECT_TRUE(process.waitFor("second\n"));
    ASSERT_EQ(first.publish(kShortageModule + 0xFFFF, nullptr, 0), 0);
    EXPECT_EQ(process.process().exitCode(), 0);
}

} // namespace
