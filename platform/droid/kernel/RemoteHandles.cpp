#include "RemoteHandles.h"

#include <utility>

namespace android {

void RemoteHandles::acquire(uint32_t handle) {
    const std::lock_guard<std::mutex> lock(mMutex);
    if (++mEntries[handle].proxies == 1) {
        BinderCommands commands;
        commands.append(BC_INCREFS, handle);
        commands.append(BC_ACQUIRE, handle);
        commands.sendTo(mDriver);
    }
}

void RemoteHandles::release(uint32_t handle) {
    Entry dropped;
    const std::lock_guard<std::mutex> lock(mMutex);
    const auto entry = mEntries.find(handle);
    if (entry == mEntries.end() || --entry->second.proxies > 0) {
        return;
    }
    dropped = std::move(entry->second);
    mEntries.erase(entry);
    BinderCommands commands;
    if (dropped.deathCookie != 0) {
        mHandleOfCookie.erase(dropped.deathCookie);
        commands.append(BC_CLEAR_DEATH_NOTIFICATION, binder_handle_cookie{handle, dropped.deathCookie});
    }
    commands.append(BC_RELEASE, handle);
    commands.append(BC_DECREFS, handle);
    commands.sendTo(mDriver);
}

void RemoteHandles::requestDeathNotice(uint32_t handle, Entry* entry) {
    entry->deathCookie = ++mLastNumber;
    mHandleOfCookie.emplace(entry->deathCookie, handle);
    BinderCommands commands;
    commands.append(BC_REQUEST_DEATH_NOTIFICATION, binder_handle_cookie{handle, entry->deathCookie});
    commands.sendTo(mDriver);
}

uint64_t RemoteHandles::watch(uint32_t handle, std::function<void()> onDeath) {
    const std::lock_guard<std::mutex> lock(mMutex);
    Entry& entry = mEntries.at(handle);
    if (entry.dead) {
        return 0;
    }
    const uint64_t number = ++mLastNumber;
    entry.watches.emplace(number, std::move(onDeath));
    if (entry.deathCookie == 0) {
        requestDeathNotice(handle, &entry);
    }
    return number;
}

void RemoteHandles::unwatch(uint32_t handle, uint64_t watch) {
    std::function<void()> dropped;
    const std::lock_guard<std::mutex> lock(mMutex);
    Entry& entry = mEntries.at(handle);
    if (const auto watched = entry.watches.find(watch); watched != entry.watches.end()) {
        dropped = std::move(watched->second);
        entry.watches.erase(watched);
    }
}

std::vector<std::function<void()>> RemoteHandles::died(binder_uintptr_t cookie) {
    std::vector<std::function<void()>> told;
    const std::lock_guard<std::mutex> lock(mMutex);
    const auto handle = mHandleOfCookie.find(cookie);
    if (handle == mHandleOfCookie.end()) {
        return told;
    }
    Entry& entry = mEntries.at(handle->second);
    entry.dead = true;
    for (auto& watch : std::exchange(entry.watches, {})) {
        told.push_back(std::move(watch.second));
    }
    return told;
}

} // namespace android
