#include "tools/compliance/Judged.h"
#include "tools/kelutv/compliance/ComplianceRun.h"
#include "tools/kelutv/compliance/Families.h"

#include "simulator/Simulator.h"
#include "support/TestFolder.h"
#include "tools/Tool.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>

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

TEST_F(SimulatedServices, passWhole) {
    const TestFolder folder;
    tool::compliance::RunOrder order;
    order.journal = folder.pathOf("put-back.json");
    std::size_t kept = 0;
    const auto start = std::chrono::steady_clock::now();
    const Judged results =
        tool::compliance::makeRun(tool::compliance::chosenChecks({"form", "state", "refusal"}, order.terms), order,
                                  {[&](std::size_t values) {
                                       kept = values;
                                       EXPECT_TRUE(std::filesystem::exists(order.journal)) << "before anything is set";
                                   },
                                   [](const CheckResult&) {}});
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(60));
    EXPECT_GT(results.size(), 10000U);
    EXPECT_GT(kept, 200U);
    EXPECT_FALSE(std::filesystem::exists(order.journal));
    EXPECT_EQ(identifiers(results, Verdict::failed), Names());
    EXPECT_EQ(results.back().id, "state.television.unchanged");
    EXPECT_EQ(results.back().verdict, Verdict::passed);
    for (const CheckResult& result : results) {
        if (result.verdict == Verdict::leftOut) {
            EXPECT_TRUE(beginsWithOneOf(result.reason, {"dangerous; --allow ", "nothing reads what it sets",
                                                        "nothing puts back what it would do", "makes several requests",
                                                        "hands on any item"}))
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
    EXPECT_EQ(all.count("form.audio.getVolume[channel=speaker].payload"), 1U);
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
        const Judged results = judged(checks);
        for (const Case& test : cases) {
            EXPECT_EQ(aspectsNotPassed(results, test.function), test.notPassed[i]) << test.what << ": " << faults[i];
            found += test.notPassed[i].size();
        }
    }
    EXPECT_GT(found, 30);
}

} // namespace
} // namespace kelutv::test
