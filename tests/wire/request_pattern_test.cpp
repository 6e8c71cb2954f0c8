#include "wire/text/Names.h"
#include "wire/text/RequestPattern.h"

#include <gtest/gtest.h>

namespace kelutv::test {
namespace {

using wire::RequestPattern;

/** A request of this command with an item behind it, which only item commands look at. */
wire::Request request(std::int32_t number, std::int32_t item = 0) {
    wire::Request request;
    request.number = number;
    request.command = wire::findCommand(number);
    request.arguments = {{item}};
    return request;
}

constexpr std::int32_t kSetVolume = 0x2008;
constexpr std::int32_t kGetVolume = 0x2009;
/** The generic pair of the audio module, and two of the items that it carries. */
constexpr std::int32_t kGetAudioItem = 0x2054;
constexpr std::int32_t kGetSourcePrescale = 0x200F;
constexpr std::int32_t kUnknownItem = 0x7FFF0000;

bool means(const std::string& word, const wire::Request& request) { return RequestPattern(word).matches(request); }

TEST(RequestPattern, takesTheNameOfACommand) {
    EXPECT_TRUE(means("CMD_AUDIO_SETVOLUME", request(kSetVolume)));
    EXPECT_TRUE(means("cmd_audio_setvolume", request(kSetVolume)));
    EXPECT_FALSE(means("CMD_AUDIO_SETVOLUME", request(kGetVolume)));
}

TEST(RequestPattern, takesAPieceOfANameAndAPattern) {
    EXPECT_TRUE(means("etvolume", request(kSetVolume)));
    EXPECT_TRUE(means("CMD_AUDIO_*", request(kGetVolume)));
    EXPECT_TRUE(means("CMD_AUDIO_?ETVOLUME", request(kGetVolume)));
    EXPECT_TRUE(means("CMD_AUDIO_[gs]ETVOLUME", request(kGetVolume)));
    EXPECT_FALSE(means("CMD_AUDIO_[s]ETVOLUME", request(kGetVolume)));
    EXPECT_FALSE(means("CMD_PICTURE_*", request(kGetVolume)));
}

TEST(RequestPattern, takesTheNumberOfACommand) {
    EXPECT_TRUE(means("0x2008", request(kSetVolume)));
    EXPECT_TRUE(means("8200", request(kSetVolume)));
    EXPECT_FALSE(means("0x2009", request(kSetVolume)));
}

TEST(RequestPattern, takesTheNameOfAnItem) {
    EXPECT_TRUE(means("CMDID_AUDIO_GET_SOURCE_PRESCALE", request(kGetAudioItem, kGetSourcePrescale)));
    EXPECT_TRUE(means("source_prescale", request(kGetAudioItem, kGetSourcePrescale)));
    EXPECT_FALSE(means("CMDID_AUDIO_GET_SOURCE_PRESCALE", request(kGetAudioItem, kUnknownItem)));
    EXPECT_FALSE(means("CMDID_AUDIO_GET_SOURCE_PRESCALE", request(kSetVolume, kGetSourcePrescale)));
}

TEST(RequestPattern, takesAnyForWhatCannotBeReadAsWell) {
    EXPECT_TRUE(means("any", request(kSetVolume)));
    EXPECT_TRUE(means("any", wire::Request()));
    EXPECT_FALSE(means("CMD_*", wire::Request()));
}

TEST(RequestPattern, refusesWhatMeansNoRequest) {
    const auto complaint = [](const std::string& word) -> std::string {
        try {
            RequestPattern pattern(word);
        } catch (const wire::UnknownName& error) {
            return error.what();
        }
        return "taken";
    };
    EXPECT_EQ(complaint("CMD_AUDIO_SETVOLUNE"),
              "there is no command or item 'CMD_AUDIO_SETVOLUNE'; nearest: CMD_AUDIO_SETVOLUME, CMD_AUDIO_GETVOLUME, "
              "CMD_AUDIO_SETVOLUME_C, CMD_AUDIO_SETMUTE, CMD_AUDIO_GETMUTE");
    EXPECT_EQ(complaint("CMD_NOTHING_*"), "there is no command or item 'CMD_NOTHING_*'");
    EXPECT_EQ(complaint(""), "there is no command or item ''");
    EXPECT_EQ(complaint("0x99999"), "there is no command 0x99999");
}

} // namespace
} // namespace kelutv::test
