#include "Service.h"

#include "Request.h"
#include "Trace.h"

#include <binder/IPCThreadState.h>
#include <binder/Parcel.h>

#include <cstring>

namespace simulator {

using android::Parcel;
using android::status_t;

namespace {

Notice noticeOf(const Change& change) {
    std::string payload;
    for (const Scalars& scalars : {change.keys, change.values}) {
        for (const Scalar& scalar : scalars) {
            payload += payloadOf({std::get<std::int32_t>(scalar)});
        }
    }
    return {change.slot->event, payload, describe(change)};
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
    publishNews();
    return reply;
}

void Service::control(const std::string& line) {
    const std::lock_guard<std::mutex> lock(mMutex);
    if (const auto complaint = mTelevision.control(line)) {
        std::fprintf(stderr, "kelutv-simulator: %s\n", complaint->c_str());
        return;
    }
    publishNews();
}

void Service::publishNews() {
    for (const Change& change : mTelevision.takeChanges()) {
        publish(noticeOf(change));
    }
    for (const Notice& notice : mTelevision.takeNotices()) {
        publish(notice);
    }
}

void Service::publish(const Notice& notice) {
    if (mTrace != nullptr) {
        char identifier[32];
        std::snprintf(identifier, sizeof(identifier), "event 0x%X: ", notice.event);
        trace(identifier + notice.text);
    }
    const int status = mPublisher.publish(notice.event, notice.payload.data(), notice.payload.size());
    if (status != 0) {
        std::fprintf(stderr, "kelutv-simulator: event 0x%X was not published: %s\n", notice.event,
                     std::strerror(-status));
    }
}

void Service::trace(const std::string& line) {
    std::fprintf(mTrace, "%s\n", line.c_str());
    std::fflush(mTrace);
}

} // namespace simulator
