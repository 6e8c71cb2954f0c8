#include <binder/IServiceManager.h>

#include "Transport.h"
#include "Utf.h"
#include "socket/ProcessLife.h"

#include <android/log.h>
#include <binder/Binder.h>

#include <chrono>
#include <cstdlib>
#include <string>

namespace android {

namespace {

constexpr long kDefaultWait = 1000;
constexpr long kLongestWait = 60'000;

/** The time that one getService may wait, from KQDROID_SERVICE_WAIT_MS. */
std::chrono::milliseconds serviceWait() {
    const char* const text = std::getenv("KQDROID_SERVICE_WAIT_MS");
    if (text == nullptr) {
        return std::chrono::milliseconds(kDefaultWait);
    }
    char* end = nullptr;
    const long wait = std::strtol(text, &end, 10);
    if (end == text || *end != '\0' || wait < 0 || wait > kLongestWait) {
        __android_log_print(ANDROID_LOG_ERROR, "kqdroid",
                            "KQDROID_SERVICE_WAIT_MS is \"%s\", not a number from 0 to %ld; waiting %ld ms", text,
                            kLongestWait, kDefaultWait);
        return std::chrono::milliseconds(kDefaultWait);
    }
    return std::chrono::milliseconds(wait);
}

void tellOfMissing(const String16& name, const std::string& place) {
    if (!place.empty()) {
        __android_log_print(ANDROID_LOG_WARN, "kqdroid", "no service %s %s",
                            printable(name.string(), name.size()).c_str(), place.c_str());
    }
}

class ServiceManager : public IServiceManager {
public:
    sp<IBinder> getService(const String16& name) const override {
        if (!usable(name)) {
            return nullptr;
        }
        Transport& transport = Transport::get();
        sp<IBinder> found = transport.waitFor(name, serviceWait());
        if (found == nullptr) {
            tellOfMissing(name, transport.place());
        }
        return found;
    }

    sp<IBinder> checkService(const String16& name) const override {
        return usable(name) ? Transport::get().find(name) : nullptr;
    }

    status_t addService(const String16& name, const sp<IBinder>& service, bool allowIsolated,
                        int dumpsysFlags) override {
        if (kq::inForkedChild()) {
            return INVALID_OPERATION;
        }
        BBinder* const local = service == nullptr ? nullptr : service->localBinder();
        if (local == nullptr || name.size() == 0 || name.size() > kLongestServiceName) {
            return BAD_VALUE;
        }
        return Transport::get().publish(name, local, {allowIsolated, dumpsysFlags});
    }

    Vector<String16> listServices(int dumpsysFlags) override {
        return kq::inForkedChild() ? Vector<String16>() : Transport::get().names(dumpsysFlags);
    }

private:
    static bool usable(const String16& name) {
        return !kq::inForkedChild() && name.size() > 0 && name.size() <= kLongestServiceName;
    }
};

} // namespace

sp<IServiceManager> defaultServiceManager() {
    static const sp<IServiceManager>* const manager = new sp<IServiceManager>(new ServiceManager);
    return *manager;
}

} // namespace android
