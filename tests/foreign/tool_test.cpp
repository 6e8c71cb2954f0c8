#include "foreign/ForeignService.h"
#include "support/TestFolder.h"
#include "support/Wire.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <cstdint>

namespace kelutv::test {
namespace {

std::string digits(const Bytes& bytes) {
    std::string text = hex(bytes);
    text.erase(std::remove(text.begin(), text.end(), ' '), text.end());
    return text;
}

/** The token as the platform writes it: strict mode, no work source, "SYST", the name. */
std::string tokenOf() {
    return digits(Wire::reply().i32(INT32_MIN).i32(-1).i32(0x53595354).str16(u"android.ITVBaseService").bytes());
}

std::string nameAlone() { return digits(Wire::reply().str16(u"android.ITVBaseService").bytes()); }

/** CMD_AUDIO_SETVOLUME, the speaker, 35. */
const std::string kSetVolume = "08200000"
                               "00000000"
                               "23000000";

TEST(ForeignLibrary, servesApplications) {
    const ForeignService service;
    ChildProcess::Options options;
    options.environment = service.environment();
    options.captureOutput = true;
    ChildProcess example({KELUTV_FOREIGN_EXAMPLE}, options);
    EXPECT_EQ(example.exitCode(), 0);
    EXPECT_EQ(example.output().text(), "the speaker's volume is 33\n"
                                       "call linux_tv_registerCallbackFunc line 6\n"
                                       "setting it to 48\n"
                                       "event 0x60001 with 8 bytes\n"
                                       "the speaker's volume is 48\n");
}

TEST(ForeignTool, sendsTheTokenOfThePlatform) {
    ForeignService service;
    EXPECT_EQ(service.output({"call", "audio.setVolume", "speaker", "35"}), "result: 0\n");
    EXPECT_EQ(service.requests(), std::vector<std::string>{tokenOf() + kSetVolume});
    EXPECT_EQ(service.output({"call", "--wire", "audio.getVolume", "speaker"}),
              "-> " + tokenOf() + "0920000000000000\n<- 0000000023000000\nresult: 35\n");
}

TEST(ForeignTool, encodesAndDecodesEveryTokenOfThePlatform) {
    const std::vector<std::string> call{"encode", "audio.setVolume", "speaker", "35"};
    EXPECT_EQ(runTool(call).output, tokenOf() + kSetVolume + "\n");
    EXPECT_EQ(runTool(call, {"FOREIGN_TOKEN=name"}).output, nameAlone() + kSetVolume + "\n");
    for (const std::string& token : {tokenOf(), nameAlone()}) {
        const ToolRun run = runTool({"decode", token + kSetVolume});
        EXPECT_EQ(run.exit, 0) << run.error;
        EXPECT_NE(run.output.find("command: CMD_AUDIO_SETVOLUME 0x2008\n"), std::string::npos) << run.output;
    }
}

TEST(ForeignTool, completesLines) {
    EXPECT_EQ(runTool({"complete", "--", "set", "mute", "t"}).output, "toggle\n");
    EXPECT_EQ(runTool({"complete", "--", "call", "audio.setVolume", "sp"}).output, "spdif\nspeaker\n");
}

TEST(ForeignTool, getsAndSets) {
    const ForeignService service;
    EXPECT_EQ(service.output({"get", "volume"}), "33\n");
    EXPECT_EQ(service.output({"set", "volume", "+5"}), "38\n");
    EXPECT_EQ(service.output({"get", "source"}), "hdmi3\n");
    EXPECT_EQ(service.output({"set", "source", "hdmi1"}), "hdmi1\n");
    EXPECT_EQ(service.output({"get", "panel"}), "panel of another make\n");
    EXPECT_EQ(service.output({"call", "factory.getMacAddress"}), "result: 0\npStr: \"0a:0b:0c:0d:0e:0f\"\n");
    const std::string status = service.output({"status"});
    for (const char* const line : {"source              hdmi1\n", "volume              38\n",
                                   "brightness          61\n", "platform            FTV-7\n"}) {
        EXPECT_NE(status.find(line), std::string::npos) << line << status;
    }
}

/** A television that gives nothing but zeros and empty texts. */
TEST(ForeignTool, leavesOutWhatIsEmpty) {
    const ForeignService service;
    EXPECT_EQ(service.output({"cec"}), "0   hdmi1, playing\narc hdmi1, not supported, not active\n");
    const ToolRun run = service.run({"sources"});
    EXPECT_EQ(run.output, "");
    EXPECT_EQ(run.error, "kelutv: the television lists no inputs\n");
}

TEST(ForeignTool, keepsWhatIsWrittenToMemories) {
    const ForeignService service;
    EXPECT_EQ(service.run({"eep", "write", "tv", "0x8A02", "0x15", "0"}).error,
              "kelutv: 2 bytes written from 0x8A02 on\n");
    EXPECT_EQ(service.run({"eep", "write", "tv", "0x8A03", "0xFE"}).error, "kelutv: 1 byte written from 0x8A03 on\n");
    EXPECT_EQ(service.output({"eep", "read", "tv", "0x8A00", "5"}), "00 00 15 fe 00\n");
    EXPECT_EQ(service.output({"eep", "read", "flash", "0x8A03"}), "fe\n");
    EXPECT_EQ(service.output({"eep", "read", "eep", "0x8A03"}), "00\n");
}

/** The record has other places for its members than elsewhere. */
TEST(ForeignTool, showsRecordsOfThePlatform) {
    const ForeignService service;
    const ToolRun run = service.run({"call", "hdmicec.getDevicePortByIndex", "0"});
    EXPECT_EQ(run.exit, 0) << run.error;
    EXPECT_NE(run.output.find("pPort: externalPort.inputPort=101 externalPort.inputDev.hdmiDev=0 plugState=1\n"),
              std::string::npos)
        << run.output;
}

TEST(ForeignTool, showsEventsAndTheLossOfTheService) {
    ForeignService service;
    const auto monitor = startTool({"monitor", "--exit-on-loss"}, service.environment());
    ASSERT_TRUE(monitor->error().waitFor("kelutv: watching for events\n")) << monitor->error().text();
    service.output({"set", "volume", "34"});
    EXPECT_TRUE(
        monitor->output().waitFor("0x60001 KELU_EM_MODE_VOLUME volumeChanged (8 bytes: 00 00 00 00 22 00 00 00): "
                                  "channel=0 KELU_TV_AUDIO_CHANNEL_SPEAKER, volume=34\n"))
        << monitor->output().text();
    service.process().kill(SIGKILL);
    EXPECT_EQ(monitor->exitCode(), 3);
    EXPECT_NE(monitor->error().text().find("the service is gone\n"), std::string::npos) << monitor->error().text();
}

TEST(ForeignTool, tellsFailuresApart) {
    struct Case {
        std::vector<std::string> options;
        std::vector<std::string> call;
        int exit;
        const char* message;
    };
    const Case cases[] = {
        {{"--dies-at", "0x2008"}, {"audio.setVolume", "speaker", "1"}, 3, "the service is gone"},
        {{"--answers", "07000000"}, {"audio.setVolume", "speaker", "1"}, 4, "the service answered 7"},
        {{"--answers", ""}, {"audio.getVolume", "speaker"}, 4, "the service's answer has no result"},
        {{"--answers", "00000000ffffffff"}, {"audio.getVolume", "speaker"}, 0, ""},
    };
    for (const Case& test : cases) {
        const ForeignService service(test.options);
        std::vector<std::string> words = test.call;
        words.insert(words.begin(), "call");
        const ToolRun run = service.run(words);
        EXPECT_EQ(run.exit, test.exit) << run.output << run.error;
        EXPECT_NE(run.error.find(test.message), std::string::npos) << run.error;
    }
}

TEST(ForeignTool, saysWhereThePlatformLooked) {
    const TestFolder empty;
    const ToolRun run = runTool({"get", "volume"}, {"FOREIGN_FOLDER=" + empty.path()});
    EXPECT_EQ(run.exit, 3);
    EXPECT_EQ(run.output, "");
    EXPECT_NE(run.error.find("no TVBaseService: " + empty.path() + "/TVBaseService: No such file or directory\n"),
              std::string::npos)
        << run.error;
}

TEST(ForeignTool, hasNoSimulatorToDrive) {
    const ToolRun run = runTool({"sim", "show"});
    EXPECT_EQ(run.exit, 2);
    EXPECT_EQ(run.output, "");
    EXPECT_NE(run.error.find("no simulator"), std::string::npos) << run.error;
}

} // namespace
} // namespace kelutv::test
