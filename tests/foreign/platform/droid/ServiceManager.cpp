#include "foreign/platform/droid/RemoteObject.h"
#include "foreign/platform/droid/Utf8.h"

#include <android/log.h>
#include <binder/IServiceManager.h>

namespace foreign {

namespace {

class ServiceManager : public android::IServiceManager {
public:
    bool isDeclared(const android::String16& name) const override { return getService(name) != nullptr; }
    android::status_t forget(const android::String16& /*name*/) override { return android::NOT_SUPPORTED; }

    android::sp<android::IBinder> getService(const android::String16& name) const override {
        const std::string wanted = ascii(name.string());
        std::string reason;
        const std::shared_ptr<Remote> remote = route().find(wanted, reason);
        if (remote == nullptr) {
            __android_log_print(ANDROID_LOG_WARN, "foreign", "no %s: %s", wanted.c_str(), reason.c_str());
            return nullptr;
        }
        return new RemoteObject(remote);
    }

protected:
    android::IBinder* onAsBinder() override { return nullptr; }
};

} // namespace

} // namespace foreign

namespace android {

sp<IServiceManager> defaultServiceManager() {
    static const auto* const manager = new sp<IServiceManager>(new foreign::ServiceManager);
    return *manager;
}

} // namespace android
