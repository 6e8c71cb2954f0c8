#pragma once

#include "ServiceRegistry.h"

#include <binder/Parcel.h>

#include <sys/types.h>

#include <optional>

namespace android {
class KernelBinder;
}

namespace servicemanager {

/** One request to the service manager, read up to behind its token. */
struct Request {
    android::KernelBinder& binder;
    ServiceRegistry& registry;
    uid_t caller;
    uint32_t code;
    const android::Parcel& data;
    android::Parcel* reply;
};

/** The name that comes next; nothing where none stands. */
inline std::optional<ServiceRegistry::Name> readName(const Request& request) {
    android::String16 text;
    const android::status_t status = request.data.readString16(&text);
    return status == android::NO_ERROR ? std::optional(ServiceRegistry::Name(text.string(), text.size()))
                                       : std::nullopt;
}

/** Answers as the managers of levels 28 and 29 do: whatever fails gives one status. */
android::status_t answerEarlier(const Request& request);
/** What they answer to whatever they do not take. */
constexpr android::status_t kEarlierFailure = -1;

/** Answers as the manager of level 30 does: what is refused is an exception. */
android::status_t answerLatest(const Request& request);

} // namespace servicemanager
