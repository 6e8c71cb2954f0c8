#pragma once

#include "ServiceRegistry.h"

#include <binder/Parcel.h>

#include <sys/types.h>

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

/** Answers as the managers of levels 28 and 29 do: whatever fails gives one status. */
android::status_t answerEarlier(const Request& request);
/** What they answer to whatever they do not take. */
constexpr android::status_t kEarlierFailure = -1;

/** Answers as the manager of level 30 does: what is refused is an exception. */
android::status_t answerLatest(const Request& request);

} // namespace servicemanager
