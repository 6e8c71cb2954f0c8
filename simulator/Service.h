#pragma once

#include "service/EventPublisher.h"
#include "service/RequestServer.h"
#include "simulator/control/Answer.h"
#include "simulator/replay/Replay.h"
#include "simulator/replay/ReplayClock.h"
#include "simulator/replay/UnderWay.h"
#include "simulator/television/Television.h"
#include "simulator/trace/Watcher.h"

#include <atomic>
#include <cstddef>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace kelutv::simulator {

/** The binder object behind "TVBaseService". */
class Service : public service::RequestServer {
public:
    using Watchers = std::vector<std::shared_ptr<Watcher>>;

    /** @param watchers are notified in this order; see `Television` for the others */
    Service(Watchers watchers, Configuration configuration, EepStore eep, const std::string& stateFile)
        : mWatchers(std::move(watchers)), mTelevision(std::move(configuration), std::move(eep), stateFile),
          mHasStateFile(!stateFile.empty()) {}

    /** Carries out a line of the control channel. */
    Answer control(const std::string& line);

    /** Writes the state of the television if its file could not be written before. */
    void keepState();

    /** Notifies the watchers of the present state of the television. */
    void show();

    /** @name A recording that is played; each does nothing without one. @{ */
    /** To be called before anything is served; what comes before all requests has its time from then on. */
    void setReplay(ReplayScript script, const ReplayOptions& options);
    /** Before this time it is not to be served, since the service of the recording was gone so long. */
    Replay::Clock::time_point returnTime() const;
    /** @param ended called when all has been asked for and published, and answered; in another thread. May be empty */
    void startReplay(std::function<void()> ended);
    /** Publishes what is left, and says what has come of it. */
    ReplayReport endReplay();
    /** @} */

protected:
    android::status_t serve(const wire::Request& request, const android::Parcel& data, android::Parcel* reply) override;

private:
    using FaultRules = std::vector<FaultRule>;

    struct Outcome {
        wire::Reply reply = {};
        /** What was recorded, in the place of the reply; null for what the television itself answers. */
        const RecordedCall* recorded = nullptr;
        /** The answer comes so much later. */
        Replay::Clock::duration delay = {};
        bool isSilent = false;
        /** Where a recording is played: the request counts as under way as long as this lives. */
        std::shared_ptr<void> underWay = {};
    };

    Outcome answer(const wire::Request& request, const android::Parcel& data, FaultRules& faults);
    void exitIfToldTo(const FaultRules& faults);
    Outcome carryOut(const wire::Request& request, const android::Parcel& data, const FaultRules& faults);
    wire::Reply performed(const wire::Request& request);
    static android::status_t write(const Outcome& outcome, android::Parcel& reply);
    Outcome replayed(const wire::Request& request, const android::Parcel& data);
    Outcome unrecorded(const wire::Request& request);
    /** Lets the television have done what the recording says it did, and nobody hear of it. */
    void follow(const RecordedCall& call);
    std::optional<Replay::Clock::time_point> playDue(const std::function<void()>& ended);
    Replay::Due publishDue();
    /** Returns only when the replay ends meanwhile. */
    void die(std::size_t death);
    /** Publishes what is new, then notifies the watchers. */
    void settle();
    void publish(const PublishedEvent& event);
    void notify(const std::function<void(Watcher&)>& news);

    const Watchers mWatchers;
    /** Held while a request is carried out, so that state, events and notifications of the watchers have one order. */
    std::mutex mMutex;
    Television mTelevision;
    const bool mHasStateFile;
    service::EventPublisher mEvents;
    std::atomic<bool> mExiting{false};
    std::unique_ptr<Replay> mReplay;
    ReplayClock mReplayClock;
    UnderWay mUnderWay;
    std::atomic<bool> mIsReplayEnding{false};
};

} // namespace kelutv::simulator
