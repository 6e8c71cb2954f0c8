#include "client/ClientTest.h"
#include "client/audio/TheAudio.h"

#include <kelutv/linux_kelutv_audio.h>

namespace kelutv::test {
namespace {

TEST_F(ClientTest, muteSendsChannelFlagAndOwner) {
    answer({9});
    EXPECT_EQ(audio().setMute(4, true, KELU_TV_SND_MUTE_MEDIA), 9);
    EXPECT_EQ(sent(), only(requestOf(0x200A, {4, 1, 16})));
    EXPECT_EQ(audio().setMuteByC(5, false, KELU_TV_SND_MUTE_EXTERNAL_SPEAKER), 9);
    EXPECT_EQ(sent(), only(requestOf(0x2026, {5, 0, 12})));
}

// irregular: Audio::modifyMute
TEST_F(ClientTest, modifyMuteSendsTheCommandNamedAfterCec) {
    answer({-7});
    EXPECT_EQ(audio().modifyMute(), -7);
    EXPECT_EQ(sent(), only(requestOf(0x205E)));
}

// irregular: Audio::getEqualLoundValue
TEST_F(ClientTest, equalLoundValueIsTheResultItself) {
    answer({12, 99});
    EXPECT_EQ(audio().getEqualLoundValue(2, 7), 12);
    EXPECT_EQ(sent(), only(requestOf(0x2039, {2, 7})));
    answer({-3});
    EXPECT_EQ(audio().getEqualLoundValue(2, 7), -3);
    EXPECT_EQ(logged(), kNothingLogged);
}

// irregular: Audio::isDialogueEnhancement
TEST_F(ClientTest, dialogueEnhancementIsTheResultItself) {
    answer({1, 99});
    EXPECT_EQ(audio().isDialogueEnhancement(), 1);
    EXPECT_EQ(sent(), only(requestOf(0x2041)));
    answer({44});
    EXPECT_EQ(audio().isDialogueEnhancement(), 44);
    EXPECT_EQ(logged(), kNothingLogged);
}

// irregular: linux_tv_Audio_getNRAttr
TEST_F(ClientTest, theCNoiseReductionAlwaysSucceeds) {
    NRAttrData noiseReduction{false, 99};
    answer({0, 1, 45});
    EXPECT_EQ(linux_tv_Audio_getNRAttr(&noiseReduction), 0);
    EXPECT_TRUE(noiseReduction.onOff);
    EXPECT_EQ(noiseReduction.value, 45);

    answer({1, 1, 45});
    EXPECT_EQ(linux_tv_Audio_getNRAttr(&noiseReduction), 0);
    EXPECT_FALSE(noiseReduction.onOff);
    EXPECT_EQ(noiseReduction.value, 0);

    sent();
    EXPECT_EQ(linux_tv_Audio_getNRAttr(nullptr), -1);
    EXPECT_EQ(sent(), kNothingSent);
}

TEST_F(ClientTest, valuesWithoutANameAreSentAsTheyAre) {
    EXPECT_EQ(audio().setMute(99, true, static_cast<MuteType>(14)), 0);
    EXPECT_EQ(sent(), only(requestOf(0x200A, {99, 1, 14})));
    EXPECT_EQ(audio().setVolume(-1, 100000), 0);
    EXPECT_EQ(sent(), only(requestOf(0x2008, {-1, 100000})));
}

} // namespace
} // namespace kelutv::test
