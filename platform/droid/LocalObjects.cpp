#include "LocalObjects.h"

namespace android {

LocalObjects& LocalObjects::instance() {
    static LocalObjects* const objects = new LocalObjects;
    return *objects;
}

uint64_t LocalObjects::hold(const sp<BBinder>& object) {
    const std::lock_guard<std::mutex> lock(mMutex);
    const auto [number, added] = mNumbers.try_emplace(object.get(), mLastNumber + 1);
    if (added) {
        mObjects.emplace(++mLastNumber, Entry{object, 0});
    }
    ++mObjects.at(number->second).holds;
    return number->second;
}

void LocalObjects::holdAgain(uint64_t number) {
    const std::lock_guard<std::mutex> lock(mMutex);
    if (const auto entry = mObjects.find(number); entry != mObjects.end()) {
        ++entry->second.holds;
    }
}

void LocalObjects::release(uint64_t number) {
    // Destroyed after the lock: the object may use the runtime.
    sp<BBinder> last;
    const std::lock_guard<std::mutex> lock(mMutex);
    const auto entry = mObjects.find(number);
    if (entry != mObjects.end() && --entry->second.holds == 0) {
        last = entry->second.object;
        mNumbers.erase(last.get());
        mObjects.erase(entry);
    }
}

sp<BBinder> LocalObjects::find(uint64_t number) {
    const std::lock_guard<std::mutex> lock(mMutex);
    const auto entry = mObjects.find(number);
    return entry == mObjects.end() ? nullptr : entry->second.object;
}

} // namespace android
