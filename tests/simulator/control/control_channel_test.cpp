// The control channel itself: clients of every kind, and none that harms the others.

#include "simulator/Simulator.h"
#include "support/Deadline.h"
#include "support/RuntimeDir.h"

#include "simulator/control/ControlClient.h"
#include "simulator/control/ControlMessage.h"
#include "simulator/control/ControlServer.h"

#include "socket/RuntimeDirectory.h"
#include "socket/SeqPacket.h"

#include <gtest/gtest.h>

#include <poll.h>
#include <sys/resource.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

namespace kelutv::test {

namespace {

using simulator::Answer;
using simulator::ControlClient;
using simulator::kLongestLine;
using simulator::kLongestPacket;

kq::UniqueFd connectRaw() {
    const auto room = kq::RuntimeDirectory::open("simulator");
    EXPECT_TRUE(room);
    kq::UniqueFd socket = kq::connectTo(room->pathOf("control"));
    EXPECT_TRUE(socket);
    return socket;
}

void sendRaw(int socket, const std::string& packet) {
    EXPECT_TRUE(kq::sendPacket(socket, packet.data(), packet.size()));
}

/** Whether the simulator closes the connection; an answer instead is a failure. */
bool isShutOut(int socket) {
    pollfd ready{socket, POLLIN, 0};
    EXPECT_EQ(::poll(&ready, 1, static_cast<int>(kPatience.count())), 1);
    char bytes[16];
    return kq::receivePacket(socket, bytes, sizeof(bytes)) == 0;
}

/** How many milliseconds the thread of this name has had a processor. */
long processorTimeOf(pid_t process, const std::string& thread) {
    long milliseconds = -1;
    for (const auto& task : std::filesystem::directory_iterator("/proc/" + std::to_string(process) + "/task")) {
        std::string name;
        std::getline(std::ifstream(task.path() / "comm"), name);
        std::ifstream status(task.path() / "schedstat");
        long long nanoseconds = 0;
        if (name == thread && status >> nanoseconds) {
            milliseconds = static_cast<long>(nanoseconds / 1000000);
        }
    }
    EXPECT_GE(milliseconds, 0) << thread;
    return milliseconds;
}

class ControlChannel : public ::testing::Test {
protected:
    static void expectServed() {
        ControlClient client;
        const Answer answer = client.ask("get audio.volume[0]");
        EXPECT_TRUE(answer.ok);
        EXPECT_EQ(answer.text, "audio.volume[0] = 20");
    }

