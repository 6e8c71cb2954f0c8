#include "KernelTransport.h"

#include "KernelConversation.h"
#include "ServiceManagerProtocol.h"
#include "droid/Utf.h"
#include "socket/QuietThread.h"

#include <android/log.h>
#include <binder/Parcel.h>

#include <algorithm>
#include <future>
#include <thread>
#include <utility>

namespace android {

namespace {

constexpr const char* kTag = "kqdroid";
constexpr std::chrono::milliseconds kFirstPause{5};
constexpr std::chrono::milliseconds kLongestPause{100};
// A process that says nothing for so long lives, but does not serve.
constexpr std::chrono::seconds kSignOfLife{1};
// More than any system has; a manager that never ends its list is not believed.
constexpr int32_t kMostServices = 10'000;

bool lives(const sp<IBinder>& object) {
    auto answer = std::make_shared<std::promise<status_t>>();
    std::future<status_t> status = answer->get_future();
    const bool asked = kq::startDetachedThread("kq:ping", kq::kDefaultStack,
                                               [object, answer] { answer->set_value(object->pingBinder()); }) == 0;
    return !asked || status.wait_for(kSignOfLife) != std::future_status::ready || status.get() != DEAD_OBJECT;
}

std::string printable(const String16& name) { return android::printable(name.string(), name.size()); }

} // namespace

KernelTransport::KernelTransport(std::unique_ptr<BinderDriver> driver)
    : mBinder(std::move(driver)),
      mRegistrations(mBinder, [this](const Registrations::Service& service) { return add(service); }) {}

/** The transport's status, else what the manager says; the position is then behind that. */
status_t KernelTransport::askManager(uint32_t code, const Parcel& request, Parcel* reply) {
    const status_t status = KernelConversation(mBinder).call(kServiceManagerHandle, code, request, reply, 0);
    return status == NO_ERROR && answerBeginsWithException(binderLevel(), code) ? reply->readInt32() : status;
}

sp<IBinder> KernelTransport::look(const String16& name, status_t* status) {
    Parcel request;
    Parcel reply;
    request.writeInterfaceToken(serviceManagerInterface());
    request.writeString16(name);
    *status = askManager(kCheckService, request, &reply);
    return *status == NO_ERROR ? mBinder.readObject(reply) : nullptr;
}

sp<IBinder> KernelTransport::find(const String16& name) { return waitFor(name, std::chrono::milliseconds(0)); }

sp<IBinder> KernelTransport::waitFor(const String16& name, std::chrono::milliseconds time) {
    using Clock = std::chrono::steady_clock;
    const Clock::time_point deadline = Clock::now() + time;
    std::chrono::milliseconds pause = kFirstPause;
    for (;;) {
        status_t status = NO_ERROR;
        if (sp<IBinder> found = look(name, &status); found != nullptr) {
            return found;
        }
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now());
        if (left.count() <= 0) {
            if (status != NO_ERROR) {
                __android_log_print(ANDROID_LOG_ERROR, kTag, "looking for %s: the service manager gives status %d",
                                    printable(name).c_str(), status);
            }
            return nullptr;
        }
        // The managers of earlier levels tell nobody of what comes.
        std::this_thread::sleep_for(std::min(pause, left));
        pause = std::min(2 * pause, kLongestPause);
    }
}

bool KernelTransport::takenByAnother(const String16& name) {
    status_t status = NO_ERROR;
    const sp<IBinder> there = look(name, &status);
    return there != nullptr && there->localBinder() == nullptr && lives(there);
}

bool KernelTransport::serve() {
    mAsked = true;
    return mBinder.startServing() && mRegistrations.watch();
}

status_t KernelTransport::publish(const String16& name, const sp<BBinder>& object, const ServiceTraits& traits) {
    if (mAsked && !serve()) {
        return NO_MEMORY;
    }
    return mRegistrations.add({name, object, traits});
}

status_t KernelTransport::add(const Registrations::Service& service) {
    if (takenByAnother(service.name)) {
        __android_log_print(ANDROID_LOG_ERROR, kTag, "serving %s: another process serves it",
                            printable(service.name).c_str());
        return ALREADY_EXISTS;
    }
    Parcel request;
    Parcel reply;
    request.writeInterfaceToken(serviceManagerInterface());
    request.writeString16(service.name);
    writeManagedObject(&request, binderLevel(), service.object, kSystemStability);
    request.writeInt32(service.traits.allowIsolated ? 1 : 0);
    request.writeInt32(service.traits.dumpPriorities);
    const status_t status = askManager(kAddService, request, &reply);
    if (status != NO_ERROR) {
        __android_log_print(ANDROID_LOG_ERROR, kTag, "serving %s: the service manager gives status %d",
                            printable(service.name).c_str(), status);
    }
    return status;
}

Vector<String16> KernelTransport::names(int dumpPriorities) {
    return binderLevel() == BinderLevel::k30 ? namesAtOnce(dumpPriorities) : namesOneByOne(dumpPriorities);
}

Vector<String16> KernelTransport::namesOneByOne(int dumpPriorities) {
    Vector<String16> names;
    for (int32_t index = 0; index < kMostServices; ++index) {
        Parcel request;
        Parcel reply;
        request.writeInterfaceToken(serviceManagerInterface());
        request.writeInt32(index);
        request.writeInt32(dumpPriorities);
        String16 name;
        if (askManager(kListServices, request, &reply) != NO_ERROR || reply.readString16(&name) != NO_ERROR) {
            break;
        }
        names.push_back(name);
    }
    return names;
}

Vector<String16> KernelTransport::namesAtOnce(int dumpPriorities) {
    Vector<String16> names;
    Parcel request;
    Parcel reply;
    request.writeInterfaceToken(serviceManagerInterface());
    request.writeInt32(dumpPriorities);
    if (askManager(kListServices, request, &reply) != NO_ERROR) {
        return names;
    }
    String16 name;
    for (int32_t left = std::min(reply.readInt32(), kMostServices); left > 0; --left) {
        if (reply.readString16(&name) != NO_ERROR) {
            break;
        }
        names.push_back(name);
    }
    return names;
}

} // namespace android
