#include "tools/kelutv/compliance/Families.h"
#include "tools/kelutv/compliance/knowledge/Capabilities.h"
#include "tools/kelutv/output/Errors.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace kelutv::test {
namespace {

using namespace tool::compliance;

const std::string kForm = "form.audio.getVolume[channel=headphone].end";
const std::string kState = "state.audio.setVolume[channel=headphone].kept";
const std::string kEvent = "events.audio.setVolume[channel=headphone].once";
const std::string kOtherKey = "form.audio.getVolume[channel=speaker].end";
const std::string kOtherCommand = "form.audio.getInputVolume.end";
const std::string kOtherModule = "form.picture.getColorTemp.end";

/** Why the check of this identifier is left out; empty when it is not. */
std::string reasonOf(const std::string& id, const std::string& members) {
    static const Checks checks = chosenChecks({kForm, kState, kEvent, kOtherKey, kOtherCommand, kOtherModule}, {});
    const auto check =
        std::find_if(checks.begin(), checks.end(), [&id](const auto& each) { return each->subject().id == id; });
    return whyLacking(capabilitiesOf(R"({"format": "kelutv capabilities 1", )" + members + '}', "FILE"), **check);
}

TEST(Capabilities, leaveOutTheChecksOfAModule) {
    const std::string audio = R"("modules": {"audio": false, "picture": true})";
    EXPECT_EQ(reasonOf(kForm, audio), "the television has no module audio");
    EXPECT_EQ(reasonOf(kEvent, audio), "the television has no module audio");
    EXPECT_EQ(reasonOf(kOtherModule, audio), "");
}

TEST(Capabilities, leaveOutTheChecksOfACommandAndOfWhatItReadsBack) {
    const std::string volume = R"("commands": {"CMD_AUDIO_GETVOLUME": false})";
    EXPECT_EQ(reasonOf(kForm, volume), "the television has no CMD_AUDIO_GETVOLUME");
    EXPECT_EQ(reasonOf(kState, volume), "the television has no CMD_AUDIO_GETVOLUME");
    EXPECT_EQ(reasonOf(kOtherCommand, volume), "");
}

TEST(Capabilities, leaveOutTheChecksUnderAKey) {
    const std::string headphone = R"("keys": {"audio.getVolume[channel=headphone]": false})";
    EXPECT_EQ(reasonOf(kForm, headphone), "the television has no audio.getVolume[channel=headphone]");
    EXPECT_EQ(reasonOf(kState, headphone), "the television has no audio.getVolume[channel=headphone]");
    EXPECT_EQ(reasonOf(kOtherKey, headphone), "");
}

TEST(Capabilities, leaveOutTheChecksOfAnEvent) {
    const std::string volume = R"("events": {"volumeChanged": false})";
    EXPECT_EQ(reasonOf(kEvent, volume), "the television has no event volumeChanged");
    EXPECT_EQ(reasonOf(kState, volume), "");
}

std::string complaintAbout(const std::string& text) {
    try {
        capabilitiesOf(text, "FILE");
    } catch (const tool::UsageError& error) {
        return error.what();
    }
    return "";
}

TEST(Capabilities, areRefusedWithWhatIsWrong) {
    EXPECT_EQ(complaintAbout("{}"), "FILE: lacks 'format'");
    EXPECT_EQ(complaintAbout(R"({"format": "x"})"), "FILE: the format is 'x', not 'kelutv capabilities 1'");
    EXPECT_EQ(complaintAbout(R"({"format": "kelutv capabilities 1", "modules": ["audio"]})"),
              "FILE: 'modules' is no object");
    EXPECT_EQ(complaintAbout(R"({"format": "kelutv capabilities 1", "keys": {"a": 1}})"),
              "FILE: keys: 'a' is neither true, for what there is, nor false");
    EXPECT_EQ(complaintAbout(R"({"format": "kelutv capabilities 1", "mood": 1})"), "");
}

} // namespace
} // namespace kelutv::test
