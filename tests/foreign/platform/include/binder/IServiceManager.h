#pragma once

#include <binder/IInterface.h>

namespace android {

/** Where services are found. */
class FOREIGN_API IServiceManager : public IInterface {
public:
    IServiceManager();
    ~IServiceManager() override;

    virtual bool isDeclared(const String16& name) const = 0;
    virtual status_t forget(const String16& name) = 0;
    /** Looks once and waits for nothing. */
    virtual sp<IBinder> getService(const String16& name) const = 0;
};

FOREIGN_API sp<IServiceManager> defaultServiceManager();

} // namespace android
