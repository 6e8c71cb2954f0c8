// What a service tells, how it bears load, and whether it outlives its clients.

#include "tools/compliance/Judged.h"
#include "tools/kelutv/compliance/Families.h"
#include "tools/kelutv/compliance/Runner.h"
#include "tools/kelutv/compliance/knowledge/Capabilities.h"

#include "simulator/Simulator.h"
#include "support/TestFolder.h"
#include "tools/Tool.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

namespace kelutv::test {
namespace {

using tool::compliance::CheckResult;
using tool::compliance::Terms;
using tool::compliance::Verdict;

/** What came of the checks that the words choose, under these terms. */
Judged judgedBy(const Terms& terms, const std::vector<std::string>& words) {
    return resultsOf(tool::compliance::chosenChecks(words, terms));
}

/** Each check that did not pass, `ID verdict`. */
Names notPassed(const Judged& results) {
    Names names;
    for (const CheckResult& result : results) {
        if (result.verdict != Verdict::passed) {
            names.insert(result.id + ' ' + nameOf(result.verdict));
        }
    }
    return names;
}

const CheckResult& resultOf(const Judged& results, const std::string& id) {
    return *std::find_if(results.begin(), results.end(), [&id](const CheckResult& each) { return each.id == id; });
}

class Families : public ::testing::Test {
protected:
    void turnOn(const std::vector<std::string>& options = {}) {
        hushLog();
        mTelevision = startSimulator(options);
        ASSERT_TRUE(mTelevision->output().waitFor("ready (TVBaseService)\n")) << mTelevision->error().text();
    }

    /** A television whose settings are others. */
    void turnOnWith(const std::string& settings) {
        std::ofstream(mFolder.pathOf("settings.json")) << settings;
        turnOn({"--config", mFolder.pathOf("settings.json")});
    }

    const TestFolder& folder() const { return mFolder; }

private:
    TestFolder mFolder;
    RuntimeDir mRuntimeDir;
    std::unique_ptr<ChildProcess> mTelevision;
};

TEST_F(Families, anEventThatDoesNotComeFailsOnceAndIsNotWaitedForAgain) {
    turnOnWith(R"({"audio": {"inputVolume": {"event": null}}})");
    EXPECT_EQ(notPassed(judgedBy({}, {"events.audio.setInputVolume", "events.audio.setSoundMode"})),
              (Names{"events.audio.setInputVolume.once failed", "events.audio.setInputVolume.same inconclusive",
                     "events.audio.setInputVolume.payload inconclusive"}));
}

/** An event is waited for longer than an answer may take. */
TEST_F(Families, anEventThatDoesNotComeIsNoAnswerThatDoesNot) {
    turnOnWith(R"({"audio": {"inputVolume": {"event": null}}})");
    const auto checks = tool::compliance::chosenChecks({"events.audio.setInputVolume.once"}, {});
    const Judged results = tool::compliance::runChecks(checks, 0.4, [](const CheckResult&) {});
    EXPECT_EQ(results.front().reason, "no inputVolumeChanged came when it was changed");
}

TEST_F(Families, aTableWithoutTheEventsOfStatesLeavesOutWhatNeedsOne) {
    turnOn();
    const std::string table = folder().pathOf("events.md");
    std::ofstream(table) << "# Another\n\n## Events\n\n| identifier | event | payload | when |\n|---|---|---|---|\n"
                         << "| KELU_EM_MODE_VOLUME+7 | loudnessChanged | level:int16 | Another loudness. |\n";
    const ToolRun run = runTool({"compliance", "events.service.severalListeners", "life.service.*Listeners", "--all"},
                                {"KELUTV_EVENTS=" + table});
    EXPECT_EQ(run.exit, 0) << run.error;
    for (const char* const check :
         {"events.service.severalListeners", "life.service.vanishedListeners", "life.service.stoppedListeners"}) {
        EXPECT_NE(run.output.find(check), std::string::npos) << run.output;
    }
    EXPECT_NE(run.output.find("no event of the table tells of anything that is set"), std::string::npos) << run.output;
}

TEST_F(Families, anotherEventInItsPlaceIsNone) {
    turnOnWith(R"({"audio": {"inputVolume": {"event": "subwooferVolumeChanged"}}})");
    const Judged results = judgedBy({}, {"events.audio.setInputVolume.once"});
    ASSERT_EQ(results.size(), 1U);
    EXPECT_EQ(results[0].verdict, Verdict::failed);
    EXPECT_EQ(results[0].reason, "no inputVolumeChanged came when it was changed");
}

TEST_F(Families, answersUnderLoadAreThoseToWhatWasAsked) {
    turnOn();
    Terms terms;
    terms.p50 = std::chrono::seconds(20);
    terms.p99 = std::chrono::nanoseconds(1);
    const Judged results = judgedBy(terms, {"load.threads.64.*", "load.processes.8.*"});
    EXPECT_EQ(notPassed(results), (Names{"load.threads.64.p99 failed", "load.processes.8.p99 failed"}));
    EXPECT_GE(resultOf(results, "load.threads.64.answers").latencies.size(), 1000U);
    EXPECT_GE(resultOf(results, "load.processes.8.answers").latencies.size(), 1000U);
}

TEST_F(Families, oneWrongAnswerUnderLoadIsFound) {
    turnOn();
    ASSERT_EQ(runTool({"sim", "fault any nth 900 error -5"}).exit, 0);
    const Judged results = judgedBy({}, {"load.threads.4.answers"});
    ASSERT_EQ(results.size(), 1U);
    EXPECT_EQ(results[0].verdict, Verdict::failed);
    EXPECT_EQ(results[0].reason.substr(0, 5), "1 of ");
    ASSERT_TRUE(results[0].exchange);
    EXPECT_EQ(results[0].exchange->reply.size(), 4U) << "an error is all that was answered";
}

TEST_F(Families, theEndOfTheServiceIsFound) {
    turnOn();
    EXPECT_EQ(notPassed(judgedBy({}, {"life.service.killedCallers"})), Names());
    ASSERT_EQ(runTool({"sim", "fault any nth 15 die after"}).exit, 0);
    const Judged results = judgedBy({}, {"life.service.killedCallers", "life.service.unreadReplies"});
    EXPECT_EQ(identifiers(results, Verdict::failed),
              (Names{"life.service.killedCallers", "life.service.unreadReplies"}));
}

/** Starts the simulator anew whenever it ends, and keeps its number in a file. */
class KeptTelevision {
public:
    explicit KeptTelevision(std::string file)
        : mFile(std::move(file)), mKeeper({"sh", "-c", R"(while :; do "$1" & echo $! >"$2"; wait; done)", "sh",
                                           KELUTV_SIMULATOR_PROGRAM, mFile},
                                          {{}, true}) {
        EXPECT_TRUE(mKeeper.output().waitFor("ready (TVBaseService)\n"));
    }