    const RuntimeDir mRuntimeDir;
    std::optional<Simulator> mSimulator{std::in_place};
};

TEST_F(ControlChannel, ServesSeveralClientsLineAfterLine) {
    ControlClient one;
    ControlClient other;
    EXPECT_TRUE(one.ask("set audio.volume[0] = 31").ok);
    EXPECT_EQ(other.ask("get audio.volume[0]").text, "audio.volume[0] = 31");
    EXPECT_TRUE(other.ask("set audio.volume[0] = 32").ok);
    EXPECT_EQ(one.ask("get audio.volume[0]").text, "audio.volume[0] = 32");
    EXPECT_FALSE(one.ask("explode").ok);
    EXPECT_EQ(one.ask("get audio.volume[0]").text, "audio.volume[0] = 32");
}

TEST_F(ControlChannel, TakesLongLinesAndGivesLongAnswers) {
    ControlClient client;
    EXPECT_TRUE(client.ask('#' + std::string(kLongestLine - 1, 'x')).ok);
    EXPECT_THROW(client.ask('#' + std::string(kLongestLine, 'x')), std::invalid_argument);
    EXPECT_THROW(client.ask("faults\nfaults"), std::invalid_argument);
    EXPECT_THROW(client.ask(std::string("faults\0", 7)), std::invalid_argument);
    const Answer all = client.ask("show");
    EXPECT_TRUE(all.ok);
    EXPECT_GT(all.text.size(), kLongestPacket);
    EXPECT_NE(all.text.find("\naudio.speakerOutput = 0\n"), std::string::npos);
    EXPECT_NE(all.text.find("\nvideo."), std::string::npos);
}

TEST_F(ControlChannel, ShutsOutWhoSendsWhatIsNoLine) {
    const std::string bad[] = {
        "?faults",
        "+faults",
        '>' + std::string(kLongestPacket, 'x'),
    };
    for (const std::string& packet : bad) {
        const kq::UniqueFd socket = connectRaw();
        sendRaw(socket.get(), packet);
        EXPECT_TRUE(isShutOut(socket.get())) << packet.substr(0, 8);
    }
    const kq::UniqueFd empty = connectRaw();
    sendRaw(empty.get(), "");
    EXPECT_TRUE(isShutOut(empty.get()));
    expectServed();
}

TEST_F(ControlChannel, ShutsOutWhoseLineHasNoEnd) {
    const kq::UniqueFd socket = connectRaw();
    const std::string piece = '.' + std::string(kLongestPacket - 1, 'x');
    std::size_t sent = 0;
    while (sent <= kLongestLine && kq::sendPacket(socket.get(), piece.data(), piece.size())) {
        sent += piece.size() - 1;
    }
    EXPECT_TRUE(isShutOut(socket.get()));
    expectServed();
}

TEST_F(ControlChannel, IsNotHeldUpByWhoTakesNoAnswers) {
    const kq::UniqueFd socket = connectRaw();
    const std::string line = ">show";
    // As many lines as go into the socket while nobody takes the answers.
    for (pollfd ready{socket.get(), POLLOUT, 0}; ::poll(&ready, 1, 100) == 1;) {
        sendRaw(socket.get(), line);
    }
    expectServed();
}

TEST_F(ControlChannel, IsNotHeldUpByHalfALine) {
    const kq::UniqueFd socket = connectRaw();
    sendRaw(socket.get(), ".set audio.volume[0] = ");
    expectServed();
    sendRaw(socket.get(), ">35");
    char bytes[16];
    EXPECT_EQ(kq::receivePacket(socket.get(), bytes, sizeof(bytes)), 1U);
    EXPECT_EQ(bytes[0], '+');
    EXPECT_EQ(ControlClient().ask("get audio.volume[0]").text, "audio.volume[0] = 35");
}

TEST_F(ControlChannel, LetsTheLongestSilentGoWhenThereAreTooMany) {
    std::vector<kq::UniqueFd> silent;
    for (std::size_t i = 0; i < simulator::ControlServer::kMostClients; ++i) {
        silent.push_back(connectRaw());
    }
    expectServed();
    EXPECT_TRUE(isShutOut(silent.front().get()));
}

TEST_F(ControlChannel, OutlivesClientsThatLeaveAtOnce) {
    for (int i = 0; i < 20; ++i) {
        const kq::UniqueFd socket = connectRaw();
        sendRaw(socket.get(), ">show");
    }
    expectServed();
}

/** Nothing can be waited for then; trying again and again would take a processor. */
TEST_F(ControlChannel, DoesNotSpinWithoutDescriptors) {
    const pid_t simulator = mSimulator->process().pid();
    rlimit before{};
    ASSERT_EQ(::prlimit(simulator, RLIMIT_NOFILE, nullptr, &before), 0);
    const rlimit none{0, before.rlim_max};
    ASSERT_EQ(::prlimit(simulator, RLIMIT_NOFILE, &none, nullptr), 0);
    { ControlClient wakesIt; }
    EXPECT_FALSE(mSimulator->process().wait(std::chrono::seconds(1)));
    EXPECT_LT(processorTimeOf(simulator, "control"), 300);
    ASSERT_EQ(::prlimit(simulator, RLIMIT_NOFILE, &before, nullptr), 0);
    mSimulator->process().kill(SIGTERM);
    EXPECT_EQ(mSimulator->process().exitCode(), 0);
}

TEST_F(ControlChannel, EndsWithTheSimulator) {
    ControlClient client;
    mSimulator->process().kill(SIGTERM);
    EXPECT_EQ(mSimulator->process().exitCode(), 0);
    EXPECT_THROW(client.ask("faults"), simulator::NoSimulator);
    EXPECT_THROW(ControlClient(), simulator::NoSimulator);
    EXPECT_NE(::access((mRuntimeDir.path() + "/simulator/control").c_str(), F_OK), 0);
}

TEST_F(ControlChannel, ComesBackWithTheNextSimulatorAfterAKilledOne) {
    mSimulator->process().kill(SIGKILL);
    EXPECT_TRUE(mSimulator->process().wait());
    EXPECT_THROW(ControlClient(), simulator::NoSimulator);
    mSimulator.reset();
    mSimulator.emplace();
    expectServed();
}

TEST_F(ControlChannel, WhatShowSaysCanBeSaidToTheNextSimulator) {
    const char* const changes[] = {
        "set sourcemanager.curSource[0] = hdmi2",
        "set audio.volume[speaker] = 77",
        "set factory.passWord[hotel] = \"12 \\\"34\\x07\"",
        "signal hdmi2 sourcemanager.timingInfo=1280,720,50,0,0,0,1,0,0",
        "unplug hdmi3",
        "unplug cec 5",
        "cec add logAddr=11 hdmiDevPort=2 name=\"Game console\"",
        "cec play 11",
        "power suspended",
    };
    const auto say = [](ControlClient& client, const std::string& line) {
        const Answer answer = client.ask(line);
        EXPECT_TRUE(answer.ok) << line << ": " << answer.text;
        return answer.text;
    };
    std::string shown;
    {
        ControlClient client;
        for (const char* const change : changes) {
            say(client, change);
        }
        shown = say(client, "show");
    }
    mSimulator.reset();
    mSimulator.emplace();
    ControlClient client;
    EXPECT_NE(say(client, "show"), shown);
    std::istringstream lines(shown);
    for (std::string line; std::getline(lines, line);) {
        say(client, line);
    }
    EXPECT_EQ(say(client, "show"), shown);
}

} // namespace

} // namespace kelutv::test
