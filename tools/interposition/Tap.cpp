#include "tools/interposition/Tap.h"

#include <kelutv/link/TVBaseClient.h>

#include <dlfcn.h>

#include <atomic>

namespace kelutv::interposition {

namespace {

std::atomic<Observer> observer{nullptr};
std::atomic<Responder> responder{nullptr};

} // namespace

void setObserver(Observer next) { observer.store(next); }

void setResponder(Responder next) { responder.store(next); }

Transaction copyOf(const TransactionView& view) {
    return {view.start,
            view.duration,
            view.status,
            {view.request, view.request + view.requestSize},
            {view.reply, view.reply + view.replySize}};
}

namespace {

using android::Parcel;
using android::status_t;
using android::TVBaseClient;
using Service = android::sp<android::ITVBaseService>;
using Invoke = status_t (*)(TVBaseClient*, const Parcel&, Parcel*);

/** Where several taps are at work, each hands on to the next, and the last to the library's own. */
Invoke nextInvoke() {
    static const auto next =
        reinterpret_cast<Invoke>(::dlsym(RTLD_NEXT, "_ZN7android12TVBaseClient6invokeERKNS_6ParcelEPS1_"));
    return next;
}

/** A library that the program opened for itself is not among those looked through: then its work is done here. */
status_t send(TVBaseClient& client, const Service& service, const Parcel& request, Parcel* reply) {
    if (const Responder respond = responder.load()) {
        return respond(request, reply);
    }
    if (const Invoke next = nextInvoke()) {
        return next(&client, request, reply);
    }
    return service == nullptr ? android::DEAD_OBJECT : service->invoke(request, reply);
}

status_t sendObserved(TVBaseClient& client, const Service& service, const Parcel& request, Parcel* reply,
                      Observer notify) {
    const auto start = std::chrono::system_clock::now();
    const auto begin = std::chrono::steady_clock::now();
    const status_t status = send(client, service, request, reply);
    const bool replied = status == android::NO_ERROR && reply != nullptr;
    notify({start, std::chrono::steady_clock::now() - begin, status, request.data(), request.dataSize(),
            replied ? reply->data() : nullptr, replied ? reply->dataSize() : 0});
    return status;
}

status_t transact(TVBaseClient& client, const Service& service, const Parcel& request, Parcel* reply) {
    const Observer notify = observer.load();
    return notify == nullptr ? send(client, service, request, reply)
                             : sendObserved(client, service, request, reply, notify);
}

} // namespace

} // namespace kelutv::interposition

namespace android {

/** Goes before the client library's own: does the same, with no symbol of that library, and calls the observer. */
KELUTV_API status_t TVBaseClient::invoke(const Parcel& request, Parcel* reply) {
    return kelutv::interposition::transact(*this, mBpTvbaseService, request, reply);
}

} // namespace android
