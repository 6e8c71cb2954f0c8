#include "torture/memory/StarvedOperation.h"

#include <kelutv/link/TVBaseClient.h>

#include <unistd.h>

#include <stdexcept>

namespace kelutv::test {

namespace {

/** Far more than any operation takes. */
constexpr long kMost = 1000;

} // namespace

StarvedOperation::StarvedOperation(const std::vector<Operation>& operations)
    : mService(operations, [this](int) {
          ++mRequests->count;
          return android::NO_ERROR;
      }) {
    mService.start();
}

OperationRun StarvedOperation::run(const Operation& operation, long first, bool lasting) {
    return live([&] {
        android::TVBaseClient::self();
        bool felt = true;
        for (long nth = first; felt && nth < kMost; ++nth) {
            felt = starve(operation, {starvation::kAllocation, nth, lasting});
            feed(operation, false);
        }
        mPage->all = !felt;
    });
}

OperationRun StarvedOperation::connect(const Operation& operation, long nth, bool lasting) {
    return live([&] {
        mPage->all = !starve(operation, {starvation::kAllocation, nth, lasting});
        feed(operation, true);
    });
}

OperationRun StarvedOperation::lack(const Operation& operation, long nth) {
    return live([&] {
        android::TVBaseClient::self();
        if (!starve(operation, {starvation::kAllocation, nth, false})) {
            mPage->notes.noteWrong(operation.name, "its outcome without asking for the memory");
        } else if (mPage->notes.failed == 0) {
            mPage->notes.noteWrong(operation.name, "no failure");
        }
    });
}

OperationRun StarvedOperation::live(const std::function<void()>& body) {
    mPage.renew();
    ForkedProcess client([&] {
        starvation::usePage(&*mStarvation);
        body();
    });
    const std::optional<int> status = client.wait();
    client.kill();
    if (!status) {
        throw std::runtime_error("without allocation " + std::to_string(mPage->reached) + " the client hangs");
    }
    const bool wrong = mPage->notes.wrong > 0;
    return {*status, mPage->reached, mPage->all, wrong ? mPage->notes.firstWrong.data() : "", client.text()};
}

/** Whether an allocation was lacking. */
bool StarvedOperation::starve(const Operation& operation, const Starved& starved) {
    mPage->reached = starved.nth;
    Outcome outcome;
    // Threads of the link take memory at moments of their own.
    arm(*mStarvation, starved, ::getpid(), ::gettid());
    operation.call(outcome);
    mStarvation->armed = false;
    mPage->notes.note(operation, outcome);
    return mStarvation->seen >= starved.nth;
}

void StarvedOperation::feed(const Operation& operation, bool mayFail) {
    Outcome outcome;
    operation.call(outcome);
    if (mayFail) {
        mPage->notes.note(operation, outcome);
    } else if (operation.right != outcome.text()) {
        mPage->notes.noteWrong("with memory again the operation", outcome.text());
    }
}

} // namespace kelutv::test
