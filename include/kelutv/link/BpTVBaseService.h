#pragma once

#include <kelutv/link/ITVBaseService.h>

namespace android {

/** Proxy of the TV base service in another process. */
class KELUTV_API BpTVBaseService : public BpInterface<ITVBaseService> {
public:
    explicit BpTVBaseService(const sp<IBinder>& object);
    ~BpTVBaseService() override;

    /** One synchronous transaction, code 1, flags 0; its status is returned unchanged. */
    status_t invoke(const Parcel& request, Parcel* reply) override;
};

} // namespace android
