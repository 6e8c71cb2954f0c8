#include "ClientTest.h"

#include <kelutv/Audio.h>
#include <kelutv/linux_kelutv_audio.h>

namespace kelutv::test {
namespace {

Audio& audio() { return *Audio::instance(); }

using AudioRecord = ClientTest;

// irregular: Audio::setPreScale
TEST_F(AudioRecord, prescaleIsSentFieldByField) {
    answer({2});
    EXPECT_EQ(audio().setPreScale(6, {-12, 34}), 2);
    EXPECT_EQ(sent(), only(requestOf(0x2020, {6, -12, 34})));
}

// irregular: Audio::getPreScale
TEST_F(AudioRecord, prescaleIsReadByValue) {
    answer({0, -12, 34});
    const PreScaleInfo prescale = audio().getPreScale(6);
    EXPECT_EQ(sent(), only(requestOf(0x2021, {6})));
    EXPECT_EQ(prescale.integer, -12);
    EXPECT_EQ(prescale.decimal, 34);
}

TEST_F(AudioRecord, prescaleIsZeroAfterAFailure) {
    answer({1, -12, 34});
    EXPECT_EQ(audio().getPreScale(6).integer, 0);
    EXPECT_EQ(audio().getPreScale(6).decimal, 0);
    failTransactions();
    EXPECT_EQ(audio().getPreScale(6).integer, 0);
    EXPECT_EQ(audio().getPreScale(6).decimal, 0);
    EXPECT_EQ(logged(), kNothingLogged);
}

// irregular: Audio::setNRAttr
// irregular: linux_tv_Audio_setNRAttr
TEST_F(AudioRecord, noiseReductionIsSentAsTwoIntegers) {
    answer({2});
    EXPECT_EQ(audio().setNRAttr({true, 45}), 2);
    EXPECT_EQ(sent(), only(requestOf(0x203A, {1, 45})));
    EXPECT_EQ(linux_tv_Audio_setNRAttr({false, -45}), 2);
    EXPECT_EQ(sent(), only(requestOf(0x203A, {0, -45})));
}

// irregular: Audio::getNRAttr
TEST_F(AudioRecord, noiseReductionIsReadByValue) {
    answer({0, -8, 45});
    const NRAttrData noiseReduction = audio().getNRAttr();
    EXPECT_EQ(sent(), only(requestOf(0x203B)));
    EXPECT_TRUE(noiseReduction.onOff);
    EXPECT_EQ(noiseReduction.value, 45);
    answer({0, 0, 45});
    EXPECT_FALSE(audio().getNRAttr().onOff);
}

TEST_F(AudioRecord, noiseReductionIsZeroAfterAFailure) {
    answer({1, 1, 45});
    EXPECT_FALSE(audio().getNRAttr().onOff);
    EXPECT_EQ(audio().getNRAttr().value, 0);
}

// irregular: linux_tv_Audio_getNRAttr
TEST_F(AudioRecord, theCNoiseReductionAlwaysSucceeds) {
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

// irregular: Audio::setDRCAttr
// irregular: linux_tv_Audio_setDRCAttr
// irregular: Audio::getDRCAttr
// irregular: linux_tv_Audio_getDRCAttr
TEST_F(AudioRecord, rangeCompressionIsSetWithTheHigherCommand) {
    KELU_TV_SND_DRC_ATTR_S compression{-20, 7};
    answer({0, -30, 8});
    EXPECT_EQ(audio().setDRCAttr(&compression), 0);
    EXPECT_EQ(sent(), only(requestOf(0x205D, {-20, 7})));
    EXPECT_EQ(linux_tv_Audio_setDRCAttr(&compression), 0);
    EXPECT_EQ(sent(), only(requestOf(0x205D, {-20, 7})));

    EXPECT_EQ(audio().getDRCAttr(&compression), 0);
    EXPECT_EQ(sent(), only(requestOf(0x205C)));
    EXPECT_EQ(compression.intthrhd, -30);
    EXPECT_EQ(compression.intLimit, 8);
    compression = {};
    EXPECT_EQ(linux_tv_Audio_getDRCAttr(&compression), 0);
    EXPECT_EQ(sent(), only(requestOf(0x205C)));
    EXPECT_EQ(compression.intthrhd, -30);
    EXPECT_EQ(compression.intLimit, 8);
}

TEST_F(AudioRecord, rangeCompressionIsUntouchedByAFailedRead) {
    KELU_TV_SND_DRC_ATTR_S compression{-20, 7};
    answer({1, -30, 8});
    EXPECT_EQ(audio().getDRCAttr(&compression), -1);
    failTransactions();
    EXPECT_EQ(linux_tv_Audio_getDRCAttr(&compression), -1);
    EXPECT_EQ(compression.intthrhd, -20);
    EXPECT_EQ(compression.intLimit, 7);
}

// irregular: Audio::getDefaultSndOutputDev
// irregular: Audio::setDefaultSndOutputDev
// irregular: linux_tv_Audio_GetDefaultSndOutputDev
TEST_F(AudioRecord, theDefaultOutputIsReadWithTheLowerCommand) {
    answer({0, 3});
    EXPECT_EQ(audio().setDefaultSndOutputDev(KELU_TV_SOUND_OUTPUT_MODE_SPEAKER), 0);
    EXPECT_EQ(sent(), only(requestOf(0x2061, {2})));

    KELU_TV_SOUND_OUTPUT_MODE_E mode = KELU_TV_SOUND_OUTPUT_MODE_DEFAULT;
    EXPECT_EQ(audio().getDefaultSndOutputDev(&mode), 0);
    EXPECT_EQ(sent(), only(requestOf(0x2060)));
    EXPECT_EQ(mode, KELU_TV_SOUND_OUTPUT_MODE_LINEOUT);

    answer({1, 2});
    EXPECT_EQ(audio().getDefaultSndOutputDev(&mode), -1);
    EXPECT_EQ(linux_tv_Audio_GetDefaultSndOutputDev(&mode), -1);
    EXPECT_EQ(mode, KELU_TV_SOUND_OUTPUT_MODE_LINEOUT);

    answer({0, 1});
    EXPECT_EQ(linux_tv_Audio_GetDefaultSndOutputDev(&mode), 0);
    EXPECT_EQ(mode, KELU_TV_SOUND_OUTPUT_MODE_SPDIF);
}

// irregular: Audio::getAvcLevel
// irregular: linux_tv_Audio_getAVCLevel
TEST_F(AudioRecord, theVolumeControlLevelIsUntouchedByAFailedRead) {
    KELU_TV_AVC_LEVEL level = KELU_TV_AVC_THRESHOLD_BUTT;
    answer({1, 1});
    EXPECT_EQ(audio().getAvcLevel(&level), -1);
    EXPECT_EQ(linux_tv_Audio_getAVCLevel(&level), -1);
    EXPECT_EQ(level, KELU_TV_AVC_THRESHOLD_BUTT);

    answer({0, 1});
    EXPECT_EQ(audio().getAvcLevel(&level), 0);
    EXPECT_EQ(level, KELU_TV_AVC_THRESHOLD_LEVEL2);
    level = KELU_TV_AVC_THRESHOLD_BUTT;
    EXPECT_EQ(linux_tv_Audio_getAVCLevel(&level), 0);
    EXPECT_EQ(level, KELU_TV_AVC_THRESHOLD_LEVEL2);
    EXPECT_EQ(sent(), std::vector<std::string>(4, hex(requestOf(0x2063))));
}

TEST_F(AudioRecord, theCFunctionsRefuseNull) {
    EXPECT_EQ(linux_tv_Audio_setDRCAttr(nullptr), -1);
    EXPECT_EQ(linux_tv_Audio_getDRCAttr(nullptr), -1);
    EXPECT_EQ(linux_tv_Audio_GetDefaultSndOutputDev(nullptr), -1);
    EXPECT_EQ(linux_tv_Audio_getAVCLevel(nullptr), -1);
    EXPECT_EQ(sent(), kNothingSent);
    EXPECT_EQ(logged(), kNothingLogged);
}

} // namespace
} // namespace kelutv::test
