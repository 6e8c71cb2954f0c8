// The screen of the simulator in a real terminal.

#include "simulator/Simulator.h"
#include "simulator/VolumeClient.h"
#include "support/Deadline.h"
#include "support/RuntimeDir.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <pty.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace kelutv::test {

namespace {

constexpr char kEnter[] = "\x1b[?1049h\x1b[?25l";
constexpr char kLeave[] = "\x1b[?25h\x1b[?1049l";

/** A terminal of 24 rows of 132 characters, and what is written to it. */
class Terminal {
public:
    Terminal() {
        winsize size{24, 132, 0, 0};
        if (::openpty(&mMaster, &mSlave, nullptr, nullptr, &size) != 0) {
            throw std::runtime_error("there is no terminal");
        }
        ::fcntl(mMaster, F_SETFL, O_NONBLOCK);
        // What is written is to arrive as it is.
        termios settings{};
        ::tcgetattr(mSlave, &settings);
        settings.c_oflag &= ~static_cast<tcflag_t>(OPOST);
        ::tcsetattr(mSlave, TCSANOW, &settings);
    }
    ~Terminal() {
        ::close(mMaster);
        ::close(mSlave);
    }
    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;

    int descriptor() const { return mSlave; }

    void resize(unsigned short rows, unsigned short columns) const {
        winsize size{rows, columns, 0, 0};
        ::ioctl(mMaster, TIOCSWINSZ, &size);
    }

    bool echoes() const {
        termios settings{};
        return ::tcgetattr(mSlave, &settings) == 0 && (settings.c_lflag & ECHO) != 0 &&
               (settings.c_lflag & ICANON) != 0;
    }

    void type(const std::string& keys) const {
        ASSERT_EQ(::write(mMaster, keys.data(), keys.size()), static_cast<ssize_t>(keys.size()));
    }

    /** Waits until this has been written since the last wait; what was written before goes with it. */
    bool waitFor(const std::string& text) {
        return eventually([this, &text] {
            read();
            const std::size_t found = mText.find(text);
            if (found != std::string::npos) {
                mText.erase(0, found + text.size());
            }
            return found != std::string::npos;
        });
    }

    /** What has been written since the last wait. */
    const std::string& rest() {
        read();
        return mText;
    }

private:
    void read() {
        char bytes[4096];
        for (ssize_t count = 0; (count = ::read(mMaster, bytes, sizeof(bytes))) > 0;) {
            mText.append(bytes, static_cast<std::size_t>(count));
        }
    }

    int mMaster = -1;
    int mSlave = -1;
    std::string mText;
};

class UiTerminal : public ::testing::Test {
protected:
    std::unique_ptr<ChildProcess> start(std::vector<std::string> options = {}) {
        options.insert(options.begin(), "--ui");
        return startSimulator(std::move(options), mTerminal.descriptor());
    }

