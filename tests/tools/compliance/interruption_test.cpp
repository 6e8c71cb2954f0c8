#include "simulator/Simulator.h"
#include "support/TestFolder.h"
#include "tools/Tool.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <set>

namespace kelutv::test {
namespace {

bool isLong() {
    const char* const size = std::getenv("KELUTV_TORTURE");
    return size != nullptr && std::string(size) == "long";
}

/** How often a run is broken off. */
int interruptions() { return isLong() ? 200 : 4; }

class InterruptedRuns : public ::testing::Test {
protected:
    void SetUp() override { turnOn(); }

    void turnOn() {
        const std::string trace = file("trace");
        mOutput = ::open(trace.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
        mTelevision = startSimulator({"--trace", "--state", file("state.json")}, mOutput);
        ::close(mOutput);
        ASSERT_TRUE(eventually([&] { return bytesTraced() > 0; }));
    }

    void turnOff() { mTelevision.reset(); }

    std::string file(const std::string& name) const { return mFolder.pathOf(name); }
    std::string journal() const { return file("put-back.json"); }

    static std::uintmax_t bytesIn(const std::string& path) {
        std::error_code none;
        const std::uintmax_t size = std::filesystem::file_size(path, none);
        return none ? 0 : size;
    }

    std::uintmax_t bytesTraced() const { return bytesIn(file("trace")); }

    void run(std::vector<std::string> words) const {
        const ToolRun run = runTool(std::move(words));
        EXPECT_EQ(run.exit, 0) << run.output << run.error;
    }

    /** The command line that makes checks of all families that set something: all, or those of two modules. */
    std::vector<std::string> judging() const {
        std::vector<std::string> words{"--quiet", "compliance", "--keep", journal()};
        const std::vector<std::string> checks =
            isLong() ? std::vector<std::string>{"state", "*.range.*", "events.audio.*"}
                     : std::vector<std::string>{"state.sourcemanager.*", "state.audio.setVolume*",
                                                "refusal.audio.*.range.*", "events.audio.setInputVolume.*"};
        words.insert(words.end(), checks.begin(), checks.end());
        return words;
    }

    /** What the television keeps, line by line; the source that was selected before cannot be set. */
    std::set<std::string> kept() const {
        std::ifstream state(file("state.json"));
        std::set<std::string> lines;
        for (std::string line; std::getline(state, line);) {
            // What stands last in a list has the end of that behind it.
            line.erase(line.find_last_not_of(",]") + 1);
            if (line.find("sourcemanager.lastMainSource") == std::string::npos) {
                lines.insert(line);
            }
        }
        return lines;
    }

    /** Begins a run, and waits until the television has told so much of what it is asked. */
    std::unique_ptr<ChildProcess> begin(std::uintmax_t bytes) {
        const std::uintmax_t until = bytesTraced() + bytes;
        auto tool = startTool(judging());
        EXPECT_TRUE(eventually([&] { return bytesTraced() >= until || tool->exitCode(std::chrono::milliseconds(0)); },
                               std::chrono::seconds(60)));
        return tool;
    }

    void putBack() const {
        if (std::filesystem::exists(journal())) {
            run({"--quiet", "compliance", "--put-back", journal()});
            EXPECT_FALSE(std::filesystem::exists(journal()));
        }
    }

private:
    TestFolder mFolder;
    RuntimeDir mRuntimeDir;
    int mOutput = -1;
    std::unique_ptr<ChildProcess> mTelevision;
};

TEST_F(InterruptedRuns, areFinishedByPuttingBack) {
    run({"sim", "set audio.volume[speaker] = 35"});
    run({"sim", "set audio.soundMode = 2"});
    run({"sim", "set sourcemanager.windowRect[0] = 1, 2, 3, 4"});
    // From then on the file of the television has all that is ever set.
    const std::uintmax_t begun = bytesTraced();
    run(judging());
    const std::uintmax_t whole = bytesTraced() - begun;
    ASSERT_GT(whole, 0U);
    turnOff();
    const std::set<std::string> before = kept();
    EXPECT_GT(before.size(), isLong() ? 200U : 30U);
    turnOn();
    std::mt19937 random(20261122);
    int journals = 0;
    for (int i = 0; i < interruptions(); ++i) {
        const auto tool = begin(random() % whole);
        if (i % 4 == 3) {
            turnOff();
            EXPECT_TRUE(tool->exitCode());
            turnOn();
        } else {
            tool->kill(i % 4 == 0 ? SIGKILL : i % 4 == 1 ? SIGTERM : SIGINT);
            EXPECT_TRUE(tool->wait());
        }
        journals += std::filesystem::exists(journal()) ? 1 : 0;
        putBack();
        turnOff();
        EXPECT_EQ(kept(), before);
        turnOn();
    }
    EXPECT_TRUE(journals > 0 || interruptions() < 4) << "no run was broken off while it had something to put back";
}

TEST_F(InterruptedRuns, leaveAFileThatTheNextRunDoesNotReplace) {
    auto tool = startTool(judging());
    ASSERT_TRUE(eventually([&] { return bytesIn(journal()) > 10000; })) << "all values";
    tool->kill(SIGKILL);
    tool->wait();
    ASSERT_TRUE(std::filesystem::exists(journal()));
    const ToolRun next = runTool({"compliance", "state.audio.setInputVolume.*", "--keep", journal()});
    EXPECT_EQ(next.exit, 2);
    EXPECT_NE(next.error.find("is there, so that an earlier run has not put everything back"), std::string::npos)
        << next.error;
    EXPECT_TRUE(std::filesystem::exists(journal()));
    run({"compliance", "--put-back", journal(), "--dry-run"});
    EXPECT_TRUE(std::filesystem::exists(journal()));
    const ToolRun both = runTool({"compliance", "audio", "--put-back", journal()});
    EXPECT_EQ(both.exit, 2);
    EXPECT_NE(both.error.find("--put-back makes no checks, so that it takes no 'audio'"), std::string::npos);
    putBack();
}

} // namespace
} // namespace kelutv::test
