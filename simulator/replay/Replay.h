#pragma once

#include "simulator/replay/Matching.h"
#include "simulator/replay/Progress.h"
#include "simulator/replay/ReplayScript.h"

#include <sys/types.h>

#include <chrono>
#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace kelutv::simulator {

/** What becomes of a request that was not recorded: the simulated television, a result, or nothing answers it. */
enum class Unrecorded { Television, Error, Silence };

struct ReplayOptions {
    /** `strictly` or `loosely`. */
    std::string match = "strictly";
    /** `television`, `error` or `silence`. */
    std::string unrecorded = "television";
    /** How many times faster than recorded answers and events come; without it answers come at once, and events at
     * their place in the order. */
    std::optional<double> speed;
};

/** What has come of a replay. */
struct ReplayReport {
    /** Every request was asked for, none early and none besides, and every event was published. */
    bool isAsRecorded = true;
    std::vector<std::string> lines = {};
};

/** Plays a recording as the service. Not synchronised. */
class Replay {
public:
    using Clock = Progress::Clock;

    /** What is to be done with a request. */
    struct Step {
        /** Null for one that was not recorded. */
        const RecordedCall* call = nullptr;
        /** To be published before its answer. */
        PublishedEvents events;
        /** What is to be told of it; empty for what comes as it was recorded. */
        std::string complaint;
        /** The service dies instead of answering. */
        std::optional<std::size_t> death;
        /** It dies later, and does not answer until then. */
        bool isSilent = false;
        /** The answer comes so much later. */
        Clock::duration delay{};
    };

    /** What is due without a request. */
    struct Due {
        PublishedEvents events;
        /** The service dies. */
        std::optional<std::size_t> death;
        /** All has been asked for and published. */
        bool isOver = false;
        /** When something may be due again; nothing as long as nothing is asked for. */
        std::optional<Clock::time_point> next;
    };

    /** @throws ReplayError for options that there are not */
    Replay(ReplayScript script, const ReplayOptions& options);

    /** Goes on from what a service that died has handed over. @throws ReplayError when that does not fit the script */
    void resume(const std::string& progress);

    Unrecorded unrecorded() const { return mUnrecorded; }
    const ReplayScript& script() const { return mScript; }

    /** Time 0 for what comes before all requests. */
    void start();

    /** When the service that died is back: the recorded time after its death; without `speed` at once. */
    Clock::time_point returnTime() const { return mProgress.returnTime; }

    Step take(pid_t caller, const std::string& key, const wire::Request& request);
    Due takeDue();

    /** Notes that the service dies. @return what is to be handed over to the one that comes after it */
    std::string die(std::size_t death);

    /** The events that are still to come after what has been asked for, in order. */
    PublishedEvents takeRest();

    /** Behind `takeRest`. */
    ReplayReport report() const;

private:
    using Pending = Progress::Pending;

    void resumePending();
    Step stepFor(const Match& match);
    void meetDeath(Clock::time_point time, Step& step);
    void schedule(std::size_t call, Clock::time_point answer, Step& step);
    /** Lets what belongs to these requests not come. */
    void takeBack(const std::vector<std::size_t>& calls);
    /** Lets what came before all requests come behind the first one. */
    void releaseFirst(Clock::time_point answer);
    Clock::duration played(std::chrono::nanoseconds time) const;
    PublishedEvents takePendingBefore(std::size_t line);
    void publish(std::size_t happening, PublishedEvents& events);
    bool hasDifference() const;
    void countWaiting();
    bool isDone() const { return mWaiting == 0 && mPending.empty() && !mDeath; }

    const ReplayScript mScript;
    const std::optional<double> mSpeed;
    const Unrecorded mUnrecorded;
    const std::unique_ptr<Matching> mMatching;
    /** The happenings of each request. */
    std::vector<std::vector<std::size_t>> mHappenings;
    Progress mProgress;
    bool mIsResumed = false;
    /** How many requests have not been asked for. */
    std::size_t mWaiting = 0;
    std::vector<Pending> mPending;
    Clock::time_point mLastRequest;
    /** When the last answer is to come. */
    Clock::time_point mLastAnswer;
    /** When the service dies of a request that it has taken, and which death that is. */
    std::optional<std::pair<Clock::time_point, std::size_t>> mDeath;
};

} // namespace kelutv::simulator
