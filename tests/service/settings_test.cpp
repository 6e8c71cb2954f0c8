#include "kelutv-service/Settings.h"

#include "service/Requests.h"

#include <kelutv/audio_types.h>
#include <kelutv/commands.h>
#include <kelutv/events.h>
#include <kelutv/items.h>

#include <gtest/gtest.h>

#include <stdexcept>

namespace kelutv::service {

namespace {

using test::requestOf;
using test::Wire;

constexpr std::int32_t kSpeaker = KELU_TV_AUDIO_CHANNEL_SPEAKER;
constexpr std::int32_t kNotProvided = -112;
constexpr std::int32_t kOutOfRange = -107;
constexpr std::uint32_t kVolumeChanged = KELU_EM_MODE_VOLUME + 1;

class SettingsTest : public ::testing::Test {
protected:
    Reply answer(const test::Bytes& bytes) {
        const wire::Request request = read(bytes);
        return mSettings.answer(Request(request), mEvents);
    }

    Reply setVolume(std::int32_t channel, std::int32_t volume) {
        return answer(requestOf(CMD_AUDIO_SETVOLUME, {channel, volume}));
    }

    Values volume(std::int32_t channel) { return answer(requestOf(CMD_AUDIO_GETVOLUME, {channel})).values(); }

    KeptEvents mEvents;
    Settings mSettings{"audio", {{"audio.volume", {20}, "volumeChanged", 0, 100}}};
};

TEST_F(SettingsTest, readWhatWasSetUnderTheSameKeys) {
    EXPECT_EQ(setVolume(kSpeaker, 35).result(), 0);
    EXPECT_EQ(volume(kSpeaker), Values{35});
    EXPECT_EQ(volume(KELU_TV_AUDIO_CHANNEL_HEADPHONE), Values{20});
}

TEST_F(SettingsTest, readZerosBeforeASet) {
    EXPECT_EQ(answer(requestOf(CMD_AUDIO_GETSOUNDMODE)).values(), Values{0});
    EXPECT_EQ(answer(requestOf(CMD_AUDIO_GETDRCATTR)).values(), (Values{0, 0}));
}

TEST_F(SettingsTest, readAStatusThatIsTheValue) {
    EXPECT_EQ(answer(requestOf(CMD_AUDIO_SETDIOLOGUEENHANCEMENT, {1})).result(), 0);
    EXPECT_EQ(answer(requestOf(CMD_AUDIO_GETDIOLOGUEENHANCEMENT)).values(), Values{1});
}

TEST_F(SettingsTest, tellOfAChangeOnce) {
    setVolume(kSpeaker, 35);
    setVolume(kSpeaker, 35);
    EXPECT_EQ(mEvents.take(), (KeptEvents::Sent{{kVolumeChanged, wordsOf({kSpeaker, 35})}}));
}

TEST_F(SettingsTest, refuseValuesBeyondTheLimits) {
    EXPECT_EQ(setVolume(kSpeaker, 101).result(), kOutOfRange);
    EXPECT_EQ(setVolume(kSpeaker, -1).result(), kOutOfRange);
    EXPECT_EQ(volume(kSpeaker), Values{20});
    EXPECT_EQ(mEvents.take(), KeptEvents::Sent{});
}

TEST_F(SettingsTest, refuseNumbersWithoutAName) {
    EXPECT_EQ(setVolume(12345, 35).result(), kOutOfRange);
    EXPECT_EQ(answer(requestOf(CMD_AUDIO_GETVOLUME, {12345})).result(), kOutOfRange);
    EXPECT_EQ(answer(requestOf(CMD_AUDIO_SETSOUNDMODE, {12345})).result(), kOutOfRange);
    EXPECT_EQ(answer(requestOf(CMD_AUDIO_SETMUTE, {kSpeaker, 1, 12345})).result(), kOutOfRange);
}

TEST_F(SettingsTest, refuseWhatIsNoStateOfTheirs) {
    EXPECT_EQ(answer(requestOf(CMD_CEC_MODIFY_MUTE)).result(), kNotProvided);
    EXPECT_EQ(answer(requestOf(CMD_PICTURE_GETBRIGHTNESS)).result(), kNotProvided);
}

TEST_F(SettingsTest, restoreWhatWasThereBeforeASet) {
    setVolume(kSpeaker, 35);
    setVolume(KELU_TV_AUDIO_CHANNEL_HEADPHONE, 36);
    setVolume(KELU_TV_AUDIO_CHANNEL_HEADPHONE, 20);
    mEvents.take();
    mSettings.restore(mEvents);
    EXPECT_EQ(mEvents.take(), (KeptEvents::Sent{{kVolumeChanged, wordsOf({kSpeaker, 20})}}));
    EXPECT_EQ(volume(kSpeaker), Values{20});
}

TEST_F(SettingsTest, takeNoMoreThanTheyHaveRoomFor) {
    const std::string half(Settings::kMostSet / 2 - 1024, 'x');
    const auto setText = [&](std::int32_t place, const std::string& text) {
        const auto request =
            Wire::request(CMD_AUDIO_COMMON_SET_ITEM_STRVALUE).i32(CMDID_AUDIO_IS_SUPPORT_NEW_AUDIO_OUTPUT);
        return answer(Wire(request).i32(place).cstr(text.c_str()).i32(0).bytes()).result();
    };
    EXPECT_EQ(setText(1, half), 0);
    EXPECT_EQ(setText(2, half), 0);
    EXPECT_EQ(setText(3, half), kOutOfRange);
    EXPECT_EQ(setText(2, ""), 0);
    EXPECT_EQ(setText(3, half), 0);
}

TEST(Settings, nameNothingThatTheCatalogueDoesNotHave) {
    EXPECT_THROW(Settings("sound", {}), std::invalid_argument);
    EXPECT_THROW(Settings("audio", {{"audio.loudness"}}), std::invalid_argument);
    EXPECT_THROW(Settings("audio", {{"picture.brightness"}}), std::invalid_argument);
    EXPECT_THROW(Settings("audio", {{"audio.volume", {}, "louder"}}), std::invalid_argument);
    EXPECT_THROW(Settings("audio", {{"audio.volume", {}, "soundModeChanged"}}), std::invalid_argument);
}

} // namespace

} // namespace kelutv::service
