#include "client/ClientTest.h"
#include "client/EventRecorder.h"

#include <kelutv/link/TVBaseClient.h>

namespace kelutv::test {
namespace {

constexpr unsigned int kLastRemovedModule = 0x40000;

TEST_F(ClientTest, eventsEndWithTheService) {
    EventRecorder events;
    android::TVBaseClient::registCallback([](unsigned int id, void* msg, unsigned int length, void* prev) {
        EventRecorder::first(static_cast<int>(id), msg, length, prev);
    });
    ASSERT_TRUE(eventually([&] {
        events.publish(kLastRemovedModule);
        return events.received().empty();
    }));
    for (const unsigned int module : {0x10000U, 0x30000U, 0x50000U, 0x60000U, 0x80000U, 0x1A0000U, 0x40000U}) {
        events.publish(module);
    }
    EXPECT_EQ(events.received(), std::vector<Event>());
}

} // namespace
} // namespace kelutv::test
