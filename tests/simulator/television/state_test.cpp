#include "simulator/Simulator.h"

#include <kelutv/kelutv.h>

#include <gtest/gtest.h>

#include <list>
#include <string>
#include <thread>
#include <vector>

namespace kelutv::test {

namespace {

const auto& environmentOfState = SimulatorEnvironment::install();

class State : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_EQ(linux_tv_Audio_restoreSoundSets(), 0); }
};

TEST_F(State, StartsWithSensibleValues) {
    EXPECT_EQ(linux_tv_Audio_getVolume(KELU_TV_AUDIO_CHANNEL_SPEAKER), 20);
    EXPECT_EQ(linux_tv_Audio_getVolume(KELU_TV_AUDIO_CHANNEL_HDMI_ARC), 20);
    EXPECT_EQ(linux_tv_Audio_getMute(KELU_TV_AUDIO_CHANNEL_SPEAKER), 0);
    EXPECT_EQ(linux_tv_Audio_getSoundMode(), KELU_TV_SNDMODE_STANDARD);
    EXPECT_EQ(linux_tv_Audio_getMaxVolume(KELU_TV_AUDIO_CHANNEL_SPEAKER), 100);
    EXPECT_EQ(linux_tv_Audio_getBootVolume(KELU_TV_AUDIO_CHANNEL_SPEAKER), 20);
    EXPECT_EQ(linux_tv_PCMPlayer_getStatus(), KELU_TV_PCMPLAYER_IDLE);
}

TEST_F(State, ListsItsOutputs) {
    const std::list<std::string> outputs = Audio::instance()->getOutputList();
    EXPECT_EQ(outputs, (std::list<std::string>{"speaker", "headphone", "spdif", "arc", "bluetooth"}));
    bool on = false;
    EXPECT_EQ(Audio::instance()->getOutputStatus("speaker", &on), 0);
    EXPECT_TRUE(on);
    int list[254];
    int size = 0;
    ASSERT_EQ(linux_tv_Audio_getNewOutputList(list, &size), 0);
    EXPECT_EQ(std::vector<int>(list, list + size), (std::vector<int>{0, 1, 2, 3, 4}));
    ASSERT_EQ(linux_tv_Audio_GetDefaultSndOutputList(list, &size), 0);
    EXPECT_EQ(std::vector<int>(list, list + size), (std::vector<int>{0, 1, 2, 3}));
}

TEST_F(State, HasTenBandsInItsEqualizer) {
    KELU_TV_SND_PEQ_ATTR_S attributes{};
    ASSERT_EQ(linux_tv_Audio_getPEQAttr(&attributes), 0);
    EXPECT_EQ(attributes.intBandNum, 10);
    EXPECT_EQ(attributes.stEqParam[0].intfreq, 31);
    EXPECT_EQ(attributes.stEqParam[9].intfreq, 16000);
    EXPECT_EQ(attributes.stEqParam[9].enFltType, KELU_TV_PEQ_FILTER_TYPE_PK);
}

TEST_F(State, KeepsAVolumePerChannel) {
    EXPECT_EQ(linux_tv_Audio_setVolume(KELU_TV_AUDIO_CHANNEL_SPEAKER, 35), 0);
    EXPECT_EQ(linux_tv_Audio_setVolume(KELU_TV_AUDIO_CHANNEL_HEADPHONE, 0), 0);
    EXPECT_EQ(linux_tv_Audio_getVolume(KELU_TV_AUDIO_CHANNEL_SPEAKER), 35);
    EXPECT_EQ(linux_tv_Audio_getVolume(KELU_TV_AUDIO_CHANNEL_HEADPHONE), 0);
    EXPECT_EQ(linux_tv_Audio_getVolume(KELU_TV_AUDIO_CHANNEL_SPDIF), 20);
}

TEST_F(State, RefusesAVolumeOutOfRangeAndKeepsTheOldOne) {
    EXPECT_EQ(linux_tv_Audio_setVolume(KELU_TV_AUDIO_CHANNEL_SPEAKER, 100), 0);
    EXPECT_EQ(linux_tv_Audio_setVolume(KELU_TV_AUDIO_CHANNEL_SPEAKER, 101), -107);
    EXPECT_EQ(linux_tv_Audio_setVolume(KELU_TV_AUDIO_CHANNEL_SPEAKER, -1), -107);
    EXPECT_EQ(linux_tv_Audio_setMaxVolume(KELU_TV_AUDIO_CHANNEL_SPEAKER, 101), -107);
    EXPECT_EQ(linux_tv_Audio_getVolume(KELU_TV_AUDIO_CHANNEL_SPEAKER), 100);
    EXPECT_EQ(linux_tv_Audio_getMaxVolume(KELU_TV_AUDIO_CHANNEL_SPEAKER), 100);
}

