#include "tools/compliance/Judged.h"
#include "tools/kelutv/compliance/ComplianceRun.h"
#include "tools/kelutv/compliance/Families.h"
#include "tools/kelutv/compliance/Runner.h"
#include "tools/kelutv/output/Errors.h"

#include "simulator/Simulator.h"
#include "support/TestFolder.h"
#include "tools/Tool.h"
#include "wire/Function.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <utility>

namespace kelutv::test {
namespace {

using tool::compliance::CheckResult;
using tool::compliance::Verdict;

class SimulatedServices : public ::testing::Test {
protected:
    void SetUp() override {
        hushLog();
        mTelevision = startSimulator({});
        ASSERT_TRUE(mTelevision->output().waitFor("ready (TVBaseService)\n")) << mTelevision->error().text();
    }

    static void sim(const std::string& line) {
        const ToolRun run = runTool({"sim", line});
        ASSERT_EQ(run.exit, 0) << run.error;
    }

private:
    RuntimeDir mRuntimeDir;
    std::unique_ptr<ChildProcess> mTelevision;
};

bool beginsWithOneOf(const std::string& text, const std::vector<std::string>& beginnings) {
    return std::any_of(beginnings.begin(), beginnings.end(),
                       [&text](const std::string& beginning) { return text.rfind(beginning, 0) == 0; });
}

#ifdef __SANITIZE_ADDRESS__
// Thousands of words and bytes of one module, and dozens of processes at once, would take long, and are judged alike.
const std::vector<std::string> kAllButLoad{"form.[!e]*", "state", "refusal", "events", "life"};
constexpr std::size_t kFewestChecks = 5000;
constexpr char kLoad[] = "load.*.?.*";
#else
const std::vector<std::string> kAllButLoad{"form", "state", "refusal", "events", "life"};
constexpr std::size_t kFewestChecks = 10000;
constexpr char kLoad[] = "load";
#endif

std::size_t countOfFamily(const Judged& results, const std::string& family) {
    return static_cast<std::size_t>(std::count_if(
        results.begin(), results.end(), [&family](const CheckResult& result) { return result.family == family; }));
}

TEST_F(SimulatedServices, passWhole) {
    const TestFolder folder;
    tool::compliance::RunOrder order;
    order.journal = folder.pathOf("put-back.json");
    std::size_t kept = 0;
    const Judged results = tool::compliance::makeRun(tool::compliance::chosenChecks(kAllButLoad, order.terms), order,
                                                     {[&](std::size_t values) {
                                                          kept = values;
                                                          EXPECT_TRUE(std::filesystem::exists(order.journal))
                                                              << "before anything is set";
                                                      },
                                                      [](const CheckResult&) {}});
    // What a crowd was answered is kept as long as the process, which other tests have used.
    EXPECT_EQ(runTool({"--quiet", "compliance", kLoad}).exit, 0);
    EXPECT_GT(results.size(), kFewestChecks);
    EXPECT_GT(countOfFamily(results, "events"), 600U);
    EXPECT_EQ(countOfFamily(results, "life"), 5U);
    EXPECT_GT(kept, 200U);
    EXPECT_FALSE(std::filesystem::exists(order.journal));
    EXPECT_EQ(identifiers(results, Verdict::failed), Names());
    EXPECT_EQ(results.back().id, "state.television.unchanged");
    EXPECT_EQ(results.back().verdict, Verdict::passed);
    for (const CheckResult& result : results) {
        if (result.verdict == Verdict::leftOut) {
            EXPECT_TRUE(beginsWithOneOf(result.reason, {"dangerous; --allow ", "nothing reads what it sets",
                                                        "nothing puts back what it would do", "makes several requests",
                                                        "hands on any item", "no limit was given",
                                                        "nothing says how the service is restarted"}))
                << result.id << ": " << result.reason;
        } else if (result.verdict == Verdict::inconclusive) {
            EXPECT_NE(result.id.find(".range."), std::string::npos) << result.id << ": " << result.reason;
        } else if (result.verdict == Verdict::refused) {
            EXPECT_NE(result.reason.find("-108"), std::string::npos) << result.id << ": " << result.reason;
        }
        EXPECT_EQ(result.verdict == Verdict::passed, result.reason.empty()) << result.id;
        EXPECT_EQ(result.sentence.back(), '.') << result.id;
    }
    const Names all = [&results] {
        Names names;
        for (const CheckResult& result : results) {
            names.insert(result.id);
        }
        return names;
    }();
    EXPECT_EQ(all.size(), results.size()) << "an identifier means one check";
    const Names passed = identifiers(results, Verdict::passed);
    for (const char* const id :
         {"form.audio.getVolume[channel=speaker].payload", "events.audio.setVolume[channel=speaker].once",
          "events.service.severalListeners", "life.service.killedCallers", "life.service.unreadReplies",
          "life.service.vanishedListeners", "life.service.stoppedListeners"}) {
        EXPECT_EQ(passed.count(id), 1U) << id;
    }
}

/** One operation of each form, and what each fault of its reply is found by. */
TEST_F(SimulatedServices, failTheChecksThatConcernAnInjectedFault) {
    struct Case {
        const char* what;
        const char* command;
        const char* function;
        /** By fault: error -5, 0 and 4 bytes of the answer, 2 bytes too many, no terminator, a count of 1000. */
        std::vector<Names> notPassed;
    };
    const Names all = {"form.payload refused", "form.end refused"};
    const Names empty = {"form.status failed", "form.payload inconclusive", "form.end inconclusive"};
    const Names cut = {"form.payload failed"};
    const Names more = {"form.end failed"};
    const auto with = [](Names names, const Names& others) {
        names.insert(others.begin(), others.end());
        return names;
    };
    const Case cases[] = {
        {"a number", "CMD_AUDIO_GETINPUTVOLUME", "audio.getInputVolume", {all, empty, cut, more, {}, {}}},
        {"a number of an enumeration",
         "CMD_AUDIO_GETSOUNDMODE",
         "audio.getSoundMode",
         {with(all, {"form.enumeration refused"}), with(empty, {"form.enumeration inconclusive"}), cut, more, {}, {}}},
        {"a record", "CMD_AUDIO_GETNRATTR", "audio.getNRAttr", {all, empty, cut, more, {}, {}}},
        {"the status as a value",
         "CMD_AUDIO_GETDIOLOGUEENHANCEMENT",
         "audio.isDialogueEnhancement",
         {{}, {"form.status failed", "form.end inconclusive"}, {}, more, {}, {}}},
        {"a text",
         "CMD_FACTORY_GETBARCODE",
         "factory.getBarCode",
         {with(all, {"form.terminated refused"}),
          with(empty, {"form.terminated inconclusive"}),
          cut,
          more,
          {"form.terminated failed"},
          {}}},
        {"a list behind its count",
         "CMD_FACTORY_GET_CTL_VOLUME",
         "factory.getSoundCurveCtlData",
         {with(all, {"form.count refused"}),
          with(empty, {"form.count inconclusive"}),
          {"form.payload failed", "form.count failed"},
          more,
          {},
          {"form.payload failed", "form.count failed"}}},
        // An empty list is a right answer.
        {"a list to the end",
         "CMD_PICTURE_GETAVAILASPECT",
         "picture.getAvailAspectList",
         {with(all, {"form.enumeration refused", "form.count refused"}),
          with(empty, {"form.enumeration inconclusive", "form.count inconclusive"}),
          {},
          more,
          {},
          {}}},
        {"texts to the end",
         "CMDID_AUDIO_GET_OUTPUT_LIST",
         "audio.getOutputList",
         {with(all, {"form.terminated refused"}),
          with(empty, {"form.terminated inconclusive"}),
          {},
          {"form.terminated failed"},
          {"form.terminated failed"},
          {}}},
    };
    const char* const faults[] = {"error -5", "short 0", "short 4", "long 2", "unterminated", "count 1000"};
    std::vector<std::string> words;
    for (const Case& test : cases) {
        words.push_back(std::string("form.") + test.function + ".*");
    }
    const tool::compliance::Checks checks = tool::compliance::chosenChecks(words, {});
    std::size_t found = 0;
    for (std::size_t i = 0; i < std::size(faults); ++i) {
        sim("fault clear");
        for (const Case& test : cases) {
            sim(std::string("fault ") + test.command + ' ' + faults[i]);
        }
        const Judged results = resultsOf(checks);
        for (const Case& test : cases) {
            EXPECT_EQ(aspectsNotPassed(results, test.function), test.notPassed[i]) << test.what << ": " << faults[i];
            found += test.notPassed[i].size();
        }
    }
    EXPECT_GE(found, 60U);
}

/** Whether its result word is what it reads, so that none says that something failed. */
bool hasValueAsStatus(const CheckResult& result) {
    const auto functions = wire::functionsNamed(result.function);
    return functions.size() == 1 && functions.front()->statusIsValue;
}

/** The identifiers of those that passed, of functions whose result word says whether they succeeded. */
Names passedOfStatus(const Judged& results, const std::string& aspect) {
    Names names;
    for (const CheckResult& result : results) {
        const bool isMeant = result.id.substr(result.id.rfind('.') + 1) == aspect;
        if (isMeant && result.verdict == Verdict::passed && !hasValueAsStatus(result)) {
            names.insert(result.id);
        }
    }
    return names;
}

/** No operation passes what its reply does not bear; what more is wrong with one is judged alike in all modules. */
TEST_F(SimulatedServices, failTheFormOfEveryReplyThatIsWrong) {
    const auto of = [](const std::string& fault, const std::vector<std::string>& words) {
        sim("fault clear");
        sim("fault any " + fault);
        return resultsOf(tool::compliance::chosenChecks(words, {}));
    };
    const std::vector<std::string> some{"form.audio.*", "form.hdmicec.*"};
    // All but the thousands of words and bytes of one module.
    const Judged empty = of("short 0", {"form.[!e]*"});
    EXPECT_GT(empty.size(), 2500U);
    EXPECT_EQ(identifiers(empty, Verdict::passed), Names());
    EXPECT_EQ(identifiers(of("short 2", some), Verdict::passed), Names());
    const Judged refused = of("error -5", some);
    for (const char* const aspect : {"payload", "end", "enumeration", "count", "terminated"}) {
        EXPECT_EQ(passedOfStatus(refused, aspect), Names()) << aspect;
    }
    const Judged longer = of("long 2", some);
    Names found;
    for (const CheckResult& result : longer) {
        if (result.verdict == Verdict::failed) {
            found.insert(result.id.substr(0, result.id.rfind('.')) + ".end");
        }
    }
    Names unseen = passedOfStatus(longer, "end");
    for (const std::string& id : found) {
        unseen.erase(id);
    }
    EXPECT_EQ(unseen, Names());
}

/** What cannot be read can be judged by no check that sets it. */
TEST_F(SimulatedServices, failEveryFamilyWhereAStateCannotBeRead) {
    const auto checks = tool::compliance::chosenChecks(
        {"state.audio.setInputVolume.*", "events.audio.setInputVolume.*", "refusal.audio.setInputVolume.*"}, {});
    const std::pair<const char*, Verdict> cases[] = {{"error -5", Verdict::refused},
                                                     {"short 0", Verdict::failed},
                                                     {"short 6", Verdict::failed},
                                                     {"long 2", Verdict::failed}};
    for (const auto& [fault, verdict] : cases) {
        sim("fault clear");
        sim(std::string("fault CMD_AUDIO_GETINPUTVOLUME ") + fault);
        const Judged results = resultsOf(checks);
        EXPECT_EQ(identifiers(results, verdict).size(), checks.size()) << fault;
        EXPECT_GE(checks.size(), 9U);
    }
}

/** What is not answered is not asked again, and nothing else is concerned. */
TEST_F(SimulatedServices, goOnBehindAFunctionThatIsNotAnswered) {
    sim("fault CMD_AUDIO_GETINPUTVOLUME delay 3600s");
    const auto checks =
        tool::compliance::chosenChecks({"form.audio.getInputVolume.*", "form.audio.getStereoMode.*"}, {});
    const Judged results = tool::compliance::runChecks(checks, 1, [](const CheckResult&) {});
    EXPECT_EQ(aspectsNotPassed(results),
              (Names{"form.status failed", "form.payload inconclusive", "form.end inconclusive"}));
    EXPECT_EQ(identifiers(results, Verdict::failed), Names{"form.audio.getInputVolume.status"});
}

/** The limit is that of each answer, however many a check needs. */
TEST_F(SimulatedServices, passWhenEachOfTheirAnswersIsInTime) {
    sim("fault any delay 800ms");
    const auto checks = tool::compliance::chosenChecks({"state.audio.setInputVolume.twice"}, {});
    const Judged results = tool::compliance::runChecks(checks, 2.2, [](const CheckResult&) {});
    EXPECT_EQ(results.front().verdict, Verdict::passed) << results.front().reason;
}

/** Only a check that was given up may leave behind what it had set. */
TEST_F(SimulatedServices, failWhenAnotherStateWasChangedBesideAFailedCheck) {
    const TestFolder folder;
    tool::compliance::RunOrder order;
    order.journal = folder.pathOf("put-back.json");
    const Judged results =
        tool::compliance::makeRun(tool::compliance::chosenChecks({"state.audio.setSoundMode.kept"}, {}), order,
                                  {[](std::size_t) { sim("fault CMD_AUDIO_GETSOUNDMODE short 0"); },
                                   [](const CheckResult& result) {
                                       if (result.id == "state.audio.setSoundMode.kept") {
                                           sim("fault clear");
                                           sim("set audio.inputVolume = 7");
                                       }
                                   }});
    EXPECT_EQ(identifiers(results, Verdict::failed),
              (Names{"state.audio.setSoundMode.kept", "state.television.unchanged"}));
}

TEST_F(SimulatedServices, endTheRunWhenTheyEnd) {
    sim("fault CMD_AUDIO_GETINPUTVOLUME die after once");
    const Judged results = judged({"form.audio.getInputVolume.*"});
    ASSERT_EQ(results.size(), 3U);
    EXPECT_EQ(results[0].verdict, Verdict::passed) << results[0].reason;
    EXPECT_EQ(results[1].verdict, Verdict::failed);
    EXPECT_EQ(results[1].reason.rfind("the service is gone", 0), 0U) << results[1].reason;
    EXPECT_EQ(results[2].verdict, Verdict::inconclusive);
}

/** The replies to sets are looked at, too. */
TEST_F(SimulatedServices, failWhenASetIsAnsweredWrongly) {
    struct Case {
        const char* fault;
        const char* verdict;
    };
    const Case cases[] = {{"error -5", "refused"}, {"short 0", "failed"}, {"short 2", "failed"}, {"long 2", "failed"}};
    for (const Case& test : cases) {
        sim("fault clear");
        sim(std::string("fault CMD_AUDIO_SETINPUTVOLUME ") + test.fault);
        Names expected;
        for (const char* const aspect :
             {"state.kept ", "state.twice ", "events.once ", "events.same ", "events.payload "}) {
            expected.insert(aspect + std::string(test.verdict));
        }
        if (std::string(test.fault).rfind("error", 0) != 0) {
            // Nothing that can be read as a refusal, or more than one.
            expected.insert({"refusal.truncated failed", "refusal.trailing failed"});
        }
        EXPECT_EQ(aspectsNotPassed(judged({"state.audio.setInputVolume.*", "events.audio.setInputVolume.*",
                                           "refusal.audio.setInputVolume.*"})),
                  expected)
            << test.fault;
    }
}

/** A malformed answer is no refusal, also where a call makes several requests. */
TEST_F(SimulatedServices, failWhenASetOfSeveralRequestsIsAnsweredWrongly) {
    sim("fault CMD_PICTURE_SETPICTUREMODE short 0");
    EXPECT_EQ(aspectsNotPassed(judged({"state.picture.setPictureMode.kept"})), Names{"state.kept failed"});
    sim("fault clear");
    sim("fault CMD_PICTURE_SETPICTUREMODE error -5");
    EXPECT_EQ(aspectsNotPassed(judged({"state.picture.setPictureMode.kept"})), Names{"state.kept refused"});
    sim("fault CMD_PICTURE_SETPICTUREMODE long 2");
    EXPECT_EQ(aspectsNotPassed(judged({"state.picture.setPictureMode.kept"})), Names{"state.kept failed"});
}

/** No client reads on behind a result word that says no. */
TEST_F(SimulatedServices, failWhereSomethingStandsBehindARefusal) {
    for (const char* const effect : {"error -5", "long 2"}) {
        sim(std::string("fault CMD_AUDIO_GETINPUTVOLUME ") + effect);
    }
    EXPECT_EQ(aspectsNotPassed(judged({"form.audio.getInputVolume.*", "refusal.audio.getInputVolume.*"})),
              (Names{"form.payload refused", "form.end failed", "refusal.trailing failed"}));
}

TEST(Choice, saysWhatIsWrong) {
    EXPECT_THROW(tool::compliance::chosenChecks({"nothing.of.the.kind"}, {}), tool::UsageError);
    const auto allowing = [](const std::string& name) {
        tool::compliance::Terms terms;
        terms.allowed = {name};
        return tool::compliance::chosenChecks({"refusal"}, terms);
    };
    EXPECT_THROW(allowing("audio.setVolume"), tool::UsageError) << "it needs no leave";
    EXPECT_THROW(allowing("audio.setNothing"), tool::UsageError);
    const auto truncated = [](const tool::compliance::Checks& checks) {
        return std::count_if(checks.begin(), checks.end(), [](const auto& check) {
            return check->subject().id == "refusal.factory.setMacAddress.truncated";
        });
    };
    EXPECT_EQ(truncated(allowing("factory.setMacAddress")), 1);
    EXPECT_EQ(truncated(allowing("factory.setMachineInfo")), 0);
}

} // namespace
} // namespace kelutv::test
