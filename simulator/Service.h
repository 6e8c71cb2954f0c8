#pragma once

#include "service/EventPublisher.h"
#include "service/RequestServer.h"
#include "simulator/control/Answer.h"
#include "simulator/television/Television.h"
#include "simulator/trace/Watcher.h"

#include <atomic>
#include <functional>
#include <memory>
#include <mutex>
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
        : mWatchers(std::move(watchers)), mTelevision(std::move(configuration), std::move(eep), stateFile) {}

    /** Carries out a line of the control channel. */
    Answer control(const std::string& line);

    /** Writes the state of the television if its file could not be written before. */
    void keepState();

    /** Notifies the watchers of the present state of the television. */
    void show();

protected:
    android::status_t serve(const wire::Request& request, android::Parcel* reply) override;

private:
    using FaultRules = std::vector<FaultRule>;

    wire::Reply answer(const wire::Request& request, FaultRules& faults);
    void exitIfToldTo(const FaultRules& faults);
    wire::Reply carryOut(const wire::Request& request, const FaultRules& faults);
    /** Publishes what is new, then notifies the watchers. */
    void settle();
    void publish(const PublishedEvent& event);
    void notify(const std::function<void(Watcher&)>& news);

    const Watchers mWatchers;
    /** Held while a request is carried out, so that state, events and notifications of the watchers have one order. */
    std::mutex mMutex;
    Television mTelevision;
    service::EventPublisher mEvents;
    std::atomic<bool> mExiting{false};
};

} // namespace kelutv::simulator
