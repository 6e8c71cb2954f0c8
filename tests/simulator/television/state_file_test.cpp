// What outlives the simulator, however it ends.

#include "simulator/Simulator.h"
#include "support/Deadline.h"
#include "support/RuntimeDir.h"

#include <kelutv/kelutv.h>

#include <binder/IServiceManager.h>

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace kelutv::test {

namespace {

constexpr int kSetVolume = CMD_AUDIO_SETVOLUME;
constexpr int kGetVolume = CMD_AUDIO_GETVOLUME;

Bytes send(int command, std::initializer_list<std::int32_t> arguments = {}) {
    return SimulatorEnvironment::transact(requestOf(command, arguments));
}

bool isServed() {
    try {
        return send(kGetVolume, {0}) == replyOf({0, 20});
    } catch (const std::runtime_error&) {
        return false;
    }
}

rlim_t lowestFreeDescriptor(pid_t process) {
    rlim_t descriptor = 0;
    std::error_code ignored;
    while (std::filesystem::is_symlink("/proc/" + std::to_string(process) + "/fd/" + std::to_string(descriptor),
                                       ignored)) {
        ++descriptor;
    }
    return descriptor;
}

class StateFile : public ::testing::Test {
protected:
    std::string path() const { return mRuntimeDir.path() + "/state.json"; }

    void start(std::vector<std::string> options = {}) {
        options.insert(options.begin(), {"--state", path()});
        mSimulator.emplace(options);
    }

    void end() {
        mSimulator->process().kill(SIGTERM);
        EXPECT_EQ(mSimulator->process().exitCode(), 0);
        EXPECT_EQ(mSimulator->process().error().text(), "");
        mSimulator.reset();
    }

    void kill() {
        mSimulator->process().kill(SIGKILL);
        EXPECT_TRUE(mSimulator->process().wait());
        mSimulator.reset();
    }

    void write(const std::string& text) const { std::ofstream(path()) << text; }

    std::string content() const {
        std::ifstream file(path());
        return {std::istreambuf_iterator<char>(file), {}};
    }

    void expectRefused(const std::string& text, const std::string& complaint) const {
        write(text);
        const auto simulator = startSimulator({"--state", path()});
        EXPECT_EQ(simulator->exitCode(), 2);
        EXPECT_EQ(simulator->output().text(), "");
        EXPECT_EQ(simulator->error().text(), "kelutv-simulator: " + path() + complaint + "\n");
        EXPECT_EQ(content(), text);
    }

    const RuntimeDir mRuntimeDir;
    std::optional<Simulator> mSimulator;
};

TEST_F(StateFile, BringsEverythingBack) {
    start();
    EXPECT_EQ(send(kSetVolume, {0, 35}), replyOf({0}));
    EXPECT_EQ(send(CMD_SOURCE_SELECTSOURCE, {KELU_TV_SRC_HDMI2, KELU_TV_WINDOW_MAIN}), replyOf({0}));
    EXPECT_EQ(send(CMD_CEC_ACTIVATE_CEC_DEVICE, {5}), replyOf({0, 0}));
    EXPECT_EQ(send(CMD_SYSTEM_SUSPEND), replyOf({0}));
    EXPECT_EQ(send(CMD_SYSTEM_RESUME, {9}), replyOf({0}));
    end();
    start();
    EXPECT_EQ(send(kGetVolume, {0}), replyOf({0, 35}));
    EXPECT_EQ(send(kGetVolume, {1}), replyOf({0, 20}));
    EXPECT_EQ(send(CMD_SOURCE_GETCURSOURCEID, {KELU_TV_WINDOW_MAIN}), replyOf({0, KELU_TV_SRC_HDMI2}));
    EXPECT_EQ(send(CMD_CEC_GET_PLAYING_DEVICE_LOGADDR), replyOf({0, 5}));
    EXPECT_EQ(send(CMD_SYSTEM_GETLASTPOWEROFFMODE), replyOf({0, 1}));
    EXPECT_EQ(send(CMD_SYSTEM_GETWAKEUPMODE), replyOf({0, 9}));
    end();
}

TEST_F(StateFile, KeepsWhatTheControlChannelChanged) {
    write("unplug 4\n");
    const std::string script = mRuntimeDir.path() + "/script";
    std::filesystem::rename(path(), script);
    start({"--control", script});
    EXPECT_TRUE(mSimulator->process().output().waitFor("event 0x1A0001 cecDeviceChanged: Disc player unplugged\n"));
    kill();
    start();
    EXPECT_EQ(send(CMD_CEC_ACTIVATE_CEC_DEVICE, {4}), replyOf({-109}));
    end();
}

TEST_F(StateFile, IsReadableAndWrittenOnlyOnChanges) {
    start();
    const std::string first = content();
    EXPECT_EQ(first.rfind("{\n  \"format\": \"kelutv simulator state 1\",\n  \"settings\": [],\n", 0), 0U) << first;
    const auto written = std::filesystem::last_write_time(path());
    EXPECT_EQ(send(kGetVolume, {0}), replyOf({0, 20}));
    EXPECT_EQ(send(kSetVolume, {0, 20}), replyOf({0}));
    EXPECT_EQ(send(kSetVolume, {0, 101}), replyOf({-107}));
    EXPECT_EQ(std::filesystem::last_write_time(path()), written);
    EXPECT_EQ(send(kSetVolume, {0, 35}), replyOf({0}));
    EXPECT_NE(content().find("\n    {\"key\":[0],\"state\":\"audio.volume\",\"value\":[35]}"), std::string::npos)
        << content();
    end();
}

TEST_F(StateFile, IsWholeWheneverTheSimulatorIsKilled) {
    for (int round = 0; round < 15; ++round) {
        start();
        std::atomic<int> answered{-1};
        std::thread client([&answered, round] {
            try {
                for (int volume = 0;; volume = (volume + 1) % 100) {
                    send(kSetVolume, {round, volume});
                    answered = volume;
                }
            } catch (const std::runtime_error&) {
                // The simulator has been killed.
            }
        });
        EXPECT_TRUE(eventually([&answered, round] { return answered >= round; }));
        kill();
        client.join();
        start();
        // What was answered is kept; the request after it may have been carried out, too.
        const Bytes kept = send(kGetVolume, {round});
        const int next = (answered + 1) % 100;
        EXPECT_TRUE(kept == replyOf({0, answered}) || kept == replyOf({0, next})) << answered << ' ' << hex(kept);
        end();
    }
}

TEST_F(StateFile, OfAnotherKindIsRefusedAndLeftAlone) {
    expectRefused("",
                  ": this is not JSON: parse error at line 1, column 1: syntax error while parsing value - unexpected "
                  "end of input; expected '[', '{', or a literal");
    expectRefused("{}", ": this is not the state of a simulator: its format is not 'kelutv simulator state 1'");
    expectRefused("[1]", ": this is not the state of a simulator: its format is not 'kelutv simulator state 1'");
}

TEST_F(StateFile, CutShortIsRefused) {
    start();
    end();
    const std::string whole = content();
    write(whole.substr(0, whole.size() / 2));
    const auto simulator = startSimulator({"--state", path()});
    EXPECT_EQ(simulator->exitCode(), 2);
    EXPECT_EQ(content(), whole.substr(0, whole.size() / 2));
}

TEST_F(StateFile, ThatNamesAnUnknownStateIsRefused) {
    start();
    EXPECT_EQ(send(kSetVolume, {0, 35}), replyOf({0}));
    end();
    std::string text = content();
    text.replace(text.find("audio.volume"), 12, "audio.valume");
    expectRefused(
        text,
        ": /settings/0/state: there is no state 'audio.valume'; nearest: audio.volume, audio.maxVolume, audio.mute");
}

TEST_F(StateFile, ThatCannotBeMadeEndsTheSimulator) {
    const std::string nowhere = mRuntimeDir.path() + "/none/state.json";
    const auto simulator = startSimulator({"--state", nowhere});
    EXPECT_EQ(simulator->exitCode(), 1);
    EXPECT_EQ(simulator->error().text(),
              "kelutv-simulator: cannot write " + nowhere + ".new: No such file or directory\n");
}

TEST_F(StateFile, BelongsToOneSimulator) {
    start();
    EXPECT_EQ(send(kSetVolume, {0, 35}), replyOf({0}));
    const RuntimeDir elsewhere;
    const auto second = startSimulator({"--state", path()});
    EXPECT_EQ(second->exitCode(), 1);
    EXPECT_EQ(second->output().text(), "");
    EXPECT_EQ(second->error().text(),
              "kelutv-simulator: " + path() + " is in use by another process; give each simulator a file of its own\n");
    EXPECT_NE(content().find("\"value\":[35]"), std::string::npos);
    kill();
    start();
    end();
    EXPECT_NE(content().find("\"value\":[35]"), std::string::npos);
}

TEST_F(StateFile, LosesWhatAKilledSimulatorLeftBesideIt) {
    start();
    end();
    std::ofstream(path() + ".new") << "half of";
    start();
    EXPECT_FALSE(std::filesystem::exists(path() + ".new"));
    end();
    std::filesystem::remove(path());
    std::ofstream(path() + ".new") << "half of";
    start();
    EXPECT_FALSE(std::filesystem::exists(path() + ".new"));
    end();
    EXPECT_TRUE(std::filesystem::exists(path()));
}

/** A pipe, put there by somebody else, would keep whoever opens it waiting. */
TEST_F(StateFile, IsNoPipeAndHasNoneBesideIt) {
    ASSERT_EQ(::mkfifo(path().c_str(), 0600), 0);
    const auto asFile = startSimulator({"--state", path()});
    EXPECT_EQ(asFile->exitCode(), 1);
    EXPECT_EQ(asFile->error().text(),
              "kelutv-simulator: cannot read " + path() + ": it must be a regular file of at most 16777216 bytes\n");
    std::filesystem::remove(path());
    start();
    end();
    const std::string next = path() + ".new";
    ASSERT_EQ(::mkfifo(next.c_str(), 0600), 0);
    const auto beside = startSimulator({"--state", path()});
    EXPECT_EQ(beside->exitCode(), 1);
    EXPECT_EQ(beside->error().text(), "kelutv-simulator: " + next + " is in the way: it is not a regular file\n");
}

TEST_F(StateFile, IsWrittenWithoutAPipeThatComesLater) {
    start();
    const std::string next = path() + ".new";
    ASSERT_EQ(::mkfifo(next.c_str(), 0600), 0);
    EXPECT_EQ(send(kSetVolume, {0, 35}), replyOf({0}));
    EXPECT_EQ(send(kSetVolume, {0, 36}), replyOf({0}));
    EXPECT_EQ(mSimulator->process().error().text(),
              "kelutv-simulator: " + next + " is in the way: it is not a regular file\n");
    std::filesystem::remove(next);
    EXPECT_TRUE(eventually([this] { return content().find("\"value\":[36]") != std::string::npos; }));
    mSimulator.reset();
}

TEST_F(StateFile, IsWrittenWhenThereAreDescriptorsAgain) {
    start();
    // Connected before, since nobody can connect without descriptors.
    const auto service = android::defaultServiceManager()->getService(android::String16("TVBaseService"));
    const auto setVolume = [&service](int volume) {
        return SimulatorEnvironment::transact(service, requestOf(kSetVolume, {0, volume}));
    };
    EXPECT_EQ(setVolume(34), replyOf({0}));
    const pid_t simulator = mSimulator->process().pid();
    rlimit before{};
    ASSERT_EQ(::prlimit(simulator, RLIMIT_NOFILE, nullptr, &before), 0);
    const rlimit none{lowestFreeDescriptor(simulator), before.rlim_max};
    ASSERT_EQ(::prlimit(simulator, RLIMIT_NOFILE, &none, nullptr), 0);
    EXPECT_EQ(setVolume(35), replyOf({0}));
    EXPECT_EQ(setVolume(36), replyOf({0}));
    EXPECT_EQ(content().find("\"value\":[36]"), std::string::npos);
    ASSERT_EQ(::prlimit(simulator, RLIMIT_NOFILE, &before, nullptr), 0);
    EXPECT_TRUE(eventually([this] { return content().find("\"value\":[36]") != std::string::npos; }));
    // Once, whatever the runtime says of descriptors.
    const std::string error = mSimulator->process().error().text();
    const std::string complaint = "kelutv-simulator: cannot write " + path() + ".new: Too many open files\n";
    EXPECT_NE(error.find(complaint), std::string::npos) << error;
    EXPECT_EQ(error.find(complaint), error.rfind(complaint)) << error;
    mSimulator.reset();
}

/** While this lives, the test has no standard descriptors, and programs that it starts have none. */
class NoStandardDescriptors {
public:
    NoStandardDescriptors() {
        for (int fd = STDIN_FILENO; fd <= STDERR_FILENO; ++fd) {
            mKept.push_back(::fcntl(fd, F_DUPFD_CLOEXEC, STDERR_FILENO + 1));
        }
        for (int fd = STDIN_FILENO; fd <= STDERR_FILENO; ++fd) {
            ::close(fd);
        }
    }
    ~NoStandardDescriptors() {
        for (int fd = STDIN_FILENO; fd <= STDERR_FILENO; ++fd) {
            const int kept = mKept[static_cast<std::size_t>(fd)];
            ::dup2(kept, fd);
            ::close(kept);
        }
    }
    NoStandardDescriptors(const NoStandardDescriptors&) = delete;
    NoStandardDescriptors& operator=(const NoStandardDescriptors&) = delete;

private:
    std::vector<int> mKept;
};

std::unique_ptr<ChildProcess> startWithoutStandardDescriptors(std::vector<std::string> arguments) {
    const NoStandardDescriptors meanwhile;
    return std::make_unique<ChildProcess>(std::move(arguments));
}

TEST_F(StateFile, GetsNoLinesOfASimulatorWithoutStandardDescriptors) {
    {
        const auto simulator = startWithoutStandardDescriptors({KELUTV_SIMULATOR, "--trace", "--state", path()});
        EXPECT_TRUE(eventually(isServed));
        EXPECT_EQ(send(kSetVolume, {0, 35}), replyOf({0}));
        EXPECT_EQ(send(kSetVolume, {0, 36}), replyOf({0}));
        EXPECT_EQ(send(kGetVolume, {0}), replyOf({0, 36}));
        simulator->kill(SIGTERM);
        EXPECT_EQ(simulator->exitCode(), 0);
    }
    EXPECT_EQ(content().find("CMD_"), std::string::npos) << content();
    start();
    EXPECT_EQ(send(kGetVolume, {0}), replyOf({0, 36}));
    end();
}

TEST_F(StateFile, ThatIsNestedWithoutEndOrHasNoNumbersIsRefused) {
    expectRefused(std::string(200000, '['), ": objects and lists are nested more than 32 deep");
    expectRefused("{\"cecPlaying\": 1e999}", ": this cannot be read: number overflow parsing '1e999'");
}

TEST_F(StateFile, ThatCannotBeWrittenAnyMoreIsToldOf) {
    const std::string folder = mRuntimeDir.path() + "/folder";
    ASSERT_TRUE(std::filesystem::create_directory(folder));
    Simulator simulator({"--state", folder + "/state.json"});
    std::filesystem::remove_all(folder);
    EXPECT_EQ(send(kSetVolume, {0, 35}), replyOf({0}));
    EXPECT_EQ(send(kGetVolume, {0}), replyOf({0, 35}));
    EXPECT_EQ(simulator.process().error().text(),
              "kelutv-simulator: cannot write " + folder + "/state.json.new: No such file or directory\n");
}

} // namespace

} // namespace kelutv::test
