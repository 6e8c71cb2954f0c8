#include "support/ChildProcess.h"
#include "support/Sanitizers.h"
#include "support/TestFolder.h"
#include "torture/Report.h"
#include "torture/processes/ForkedProcess.h"
#include "torture/processes/Shared.h"
#include "torture/starvation/PageFile.h"
#include "torture/starvation/Starved.h"
#include "torture/starvation/Steps.h"

#include <binder/Binder.h>
#include <binder/IServiceManager.h>

#include <gtest/gtest.h>

#include <cstdlib>

namespace kelutv::test {
namespace {

using namespace std::chrono_literals;
using android::String16;
using starvation::Resource;

/** Far more than any visit takes; what takes longer hangs. */
constexpr auto kVisitPatience = 20s;
constexpr int kFaultsAllowed = 3;

/** What a visitor of the service manager got. */
struct Visit {
    std::atomic<bool> added{false};
    std::atomic<bool> found{false};
    std::atomic<bool> ended{false};
};

/** The service manager, refused what the test says while processes add services and look for them. */
class StarvedManagerTest : public ::testing::TestWithParam<std::pair<Resource, bool>> {
protected:
    StarvedManagerTest() : mPage(mFolder.pathOf("page")) {
        ::setenv("KQDROID_RUNTIME_DIR", mFolder.pathOf("run").c_str(), 1);
        ::setenv("KQDROID_SERVICE_WAIT_MS", "0", 1);
        // The driver lets the manager of the last test go a moment after its end.
        if (!eventually([this] { return start(); })) {
            throw std::runtime_error("the service manager did not come up: " + mManager->error().text());
        }
    }

    /** A process adds a service of its own and looks for it. */
    void visit(const std::string& name) {
        mVisit.renew();
        ForkedProcess visitor([&] {
            const auto manager = android::defaultServiceManager();
            mVisit->added = manager->addService(String16(name.c_str()), new android::BBinder) == android::NO_ERROR;
            mVisit->found = manager->getService(String16(name.c_str())) != nullptr;
        });
        mVisit->ended = visitor.wait(kVisitPatience) == 0;
    }

    /** Refuses, and says in words what was wrong then or afterwards. */
    std::string refuse(const Starved& starved) {
        arm(*mPage.operator->(), starved, 0);
        visit("visited");
        mPage->armed = false;
        if (!mVisit->ended) {
            return "a visitor hung";
        }
        mFailed += mVisit->added && mVisit->found ? 0 : 1;
        visit("visited afterwards");
        if (mManager->wait(0ms)) {
            const std::string said = mManager->error().text();
            eventually([this] { return start(); });
            return "the service manager ended: " + said;
        }
        return mVisit->ended && mVisit->added && mVisit->found ? "" : "afterwards a service cannot be added and found";
    }

    long seen() const { return mPage->seen; }
    int failed() const { return mFailed; }

private:
    bool start() {
        ChildProcess::Options options;
        options.environment = {std::string("LD_PRELOAD=") + KELUTV_REFUSALS, sanitizerOptions(),
                               std::string(starvation::kPageVariable) + "=" + mFolder.pathOf("page")};
        options.captureOutput = true;
        options.captureError = true;
        mManager = std::make_unique<ChildProcess>(std::vector<std::string>{KELUTV_SERVICE_MANAGER}, options);
        return eventually([this] { return mManager->wait(0ms) || isReady(); }) && isReady();
    }

    bool isReady() const { return mManager->output().text().find("kqservicemanager: ready") != std::string::npos; }

    TestFolder mFolder;
    PageFile mPage;
    std::unique_ptr<ChildProcess> mManager;
    Shared<Visit> mVisit;
    int mFailed = 0;
};

TEST_P(StarvedManagerTest, failsAlone) {
    const auto [resource, lasting] = GetParam();
    ASSERT_EQ(refuse({resource, 0, false}), "");
    ASSERT_EQ(failed(), 0);
    const std::vector<long> steps = stepsTo(seen());
    int faults = 0;
    for (const long nth : steps) {
        if (const std::string wrong = refuse({resource, nth, lasting}); !wrong.empty()) {
            ADD_FAILURE() << "the " << nth << ". refused: " << wrong;
            ASSERT_LT(++faults, kFaultsAllowed) << "the remaining steps are left out";
        }
    }
    report("service manager refused %-10s %-13s in %4zu places: %4d visits failed",
           starvation::kResourceNames.at(resource), lasting ? "from then on" : "once", steps.size(), failed());
}

std::string nameOf(const ::testing::TestParamInfo<std::pair<Resource, bool>>& info) {
    return std::string(starvation::kResourceNames.at(info.param.first)) + (info.param.second ? "_lasting" : "_once");
}

INSTANTIATE_TEST_SUITE_P(Each, StarvedManagerTest, ::testing::ValuesIn(starvableResources()), nameOf);

} // namespace
} // namespace kelutv::test
