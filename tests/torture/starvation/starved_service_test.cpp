#include "support/RuntimeDir.h"
#include "torture/Report.h"
#include "torture/starvation/StarvedService.h"
#include "torture/starvation/Steps.h"

#include <gtest/gtest.h>

namespace kelutv::test {
namespace {

using starvation::Resource;

/** Each that hangs costs its whole time; these are enough to know. */
constexpr int kFaultsAllowed = 3;

class StarvedServiceTest : public ::testing::TestWithParam<std::pair<Resource, bool>> {
protected:
    RuntimeDir mRuntimeDir;
    // The library that writes the state file's JSON ends the process when it has no memory to destroy a document.
    const bool mKeepsState = GetParam().first != starvation::kAllocation;
    StarvedService mService{mKeepsState};
};

TEST_P(StarvedServiceTest, failsAlone) {
    const auto [resource, lasting] = GetParam();
    const std::size_t descriptors = mService.descriptors();
    const ServiceRun fed = mService.run({resource, 0, false});
    ASSERT_EQ(fed.wrong, "");
    ASSERT_EQ(fed.failed, 0);
    int runs = 0;
    int calls = 0;
    int failed = 0;
    int faults = 0;
    for (const long nth : stepsTo(fed.seen)) {
        const ServiceRun run = mService.run({resource, nth, lasting});
        ++runs;
        calls += run.right + run.failed;
        failed += run.failed;
        if (!run.wrong.empty()) {
            ADD_FAILURE() << "the " << nth << ". refused: " << run.wrong;
            ASSERT_LT(++faults, kFaultsAllowed) << "the remaining steps are left out";
        }
    }
    EXPECT_TRUE(eventually([&] { return mService.descriptors() <= descriptors; }))
        << mService.descriptors() << " descriptors, " << descriptors << " before";
    if (mKeepsState) {
        EXPECT_EQ(mService.restart(), "");
    }
    report("television refused %-10s %-13s in %4d of %4ld places: %5d calls, %4d failed",
           starvation::kResourceNames.at(resource), lasting ? "from then on" : "once", runs, fed.seen, calls, failed);
}

std::string nameOf(const ::testing::TestParamInfo<std::pair<Resource, bool>>& info) {
    return std::string(starvation::kResourceNames.at(info.param.first)) + (info.param.second ? "_lasting" : "_once");
}

INSTANTIATE_TEST_SUITE_P(Each, StarvedServiceTest, ::testing::ValuesIn(starvableResources()), nameOf);

} // namespace
} // namespace kelutv::test
