#include "ClientTest.h"

#include <kelutv/linux_kelutv_audio.h>

namespace kelutv::test {
namespace {

Bytes itemSet(int item, std::int32_t param1, std::int32_t param2 = 0, std::int32_t param3 = 0) {
    return requestOf(0x2053, {item, param1, param2, param3, 0});
}

Bytes itemGet(int item, std::int32_t param1 = 0) { return requestOf(0x2054, {item, param1, 0}); }

using AudioCItem = ClientTest;

// irregular: linux_tv_Audio_setMaxVolume
// irregular: linux_tv_Audio_setBootVolume
// irregular: linux_tv_Audio_setVolumeToReg
TEST_F(AudioCItem, volumesAreSetPerChannel) {
    answer({5});
    EXPECT_EQ(linux_tv_Audio_setMaxVolume(3, 80), 5);
    EXPECT_EQ(sent(), only(itemSet(8203, 3, 80)));
    EXPECT_EQ(linux_tv_Audio_setBootVolume(3, 12), 5);
    EXPECT_EQ(sent(), only(itemSet(8210, 3, 12)));
    EXPECT_EQ(linux_tv_Audio_setVolumeToReg(3, 30), 5);
    EXPECT_EQ(sent(), only(itemSet(8212, 3, 30)));
}

// irregular: linux_tv_Audio_getMaxVolume
// irregular: linux_tv_Audio_getBootVolume
TEST_F(AudioCItem, volumesAreReadAndZeroAfterAFailure) {
    answer({0, 80});
    EXPECT_EQ(linux_tv_Audio_getMaxVolume(3), 80);
    EXPECT_EQ(sent(), only(itemGet(8204, 3)));
    EXPECT_EQ(linux_tv_Audio_getBootVolume(4), 80);
    EXPECT_EQ(sent(), only(itemGet(8211, 4)));
    answer({1, 80});
    EXPECT_EQ(linux_tv_Audio_getMaxVolume(3), 0);
    EXPECT_EQ(linux_tv_Audio_getBootVolume(3), 0);
    failTransactions();
    EXPECT_EQ(linux_tv_Audio_getMaxVolume(3), 0);
    EXPECT_EQ(linux_tv_Audio_getBootVolume(3), 0);
    EXPECT_EQ(logged(), kNothingLogged);
}

// irregular: linux_tv_Audio_setEQEnable
// irregular: linux_tv_Audio_setHeadphoneForLineoutEnable
TEST_F(AudioCItem, flagsAreSetAsZeroOrOne) {
    answer({5});
    EXPECT_EQ(linux_tv_Audio_setEQEnable(true), 5);
    EXPECT_EQ(sent(), only(itemSet(8205, 1)));
    EXPECT_EQ(linux_tv_Audio_setEQEnable(false), 5);
    EXPECT_EQ(sent(), only(itemSet(8205, 0)));
    EXPECT_EQ(linux_tv_Audio_setHeadphoneForLineoutEnable(true), 5);
    EXPECT_EQ(sent(), only(itemSet(8220, 1)));
}

// irregular: linux_tv_Audio_setNewOutputMode
// irregular: linux_tv_Audio_setEqualizerMode
// irregular: linux_tv_Audio_SetMuteLevel
TEST_F(AudioCItem, modesAreSetUnchecked) {
    answer({5});
    EXPECT_EQ(linux_tv_Audio_setNewOutputMode(-4), 5);
    EXPECT_EQ(sent(), only(itemSet(8196, -4)));
    EXPECT_EQ(linux_tv_Audio_setEqualizerMode(77), 5);
    EXPECT_EQ(sent(), only(itemSet(8216, 77)));
    EXPECT_EQ(linux_tv_Audio_SetMuteLevel(2), 5);
    EXPECT_EQ(sent(), only(itemSet(8218, 2)));
}

/** A getter that writes one flag or value and returns the read's result. */
template <typename T> struct OutputGetter {
    int item;
    int (*function)(T*);
};

// irregular: linux_tv_Audio_getEQEnable
// irregular: linux_tv_Audio_getHeadphoneForLineoutEnable
TEST_F(AudioCItem, flagsAreStoredAlsoAfterAFailedRead) {
    for (const OutputGetter<bool>& getter : {OutputGetter<bool>{8206, linux_tv_Audio_getEQEnable},
                                             OutputGetter<bool>{8221, linux_tv_Audio_getHeadphoneForLineoutEnable}}) {
        bool enabled = false;
        answer({0, -3});
        EXPECT_EQ(getter.function(&enabled), 0);
        EXPECT_TRUE(enabled);
        sent();
        answer({1, 1});
        EXPECT_EQ(getter.function(&enabled), -1);
        EXPECT_FALSE(enabled);
        EXPECT_EQ(sent(), only(itemGet(getter.item)));
    }
}

// irregular: linux_tv_Audio_getNewOutputMode
// irregular: linux_tv_Audio_getSurroundType
// irregular: linux_tv_Audio_getEqualizerMode
TEST_F(AudioCItem, modesAreStoredAlsoAfterAFailedRead) {
    for (const OutputGetter<int>& getter : {OutputGetter<int>{8195, linux_tv_Audio_getNewOutputMode},
                                            OutputGetter<int>{8215, linux_tv_Audio_getSurroundType},
                                            OutputGetter<int>{8217, linux_tv_Audio_getEqualizerMode}}) {
        int mode = 99;
        answer({0, -3});
        EXPECT_EQ(getter.function(&mode), 0);
        EXPECT_EQ(mode, -3);
        sent();
        answer({1, 4});
        EXPECT_EQ(getter.function(&mode), -1);
        EXPECT_EQ(mode, 0);
        EXPECT_EQ(sent(), only(itemGet(getter.item)));
    }
}

TEST_F(AudioCItem, theOutputModeNeedsAPlace) {
    EXPECT_EQ(linux_tv_Audio_getNewOutputMode(nullptr), -1);
    EXPECT_EQ(sent(), kNothingSent);
}

// irregular: linux_tv_Audio_isHeadphoneForLineoutSupport
TEST_F(AudioCItem, headphoneSupportIsAFlagAndNoneAfterAFailure) {
    answer({0, -3});
    EXPECT_EQ(linux_tv_Audio_isHeadphoneForLineoutSupport(), 1);
    EXPECT_EQ(sent(), only(itemGet(8219)));
    answer({0, 0});
    EXPECT_EQ(linux_tv_Audio_isHeadphoneForLineoutSupport(), 0);
    answer({1, 1});
    EXPECT_EQ(linux_tv_Audio_isHeadphoneForLineoutSupport(), 0);
    failTransactions();
    EXPECT_EQ(linux_tv_Audio_isHeadphoneForLineoutSupport(), 0);
}

// irregular: linux_tv_Audio_getSourcePreScale
TEST_F(AudioCItem, sourcePrescaleIsStoredAlsoAfterAFailedRead) {
    KELU_TV_SND_PRECIGAIN_ATTR_S gain{};
    answer({0, -12, 34});
    EXPECT_EQ(linux_tv_Audio_getSourcePreScale(5, &gain), 0);
    EXPECT_EQ(sent(), only(itemGet(8207, 5)));
    EXPECT_EQ(gain.s32IntegerGain, -12);
    EXPECT_EQ(gain.s32DecimalGain, 34);
    answer({1, 7, 8});
    EXPECT_EQ(linux_tv_Audio_getSourcePreScale(5, &gain), -1);
    EXPECT_EQ(gain.s32IntegerGain, 0);
    EXPECT_EQ(gain.s32DecimalGain, 0);
}

// irregular: linux_tv_Audio_setSourcePreScale
TEST_F(AudioCItem, sourcePrescaleIsSentFieldByField) {
    answer({5});
    EXPECT_EQ(linux_tv_Audio_setSourcePreScale(5, {-12, 34}), 5);
    EXPECT_EQ(sent(), only(itemSet(8208, 5, -12, 34)));
}

} // namespace
} // namespace kelutv::test
