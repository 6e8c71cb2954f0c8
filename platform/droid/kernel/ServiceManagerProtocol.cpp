#include "ServiceManagerProtocol.h"

#include <binder/IPCThreadState.h>
#include <binder/Parcel.h>

namespace android {

namespace {

constexpr int32_t kNoWorkSource = -1;

} // namespace

const String16& serviceManagerInterface() {
    static const String16* const name = new String16("android.os.IServiceManager");
    return *name;
}

void writeManagerToken(Parcel* request) {
    request->writeInt32(IPCThreadState::self()->getStrictModePolicy());
    request->writeInt32(kNoWorkSource);
    request->writeString16(serviceManagerInterface());
}

bool readManagerToken(const Parcel& request) {
    // An ordinary token is one word and the descriptor: the work source stands where it has the strict-mode word.
    int32_t strictMode = 0;
    request.readInt32(&strictMode);
    return request.enforceInterface(serviceManagerInterface());
}

} // namespace android
