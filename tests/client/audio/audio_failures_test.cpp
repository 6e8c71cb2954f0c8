#include "client/ClientTest.h"
#include "client/audio/TheAudio.h"

#include <kelutv/linux_kelutv_audio.h>

namespace kelutv::test {
namespace {

/** Runs with a link that is absent, with one that is dead, and with a living one whose transactions fail. */
class AudioFailure : public ClientTest {
protected:
    AudioFailure() { failTransactions(); }
};

TEST_F(AudioFailure, ofASetIsLogged) {
    EXPECT_EQ(audio().setVolume(0, 20), -1);
    EXPECT_EQ(logged(), kInvokeFailure);
    EXPECT_EQ(audio().modifyMute(), -1);
    EXPECT_EQ(logged(), kInvokeFailure);
    EXPECT_EQ(audio().setAudioItemStrValue(1, 2, 3, "alpha"), -1);
    EXPECT_EQ(logged(), kInvokeFailure);
    EXPECT_EQ(audio().setNRAttr({true, 1}), -1);
    EXPECT_EQ(logged(), kInvokeFailure);
}

TEST_F(AudioFailure, ofAGetIsSilent) {
    EXPECT_EQ(audio().getVolume(0), -1);
    EXPECT_EQ(linux_tv_Audio_getVolume(0), -1);
    EXPECT_EQ(audio().isARCByPassEnable(), -1);
    EXPECT_EQ(logged(), kNothingLogged);
}

TEST_F(AudioFailure, readsAsASetFlag) {
    EXPECT_TRUE(audio().getMute(0));
    EXPECT_EQ(linux_tv_Audio_getMute(0), 1);
    EXPECT_EQ(linux_tv_Audio_getCStenhancerEnable(), 1);
}

TEST_F(AudioFailure, ofTheGettersInTheSetFamilyIsLogged) {
    EXPECT_EQ(audio().getEqualLoundValue(1, 2), -1);
    EXPECT_EQ(logged(), kInvokeFailure);
    EXPECT_EQ(audio().isDialogueEnhancement(), -1);
    EXPECT_EQ(logged(), kInvokeFailure);
}

TEST_F(AudioFailure, leavesZerosInRecordsReturnedByValue) {
    EXPECT_EQ(audio().getPreScale(0).integer, 0);
    EXPECT_EQ(audio().getPreScale(0).decimal, 0);
    EXPECT_FALSE(audio().getNRAttr().onOff);
    EXPECT_EQ(audio().getNRAttr().value, 0);
}

TEST_F(AudioFailure, isHiddenByTheCNoiseReduction) {
    NRAttrData noiseReduction{true, 9};
    EXPECT_EQ(linux_tv_Audio_getNRAttr(&noiseReduction), 0);
    EXPECT_FALSE(noiseReduction.onOff);
    EXPECT_EQ(noiseReduction.value, 0);
}

TEST_F(AudioFailure, isHiddenByTheVolumeReaders) {
    EXPECT_EQ(linux_tv_Audio_getMaxVolume(0), 0);
    EXPECT_EQ(linux_tv_Audio_getBootVolume(0), 0);
    EXPECT_EQ(linux_tv_Audio_isHeadphoneForLineoutSupport(), 0);
}

TEST_F(AudioFailure, leavesZeroInTheOutputMode) {
    int mode = 99;
    EXPECT_EQ(linux_tv_Audio_getNewOutputMode(&mode), -1);
    EXPECT_EQ(mode, 0);
}

TEST_F(AudioFailure, leavesListsAndRecordsOfTheCaller) {
    int list = 98;
    int size = 99;
    EXPECT_EQ(linux_tv_Audio_getNewOutputList(&list, &size), -1);
    EXPECT_EQ(list, 98);
    EXPECT_EQ(size, 99);
    KELU_TV_SND_DRC_ATTR_S compression{1, 2};
    EXPECT_EQ(audio().getDRCAttr(&compression), -1);
    EXPECT_EQ(compression.intthrhd, 1);
    EXPECT_TRUE(audio().getOutputList().empty());
}

TEST_F(AudioFailure, ofTheOutputStatusReturnsZero) {
    bool on = true;
    EXPECT_EQ(audio().getOutputStatus("speaker", &on), 0);
    EXPECT_TRUE(on);
    const std::vector<LogEntry> lines{kInvokeFailure.front(),
                                      untaggedError("[527] getOutputStatus,err,force pOnoff = 0").front()};
    EXPECT_EQ(logged(), lines);
}

TEST_F(AudioFailure, ofTheItemTextIsLoggedInTheWordsOfTheSystemModule) {
    char text[] = "before";
    EXPECT_EQ(audio().getAudioItemStrValue(1, 2, 3, text), -1);
    EXPECT_STREQ(text, "before");
    EXPECT_EQ(logged(), untaggedError("getSystemItemStrValue error"));
}

} // namespace
} // namespace kelutv::test
