#include "ClientTest.h"

#include <kelutv/Audio.h>
#include <kelutv/linux_kelutv_audio.h>

#include <string>
#include <type_traits>
#include <utility>

namespace kelutv::test {
namespace {

template <typename T> constexpr bool kIsBool = std::is_same_v<T, bool>;
template <typename T> constexpr bool kIsInt = std::is_same_v<T, int>;

Audio& audio() { return *Audio::instance(); }

static_assert(kIsBool<decltype(audio().getMute(0))>);
static_assert(kIsBool<decltype(audio().isAmplifierMute())>);
static_assert(kIsBool<decltype(audio().isSubWooferEnable())>);
static_assert(kIsBool<decltype(audio().isDolbyDigitalSupport())>);
static_assert(kIsBool<decltype(audio().getSurroundMode())>);
static_assert(kIsBool<decltype(audio().getTrubassMode())>);
static_assert(kIsBool<decltype(audio().getSoundClarity())>);
static_assert(kIsBool<decltype(audio().getAudioWallMode())>);
static_assert(kIsBool<decltype(audio().getDtsDrcState())>);
static_assert(kIsInt<decltype(audio().isDialogueEnhancement())>);
static_assert(kIsInt<decltype(audio().isDolblyAtmosEnable())>);
static_assert(kIsInt<decltype(audio().isARCByPassEnable())>);
static_assert(kIsInt<decltype(audio().isIntelligentVolumeEnable())>);
static_assert(kIsInt<decltype(audio().getCStenhancerEnable())>);
static_assert(kIsInt<decltype(audio().getHeadPhoneConnectStatus())>);
static_assert(kIsInt<decltype(linux_tv_Audio_getMute(0))>);
static_assert(kIsInt<decltype(linux_tv_Audio_isARCByPassEnable())>);

/** A getter that answers with a flag, in the class and in the C interface. */
struct FlagGetter {
    const char* name;
    Bytes request;
    bool (*method)();
    int (*function)();
};

void PrintTo(const FlagGetter& getter, std::ostream* out) { *out << getter.name; }

class AudioFlag : public ClientTest, public ::testing::WithParamInterface<FlagGetter> {
protected:
    void expect(bool flag) {
        EXPECT_EQ(GetParam().method(), flag);
        EXPECT_EQ(GetParam().function(), flag ? 1 : 0);
    }
};

TEST_P(AudioFlag, isSetByAnyValueButZero) {
    answer({0, 0});
    expect(false);
    for (const std::int32_t value : {1, 2, -1, -7}) {
        answer({0, value});
        expect(true);
    }
    EXPECT_EQ(sent(), std::vector<std::string>(10, hex(GetParam().request)));
}

TEST_P(AudioFlag, isSetWhenTheServiceFails) {
    answer({3, 0});
    expect(true);
    EXPECT_EQ(logged(), kNothingLogged);
}

TEST_P(AudioFlag, isSetWhenTheTransactionFails) {
    failTransactions();
    expect(true);
    EXPECT_EQ(logged(), kNothingLogged);
}

const FlagGetter kFlagGetters[] = {
    {"getMute", requestOf(0x200B, {3}), [] { return audio().getMute(3); }, [] { return linux_tv_Audio_getMute(3); }},
    {"isAmplifierMute", requestOf(0x201D), [] { return audio().isAmplifierMute(); }, linux_tv_Audio_isAmplifierMute},
    {"isSubWooferEnable", requestOf(0x201F), [] { return audio().isSubWooferEnable(); },
     linux_tv_Audio_isSubWooferEnable},
    {"isDolbyDigitalSupport", requestOf(0x2037), [] { return audio().isDolbyDigitalSupport(); },
     linux_tv_Audio_isDolbyDigitalSupport},
    {"getSurroundMode", requestOf(0x2030), [] { return audio().getSurroundMode(); }, linux_tv_Audio_getSurroundMode},
    {"getTrubassMode", requestOf(0x2032), [] { return audio().getTrubassMode(); }, linux_tv_Audio_getTrubassMode},
    {"getSoundClarity", requestOf(0x2034), [] { return audio().getSoundClarity(); }, linux_tv_Audio_getSoundClarity},
    {"getDtsDrcState", requestOf(0x2050), [] { return audio().getDtsDrcState(); }, linux_tv_Audio_getDtsDrcState},
    {"getCStenhancerEnable", requestOf(0x2065), [] { return audio().getCStenhancerEnable() != 0; },
     linux_tv_Audio_getCStenhancerEnable},
};

INSTANTIATE_TEST_SUITE_P(Audio, AudioFlag, ::testing::ValuesIn(kFlagGetters),
                         [](const auto& each) { return std::string(each.param.name); });

TEST_F(ClientTest, audioWallModeIsAFlagOfTheClassAlone) {
    answer({0, -3});
    EXPECT_TRUE(audio().getAudioWallMode());
    answer({0, 0});
    EXPECT_FALSE(audio().getAudioWallMode());
    EXPECT_EQ(sent(), std::vector<std::string>(2, hex(requestOf(0x2036))));
}

/** These are named like flags but hand the value on as it is. */
TEST_F(ClientTest, valuesNamedLikeFlagsAreUnchanged) {
    answer({0, 5});
    EXPECT_EQ(audio().isDolblyAtmosEnable(), 5);
    EXPECT_EQ(audio().isARCByPassEnable(), 5);
    EXPECT_EQ(linux_tv_Audio_isARCByPassEnable(), 5);
    EXPECT_EQ(audio().isIntelligentVolumeEnable(), 5);
    EXPECT_EQ(audio().getCStenhancerEnable(), 5);
    answer({3, 5});
    EXPECT_EQ(audio().isARCByPassEnable(), -1);
    EXPECT_EQ(audio().getCStenhancerEnable(), -1);
}

} // namespace
} // namespace kelutv::test
