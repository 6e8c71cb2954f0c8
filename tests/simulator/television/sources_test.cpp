#include "simulator/Simulator.h"

#include <kelutv/kelutv.h>

#include <gtest/gtest.h>

#include <list>
#include <ostream>
#include <string>
#include <vector>

namespace kelutv::test {

namespace {

const auto& environmentOfSources = SimulatorEnvironment::install();

constexpr int kMain = KELU_TV_WINDOW_MAIN;
constexpr int kUnknownSource = -108;

struct Signal {
    const char* name;
    int source;
    bool present;
    unsigned int width;
    unsigned int height;
    unsigned int frameRate;
    bool interlace;
    int streamType;
    int mode3d;
};

void PrintTo(const Signal& signal, std::ostream* out) { *out << signal.name; }

constexpr Signal kSignals[] = {
    {"Atv", 0, true, 720, 576, 50, true, KELU_TV_HDR_TYPE_SDR, KELU_TV_3DMODE_OFF},
    {"Dig1", 1, true, 1920, 1080, 50, true, KELU_TV_HDR_TYPE_SDR, KELU_TV_3DMODE_OFF},
    {"Dig2", 2, true, 3840, 2160, 50, false, KELU_TV_HDR_TYPE_HLG, KELU_TV_3DMODE_OFF},
    {"Cvbs1", 3, true, 720, 480, 60, true, KELU_TV_HDR_TYPE_SDR, KELU_TV_3DMODE_OFF},
    {"Cvbs2", 4, false, 0, 0, 0, false, KELU_TV_HDR_TYPE_SDR, KELU_TV_3DMODE_OFF},
    {"Vga", 6, true, 1280, 1024, 60, false, KELU_TV_HDR_TYPE_SDR, KELU_TV_3DMODE_OFF},
    {"YPbPr1", 7, true, 1280, 720, 50, false, KELU_TV_HDR_TYPE_SDR, KELU_TV_3DMODE_OFF},
    {"Hdmi1", 9, true, 1920, 1080, 60, false, KELU_TV_HDR_TYPE_SDR, KELU_TV_3DMODE_OFF},
    {"Hdmi2", 10, true, 3840, 2160, 60, false, KELU_TV_HDR_TYPE_HDR10, KELU_TV_3DMODE_OFF},
    {"Hdmi3", 11, true, 3840, 2160, 24, false, KELU_TV_HDR_TYPE_DOLBY_HDR, KELU_TV_3DMODE_OFF},
    {"Hdmi4", 12, false, 0, 0, 0, false, KELU_TV_HDR_TYPE_SDR, KELU_TV_3DMODE_OFF},
    {"Media1", 13, true, 1920, 1080, 24, false, KELU_TV_HDR_TYPE_SDR, KELU_TV_3DMODE_FP},
    {"Media2", 14, true, 3840, 2160, 60, false, KELU_TV_HDR_TYPE_HDR10_PLUS, KELU_TV_3DMODE_OFF},
};

SourceManager& manager() { return *SourceManager::instance(); }

void expectShown(const Signal& signal) {
    const TimingScreen timing = manager().getTimingInfo();
    EXPECT_EQ(timing.width, signal.width);
    EXPECT_EQ(timing.height, signal.height);
    EXPECT_EQ(timing.frameRate, signal.frameRate);
    EXPECT_EQ(timing.interlace, signal.interlace);
    EXPECT_EQ(timing.format3d, signal.mode3d);
    EXPECT_EQ(manager().getSignalStatus(), signal.present);
    EXPECT_EQ(linux_tv_Picture_getHdrStreamType(), signal.streamType);
    EXPECT_EQ(linux_tv_Video_get3dMode(), signal.mode3d);
    EXPECT_EQ(linux_tv_Video_is3dEnable(), signal.mode3d != KELU_TV_3DMODE_OFF);
    bool locked = !signal.present;
    EXPECT_EQ(linux_tv_Video_isSignalLock(&locked), 0);
    EXPECT_EQ(locked, signal.present);
}

class Sources : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_EQ(manager().selectSource(KELU_TV_SRC_ATV, KELU_TV_WINDOW_SUB), 0);
        ASSERT_EQ(manager().selectSource(KELU_TV_SRC_ATV, kMain), 0);
        ASSERT_EQ(linux_tv_Picture_restorePictureSets(), 0);
    }
};

