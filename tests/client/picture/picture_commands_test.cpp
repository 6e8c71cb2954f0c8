#include "client/ClientTest.h"
#include "client/picture/ThePicture.h"

#include <kelutv/linux_kelutv_picture.h>

#include <unistd.h>

namespace kelutv::test {
namespace {

using PictureCommand = ClientTest;

// irregular: Picture::setPictureMode
TEST_F(PictureCommand, setModeIsLoggedAsAnError) {
    answer({4});
    EXPECT_EQ(picture().setPictureMode(11, 3), 4);
    EXPECT_EQ(sent(), only(requestOf(0x1002, {11, 3})));
    EXPECT_EQ(logged(), untaggedError("setPictureMode"));
}

// irregular: Picture::setBacklight
TEST_F(PictureCommand, setBacklightIsTraced) {
    const std::vector<LogEntry> trace{{ANDROID_LOG_DEBUG, std::nullopt, "##########setBacklight"}};
    answer({4});
    EXPECT_EQ(picture().setBacklight(50), 4);
    EXPECT_EQ(sent(), only(requestOf(0x100E, {50})));
    EXPECT_EQ(logged(), trace);
    EXPECT_EQ(linux_tv_Picture_setBacklight(51), 4);
    EXPECT_EQ(sent(), only(requestOf(0x100E, {51})));
    EXPECT_EQ(logged(), trace);
}

// irregular: Picture::debugPictureModePara
TEST_F(PictureCommand, debuggingPrintsItsArguments) {
    FdCapture errors(STDERR_FILENO);
    answer({4});
    EXPECT_EQ(picture().debugPictureModePara(1, 2, -3), 4);
    EXPECT_EQ(errors.take(), "pictureMode=1,imagePara=2,value=-3\n");
    EXPECT_EQ(sent(), only(requestOf(0x1090, {1, 2, -3})));
    EXPECT_EQ(linux_tv_Picture_debugPictureModePara(-4, 5, 6), 4);
    EXPECT_EQ(errors.take(), "pictureMode=-4,imagePara=5,value=6\n");
    EXPECT_EQ(sent(), only(requestOf(0x1090, {-4, 5, 6})));
    EXPECT_EQ(logged(), kNothingLogged);
}

// irregular: Picture::setDolbyHdrPicMode
// irregular: Picture::getDolbyHdrPicMode
TEST_F(PictureCommand, dolbyModesHaveNoCommand) {
    EXPECT_EQ(picture().setDolbyHdrPicMode(0), -1);
    EXPECT_EQ(picture().getDolbyHdrPicMode(), -1);
    EXPECT_EQ(sent(), kNothingSent);
    EXPECT_EQ(logged(), kNothingLogged);
}

// irregular: Picture::getVideoScreenShot
TEST_F(PictureCommand, screenShotIsASetCommand) {
    const auto request = [](int width, int height, const char* path, int withUi) {
        return Wire::request(0x106F).i32(width).i32(height).cstr(path).i32(withUi).bytes();
    };
    answer({9});
    EXPECT_EQ(picture().getVideoScreenShot(1920, 1080, "/tmp/a.png", true), 9);
    EXPECT_EQ(sent(), only(request(1920, 1080, "/tmp/a.png", 1)));
    EXPECT_EQ(linux_tv_Picture_getVideoScreenShot(640, 480, "b", false), 9);
    EXPECT_EQ(sent(), only(request(640, 480, "b", 0)));
    failTransactions();
    EXPECT_EQ(picture().getVideoScreenShot(1, 2, "c", true), -1);
    EXPECT_EQ(logged(), kInvokeFailure);
}

TEST_F(PictureCommand, screenShotNeedsAPath) {
    EXPECT_EQ(linux_tv_Picture_getVideoScreenShot(640, 480, nullptr, false), -1);
    EXPECT_EQ(sent(), kNothingSent);
    EXPECT_EQ(logged(), kNothingLogged);
}

TEST_F(PictureCommand, cameraModeNamesTheApplication) {
    answer({9});
    EXPECT_EQ(linux_tv_Picture_setCameraEnhancePictureMode(7, "org.camera", "Main"), 9);
    EXPECT_EQ(sent(), only(Wire::request(0x108E).i32(7).cstr("org.camera").cstr("Main").bytes()));
    EXPECT_EQ(linux_tv_Picture_setCameraEnhancePictureMode(7, nullptr, "Main"), -1);
    EXPECT_EQ(linux_tv_Picture_setCameraEnhancePictureMode(7, "org.camera", nullptr), -1);
    EXPECT_EQ(sent(), kNothingSent);
}

// irregular: Picture::getRealColorSystem
// irregular: linux_tv_Picture_getRealColorSystem
TEST_F(PictureCommand, realColourSystemIsAskedInTheExtraBlock) {
    answer({0, 3});
    EXPECT_EQ(picture().getRealColorSystem(), 3);
    EXPECT_EQ(sent(), only(requestOf(0xF032)));

    int system = 99;
    EXPECT_EQ(linux_tv_Picture_getRealColorSystem(&system), 0);
    EXPECT_EQ(system, 3);
    answer({1, 3});
    EXPECT_EQ(linux_tv_Picture_getRealColorSystem(&system), 0);
    EXPECT_EQ(system, -1);
    sent();
    EXPECT_EQ(linux_tv_Picture_getRealColorSystem(nullptr), 0);
    EXPECT_EQ(sent(), only(requestOf(0xF032)));
}

TEST_F(PictureCommand, albumIsEnteredWithOneAndLeftWithZero) {
    answer({9});
    EXPECT_EQ(linux_tv_Picture_enterAlbumPlay(), 9);
    EXPECT_EQ(sent(), only(requestOf(0x107B, {1})));
    EXPECT_EQ(linux_tv_Picture_exitAlbumPlay(), 9);
    EXPECT_EQ(sent(), only(requestOf(0x107B, {0})));
}

TEST_F(PictureCommand, currentModeIsCopiedByAnItem) {
    answer({9});
    EXPECT_EQ(linux_tv_Picture_copyCurPicModeDataToUser(), 9);
    EXPECT_EQ(sent(), only(requestOf(0x108C, {4104, 0, 0, 0, 0})));
}

/** The two commands of the MPEG noise reduction, each with a status of its own. */
class MpegNoiseReduction : public ClientTest {
protected:
    void statusesAre(int deBlocking, int deRinging) {
        service().replyTo(0x1016, replyOf({deBlocking}));
        service().replyTo(0x1018, replyOf({deRinging}));
    }

