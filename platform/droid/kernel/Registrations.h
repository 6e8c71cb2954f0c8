#pragma once

#include "droid/Transport.h"

#include <binder/Binder.h>

#include <functional>
#include <memory>
#include <mutex>
#include <utility>
#include <vector>

namespace android {

class KernelBinder;
class KernelObject;

/** What this process has added to the service manager. When that ends, all of it is added to the next one. */
class Registrations {
public:
    struct Service {
        String16 name;
        sp<BBinder> object;
        ServiceTraits traits;
    };
    /** Adds a service to the manager that is there: its status, DEAD_OBJECT when there is none. */
    using Add = std::function<status_t(const Service&)>;

    Registrations(KernelBinder& binder, Add add) : mBinder(binder), mAdd(std::move(add)) {}

    /** Adds a service, and keeps it when that succeeds. NO_MEMORY when a manager that is to be watched cannot be. */
    status_t add(const Service& service);

    /** Has the end of this manager and of all later ones noticed; false, with a line in the log, when it cannot be. */
    bool watch();

private:
    /** The service with the number of the manager that knows it. */
    struct Entry {
        Service service;
        unsigned manager;
    };

    bool isUnwatched();
    status_t watchManager();
    bool managerIsThere();
    void managerEnded();
    void startRenewing();
    void renew();
    bool renewAll();
    bool finished();
    std::vector<Service> unknownTo(unsigned manager);
    bool keep(const Service& service, unsigned manager);
    unsigned manager();

    KernelBinder& mBinder;
    const Add mAdd;
    std::mutex mMutex;
    std::vector<Entry> mEntries;
    // How many managers have ended.
    unsigned mManager = 0;
    bool mWatches = false;
    bool mRenewing = false;
    std::shared_ptr<KernelObject> mWatched;
};

} // namespace android