// The first test of the program: nothing is selected yet.
TEST(SourcesAtFirst, ShowAnalogueTelevision) {
    EXPECT_EQ(manager().getCurSourceId(kMain), KELU_TV_SRC_ATV);
    EXPECT_EQ(manager().getSelectSourceId(), KELU_TV_SRC_ATV);
    EXPECT_EQ(manager().getLastMainSource(), KELU_TV_SRC_ATV);
    EXPECT_EQ(manager().getBootSource(), KELU_TV_SRC_ATV);
    expectShown(kSignals[0]);
}

class EachSource : public Sources, public ::testing::WithParamInterface<Signal> {};

TEST_P(EachSource, AnswersCoherentlyOnceSelected) {
    const Signal& signal = GetParam();
    ASSERT_EQ(manager().selectSource(signal.source, kMain), 0);
    EXPECT_EQ(manager().getCurSourceId(kMain), signal.source);
    EXPECT_EQ(manager().getSelectSourceId(), signal.source);
    expectShown(signal);
}

TEST_P(EachSource, TellsItsSignalWithoutBeingSelected) {
    const Signal& signal = GetParam();
    EXPECT_EQ(manager().getOfflineSigStatus(signal.source), signal.present);
    KELU_TV_SIGNAL_E status = -1;
    EXPECT_EQ(linux_tv_Video_getSignalStatusSync(static_cast<KELU_TV_SRC_E>(signal.source), &status), 0);
    EXPECT_EQ(status, signal.present);
    EXPECT_EQ(manager().getCurSourceId(kMain), KELU_TV_SRC_ATV);
}

std::string signalName(const ::testing::TestParamInfo<Signal>& info) { return info.param.name; }

INSTANTIATE_TEST_SUITE_P(Default, EachSource, ::testing::ValuesIn(kSignals), signalName);

TEST_F(Sources, AreListedAndAvailableWithoutASignalToo) {
    std::list<int> all;
    for (const Signal& signal : kSignals) {
        all.push_back(signal.source);
    }
    EXPECT_EQ(manager().getSourceList(), all);
    EXPECT_EQ(manager().getAvailSourceList(), all);
}

TEST_F(Sources, FoldTheSecondDigitalSourceInC) {
    ASSERT_EQ(linux_tv_SourceManager_selectSource(KELU_TV_SRC_DIG2, kMain), 0);
    EXPECT_EQ(linux_tv_SourceManager_getCurSourceId(kMain), KELU_TV_SRC_DIG1);
    EXPECT_EQ(manager().getCurSourceId(kMain), KELU_TV_SRC_DIG2);
}

TEST_F(Sources, UnknownAreRefusedAndChangeNothing) {
    ASSERT_EQ(manager().selectSource(KELU_TV_SRC_HDMI2, kMain), 0);
    for (const int source : {-1, int{KELU_TV_SRC_CVBS3}, int{KELU_TV_SRC_AUTO}, int{KELU_TV_SRC_BUTT}}) {
        EXPECT_EQ(manager().selectSource(source, kMain), kUnknownSource);
        EXPECT_EQ(manager().deselectSource(source, true), kUnknownSource);
        EXPECT_EQ(manager().setBootSource(source), kUnknownSource);
        EXPECT_EQ(SimulatorEnvironment::transact(requestOf(0x7018, {source})), replyOf({kUnknownSource}));
        KELU_TV_SIGNAL_E status = 5;
        EXPECT_EQ(linux_tv_Video_getSignalStatusSync(static_cast<KELU_TV_SRC_E>(source), &status), -1);
        EXPECT_EQ(status, 0);
    }
    EXPECT_EQ(manager().getCurSourceId(kMain), KELU_TV_SRC_HDMI2);
    EXPECT_EQ(manager().getSelectSourceId(), KELU_TV_SRC_HDMI2);
    EXPECT_EQ(manager().getBootSource(), KELU_TV_SRC_ATV);
    expectShown(kSignals[8]);
}

