#pragma once

#include <binder/IBinder.h>
#include <utils/Vector.h>

namespace android {

/** The directory of services by name. */
class IServiceManager : public virtual RefBase {
public:
    enum {
        DUMP_FLAG_PRIORITY_CRITICAL = 1 << 0,
        DUMP_FLAG_PRIORITY_HIGH = 1 << 1,
        DUMP_FLAG_PRIORITY_NORMAL = 1 << 2,
        DUMP_FLAG_PRIORITY_DEFAULT = 1 << 3,
        DUMP_FLAG_PRIORITY_ALL = DUMP_FLAG_PRIORITY_CRITICAL | DUMP_FLAG_PRIORITY_HIGH | DUMP_FLAG_PRIORITY_NORMAL |
                                 DUMP_FLAG_PRIORITY_DEFAULT,
    };

    /** The service, waiting a bounded time for one that is not there yet (KQDROID_SERVICE_WAIT_MS); null if none came.
     */
    virtual sp<IBinder> getService(const String16& name) const = 0;
    /** The service if it is there now, else null. */
    virtual sp<IBinder> checkService(const String16& name) const = 0;
    /**
     * Registers an object of this process under a name of 1 to 127 characters.
     *
     * @return NO_ERROR; BAD_VALUE for an empty or too long name or a null or remote object; ALREADY_EXISTS when a
     * living process serves the name; another negative value when the name cannot be published. A service manager is
     * told of `allowIsolated` and `dumpsysFlags`; without one they have no effect.
     */
    virtual status_t addService(const String16& name, const sp<IBinder>& service, bool allowIsolated = false,
                                int dumpsysFlags = DUMP_FLAG_PRIORITY_DEFAULT) = 0;
    /** The names of the services that are there now. */
    virtual Vector<String16> listServices(int dumpsysFlags = DUMP_FLAG_PRIORITY_ALL) = 0;
};

sp<IServiceManager> defaultServiceManager();

} // namespace android
