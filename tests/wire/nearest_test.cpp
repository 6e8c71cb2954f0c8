#include "wire/text/Nearest.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace kelutv::wire {

namespace {

using Names = std::vector<std::string>;

TEST(Nearest, AreTheNamesWithFewChanges) {
    EXPECT_EQ(nearestNames("hdmi", {"atv", "hdmi1", "vga"}), Names{"hdmi1"});
    EXPECT_EQ(nearestNames("VOLUME", {"mute", "volume"}), Names{"volume"});
    EXPECT_EQ(nearestNames("voluem", {"volume"}), Names{"volume"});
    EXPECT_EQ(nearestNames("volume", {"volumeUp", "maxVolume", "volumes"}),
              (Names{"volumes", "volumeUp", "maxVolume"}));
    EXPECT_EQ(nearestNames("brightness", {"mute", "volume"}), Names{});
}

TEST(Nearest, EndAMessage) {
    EXPECT_EQ(nearestHint("mut", {"mute"}), "; nearest: mute");
    EXPECT_EQ(nearestHint("volum", {"volume", "volumes"}), "; nearest: volume, volumes");
    EXPECT_EQ(nearestHint("", {"volume"}), "");
}

} // namespace

} // namespace kelutv::wire
