#include "tools/Terminal.h"

#include "simulator/Simulator.h"
#include "support/TestFolder.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <fstream>
#include <utility>

namespace kelutv::test {
namespace {

SimulatorEnvironment& television = SimulatorEnvironment::install();

/** `kelutv repl` with lines that are written while it runs. */
class ReplOnPipe {
public:
    explicit ReplOnPipe(const std::string& options = "") : mProcess(command(options), captured()) {
        mLines = ::open(path().c_str(), O_WRONLY | O_CLOEXEC); // Returns when the other end is open.
    }
    ~ReplOnPipe() { close(); }
    ReplOnPipe(const ReplOnPipe&) = delete;
    ReplOnPipe& operator=(const ReplOnPipe&) = delete;

    void write(const std::string& line) const {
        const std::string text = line + '\n';
        ASSERT_EQ(::write(mLines, text.data(), text.size()), static_cast<ssize_t>(text.size()));
    }

    void close() { ::close(std::exchange(mLines, -1)); }

    ChildProcess& process() { return mProcess; }

private:
    std::string path() const { return mFolder.pathOf("lines"); }

    std::vector<std::string> command(const std::string& options) const {
        EXPECT_EQ(::mkfifo(path().c_str(), 0600), 0);
        return {"/bin/sh", "-c", "exec '" KELUTV_TOOL_PROGRAM "' repl " + options + " < '" + path() + '\''};
    }

    static ChildProcess::Options captured() {
        ChildProcess::Options options;
        options.captureOutput = true;
        options.captureError = true;
        return options;
    }

    const TestFolder mFolder;
    ChildProcess mProcess;
    int mLines;
};

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
