// The control channel and the EEP file of the program itself.

#include "simulator/Simulator.h"
#include "support/Deadline.h"
#include "support/RuntimeDir.h"

#include <kelutv/kelutv.h>

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <csignal>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>

namespace kelutv::test {

namespace {

constexpr int kCecDeviceChanged = 0x1A0001;
constexpr char kUnplugged[] = "event 0x1A0001 cecDeviceChanged: Soundbar unplugged\n";
constexpr char kPluggedIn[] = "event 0x1A0001 cecDeviceChanged: Soundbar plugged in\n";
constexpr char kBadLine[] = "kelutv-simulator: there is no control command 'explode'; allowed: cec, event, fault, "
                            "faults, get, help, key, plug, power, "
                            "reset, set, show, signal, signals, unplug and vbi\n";

class Control : public ::testing::Test {
protected:
    std::string file(const std::string& content) const {
        const std::string path = mRuntimeDir.path() + "/control";
        std::ofstream(path) << content;
        return path;
    }

    /** A named pipe that is written to as a shell does: opened and closed for each line. */
    std::string pipe() const {
        const std::string path = mRuntimeDir.path() + "/control";
        EXPECT_EQ(::mkfifo(path.c_str(), 0600), 0);
        return path;
    }

    static void say(const std::string& path, const std::string& line) { std::ofstream(path) << line << '\n'; }

    static void end(Simulator& simulator) {
        simulator.process().kill(SIGTERM);
        EXPECT_EQ(simulator.process().exitCode(), 0) << simulator.process().error().text();
    }

    const RuntimeDir mRuntimeDir;
};

TEST_F(Control, ReadsAFileToItsEnd) {
    Simulator simulator({"--control", file("# what happens\n\nunplug 5\nexplode\nplug 5")});
    EXPECT_TRUE(simulator.process().output().waitFor(kPluggedIn)) << simulator.process().output().text();
    EXPECT_NE(simulator.process().output().text().find(kUnplugged), std::string::npos);
    EXPECT_TRUE(simulator.process().error().waitFor(kBadLine));
    EXPECT_EQ(simulator.process().error().text(), kBadLine);
    end(simulator);
}

TEST_F(Control, ReadsANamedPipeAgainAndAgain) {
    const std::string path = pipe();
    Simulator simulator({"--control", path});
    say(path, "unplug 5");
    EXPECT_TRUE(simulator.process().output().waitFor(kUnplugged));
    say(path, "plug 5");
    EXPECT_TRUE(simulator.process().output().waitFor(kPluggedIn));
    end(simulator);
    EXPECT_EQ(simulator.process().error().text(), "");
}

TEST_F(Control, ReadsStandardInput) {
    int ends[2];
    ASSERT_EQ(::pipe2(ends, O_CLOEXEC), 0);
    const int input = ::fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, 0);
    ASSERT_EQ(::dup2(ends[0], STDIN_FILENO), STDIN_FILENO);
    Simulator simulator({"--control", "-"});
    if (input >= 0) {
        ::dup2(input, STDIN_FILENO);
        ::close(input);
    }
    EXPECT_EQ(::write(ends[1], "unplug 5\n", 9), 9);
    EXPECT_TRUE(simulator.process().output().waitFor(kUnplugged));
    ::close(ends[0]);
    ::close(ends[1]);
    end(simulator);
}

TEST_F(Control, RefusesTooLongALine) {
    const std::string path = pipe();
    Simulator simulator({"--control", path});
    say(path, std::string(256 * 1024 + 1, 'x'));
    EXPECT_TRUE(
        simulator.process().error().waitFor("kelutv-simulator: a control line has more than 262144 characters\n"));
    say(path, "unplug 5");
    EXPECT_TRUE(simulator.process().output().waitFor(kUnplugged));
    end(simulator);
}

TEST_F(Control, EndsAtOnceWhenThereIsNoChannel) {
    const std::string path = mRuntimeDir.path() + "/none";
    const auto simulator = startSimulator({"--control", path});
    EXPECT_EQ(simulator->exitCode(), 1);
    EXPECT_EQ(simulator->error().text(), "kelutv-simulator: cannot open " + path + ": No such file or directory\n");
    EXPECT_EQ(simulator->output().text(), "");
}

TEST_F(Control, EndsAtOnceWhenTheEepFileIsNone) {
    const std::string path = file("short");
    const auto simulator = startSimulator({"--eep", path});
    EXPECT_EQ(simulator->exitCode(), 1);
    EXPECT_EQ(simulator->error().text(),
              "kelutv-simulator: " + path + " is not an EEP file: it must be a regular file of 131072 bytes\n");
    EXPECT_EQ(simulator->output().text(), "");
    EXPECT_EQ(std::filesystem::file_size(path), 5U);
}

std::atomic<int> unplugged{0};

void onEvent(int id, void* data, unsigned int length, void*) {
    int words[3] = {};
    if (id == kCecDeviceChanged && length == sizeof(words)) {
        std::memcpy(words, data, sizeof(words));
        unplugged = words[0] == 5 && words[1] == 1 && words[2] == 0 ? 1 : -1;
    }
}

TEST_F(Control, UnpluggingReachesTheApplication) {
    const std::string path = pipe();
    Simulator simulator({"--control", path});
    linux_tv_registerCallbackFunc(onEvent);
    EXPECT_EQ(linux_tv_Audio_setVolume(KELU_TV_AUDIO_CHANNEL_SPEAKER, 35), 0);
    say(path, "unplug 5");
    EXPECT_TRUE(eventually([] { return unplugged == 1; }));
    end(simulator);
}

} // namespace

} // namespace kelutv::test
