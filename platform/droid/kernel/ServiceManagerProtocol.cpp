#include "ServiceManagerProtocol.h"

#include "droid/ParcelObjects.h"

#include <binder/Parcel.h>

namespace android {

const String16& serviceManagerInterface() {
    static const String16* const name = new String16("android.os.IServiceManager");
    return *name;
}

const String16& serviceCallbackInterface() {
    static const String16* const name = new String16("android.os.IServiceCallback");
    return *name;
}

status_t writeManagedObject(Parcel* parcel, BinderLevel level, const sp<IBinder>& object, int32_t stability) {
    const status_t status = ParcelObjects::write(parcel, object);
    if (status != NO_ERROR || level != BinderLevel::k30) {
        return status;
    }
    return parcel->writeInt32(object == nullptr ? kNoStability : stability);
}

status_t writeException(Parcel* reply, ManagerException exception) {
    status_t status = reply->writeInt32(exception);
    if (status == NO_ERROR && exception != kNoException) {
        // No message, and no stack of the other side.
        status = reply->writeString16(String16());
        return status != NO_ERROR ? status : reply->writeInt32(0);
    }
    return status;
}

} // namespace android