    ~KeptTelevision() {
        mKeeper.kill(SIGKILL);
        mKeeper.wait();
        std::system(("kill -9 $(cat " + mFile + ')').c_str());
    }

    std::string restart() const { return "kill $(cat " + mFile + ')'; }

    /** Restarts it, and gives the new one this line before anybody asks it. */
    std::string restartWith(const std::string& line) const {
        return "old=$(cat " + mFile + "); kill $old; while test \"$(cat " + mFile +
               ")\" = $old; do sleep 0.05; done; until '" + toolProgram() + "' --quiet sim '" + line +
               "'; do sleep 0.05; done";
    }

private:
    std::string mFile;
    ChildProcess mKeeper;
};

TEST_F(Families, aRestartedServiceIsFoundAgain) {
    const KeptTelevision television(folder().pathOf("simulator"));
    Terms terms;
    terms.restart = television.restart();
    EXPECT_EQ(notPassed(judgedBy(terms, {"life.service.restarted"})), Names());
    terms.restart = "false";
    const Judged results = judgedBy(terms, {"life.service.restarted"});
    EXPECT_EQ(results.front().reason, "the command that restarts the service failed");
    terms.restart = television.restartWith("fault any error -5");
    const Judged broken = judgedBy(terms, {"life.service.restarted"});
    EXPECT_EQ(broken.front().verdict, Verdict::failed);
    EXPECT_EQ(broken.front().reason, "after the restart a client that was there before gets another answer");
}

TEST_F(Families, whatATelevisionHasIsNotToldWhenItEndsMeanwhile) {
    turnOn();
    ASSERT_EQ(runTool({"sim", "fault CMD_AUDIO_GETINPUTVOLUME nth 4 die before"}).exit, 0);
    const std::string file = folder().pathOf("has.json");
    const ToolRun run = runTool({"compliance", "--discover", file, "--keep", folder().pathOf("put-back.json")});
    EXPECT_EQ(run.exit, 1) << run.error;
    EXPECT_FALSE(std::filesystem::exists(file));
    EXPECT_NE(run.error.find("put-back.json stays: "), std::string::npos) << run.error;
    EXPECT_TRUE(std::filesystem::exists(folder().pathOf("put-back.json")));
}

TEST_F(Families, whatATelevisionLacksIsDiscoveredAndLeftOut) {
    turnOnWith(R"({"audio": {"inputVolume": {"event": null}}})");
    ASSERT_EQ(runTool({"sim", "fault CMD_AUDIO_GETSOUNDMODE error -5"}).exit, 0);
    const auto checks = tool::compliance::chosenChecks(
        {"form.audio.getSoundMode.*", "form.video.getSignalStatusSync*", "events.audio.setInputVolume.*"}, {});
    const auto capabilities = tool::compliance::capabilitiesFrom(checks, resultsOf(checks));
    EXPECT_EQ(capabilities.modules, (std::map<std::string, bool>{{"audio", false}, {"video", true}}));
    EXPECT_FALSE(capabilities.commands.at("CMD_AUDIO_GETSOUNDMODE"));
    EXPECT_FALSE(capabilities.keys.at("video.getSignalStatusSync[source=cvbs3]"));
    EXPECT_TRUE(capabilities.keys.at("video.getSignalStatusSync[source=hdmi1]"));
    EXPECT_FALSE(capabilities.events.at("inputVolumeChanged"));
    const auto again = tool::compliance::capabilitiesOf(tool::compliance::capabilitiesText(capabilities), "FILE");
    EXPECT_EQ(tool::compliance::capabilitiesText(again), tool::compliance::capabilitiesText(capabilities));
    const auto without = [&](const std::string& module) {
        auto partial = again;
        partial.modules.erase(module);
        return notPassed(resultsOf(withoutLacking(
            partial, tool::compliance::chosenChecks({"form.audio.getSoundMode.status", "state.audio.setSoundMode.kept",
                                                     "events.audio.setInputVolume.once",
                                                     "form.video.getSignalStatusSync[source=cvbs3].end",
                                                     "form.video.getSignalStatusSync[source=hdmi1].end"},
                                                    {}))));
    };
    EXPECT_EQ(without("audio"),
              (Names{"form.audio.getSoundMode.status left-out", "state.audio.setSoundMode.kept left-out",
                     "events.audio.setInputVolume.once left-out",
                     "form.video.getSignalStatusSync[source=cvbs3].end left-out"}));
}

} // namespace
} // namespace kelutv::test
