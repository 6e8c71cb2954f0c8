#include "tools/compliance/SampleRun.h"

#include "tools/kelutv/compliance/knowledge/KnownFailures.h"
#include "tools/kelutv/output/Errors.h"

#include <gtest/gtest.h>

#include <string>

namespace kelutv::test {
namespace {

using namespace tool::compliance;

const std::string kFailed = "form.audio.getVolume[channel=headphone].form";
const std::string kPassed = "form.audio.getVolume[channel=speaker].form";

CheckResult judged(const std::string& check, const std::string& id) {
    auto run = sampleRun();
    return KnownFailures({{check, "no amplifier"}}).judged(resultIn(run, id));
}

TEST(KnownFailures, makeAFailureAnExpectedOne) {
    const CheckResult result = judged(kFailed, kFailed);
    EXPECT_EQ(result.verdict, Verdict::expectedFailure);
    EXPECT_EQ(result.reason, "the reply <ends> & \"stops\"; known: no amplifier");
}

TEST(KnownFailures, sayWhenOnePasses) {
    const CheckResult result = judged(kPassed, kPassed);
    EXPECT_EQ(result.verdict, Verdict::passed);
    EXPECT_EQ(result.reason, "passed although it is known to fail: no amplifier");
}

TEST(KnownFailures, leaveOtherVerdictsAndChecksAlone) {
    EXPECT_EQ(judged("state.audio.setMute", "state.audio.setMute").verdict, Verdict::refused);
    EXPECT_EQ(judged(kPassed, kFailed).verdict, Verdict::failed);
    EXPECT_EQ(judged("form.audio.getVolume", kFailed).verdict, Verdict::failed) << "no piece of an identifier is meant";
}

TEST(KnownFailures, excuseNoTelevisionThatWasLeftChanged) {
    CheckResult result;
    result.id = kPutBackCheck;
    result.verdict = Verdict::failed;
    EXPECT_EQ(KnownFailures(std::vector<KnownFailure>{{"*", "old"}}).judged(result).verdict, Verdict::failed);
}

TEST(KnownFailures, areMeantByPatterns) {
    EXPECT_EQ(judged("form.audio.*", kFailed).verdict, Verdict::expectedFailure);
    EXPECT_EQ(judged("form.audio.getVolume[channel=headphone].*", kFailed).verdict, Verdict::expectedFailure);
    EXPECT_EQ(judged("form.audio.getVolume[channel=speaker].*", kFailed).verdict, Verdict::failed);
    EXPECT_EQ(judged("form.picture.*", kFailed).verdict, Verdict::failed);
}

TEST(KnownFailures, areNamedWhenNoCheckIsMeant) {
    auto run = sampleRun();
    KnownFailures known({{kFailed, "a"}, {"life.*", "b"}});
    for (const CheckResult& result : run.results) {
        known.judged(result);
    }
    EXPECT_EQ(known.unused(), std::vector<std::string>{"life.*"});
}

std::string complaintAbout(const std::string& text) {
    try {
        knownFailuresOf(text, "FILE");
    } catch (const tool::UsageError& error) {
        return error.what();
    }
    return "";
}

TEST(KnownFailures, areReadFromAFileOrRefused) {
    const std::string head = R"({"format": "kelutv known failures 1", "failures": [)";
    const auto known = knownFailuresOf(head + R"({"check": "form.*", "reason": "old"}]})", "FILE");
    ASSERT_EQ(known.size(), 1U);
    EXPECT_EQ(known.front().check, "form.*");
    EXPECT_EQ(known.front().reason, "old");
    EXPECT_EQ(complaintAbout(head + R"({"check": "form.*"}]})"), "FILE: failures[0]: lacks 'reason'");
    EXPECT_EQ(complaintAbout(head + R"({"check": "a", "reason": ""}]})"),
              "FILE: failures[0]: 'reason' is empty; say why the check fails");
    EXPECT_EQ(complaintAbout(R"({"format": "kelutv compliance 1", "failures": []})"),
              "FILE: the format is 'kelutv compliance 1', not 'kelutv known failures 1'");
    EXPECT_NE(complaintAbout("no"), "");
}

} // namespace
} // namespace kelutv::test
