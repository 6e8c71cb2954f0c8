#include "simulator/Simulator.h"

#include <kelutv/kelutv.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <condition_variable>
#include <cstring>
#include <mutex>
#include <ostream>
#include <vector>

namespace kelutv::test {

namespace {

const auto& environment = SimulatorEnvironment::install();

constexpr int kVolumeChanged = 0x60001;
constexpr int kMuteChanged = 0x60002;
constexpr int kSourceChanged = 0x40001;
constexpr int kSignalChanged = 0x40002;
constexpr int kTimingChanged = 0x40003;
constexpr int kMode3dChanged = 0x50001;
constexpr int kStreamTypeChanged = 0x80001;

struct Event {
    int id;
    std::vector<int> words;

    bool operator==(const Event& other) const { return id == other.id && words == other.words; }
};

std::ostream& operator<<(std::ostream& out, const Event& event) {
    return out << std::hex << event.id << std::dec << ::testing::PrintToString(event.words);
}

/** What the application's callback was told. */
class Inbox {
public:
    void put(Event event) {
        const std::lock_guard<std::mutex> lock(mMutex);
        mEvents.push_back(std::move(event));
        mArrived.notify_all();
    }

    /** Everything up to this event, which must come. */
    std::vector<Event> takeUntil(const Event& last) {
        std::unique_lock<std::mutex> lock(mMutex);
        const bool came = mArrived.wait_for(lock, kPatience, [this, &last] {
            return std::find(mEvents.begin(), mEvents.end(), last) != mEvents.end();
        });
        EXPECT_TRUE(came) << last;
        return std::exchange(mEvents, {});
    }

private:
    std::mutex mMutex;
    std::condition_variable mArrived;
    std::vector<Event> mEvents;
};

Inbox& inbox() {
    static auto* const inbox = new Inbox;
    return *inbox;
}

void onEvent(int id, void* data, unsigned int length, void*) {
    std::vector<int> words(length / sizeof(int));
    if (!words.empty()) {
        std::memcpy(words.data(), data, words.size() * sizeof(int));
    }
    inbox().put({id, words});
}

/** A change that marks the end of what a test did; what comes before it is all there is. */
std::vector<Event> takeEvents() {
    static int level = 20;
    ++level;
    const Event mark{kVolumeChanged, {KELU_TV_AUDIO_CHANNEL_24G, level}};
    EXPECT_EQ(linux_tv_Audio_setVolume(KELU_TV_AUDIO_CHANNEL_24G, level), 0);
    std::vector<Event> events = inbox().takeUntil(mark);
    if (!events.empty()) {
        events.pop_back();
    }
    return events;
}

class Events : public ::testing::Test {
protected:
    void SetUp() override {
        linux_tv_registerCallbackFunc(onEvent);
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
    EXPECT_EQ(linux_tv_Audio_setSoundMode(KELU_TV_SNDMODE_MOVIE), 0);
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
