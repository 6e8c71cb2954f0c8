#pragma once

#include "BinderDriver.h"
#include "OwedCommands.h"

#include <utils/Errors.h>

#include <functional>
#include <list>
#include <map>
#include <mutex>

namespace android {

/**
 * The objects of other processes that this process holds, by the driver's handle.
 *
 * The driver counts one reference of the process and has one death notification for each handle, however many proxies
 * stand for it.
 */
class RemoteHandles {
public:
    /** Whom to tell of a death. */
    struct Watch {
        uint64_t number;
        std::function<void()> onDeath;
    };

    /** What the driver does not take of releases goes out by `owed`. */
    RemoteHandles(BinderDriver& driver, OwedCommands& owed) : mDriver(driver), mOwed(owed) {}

    /** Holds the object; false, with nothing to release, when the driver does not take that. */
    bool acquire(uint32_t handle);
    void release(uint32_t handle);

    /**
     * Asks for one call of `onDeath` for a handle that is held.
     *
     * @param number what to take that back with
     * @return NO_ERROR; DEAD_OBJECT when the object is known to be dead; NO_MEMORY when the driver does not take it
     */
    status_t watch(uint32_t handle, std::function<void()> onDeath, uint64_t* number);
    void unwatch(uint32_t handle, uint64_t watch);

    /** Who is to be told of the death that the driver reports by `cookie`. Takes no memory. */
    std::list<Watch> died(binder_uintptr_t cookie);

private:
    struct Entry {
        size_t proxies = 0;
        binder_uintptr_t deathCookie = 0;
        bool dead = false;
        std::list<Watch> watches;
    };

    bool reference(uint32_t handle);
    bool requestDeathNotice(uint32_t handle, Entry* entry);

    BinderDriver& mDriver;
    OwedCommands& mOwed;
    // Held while commands go out, so that the driver sees them in this order.
    std::mutex mMutex;
    uint64_t mLastNumber = 0;
    std::map<uint32_t, Entry> mEntries;
    std::map<binder_uintptr_t, uint32_t> mHandleOfCookie;
};

} // namespace android
