#include "simulator/replay/Matching.h"
#include "simulator/replay/Replay.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <utility>
#include <vector>

namespace kelutv::simulator {

namespace {

constexpr int kMissing = -1;

/** A recording of which each call is `PROCESS THREAD REQUEST`, a letter each. */
class Played {
public:
    explicit Played(const std::vector<std::string>& calls) {
        std::map<char, std::size_t> clients;
        std::map<std::string, std::size_t> threads;
        for (const std::string& call : calls) {
            RecordedCall recorded{};
            recorded.client = clients.emplace(call[0], clients.size()).first->second;
            recorded.thread = threads.emplace(call.substr(0, 2), threads.size()).first->second;
            recorded.key = call.substr(2);
            mScript.calls.push_back(recorded);
        }
        mScript.clients = clients.size();
        mScript.threads = threads.size();
        mProgress.emplace(mScript);
        mMatching = matchingInOrder(mScript);
    }

    /** The index of the call that it is. */
    int ask(pid_t process, const std::string& key) {
        mMatch = mMatching->find(*mProgress, process, key);
        return mMatch ? static_cast<int>(mMatch->call) : kMissing;
    }

    bool isEarly() const { return mMatch && mMatch->before; }

    Progress& progress() { return *mProgress; }
    const ReplayScript& script() const { return mScript; }

private:
    ReplayScript mScript;
    std::optional<Progress> mProgress;
    std::unique_ptr<Matching> mMatching;
    std::optional<Match> mMatch;
};

TEST(Matching, TakesProcessesByWhatTheyBeginWith) {
    Played played({"1aX", "2aY", "1aZ", "2aZ"});
    EXPECT_EQ(played.ask(50, "Y"), 1);
    EXPECT_EQ(played.ask(60, "X"), 0);
    EXPECT_EQ(played.ask(50, "Z"), 3);
    EXPECT_EQ(played.ask(60, "Z"), 2);
}

TEST(Matching, TakesProcessesThatBeginAlikeInTheOrderInWhichTheyCome) {
    Played played({"1aX", "2aX", "1aY", "2aY"});
    EXPECT_EQ(played.ask(60, "X"), 0);
    EXPECT_EQ(played.ask(50, "X"), 1);
    EXPECT_EQ(played.ask(50, "Y"), 3);
    EXPECT_EQ(played.ask(60, "Y"), 2);
}

TEST(Matching, FindsOutWhichProcessItIsWhenTheyPart) {
    Played played({"1aX", "2aX", "1aY", "2aZ"});
    EXPECT_EQ(played.ask(50, "X"), 0);
    EXPECT_EQ(played.ask(60, "X"), 1);
    EXPECT_EQ(played.ask(50, "Z"), 3);
    EXPECT_FALSE(played.isEarly());
    EXPECT_EQ(played.ask(60, "Y"), 2);
    EXPECT_FALSE(played.isEarly());
}

/** Whoever was taken for the other one must have begun like this one. */
TEST(Matching, ExchangesNoProcessesThatBeganOtherwise) {
    Played played({"1aX", "2aX", "2aV", "1aY", "2aZ"});
    EXPECT_EQ(played.ask(50, "X"), 0);
    EXPECT_EQ(played.ask(60, "X"), 1);
    EXPECT_EQ(played.ask(60, "V"), 2);
    EXPECT_EQ(played.ask(50, "V"), kMissing);
    EXPECT_EQ(played.ask(50, "Y"), 3);
    EXPECT_EQ(played.ask(60, "Z"), 4);
    EXPECT_FALSE(played.isEarly());
}

TEST(Matching, KeepsTheOrderOfEachThread) {
    Played played({"1aX", "1bX", "1aY", "1bZ", "1aV"});
    EXPECT_EQ(played.ask(50, "X"), 0);
    EXPECT_EQ(played.ask(50, "Y"), 2);
    EXPECT_EQ(played.ask(50, "V"), 4);
    EXPECT_EQ(played.ask(50, "X"), 1);
    EXPECT_EQ(played.ask(50, "Z"), 3);
    EXPECT_FALSE(played.isEarly());
}

TEST(Matching, GoesOnBehindWhatCameEarly) {
    Played played({"1aA", "1aB", "1aC", "1aD"});
    EXPECT_EQ(played.ask(50, "C"), 2);
    EXPECT_TRUE(played.isEarly());
    EXPECT_EQ(played.ask(50, "D"), 3);
    EXPECT_FALSE(played.isEarly());
    EXPECT_EQ(played.ask(50, "A"), 0);
    EXPECT_FALSE(played.isEarly());
    EXPECT_EQ(played.ask(50, "C"), kMissing);
}

TEST(Matching, TakesAProcessForWhichThereIsNoneForFurtherThreads) {
    Played played({"1aA", "1bB", "1aC"});
    EXPECT_EQ(played.ask(50, "A"), 0);
    EXPECT_EQ(played.ask(60, "B"), 1);
    EXPECT_EQ(played.ask(60, "A"), kMissing);
    EXPECT_EQ(played.ask(50, "C"), 2);
}

TEST(Matching, KnowsNothingOfAProcessThatAsksForNothingRecorded) {
    Played played({"1aA", "1aB"});
    EXPECT_EQ(played.ask(60, "Q"), kMissing);
    EXPECT_EQ(played.ask(50, "A"), 0);
    EXPECT_EQ(played.ask(50, "B"), 1);
}

TEST(Replay, WaitsForNothingLongerThanADay) {
    ReplayScript script;
    RecordedCall call{};
    call.duration = std::chrono::nanoseconds::max();
    script.calls.push_back(call);
    script.clients = script.threads = 1;
    ReplayOptions options;
    options.speed = 0.01;
    Replay replay(std::move(script), options);
    replay.start();
    EXPECT_EQ(replay.take(50, "", {}).delay, std::chrono::hours(24));
}

TEST(Progress, IsTheSameOnceHandedOver) {
    Played played({"1aA", "1aB", "2bC", "2bD"});
    played.ask(50, "A");
    played.ask(60, "D");
    played.progress().calls[1] = Progress::Call::Gone;
    played.progress().again["CMD_AGAIN"] = 3;
    played.progress().unrecorded["command 0x12 of none"] = 2;
    const std::string text = textOf(played.progress());
    const Progress progress = progressOf(played.script(), text);
    EXPECT_EQ(progress.calls, (std::vector<Progress::Call>{Progress::Call::Asked, Progress::Call::Gone,
                                                           Progress::Call::Waiting, Progress::Call::Early}));
    EXPECT_EQ(progress.last, played.progress().last);
    EXPECT_EQ(progress.clients, (std::map<pid_t, std::size_t>{{50, 0}, {60, 1}}));
    EXPECT_EQ(progress.again, played.progress().again);
    EXPECT_EQ(progress.unrecorded, played.progress().unrecorded);
    for (std::size_t length = 0; length + 1 < text.size(); ++length) {
        EXPECT_THROW(progressOf(played.script(), text.substr(0, length)), ReplayError) << length;
    }
}

} // namespace

} // namespace kelutv::simulator
