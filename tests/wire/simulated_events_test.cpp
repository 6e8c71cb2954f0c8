#include "wire/events/EventTable.h"

#include <kelutv-simulator/events.h>

#include <gtest/gtest.h>

namespace kelutv::wire {

namespace {

TEST(SimulatedEvents, HaveTheIdentifiersOfTheirHeader) {
    const EventTable events(simulatedEvents());
    EXPECT_STREQ(events.find(KELU_SIM_EVENT_VOLUME_CHANGED)->name, "volumeChanged");
    EXPECT_STREQ(events.find(KELU_SIM_EVENT_CEC_PLAYING_CHANGED)->name, "cecPlayingChanged");
    EXPECT_STREQ(events.find(KELU_SIM_EVENT_VBI_BLOCK_LAST)->name, "vbiBlock");
    EXPECT_EQ(events.find(KELU_SIM_EVENT_VBI_BLOCK_LAST + 1U), nullptr);
}

TEST(SimulatedEvents, AreOfModulesThatApplicationsCanSubscribeTo) {
    for (const Event& event : simulatedEvents()) {
        EXPECT_TRUE(isEventModule(moduleOf(event.first))) << event.name;
        EXPECT_EQ(moduleOf(event.first), moduleOf(event.last)) << event.name;
    }
}

} // namespace

} // namespace kelutv::wire
