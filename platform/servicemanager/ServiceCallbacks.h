#pragma once

#include <binder/Binder.h>

#include <cstddef>
#include <mutex>
#include <string>
#include <vector>

namespace servicemanager {

/** Those that want to be told when a service of some name is added. */
class ServiceCallbacks {
public:
    using Name = std::u16string;

    /** Enters a callback until its process goes away: NO_ERROR, or why it cannot be. */
    android::status_t add(const Name& name, const android::sp<android::IBinder>& callback);
    /** Takes it out; false when it was not there. */
    bool remove(const Name& name, const android::sp<android::IBinder>& callback);

    /** Tells all of them, without waiting for any. */
    void tell(const Name& name, const android::sp<android::IBinder>& service, int32_t stability);
    /** Tells one of them. */
    static void tellOne(const android::sp<android::IBinder>& callback, const Name& name,
                        const android::sp<android::IBinder>& service, int32_t stability);

private:
    class Mourner;

    struct Entry {
        Name name;
        android::sp<android::IBinder> callback;
        android::sp<android::IBinder::DeathRecipient> mourner;
    };

    template <typename Condition> bool take(const Condition& condition);
    void removeDead(const android::wp<android::IBinder>& who);
    std::vector<android::sp<android::IBinder>> of(const Name& name);

    std::mutex mMutex;
    std::vector<Entry> mEntries;
};

} // namespace servicemanager
