#include "droid/kernel/KernelTransport.h"
#include "droid/sockets/SocketTransport.h"

#include <android/log.h>

#include <unistd.h>

#include <cstdlib>
#include <memory>
#include <string>

namespace android {

namespace {

constexpr const char* kTag = "kqdroid";
constexpr const char* kKernel = "kernel";
constexpr const char* kSockets = "sockets";

/** Stands where calls were to go through the kernel and cannot. */
class NoTransport : public Transport {
public:
    sp<IBinder> find(const String16&) override { return nullptr; }
    sp<IBinder> waitFor(const String16&, std::chrono::milliseconds) override { return nullptr; }
    status_t publish(const String16&, const sp<BBinder>&, const ServiceTraits&) override { return NO_INIT; }
    Vector<String16> names(int) override { return {}; }
    bool serve() override { return false; }
};

std::string variable(const char* name) {
    const char* const value = std::getenv(name);
    return value == nullptr ? "" : value;
}

/** "kernel", "sockets", or empty for what there is. */
std::string transportAsked() {
    const std::string asked = variable("KQDROID_TRANSPORT");
    if (!asked.empty() && asked != kKernel && asked != kSockets) {
        __android_log_print(ANDROID_LOG_ERROR, kTag,
                            "KQDROID_TRANSPORT is \"%s\", not kernel or sockets; taking what there is", asked.c_str());
        return "";
    }
    return asked;
}

std::string binderDevice() {
    const std::string named = variable("KQDROID_BINDER_DEVICE");
    return named.empty() ? "/dev/binder" : named;
}

Transport* choose() {
    const std::string asked = transportAsked();
    std::string problem = "as asked for";
    std::unique_ptr<BinderDevice> device = asked == kSockets ? nullptr : BinderDevice::open(binderDevice(), &problem);
    if (device != nullptr) {
        __android_log_print(ANDROID_LOG_VERBOSE, kTag, "calls go through %s", binderDevice().c_str());
        return new KernelTransport(std::move(device));
    }
    if (asked == kKernel) {
        __android_log_print(ANDROID_LOG_ERROR, kTag, "calls are to go through the kernel's binder driver: %s",
                            problem.c_str());
        return new NoTransport;
    }
    // A driver that is there and of no use is worth a word.
    const bool expected = asked == kSockets || ::access(binderDevice().c_str(), F_OK) != 0;
    __android_log_print(expected ? ANDROID_LOG_VERBOSE : ANDROID_LOG_WARN, kTag, "calls go through sockets (%s)",
                        problem.c_str());
    return new SocketTransport;
}

} // namespace

Transport& Transport::get() {
    // Never destroyed: calls may be under way while the process exits.
    static Transport* const transport = choose();
    return *transport;
}

} // namespace android
