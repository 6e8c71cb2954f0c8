#include "simulator/Inbox.h"
#include "simulator/Simulator.h"

#include <kelutv/kelutv.h>

#include <gtest/gtest.h>

#include <vector>

namespace kelutv::test {

namespace {

const auto& environmentOfEvents = SimulatorEnvironment::install();

constexpr int kVolumeChanged = 0x60001;
constexpr int kMuteChanged = 0x60002;
constexpr int kSourceChanged = 0x40001;
constexpr int kSignalChanged = 0x40002;
constexpr int kTimingChanged = 0x40003;
constexpr int kMode3dChanged = 0x50001;
constexpr int kStreamTypeChanged = 0x80001;

std::vector<Event> takeEvents() { return Inbox::instance().take(); }

class Events : public ::testing::Test {
protected:
    void SetUp() override {
        linux_tv_registerCallbackFunc(Inbox::onEvent);
        linux_tv_Audio_restoreSoundSets();
        linux_tv_SourceManager_selectSource(KELU_TV_SRC_ATV, KELU_TV_WINDOW_MAIN);
        takeEvents();
    }
};

TEST_F(Events, TellOfEveryNewVolumeOnce) {
    EXPECT_EQ(linux_tv_Audio_setVolume(KELU_TV_AUDIO_CHANNEL_SPEAKER, 35), 0);
    EXPECT_EQ(Audio::instance()->setVolumeByC(KELU_TV_AUDIO_CHANNEL_HEADPHONE, 36), 0);
    EXPECT_EQ(takeEvents(), (std::vector<Event>{{kVolumeChanged, {0, 35}}, {kVolumeChanged, {1, 36}}}));
}

TEST_F(Events, DoNotTellOfAValueSetAnewOrRefused) {
    EXPECT_EQ(linux_tv_Audio_setVolume(KELU_TV_AUDIO_CHANNEL_SPEAKER, 20), 0);
    EXPECT_EQ(linux_tv_Audio_setVolume(KELU_TV_AUDIO_CHANNEL_SPEAKER, 101), -107);
    EXPECT_EQ(linux_tv_Audio_setMute(KELU_TV_AUDIO_CHANNEL_SPEAKER, false), 0);
    EXPECT_EQ(linux_tv_Audio_setSoundMode(KELU_TV_SNDMODE_STANDARD), 0);
    EXPECT_EQ(takeEvents(), std::vector<Event>{});
}

TEST_F(Events, TellOfMute) {
    EXPECT_EQ(linux_tv_Audio_setMute(KELU_TV_AUDIO_CHANNEL_SPDIF, true), 0);
    EXPECT_EQ(linux_tv_Audio_ModifyMute(), 0);
    EXPECT_EQ(takeEvents(), (std::vector<Event>{{kMuteChanged, {4, 1}}, {kMuteChanged, {0, 1}}}));
}

TEST_F(Events, TellOfWhatRestoreChanges) {
    EXPECT_EQ(linux_tv_Audio_setVolume(KELU_TV_AUDIO_CHANNEL_HEADPHONE, 36), 0);
    EXPECT_EQ(linux_tv_Audio_setVolume(KELU_TV_AUDIO_CHANNEL_SPEAKER, 35), 0);
    EXPECT_EQ(linux_tv_Audio_setVolume(KELU_TV_AUDIO_CHANNEL_SPEAKER, 20), 0);
    EXPECT_EQ(linux_tv_Audio_setMute(KELU_TV_AUDIO_CHANNEL_SPEAKER, true), 0);
    takeEvents();
    EXPECT_EQ(linux_tv_Audio_restoreSoundSets(), 0);
    const Event markRestored{kVolumeChanged, {KELU_TV_AUDIO_CHANNEL_24G, 20}};
    EXPECT_EQ(takeEvents(), (std::vector<Event>{{kMuteChanged, {0, 0}}, {kVolumeChanged, {1, 20}}, markRestored}));
}

TEST_F(Events, TellOfANewSourceAndWhatIsNewOfItsSignal) {
    EXPECT_EQ(SourceManager::instance()->selectSource(KELU_TV_SRC_HDMI2, KELU_TV_WINDOW_MAIN), 0);
    const std::vector<Event> expected{
        {kSourceChanged, {0, 10}},
        {kStreamTypeChanged, {1}},
        {kTimingChanged, {3840, 2160, 60, 0, 1, 0, 1, 0, 0}},
    };
    EXPECT_EQ(takeEvents(), expected);
}

TEST_F(Events, TellOfALostSignal) {
    EXPECT_EQ(SourceManager::instance()->selectSource(KELU_TV_SRC_CVBS2, KELU_TV_WINDOW_MAIN), 0);
    const std::vector<Event> expected{
        {kSourceChanged, {0, 4}},
        {kSignalChanged, {0}},
        {kTimingChanged, {0, 0, 0, 0, 0, 0, 0, 0, 0}},
    };
    EXPECT_EQ(takeEvents(), expected);
}

TEST_F(Events, TellOfTheSignalOfADeselectedSourceOnce) {
    EXPECT_EQ(SourceManager::instance()->deselectSource(KELU_TV_SRC_ATV, true), 0);
    EXPECT_EQ(SourceManager::instance()->deselectSource(KELU_TV_SRC_ATV, true), 0);
    const std::vector<Event> expected{{kSignalChanged, {0}}, {kTimingChanged, {0, 0, 0, 0, 0, 0, 0, 0, 0}}};
    EXPECT_EQ(takeEvents(), expected);
}

TEST_F(Events, TellOfA3dSignalAndOf3dModesThatAreSet) {
    EXPECT_EQ(SourceManager::instance()->selectSource(KELU_TV_SRC_MEDIA1, KELU_TV_WINDOW_MAIN), 0);
    const std::vector<Event> expected{
        {kSourceChanged, {0, 13}},
        {kTimingChanged, {1920, 1080, 24, 0, 0, 4, 1, 0, 0}},
        {kMode3dChanged, {4}},
    };
    EXPECT_EQ(takeEvents(), expected);
    EXPECT_EQ(linux_tv_Video_set3dMode(KELU_TV_3DMODE_FP), 0);
    EXPECT_EQ(linux_tv_Video_set3dMode(KELU_TV_3DMODE_SBS), 0);
    EXPECT_EQ(takeEvents(), (std::vector<Event>{{kMode3dChanged, {2}}}));
}

TEST_F(Events, TellOfTheSourceOfAnotherWindowOnly) {
    EXPECT_EQ(SourceManager::instance()->selectSource(KELU_TV_SRC_HDMI2, KELU_TV_WINDOW_SUB), 0);
    EXPECT_EQ(takeEvents(), (std::vector<Event>{{kSourceChanged, {1, 10}}}));
}

TEST_F(Events, DoNotTellOfARefusedOrUnchangedSource) {
    EXPECT_EQ(SourceManager::instance()->selectSource(KELU_TV_SRC_BUTT, KELU_TV_WINDOW_MAIN), -108);
    EXPECT_EQ(SourceManager::instance()->selectSource(KELU_TV_SRC_ATV, KELU_TV_WINDOW_MAIN), 0);
    EXPECT_EQ(takeEvents(), std::vector<Event>{});
}

} // namespace

} // namespace kelutv::test