    void expectBothSent(int level) {
        const std::vector<std::string> requests{hex(requestOf(0x1016, {level})), hex(requestOf(0x1018, {level}))};
        EXPECT_EQ(sent(), requests);
    }
};

// irregular: linux_tv_Picture_setMPEGNR
TEST_F(MpegNoiseReduction, isSetByTwoCommandsInEveryCase) {
    struct Case {
        int deBlocking;
        int deRinging;
        int result;
    };
    const Case cases[] = {{0, 0, 0}, {5, 0, 5}, {0, 6, 6}, {5, 2, 7}, {-1, 0, -1}, {0, -1, -1}, {4, 4, 4}};
    for (const Case& each : cases) {
        statusesAre(each.deBlocking, each.deRinging);
        EXPECT_EQ(linux_tv_Picture_setMPEGNR(3), each.result);
        expectBothSent(3);
    }
}

// irregular: linux_tv_Picture_getMPEGNR
TEST_F(MpegNoiseReduction, isReadAsTheRemovalOfBlockEdges) {
    int level = 99;
    answer({0, 3});
    EXPECT_EQ(linux_tv_Picture_getMPEGNR(&level), 0);
    EXPECT_EQ(level, 3);
    EXPECT_EQ(sent(), only(requestOf(0x1017)));
    answer({1, 3});
    EXPECT_EQ(linux_tv_Picture_getMPEGNR(&level), 0);
    EXPECT_EQ(level, -1);
    sent();
    EXPECT_EQ(linux_tv_Picture_getMPEGNR(nullptr), 0);
    EXPECT_EQ(sent(), only(requestOf(0x1017)));
}

TEST_F(PictureCommand, flagsAreSentAsOneAndZero) {
    EXPECT_EQ(picture().enableBacklight(true), 0);
    EXPECT_EQ(sent(), only(requestOf(0x1010, {1})));
    EXPECT_EQ(linux_tv_Picture_setDemoMode(5, false), 0);
    EXPECT_EQ(sent(), only(requestOf(0x1028, {5, 0})));
    EXPECT_EQ(linux_tv_Picture_setAspect(12, true), 0);
    EXPECT_EQ(sent(), only(requestOf(0x1030, {12, 1})));
}

TEST_F(PictureCommand, flagsAreTrueForAnyOtherAnswerThanZero) {
    for (const std::int32_t value : {1, -1, 7}) {
        answer({0, value});
        EXPECT_TRUE(picture().isBacklightEnable());
        EXPECT_EQ(linux_tv_Picture_isBacklightEnable(), 1);
        EXPECT_EQ(linux_tv_Picture_getDemoMode(5), 1);
        EXPECT_EQ(linux_tv_Picture_getLDHorseLightIsRunning(), 1);
    }
    answer({0, 0});
    EXPECT_FALSE(picture().isBacklightEnable());
    EXPECT_EQ(linux_tv_Picture_isBacklightEnable(), 0);
    EXPECT_EQ(linux_tv_Picture_getLDHorseLightIsRunning(), 0);
}

} // namespace
} // namespace kelutv::test
