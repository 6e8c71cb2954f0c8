#include "simulator/Simulator.h"
#include "tools/Tool.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>

namespace kelutv::test {
namespace {

SimulatorEnvironment& television = SimulatorEnvironment::install();

/** The tool that finds its service in the kernel's driver, where the simulated television offers itself. */
std::string outputOf(const std::vector<std::string>& arguments) {
    const ToolRun run = runTool(arguments);
    EXPECT_EQ(run.exit, 0) << run.error;
    return run.output;
}

bool wasTraced(const std::string& request) {
    const std::vector<std::string> lines = television.simulator().takeTrace();
    return std::any_of(lines.begin(), lines.end(),
                       [&request](const std::string& line) { return line.find(request) != std::string::npos; });
}

TEST(ForeignDriver, callsAServiceOfAnotherPlatform) {
    EXPECT_EQ(outputOf({"call", "audio.getVolume", "speaker"}), "result: 20\n");
    EXPECT_EQ(outputOf({"set", "volume", "41"}), "41\n");
    EXPECT_TRUE(wasTraced("CMD_AUDIO_SETVOLUME(channel=0 KELU_TV_AUDIO_CHANNEL_SPEAKER, vol=41) -> 0"));
    EXPECT_EQ(outputOf({"get", "volume"}), "41\n");
    EXPECT_NE(outputOf({"status"}).find("volume              41\n"), std::string::npos);
    EXPECT_EQ(outputOf({"call", "--wire", "audio.getVolume", "speaker"}),
              "-> " + tokenDigits() + "0920000000000000\n<- 0000000029000000\nresult: 41\n");
}

TEST(ForeignDriver, tellsARefusal) { EXPECT_EQ(runTool({"call", "audio.setVolume", "speaker", "101"}).exit, 4); }

TEST(ForeignDriverLast, seesTheEndOfTheService) {
    const auto monitor = startTool({"monitor", "--exit-on-loss"});
    ASSERT_TRUE(monitor->error().waitFor("kelutv: watching for events\n")) << monitor->error().text();
    television.simulator().process().kill(SIGTERM);
    EXPECT_EQ(monitor->exitCode(), 3);
    const ToolRun run = runTool({"get", "volume"});
    EXPECT_EQ(run.exit, 3);
    EXPECT_NE(run.error.find("no TVBaseService: the service manager knows none\n"), std::string::npos) << run.error;
}

} // namespace
} // namespace kelutv::test
