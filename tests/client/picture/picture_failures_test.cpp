#include "client/ClientTest.h"
#include "client/picture/ThePicture.h"

#include <kelutv/linux_kelutv_picture.h>

#include <unistd.h>

namespace kelutv::test {
namespace {

/** Runs with a link that is absent, with one that is dead, and with a living one whose transactions fail. */
class PictureFailure : public ClientTest {
protected:
    PictureFailure() { failTransactions(); }
};

TEST_F(PictureFailure, ofASetIsLogged) {
    EXPECT_EQ(picture().setBrightness(20), -1);
    EXPECT_EQ(logged(), kInvokeFailure);
    EXPECT_EQ(picture().setColorTempPara({1, 2, 3, 4, 5, 6}), -1);
    EXPECT_EQ(logged(), kInvokeFailure);
    EXPECT_EQ(picture().getVideoScreenShot(1, 2, "alpha", true), -1);
    EXPECT_EQ(logged(), kInvokeFailure);
    EXPECT_EQ(linux_tv_Picture_copyCurPicModeDataToUser(), -1);
    EXPECT_EQ(logged(), kInvokeFailure);
}

TEST_F(PictureFailure, ofTheModeIsLoggedBehindTheCall) {
    FdCapture output(STDOUT_FILENO);
    EXPECT_EQ(linux_tv_Picture_setPictureMode(2), -1);
    EXPECT_EQ(output.take(), "setPictureMode picturemode = 2,streamTypeIndex = -1"
                             "setPictureMode pictureModeIndex = 9,streamTypeIndex = -1");
    const std::vector<LogEntry> lines{untaggedError("setPictureMode").front(), kInvokeFailure.front()};
    EXPECT_EQ(logged(), lines);
}

TEST_F(PictureFailure, readsAsTheStandardMode) {
    FdCapture output(STDOUT_FILENO);
    EXPECT_EQ(linux_tv_Picture_getPictureMode(), 0);
    EXPECT_EQ(output.take(), "getPictureMode : pictureModeIndex = 0, streamTypeIndex  = -1");
    EXPECT_EQ(linux_tv_Picture_getBLValueInPicmode(0), -1);
    EXPECT_EQ(logged(), kNothingLogged);
}

TEST_F(PictureFailure, ofAGetIsSilent) {
    EXPECT_EQ(picture().getBrightness(), -1);
    EXPECT_EQ(linux_tv_Picture_getHdrStreamType(), -1);
    EXPECT_EQ(picture().getRealColorSystem(), -1);
    EXPECT_EQ(logged(), kNothingLogged);
}

TEST_F(PictureFailure, readsAsASetFlag) {
    EXPECT_TRUE(picture().isBacklightEnable());
    EXPECT_EQ(linux_tv_Picture_isBacklightEnable(), 1);
    EXPECT_TRUE(linux_tv_Picture_getLDHorseLightIsRunning());
}

TEST_F(PictureFailure, ofBothPartsOfTheNoiseReductionIsMinusOne) {
    EXPECT_EQ(linux_tv_Picture_setMPEGNR(1), -1);
    const std::vector<LogEntry> lines(2, kInvokeFailure.front());
    EXPECT_EQ(logged(), lines);
}

TEST_F(PictureFailure, isHiddenByTheFunctionsThatAlwaysSucceed) {
    int value = 99;
    EXPECT_EQ(linux_tv_Picture_getMPEGNR(&value), 0);
    EXPECT_EQ(value, -1);
    value = 99;
    EXPECT_EQ(linux_tv_Picture_getRealColorSystem(&value), 0);
    EXPECT_EQ(value, -1);
    ColorTempData whiteBalance{9, 9, 9, 9, 9, 9};
    EXPECT_EQ(linux_tv_Picture_getColorTempPara(&whiteBalance), 0);
    EXPECT_EQ(whiteBalance.redGain, 0);
    EXPECT_EQ(whiteBalance.blueOffset, 0);
}

TEST_F(PictureFailure, leavesListsAndBuffersOfTheCaller) {
    int list = 98;
    int size = 99;
    EXPECT_EQ(linux_tv_Picture_getAvailAspectList(&list, &size), -1);
    EXPECT_EQ(linux_tv_Picture_getBrightnessHistogram(&list), -1);
    EXPECT_EQ(linux_tv_Picture_getPictureItemValue(1, 2, 3, &list), -1);
    EXPECT_EQ(linux_tv_Picture_getMicroDimmingData(1, 1, &list), -1);
    EXPECT_EQ(list, 98);
    EXPECT_EQ(size, 99);
    EXPECT_TRUE(picture().getAvailAspectList().empty());
    EXPECT_EQ(logged(), kNothingLogged);
}

} // namespace
} // namespace kelutv::test
