#include "client/ClientTest.h"

#include <kelutv/Config.h>

#include <type_traits>

namespace kelutv::test {
namespace {

using FlagOrStatus = int (CConfig::*)(bool*);
using FlagOrFailed = bool (CConfig::*)(bool*);
using FlagSetter = int (CConfig::*)(bool);

static_assert(std::is_empty_v<CConfig> && !std::is_polymorphic_v<CConfig> && std::is_default_constructible_v<CConfig>);
static_assert(std::is_same_v<decltype(&CConfig::GetCECSwitchMode), FlagOrStatus>);
static_assert(std::is_same_v<decltype(&CConfig::GetCECDeviceAutoPowerOff), FlagOrFailed>);
static_assert(std::is_same_v<decltype(&CConfig::GetCECTVAutoPowerOn), FlagOrFailed>);
static_assert(std::is_same_v<decltype(&CConfig::GetCECTvAutoPowerOff), FlagOrStatus>);
static_assert(std::is_same_v<decltype(&CConfig::GetARCEnable), FlagOrStatus>);
static_assert(std::is_same_v<decltype(&CConfig::SetCECTVAutoPowerOn), FlagSetter>);
static_assert(std::is_same_v<decltype(&CConfig::SetCECTvAutoPowerOff), FlagSetter>);
static_assert(KELU_MW_SND_ARC_AUDIO_MODE_LPCM == 0 && KELU_MW_SND_ARC_AUDIO_MODE_RAW == 1);
static_assert(KELU_MW_SND_ARC_AUDIO_MODE_HBR2LBR == 2 && KELU_MW_SND_ARC_AUDIO_MODE_AUTO == 3);
static_assert(KELU_MW_SND_ARC_AUDIO_MODE_BUTT == 4 && sizeof(KELU_MW_SND_ARC_MODE_E) == 4);

template <typename Getter> struct Flag {
    int command;
    Getter get;
};

class Config : public ClientTest {
protected:
    /** Reads a flag with every kind of answer; each must give `good` or `bad`. */
    template <typename Getter, typename Result> void check(const Flag<Getter>& flag, Result good, Result bad) {
        bool value = false;
        expectAnswer(flag, {0, 2}, value, good);
        EXPECT_TRUE(value);
        expectAnswer(flag, {0, 0}, value, good);
        EXPECT_FALSE(value);
        expectAnswer(flag, {0, -2}, value, good);
        EXPECT_TRUE(value);
        expectAnswer(flag, {0, -1}, value, bad);
        EXPECT_TRUE(value);
        expectAnswer(flag, {3, 0}, value, bad);
        EXPECT_TRUE(value);
        value = false;
        expectAnswer(flag, {0, -1}, value, bad);
        EXPECT_FALSE(value);
        expectAnswer(flag, {3, 1}, value, bad);
        EXPECT_FALSE(value);
        EXPECT_EQ((mConfig.*flag.get)(nullptr), bad);
        EXPECT_EQ(sent(), kNothingSent);
        EXPECT_EQ(logged(), kNothingLogged);
    }

    CConfig mConfig;

private:
    template <typename Getter, typename Result>
    void expectAnswer(const Flag<Getter>& flag, std::initializer_list<std::int32_t> words, bool& value, Result result) {
        answer(words);
        EXPECT_EQ((mConfig.*flag.get)(&value), result);
        EXPECT_EQ(sent(), only(requestOf(flag.command)));
    }
};

// irregular: CConfig::GetCECSwitchMode, CConfig::GetCECTvAutoPowerOff, CConfig::GetARCEnable
TEST_F(Config, threeFlagsComeWithAStatus) {
    check(Flag<FlagOrStatus>{0x10001, &CConfig::GetCECSwitchMode}, 0, -1);
    check(Flag<FlagOrStatus>{0x10007, &CConfig::GetCECTvAutoPowerOff}, 0, -1);
    check(Flag<FlagOrStatus>{0x10009, &CConfig::GetARCEnable}, 0, -1);
}

// irregular: CConfig::GetCECDeviceAutoPowerOff, CConfig::GetCECTVAutoPowerOn
TEST_F(Config, twoFlagsComeWithTrueForAFailure) {
    check(Flag<FlagOrFailed>{0x10003, &CConfig::GetCECDeviceAutoPowerOff}, false, true);
    check(Flag<FlagOrFailed>{0x10005, &CConfig::GetCECTVAutoPowerOn}, false, true);
}

// irregular: CConfig::GetARCMode
TEST_F(Config, theFormatIsStoredAsItCame) {
    KELU_MW_SND_ARC_MODE_E mode = KELU_MW_SND_ARC_AUDIO_MODE_BUTT;
    answer({0, 2});
    EXPECT_EQ(mConfig.GetARCMode(&mode), 0);
    EXPECT_EQ(mode, KELU_MW_SND_ARC_AUDIO_MODE_HBR2LBR);
    answer({0, -9});
    EXPECT_EQ(mConfig.GetARCMode(&mode), 0);
    EXPECT_EQ(static_cast<int>(mode), -9);
    sent();
    answer({0, -1});
    EXPECT_EQ(mConfig.GetARCMode(&mode), -1);
    EXPECT_EQ(sent(), only(requestOf(0x1000B)));
    answer({3, 1});
    EXPECT_EQ(mConfig.GetARCMode(&mode), -1);
    EXPECT_EQ(static_cast<int>(mode), -9);
    sent();
    EXPECT_EQ(mConfig.GetARCMode(nullptr), -1);
    EXPECT_EQ(sent(), kNothingSent);
}

struct Setter {
    int command;
    FlagSetter set;
};

TEST_F(Config, flagsAreSentAsOneOrZero) {
    for (const Setter& setter :
         {Setter{0x10002, &CConfig::SetCECSwitchMode}, Setter{0x10004, &CConfig::SetCECDeviceAutoPowerOff},
          Setter{0x10006, &CConfig::SetCECTVAutoPowerOn}, Setter{0x10008, &CConfig::SetCECTvAutoPowerOff},
          Setter{0x1000A, &CConfig::SetARCEnable}}) {
        answer({5});
        EXPECT_EQ((mConfig.*setter.set)(true), 5);
        EXPECT_EQ(sent(), only(requestOf(setter.command, {1})));
        answer({-1});
        EXPECT_EQ((mConfig.*setter.set)(false), -1);
        EXPECT_EQ(sent(), only(requestOf(setter.command, {0})));
    }
    EXPECT_EQ(logged(), kNothingLogged);
}

TEST_F(Config, theFormatIsSentAsItIs) {
    answer({7});
    EXPECT_EQ(mConfig.SetARCMode(static_cast<KELU_MW_SND_ARC_MODE_E>(99)), 7);
    EXPECT_EQ(sent(), only(requestOf(0x1000C, {99})));
}

} // namespace
} // namespace kelutv::test
