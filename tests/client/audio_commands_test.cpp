#include "ClientTest.h"

#include <kelutv/Audio.h>
#include <kelutv/linux_kelutv_audio.h>

namespace kelutv::test {
namespace {

Audio& audio() { return *Audio::instance(); }

TEST_F(ClientTest, muteSendsChannelFlagAndOwner) {
    answer({9});
    EXPECT_EQ(audio().setMute(4, true, KELU_TV_SND_MUTE_MEDIA), 9);
    EXPECT_EQ(sent(), only(requestOf(0x200A, {4, 1, 16})));
    EXPECT_EQ(audio().setMuteByC(5, false, KELU_TV_SND_MUTE_EXTERNAL_SPEAKER), 9);
    EXPECT_EQ(sent(), only(requestOf(0x2026, {5, 0, 12})));
}

// irregular: linux_tv_Audio_setMute
TEST_F(ClientTest, theCMuteIsAlwaysTheRemoteControls) {
    EXPECT_EQ(linux_tv_Audio_setMute(4, true), 0);
    EXPECT_EQ(sent(), only(requestOf(0x200A, {4, 1, 0})));
    EXPECT_EQ(linux_tv_Audio_setMute(4, false), 0);
    EXPECT_EQ(sent(), only(requestOf(0x200A, {4, 0, 0})));
}

// irregular: Audio::modifyMute
// irregular: linux_tv_Audio_ModifyMute
TEST_F(ClientTest, modifyMuteSendsTheCommandNamedAfterCec) {
    answer({-7});
    EXPECT_EQ(audio().modifyMute(), -7);
    EXPECT_EQ(sent(), only(requestOf(0x205E)));
    EXPECT_EQ(linux_tv_Audio_ModifyMute(), -7);
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

// irregular: Audio::setSubwooferGeq
// irregular: linux_tv_Audio_setSubwooferGeq
TEST_F(ClientTest, theSubwooferRecordIsSentAsFiveIntegers) {
    const KELU_TV_SUBWOOFER_GEQ bands{1, -2, 3, -4, 5};
    answer({8});
    EXPECT_EQ(audio().setSubwooferGeq(bands), 8);
    EXPECT_EQ(sent(), only(requestOf(0x2070, {1, -2, 3, -4, 5})));
    EXPECT_EQ(linux_tv_Audio_setSubwooferGeq(bands), 8);
    EXPECT_EQ(sent(), only(requestOf(0x2070, {1, -2, 3, -4, 5})));
}

// irregular: linux_tv_Audio_setBluetoothConnect
TEST_F(ClientTest, bluetoothIsAnIntegerInTheClassAndAFlagInC) {
    EXPECT_EQ(audio().setBluetoothConnect(3), 0);
    EXPECT_EQ(sent(), only(requestOf(0x204C, {3})));
    EXPECT_EQ(linux_tv_Audio_setBluetoothConnect(true), 0);
    EXPECT_EQ(sent(), only(requestOf(0x204C, {1})));
    EXPECT_EQ(linux_tv_Audio_setBluetoothConnect(false), 0);
    EXPECT_EQ(sent(), only(requestOf(0x204C, {0})));
}

// irregular: linux_tv_Audio_enableAmplifierMute
// irregular: linux_tv_Audio_SetDefaultSndOutputDev
// irregular: linux_tv_Audio_setAVCLevel
TEST_F(ClientTest, someCFunctionsAreSpelledUnlikeTheirMethods) {
    answer({6});
    EXPECT_EQ(linux_tv_Audio_enableAmplifierMute(true), 6);
    EXPECT_EQ(sent(), only(requestOf(0x201C, {1})));
    EXPECT_EQ(linux_tv_Audio_SetDefaultSndOutputDev(KELU_TV_SOUND_OUTPUT_MODE_LINEOUT), 6);
    EXPECT_EQ(sent(), only(requestOf(0x2061, {3})));
    EXPECT_EQ(linux_tv_Audio_setAVCLevel(1), 6);
    EXPECT_EQ(sent(), only(requestOf(0x2062, {1})));
}

TEST_F(ClientTest, valuesWithoutANameAreSentAsTheyAre) {
    EXPECT_EQ(audio().setMute(99, true, static_cast<MuteType>(14)), 0);
    EXPECT_EQ(sent(), only(requestOf(0x200A, {99, 1, 14})));
    EXPECT_EQ(audio().setVolume(-1, 100000), 0);
    EXPECT_EQ(sent(), only(requestOf(0x2008, {-1, 100000})));
}

} // namespace
} // namespace kelutv::test
