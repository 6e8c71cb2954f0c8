#include "RemoteHandles.h"

#include <algorithm>
#include <utility>

namespace android {

/** One reference of either kind, or none. */
bool RemoteHandles::reference(uint32_t handle) {
    if (!mOwed.settle()) {
        return false;
    }
    BinderCommands commands;
    commands.append(BC_INCREFS, handle);
    const size_t one = commands.size();
    commands.append(BC_ACQUIRE, handle);
    commands.sendTo(mDriver);
    if (commands.size() == one) {
        BinderCommands back;
        back.append(BC_DECREFS, handle);
        mOwed.send(&back);
    }
    return commands.empty();
}

bool RemoteHandles::acquire(uint32_t handle) {
    const std::lock_guard<std::mutex> lock(mMutex);
    const auto [entry, added] = mEntries.try_emplace(handle);
    if (added && !reference(handle)) {
        mEntries.erase(entry);
        return false;
    }
    ++entry->second.proxies;
    return true;
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
    mOwed.send(&commands);
}

bool RemoteHandles::requestDeathNotice(uint32_t handle, Entry* entry) {
    const binder_uintptr_t cookie = ++mLastNumber;
    const auto noted = mHandleOfCookie.emplace(cookie, handle).first;
    BinderCommands commands;
    commands.append(BC_REQUEST_DEATH_NOTIFICATION, binder_handle_cookie{handle, cookie});
    commands.sendTo(mDriver);
    if (!commands.empty()) {
        mHandleOfCookie.erase(noted);
        return false;
    }
    entry->deathCookie = cookie;
    return true;
}

status_t RemoteHandles::watch(uint32_t handle, std::function<void()> onDeath, uint64_t* number) {
    const std::lock_guard<std::mutex> lock(mMutex);
    Entry& entry = mEntries.at(handle);
    if (entry.dead) {
        return DEAD_OBJECT;
    }
    std::list<Watch> added;
    added.push_back({++mLastNumber, std::move(onDeath)});
    if (entry.deathCookie == 0 && !requestDeathNotice(handle, &entry)) {
        return NO_MEMORY;
    }
    *number = added.front().number;
    entry.watches.splice(entry.watches.end(), added);
    return NO_ERROR;
}

void RemoteHandles::unwatch(uint32_t handle, uint64_t watch) {
    std::list<Watch> dropped;
    const std::lock_guard<std::mutex> lock(mMutex);
    std::list<Watch>& watches = mEntries.at(handle).watches;
    const auto watched =
        std::find_if(watches.begin(), watches.end(), [watch](const Watch& one) { return one.number == watch; });
    if (watched != watches.end()) {
        dropped.splice(dropped.end(), watches, watched);
    }
}

std::list<RemoteHandles::Watch> RemoteHandles::died(binder_uintptr_t cookie) {
    const std::lock_guard<std::mutex> lock(mMutex);
    const auto handle = mHandleOfCookie.find(cookie);
    if (handle == mHandleOfCookie.end()) {
        return {};
    }
    Entry& entry = mEntries.at(handle->second);
    entry.dead = true;
    return std::exchange(entry.watches, {});
}

} // namespace android
