#include "Answers.h"

#include "droid/BinderLevel.h"
#include "droid/Transport.h"
#include "droid/kernel/KernelBinder.h"
#include "droid/kernel/ServiceManagerProtocol.h"

#include <algorithm>
#include <string_view>

namespace servicemanager {

using android::IBinder;
using android::NO_ERROR;
using android::sp;
using android::status_t;

namespace {

using Name = ServiceRegistry::Name;

constexpr std::u16string_view kMarksInNames = u"_-./";

bool belongsInName(char16_t unit) {
    return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z') || (unit >= u'0' && unit <= u'9') ||
           kMarksInNames.find(unit) != std::u16string_view::npos;
}

bool isValid(const Name& name) {
    return !name.empty() && name.size() <= android::kLongestServiceName &&
           std::all_of(name.begin(), name.end(), belongsInName);
}

status_t refuse(const Request& request, android::ManagerException exception) {
    return android::writeException(request.reply, exception);
}

status_t succeed(const Request& request) { return android::writeException(request.reply, android::kNoException); }

status_t find(const Request& request) {
    const std::optional<Name> name = readName(request);
    if (!name) {
        return refuse(request, android::kNullPointerException);
    }
    const Service service = request.registry.find(*name, request.caller);
    const status_t status = succeed(request);
    return status != NO_ERROR ? status
                              : android::writeManagedObject(request.reply, android::BinderLevel::k30, service.object,
                                                            service.stability);
}

status_t add(const Request& request) {
    Service service{};
    int32_t allowIsolated = 0;
    const std::optional<Name> name = readName(request);
    service.object = name ? request.binder.readObject(request.data) : nullptr;
    if (service.object == nullptr) {
        return refuse(request, android::kNullPointerException);
    }
    for (int32_t* const word : {&service.stability, &allowIsolated, &service.dumpPriorities}) {
        if (const status_t status = request.data.readInt32(word); status != NO_ERROR) {
            return status;
        }
    }
    service.allowIsolated = allowIsolated != 0;
    if (!request.registry.mayAdd(*name, request.caller)) {
        return refuse(request, android::kSecurityException);
    }
    if (!isValid(*name)) {
        return refuse(request, android::kIllegalArgumentException);
    }
    return request.registry.add(*name, service) == NO_ERROR ? succeed(request)
                                                            : refuse(request, android::kIllegalStateException);
}

status_t list(const Request& request) {
    int32_t dumpPriorities = 0;
    if (const status_t status = request.data.readInt32(&dumpPriorities); status != NO_ERROR) {
        return status;
    }
    const std::vector<Name> names = request.registry.names(dumpPriorities);
    status_t status = succeed(request);
    if (status == NO_ERROR) {
        status = request.reply->writeInt32(static_cast<int32_t>(names.size()));
    }
    for (const Name& name : names) {
        status = status != NO_ERROR ? status : request.reply->writeString16(name.data(), name.size());
    }
    return status;
}

status_t changeCallbacks(const Request& request) {
    const std::optional<Name> name = readName(request);
    const sp<IBinder> callback = name ? request.binder.readObject(request.data) : nullptr;
    if (callback == nullptr) {
        return refuse(request, android::kNullPointerException);
    }
    if (isIsolated(request.caller)) {
        return refuse(request, android::kSecurityException);
    }
    if (!isValid(*name)) {
        return refuse(request, android::kIllegalArgumentException);
    }
    const bool done = request.code == android::kRegisterForNotifications
                          ? request.registry.addCallback(*name, callback) == NO_ERROR
                          : request.registry.removeCallback(*name, callback);
    return done ? succeed(request) : refuse(request, android::kIllegalStateException);
}

/** Nothing is: there is no list of what a device should have. */
status_t isDeclared(const Request& request) {
    const status_t status = succeed(request);
    return status != NO_ERROR ? status : request.reply->writeInt32(0);
}

} // namespace

status_t answerLatest(const Request& request) {
    switch (request.code) {
    case android::kGetService:
    case android::kCheckService:
        return find(request);
    case android::kAddService:
        return add(request);
    case android::kListServices:
        return list(request);
    case android::kRegisterForNotifications:
    case android::kUnregisterForNotifications:
        return changeCallbacks(request);
    case android::kIsDeclared:
        return isDeclared(request);
    case android::kRegisterClientCallback:
    case android::kTryUnregisterService:
        return refuse(request, android::kUnsupportedOperationException);
    default:
        return android::UNKNOWN_TRANSACTION;
    }
}

} // namespace servicemanager
