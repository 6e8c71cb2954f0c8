#include "wire/text/Nearest.h"

#include <gtest/gtest.h>

#include <chrono>
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

TEST(Nearest, TakeNoLongerForLongWords) {
    const std::vector<std::string> names(2000, "KELU_TV_A_NAME_AS_LONG_AS_THE_LONGEST");
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(nearestNames(std::string(256 * 1024, 'A'), names), Names{});
    // Comparing letter by letter takes minutes.
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
}

} // namespace

} // namespace kelutv::wire
