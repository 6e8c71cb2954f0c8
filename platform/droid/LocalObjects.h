#pragma once

#include <binder/Binder.h>

#include <cstdint>
#include <map>
#include <mutex>

namespace android {

/**
 * The objects of this process that the kernel's driver knows, by number.
 *
 * An object stays as long as something holds it: a parcel that names it, or the driver for other processes.
 */
class LocalObjects {
public:
    /** Never destroyed. */
    static LocalObjects& instance();

    /** Holds an object once and gives its number, the same as long as it is held. */
    uint64_t hold(const sp<BBinder>& object);
    void holdAgain(uint64_t number);
    /** Takes one hold back; the object may be destroyed by it. */
    void release(uint64_t number);
    /** Null for a number that stands for nothing. */
    sp<BBinder> find(uint64_t number);

private:
    struct Entry {
        sp<BBinder> object;
        size_t holds;
    };

    std::mutex mMutex;
    uint64_t mLastNumber = 0;
    std::map<uint64_t, Entry> mObjects;
    std::map<const BBinder*, uint64_t> mNumbers;
};

} // namespace android
