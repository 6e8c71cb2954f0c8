#pragma once

#include "simulator/scenarios/Scenario.h"
#include "simulator/trace/Watcher.h"

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <thread>

namespace kelutv::simulator {

/**
 * Plays a scenario in a thread of its own.
 *
 * A step that waits for a request is satisfied by one that comes once the wait of the step before it is over.
 */
class ScenarioPlayer : public Watcher {
public:
    /** Carries out a line of the control channel. @return what is wrong with it, if anything */
    using Obey = std::function<std::optional<std::string>(const std::string& line)>;
    /** Called once after the last step, unless the player is destroyed before. */
    using Ended = std::function<void(int failedSteps)>;

    /** @param speed how many times faster than real time the scenario passes; waiting for requests has its own pace */
    ScenarioPlayer(Scenario scenario, double speed);
    ~ScenarioPlayer() override;

    void start(Obey obey, Ended ended);

    /** Stops playing and waits for the thread. */
    void stop();

    void served(const Served& served) override;

private:
    using Clock = std::chrono::steady_clock;

    void play();
    bool isStopping();
    void carryOut(const ScenarioStep& step, bool isReached);
    /** False when the request that the step waits for does not come. */
    bool waitFor(std::size_t index);
    bool waitForRequest(std::unique_lock<std::mutex>& lock, std::size_t index);
    void sleepUntil(std::unique_lock<std::mutex>& lock, Clock::time_point time);
    Clock::duration played(std::chrono::milliseconds time) const;
    /** From now on a request can satisfy this step, if it waits for one. */
    void arm(std::size_t index);
    void fail(const ScenarioStep& step, const std::string& complaint);

    const Scenario mScenario;
    const double mSpeed;
    Obey mObey;
    Ended mEnded;
    Clock::time_point mStart;
    Clock::time_point mStepEnd;
    int mFailed = 0;

    std::mutex mMutex;
    std::condition_variable mChanged;
    bool mStopping = false;
    /** The step that a request can satisfy; the number of steps for none. */
    std::size_t mArmed;
    /** The steps before this one have had their requests. */
    std::size_t mSatisfied = 0;
    std::thread mThread;
};

} // namespace kelutv::simulator
