// Faults given on the command line, those that end the simulator among them.

#include "simulator/Simulator.h"
#include "simulator/VolumeClient.h"
#include "support/RuntimeDir.h"

#include <gtest/gtest.h>

#include <csignal>
#include <string>

namespace kelutv::test {

namespace {

class FaultOptions : public ::testing::Test {
protected:
    const RuntimeDir mRuntimeDir;
};

constexpr char kVolume[] = "CMD_AUDIO_GETVOLUME(channel=0 KELU_TV_AUDIO_CHANNEL_SPEAKER)";

TEST_F(FaultOptions, EndTheSimulatorWithoutAnAnswer) {
    Simulator simulator({"--fault", "CMD_AUDIO_GETVOLUME nth 2 die before"});
    VolumeClient client(3);
    EXPECT_EQ(client.answers(), "20\n-1\n-1\n");
    EXPECT_EQ(simulator.process().exitCode(), 3);
    const std::string caller = '[' + std::to_string(client.pid()) + "] ";
    EXPECT_EQ(simulator.takeTrace(),
              (std::vector<std::string>{caller + kVolume + " -> 0: 20",
                                        caller + kVolume + " meets fault CMD_AUDIO_GETVOLUME nth 2 die before"}));
}

TEST_F(FaultOptions, EndTheSimulatorBehindAnAnswer) {
    Simulator simulator({"--fault", "any die after"});
    VolumeClient client(3);
    EXPECT_EQ(client.answers(), "20\n-1\n-1\n");
    EXPECT_EQ(simulator.process().exitCode(), 3);
    const std::string caller = '[' + std::to_string(client.pid()) + "] ";
    EXPECT_EQ(simulator.takeTrace(), (std::vector<std::string>{caller + kVolume + " meets fault any die after",
                                                               caller + kVolume + " -> 0: 20"}));
}

TEST_F(FaultOptions, MayBeGivenAgain) {
    Simulator simulator({"--fault", "any nth 1 error -5", "--fault", "0x2009 nth 3 short 0"});
    VolumeClient client(4);
    EXPECT_EQ(client.answers(), "-1\n20\n0\n20\n");
}

TEST_F(FaultOptions, ThatMakeNoSenseAreRefused) {
    const auto simulator = startSimulator({"--fault", "CMD_AUDIO_GETVOLUNE error -5"});
    EXPECT_EQ(simulator->exitCode(), 2);
    EXPECT_EQ(simulator->error().text(),
              "kelutv-simulator: --fault: there is no command or item 'CMD_AUDIO_GETVOLUNE'; "
              "nearest: CMD_AUDIO_GETVOLUME, CMD_AUDIO_SETVOLUME, CMD_AUDIO_GETMUTE, "
              "CMD_AUDIO_SETVOLUME_C, CMD_AUDIO_GETAMPMUTE\n");
    EXPECT_EQ(simulator->output().text(), "");
}

} // namespace

} // namespace kelutv::test
