#include "tools/compliance/SampleRun.h"

#include "tools/kelutv/compliance/results/Latencies.h"
#include "tools/kelutv/compliance/results/RunFile.h"
#include "tools/kelutv/output/Errors.h"

#include <gtest/gtest.h>

#include <string>

namespace kelutv::test {
namespace {

using namespace tool::compliance;
using std::chrono::nanoseconds;

std::string with(const std::string& right, const std::string& wrong) {
    std::string text = textOf(sampleRun());
    return text.replace(text.find(right), right.size(), wrong);
}

/** What is said of a report that is refused; empty when it is not. */
std::string complaintAbout(const std::string& text) {
    try {
        runOf(text, "FILE");
    } catch (const tool::UsageError& error) {
        return error.what();
    }
    return "";
}

TEST(ComplianceReport, isReadAsItWasWritten) {
    const std::string text = textOf(sampleRun());
    const auto run = runOf(text, "FILE");
    EXPECT_EQ(textOf(run), text);
    EXPECT_EQ(run.circumstances.service, "TVBase");
    EXPECT_EQ(run.circumstances.options.size(), 3U);
    ASSERT_EQ(run.results.size(), 6U);
    EXPECT_EQ(run.results[1].verdict, Verdict::failed);
    EXPECT_EQ(run.results[1].exchange->reply, (std::vector<std::uint8_t>{0, 0, 0, 0, 0x23}));
    EXPECT_EQ(run.results[0].latencies[1], nanoseconds(300000));
    EXPECT_EQ(run.results[3].exchange->status, -32);
}

TEST(ComplianceReport, doesNotKeepWhatWasExchangedInChecksThatPassed) {
    auto run = sampleRun();
    run.results[0].exchange = Exchange{1, {1}, 0, {2}};
    EXPECT_FALSE(runOf(textOf(run), "FILE").results[0].exchange);
}

TEST(ComplianceReport, keepsTheBeginningOfLongRequestsAndTheirLength) {
    auto run = sampleRun();
    run.results[1].exchange->request.assign(1 << 20, 0xAB);
    const std::string text = textOf(run);
    EXPECT_NE(text.find("\"requestBytes\":1048576"), std::string::npos);
    EXPECT_EQ(runOf(text, "FILE").results[1].exchange->request, std::vector<std::uint8_t>(kMostBytesKept, 0xAB));
}

TEST(ComplianceReport, isRefusedWithThePlaceOfWhatIsWrong) {
    EXPECT_EQ(complaintAbout("[]"), "FILE: is no object");
    EXPECT_EQ(complaintAbout(with("compliance 1", "compliance 2")),
              "FILE: the format is 'kelutv compliance 2', not 'kelutv compliance 1'");
    EXPECT_EQ(complaintAbout(with("\"verdict\":\"failed\"", "\"verdict\":\"fail\"")),
              "FILE: results[1]: the verdict is 'fail', not one of passed, failed, refused, expected-failure, "
              "left-out, inconclusive");
    EXPECT_EQ(complaintAbout(with("[100000,300000]", "[100000,-1]")),
              "FILE: results[0]: 'latencies' holds what is no time");
    EXPECT_EQ(complaintAbout(with("\"command\":1", "\"command\":-1")),
              "FILE: results[1], exchange: 'command' is out of range");
    EXPECT_EQ(complaintAbout(with("\"checks\": 6", "\"checks\": 7")),
              "FILE: 'checks' is not the number of results: the file is not whole");
    EXPECT_EQ(complaintAbout(with("state.audio.setMute", "events.audio.setVolume.once")),
              "FILE: results has events.audio.setVolume.once twice");
    EXPECT_NE(complaintAbout(with("\"0102\"", "\"01020\"")), "");
}

TEST(ComplianceReport, mayHaveMembersOfLaterVersions) {
    EXPECT_EQ(complaintAbout(with("\"checks\": 6", "\"mood\": {}, \"checks\": 6")), "");
}

TEST(ComplianceLatencies, aHundredthOfTheAnswersMayTakeLongerThanP99) {
    std::vector<nanoseconds> latencies;
    for (int i = 200; i > 0; --i) {
        latencies.emplace_back(i);
    }
    const LatencySummary summary = summaryOf(latencies);
    EXPECT_EQ(summary.count, 200U);
    EXPECT_EQ(summary.p50, nanoseconds(100));
    EXPECT_EQ(summary.p99, nanoseconds(198));
    EXPECT_EQ(summary.greatest, nanoseconds(200));
    EXPECT_EQ(summaryOf({nanoseconds(7)}).p50, nanoseconds(7));
    EXPECT_EQ(summaryOf({}).count, 0U);
}

} // namespace
} // namespace kelutv::test
