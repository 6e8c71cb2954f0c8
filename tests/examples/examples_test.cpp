#include "simulator/Simulator.h"
#include "support/ChildProcess.h"
#include "support/Deadline.h"
#include "support/RuntimeDir.h"
#include "support/ScriptedService.h"

#include <keluem/publisher.h>

#include <gtest/gtest.h>

#include <optional>
#include <ostream>
#include <string>
#include <vector>

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

/** The teletext program on a service that answers 0; the test publishes the television's events. */
class TeletextExample : public ::testing::Test {
protected:
    void startService() {
        mService.start();
        mExample.emplace(std::vector<std::string>{KELUTV_EXAMPLE_TELETEXT}, captured());
        ASSERT_TRUE(eventually([this] { return lastCommand() == requestOf(0xD005); })) << "it did not register";
    }

    void publish(unsigned int type, const Bytes& payload) {
        EXPECT_EQ(mPublisher.publish(0x120000 + type, payload.data(), payload.size()), 0);
    }

    ChildProcess& example() { return *mExample; }
    std::vector<Bytes> requests() {
        lastCommand();
        return mRequests;
    }

private:
    Bytes lastCommand() {
        const std::vector<Bytes> requests = mService.takeRequests();
        mRequests.insert(mRequests.end(), requests.begin(), requests.end());
        return mRequests.empty() ? Bytes() : mRequests.back();
    }

    const RuntimeDir mRuntimeDir;
    ScriptedService mService;
    std::vector<Bytes> mRequests;
    std::optional<ChildProcess> mExample;
    keluem::Publisher mPublisher;
};

TEST_F(TeletextExample, ShowsThreeBlocksAndPutsEverythingBack) {
    startService();
    publish(1, {3, 0, 0, 0, 0x0A, 0x0B, 0xFF});
    publish(0xFFFF, {0, 0, 0, 0});
    publish(2, {17, 0, 0, 0, 0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16});
    EXPECT_EQ(example().exitCode(), 0);
    EXPECT_EQ(example().output().text(),
              "block of type 1, length 3: 0a 0b ff\n"
              "block of type 65535, length 0:\n"
              "block of type 2, length 17: 00 01 02 03 04 05 06 07 08 09 0a 0b 0c 0d 0e 0f ...\n");
    const std::vector<Bytes> expected{requestOf(0xD001), requestOf(0xD003), requestOf(0xD005),
                                      requestOf(0xD006), requestOf(0xD004), requestOf(0xD002)};
    EXPECT_EQ(requests(), expected);
}

TEST_F(TeletextExample, LeavesOutEventsThatHoldNoWholeBlock) {
    startService();
    publish(1, {});
    publish(1, {9, 9, 9});
    publish(1, {4, 0, 0, 0, 7, 7, 7});
    publish(1, {0xFF, 0xFF, 0xFF, 0xFF, 7});
    for (std::uint8_t byte = 1; byte <= 3; ++byte) {
        publish(1, {1, 0, 0, 0, byte});
    }
    EXPECT_EQ(example().exitCode(), 0);
    EXPECT_EQ(example().output().text(), "block of type 1, length 1: 01\n"
                                         "block of type 1, length 1: 02\n"
                                         "block of type 1, length 1: 03\n");
    for (const char* const size : {"0", "3", "7", "5"}) {
        const std::string complaint = std::string("teletext: an event of ") + size + " bytes holds no whole block\n";
        EXPECT_NE(example().error().text().find(complaint), std::string::npos) << example().error().text();
    }
}

TEST_F(TeletextExample, EndsWhenNoMoreBlocksCome) {
    startService();
    publish(1, {1, 0, 0, 0, 8});
    EXPECT_EQ(example().exitCode(), 1);
    EXPECT_EQ(example().output().text(), "block of type 1, length 1: 08\n");
    EXPECT_NE(example().error().text().find("teletext: no block came within 5 seconds\n"), std::string::npos);
    EXPECT_EQ(requests().back(), requestOf(0xD002));
}

TEST_F(TeletextExample, ShowsThePageOfTheSimulator) {
    const Simulator simulator;
    EXPECT_EQ(outputOf(KELUTV_EXAMPLE_TELETEXT),
              "block of type 1, length 42: 02 15 15 15 15 15 15 15 15 15 20 20 d0 31 b0 b0 ...\n"
              "block of type 1, length 42: c7 15 20 20 20 20 20 20 20 20 20 20 20 20 20 20 ...\n"
              "block of type 1, length 42: 02 02 20 20 54 68 e9 73 20 70 61 67 e5 20 e3 ef ...\n"
              "exit code 0\n");
}

TEST_F(TeletextExample, SaysThatTheServiceIsMissing) {
    expectServiceMissed(KELUTV_EXAMPLE_TELETEXT, "teletext: no answer from the TV base service; is it running?");
}

/** A program, and the recording of it that is kept. */
struct KeptRecording {
    const char* program;
    const char* file;
};

void PrintTo(const KeptRecording& recording, std::ostream* out) { *out << recording.file; }

/** Each example meets the television of its recording. */
class RecordedExample : public ::testing::TestWithParam<KeptRecording> {
protected:
    static std::string play(const std::vector<std::string>& options) {
        std::vector<std::string> words{"--replay", std::string(KELUTV_RECORDINGS "/") + GetParam().file,
                                       "--exit-at-end"};
        words.insert(words.end(), options.begin(), options.end());
        Simulator simulator(words);
        const std::string output = outputOf(GetParam().program);
        EXPECT_EQ(simulator.process().exitCode(), 0);
        EXPECT_EQ(simulator.process().error().text(), "");
        EXPECT_NE(simulator.process().output().text().find("; no difference\n"), std::string::npos);
        return output;
    }

private:
    const RuntimeDir mRuntimeDir;
};

TEST_P(RecordedExample, SeesNoDifference) {
    std::string expected;
    {
        const Simulator television;
        expected = outputOf(GetParam().program);
    }
    EXPECT_NE(expected.find("exit code 0\n"), std::string::npos);
    EXPECT_EQ(play({}), expected);
    EXPECT_EQ(play({"--match", "loosely"}), expected);
}

INSTANTIATE_TEST_SUITE_P(InTheOrderOfTheFolder, RecordedExample,
                         ::testing::Values(KeptRecording{KELUTV_EXAMPLE_SOURCES, "sources.jsonl"},
                                           KeptRecording{KELUTV_EXAMPLE_TELETEXT, "teletext.jsonl"},
                                           KeptRecording{KELUTV_EXAMPLE_C, "volume.jsonl"},
                                           KeptRecording{KELUTV_EXAMPLE_CPP, "volume_cpp.jsonl"}),
                         [](const auto& instance) {
                             const std::string file = instance.param.file;
                             return file.substr(0, file.find('.'));
                         });

} // namespace

} // namespace kelutv::test
