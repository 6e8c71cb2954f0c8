#include "droid/BinderLevel.h"
#include "droid/kernel/KernelTransport.h"
#include "droid/sockets/SocketTransport.h"

#include <android/log.h>

#include <unistd.h>

#include <atomic>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

namespace android {

namespace {

constexpr const char* kTag = "kqdroid";
constexpr const char* kDeviceVariable = "KQDROID_BINDER_DEVICE";
constexpr const char* kKernel = "kernel";
constexpr const char* kSockets = "sockets";

/** Stands where calls were to go through the kernel and cannot. */
class NoTransport : public Transport {
public:
    sp<IBinder> find(const String16&) override { return nullptr; }
    sp<IBinder> waitFor(const String16&, std::chrono::milliseconds) override { return nullptr; }
    status_t publish(const String16&, const sp<BBinder>&, const ServiceTraits&) override { return NO_INIT; }
    Vector<String16> names(int) override { return {}; }
    std::string place() const override { return ""; }
    bool serve() override { return false; }
};

std::string variable(const char* name) {
    const char* const value = std::getenv(name);
    return value == nullptr ? "" : value;
}

std::string binderDevice() {
    const std::string named = variable(kDeviceVariable);
    return named.empty() ? "/dev/binder" : named;
}

/** What was chosen, and what there is to say of that. */
class Choice {
public:
    Choice() : mTransport(choose()) {}

    Transport& transport() { return *mTransport; }
    /** Writes the lines of the log, once. Other threads may use the transport meanwhile. */
    void tell() {
        if (mTold.load(std::memory_order_relaxed) || mTold.exchange(true)) {
            return;
        }
        for (const Line& line : mLines) {
            __android_log_print(line.priority, kTag, "%s", line.text.c_str());
        }
        // A wrong one is told of with these, not with the first request.
        static_cast<void>(binderLevel());
    }

private:
    struct Line {
        int priority;
        std::string text;
    };

    std::string asked();
    Transport* choose();

    std::vector<Line> mLines;
    std::atomic<bool> mTold{false};
    Transport* const mTransport;
};

/** "kernel", "sockets", or empty for what there is. */
std::string Choice::asked() {
    std::string asked = variable("KQDROID_TRANSPORT");
    if (!asked.empty() && asked != kKernel && asked != kSockets) {
        mLines.push_back(
            {ANDROID_LOG_ERROR, "KQDROID_TRANSPORT is \"" + asked + "\", not kernel or sockets; taking what there is"});
        return "";
    }
    return asked;
}

Transport* Choice::choose() {
    const std::string transport = asked();
    std::string problem = "as asked for";
    std::unique_ptr<BinderDevice> device =
        transport == kSockets ? nullptr : BinderDevice::open(binderDevice(), &problem);
    if (device != nullptr) {
        mLines.push_back({ANDROID_LOG_VERBOSE, "calls go through " + binderDevice()});
        return new KernelTransport(std::move(device));
    }
    if (transport == kKernel) {
        mLines.push_back({ANDROID_LOG_ERROR, "calls are to go through the kernel's binder driver: " + problem});
        return new NoTransport;
    }
    // A driver that is there and of no use is worth a word, and so is one that was named and is not there.
    const bool isMeant = !variable(kDeviceVariable).empty() || ::access(binderDevice().c_str(), F_OK) == 0;
    const bool expected = transport == kSockets || !isMeant;
    mLines.push_back({expected ? ANDROID_LOG_VERBOSE : ANDROID_LOG_WARN, "calls go through sockets (" + problem + ')'});
    return new SocketTransport;
}

} // namespace

Transport& Transport::get() {
    // Never destroyed: calls may be under way while the process exits.
    static Choice* const choice = new Choice;
    choice->tell();
    return choice->transport();
}

} // namespace android