TEST_F(Sources, RememberWhatTheMainWindowShowedBefore) {
    ASSERT_EQ(manager().selectSource(KELU_TV_SRC_HDMI2, kMain), 0);
    ASSERT_EQ(manager().selectSource(KELU_TV_SRC_HDMI3, kMain), 0);
    ASSERT_EQ(manager().selectSource(KELU_TV_SRC_HDMI3, kMain), 0);
    EXPECT_EQ(manager().getLastMainSource(), KELU_TV_SRC_HDMI2);
}

TEST_F(Sources, OfOtherWindowsLeaveTheSignalAlone) {
    ASSERT_EQ(manager().selectSource(KELU_TV_SRC_HDMI2, kMain), 0);
    ASSERT_EQ(manager().selectSource(KELU_TV_SRC_HDMI3, KELU_TV_WINDOW_SUB), 0);
    EXPECT_EQ(manager().getCurSourceId(kMain), KELU_TV_SRC_HDMI2);
    EXPECT_EQ(manager().getCurSourceId(KELU_TV_WINDOW_SUB), KELU_TV_SRC_HDMI3);
    EXPECT_EQ(manager().getSelectSourceId(), KELU_TV_SRC_HDMI3);
    EXPECT_EQ(manager().getLastMainSource(), KELU_TV_SRC_ATV);
    expectShown(kSignals[8]);
}

TEST_F(Sources, DeselectedShowNoSignalUntilSelectedAnew) {
    ASSERT_EQ(manager().selectSource(KELU_TV_SRC_HDMI2, kMain), 0);
    ASSERT_EQ(manager().deselectSource(KELU_TV_SRC_HDMI3, true), 0);
    expectShown(kSignals[8]);
    ASSERT_EQ(manager().deselectSource(KELU_TV_SRC_HDMI2, true), 0);
    EXPECT_EQ(manager().getSignalStatus(), 0);
    EXPECT_EQ(manager().getTimingInfo().width, 0U);
    EXPECT_EQ(linux_tv_Picture_getHdrStreamType(), KELU_TV_HDR_TYPE_SDR);
    EXPECT_TRUE(manager().getOfflineSigStatus(KELU_TV_SRC_HDMI2));
    ASSERT_EQ(manager().selectSource(KELU_TV_SRC_HDMI2, kMain), 0);
    expectShown(kSignals[8]);
}

TEST_F(Sources, TellOfDviAndMhl) {
    EXPECT_FALSE(manager().isDVIMode());
    EXPECT_FALSE(manager().isMHLStatus());
    ASSERT_EQ(manager().selectSource(KELU_TV_SRC_HDMI1, kMain), 0);
    EXPECT_TRUE(manager().isDVIMode());
    EXPECT_TRUE(manager().getTimingInfo().graphicMode);
    ASSERT_EQ(manager().selectSource(KELU_TV_SRC_HDMI4, kMain), 0);
    EXPECT_FALSE(manager().isDVIMode());
    EXPECT_TRUE(manager().isMHLStatus());
    EXPECT_TRUE(manager().isMHLPortInUse());
}

TEST_F(Sources, TellTheSystemOfAnalogueSignals) {
    bool is625 = false;
    EXPECT_EQ(linux_tv_Video_get625Mode(&is625), 0);
    EXPECT_TRUE(is625);
    EXPECT_EQ(Picture::instance()->getRealColorSystem(), KELU_TV_CLRSYS_PAL);
    ASSERT_EQ(manager().selectSource(KELU_TV_SRC_CVBS1, kMain), 0);
    EXPECT_EQ(linux_tv_Video_get625Mode(&is625), 0);
    EXPECT_FALSE(is625);
    EXPECT_EQ(Picture::instance()->getRealColorSystem(), KELU_TV_CLRSYS_NTSC);
}

