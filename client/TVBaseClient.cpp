#include <kelutv/link/DeathNotifier.h>
#include <kelutv/link/TVBaseClient.h>

#include "EventModules.h"
#include "Failures.h"

#include <binder/IServiceManager.h>
#include <keluem/emal.h>

#include <cstdio>

namespace android {

using kelutv::internal::allocating;
using kelutv::internal::kLinkTag;

namespace {

constexpr const char* kServiceName = "TVBaseService";
constexpr int kLastTry = 4;

sp<IBinder> findService() {
    for (int tries = 0; tries <= kLastTry; ++tries) {
        std::fprintf(stderr, "D/TvbaseClient %s() Try get %s next times [%d]\n", "TVBaseClient", kServiceName, tries);
        if (const sp<IBinder> binder = defaultServiceManager()->getService(String16(kServiceName)); binder != nullptr) {
            return binder;
        }
    }
    return nullptr;
}

int subscribeToEvents() {
    int result = 0;
    for (const KELU_EM_MODE_E module : kelutv::internal::kEventModules) {
        result |= EMAL_AddListener(module, TVBaseClient::eventNotify);
    }
    return result;
}

} // namespace

TVBaseClient::EventCallback TVBaseClient::mEventCallback = nullptr;

TVBaseClient* TVBaseClient::self() {
    static TVBaseClient mObj;
    return &mObj;
}

TVBaseClient::TVBaseClient() {
    allocating([this] {
        const sp<IBinder> binder = findService();
        if (binder == nullptr) {
            std::fprintf(stderr, "E/TvbaseClient %s() Get %s failed\n", "TVBaseClient", kServiceName);
            return;
        }
        mDeathRecipient = new DeathNotifier;
        binder->linkToDeath(mDeathRecipient, nullptr, 0);
        mBpTvbaseService = interface_cast<ITVBaseService>(binder);
        __android_log_print(ANDROID_LOG_DEBUG, kLinkTag, "ret = %d", subscribeToEvents());
    });
}

TVBaseClient::~TVBaseClient() = default;

status_t TVBaseClient::invoke(const Parcel& request, Parcel* reply) {
    if (mBpTvbaseService == nullptr) {
        return DEAD_OBJECT;
    }
    return allocating([&] { return mBpTvbaseService->invoke(request, reply); });
}

sp<ITVBaseService>& TVBaseClient::getBpTvbaseService() { return mBpTvbaseService; }

sp<IBinder::DeathRecipient>& TVBaseClient::getDeathRecipient() { return mDeathRecipient; }

void TVBaseClient::registCallback(void (*callback)(unsigned int, void*, unsigned int, void*)) {
    // Applications change the callback while events come in. Each side touches the plain pointer once, whole.
    __atomic_store_n(&mEventCallback, callback, __ATOMIC_RELEASE);
}

void TVBaseClient::eventNotify(unsigned int eventId, void* msg, unsigned int msgLength, void* prev) {
    const EventCallback callback = __atomic_load_n(&mEventCallback, __ATOMIC_ACQUIRE);
    if (callback != nullptr) {
        callback(eventId, msg, msgLength, prev);
    }
}

} // namespace android
