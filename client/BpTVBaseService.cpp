#include <kelutv/link/BpTVBaseService.h>

namespace android {

BpTVBaseService::BpTVBaseService(const sp<IBinder>& object) : BpInterface<ITVBaseService>(object) {}
BpTVBaseService::~BpTVBaseService() = default;

status_t BpTVBaseService::invoke(const Parcel& request, Parcel* reply) {
    return remote()->transact(IBinder::FIRST_CALL_TRANSACTION, request, reply, 0);
}

} // namespace android
