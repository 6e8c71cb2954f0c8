#include "tools/compliance/Judged.h"
#include "tools/kelutv/compliance/Families.h"
#include "tools/kelutv/compliance/knowledge/Capabilities.h"

#include "support/ChildProcess.h"
#include "support/RuntimeDir.h"

#include <gtest/gtest.h>

#include <memory>
#include <utility>

namespace kelutv::test {
namespace {

using tool::compliance::CheckResult;
using tool::compliance::Verdict;

class FaultyServices : public ::testing::Test {
protected:
    void SetUp() override { hushLog(); }

    void turnOn(const std::string& fault) {
        mService.reset();
        ChildProcess::Options options;
        options.captureOutput = true;
        mService = std::make_unique<ChildProcess>(std::vector<std::string>{KELUTV_FAULTY_SERVICE, fault}, options);
        ASSERT_TRUE(mService->output().waitFor("ready\n"));
    }

private:
    RuntimeDir mRuntimeDir;
    std::unique_ptr<ChildProcess> mService;
};

/** What each fault is to be found by, and what is found of it besides. */
TEST_F(FaultyServices, failWhatConcernsTheirFaultAndNothingElse) {
    struct Case {
        const char* fault;
        Names failed;
    };
    const Case cases[] = {
        {"none", {}},
        {"forgets", {"state.kept", "state.twice"}},
        {"refuses what is set", {"state.twice"}},
        {"sets all keys", {"state.others"}},
        {"takes any token", {"refusal.token", "refusal.truncatedToken"}},
        {"takes any code", {"refusal.unknownCode"}},
        {"takes any command", {"refusal.unknownCommand"}},
        {"takes any item", {"refusal.unknownItem"}},
        {"takes less", {"refusal.truncated", "refusal.nullText"}},
        {"takes more", {}},
        {"sets what it refuses", {"refusal.trailing"}},
    };
    const tool::compliance::Checks checks = tool::compliance::chosenChecks(
        {"state.audio.setVolume[[]channel=s*", "refusal.audio.setVolume.*", "refusal.audio.getOutputStatus.*",
         "refusal.audio.getAudioItemValue.*", "refusal.service.*"},
        {});
    for (const Case& test : cases) {
        turnOn(test.fault);
        Names failed;
        for (const auto& [aspect, count] : failuresByAspect(resultsOf(checks))) {
            failed.insert(aspect);
        }
        EXPECT_EQ(failed, test.failed) << test.fault;
    }
}

TEST_F(FaultyServices, areFoundByWhatTheyTell) {
    const std::pair<const char*, Names> cases[] = {
        {"none", {}},
        {"tells nothing", {"events.once", "events.same", "events.payload", "events.severalListeners"}},
        {"tells twice", {"events.once", "events.same", "events.payload", "events.severalListeners"}},
        {"tells twice of putting back", {"events.once", "events.severalListeners"}},
        {"tells of no change", {"events.same"}},
        {"tells no value", {"events.payload"}},
        {"tells of another value", {"events.payload"}},
    };
    // Each is made in a process of its own, so that none hears what is told too often of the changes of another.
    std::vector<tool::compliance::Checks> all;
    for (const char* const check :
         {"events.audio.setVolume[[]channel=speaker].once", "events.audio.setVolume[[]channel=speaker].same",
          "events.audio.setVolume[[]channel=speaker].payload", "events.service.severalListeners"}) {
        all.push_back(tool::compliance::chosenChecks({check}, {}));
    }
    for (const auto& [fault, expected] : cases) {
        turnOn(fault);
        Names failed;
        for (const tool::compliance::Checks& checks : all) {
            for (const auto& [aspect, count] : failuresByAspect(resultsOf(checks))) {
                failed.insert(aspect);
            }
        }
        EXPECT_EQ(failed, expected) << fault;
    }
}

/** Where each answer takes long an event may, too. */
TEST_F(FaultyServices, haveMoreTimeToTellWhereAllIsSlow) {
    turnOn("is slow");
    EXPECT_EQ(aspectsNotPassed(judged({"events.audio.setVolume[[]channel=speaker].payload"})), Names());
}

TEST_F(FaultyServices, haveTheEventsThatTheyTellWrongly) {
    turnOn("tells twice");
    const auto checks = tool::compliance::chosenChecks({"events.audio.setVolume[[]channel=speaker].once"}, {});
    EXPECT_EQ(tool::compliance::capabilitiesFrom(checks, resultsOf(checks)).events.count("volumeChanged"), 0U);
}

TEST_F(FaultyServices, areFoundWhenTheyMixAnswersUp) {
    turnOn("none");
    EXPECT_EQ(aspectsNotPassed(judged({"load.threads.8.answers"})), Names());
    turnOn("mixes answers up");
    EXPECT_EQ(aspectsNotPassed(judged({"load.threads.16.answers"})), Names{"load.answers failed"});
}

TEST_F(FaultyServices, areLeftOpenWhereTheyDoNotLookBehindARequest) {
    turnOn("takes more");
    EXPECT_EQ(aspectsNotPassed(judged({"refusal.audio.setInputVolume.*"})), (Names{"refusal.trailing inconclusive"}));
}

TEST_F(FaultyServices, endTheRunWhenTheyDie) {
    turnOn("dies of less");
    const Judged results = judged({"refusal.audio.setInputVolume.*"});
    ASSERT_EQ(results.size(), 4U);
    EXPECT_EQ(results[0].verdict, Verdict::passed);
    EXPECT_EQ(results[1].id, "refusal.audio.setInputVolume.truncated");
    EXPECT_EQ(results[1].verdict, Verdict::failed);
    EXPECT_EQ(results[1].reason.rfind("the service is gone; a request that ends at byte ", 0), 0U) << results[1].reason;
    EXPECT_TRUE(results[1].exchange);
    for (const CheckResult& result : {results[2], results[3]}) {
        EXPECT_EQ(result.verdict, Verdict::inconclusive);
        EXPECT_EQ(result.reason, "not made: the service is gone or answers nothing any longer");
    }
}

} // namespace
} // namespace kelutv::test
