#include "KernelBinder.h"

#include "KernelConversation.h"
#include "KernelObject.h"
#include "droid/BpBinder.h"
#include "droid/LocalObjects.h"
#include "droid/ParcelObjects.h"
#include "socket/Descriptors.h"
#include "socket/QuietThread.h"

#include <android/log.h>

#include <cstring>
#include <utility>

namespace android {

namespace {

// Beyond this many and the first, callers wait until a thread is free.
constexpr uint32_t kMostFurtherThreads = 1023;
constexpr const char* kServerThread = "kq:binder";
constexpr std::chrono::milliseconds kPauseWithoutThreads{100};

void logFailure(int error) {
    if (error != 0) {
        __android_log_print(ANDROID_LOG_ERROR, "kqdroid", "starting thread %s: %s", kServerThread,
                            std::strerror(error));
    }
}

} // namespace

KernelBinder::KernelBinder(std::unique_ptr<BinderDriver> driver)
    : mDriver(std::move(driver)), mOwed(*mDriver), mHandles(*mDriver, mOwed) {
    kq::watchForks();
    uint32_t threads = kMostFurtherThreads;
    mDriver->control(BINDER_SET_MAX_THREADS, &threads);
}

int KernelBinder::becomeContextManager(sp<BBinder> object) {
    const std::lock_guard<std::mutex> lock(mMutex);
    std::swap(mContextObject, object);
    int32_t unused = 0;
    return mDriver->control(BINDER_SET_CONTEXT_MGR, &unused);
}

sp<BBinder> KernelBinder::target(binder_uintptr_t number) {
    if (number != 0) {
        return LocalObjects::instance().find(number);
    }
    const std::lock_guard<std::mutex> lock(mMutex);
    return mContextObject;
}

/** A thread that serves: 0 or an errno value. */
int KernelBinder::startServer(uint32_t entry) {
    return kq::startDetachedThread(kServerThread, kq::kDefaultStack,
                                   [this, entry] { KernelConversation(*this).serve(entry); });
}

bool KernelBinder::startServing() {
    // A thread that a forked child does not have may hold the lock.
    if (kq::inForkedChild()) {
        return false;
    }
    int error = 0;
    {
        const std::lock_guard<std::mutex> lock(mMutex);
        error = mServing ? 0 : startServer(BC_ENTER_LOOPER);
        mServing = error == 0;
    }
    logFailure(error);
    return error == 0;
}

bool KernelBinder::startTelling() { return mTeller.start() && startServing(); }

void KernelBinder::addServer() {
    int error = 0;
    {
        const std::lock_guard<std::mutex> lock(mMutex);
        mServerTried = std::chrono::steady_clock::now();
        error = startServer(BC_REGISTER_LOOPER);
        mServerOwed = error != 0;
    }
    logFailure(error);
}

bool KernelBinder::serverIsDue() {
    const std::lock_guard<std::mutex> lock(mMutex);
    return std::chrono::steady_clock::now() - mServerTried >= kPauseWithoutThreads && mServerOwed.exchange(false);
}

void KernelBinder::died(binder_uintptr_t cookie) { mTeller.tell(mHandles.died(cookie)); }

sp<IBinder> KernelBinder::readObject(const Parcel& parcel) {
    return ParcelObjects::read(parcel, [this](uint32_t handle) -> sp<IBinder> {
        std::unique_ptr<KernelObject> object = KernelObject::hold(*this, handle);
        return object == nullptr ? nullptr : new BpBinder(std::move(object));
    });
}

} // namespace android
