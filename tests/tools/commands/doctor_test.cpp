#include "tools/ParsedJson.h"
#include "tools/Tool.h"

#include "simulator/Simulator.h"

#include <gtest/gtest.h>

#include <csignal>
#include <sstream>

namespace kelutv::test {
namespace {

ToolRun examine(std::vector<std::string> options = {"--event", "0"}) {
    options.insert(options.begin(), {"doctor"});
    return runTool(options);
}

/** The line of a check; empty when there is none. */
std::string lineOf(const ToolRun& run, const std::string& check) {
    std::istringstream lines(run.output);
    for (std::string line; std::getline(lines, line);) {
        if (line.find(' ' + check + ": ") != std::string::npos) {
            return line;
        }
    }
    return "";
}

class Doctor : public ::testing::Test {
protected:
    void fault(const std::string& line) {
        const ToolRun run = runTool({"sim", "fault " + line});
        ASSERT_EQ(run.exit, 0) << run.error;
    }

    RuntimeDir mRuntimeDir;
    Simulator mSimulator;
};

TEST_F(Doctor, findsTheSimulatedTelevisionWell) {
    const ToolRun run = examine({"--event", "2", "--change"});
    EXPECT_EQ(run.exit, 0) << run.output;
    EXPECT_EQ(run.error, "");
    EXPECT_NE(lineOf(run, "platform.libraries").find("libkqdroid.so"), std::string::npos) << run.output;
    EXPECT_EQ(lineOf(run, "platform.seam").substr(0, 3), "ok ");
    EXPECT_EQ(lineOf(run, "service.found"), "ok    service.found: found at try 1");
    EXPECT_EQ(lineOf(run, "service.descriptor"), "ok    service.descriptor: android.ITVBaseService");
    EXPECT_EQ(lineOf(run, "service.wrongToken"), "ok    service.wrongToken: refused with -101, wrong interface token");
    EXPECT_EQ(lineOf(run, "service.unknownCommand"),
              "ok    service.unknownCommand: refused with -102, no such command");
    EXPECT_EQ(lineOf(run, "service.shortRequest"), "ok    service.shortRequest: refused with -103, request too short");
    EXPECT_EQ(lineOf(run, "events.received"), "ok    events.received: 0x60001 volumeChanged of KELU_EM_MODE_VOLUME");
    EXPECT_EQ(lineOf(run, "latency").substr(0, 18), "ok    latency: p50");
    EXPECT_NE(run.output.find(" 0 failures\n"), std::string::npos) << run.output;
    EXPECT_EQ(runTool({"get", "volume"}).output, "20\n");
}

TEST_F(Doctor, changesNothingUnlessTold) {
    const std::string before = runTool({"sim", "show"}).output;
    ASSERT_EQ(examine().exit, 0);
    EXPECT_EQ(runTool({"sim", "show"}).output, before);
}

TEST_F(Doctor, warnsWhenNoEventComes) {
    const ToolRun run = examine({"--event", "0.01"});
    EXPECT_EQ(lineOf(run, "events.received"),
              "warn  events.received: none within 10 ms; change something meanwhile, or let --change do it");
}

TEST_F(Doctor, namesWhatIsRefused) {
    fault("CMD_AUDIO_GETVOLUME error -5");
    const ToolRun run = examine();
    EXPECT_EQ(run.exit, 0);
    EXPECT_EQ(lineOf(run, "read.audio.getVolume"), "warn  read.audio.getVolume: refused: the service answered -5");
}

TEST_F(Doctor, namesWhatIsMalformed) {
    struct Case {
        const char* fault;
        const char* check;
    };
    for (const Case& each : {Case{"CMD_AUDIO_GETVOLUME short 2", "read.audio.getVolume"},
                             Case{"CMD_AUDIO_GETMUTE long 8", "read.audio.getMute"},
                             Case{"CMD_FACTORY_GETMACADDRESS unterminated", "read.factory.getMacAddress"},
                             Case{"CMD_FACTORY_GET_CTL_VOLUME count 1000", "read.factory.getSoundCurveCtlData"}}) {
        fault(each.fault);
        const ToolRun run = examine();
        EXPECT_EQ(run.exit, 4);
        EXPECT_EQ(lineOf(run, each.check).rfind(std::string("FAIL  ") + each.check + ": malformed: the ", 0), 0U)
            << run.output;
        EXPECT_NE(run.output.find(" 1 failure\n"), std::string::npos) << run.output;
        ASSERT_EQ(runTool({"sim", "fault", "clear"}).exit, 0);
    }
}

TEST_F(Doctor, namesWhatIsSlow) {
    fault("CMD_AUDIO_GETMUTE delay 20ms");
    const ToolRun run = examine({"--event", "0", "--slow", "0.02"});
    EXPECT_EQ(run.exit, 0);
    EXPECT_EQ(lineOf(run, "read.audio.getMute").substr(0, 31), "warn  read.audio.getMute: slow:");
}

TEST_F(Doctor, namesWhatIsNeverAnsweredAndGoesOn) {
    fault("CMD_AUDIO_GETMUTE delay 3600s");
    const ToolRun run = examine({"--event", "0", "--limit", "0.3"});
    EXPECT_EQ(run.exit, 5);
    EXPECT_EQ(lineOf(run, "read.audio.getMute"), "FAIL  read.audio.getMute: no answer within 0.3 s");
    EXPECT_EQ(lineOf(run, "latency").substr(0, 5), "ok   ");
}

TEST_F(Doctor, givesUpWhenNothingIsAnswered) {
    fault("any delay 3600s");
    const ToolRun run = examine({"--event", "0", "--limit", "0.1"});
    EXPECT_EQ(run.exit, 5);
    EXPECT_NE(run.output.find(" 3 failures, "), std::string::npos) << run.output;
    EXPECT_NE(run.output.find(" left out\n"), std::string::npos) << run.output;
}

TEST_F(Doctor, namesWhatEndsTheService) {
    fault("CMD_AUDIO_GETMUTE die before");
    const ToolRun run = examine();
    EXPECT_EQ(run.exit, 3);
    EXPECT_EQ(lineOf(run, "read.audio.getMute").substr(0, 26), "FAIL  read.audio.getMute: ");
    EXPECT_EQ(lineOf(run, "latency"), "");
    EXPECT_NE(run.output.find(" left out\n"), std::string::npos) << run.output;
}

TEST_F(Doctor, namesWhatCameAfterTheLastAnswer) {
    fault("CMD_AUDIO_GETMUTE die after");
    const ToolRun run = examine();
    EXPECT_EQ(run.exit, 3);
    EXPECT_EQ(lineOf(run, "read.audio.getMute"), "");
    EXPECT_NE(run.output.find("FAIL  read."), std::string::npos) << run.output;
}

TEST_F(Doctor, noticesTheEndOfTheService) {
    const auto tool = startTool({"doctor", "--event", "0", "--death", "10"});
    ASSERT_TRUE(tool->error().waitFor("kelutv: end the service now\n"));
    mSimulator.process().kill(SIGTERM);
    EXPECT_EQ(tool->exitCode(), 0);
    const std::string output = tool->output().text();
    EXPECT_NE(output.find("ok    death: noticed\n"), std::string::npos) << output;
}

TEST_F(Doctor, isADocumentForEachCheck) {
    fault("CMD_AUDIO_GETMUTE error -5");
    const ToolRun run = examine({"--event", "0", "--json"});
    std::istringstream lines(run.output);
    tool::Json last;
    bool isThere = false;
    for (std::string line; std::getline(lines, line); last = parsedJson(line)) {
        const tool::Json document = parsedJson(line);
        if (document.find("check") != nullptr && document.at("check") == "read.audio.getMute") {
            isThere = true;
            EXPECT_EQ(document.at("verdict"), "warn");
            EXPECT_EQ(document.at("text"), "refused: the service answered -5");
            EXPECT_TRUE(document.at("milliseconds").isNumber());
        }
    }
    EXPECT_TRUE(isThere) << run.output;
    EXPECT_EQ(last.at("failures"), 0);
    EXPECT_EQ(last.at("leftOut"), 0);
}

TEST(DoctorWithoutTelevision, refusesTimesThatAreNone) {
    struct Case {
        const char* option;
        const char* time;
        const char* least;
    };
    for (const Case& each : {Case{"--limit", "0", "0.01"}, Case{"--slow", "x", "0.0001"}, Case{"--event", "-1", "0"},
                             Case{"--death", "nan", "0.01"}}) {
        const ToolRun run = examine({each.option, each.time});
        EXPECT_EQ(run.exit, 2);
        EXPECT_EQ(run.error, usageError("doctor", std::string(each.option) + " takes a time from " + each.least +
                                                      " to 86400 seconds, not '" + each.time + '\''));
    }
}

TEST(DoctorWithoutTelevision, saysSo) {
    const RuntimeDir runtimeDir;
    const std::string nowhere = runtimeDir.path() + "/nowhere/run";
    const ToolRun run = runTool({"doctor", "--event", "0"}, {"KQDROID_RUNTIME_DIR=" + nowhere});
    EXPECT_EQ(run.exit, 3);
    EXPECT_EQ(lineOf(run, "platform.seam").substr(0, 3), "ok ");
    EXPECT_EQ(lineOf(run, "service.found"),
              "FAIL  service.found: there is no television service; is the television, or kelutv-simulator, running? "
              "(runtime directory " +
                  nowhere + ": No such file or directory; no service TVBaseService in " + nowhere + "/services)");
    EXPECT_NE(run.output.find(" left out\n"), std::string::npos) << run.output;
}

} // namespace
} // namespace kelutv::test
