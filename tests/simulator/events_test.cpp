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

} // namespace

} // namespace kelutv::test
