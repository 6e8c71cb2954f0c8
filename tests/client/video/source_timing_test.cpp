#include "client/ClientTest.h"

#include <kelutv/SourceManager.h>
#include <kelutv/linux_kelutv_sourcemanager.h>

namespace kelutv::test {
namespace {

constexpr TimingScreen kBefore{1, 2, 3, true, 4, 5, 6, true, true};

using SourceTiming = ClientTest;

void expectTiming(const TimingScreen& seen, const TimingScreen& expected) {
    EXPECT_EQ(seen.width, expected.width);
    EXPECT_EQ(seen.height, expected.height);
    EXPECT_EQ(seen.frameRate, expected.frameRate);
    EXPECT_EQ(seen.interlace, expected.interlace);
    EXPECT_EQ(seen.formatHDMI, expected.formatHDMI);
    EXPECT_EQ(seen.format3d, expected.format3d);
    EXPECT_EQ(seen.colorSpace, expected.colorSpace);
    EXPECT_EQ(seen.MHL, expected.MHL);
    EXPECT_EQ(seen.graphicMode, expected.graphicMode);
}

// irregular: linux_tv_SourceManager_getTimingInfo
TEST_F(SourceTiming, isReadInTheOrderOfItsFields) {
    TimingScreen timing = kBefore;
    answer({0, 1920, 1080, 60, 0, 11, -12, 13, 0, -1});
    EXPECT_EQ(linux_tv_SourceManager_getTimingInfo(&timing), 0);
    EXPECT_EQ(sent(), only(requestOf(0x700A)));
    expectTiming(timing, {1920, 1080, 60, false, 11, -12, 13, false, true});
    answer({0, -1, 1080, 60, 2, 11, -12, 13, 256, 0});
    EXPECT_EQ(linux_tv_SourceManager_getTimingInfo(&timing), 0);
    expectTiming(timing, {0xFFFFFFFFU, 1080, 60, true, 11, -12, 13, true, false});
}

TEST_F(SourceTiming, withoutWidthIsAFailure) {
    TimingScreen timing = kBefore;
    answer({0, 0, 1080, 60, 1, 11, 12, 13, 1, 1});
    EXPECT_EQ(linux_tv_SourceManager_getTimingInfo(&timing), -1);
    EXPECT_EQ(sent(), only(requestOf(0x700A)));
    expectTiming(timing, kBefore);
}

TEST_F(SourceTiming, isNotTouchedByAFailure) {
    TimingScreen timing = kBefore;
    answer({3, 1920, 1080});
    EXPECT_EQ(linux_tv_SourceManager_getTimingInfo(&timing), -1);
    expectTiming(timing, kBefore);
    failTransactions();
    EXPECT_EQ(linux_tv_SourceManager_getTimingInfo(&timing), -1);
    expectTiming(timing, kBefore);
    EXPECT_EQ(logged(), kNothingLogged);
}

TEST_F(SourceTiming, needsAPlace) {
    EXPECT_EQ(linux_tv_SourceManager_getTimingInfo(nullptr), -1);
    EXPECT_EQ(sent(), kNothingSent);
}

TEST_F(SourceTiming, holdsZerosWhereTheReplyEnds) {
    answer({0, 1920, 1080});
    expectTiming(SourceManager::instance()->getTimingInfo(), {1920, 1080, 0, false, 0, 0, 0, false, false});
}

TEST_F(SourceTiming, ofTheClassMayHaveNoWidth) {
    answer({0, 0, 1080, 60, 1, 11, 12, 13, 1, 1});
    expectTiming(SourceManager::instance()->getTimingInfo(), {0, 1080, 60, true, 11, 12, 13, true, true});
}

} // namespace
} // namespace kelutv::test