    const RuntimeDir mRuntimeDir;
    Terminal mTerminal;
};

/** As Ctrl-S stops it. */
TEST_F(UiTerminal, ThatIsStoppedHoldsNobodyUp) {
    const auto simulator = start();
    ASSERT_TRUE(mTerminal.waitFor(kEnter));
    ASSERT_EQ(::tcflow(mTerminal.descriptor(), TCOOFF), 0);
    for (int volume = 0; volume < 20; ++volume) {
        EXPECT_EQ(SimulatorEnvironment::transact(requestOf(0x2008, {0, volume})), replyOf({0}));
    }
    simulator->kill(SIGTERM);
    EXPECT_EQ(simulator->exitCode(), 0);
    EXPECT_EQ(::tcflow(mTerminal.descriptor(), TCOON), 0);
}

TEST_F(UiTerminal, ShowsWhatAClientDoes) {
    const auto simulator = start();
    ASSERT_TRUE(mTerminal.waitFor(kEnter));
    ASSERT_TRUE(mTerminal.waitFor("[#####--------------------] 20"));
    EXPECT_FALSE(mTerminal.echoes());
    EXPECT_EQ(SimulatorEnvironment::transact(requestOf(0x2008, {0, 35})), replyOf({0}));
    EXPECT_TRUE(mTerminal.waitFor("[########-----------------] 35"));
    EXPECT_TRUE(mTerminal.waitFor("CMD_AUDIO_SETVOLUME(channel=0 KELU_TV_AUDIO_CHANNEL_SPEAKER, vol=35) -> 0"));
    EXPECT_TRUE(mTerminal.waitFor("event 0x60001 volumeChanged: audio.volume[0] = 35"));
    simulator->kill(SIGTERM);
    EXPECT_EQ(simulator->exitCode(), 0);
    EXPECT_TRUE(mTerminal.waitFor(kLeave));
    EXPECT_EQ(mTerminal.rest(), "");
    EXPECT_TRUE(mTerminal.echoes());
}

TEST_F(UiTerminal, FollowsTheSizeOfTheWindow) {
    const auto simulator = start();
    ASSERT_TRUE(mTerminal.waitFor("Events"));
    mTerminal.resize(3, 12);
    simulator->kill(SIGWINCH);
    EXPECT_TRUE(mTerminal.waitFor("\x1b[H\x1b[1mkelutv-simul\x1b[0m\x1b[K\r\n\x1b[2mPower     \x1b[0mon\x1b[K\r\n"
                                  "\x1b[2mSource    \x1b[0mAT\x1b[K\x1b[J"));
}

TEST_F(UiTerminal, IsLeftWhateverEndsIt) {
    for (const int signal : {SIGINT, SIGHUP, SIGQUIT}) {
        const auto simulator = start();
        ASSERT_TRUE(mTerminal.waitFor(kEnter));
        ASSERT_TRUE(mTerminal.waitFor("Events"));
        simulator->kill(signal);
        EXPECT_EQ(simulator->exitCode(), 0);
        EXPECT_TRUE(mTerminal.waitFor(kLeave));
    }
}

TEST_F(UiTerminal, IsLeftWhenAFaultEndsTheSimulator) {
    for (const char* const when : {"before", "after"}) {
        const auto simulator = start({"--fault", std::string("any die ") + when});
        ASSERT_TRUE(mTerminal.waitFor(std::string("fault any die ") + when));
        VolumeClient(1).answers();
        EXPECT_EQ(simulator->exitCode(), 3);
        EXPECT_TRUE(mTerminal.waitFor(kLeave));
        EXPECT_EQ(mTerminal.rest(), "");
        EXPECT_TRUE(mTerminal.echoes());
    }
}

TEST_F(UiTerminal, HasTheKeysOfARemoteControl) {
    const auto simulator = start();
    ASSERT_TRUE(mTerminal.waitFor("[#####--------------------] 20"));
    mTerminal.type("++");
    EXPECT_TRUE(mTerminal.waitFor("[#####--------------------] 22"));
    EXPECT_EQ(SimulatorEnvironment::transact(requestOf(0x2009, {0})), replyOf({0, 22}));
    mTerminal.type("m");
    EXPECT_TRUE(mTerminal.waitFor("] 22 mute"));
    mTerminal.type("s");
    EXPECT_TRUE(mTerminal.waitFor("Source    \x1b[0mDIG1"));
    mTerminal.type("u");
    EXPECT_TRUE(mTerminal.waitFor("DIG1 (unplugged)"));
    mTerminal.type("\x1b[A");
    EXPECT_TRUE(mTerminal.waitFor("key 103 up"));
    mTerminal.type("?");
    EXPECT_TRUE(mTerminal.waitFor("q    leave, as Ctrl-C does"));
    mTerminal.type("q");
    EXPECT_EQ(simulator->exitCode(), 0);
    EXPECT_TRUE(mTerminal.waitFor(kLeave));
    EXPECT_TRUE(mTerminal.echoes());
}

TEST_F(UiTerminal, ShowsInputsAndCecDevices) {
    const auto simulator = start();
    EXPECT_TRUE(mTerminal.waitFor("Inputs    \x1b[0mATV, DIG1, DIG2, CVBS1, CVBS2 (no signal), "));
    EXPECT_TRUE(mTerminal.waitFor("4 Disc player, 5 Soundbar, 8 Streaming box (unplugged), 3 Set-top box (unplugged)"));
}

TEST_F(UiTerminal, HasNoColourWhenThereIsToBeNone) {
    ::setenv("NO_COLOR", "1", 1);
    const auto simulator = start();
    ::unsetenv("NO_COLOR");
    ASSERT_TRUE(mTerminal.waitFor(kEnter));
    EXPECT_TRUE(mTerminal.waitFor("\x1b[Hkelutv-simulator  q leaves, ? shows keys\x1b[K\r\nPower     on\x1b[K\r\n"));
}

TEST_F(UiTerminal, TellsOfTheEndOfAScenario) {
    const std::string path = mRuntimeDir.path() + "/test.scenario";
    std::ofstream(path) << "unplug 5\n";
    const auto simulator = start({"--scenario", path});
    EXPECT_TRUE(mTerminal.waitFor("kelutv-simulator: the scenario has ended"));
}

TEST(UiWithoutATerminal, PrintsLines) {
    const RuntimeDir runtimeDir;
    const auto simulator = startSimulator({"--ui"});
    ASSERT_TRUE(simulator->output().waitFor("kelutv-simulator: ready (TVBaseService)\n"));
    VolumeClient client(1);
    EXPECT_EQ(client.answers(), "20\n");
    EXPECT_EQ(simulator->output().text(),
              "kelutv-simulator: ready (TVBaseService)\n[" + std::to_string(client.pid()) +
                  "] CMD_AUDIO_GETVOLUME(channel=0 KELU_TV_AUDIO_CHANNEL_SPEAKER) -> 0: 20\n");
}

TEST(UiWithoutATerminal, IsNotTheTrace) {
    const RuntimeDir runtimeDir;
    const auto simulator = startSimulator({"--ui", "--trace"});
    EXPECT_EQ(simulator->exitCode(), 2);
    EXPECT_NE(simulator->error().text().find("--trace excludes --ui"), std::string::npos) << simulator->error().text();
}

} // namespace

} // namespace kelutv::test
