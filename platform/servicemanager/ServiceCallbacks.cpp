#include "ServiceCallbacks.h"

#include "droid/BpBinder.h"
#include "droid/InterfaceToken.h"
#include "droid/kernel/ServiceManagerProtocol.h"

#include <binder/Parcel.h>

#include <algorithm>
#include <iterator>
#include <utility>

namespace servicemanager {

using android::BinderLevel;
using android::IBinder;
using android::NO_ERROR;
using android::Parcel;
using android::sp;
using android::status_t;
using android::wp;

namespace {

// Of all processes together.
constexpr size_t kMostCallbacks = 1024;

/** True when both stand for the same object: each parcel that brings it makes a proxy of its own. */
bool areSame(const sp<IBinder>& one, const sp<IBinder>& other) {
    if (one == other) {
        return true;
    }
    android::BpBinder* const first = one->remoteBinder();
    android::BpBinder* const second = other->remoteBinder();
    return first != nullptr && second != nullptr && first->object().handle() == second->object().handle();
}

} // namespace

class ServiceCallbacks::Mourner : public IBinder::DeathRecipient {
public:
    explicit Mourner(ServiceCallbacks& callbacks) : mCallbacks(callbacks) {}

    void binderDied(const wp<IBinder>& who) override { mCallbacks.removeDead(who); }

private:
    ServiceCallbacks& mCallbacks;
};

status_t ServiceCallbacks::add(const Name& name, const sp<IBinder>& callback) {
    const sp<IBinder::DeathRecipient> mourner = new Mourner(*this);
    {
        const std::lock_guard<std::mutex> lock(mMutex);
        if (mEntries.size() >= kMostCallbacks) {
            return android::NO_MEMORY;
        }
        mEntries.push_back({name, callback, mourner});
    }
    // Now that it can be taken out: its death may be told at once.
    const status_t status = callback->linkToDeath(mourner);
    if (status != NO_ERROR) {
        removeDead(callback);
    }
    return status;
}

bool ServiceCallbacks::remove(const Name& name, const sp<IBinder>& callback) {
    return take([&](const Entry& entry) { return entry.name == name && areSame(entry.callback, callback); });
}

void ServiceCallbacks::removeDead(const wp<IBinder>& who) {
    take([&who](const Entry& entry) { return who == wp<IBinder>(entry.callback); });
}

/** Takes out the entries of which something is true; false when there are none. They are dropped without the lock. */
template <typename Condition> bool ServiceCallbacks::take(const Condition& condition) {
    std::vector<Entry> taken;
    const std::lock_guard<std::mutex> lock(mMutex);
    const auto kept = std::stable_partition(mEntries.begin(), mEntries.end(),
                                            [&condition](const Entry& entry) { return !condition(entry); });
    std::move(kept, mEntries.end(), std::back_inserter(taken));
    mEntries.erase(kept, mEntries.end());
    return !taken.empty();
}

void ServiceCallbacks::tell(const Name& name, const sp<IBinder>& service, int32_t stability) {
    for (const sp<IBinder>& callback : of(name)) {
        tellOne(callback, name, service, stability);
    }
}

void ServiceCallbacks::tellOne(const sp<IBinder>& callback, const Name& name, const sp<IBinder>& service,
                               int32_t stability) {
    Parcel request;
    android::writeInterfaceToken(&request, BinderLevel::k30, android::serviceCallbackInterface());
    request.writeString16(name.data(), name.size());
    android::writeManagedObject(&request, BinderLevel::k30, service, stability);
    callback->transact(android::kOnRegistration, request, nullptr, IBinder::FLAG_ONEWAY);
}

std::vector<sp<IBinder>> ServiceCallbacks::of(const Name& name) {
    const std::lock_guard<std::mutex> lock(mMutex);
    std::vector<sp<IBinder>> callbacks;
    for (const Entry& entry : mEntries) {
        if (entry.name == name) {
            callbacks.push_back(entry.callback);
        }
    }
    return callbacks;
}

} // namespace servicemanager
