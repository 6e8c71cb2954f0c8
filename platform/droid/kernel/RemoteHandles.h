#pragma once

#include "BinderCommands.h"
#include "BinderDriver.h"

#include <utils/Errors.h>

#include <functional>
#include <map>
#include <mutex>
#include <vector>

namespace android {

/**
 * The objects of other processes that this process holds, by the driver's handle.
 *
 * The driver counts one reference of the process and has one death notification for each handle, however many proxies
 * stand for it.
 */
class RemoteHandles {
public:
    explicit RemoteHandles(BinderDriver& driver) : mDriver(driver) {}

    void acquire(uint32_t handle);
    void release(uint32_t handle);

    /** Asks for one call of `onDeath`; the number to take that back with, 0 when the object is known to be dead. */
    uint64_t watch(uint32_t handle, std::function<void()> onDeath);
    void unwatch(uint32_t handle, uint64_t watch);

    /** Who is to be told of the death that the driver reports by `cookie`. */
    std::vector<std::function<void()>> died(binder_uintptr_t cookie);

private:
    struct Entry {
        size_t proxies = 0;
        binder_uintptr_t deathCookie = 0;
        bool dead = false;
        std::map<uint64_t, std::function<void()>> watches;
    };

    void requestDeathNotice(uint32_t handle, Entry* entry);

    BinderDriver& mDriver;
    // Held while commands go out, so that the driver sees them in this order.
    std::mutex mMutex;
    uint64_t mLastNumber = 0;
    std::map<uint32_t, Entry> mEntries;
    std::map<binder_uintptr_t, uint32_t> mHandleOfCookie;
};

} // namespace android
