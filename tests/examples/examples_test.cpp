#include "simulator/Simulator.h"
#include "support/ChildProcess.h"
#include "support/RuntimeDir.h"

#include <gtest/gtest.h>

#include <string>

namespace kelutv::test {

namespace {

constexpr char kRegistering[] = "call linux_tv_registerCallbackFunc line 6\n";

ChildProcess::Options captured() {
    ChildProcess::Options options;
    options.captureOutput = true;
    options.captureError = true;
    return options;
}

/** The program's output, with its exit code as the last line. */
std::string outputOf(const char* program) {
    ChildProcess example({program}, captured());
    const auto code = example.exitCode();
    return example.output().text() + "exit code " + (code ? std::to_string(*code) : "missing") + "\n";
}

/** Expects that the program ends on its own complaint where no television runs. */
void expectServiceMissed(const char* program, const std::string& complaint) {
    ChildProcess example({program}, captured());
    EXPECT_EQ(example.exitCode(), 1);
    EXPECT_EQ(example.output().text(), "");
    EXPECT_NE(example.error().text().find(complaint), std::string::npos) << example.error().text();
}

/** Each program that changes the volume, on a television of its own. */
class Examples : public ::testing::TestWithParam<const char*> {
protected:
    static std::string run() { return outputOf(GetParam()); }

private:
    const RuntimeDir mRuntimeDir;
};

TEST_P(Examples, ChangeTheVolumeAndAreToldOfIt) {
    const Simulator simulator;
    EXPECT_EQ(run(), std::string("the speaker's volume is 20\n") + kRegistering + "setting it to 35\n" +
                         "event 0x60001 with 8 bytes\n" + "the speaker's volume is 35\n" + "exit code 0\n");
}

TEST_P(Examples, GoDownFromALoudVolume) {
    const Simulator simulator;
    ASSERT_EQ(SimulatorEnvironment::transact(requestOf(0x2008, {0, 60})), replyOf({0}));
    EXPECT_EQ(run(), std::string("the speaker's volume is 60\n") + kRegistering + "setting it to 45\n" +
                         "event 0x60001 with 8 bytes\n" + "the speaker's volume is 45\n" + "exit code 0\n");
}

TEST_P(Examples, SayThatTheServiceIsMissing) {
    expectServiceMissed(GetParam(), "volume: no answer from the TV base service; is it running?");
}

std::string languageName(const ::testing::TestParamInfo<const char*>& example) {
    return example.index == 0 ? "C" : "Cxx";
}

INSTANTIATE_TEST_SUITE_P(Volume, Examples, ::testing::Values(KELUTV_EXAMPLE_C, KELUTV_EXAMPLE_CPP), languageName);

constexpr char kHdmi1[] = "HDMI1: 1920x1080p at 60 Hz, SDR\n"
                          "setPictureMode picturemode = 10,streamTypeIndex = 0"
                          "setPictureMode pictureModeIndex = 7,streamTypeIndex = 0\n"
                          "getPictureMode : pictureModeIndex = 10, streamTypeIndex  = 0\n"
                          "HDMI1: picture mode sport\n";
constexpr char kHdmi2[] = "HDMI2: 3840x2160p at 60 Hz, HDR10\n"
                          "setPictureMode picturemode = 11,streamTypeIndex = 1"
                          "setPictureMode pictureModeIndex = 1,streamTypeIndex = 1\n"
                          "getPictureMode : pictureModeIndex = 11, streamTypeIndex  = 1\n"
                          "HDMI2: picture mode movie\n";
constexpr char kHdmi3[] = "HDMI3: 3840x2160p at 24 Hz, Dolby HDR\n"
                          "setPictureMode picturemode = 7,streamTypeIndex = 2"
                          "setPictureMode pictureModeIndex = 1,streamTypeIndex = 2\n"
                          "getPictureMode : pictureModeIndex = 7, streamTypeIndex  = 2\n"
                          "HDMI3: picture mode Dolby dark\n";

class SourcesExample : public ::testing::Test {
private:
    const RuntimeDir mRuntimeDir;
};

TEST_F(SourcesExample, GoesThroughThreeSignals) {
    const Simulator simulator;
    EXPECT_EQ(outputOf(KELUTV_EXAMPLE_SOURCES), std::string("the main window shows source 0\n") + kRegistering +
                                                    "event: window 0 shows source 9\n" + kHdmi1 +
                                                    "event: window 0 shows source 10\n" + kHdmi2 +
                                                    "event: window 0 shows source 11\n" + kHdmi3 + "exit code 0\n");
}

TEST_F(SourcesExample, DoesNotWaitForASourceThatIsShownAlready) {
    const Simulator simulator;
    ASSERT_EQ(SimulatorEnvironment::transact(requestOf(0x7000, {9, 0})), replyOf({0}));
    EXPECT_EQ(outputOf(KELUTV_EXAMPLE_SOURCES), std::string("the main window shows source 9\n") + kRegistering +
                                                    kHdmi1 + "event: window 0 shows source 10\n" + kHdmi2 +
                                                    "event: window 0 shows source 11\n" + kHdmi3 + "exit code 0\n");
}

TEST_F(SourcesExample, SaysThatTheServiceIsMissing) {
    expectServiceMissed(KELUTV_EXAMPLE_SOURCES, "sources: no answer from the TV base service; is it running?");
}

} // namespace

} // namespace kelutv::test
