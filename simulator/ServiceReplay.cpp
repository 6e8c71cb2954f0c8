// What the service does where a recording is played.
#include "simulator/Service.h"

#include "simulator/faults/ProcessExit.h"
#include "simulator/output/Complaints.h"
#include "simulator/replay/ObservedStates.h"
#include "simulator/replay/Restart.h"
#include "wire/codec/ReplyReader.h"
#include "wire/text/ResultNames.h"

#include <binder/IPCThreadState.h>
#include <binder/Parcel.h>

#include <unistd.h>

#include <utility>

namespace kelutv::simulator {

namespace {

wire::Reply replyIn(const RecordedCall& call) {
    if (call.status != 0) {
        return {call.status, "the call fails: " + wire::statusText(call.status), {}};
    }
    static const wire::Operation kUnknown{{}, wire::Shape::Status, {}, {}};
    wire::ByteReader bytes(reinterpret_cast<const std::uint8_t*>(call.reply.data()), call.reply.size());
    return wire::readReply(call.request.operation != nullptr ? *call.request.operation : kUnknown, bytes).reply;
}

} // namespace

void Service::setReplay(ReplayScript script, const ReplayOptions& options) {
    mReplay = std::make_unique<Replay>(std::move(script), options);
    if (const std::optional<std::string> progress = takeHandedOver()) {
        mReplay->resume(*progress);
    } else {
        for (const std::string& remark : mReplay->script().remarks) {
            complain(remark);
        }
    }
    mTelevision.operate([this](Equipment& equipment) {
        beginAsRecorded(equipment, mReplay->script());
        return 0;
    });
    mTelevision.takeChanges();
    mTelevision.takeEvents();
    mReplay->start();
}

void Service::startReplay(std::function<void()> ended) {
    if (mReplay != nullptr) {
        mReplayClock.start([this, ended = std::move(ended)] { return playDue(ended); });
    }
}

ReplayReport Service::endReplay() {
    if (mReplay == nullptr) {
        return {};
    }
    mReplayClock.stop();
    const std::lock_guard<std::mutex> lock(mMutex);
    for (const PublishedEvent& event : mReplay->takeRest()) {
        publish(event);
    }
    return mReplay->report();
}

Service::Outcome Service::replayed(const wire::Request& request, const android::Parcel& data) {
    const pid_t caller = android::IPCThreadState::self()->getCallingPid();
    mThread = ::gettid();
    Replay::Step step = mReplay->take(caller, requestKeyOf(data.data(), data.dataSize()), request);
    if (!step.complaint.empty()) {
        complain(step.complaint);
    }
    for (const PublishedEvent& event : step.events) {
        publish(event);
    }
    mReplayClock.set();
    if (step.death) {
        die(*step.death);
    }
    if (step.call == nullptr) {
        return unrecorded(request);
    }
    follow(*step.call);
    return {replyIn(*step.call), step.call, step.delay};
}

Service::Outcome Service::unrecorded(const wire::Request& request) {
    switch (mReplay->unrecorded()) {
    case Unrecorded::Television:
        break;
    case Unrecorded::Error:
        return {wire::replyTo({wire::Result::NotRecorded, "it was not recorded"})};
    case Unrecorded::Silence:
        return {{}, nullptr, {}, true};
    }
    return {performed(request)};
}

void Service::follow(const RecordedCall& call) {
    if (call.status == 0 && !call.request.refusal) {
        mTelevision.perform(call.request);
        mTelevision.takeChanges();
        mTelevision.takeEvents();
    }
}

std::optional<Replay::Clock::time_point> Service::playDue(const std::function<void()>& ended) {
    const std::lock_guard<std::mutex> lock(mMutex);
    const Replay::Due due = mReplay->takeDue();
    for (const PublishedEvent& event : due.events) {
        publish(event);
    }
    settle();
    if (due.death) {
        mExiting = true;
        whenAnswered(mThread, [service = android::sp<Service>(this), death = *due.death] {
            const std::lock_guard<std::mutex> itself(service->mMutex);
            service->die(death);
        });
    } else if (due.isOver && ended) {
        whenAnswered(mThread, ended);
    }
    return due.next;
}

void Service::die(std::size_t death) {
    notify([](Watcher& watcher) { watcher.exiting(); });
    complain("the service dies, as recorded, and comes back");
    flushComplaints();
    restart(mReplay->die(death));
}

} // namespace kelutv::simulator
