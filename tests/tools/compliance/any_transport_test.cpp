// A short run of each family over whatever carries calls here: sockets, or the kernel's driver in a machine.

#include "simulator/Simulator.h"
#include "support/RuntimeDir.h"
#include "support/TestFolder.h"
#include "tools/Tool.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

namespace kelutv::test {
namespace {

/** All families, all ways to send what no client sends, and clients that call at once or are killed. */
const std::vector<std::string> kWords{"audio.setVolume", "refusal.audio.getVolume", "refusal.service", "load.threads.4",
                                      "life.service.killedCallers"};
/** A machine may be emulated: what takes a second here then takes 15. */
constexpr std::chrono::seconds kTimeOfRun{90};

/** How many checks the tool says that it would make, and how many of them it leaves out. */
struct Announced {
    unsigned checks = 0;
    unsigned leftOut = 0;
};

Announced announced() {
    std::vector<std::string> words{"compliance", "--dry-run"};
    words.insert(words.end(), kWords.begin(), kWords.end());
    const ToolRun run = runTool(words);
    Announced all;
    unsigned set = 0;
    EXPECT_EQ(std::sscanf(run.error.c_str(), "kelutv: %u checks, %u of them set something and put it back, %u left out",
                          &all.checks, &set, &all.leftOut),
              3)
        << run.error;
    return all;
}

TEST(ComplianceOverAnyTransport, passesAllButWhatIsLeftOut) {
    const RuntimeDir directory;
    const Simulator television;
    const TestFolder folder;
    const std::string journal = folder.pathOf("put-back.json");
    const Announced all = announced();
    EXPECT_GT(all.checks, 120U);
    std::vector<std::string> arguments{"--quiet", "compliance", "--keep", journal};
    arguments.insert(arguments.end(), kWords.begin(), kWords.end());
    const auto run = startTool(arguments);
    EXPECT_EQ(run->exitCode(kTimeOfRun), 0) << run->output().text() << run->error().text();
    // A television may know another channel than the catalogue; and in the end all is looked at once more.
    const std::string summary = std::to_string(all.checks + 1) +
                                " checks: " + std::to_string(all.checks - all.leftOut) + " passed, 0 failed, " +
                                std::to_string(all.leftOut) + " left out, 1 inconclusive\n";
    const std::string output = run->output().text();
    EXPECT_NE(output.find('\n' + summary), std::string::npos) << output << "wanted: " << summary;
    EXPECT_FALSE(std::filesystem::exists(journal));
}

} // namespace
} // namespace kelutv::test
