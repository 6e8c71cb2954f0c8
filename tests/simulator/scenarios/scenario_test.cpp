// Scenarios: files of timed steps that the simulator plays.

#include "simulator/Simulator.h"
#include "simulator/VolumeClient.h"
#include "support/RuntimeDir.h"

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <fstream>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace kelutv::test {

namespace {

constexpr char kReady[] = "kelutv-simulator: ready (TVBaseService)\n";
constexpr char kEnded[] = "kelutv-simulator: the scenario has ended\n";
constexpr char kUnplugged[] = "event 0x1A0001 cecDeviceChanged: Soundbar unplugged\n";
constexpr char kPluggedIn[] = "event 0x1A0001 cecDeviceChanged: Soundbar plugged in\n";

class ScenarioFile : public ::testing::Test {
protected:
    std::unique_ptr<ChildProcess> play(const std::string& content, std::vector<std::string> options = {}) {
        std::ofstream(mPath) << content;
        options.insert(options.begin(), {"--trace", "--scenario", mPath});
        return startSimulator(std::move(options));
    }

    static void end(ChildProcess& simulator) {
        simulator.kill(SIGTERM);
        EXPECT_EQ(simulator.exitCode(), 0) << simulator.error().text();
    }

    const RuntimeDir mRuntimeDir;
    const std::string mPath = mRuntimeDir.path() + "/test.scenario";
};

TEST_F(ScenarioFile, IsPlayedStepByStepAndTheSimulatorGoesOn) {
    const auto simulator = play("# A soundbar\n\nunplug 5\n  after 1ms  plug 5\nat 5ms unplug 5\nat 2ms plug 5\n");
    ASSERT_TRUE(simulator->output().waitFor(kEnded));
    EXPECT_EQ(simulator->output().text(),
              std::string(kReady) + kUnplugged + kPluggedIn + kUnplugged + kPluggedIn + kEnded);
    EXPECT_EQ(simulator->error().text(), "");
    EXPECT_EQ(VolumeClient(1).answers(), "20\n");
    end(*simulator);
}

TEST_F(ScenarioFile, EndsTheSimulatorWhenToldTo) {
    const auto simulator = play("unplug 5\n", {"--exit-at-end"});
    EXPECT_EQ(simulator->exitCode(), 0);
    EXPECT_EQ(simulator->output().text(), std::string(kReady) + kUnplugged + kEnded);
}

TEST_F(ScenarioFile, KeepsItsTimesAndIsPlayedFaster) {
    const auto start = std::chrono::steady_clock::now();
    const auto simulator =
        play("at 20s unplug 5\nafter 1.5s plug 5\nafter 500ms unplug 5", {"--exit-at-end", "--speed", "1000"});
    EXPECT_EQ(simulator->exitCode(), 0);
    EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(22));
    EXPECT_EQ(simulator->output().text(), std::string(kReady) + kUnplugged + kPluggedIn + kUnplugged + kEnded);
}

TEST_F(ScenarioFile, WaitsForRequests) {
    const auto simulator = play("on CMD_AUDIO_GETVOLUME unplug 5\non 0x2009 within 10s\non CMD_AUDIO_GET* plug 5\n");
    ASSERT_TRUE(simulator->output().waitFor(kReady));
    EXPECT_EQ(VolumeClient(1).answers(), "20\n");
    ASSERT_TRUE(simulator->output().waitFor(kUnplugged));
    EXPECT_EQ(VolumeClient(2).answers(), "20\n20\n");
    ASSERT_TRUE(simulator->output().waitFor(kEnded));
    EXPECT_NE(simulator->output().text().find(kPluggedIn), std::string::npos);
    EXPECT_EQ(simulator->error().text(), "");
    end(*simulator);
}

TEST_F(ScenarioFile, TellsOfStepsThatFailAndGoesOn) {
    const auto simulator = play("on any within 1ms unplug 4\nplug 77\nunplug 5\n", {"--exit-at-end"});
    EXPECT_EQ(simulator->exitCode(), 4);
    EXPECT_EQ(simulator->output().text(),
              std::string(kReady) + kUnplugged + "kelutv-simulator: the scenario has ended, 2 of its steps failed\n");
    EXPECT_EQ(simulator->error().text(), "kelutv-simulator: " + mPath + ":1: the request did not come in time\n" +
                                             "kelutv-simulator: " + mPath +
                                             ":2: there is no CEC device with the logical address 77\n");
}

TEST_F(ScenarioFile, IsLeftWhenTheSimulatorEnds) {
    for (const char* const step : {"after 3600s plug 5\n", "on CMD_AUDIO_SETVOLUME plug 5\n"}) {
        const auto simulator = play(step);
        ASSERT_TRUE(simulator->output().waitFor(kReady));
        end(*simulator);
        EXPECT_EQ(simulator->output().text(), kReady);
    }
}

TEST_F(ScenarioFile, IsCheckedAsAWholeBeforeItStarts) {
    const std::vector<std::pair<std::string, std::string>> lines{
        {"at", ":2: at takes a time from 0ms to 3600s, like 200ms or 1.5s"},
        {"at noon plug 5", ":2: at takes a time from 0ms to 3600s, like 200ms or 1.5s"},
        {"after 2h plug 5", ":2: after takes a time from 0ms to 3600s, like 200ms or 1.5s"},
        {"after 2s", ":2: 'after' has no command after its time"},
        {"on", ":2: on takes a command, an item or any"},
        {"on CMD_AUDIO_GETVOLUNE",
         ":2: there is no command or item 'CMD_AUDIO_GETVOLUNE'; nearest: CMD_AUDIO_GETVOLUME"},
        {"on any within 3", ":2: within takes a time from 0ms to 3600s, like 200ms or 1.5s"},
        {"after 1s explode 5", ":2: there is no control command 'explode'"},
        {"\v", ":2: there is no control command '"},
    };
    for (const auto& [line, complaint] : lines) {
        const auto simulator = play("unplug 5\n" + line + '\n');
        EXPECT_EQ(simulator->exitCode(), 2) << line;
        const std::string expected = "kelutv-simulator: " + mPath + complaint;
        EXPECT_EQ(simulator->error().text().substr(0, expected.size()), expected);
        EXPECT_EQ(simulator->output().text(), "");
    }
}

TEST_F(ScenarioFile, MustBeReadable) {
    for (const auto& [path, reason] : std::vector<std::pair<std::string, std::string>>{
             {mRuntimeDir.path() + "/nowhere/test.scenario", "No such file or directory"},
             {mRuntimeDir.path() + "/", "it must be a regular file of at most 16777216 bytes"},
             {"/dev/null", "it must be a regular file of at most 16777216 bytes"}}) {
        const auto simulator = startSimulator({"--scenario", path});
        EXPECT_EQ(simulator->exitCode(), 2);
        EXPECT_EQ(simulator->error().text(), "kelutv-simulator: cannot read " + path + ": " + reason + '\n');
    }
}

TEST_F(ScenarioFile, IsFoundByItsName) {
    const auto simulator = startSimulator({"--scenario", "signal-los"});
    EXPECT_EQ(simulator->exitCode(), 2);
    EXPECT_EQ(simulator->error().text(),
              "kelutv-simulator: there is no scenario 'signal-los', neither a file nor one of: factory-line, "
              "first-start, hdmi-hotplug-cec, hotel and signal-loss; nearest: signal-loss\n");
}

class ShippedScenario : public ::testing::TestWithParam<const char*> {
protected:
    const RuntimeDir mRuntimeDir;
};

TEST_P(ShippedScenario, PlaysByItself) {
    const auto simulator = startSimulator({"--trace", "--scenario", GetParam(), "--speed", "1000", "--exit-at-end"});
    EXPECT_EQ(simulator->exitCode(), 0);
    EXPECT_EQ(simulator->error().text(), "");
    EXPECT_NE(simulator->output().text().find("event 0x"), std::string::npos);
}

INSTANTIATE_TEST_SUITE_P(EachOf, ShippedScenario,
                         ::testing::Values("first-start", "hdmi-hotplug-cec", "hotel", "signal-loss"));

TEST_F(ScenarioFile, OfTheFactoryLineWaitsForTheStation) {
    const auto simulator = startSimulator({"--scenario", "factory-line", "--speed", "1000", "--exit-at-end"});
    ASSERT_TRUE(simulator->output().waitFor(kReady));
    const Bytes setMacAddress = requestOf(0x905D, {6, 2, 171, 0, 15, 255, 16});
    ASSERT_TRUE(eventually([&] { return SimulatorEnvironment::transact(setMacAddress) == replyOf({-110}); }));
    EXPECT_EQ(SimulatorEnvironment::transact(setMacAddress), replyOf({0}));
    EXPECT_EQ(SimulatorEnvironment::transact(requestOf(0x9066)), replyOf({0}));
    EXPECT_EQ(simulator->exitCode(), 0);
    EXPECT_EQ(simulator->error().text(), "");
}

TEST_F(ScenarioFile, IsNeededByItsOptions) {
    for (const std::vector<std::string>& options : {std::vector<std::string>{"--exit-at-end"}, {"--speed", "2"}}) {
        const auto simulator = startSimulator(options);
        EXPECT_EQ(simulator->exitCode(), 2);
        EXPECT_NE(simulator->error().text().find(options[0] + " requires --scenario"), std::string::npos)
            << simulator->error().text();
    }
}

TEST_F(ScenarioFile, HasNoOtherSpeed) {
    for (const char* const speed : {"0", "-1", "1001", "fast"}) {
        const auto simulator = play("unplug 5\n", {"--speed", speed});
        EXPECT_EQ(simulator->exitCode(), 2) << speed;
        EXPECT_EQ(simulator->output().text(), "");
    }
}

} // namespace

} // namespace kelutv::test
