#include "ServiceRegistry.h"

#include "droid/Utf.h"

#include <android/log.h>

#include <new>
#include <utility>

namespace servicemanager {

using android::IBinder;
using android::NO_ERROR;
using android::sp;
using android::status_t;
using android::wp;

namespace {

constexpr const char* kTag = "kqservicemanager";
// Users come in ranges of this size; the isolated ones are the last of each.
constexpr uid_t kUsersPerRange = 100'000;
constexpr uid_t kFirstIsolated = 99'000;

std::string printable(const std::u16string& name) { return android::printable(name.data(), name.size()); }

} // namespace

bool isIsolated(uid_t user) { return user % kUsersPerRange >= kFirstIsolated; }

/** Takes a service out of the registry when its process goes away. */
class ServiceRegistry::Mourner : public IBinder::DeathRecipient {
public:
    Mourner(ServiceRegistry& registry, Name name) : mRegistry(registry), mName(std::move(name)) {}

    void binderDied(const wp<IBinder>& who) override {
        try {
            mRegistry.remove(mName, who);
        } catch (const std::bad_alloc&) {
            // It is removed; only the line that says so cannot be written.
        }
    }

private:
    ServiceRegistry& mRegistry;
    const Name mName;
};

ServiceRegistry::ServiceRegistry(std::set<uid_t> registrars) : mRegistrars(std::move(registrars)) {}

Service ServiceRegistry::find(const Name& name, uid_t caller) {
    const std::lock_guard<std::mutex> lock(mMutex);
    const auto entry = mServices.find(name);
    if (entry == mServices.end() || (isIsolated(caller) && !entry->second.service.allowIsolated)) {
        return {};
    }
    return entry->second.service;
}

bool ServiceRegistry::mayAdd(const Name& name, uid_t caller) const {
    if (mRegistrars.count(caller) != 0) {
        return true;
    }
    __android_log_print(ANDROID_LOG_ERROR, kTag, "uid %u may not add the service %s", static_cast<unsigned>(caller),
                        printable(name).c_str());
    return false;
}

status_t ServiceRegistry::add(const Name& name, const Service& service) {
    Entry entry{service, new Mourner(*this, name)};
    if (const status_t status = service.object->linkToDeath(entry.mourner); status != NO_ERROR) {
        return status;
    }
    {
        const std::lock_guard<std::mutex> lock(mMutex);
        // What stood there goes after the lock, and its death link with it.
        std::swap(mServices[name], entry);
    }
    if (entry.service.object != nullptr) {
        __android_log_print(ANDROID_LOG_INFO, kTag, "the service %s is replaced", printable(name).c_str());
    }
    if (!service.object->isBinderAlive()) {
        // Its death came before it could be found here.
        remove(name, service.object);
        return NO_ERROR;
    }
    mCallbacks.tell(name, service.object, service.stability);
    return NO_ERROR;
}

std::vector<ServiceRegistry::Name> ServiceRegistry::names(int32_t dumpPriorities) {
    const std::lock_guard<std::mutex> lock(mMutex);
    std::vector<Name> names;
    for (const auto& [name, entry] : mServices) {
        if ((entry.service.dumpPriorities & dumpPriorities) != 0) {
            names.push_back(name);
        }
    }
    return names;
}

status_t ServiceRegistry::addCallback(const Name& name, const sp<IBinder>& callback) {
    const status_t status = mCallbacks.add(name, callback);
    if (status != NO_ERROR) {
        return status;
    }
    Service there{};
    {
        const std::lock_guard<std::mutex> lock(mMutex);
        if (const auto entry = mServices.find(name); entry != mServices.end()) {
            there = entry->second.service;
        }
    }
    if (there.object != nullptr) {
        ServiceCallbacks::tellOne(callback, name, there.object, there.stability);
    }
    return NO_ERROR;
}

bool ServiceRegistry::removeCallback(const Name& name, const sp<IBinder>& callback) {
    return mCallbacks.remove(name, callback);
}

void ServiceRegistry::remove(const Name& name, const wp<IBinder>& object) {
    Entry gone;
    {
        const std::lock_guard<std::mutex> lock(mMutex);
        const auto entry = mServices.find(name);
        if (entry == mServices.end() || wp<IBinder>(entry->second.service.object) != object) {
            return;
        }
        gone = std::move(entry->second);
        mServices.erase(entry);
    }
    __android_log_print(ANDROID_LOG_INFO, kTag, "the process of the service %s is gone", printable(name).c_str());
}

} // namespace servicemanager
