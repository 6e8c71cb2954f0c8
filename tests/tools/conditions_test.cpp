#include "tools/kelutv/events/EventNames.h"
#include "tools/kelutv/events/FieldCondition.h"
#include "tools/kelutv/output/Errors.h"
#include "tools/kelutv/settings/SettingCondition.h"

#include <gtest/gtest.h>

#include <cstdint>

namespace kelutv::test {
namespace {

using tool::Json;

bool isMet(const std::string& condition, const Json& value) {
    return tool::SettingCondition(*tool::comparisonIn(condition)).isMetBy(value);
}

/** Whether an event of the simulated television with these int32 words is so. */
bool isMet(const std::string& event, const std::string& condition, const std::vector<std::int32_t>& words) {
    const wire::EventTable events = tool::eventsOf("");
    const auto* const bytes = reinterpret_cast<const std::uint8_t*>(words.data());
    const wire::Event& named = *events.named(event);
    return tool::FieldCondition(named, *tool::comparisonIn(condition))
        .isMetBy(wire::readPayload(&named, {bytes, bytes + words.size() * sizeof(std::int32_t)}));
}

template <typename Action> std::string messageOf(const Action& action) {
    try {
        action();
    } catch (const tool::UsageError& error) {
        return error.what();
    }
    ADD_FAILURE() << "not refused";
    return "";
}

std::string refusalOf(const std::string& condition) {
    return messageOf([&condition] { return isMet(condition, 0); });
}

std::string refusalOf(const std::string& event, const std::string& condition) {
    return messageOf([&] { return isMet(event, condition, {}); });
}

TEST(Comparison, hasASignBetweenNameAndValue) {
    for (const char* const text : {"volume>=20", "volume >= 20", " volume>= 20 "}) {
        const auto comparison = tool::comparisonIn(text);
        ASSERT_TRUE(comparison) << text;
        EXPECT_EQ(comparison->name, "volume");
        EXPECT_EQ(comparison->relation, tool::Relation::GreaterOrEqual);
        EXPECT_EQ(comparison->value, "20");
    }
    EXPECT_EQ(tool::comparisonIn("name=a=b")->value, "a=b");
    EXPECT_EQ(tool::comparisonIn("volume=-3")->value, "-3");
    EXPECT_EQ(tool::comparisonIn("volumeChanged"), std::nullopt);
    EXPECT_EQ(tool::comparisonIn("wow!"), std::nullopt);
    EXPECT_EQ(refusalOf("volume="), "a name and a value stand on the sides of =, not 'volume='");
    EXPECT_EQ(refusalOf(" <=3"), "a name and a value stand on the sides of <=, not ' <=3'");
}

TEST(SettingCondition, comparesNumbers) {
    for (const char* const condition :
         {"volume=20", "volume==20", "volume!=21", "volume<21", "volume<=20", "volume>19", "volume>=20", "volume>-1"}) {
        EXPECT_TRUE(isMet(condition, 20)) << condition;
    }
    for (const char* const condition :
         {"volume=21", "volume==19", "volume!=20", "volume<20", "volume<=19", "volume>20", "volume>=21"}) {
        EXPECT_FALSE(isMet(condition, 20)) << condition;
    }
    EXPECT_TRUE(isMet("volume>9", 10)); // Not as texts.
}

TEST(SettingCondition, comparesSwitchesNamesAndTexts) {
    EXPECT_TRUE(isMet("mute=on", true));
    EXPECT_FALSE(isMet("mute=on", false));
    EXPECT_TRUE(isMet("mute!=on", false));
    EXPECT_TRUE(isMet("source=hdmi2", "hdmi2"));
    EXPECT_TRUE(isMet("source=KELU_TV_SRC_HDMI2", "hdmi2"));
    EXPECT_FALSE(isMet("source=hdmi2", "hdmi1"));
    EXPECT_TRUE(isMet("platform=X", "X"));
}

TEST(SettingCondition, refusesWhatCannotBe) {
    EXPECT_EQ(refusalOf("volme=3"), "there is no 'volme' to get or set; nearest: volume");
    EXPECT_EQ(refusalOf("volume=x"), "volume is compared with a whole number, not 'x'");
    EXPECT_EQ(refusalOf("mute>on"), "mute is compared by = or != only");
    EXPECT_EQ(refusalOf("mute=loud"), "mute is on or off, not 'loud'");
    EXPECT_EQ(refusalOf("timing=1"), "timing has several values; none can be waited for");
    EXPECT_NE(refusalOf("source=nowhere").find("nowhere"), std::string::npos);
}

TEST(FieldCondition, comparesNumbersAndTheirNames) {
    const std::vector<std::int32_t> words{1, 35};
    EXPECT_TRUE(isMet("volumeChanged", "volume=35", words));
    EXPECT_TRUE(isMet("volumeChanged", "volume=0x23", words));
    EXPECT_TRUE(isMet("volumeChanged", "volume>=30", words));
    EXPECT_FALSE(isMet("volumeChanged", "volume<30", words));
    EXPECT_TRUE(isMet("volumeChanged", "channel=headphone", words));
    EXPECT_TRUE(isMet("volumeChanged", "channel=1", words));
    EXPECT_TRUE(isMet("volumeChanged", "channel!=speaker", words));
    EXPECT_FALSE(isMet("volumeChanged", "volume!=0", {1})) << "the payload ends before";
}

TEST(FieldCondition, comparesTextsAndBytes) {
    // "soft" and the zero behind it.
    const std::vector<std::int32_t> words{0, 0x74666f73, 0};
    EXPECT_TRUE(isMet("machineInfoChanged", "info=soft", words));
    EXPECT_FALSE(isMet("machineInfoChanged", "info!=soft", words));
    EXPECT_TRUE(isMet("vbiBlock", "data=736f6674", {4, 0x74666f73}));
    EXPECT_FALSE(isMet("vbiBlock", "data=736f66", {4, 0x74666f73}));
}

TEST(FieldCondition, refusesWhatCannotBe) {
    EXPECT_EQ(refusalOf("volumeChanged", "loudness=3"),
              "volumeChanged has no field 'loudness'; it has channel, volume");
    EXPECT_EQ(refusalOf("volumeChanged", "volume=loud"), "volume is compared with a whole number, not 'loud'");
    EXPECT_EQ(refusalOf("machineInfoChanged", "info>soft"), "info is compared by = or != only");
    EXPECT_NE(refusalOf("volumeChanged", "channel=nowhere").find("nowhere"), std::string::npos);
}

} // namespace
} // namespace kelutv::test
