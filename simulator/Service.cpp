#include "Service.h"

#include "Request.h"
#include "Trace.h"

#include <binder/IPCThreadState.h>
#include <binder/Parcel.h>

#include <cstring>
#include <vector>

namespace simulator {

using android::Parcel;
using android::status_t;

namespace {

std::vector<std::int32_t> payloadOf(const Change& change) {
    std::vector<std::int32_t> words;
    for (const Scalars& scalars : {change.keys, change.values}) {
        for (const Scalar& scalar : scalars) {
            words.push_back(std::get<std::int32_t>(scalar));
        }
    }
    return words;
}

} // namespace

const android::String16& Service::getInterfaceDescriptor() const {
    static const auto* const descriptor = new android::String16("android.ITVBaseService");
    return *descriptor;
}

status_t Service::onTransact(uint32_t code, const Parcel& data, Parcel* reply, uint32_t flags) {
    if (code != FIRST_CALL_TRANSACTION) {
        return BBinder::onTransact(code, data, reply, flags);
    }
    const Reply answered = answer(readRequest(data));
    if (reply != nullptr) {
        writeReply(answered, *reply);
    }
    return android::NO_ERROR;
}

Reply Service::answer(const Request& request) {
    const std::lock_guard<std::mutex> lock(mMutex);
    Reply reply = request.fault ? refusal(*request.fault) : mTelevision.perform(request);
    if (mTrace != nullptr) {
        const pid_t caller = android::IPCThreadState::self()->getCallingPid();
        trace('[' + std::to_string(caller) + "] " + describe(request) + " -> " + describe(request, reply));
    }
    for (const Change& change : mTelevision.takeChanges()) {
        publish(change);
    }
    return reply;
}

void Service::publish(const Change& change) {
    if (mTrace != nullptr) {
        trace(describe(change));
    }
    const std::vector<std::int32_t> words = payloadOf(change);
    const int status = mPublisher.publish(change.slot->event, words.data(), words.size() * sizeof(words[0]));
    if (status != 0) {
        std::fprintf(stderr, "kelutv-simulator: event 0x%X was not published: %s\n", change.slot->event,
                     std::strerror(-status));
    }
}

void Service::trace(const std::string& line) {
    std::fprintf(mTrace, "%s\n", line.c_str());
    std::fflush(mTrace);
}

} // namespace simulator
