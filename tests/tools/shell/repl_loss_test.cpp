#include "tools/ReplOnPipe.h"
#include "tools/Terminal.h"

#include "simulator/Simulator.h"
#include "support/TestFolder.h"

#include <gtest/gtest.h>

#include <csignal>
#include <fstream>

namespace kelutv::test {
namespace {

SimulatorEnvironment& television = SimulatorEnvironment::install();

TEST(ReplLoss, saysWhichSignalEndedALine) {
    ReplOnPipe repl;
    repl.write("get volume");
    ASSERT_TRUE(repl.process().output().waitFor("\n"));
    const std::string path =
        "/proc/" + std::to_string(repl.process().pid()) + "/task/" + std::to_string(repl.process().pid()) + "/children";
    pid_t worker = 0;
    ASSERT_TRUE(std::ifstream(path) >> worker);
    repl.write("sim fault CMD_AUDIO_GETVOLUME delay 601s once");
    repl.write("get volume");
    repl.write("set volume 14");
    ASSERT_TRUE(television.simulator().process().output().waitFor("meets fault CMD_AUDIO_GETVOLUME delay 601s"));
    ASSERT_EQ(::kill(worker, SIGKILL), 0);
    repl.close();
    EXPECT_EQ(repl.process().exitCode(), 1);
    EXPECT_NE(repl.process().output().text().find("\n14\n"), std::string::npos);
    EXPECT_NE(repl.process().error().text().find("kelutv: line 3: the command was ended by signal 9 (Killed)\n"),
              std::string::npos)
        << repl.process().error().text();
}

TEST(ReplLoss, anInterruptEndsOnlyTheLine) {
    const TestFolder state;
    Terminal terminal({KELUTV_TOOL_PROGRAM, "repl"}, {"XDG_STATE_HOME=" + state.path()});
    ASSERT_TRUE(terminal.waitFor("kelutv> "));
    terminal.type("sim fault CMD_AUDIO_GETVOLUME delay 602s once\n");
    ASSERT_TRUE(terminal.waitFor("kelutv> "));
    terminal.type("get volume\n");
    ASSERT_TRUE(television.simulator().process().output().waitFor("meets fault CMD_AUDIO_GETVOLUME delay 602s"));
    terminal.type("\x03");
    ASSERT_TRUE(terminal.waitFor("kelutv> ")) << terminal.text();
    terminal.type("set volume 42\n");
    ASSERT_TRUE(terminal.waitFor("\n42\r\n")) << terminal.text();
    ASSERT_TRUE(terminal.waitFor("kelutv> "));
    terminal.type("quit\n");
    EXPECT_EQ(terminal.exitCode(), 0);
}

TEST(ReplLoss, goesOnWhenTheServiceIsBack) {
    ReplOnPipe repl;
    repl.write("set volume 15");
    ASSERT_TRUE(repl.process().output().waitFor("15\n"));
    television.simulator().process().kill(SIGTERM);
    ASSERT_EQ(television.simulator().process().exitCode(), 0);
    repl.write("get volume");
    ASSERT_TRUE(repl.process().error().waitFor("kelutv: line 2: the request did not get through: the service is gone"));
    repl.write("get volume");
    ASSERT_TRUE(repl.process().error().waitFor("kelutv: line 3: there is no television service"));
    const Simulator simulator;
    repl.write("set volume 16");
    ASSERT_TRUE(repl.process().output().waitFor("16\n")) << repl.process().error().text();
    repl.close();
    EXPECT_EQ(repl.process().exitCode(), 3);
}

} // namespace
} // namespace kelutv::test