TEST_F(State, ModifyMuteTogglesTheSpeaker) {
    EXPECT_EQ(linux_tv_Audio_ModifyMute(), 0);
    EXPECT_EQ(linux_tv_Audio_getMute(KELU_TV_AUDIO_CHANNEL_SPEAKER), 1);
    EXPECT_EQ(linux_tv_Audio_getMute(KELU_TV_AUDIO_CHANNEL_HEADPHONE), 0);
    EXPECT_EQ(linux_tv_Audio_ModifyMute(), 0);
    EXPECT_EQ(linux_tv_Audio_getMute(KELU_TV_AUDIO_CHANNEL_SPEAKER), 0);
    EXPECT_EQ(linux_tv_Audio_setMute(KELU_TV_AUDIO_CHANNEL_SPEAKER, true), 0);
    EXPECT_EQ(linux_tv_Audio_ModifyMute(), 0);
    EXPECT_EQ(linux_tv_Audio_getMute(KELU_TV_AUDIO_CHANNEL_SPEAKER), 0);
}

TEST_F(State, RestoreBringsBackEverySoundSettingAndNothingElse) {
    EXPECT_EQ(linux_tv_Audio_setVolume(KELU_TV_AUDIO_CHANNEL_SPEAKER, 35), 0);
    EXPECT_EQ(linux_tv_Audio_setSoundMode(KELU_TV_SNDMODE_MOVIE), 0);
    EXPECT_EQ(linux_tv_Audio_setBootVolume(KELU_TV_AUDIO_CHANNEL_SPEAKER, 5), 0);
    EXPECT_EQ(linux_tv_PCMPlayer_startPlay("/usr/share/chime.pcm", false, false), 0);
    EXPECT_EQ(linux_tv_Audio_restoreSoundSets(), 0);
    EXPECT_EQ(linux_tv_Audio_getVolume(KELU_TV_AUDIO_CHANNEL_SPEAKER), 20);
    EXPECT_EQ(linux_tv_Audio_getSoundMode(), KELU_TV_SNDMODE_STANDARD);
    EXPECT_EQ(linux_tv_Audio_getBootVolume(KELU_TV_AUDIO_CHANNEL_SPEAKER), 20);
    EXPECT_EQ(linux_tv_PCMPlayer_getStatus(), KELU_TV_PCMPLAYER_PLAYING);
    EXPECT_EQ(linux_tv_PCMPlayer_stopPlay(), 0);
    EXPECT_EQ(linux_tv_PCMPlayer_getStatus(), KELU_TV_PCMPLAYER_IDLE);
}

TEST_F(State, GettersOfTheSetFamilyGiveTheValueAsTheResult) {
    EXPECT_EQ(linux_tv_Audio_restoreSoundSets(), 0);
    EXPECT_EQ(Audio::instance()->isDialogueEnhancement(), 0);
    EXPECT_EQ(Audio::instance()->setDialogueEnhancement(1), 0);
    EXPECT_EQ(Audio::instance()->isDialogueEnhancement(), 1);
    EXPECT_EQ(Audio::instance()->setEqualLoundValue(1, 2, -6), 0);
    EXPECT_EQ(Audio::instance()->getEqualLoundValue(1, 2), -6);
    EXPECT_EQ(Audio::instance()->getEqualLoundValue(2, 1), 0);
}

TEST_F(State, ServesSeveralThreadsAtOnce) {
    std::vector<std::thread> threads;
    for (int channel = 0; channel < 4; ++channel) {
        threads.emplace_back([channel] {
            for (int volume = 1; volume <= 100; ++volume) {
                ASSERT_EQ(linux_tv_Audio_setVolume(channel, volume), 0);
                ASSERT_EQ(linux_tv_Audio_getVolume(channel), volume);
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
}

} // namespace

} // namespace kelutv::test
