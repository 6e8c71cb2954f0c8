#include "client/ClientTest.h"

#include <kelutv/Video3D.h>
#include <kelutv/linux_kelutv_video.h>

namespace kelutv::test {
namespace {

using WindowAttr = ClientTest;

constexpr KELU_TV_WINDOW_ATTR_S kWindow{KELU_TV_WINDOW_SUB, {2, 3, 4, 5},   {6, 7, 8, 9},
                                        {10, 11, 12, 13},   {true, 15, 16}, false};

void expectRect(const KELU_TV_RECT_S& seen, const KELU_TV_RECT_S& expected) {
    EXPECT_EQ(seen.x, expected.x);
    EXPECT_EQ(seen.y, expected.y);
    EXPECT_EQ(seen.width, expected.width);
    EXPECT_EQ(seen.height, expected.height);
}

void expectWindow(const KELU_TV_WINDOW_ATTR_S& seen, const KELU_TV_WINDOW_ATTR_S& expected) {
    EXPECT_EQ(seen.window, expected.window);
    EXPECT_EQ(seen.cropRect.leftOffset, expected.cropRect.leftOffset);
    EXPECT_EQ(seen.cropRect.topOffset, expected.cropRect.topOffset);
    EXPECT_EQ(seen.cropRect.rightOffset, expected.cropRect.rightOffset);
    EXPECT_EQ(seen.cropRect.bottomOffset, expected.cropRect.bottomOffset);
    expectRect(seen.outputRect, expected.outputRect);
    expectRect(seen.videoRect, expected.videoRect);
    EXPECT_EQ(seen.nonLinearInfo.enable, expected.nonLinearInfo.enable);
    EXPECT_EQ(seen.nonLinearInfo.sourceWidth, expected.nonLinearInfo.sourceWidth);
    EXPECT_EQ(seen.nonLinearInfo.displayWidth, expected.nonLinearInfo.displayWidth);
    EXPECT_EQ(seen.isVirtual, expected.isVirtual);
}

// irregular: Video3D::setWindowAttr
// irregular: linux_tv_Video_setWindowAttr
TEST_F(WindowAttr, isSentInSeventeenWordsWithoutTheSource) {
    KELU_TV_WINDOW_ATTR_S window = kWindow;
    answer({5});
    EXPECT_EQ(linux_tv_Video_setWindowAttr(KELU_TV_SRC_HDMI1, &window), 5);
    EXPECT_EQ(sent(), only(requestOf(0x3010, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 1, 15, 16, 0})));
    window.nonLinearInfo.enable = false;
    window.isVirtual = true;
    EXPECT_EQ(linux_tv_Video_setWindowAttr(KELU_TV_SRC_ATV, &window), 5);
    EXPECT_EQ(sent(), only(requestOf(0x3010, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 0, 15, 16, 1})));
}

// irregular: Video3D::getWindowAttr
// irregular: linux_tv_Video_getWindowAttr
TEST_F(WindowAttr, isReadFromSeventeenWordsWithoutTheSource) {
    KELU_TV_WINDOW_ATTR_S window{};
    answer({0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, -14, 15, 16, 0});
    EXPECT_EQ(linux_tv_Video_getWindowAttr(KELU_TV_SRC_HDMI1, &window), 0);
    EXPECT_EQ(sent(), only(requestOf(0x300F)));
    expectWindow(window, kWindow);
    answer({0, 99, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 0, 15, 16, 256});
    EXPECT_EQ(linux_tv_Video_getWindowAttr(KELU_TV_SRC_HDMI1, &window), 0);
    EXPECT_EQ(static_cast<int>(window.window), 99);
    EXPECT_FALSE(window.nonLinearInfo.enable);
    EXPECT_TRUE(window.isVirtual);
}

TEST_F(WindowAttr, givesZeroAfterAFailureAndStays) {
    KELU_TV_WINDOW_ATTR_S window = kWindow;
    answer({3, 0, 0});
    EXPECT_EQ(linux_tv_Video_getWindowAttr(KELU_TV_SRC_HDMI1, &window), 0);
    failTransactions();
    EXPECT_EQ(Video3D::instance()->getWindowAttr(KELU_TV_SRC_HDMI1, &window), 0);
    expectWindow(window, kWindow);
    EXPECT_EQ(logged(), kNothingLogged);
}

TEST_F(WindowAttr, holdsZerosWhereTheReplyEnds) {
    KELU_TV_WINDOW_ATTR_S window = kWindow;
    answer({0, 1, 2});
    EXPECT_EQ(linux_tv_Video_getWindowAttr(KELU_TV_SRC_HDMI1, &window), 0);
    expectWindow(window, {KELU_TV_WINDOW_SUB, {2, 0, 0, 0}, {}, {}, {}, false});
}

TEST_F(WindowAttr, isReadWithoutAPlaceForIt) {
    answer({0, 1, 2});
    EXPECT_EQ(linux_tv_Video_getWindowAttr(KELU_TV_SRC_HDMI1, nullptr), 0);
    EXPECT_EQ(sent(), only(requestOf(0x300F)));
}

} // namespace
} // namespace kelutv::test
