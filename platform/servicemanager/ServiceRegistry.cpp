#include "ServiceRegistry.h"

#include "droid/ParcelObjects.h"
#include "droid/Transport.h"
#include "droid/Utf.h"
#include "droid/kernel/KernelBinder.h"
#include "droid/kernel/ServiceManagerProtocol.h"

#include <android/log.h>
#include <binder/IPCThreadState.h>
#include <binder/Parcel.h>

#include <new>
#include <utility>

namespace servicemanager {

using android::BAD_VALUE;
using android::IBinder;
using android::NO_ERROR;
using android::Parcel;
using android::sp;
using android::status_t;
using android::String16;
using android::wp;

namespace {

constexpr const char* kTag = "kqservicemanager";
// Users come in ranges of this size; the isolated ones are the last of each.
constexpr uid_t kUsersPerRange = 100'000;
constexpr uid_t kFirstIsolated = 99'000;
constexpr status_t kEndOfList = -1;

bool isIsolated(uid_t user) { return user % kUsersPerRange >= kFirstIsolated; }

bool isUsable(const std::u16string& name) { return !name.empty() && name.size() <= android::kLongestServiceName; }

std::u16string readName(const Parcel& data) {
    const String16 name = data.readString16();
    return {name.string(), name.size()};
}

std::string printable(const std::u16string& name) { return android::printable(name.data(), name.size()); }

} // namespace

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

ServiceRegistry::ServiceRegistry(android::KernelBinder& binder, std::set<uid_t> registrars)
    : mBinder(binder), mRegistrars(std::move(registrars)) {}

const String16& ServiceRegistry::getInterfaceDescriptor() const { return android::serviceManagerInterface(); }

status_t ServiceRegistry::onTransact(uint32_t code, const Parcel& data, Parcel* reply, uint32_t flags) {
    if (code < android::kGetService || code > android::kListServices || reply == nullptr) {
        return BBinder::onTransact(code, data, reply, flags);
    }
    if (!android::readManagerToken(data)) {
        return android::PERMISSION_DENIED;
    }
    const uid_t caller = android::IPCThreadState::self()->getCallingUid();
    switch (code) {
    case android::kAddService: {
        const status_t status = add(data, caller);
        return status == NO_ERROR ? reply->writeInt32(0) : status;
    }
    case android::kListServices: {
        const int32_t index = data.readInt32();
        return list(index, data.readInt32(), reply);
    }
    default:
        return android::ParcelObjects::write(reply, find(readName(data), caller));
    }
}

sp<IBinder> ServiceRegistry::find(const Name& name, uid_t caller) {
    const std::lock_guard<std::mutex> lock(mMutex);
    const auto service = mServices.find(name);
    if (service == mServices.end() || (isIsolated(caller) && !service->second.allowIsolated)) {
        return nullptr;
    }
    return service->second.object;
}

bool ServiceRegistry::mayAdd(const Name& name, uid_t caller) const {
    if (mRegistrars.count(caller) != 0) {
        return true;
    }
    __android_log_print(ANDROID_LOG_ERROR, kTag, "uid %u may not add the service %s", static_cast<unsigned>(caller),
                        printable(name).c_str());
    return false;
}

status_t ServiceRegistry::add(const Parcel& data, uid_t caller) {
    const Name name = readName(data);
    const sp<IBinder> object = mBinder.readObject(data);
    if (!isUsable(name) || object == nullptr) {
        return BAD_VALUE;
    }
    if (!mayAdd(name, caller)) {
        return android::PERMISSION_DENIED;
    }
    const bool allowIsolated = data.readInt32() != 0;
    return enter(name, {object, allowIsolated, data.readInt32(), new Mourner(*this, name)});
}

status_t ServiceRegistry::enter(const Name& name, Service service) {
    const sp<IBinder> object = service.object;
    if (const status_t status = object->linkToDeath(service.mourner); status != NO_ERROR) {
        return status;
    }
    {
        const std::lock_guard<std::mutex> lock(mMutex);
        // What stood there goes with the argument, after the lock, and its death link with it.
        std::swap(mServices[name], service);
    }
    if (service.object != nullptr) {
        __android_log_print(ANDROID_LOG_INFO, kTag, "the service %s is replaced", printable(name).c_str());
    }
    if (!object->isBinderAlive()) {
        // Its death came before it could be found here.
        remove(name, object);
    }
    return NO_ERROR;
}

status_t ServiceRegistry::list(int32_t index, int32_t dumpPriorities, Parcel* reply) {
    const std::lock_guard<std::mutex> lock(mMutex);
    for (const auto& [name, service] : mServices) {
        if ((service.dumpPriorities & dumpPriorities) != 0 && index-- == 0) {
            return reply->writeString16(name.data(), name.size());
        }
    }
    return kEndOfList;
}

void ServiceRegistry::remove(const Name& name, const wp<IBinder>& object) {
    Service gone{};
    {
        const std::lock_guard<std::mutex> lock(mMutex);
        const auto service = mServices.find(name);
        if (service == mServices.end() || wp<IBinder>(service->second.object) != object) {
            return;
        }
        gone = std::move(service->second);
        mServices.erase(service);
    }
    __android_log_print(ANDROID_LOG_INFO, kTag, "the process of the service %s is gone", printable(name).c_str());
}

} // namespace servicemanager
