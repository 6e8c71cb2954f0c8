#include "wire/text/Pattern.h"

#include <gtest/gtest.h>

#include <string>

namespace kelutv::wire {

namespace {

TEST(Pattern, WithoutWildcardsIsAPieceOfAName) {
    EXPECT_TRUE(Pattern("volume").matches("audio.maxVolume"));
    EXPECT_TRUE(Pattern("GETVOL").matches("CMD_AUDIO_GETVOLUME"));
    EXPECT_TRUE(Pattern("").matches("anything"));
    EXPECT_FALSE(Pattern("volumes").matches("audio.maxVolume"));
}

TEST(Pattern, MeansANameInFullOnly) {
    const Pattern pattern("cmd_audio_setvolume", {"CMD_AUDIO_SETVOLUME", "CMD_AUDIO_SETVOLUME_C"});
    EXPECT_TRUE(pattern.matches("CMD_AUDIO_SETVOLUME"));
    EXPECT_FALSE(pattern.matches("CMD_AUDIO_SETVOLUME_C"));
    EXPECT_TRUE(Pattern("SETVOLUME", {"CMD_AUDIO_SETVOLUME"}).matches("CMD_AUDIO_SETVOLUME_C"));
}

TEST(Pattern, HasWildcards) {
    EXPECT_TRUE(Pattern("*VOLUME").matches("audio.maxVolume"));
    EXPECT_TRUE(Pattern("a*.*v*e").matches("audio.maxVolume"));
    EXPECT_TRUE(Pattern("volum?").matches("volume"));
    EXPECT_FALSE(Pattern("volume?").matches("volume"));
    EXPECT_FALSE(Pattern("volume*x").matches("audio.maxVolume"));
    EXPECT_FALSE(Pattern("*vol").matches("volume"));
    EXPECT_FALSE(Pattern("?").matches(""));
    EXPECT_TRUE(Pattern("**").matches(""));
}

TEST(Pattern, HasSetsOfCharacters) {
    EXPECT_TRUE(Pattern("hdmi[12]").matches("hdmi2"));
    EXPECT_TRUE(Pattern("hdmi[1-4]").matches("HDMI3"));
    EXPECT_FALSE(Pattern("hdmi[1-4]").matches("hdmi5"));
    EXPECT_TRUE(Pattern("hdmi[!1-4]").matches("hdmi5"));
    EXPECT_TRUE(Pattern("x[]a]").matches("x]"));
    EXPECT_TRUE(Pattern("[a-]*").matches("-x"));
    EXPECT_TRUE(Pattern("a[").matches("a["));
    EXPECT_TRUE(Pattern("*[b").matches("a[b"));
}

TEST(Pattern, TakesNoLongTime) {
    const std::string name(5000, 'a');
    std::string pattern;
    for (int i = 0; i < 500; ++i) {
        pattern += "*a";
    }
    EXPECT_FALSE(Pattern(pattern + "b").matches(name));
    EXPECT_TRUE(Pattern(pattern).matches(name));
}

TEST(Pattern, MeansNothingWhenItIsTooLong) {
    EXPECT_TRUE(Pattern(std::string(1024, '*')).matches("audio.volume"));
    EXPECT_FALSE(Pattern(std::string(1025, '*')).matches("audio.volume"));
    EXPECT_FALSE(Pattern(std::string(1025, 'a'), {std::string(1025, 'a')}).matches(std::string(1025, 'a')));
}

TEST(Pattern, LooksThroughSeveralNames) {
    EXPECT_TRUE(Pattern("mute").matchesAny({"audio.volume", "audio.mute"}));
    EXPECT_FALSE(Pattern("mute").matchesAny({"audio.volume"}));
    EXPECT_FALSE(Pattern("").matchesAny({}));
}

} // namespace

} // namespace kelutv::wire
