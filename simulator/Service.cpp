#include "simulator/Service.h"

#include "service/ReplyForm.h"
#include "simulator/control/Control.h"
#include "simulator/faults/ProcessExit.h"
#include "simulator/faults/ReplyCorruption.h"
#include "simulator/output/Complaints.h"
#include "simulator/trace/Trace.h"
#include "wire/events/Payload.h"

#include <binder/Parcel.h>

#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <thread>

namespace kelutv::simulator {

using android::Parcel;
using android::status_t;

namespace {

PublishedEvent eventOf(const Change& change) {
    return {change.event, wire::payloadOf(change.indexes) + wire::payloadOf(change.values), describe(change)};
}

const Effect* effectOf(const std::vector<FaultRule>& faults, Effect::Kind kind) {
    const auto found = std::find_if(faults.begin(), faults.end(),
                                    [kind](const FaultRule& fault) { return fault.effect.kind == kind; });
    return found != faults.end() ? &found->effect : nullptr;
}

[[noreturn]] void waitForTheEnd() {
    for (;;) {
        ::pause();
    }
}

} // namespace

status_t Service::serve(const wire::Request& request, const Parcel& data, Parcel* reply) {
    if (mExiting) {
        waitForTheEnd();
    }
    FaultRules faults;
    const Outcome outcome = answer(request, data, faults);
    if (outcome.isSilent) {
        flushComplaints();
        waitForTheEnd();
    }
    std::this_thread::sleep_for(outcome.delay);
    if (reply != nullptr) {
        if (const status_t status = write(outcome, *reply); status != android::NO_ERROR) {
            return status;
        }
        for (const FaultRule& fault : faults) {
            corrupt(fault.effect, request, outcome.reply, *reply);
        }
    }
    if (const Effect* const delay = effectOf(faults, Effect::Kind::Delay)) {
        std::this_thread::sleep_for(std::chrono::milliseconds(delay->amount));
    }
    notify([](Watcher& watcher) { watcher.answering(); });
    flushComplaints();
    if (effectOf(faults, Effect::Kind::DieAfter) != nullptr) {
        mExiting = true;
        exitWhenAnswered();
    }
    return android::NO_ERROR;
}

status_t Service::write(const Outcome& outcome, Parcel& reply) {
    if (outcome.recorded == nullptr) {
        return wire::writeReply(outcome.reply, reply);
    }
    const std::string& bytes = outcome.recorded->reply;
    return outcome.recorded->status != 0
               ? outcome.recorded->status
               : reply.setData(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
}

Service::Outcome Service::answer(const wire::Request& request, const Parcel& data, FaultRules& faults) {
    const std::lock_guard<std::mutex> lock(mMutex);
    faults = mTelevision.meetFaults(request, service::caller());
    for (const FaultRule& fault : faults) {
        notify([&](Watcher& watcher) { watcher.faulted(service::caller(), request, fault); });
    }
    exitIfToldTo(faults);
    Outcome outcome = carryOut(request, data, faults);
    if (!outcome.isSilent) {
        notify([&](Watcher& watcher) { watcher.served({service::caller(), request, outcome.reply}); });
    }
    settle();
    return outcome;
}

void Service::exitIfToldTo(const FaultRules& faults) {
    const bool beforeReply = effectOf(faults, Effect::Kind::DieBefore) != nullptr;
    if (beforeReply || effectOf(faults, Effect::Kind::DieAfter) != nullptr) {
        notify([](Watcher& watcher) { watcher.exiting(); });
    }
    if (beforeReply) {
        flushComplaints();
        ::_exit(kFaultExitCode);
    }
}

Service::Outcome Service::carryOut(const wire::Request& request, const Parcel& data, const FaultRules& faults) {
    if (const Effect* const error = effectOf(faults, Effect::Kind::Error)) {
        return {{error->amount, "a fault", {}}};
    }
    return mReplay != nullptr ? replayed(request, data) : Outcome{performed(request)};
}

wire::Reply Service::performed(const wire::Request& request) {
    if (request.refusal) {
        return replyTo(*request.refusal);
    }
    wire::Reply reply = mTelevision.perform(request);
    const std::string flaw = service::flawOf(request, reply);
    if (flaw.empty()) {
        return reply;
    }
    complain(std::string(request.command->name) + " was not answered: " + flaw);
    return wire::replyTo({wire::Result::Failed, flaw});
}

Answer Service::control(const std::string& line) {
    return obey(mTelevision.equipment().configuration, line, [this](const Deed& deed) {
        const std::lock_guard<std::mutex> lock(mMutex);
        std::string data = mTelevision.operate(deed);
        settle();
        return data;
    });
}

void Service::keepState() {
    const std::lock_guard<std::mutex> lock(mMutex);
    mTelevision.keepState();
}

void Service::show() {
    const std::lock_guard<std::mutex> lock(mMutex);
    settle();
}

void Service::settle() {
    for (const Change& change : mTelevision.takeChanges()) {
        publish(eventOf(change));
    }
    for (const PublishedEvent& event : mTelevision.takeEvents()) {
        publish(event);
    }
    notify([this](Watcher& watcher) { watcher.settled(mTelevision); });
}

void Service::publish(const PublishedEvent& event) {
    notify([&event](Watcher& watcher) { watcher.published(event); });
    if (const std::string complaint = mEvents.publish(event.identifier, event.payload); !complaint.empty()) {
        complain(complaint);
    }
}

void Service::notify(const std::function<void(Watcher&)>& news) {
    for (const std::shared_ptr<Watcher>& watcher : mWatchers) {
        news(*watcher);
    }
}

} // namespace kelutv::simulator
