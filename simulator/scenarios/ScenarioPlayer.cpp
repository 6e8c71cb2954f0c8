#include "simulator/scenarios/ScenarioPlayer.h"

#include "simulator/output/Complaints.h"
#include "simulator/output/Shortage.h"

#include <utility>

namespace kelutv::simulator {

ScenarioPlayer::ScenarioPlayer(Scenario scenario, double speed)
    : mScenario(std::move(scenario)), mSpeed(speed), mArmed(mScenario.steps.size()) {}

ScenarioPlayer::~ScenarioPlayer() { stop(); }

void ScenarioPlayer::start(Obey obey, Ended ended) {
    mObey = std::move(obey);
    mEnded = std::move(ended);
    mStart = mStepEnd = Clock::now();
    {
        const std::lock_guard<std::mutex> lock(mMutex);
        arm(0);
    }
    mThread = std::thread([this] { play(); });
}

void ScenarioPlayer::stop() {
    {
        const std::lock_guard<std::mutex> lock(mMutex);
        mStopping = true;
    }
    mChanged.notify_all();
    if (mThread.joinable()) {
        mThread.join();
    }
}

void ScenarioPlayer::served(const Served& served) {
    const std::lock_guard<std::mutex> lock(mMutex);
    if (mArmed < mScenario.steps.size() && mScenario.steps[mArmed].request->matches(served.request)) {
        mSatisfied = mArmed + 1;
        arm(mSatisfied);
        mChanged.notify_all();
    }
}

void ScenarioPlayer::arm(std::size_t index) {
    const bool waits = index < mScenario.steps.size() && mScenario.steps[index].request;
    mArmed = waits ? index : mScenario.steps.size();
}

void ScenarioPlayer::play() {
    for (std::size_t index = 0; index < mScenario.steps.size(); ++index) {
        const bool isReached = waitFor(index);
        if (isStopping()) {
            return;
        }
        const int failedBefore = mFailed;
        if (!withMemory([&] { carryOut(mScenario.steps[index], isReached); })) {
            mFailed = failedBefore + 1;
        }
        mStepEnd = Clock::now();
    }
    mEnded(mFailed);
}

bool ScenarioPlayer::isStopping() {
    const std::lock_guard<std::mutex> lock(mMutex);
    return mStopping;
}

void ScenarioPlayer::carryOut(const ScenarioStep& step, bool isReached) {
    if (!isReached) {
        fail(step, "the request did not come in time");
    } else if (!step.line.empty()) {
        if (const auto complaint = mObey(step.line)) {
            fail(step, *complaint);
        }
    }
}

bool ScenarioPlayer::waitFor(std::size_t index) {
    const ScenarioStep& step = mScenario.steps[index];
    std::unique_lock<std::mutex> lock(mMutex);
    if (step.wait == ScenarioStep::Wait::On) {
        return waitForRequest(lock, index);
    }
    if (step.time) {
        const bool fromStart = step.wait == ScenarioStep::Wait::At;
        sleepUntil(lock, (fromStart ? mStart : mStepEnd) + played(*step.time));
    }
    arm(index + 1);
    return true;
}

bool ScenarioPlayer::waitForRequest(std::unique_lock<std::mutex>& lock, std::size_t index) {
    const auto isOver = [this, index] { return mStopping || mSatisfied > index; };
    const auto limit = mScenario.steps[index].time;
    if (!limit) {
        mChanged.wait(lock, isOver);
    } else if (!mChanged.wait_for(lock, *limit, isOver)) {
        arm(index + 1);
        return false;
    }
    return true;
}

void ScenarioPlayer::sleepUntil(std::unique_lock<std::mutex>& lock, Clock::time_point time) {
    mChanged.wait_until(lock, time, [this] { return mStopping; });
}

ScenarioPlayer::Clock::duration ScenarioPlayer::played(std::chrono::milliseconds time) const {
    return std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double, std::milli>(time) / mSpeed);
}

void ScenarioPlayer::fail(const ScenarioStep& step, const std::string& complaint) {
    ++mFailed;
    complain(mScenario.path + ':' + std::to_string(step.lineNumber) + ": " + complaint);
}

} // namespace kelutv::simulator
