#include "Registrations.h"

#include "KernelBinder.h"
#include "KernelConversation.h"
#include "KernelObject.h"
#include "ServiceManagerProtocol.h"
#include "droid/Utf.h"
#include "socket/QuietThread.h"

#include <android/log.h>
#include <binder/Parcel.h>

#include <algorithm>
#include <chrono>
#include <cstring>
#include <new>
#include <thread>

namespace android {

namespace {

constexpr const char* kTag = "kqdroid";
constexpr std::chrono::milliseconds kFirstPause{10};
constexpr std::chrono::milliseconds kLongestPause{1000};

} // namespace

status_t Registrations::add(const Service& service) {
    if (isUnwatched() && managerIsThere()) {
        if (const status_t status = watchManager(); status != NO_ERROR) {
            return status;
        }
    }
    const unsigned asked = manager();
    const status_t status = mAdd(service);
    if (status == NO_ERROR && !keep(service, asked)) {
        // The manager that knows it may have ended since.
        startRenewing();
    }
    return status;
}

bool Registrations::watch() {
    {
        const std::lock_guard<std::mutex> lock(mMutex);
        mWatches = true;
        if (mWatched != nullptr || mEntries.empty()) {
            return true;
        }
    }
    if (!managerIsThere()) {
        managerEnded();
        return true;
    }
    if (watchManager() == NO_ERROR) {
        return true;
    }
    __android_log_print(ANDROID_LOG_ERROR, kTag, "the end of the service manager cannot be watched for");
    return false;
}

bool Registrations::isUnwatched() {
    const std::lock_guard<std::mutex> lock(mMutex);
    return mWatches && mWatched == nullptr;
}

bool Registrations::managerIsThere() {
    Parcel reply;
    return KernelConversation(mBinder).call(kServiceManagerHandle, IBinder::PING_TRANSACTION, Parcel(), &reply, 0) !=
           DEAD_OBJECT;
}

/** For a manager that is there: the driver refuses, with a line in the kernel's log, to hold one that is not. */
status_t Registrations::watchManager() {
    const std::shared_ptr<KernelObject> held = KernelObject::hold(mBinder, kServiceManagerHandle);
    if (held == nullptr) {
        return NO_MEMORY;
    }
    {
        const std::lock_guard<std::mutex> lock(mMutex);
        if (mWatched != nullptr) {
            return NO_ERROR;
        }
        mWatched = held;
    }
    const status_t status = held->watch([this] { managerEnded(); });
    if (status != NO_ERROR) {
        const std::lock_guard<std::mutex> lock(mMutex);
        mWatched.reset();
    }
    return status;
}

void Registrations::managerEnded() {
    std::shared_ptr<KernelObject> ended;
    {
        const std::lock_guard<std::mutex> lock(mMutex);
        ended.swap(mWatched);
        ++mManager;
    }
    // The next manager gets handle 0 only when this one is let go.
    ended.reset();
    startRenewing();
}

void Registrations::startRenewing() {
    {
        const std::lock_guard<std::mutex> lock(mMutex);
        if (std::exchange(mRenewing, true)) {
            return;
        }
    }
    const int error = kq::startDetachedThread("kq:renew", kq::kDefaultStack, [this] { renew(); });
    if (error != 0) {
        __android_log_print(ANDROID_LOG_ERROR, kTag, "services will be unknown to the next service manager: %s",
                            std::strerror(error));
        const std::lock_guard<std::mutex> lock(mMutex);
        mRenewing = false;
    }
}

/** Nobody tells of a manager that comes. */
void Registrations::renew() {
    std::chrono::milliseconds pause = kFirstPause;
    while (!renewAll()) {
        std::this_thread::sleep_for(pause);
        pause = std::min(2 * pause, kLongestPause);
    }
}

/** True when the manager that is there has been told of everything. */
bool Registrations::renewAll() {
    try {
        if (!managerIsThere() || watchManager() != NO_ERROR) {
            return false;
        }
        const unsigned asked = manager();
        for (const Service& service : unknownTo(asked)) {
            const status_t status = mAdd(service);
            if (status == DEAD_OBJECT) {
                return false;
            }
            if (status == NO_ERROR) {
                __android_log_print(ANDROID_LOG_INFO, kTag, "added %s to the new service manager",
                                    printable(service.name.string(), service.name.size()).c_str());
            }
            // One that refuses it is not asked again.
            keep(service, asked);
        }
        return finished();
    } catch (const std::bad_alloc&) {
        return false;
    }
}

bool Registrations::finished() {
    const std::lock_guard<std::mutex> lock(mMutex);
    const bool all =
        std::all_of(mEntries.begin(), mEntries.end(), [this](const Entry& entry) { return entry.manager == mManager; });
    mRenewing = !all;
    return all;
}

std::vector<Registrations::Service> Registrations::unknownTo(unsigned manager) {
    const std::lock_guard<std::mutex> lock(mMutex);
    std::vector<Service> unknown;
    for (const Entry& entry : mEntries) {
        if (entry.manager != manager) {
            unknown.push_back(entry.service);
        }
    }
    return unknown;
}

/** Notes that a manager knows the service; false when that has ended. */
bool Registrations::keep(const Service& service, unsigned manager) {
    // Dropped after the lock, since an object may go with it.
    Service replaced = service;
    const std::lock_guard<std::mutex> lock(mMutex);
    const auto entry = std::find_if(mEntries.begin(), mEntries.end(),
                                    [&service](const Entry& one) { return one.service.name == service.name; });
    if (entry == mEntries.end()) {
        mEntries.push_back({service, manager});
    } else {
        std::swap(entry->service, replaced);
        entry->manager = manager;
    }
    return manager == mManager;
}

unsigned Registrations::manager() {
    const std::lock_guard<std::mutex> lock(mMutex);
    return mManager;
}

} // namespace android
