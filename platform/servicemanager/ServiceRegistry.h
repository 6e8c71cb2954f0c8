#pragma once

#include "ServiceCallbacks.h"

#include <binder/Binder.h>

#include <sys/types.h>

#include <map>
#include <mutex>
#include <set>
#include <string>
#include <vector>

namespace servicemanager {

/** What is known of a service. */
struct Service {
    /** Null for none. */
    android::sp<android::IBinder> object;
    /** What its process said of the object's form; see writeManagedObject. */
    int32_t stability;
    /** True when isolated users find it too. */
    bool allowIsolated;
    int32_t dumpPriorities;
};

/** True for users that run code which nobody vouches for. */
bool isIsolated(uid_t user);

/** The services of the system by name, and those that want to be told of new ones. */
class ServiceRegistry {
public:
    using Name = std::u16string;

    /** `registrars`: the users that may add services. */
    explicit ServiceRegistry(std::set<uid_t> registrars);

    /** The service as this user finds it. */
    Service find(const Name& name, uid_t caller);
    /** False, with a line in the log, for a user that may not add services. */
    bool mayAdd(const Name& name, uid_t caller) const;
    /** Enters a service until its process goes away, in place of an earlier one: NO_ERROR, or why it cannot be. */
    android::status_t add(const Name& name, const Service& service);
    /** The names of the services that have one of these priorities, in their order. */
    std::vector<Name> names(int32_t dumpPriorities);

    /** Has a callback told of services of that name; of the one that is there, at once. */
    android::status_t addCallback(const Name& name, const android::sp<android::IBinder>& callback);
    /** False when there is no such callback. */
    bool removeCallback(const Name& name, const android::sp<android::IBinder>& callback);

private:
    class Mourner;

    struct Entry {
        Service service{};
        android::sp<android::IBinder::DeathRecipient> mourner{};
    };

    void remove(const Name& name, const android::wp<android::IBinder>& object);

    const std::set<uid_t> mRegistrars;
    ServiceCallbacks mCallbacks;
    std::mutex mMutex;
    std::map<Name, Entry> mServices;
};

} // namespace servicemanager
