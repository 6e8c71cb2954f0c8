#include "wire/Function.h"
#include "wire/text/FunctionNames.h"
#include "wire/text/Names.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <set>

namespace kelutv::test {
namespace {

using wire::Function;
using NamesOfFunctions = std::vector<std::string>;

NamesOfFunctions namesIn(const std::vector<const Function*>& functions) {
    NamesOfFunctions names;
    for (const Function* const function : functions) {
        names.emplace_back(function->name);
    }
    std::sort(names.begin(), names.end());
    return names;
}

const Function& function(const std::string& name) {
    const auto found = wire::functionsNamed(name);
    EXPECT_EQ(found.size(), 1U) << name;
    return *found.at(0);
}

TEST(Functions, areFoundByEitherName) {
    EXPECT_EQ(namesIn(wire::functionsNamed("audio.setVolume")), NamesOfFunctions{"linux_tv_Audio_setVolume"});
    EXPECT_EQ(namesIn(wire::functionsNamed("Audio::setInputVolume")), NamesOfFunctions{"Audio::setInputVolume"});
    EXPECT_EQ(wire::functionsNamed("factory.getIRWBStatus").size(), 2U);
    EXPECT_TRUE(wire::functionsNamed("audio.setVolum").empty());
}

TEST(Functions, areFoundByPatternsOfTheirNames) {
    EXPECT_EQ(namesIn(wire::functionsMatching("pcmplayer.s*")),
              (NamesOfFunctions{"linux_tv_PCMPlayer_setGain", "linux_tv_PCMPlayer_startPlay",
                                "linux_tv_PCMPlayer_stopPlay"}));
    EXPECT_EQ(namesIn(wire::functionsMatching("INPUTVOLUME")),
              (NamesOfFunctions{"Audio::getInputVolume", "Audio::setInputVolume"}));
    EXPECT_EQ(namesIn(wire::functionsMatching("linux_tv_Audio_setVolume")),
              NamesOfFunctions{"linux_tv_Audio_setVolume"});
    EXPECT_TRUE(wire::functionsMatching("nothing of the kind").empty());
}

TEST(Functions, ofAModuleAreFoundByItsName) {
    const auto found = wire::functionsMatching("audio");
    EXPECT_FALSE(found.empty());
    EXPECT_TRUE(std::all_of(found.begin(), found.end(),
                            [](const Function* each) { return std::strcmp(each->module, "audio") == 0; }));
}

TEST(Functions, areFoundByTheItemThatTheySend) {
    constexpr std::int32_t kGetAudioItem = 0x2054;
    constexpr std::int32_t kGetSourcePrescale = 0x200F;
    const auto names = namesIn(wire::functionsSending(kGetAudioItem, kGetSourcePrescale));
    EXPECT_EQ(names, NamesOfFunctions{"linux_tv_Audio_getSourcePreScale"});
    EXPECT_GT(wire::functionsSending(kGetAudioItem).size(), names.size());
}

TEST(Functions, sayWhatTheyDoToATelevision) {
    EXPECT_EQ(function("audio.getVolume").effect.kind, wire::EffectKind::Read);
    EXPECT_EQ(function("pcmplayer.startPlay").effect.kind, wire::EffectKind::Action);
    const wire::Effect set = function("audio.setVolume").effect;
    EXPECT_EQ(set.kind, wire::EffectKind::Set);
    EXPECT_STREQ(set.back, "linux_tv_Audio_getVolume");
    EXPECT_FALSE(set.isDangerous);
    EXPECT_TRUE(function("eep.SetTVFlashEepMulti").effect.isDangerous);
}

TEST(Functions, thatPutBackCanBeCalledAndRead) {
    for (const Function& each : wire::allFunctions()) {
        if (each.effect.back != nullptr) {
            EXPECT_EQ(each.effect.kind, wire::EffectKind::Set) << each.name;
            EXPECT_EQ(function(each.effect.back).effect.kind, wire::EffectKind::Read) << each.name;
        }
    }
}

TEST(Functions, sayWhatIsKnownOfNumbers) {
    const wire::Range* const unit = function("audio.setAVsync").parameters[0].values.range;
    ASSERT_NE(unit, nullptr);
    EXPECT_STREQ(unit->unit, "ms");
    EXPECT_FALSE(unit->least || unit->greatest || unit->step || unit->initial || unit->isBounded());
    const wire::Range* const address = function("eep.SetTVFlashEepMulti").parameters[0].values.range;
    ASSERT_NE(address, nullptr);
    EXPECT_TRUE(address->isBounded());
    EXPECT_EQ(address->least, 0x8A00);
    EXPECT_EQ(address->greatest, 0x8BFC);
    EXPECT_EQ(function("audio.setVolume").parameters[1].values.range, nullptr);
}

TEST(Enumerations, areThereOnceAndInOrder) {
    const auto enumerations = wire::allEnumerations();
    const auto precedes = [](const wire::Enumeration& left, const wire::Enumeration& right) {
        return std::strcmp(left.name, right.name) < 0;
    };
    EXPECT_TRUE(std::is_sorted(enumerations.begin(), enumerations.end(), precedes));
    const wire::Enumeration* const channels = wire::findEnumeration("KELU_TV_AUDIO_CHANNEL_E");
    ASSERT_NE(channels, nullptr);
    EXPECT_EQ(function("audio.setVolume").parameters[0].values.names, channels);
    EXPECT_EQ(wire::findEnumeration("NOTHING_E"), nullptr);
}

TEST(Enumerations, markWhatOnlyEndsARange) {
    const wire::Enumeration& sources = *wire::findEnumeration("KELU_TV_SRC_E");
    std::set<std::string> markers;
    for (const wire::Enumerator& each : sources.values) {
        if (each.isEndMarker) {
            markers.insert(each.name);
        }
    }
    EXPECT_EQ(markers.count("KELU_TV_SRC_BUTT"), 1U);
    EXPECT_EQ(markers.count("KELU_TV_SRC_HDMI_MAX"), 1U);
    EXPECT_EQ(markers.count("KELU_TV_SRC_HDMI4"), 0U);
    const auto& offered = wire::namesOf(sources).shortNames();
    EXPECT_EQ(std::count(offered.begin(), offered.end(), "hdmi_max"), 0);
    EXPECT_EQ(std::count(offered.begin(), offered.end(), "hdmi4"), 1);
}

} // namespace
} // namespace kelutv::test
