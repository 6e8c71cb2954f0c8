#include "simulator/Simulator.h"

#include <kelutv/kelutv.h>

#include <gtest/gtest.h>

#include <fcntl.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <string>
#include <vector>

namespace kelutv::test {

namespace {

auto& environmentOfTrace = SimulatorEnvironment::install();

class Trace : public ::testing::Test {
protected:
    void SetUp() override {
        linux_tv_Audio_restoreSoundSets();
        linux_tv_PCMPlayer_stopPlay();
        environmentOfTrace.simulator().takeTrace();
    }

    static std::vector<std::string> lines() { return environmentOfTrace.simulator().takeTrace(); }

    /** A line as it is printed for a request of this process. */
    static std::string own(const std::string& text) { return "[" + std::to_string(::getpid()) + "] " + text; }
};

TEST_F(Trace, NamesCommandArgumentsAndResult) {
    linux_tv_Audio_setVolume(KELU_TV_AUDIO_CHANNEL_SPEAKER, 35);
    linux_tv_Audio_setMute(KELU_TV_AUDIO_CHANNEL_SPDIF, true);
    const std::vector<std::string> expected{
        own("CMD_AUDIO_SETVOLUME(channel=0 KELU_TV_AUDIO_CHANNEL_SPEAKER, vol=35) -> 0"),
        "event 0x60001 volumeChanged: audio.volume[0] = 35",
        own("CMD_AUDIO_SETMUTE(channel=4 KELU_TV_AUDIO_CHANNEL_SPDIF, onoff=1, type=0 KELU_TV_SND_MUTE_IRCTRL) -> 0"),
        "event 0x60002 muteChanged: audio.mute[4] = 1",
    };
    EXPECT_EQ(lines(), expected);
}

TEST_F(Trace, ShowsTheValueBehindTheResult) {
    linux_tv_Audio_getVolume(KELU_TV_AUDIO_CHANNEL_HEADPHONE);
    linux_tv_Audio_getSoundMode();
    linux_tv_Audio_getVolume(77);
    const std::vector<std::string> expected{
        own("CMD_AUDIO_GETVOLUME(channel=1 KELU_TV_AUDIO_CHANNEL_HEADPHONE) -> 0: 20"),
        own("CMD_AUDIO_GETSOUNDMODE() -> 0: 0 KELU_TV_SNDMODE_STANDARD"),
        own("CMD_AUDIO_GETVOLUME(channel=77) -> 0: 20"),
    };
    EXPECT_EQ(lines(), expected);
}

TEST_F(Trace, ShowsRecordsListsAndBlocks) {
    KELU_TV_SND_DRC_ATTR_S attributes{3, 4};
    linux_tv_Audio_setDRCAttr(&attributes);
    linux_tv_Audio_getDRCAttr(&attributes);
    Audio::instance()->getOutputList();
    const std::vector<std::string> expected{
        own("CMD_AUDIO_SETDRCATTR(stDrcAttr.intthrhd=3, stDrcAttr.intLimit=4) -> 0"),
        own("CMD_AUDIO_GETDRCATTR() -> 0: intthrhd=3, intLimit=4"),
        own("CMDID_AUDIO_GET_OUTPUT_LIST() -> 0: \"speaker\", \"headphone\", \"spdif\", \"arc\", \"bluetooth\""),
    };
    EXPECT_EQ(lines(), expected);
}

TEST_F(Trace, NamesItemsAndTheirOwnArguments) {
    linux_tv_Audio_setMaxVolume(KELU_TV_AUDIO_CHANNEL_SPEAKER, 80);
    linux_tv_Audio_getMaxVolume(KELU_TV_AUDIO_CHANNEL_SPEAKER);
    const std::vector<std::string> expected{
        own("CMD_AUDIO_COMMON_SET_ITEM_VALUE(cmdID=8203 CMDID_AUDIO_SET_MAX_VOLUME, channel=0 "
            "KELU_TV_AUDIO_CHANNEL_SPEAKER, vol=80, param3=0, param4=0) -> 0"),
        "event 0x60003 maxVolumeChanged: audio.maxVolume[0] = 80",
        own("CMD_AUDIO_COMMON_GET_ITEM_VALUE(cmdID=8204 CMDID_AUDIO_GET_MAX_VOLUME, channel=0 "
            "KELU_TV_AUDIO_CHANNEL_SPEAKER, param2=0) -> 0: [80, 0*254]"),
    };
    EXPECT_EQ(lines(), expected);
}

TEST_F(Trace, TellsOfSettingsAsTheyAreKept) {
    linux_tv_Picture_setBrightness(61);
    char info[] = "TV";
    linux_tv_Factory_setMachineInfo(KELU_TV_MACHINE_INFO_MODEL, info);
    const std::vector<std::string> traced = lines();
    ASSERT_EQ(traced.size(), 4U);
    EXPECT_EQ(traced[1], "event 0x80006 brightnessChanged: picture.brightness = 61");
    EXPECT_EQ(traced[3], "event 0x30011 machineInfoChanged: factory.machineInfo[0] = \"TV\"");
}

TEST_F(Trace, QuotesTexts) {
    linux_tv_PCMPlayer_startPlay("/tmp/a \"b\"\n.pcm", true, false);
    EXPECT_EQ(lines(),
              std::vector<std::string>{
                  own(R"(CMD_PCMPLAYER_START_PLAY(bLoop=1, bMuteDtvAudio=0, pathName="/tmp/a \"b\"\x0a.pcm") -> 0)")});
}

TEST_F(Trace, SaysWhyARequestWasRefused) {
    linux_tv_Audio_setVolume(KELU_TV_AUDIO_CHANNEL_SPEAKER, 101);
    EXPECT_EQ(lines(), std::vector<std::string>{
                           own("CMD_AUDIO_SETVOLUME(channel=0 KELU_TV_AUDIO_CHANNEL_SPEAKER, vol=101) -> -107 "
                               "(audio.volume goes from 0 to 100)")});
}

TEST_F(Trace, NamesAnUnknownSource) {
    SourceManager::instance()->selectSource(77, KELU_TV_WINDOW_MAIN);
    EXPECT_EQ(
        lines(),
        std::vector<std::string>{own(
            "CMD_SOURCE_SELECTSOURCE(srcId=77, mainWindow=0 KELU_TV_WINDOW_MAIN) -> -108 (there is no source 77)")});
}

/** As with `kelutv-simulator --trace | less`, which reads one screen. */
TEST(TraceThatNobodyReads, KeepsNoClientWaiting) {
    int ends[2];
    ASSERT_EQ(::pipe2(ends, O_CLOEXEC), 0);
    const RuntimeDir elsewhere;
    const auto simulator = startSimulator({"--trace"}, ends[1]);
    ::close(ends[1]);
    char byte = 0;
    ASSERT_EQ(::read(ends[0], &byte, 1), 1); // It is ready.
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < 2000; ++i) {
        ASSERT_EQ(SimulatorEnvironment::transact(requestOf(CMD_AUDIO_GETVOLUME, {0})), replyOf({0, 20}));
    }
    EXPECT_LT(std::chrono::steady_clock::now() - start, kPatience);
    simulator->kill(SIGTERM);
    EXPECT_EQ(simulator->exitCode(), 0);
    ::close(ends[0]);
}

} // namespace

} // namespace kelutv::test
