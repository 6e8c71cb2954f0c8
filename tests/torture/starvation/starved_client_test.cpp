#include "support/RuntimeDir.h"
#include "torture/Report.h"
#include "torture/starvation/StarvedClient.h"
#include "torture/starvation/Steps.h"

#include <gtest/gtest.h>

#include <cstdio>

namespace kelutv::test {
namespace {

using starvation::Resource;

/** Runs that hang cost their whole time; these are enough to know. */
constexpr int kHangsAllowed = 2;

/** The elements side by side, each in this format. */
template <typename Elements> std::string columns(const Elements& elements, const char* format) {
    std::string text;
    for (const auto& element : elements) {
        char column[32];
        std::snprintf(column, sizeof column, format, element);
        text += column;
    }
    return text;
}

class StarvedClientTest : public ::testing::TestWithParam<std::pair<Resource, bool>> {
protected:
    static void SetUpTestSuite() {
        report("%-24s %6s %6s%s", "client refused", "of", "runs", columns(kEndingNames, "%14s").c_str());
    }

    void count(const ClientRun& run, long nth) {
        ++mRuns;
        ++mEndings.at(run.ending);
        // One refusal is one failure; without a link it stands for all.
        if (run.ending >= kWrong || (run.ending == kSomeFailed && !GetParam().second)) {
            ADD_FAILURE() << "the " << nth << ". refused: " << kEndingNames.at(run.ending) << ": " << run.what;
        }
    }

    bool hangs() const { return mEndings[kHung] > kHangsAllowed; }

    void printCounts(const std::string& what, long requests) const {
        report("%-24s %6ld %6d%s", what.c_str(), requests, mRuns, columns(mEndings, "%14d").c_str());
    }

    RuntimeDir mRuntimeDir;
    StarvedClient mClient;

private:
    int mRuns = 0;
    std::array<int, kEndings> mEndings{};
};

std::string nameOf(const ::testing::TestParamInfo<std::pair<Resource, bool>>& info) {
    return std::string(starvation::kResourceNames.at(info.param.first)) + (info.param.second ? "_lasting" : "_once");
}

TEST_P(StarvedClientTest, endsAsDocumented) {
    const auto [resource, lasting] = GetParam();
    const ClientRun fed = mClient.run({resource, 0, false});
    ASSERT_EQ(fed.ending, kRight) << fed.what;
    for (const long nth : stepsTo(fed.seen)) {
        count(mClient.run({resource, nth, lasting}), nth);
        ASSERT_FALSE(hangs()) << "the remaining steps are left out";
    }
    printCounts(std::string(starvation::kResourceNames.at(resource)) + (lasting ? ", from then on" : ", once"),
                fed.seen);
}

INSTANTIATE_TEST_SUITE_P(Each, StarvedClientTest, ::testing::ValuesIn(starvableResources()), nameOf);

} // namespace
} // namespace kelutv::test
