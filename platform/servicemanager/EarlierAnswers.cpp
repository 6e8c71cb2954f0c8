#include "Answers.h"

#include "droid/ParcelObjects.h"
#include "droid/Transport.h"
#include "droid/kernel/KernelBinder.h"
#include "droid/kernel/ServiceManagerProtocol.h"

namespace servicemanager {

using android::IBinder;
using android::NO_ERROR;
using android::sp;
using android::status_t;

namespace {

using Name = ServiceRegistry::Name;

status_t find(const Request& request) {
    const std::optional<Name> name = readName(request);
    if (!name) {
        return kEarlierFailure;
    }
    const Service service = request.registry.find(*name, request.caller);
    return service.object == nullptr ? request.reply->writeInt32(0)
                                     : android::ParcelObjects::write(request.reply, service.object);
}

status_t add(const Request& request) {
    const Name name = readName(request).value_or(Name());
    const sp<IBinder> object = request.binder.readObject(request.data);
    if (name.empty() || name.size() > android::kLongestServiceName || object == nullptr ||
        !request.registry.mayAdd(name, request.caller)) {
        return kEarlierFailure;
    }
    const bool allowIsolated = request.data.readInt32() != 0;
    const int32_t dumpPriorities = request.data.readInt32();
    const Service service{object, android::kSystemStability, allowIsolated, dumpPriorities};
    return request.registry.add(name, service) == NO_ERROR ? request.reply->writeInt32(0) : kEarlierFailure;
}

status_t list(const Request& request) {
    const auto index = static_cast<uint32_t>(request.data.readInt32());
    const std::vector<Name> names = request.registry.names(request.data.readInt32());
    return index < names.size() ? request.reply->writeString16(names[index].data(), names[index].size())
                                : kEarlierFailure;
}

} // namespace

status_t answerEarlier(const Request& request) {
    switch (request.code) {
    case android::kGetService:
    case android::kCheckService:
        return find(request);
    case android::kAddService:
        return add(request);
    case android::kListServices:
        return list(request);
    default:
        return kEarlierFailure;
    }
}

} // namespace servicemanager
