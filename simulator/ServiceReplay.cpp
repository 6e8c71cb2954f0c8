// What the service does where a recording is played.
#include "simulator/Service.h"

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

/** Whether the television did what it was asked for. */
bool isCarriedOut(const RecordedCall& call) {
    if (call.status != 0 || call.request.refusal || call.request.operation == nullptr) {
        return false;
    }
    const wire::Operation& operation = *call.request.operation;
    const std::int32_t result = replyIn(call).result;
    const bool mayBeValue =
        operation.shape == wire::Shape::Status && operation.rule.access != wire::StateRule::Access::Set;
    return result == 0 || (result > 0 && mayBeValue);
}

} // namespace

void Service::setReplay(ReplayScript script, const ReplayOptions& options) {
    mReplay = std::make_unique<Replay>(std::move(script), options);
    const std::optional<std::string> progress = takeHandedOver();
    if (progress) {
        mReplay->resume(*progress);
    } else {
        for (const std::string& remark : mReplay->script().remarks) {
            complain(remark);
        }
    }
    if (!progress || !mHasStateFile) {
        mTelevision.operate([this](Equipment& equipment) {
            beginAsRecorded(equipment, mReplay->script());
            return 0;
        });
    }
    mTelevision.takeChanges();
    mTelevision.takeEvents();
    mReplay->start();
}

Replay::Clock::time_point Service::returnTime() const {
    return mReplay == nullptr ? Replay::Clock::time_point() : mReplay->returnTime();
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
    mIsReplayEnding = true;
    mReplayClock.stop();
    const std::lock_guard<std::mutex> lock(mMutex);
    for (const PublishedEvent& event : mReplay->takeRest()) {
        publish(event);
    }
    return mReplay->report();
}

Service::Outcome Service::replayed(const wire::Request& request, const android::Parcel& data) {
    const pid_t caller = android::IPCThreadState::self()->getCallingPid();
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
        return {{}, nullptr, {}, true};
    }
    if (step.isSilent) {
        return {{}, nullptr, {}, true};
    }
    Outcome outcome = step.call == nullptr ? unrecorded(request) : Outcome{replyIn(*step.call), step.call, step.delay};
    if (step.call != nullptr) {
        follow(*step.call);
    }
    if (!outcome.isSilent) {
        outcome.underWay = mUnderWay.begin(outcome.delay);
    }
    return outcome;
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
    if (isCarriedOut(call)) {
        mTelevision.perform(call.request);
        mTelevision.takeChanges();
        mTelevision.takeEvents();
    }
}

std::optional<Replay::Clock::time_point> Service::playDue(const std::function<void()>& ended) {
    const Replay::Due due = publishDue();
    if (due.isOver && ended) {
        mUnderWay.waitUntilAnswered();
        ended();
    }
    return due.next;
}

Replay::Due Service::publishDue() {
    const std::lock_guard<std::mutex> lock(mMutex);
    const Replay::Due due = mReplay->takeDue();
    for (const PublishedEvent& event : due.events) {
        publish(event);
    }
    settle();
    if (due.death) {
        mExiting = true;
        die(*due.death);
    }
    return due;
}

void Service::die(std::size_t death) {
    notify([](Watcher& watcher) { watcher.exiting(); });
    complain("the service dies, as recorded, and comes back");
    flushComplaints();
    mUnderWay.waitUntilAnswered();
    const std::string progress = mReplay->die(death);
    if (!mIsReplayEnding) {
        restart(progress);
    }
}

} // namespace kelutv::simulator
