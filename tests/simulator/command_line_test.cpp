#include "simulator/Simulator.h"
#include "support/RuntimeDir.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

#include <atomic>
#include <csignal>
#include <fstream>
#include <stdexcept>
#include <thread>

namespace kelutv::test {

namespace {

class CommandLine : public ::testing::Test {
protected:
    const RuntimeDir mRuntimeDir;
};

TEST_F(CommandLine, ExplainsItself) {
    const auto simulator = startSimulator({"--help"});
    EXPECT_EQ(simulator->exitCode(), 0);
    EXPECT_NE(simulator->output().text().find("--trace"), std::string::npos);
    EXPECT_NE(simulator->output().text().find("TVBaseService"), std::string::npos);
}

TEST_F(CommandLine, TellsItsVersion) {
    const auto simulator = startSimulator({"--version"});
    EXPECT_EQ(simulator->exitCode(), 0);
    EXPECT_EQ(simulator->output().text(), "kelutv-simulator " KELUTV_VERSION "\n");
}

TEST_F(CommandLine, RefusesWhatItDoesNotKnow) {
    struct Refused {
        std::vector<std::string> arguments;
        std::string complaint;
    };
    const std::vector<Refused> all{
        {{"--tracing"}, "unknown option '--tracing'"},
        {{"volume"}, "unexpected argument 'volume'"},
        {{"\x1b[2J"}, "unexpected argument '\\x1b[2J'"},
        {{"--ui", "--trace"}, "--trace excludes --ui"},
    };
    for (const Refused& refused : all) {
        const auto simulator = startSimulator(refused.arguments);
        EXPECT_EQ(simulator->exitCode(), 2);
        EXPECT_EQ(simulator->error().text(),
                  "kelutv-simulator: " + refused.complaint + "\nTry 'kelutv-simulator --help'.\n");
        EXPECT_EQ(simulator->output().text(), "");
    }
}

TEST_F(CommandLine, ShowsPathsWithoutWhatATerminalWouldActOn) {
    for (const char* const option : {"--config", "--state", "--eep", "--control", "--scenario"}) {
        const auto simulator = startSimulator({option, mRuntimeDir.path() + "/nowhere/\x1b[2J"});
        EXPECT_GT(simulator->exitCode().value_or(0), 0) << option;
        EXPECT_NE(simulator->error().text().find("/nowhere/\\x1b[2J"), std::string::npos) << simulator->error().text();
        EXPECT_EQ(simulator->error().text().find('\x1b'), std::string::npos) << option;
    }
}

TEST_F(CommandLine, ShowsPathsOfFilesThatAreWrongInTheSameWay) {
    const std::string path = mRuntimeDir.path() + "/\x1b[2J";
    std::ofstream(path) << "explode";
    for (const char* const option : {"--config", "--state", "--eep", "--scenario"}) {
        const auto simulator = startSimulator({option, path});
        EXPECT_GT(simulator->exitCode().value_or(0), 0) << option;
        EXPECT_NE(simulator->error().text().find("/\\x1b[2J"), std::string::npos) << simulator->error().text();
        EXPECT_EQ(simulator->error().text().find('\x1b'), std::string::npos) << option;
    }
}

TEST_F(CommandLine, HelpNamesTheProgramAndItsScenarios) {
    const auto simulator = startSimulator({"--help"});
    EXPECT_EQ(simulator->exitCode(), 0);
    const std::string help = simulator->output().text();
    EXPECT_EQ(help.rfind("Examples:\n  kelutv-simulator --trace\n\nUsage: kelutv-simulator [OPTIONS]\n", 0), 0U)
        << help;
    EXPECT_NE(help.find("\nScenarios: factory-line first-start hdmi-hotplug-cec hotel signal-loss\n"),
              std::string::npos)
        << help;
}

TEST_F(CommandLine, EndsCleanlyOnASignal) {
    for (const int signal : {SIGINT, SIGTERM}) {
        Simulator simulator;
        simulator.process().kill(signal);
        EXPECT_EQ(simulator.process().exitCode(), 0);
        EXPECT_EQ(simulator.process().error().text(), "");
    }
}

TEST_F(CommandLine, EndsCleanlyWhileItServes) {
    for (int run = 0; run < 5; ++run) {
        Simulator simulator;
        std::atomic<int> answers{0};
        std::thread client([&answers] {
            try {
                for (;;) {
                    SimulatorEnvironment::transact(requestOf(0x2008, {0, answers % 100}));
                    ++answers;
                }
            } catch (const std::runtime_error&) {
                // The simulator has ended.
            }
        });
        EXPECT_TRUE(eventually([&answers] { return answers >= 10; }));
        simulator.process().kill(SIGTERM);
        EXPECT_EQ(simulator.process().exitCode(), 0) << simulator.process().error().text();
        client.join();
    }
}

TEST_F(CommandLine, RefusesToRunTwice) {
    Simulator first;
    const auto second = startSimulator({});
    EXPECT_EQ(second->exitCode(), 1);
    EXPECT_NE(second->error().text().find("kelutv-simulator: another process already serves TVBaseService\n"),
              std::string::npos)
        << second->error().text();
    EXPECT_EQ(second->output().text(), "");
    EXPECT_EQ(SimulatorEnvironment::transact(requestOf(0x2009, {0})), replyOf({0, 20}));
}

TEST_F(CommandLine, PrintsOnlyThatItIsReadyUnlessToldToTrace) {
    const auto simulator = startSimulator({});
    ASSERT_TRUE(simulator->output().waitFor("kelutv-simulator: ready (TVBaseService)\n"));
    EXPECT_EQ(SimulatorEnvironment::transact(requestOf(0x2008, {0, 35})), replyOf({0}));
    EXPECT_EQ(simulator->output().text(), "kelutv-simulator: ready (TVBaseService)\n");
}

TEST_F(CommandLine, SaysThatItCannotServeInAnOpenDirectory) {
    ASSERT_EQ(::chmod(mRuntimeDir.path().c_str(), 0755), 0);
    const auto simulator = startSimulator({});
    EXPECT_EQ(simulator->exitCode(), 1);
    EXPECT_NE(simulator->error().text().find("kelutv-simulator: cannot serve TVBaseService: "), std::string::npos)
        << simulator->error().text();
}

} // namespace

} // namespace kelutv::test
