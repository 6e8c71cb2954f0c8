#pragma once

#include <binder/IBinder.h>

#include <cstdint>
#include <set>

namespace kelutv::tool {

/** While this lives, the service's events and its loss go to the queue of the process. */
class EventSubscription {
public:
    /**
     * @param modules to listen to beside those that the library listens to
     * @throws LinkError when there is no service
     */
    explicit EventSubscription(const std::set<std::uint32_t>& modules);
    ~EventSubscription();
    EventSubscription(const EventSubscription&) = delete;
    EventSubscription& operator=(const EventSubscription&) = delete;

private:
    android::sp<android::IBinder> mService;
    android::sp<android::IBinder::DeathRecipient> mRecipient;
    std::set<std::uint32_t> mModules;
};

} // namespace kelutv::tool
