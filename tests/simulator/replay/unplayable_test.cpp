// Recordings and options that cannot be played, or not in full.

#include "simulator/Simulator.h"
#include "simulator/replay/RecordingFile.h"
#include "support/RuntimeDir.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

#include <csignal>
#include <fstream>
#include <string>
#include <vector>

namespace kelutv::test {

namespace {

using Words = std::vector<std::string>;

const Bytes kGetVolume = requestOf(0x2009, {0});
const Bytes kGetMute = requestOf(0x200B, {0});

/** What is said of recordings that are no good. */
class Unplayable : public ::testing::Test {
protected:
    struct Run {
        int exit;
        std::string error;
    };

    Run play(const std::string& content, const Words& options = {}) {
        std::ofstream(mPath) << content;
        Words words{"--replay", mPath};
        words.insert(words.end(), options.begin(), options.end());
        const auto simulator = startSimulator(words);
        const int exit = simulator->exitCode().value_or(-1);
        return {exit, simulator->error().text()};
    }

    void expectRefused(const std::string& content, const std::string& complaint) {
        const Run run = play(content);
        EXPECT_EQ(run.exit, 2);
        EXPECT_EQ(run.error, "kelutv-simulator: " + mPath + complaint + '\n');
    }

    const RuntimeDir mRuntimeDir;
    const std::string mPath = mRuntimeDir.path() + "/recording.jsonl";
    RecordingFile mFile;
};

TEST_F(Unplayable, IsRefusedWithAReason) {
    expectRefused("", ": it has no line, and a recording begins with a header");
    expectRefused(mFile.text().substr(0, 40), ": it has no line, and a recording begins with a header");
    expectRefused("{\"kind\":\"end\",\"sequence\":1,\"time\":1,\"reason\":\"\"}\n",
                  ":1: a recording begins with its header");
    expectRefused(mFile.text(), ": it holds no request and no event");
    const std::string complaint = play("volume 35\n").error;
    EXPECT_NE(complaint.find(mPath + ":1: this is not JSON: "), std::string::npos) << complaint;
    std::get<recording::Header>(mFile.lines().front().content).isLittleEndian = false;
    expectRefused(mFile.call(kGetVolume, replyOf({0, 1})).text(),
                  ":1: the bytes are in another order than those of this machine");
}

TEST_F(Unplayable, IsNoFileOrNoneThatCanBeReadTwice) {
    const auto missing = startSimulator({"--replay", mRuntimeDir.path() + "/nothing"});
    EXPECT_EQ(missing->exitCode(), 2);
    EXPECT_NE(missing->error().text().find("No such file"), std::string::npos) << missing->error().text();
    const auto folder = startSimulator({"--replay", mRuntimeDir.path()});
    EXPECT_EQ(folder->exitCode(), 2);
    EXPECT_NE(folder->error().text().find("it is not a regular file"), std::string::npos) << folder->error().text();
    ASSERT_EQ(::mkfifo(mPath.c_str(), 0600), 0);
    const auto pipe = startSimulator({"--replay", mPath});
    EXPECT_EQ(pipe->exitCode(), 2);
    EXPECT_NE(pipe->error().text().find("it is not a regular file"), std::string::npos) << pipe->error().text();
}

TEST_F(Unplayable, IsPlayedAsFarAsItCanBeRead) {
    mFile.call(kGetVolume, replyOf({0, 1})).call(kGetMute, replyOf({0, 1}));
    mFile.add({recording::Gap{3, 4000000, 5}}).call(kGetVolume, replyOf({0, 2}));
    std::string text = mFile.text();
    text.replace(text.find("\"duration\"", text.find("\"sequence\":2")), 10, "\"curation\"");
    std::ofstream(mPath) << text.substr(0, text.size() - 20);
    Simulator simulator({"--replay", mPath});
    EXPECT_EQ(SimulatorEnvironment::transact(kGetVolume), replyOf({0, 1}));
    EXPECT_EQ(SimulatorEnvironment::transact(kGetVolume), replyOf({0, 2}));
    simulator.process().kill(SIGTERM);
    EXPECT_EQ(simulator.process().exitCode(), 0);
    const std::string own = "kelutv-simulator: " + mPath;
    EXPECT_EQ(simulator.process().error().text(), own + ":3: \"duration\" is missing; the line is left out\n" + own +
                                                      ": the recorder left out 5 calls and events\n" + own +
                                                      ": its end is missing; what stands before is replayed\n");
}

TEST_F(Unplayable, IsPlayedWhereTheEndOfAPartIsMissing) {
    mFile.call(kGetVolume, replyOf({0, 1})).add(mFile.lines().front()).call(kGetVolume, replyOf({0, 2}));
    std::ofstream(mPath) << mFile.text();
    Simulator simulator({"--replay", mPath});
    simulator.process().kill(SIGTERM);
    EXPECT_EQ(simulator.process().exitCode(), 1);
    EXPECT_EQ(simulator.process().error().text(),
              "kelutv-simulator: " + mPath + ": the end of the part before line 3 is missing\n");
}

TEST_F(Unplayable, HasNoOtherOptions) {
    const std::string text = mFile.call(kGetVolume, replyOf({0, 1})).text();
    Run run = play(text, {"--match", "nearly"});
    EXPECT_EQ(run.exit, 2);
    EXPECT_EQ(run.error, "kelutv-simulator: --match takes strictly or loosely, not 'nearly'\n");
    run = play(text, {"--unrecorded", "guess"});
    EXPECT_EQ(run.exit, 2);
    EXPECT_EQ(run.error, "kelutv-simulator: --unrecorded takes television, error or silence, not 'guess'\n");
    run = play(text, {"--scenario", "hotel"});
    EXPECT_EQ(run.exit, 2);
    const auto alone = startSimulator({"--match", "loosely"});
    EXPECT_EQ(alone->exitCode(), 2);
}

TEST_F(Unplayable, CannotBeServedTwice) {
    const std::string text = mFile.call(kGetVolume, replyOf({0, 1})).text();
    const Simulator first;
    EXPECT_EQ(play(text).exit, 3);
}

} // namespace

} // namespace kelutv::test
