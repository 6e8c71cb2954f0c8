#pragma once

#include "ServiceRegistry.h"

#include <binder/Binder.h>

#include <sys/types.h>

#include <set>

namespace android {
class KernelBinder;
}

namespace servicemanager {

/** What stands behind handle 0. Answers each request as the manager of the level that its token is of. */
class Manager : public android::BBinder {
public:
    /** `registrars`: the users that may add services. */
    Manager(android::KernelBinder& binder, std::set<uid_t> registrars);

    const android::String16& getInterfaceDescriptor() const override;

protected:
    android::status_t onTransact(uint32_t code, const android::Parcel& data, android::Parcel* reply,
                                 uint32_t flags) override;

private:
    android::KernelBinder& mBinder;
    ServiceRegistry mRegistry;
};

} // namespace servicemanager
