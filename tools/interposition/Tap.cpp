#include "tools/interposition/Tap.h"

#include "tools/interposition/Next.h"

#include <kelutv/link/BpTVBaseService.h>
#include <kelutv/link/TVBaseClient.h>

#include <dlfcn.h>

#include <atomic>
#include <utility>

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

/** The request that this thread observes: it may pass both functions below, and is one transaction. */
thread_local const Parcel* observed = nullptr;

/** While this lives, the request is observed. */
class Observation {
public:
    explicit Observation(const Parcel& request) : mBefore(std::exchange(observed, &request)) {}
    ~Observation() { observed = mBefore; }
    Observation(const Observation&) = delete;
    Observation& operator=(const Observation&) = delete;

private:
    const Parcel* mBefore;
};

/**
 * What is used of the platform may be functions of its libraries. Where a program opened the client library for itself
 * alone, nobody else finds those; from then on everybody does.
 */
bool shareLibraryOf(const void* object) {
    Dl_info library{};
    // An object begins with the address of its virtual table, which is in the library.
    return ::dladdr(*static_cast<void* const*>(object), &library) != 0 &&
           ::dlopen(library.dli_fname, RTLD_LAZY | RTLD_NOLOAD | RTLD_GLOBAL) != nullptr;
}

template <typename Send> status_t answer(const Parcel& request, Parcel* reply, Send send) {
    const Responder respond = responder.load();
    return respond != nullptr ? respond(request, reply) : send();
}

template <typename Send> status_t observe(const Parcel& request, Parcel* reply, Observer notify, Send send) {
    const Observation observation(request);
    const auto start = std::chrono::system_clock::now();
    const auto begin = std::chrono::steady_clock::now();
    const status_t status = answer(request, reply, send);
    const bool replied = status == android::NO_ERROR && reply != nullptr;
    notify({start, begin, std::chrono::steady_clock::now() - begin, status, request.data(), request.dataSize(),
            replied ? reply->data() : nullptr, replied ? reply->dataSize() : 0});
    return status;
}

template <typename Send> status_t transact(const Parcel& request, Parcel* reply, Send send) {
    const Observer notify = observer.load();
    return notify == nullptr || observed == &request ? answer(request, reply, send)
                                                     : observe(request, reply, notify, send);
}

} // namespace

} // namespace kelutv::interposition

/*
 * Both go before the client library's own and use no symbol of that library. Where several taps are at work, each hands
 * on to the next, and the last to the library's own. A library that the program opened for itself is not among those
 * looked through: then its work is done here.
 */
namespace android {

using kelutv::interposition::next;
using kelutv::interposition::shareLibraryOf;
using kelutv::interposition::transact;

KELUTV_API status_t TVBaseClient::invoke(const Parcel& request, Parcel* reply) {
    return transact(request, reply, [&]() -> status_t {
        using Invoke = status_t (*)(TVBaseClient*, const Parcel&, Parcel*);
        static const auto library = next<Invoke>("_ZN7android12TVBaseClient6invokeERKNS_6ParcelEPS1_");
        if (library != nullptr) {
            return library(this, request, reply);
        }
        [[maybe_unused]] static const bool isShared = shareLibraryOf(this);
        return mBpTvbaseService == nullptr ? DEAD_OBJECT : mBpTvbaseService->invoke(request, reply);
    });
}

KELUTV_API status_t BpTVBaseService::invoke(const Parcel& request, Parcel* reply) {
    return transact(request, reply, [&]() -> status_t {
        using Invoke = status_t (*)(BpTVBaseService*, const Parcel&, Parcel*);
        static const auto library = next<Invoke>("_ZN7android15BpTVBaseService6invokeERKNS_6ParcelEPS1_");
        if (library != nullptr) {
            return library(this, request, reply);
        }
        [[maybe_unused]] static const bool isShared = shareLibraryOf(this);
        return remote()->transact(IBinder::FIRST_CALL_TRANSACTION, request, reply, 0);
    });
}

} // namespace android
