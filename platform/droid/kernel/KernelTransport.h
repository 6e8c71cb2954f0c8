#pragma once

#include "KernelBinder.h"
#include "Registrations.h"
#include "droid/Transport.h"

#include <atomic>
#include <memory>

namespace android {

/** Calls through the kernel's binder driver; services are found through the system's service manager. */
class KernelTransport : public Transport {
public:
    explicit KernelTransport(std::unique_ptr<BinderDriver> driver);

    sp<IBinder> find(const String16& name) override;
    sp<IBinder> waitFor(const String16& name, std::chrono::milliseconds time) override;
    status_t publish(const String16& name, const sp<BBinder>& object, const ServiceTraits& traits) override;
    Vector<String16> names(int dumpPriorities) override;
    std::string place() const override { return "at the service manager behind the kernel's binder driver"; }
    bool serve() override;

private:
    status_t askManager(uint32_t code, const Parcel& request, Parcel* reply);
    status_t add(const Registrations::Service& service);
    Vector<String16> namesOneByOne(int dumpPriorities);
    Vector<String16> namesAtOnce(int dumpPriorities);
    sp<IBinder> look(const String16& name, status_t* status);
    bool takenByAnother(const String16& name);

    KernelBinder mBinder;
    Registrations mRegistrations;
    std::atomic<bool> mAsked{false};
};

} // namespace android