TEST_F(Sources, Follow3dModesThatAreSet) {
    ASSERT_EQ(linux_tv_Video_set3dMode(KELU_TV_3DMODE_2DT3D), 0);
    EXPECT_EQ(linux_tv_Video_is3dEnable(), 1);
    ASSERT_EQ(linux_tv_Video_set3dMode(KELU_TV_3DMODE_OFF), 0);
    EXPECT_EQ(linux_tv_Video_is3dEnable(), 0);
    ASSERT_EQ(linux_tv_Video_set3dMode(KELU_TV_3DMODE_SBS), 0);
    ASSERT_EQ(manager().selectSource(KELU_TV_SRC_HDMI1, kMain), 0);
    EXPECT_EQ(linux_tv_Video_get3dMode(), KELU_TV_3DMODE_OFF);
}

TEST_F(Sources, KeepAPictureModePerStreamType) {
    ASSERT_EQ(linux_tv_Picture_setPictureMode(KELU_TV_PIC_MODE_SPORT), 0);
    ASSERT_EQ(manager().selectSource(KELU_TV_SRC_HDMI2, kMain), 0);
    EXPECT_EQ(linux_tv_Picture_getPictureMode(), KELU_TV_PIC_MODE_STANDARD);
    ASSERT_EQ(linux_tv_Picture_setPictureMode(KELU_TV_PIC_MODE_MOVIE), 0);
    ASSERT_EQ(manager().selectSource(KELU_TV_SRC_HDMI3, kMain), 0);
    EXPECT_EQ(linux_tv_Picture_getPictureMode(), KELU_TV_PIC_MODE_STANDARD);
    ASSERT_EQ(linux_tv_Picture_setPictureMode(KELU_TV_PIC_MODE_DOBLY_VISION_MOVIE_DARK), 0);
    EXPECT_EQ(linux_tv_Picture_getPictureMode(), KELU_TV_PIC_MODE_DOBLY_VISION_MOVIE_DARK);
    ASSERT_EQ(manager().selectSource(KELU_TV_SRC_HDMI2, kMain), 0);
    EXPECT_EQ(linux_tv_Picture_getPictureMode(), KELU_TV_PIC_MODE_MOVIE);
    ASSERT_EQ(manager().selectSource(KELU_TV_SRC_HDMI1, kMain), 0);
    EXPECT_EQ(linux_tv_Picture_getPictureMode(), KELU_TV_PIC_MODE_SPORT);
}

TEST_F(Sources, HavePictureModesOfTheirStreamType) {
    Picture& picture = *Picture::instance();
    EXPECT_EQ(picture.getPicModeEnable(KELU_TV_HDR_TYPE_SDR), (std::list<int>{0, 1, 2, 3, 4, 6, 7, 8, 9, 11}));
    for (const int streamType : {1, 2, 4, 6}) {
        EXPECT_EQ(picture.getPicModeEnable(streamType), (std::list<int>{0, 1, 2, 3}));
    }
    EXPECT_EQ(picture.getPicModeEnable(KELU_TV_HDR_TYPE_BUTT), std::list<int>{});
}

TEST_F(Sources, KeepTheirSignalWhenPictureSettingsAreRestored) {
    ASSERT_EQ(manager().selectSource(KELU_TV_SRC_HDMI2, kMain), 0);
    ASSERT_EQ(linux_tv_Picture_setBrightness(77), 0);
    ASSERT_EQ(linux_tv_Picture_setPictureMode(KELU_TV_PIC_MODE_MOVIE), 0);
    ASSERT_EQ(linux_tv_Picture_restorePictureSets(), 0);
    EXPECT_EQ(linux_tv_Picture_getBrightness(), 50);
    EXPECT_EQ(linux_tv_Picture_getPictureMode(), KELU_TV_PIC_MODE_STANDARD);
    expectShown(kSignals[8]);
}

} // namespace

} // namespace kelutv::test
