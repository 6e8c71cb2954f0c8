#include "tools/compliance/SampleRun.h"

#include "tools/kelutv/compliance/reports/RunDifference.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace kelutv::test {
namespace {

using namespace tool::compliance;
using std::chrono::microseconds;

constexpr double kTwice = 2;

/** Each change in a line. */
std::vector<std::string> changesOf(const Run& before, const Run& after) {
    std::vector<std::string> lines;
    for (const ChangedCheck& check : compare(before, after, kTwice).checks) {
        lines.push_back(std::string(wordsOf(check.change)) + ' ' + check.id);
    }
    return lines;
}

Run withVerdict(const std::string& id, Verdict verdict) {
    Run run = sampleRun();
    resultIn(run, id).verdict = verdict;
    return run;
}

using Lines = std::vector<std::string>;

TEST(RunDifference, thereIsNoneOfARunToItself) {
    EXPECT_EQ(changesOf(sampleRun(), sampleRun()), Lines{});
    EXPECT_TRUE(compare(sampleRun(), sampleRun(), kTwice).latencies.empty());
}

TEST(RunDifference, saysWhatNewlyFailed) {
    const std::string passed = "form.audio.getVolume[channel=speaker].form";
    const Lines lines{"newly failed " + passed};
    EXPECT_EQ(changesOf(sampleRun(), withVerdict(passed, Verdict::failed)), lines);
    EXPECT_EQ(changesOf(sampleRun(), withVerdict("state.picture.setBright", Verdict::failed)),
              Lines{"newly failed state.picture.setBright"});
}

TEST(RunDifference, saysWhatNewlyPassedAndWhatChangedOtherwise) {
    EXPECT_EQ(changesOf(sampleRun(), withVerdict("form.audio.getVolume[channel=headphone].form", Verdict::passed)),
              Lines{"newly passed form.audio.getVolume[channel=headphone].form"});
    EXPECT_EQ(changesOf(sampleRun(), withVerdict("state.picture.setBright", Verdict::passed)),
              Lines{"newly passed state.picture.setBright"});
    EXPECT_EQ(changesOf(sampleRun(), withVerdict("state.audio.setMute", Verdict::passed)),
              Lines{"changed state.audio.setMute"});
    EXPECT_EQ(changesOf(sampleRun(), withVerdict("form.audio.getVolume[channel=headphone].form", Verdict::leftOut)),
              Lines{"changed form.audio.getVolume[channel=headphone].form"});
}

TEST(RunDifference, saysWhatIsNewOrGoneWithWhatFailedFirst) {
    auto later = sampleRun();
    later.results.erase(later.results.begin());
    later.results.push_back({"life.new", "life", "service", "", "", Verdict::passed, "", std::nullopt, {}});
    later.results.push_back({"life.bad", "life", "service", "", "", Verdict::failed, "no", std::nullopt, {}});
    EXPECT_EQ(changesOf(sampleRun(), later),
              (Lines{"newly failed life.bad", "new life.new", "gone form.audio.getVolume[channel=speaker].form"}));
}

/** The sample's first check with so many answers of this time. */
Run withAnswers(std::size_t count, microseconds time) {
    Run run = sampleRun();
    resultIn(run, "form.audio.getVolume[channel=headphone].form").latencies.clear();
    run.results.front().latencies.assign(count, time);
    return run;
}

TEST(RunDifference, tellsOfMediansThatChangedByMoreThanTheFactor) {
    const auto before = withAnswers(100, microseconds(100));
    EXPECT_TRUE(compare(before, withAnswers(100, microseconds(200)), kTwice).latencies.empty());
    const auto slower = compare(before, withAnswers(100, microseconds(201)), kTwice).latencies;
    ASSERT_EQ(slower.size(), 1U);
    EXPECT_TRUE(slower.front().isSlower());
    EXPECT_EQ(slower.front().family + '.' + slower.front().module, "form.audio");
    EXPECT_EQ(slower.front().after.p50, microseconds(201));
    const auto quicker = compare(before, withAnswers(100, microseconds(49)), kTwice).latencies;
    ASSERT_EQ(quicker.size(), 1U);
    EXPECT_FALSE(quicker.front().isSlower());
}

TEST(RunDifference, doesNotJudgeByAFewAnswers) {
    EXPECT_TRUE(
        compare(withAnswers(19, microseconds(100)), withAnswers(100, microseconds(900)), kTwice).latencies.empty());
}

} // namespace
} // namespace kelutv::test
