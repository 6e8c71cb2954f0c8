#include "InterfaceToken.h"

#include <kelutv/SystemSetting.h>
#include <kelutv/commands.h>
#include <kelutv/link/TVBaseClient.h>

#include <android/log.h>
#include <binder/Parcel.h>

using android::Parcel;
using android::TVBaseClient;

namespace {

constexpr char kTag[] = "TVBASEMW@SystemSetting";

} // namespace

SystemSetting* SystemSetting::instance() {
    static SystemSetting mObj;
    return &mObj;
}

int SystemSetting::dtvControl(int cmd, void* pData, int dataSize) {
    Parcel request;
    request.writeInterfaceToken(kelutv::internal::TBS_INTERFACE_NAME);
    request.writeInt32(CMD_SYSTEM_DTV_CHANGE_CHANNEL);
    request.writeInt32(cmd);
    request.writeInt32(dataSize);
    if (pData != nullptr && dataSize > 0) {
        request.write(pData, static_cast<size_t>(dataSize));
    }
    Parcel reply;
    if (TVBaseClient::self()->invoke(request, &reply) != android::NO_ERROR || reply.readInt32() != 0) {
        __android_log_print(ANDROID_LOG_ERROR, kTag, "[%s, %d] failed", "dtvControl", 605);
        return -1;
    }
    __android_log_print(ANDROID_LOG_DEBUG, kTag, "[%s, %d] success", "dtvControl", 600);
    return 0;
}
