#pragma once

#include <binder/Binder.h>

#include <sys/types.h>

#include <map>
#include <mutex>
#include <set>
#include <string>
#include <vector>

namespace android {
class KernelBinder;
}

namespace servicemanager {

/** The services of the system by name: what stands behind handle 0. */
class ServiceRegistry : public android::BBinder {
public:
    /** `registrars`: the users that may add services. */
    ServiceRegistry(android::KernelBinder& binder, std::set<uid_t> registrars);

    const android::String16& getInterfaceDescriptor() const override;

protected:
    android::status_t onTransact(uint32_t code, const android::Parcel& data, android::Parcel* reply,
                                 uint32_t flags) override;

private:
    using Name = std::u16string;
    class Mourner;

    struct Service {
        android::sp<android::IBinder> object;
        bool allowIsolated;
        int32_t dumpPriorities;
        android::sp<android::IBinder::DeathRecipient> mourner;
    };

    android::sp<android::IBinder> find(const Name& name, uid_t caller);
    android::status_t add(const android::Parcel& data, uid_t caller);
    android::status_t enter(const Name& name, Service service);
    android::status_t list(int32_t index, int32_t dumpPriorities, android::Parcel* reply);
    void remove(const Name& name, const android::wp<android::IBinder>& object);
    bool mayAdd(const Name& name, uid_t caller) const;

    android::KernelBinder& mBinder;
    const std::set<uid_t> mRegistrars;
    std::mutex mMutex;
    std::map<Name, Service> mServices;
};

} // namespace servicemanager
