/**
 * @file
 * The proxy of the service's binder interface.
 */
#pragma once

#include <kelutv/link/ITVBaseService.h>

namespace android {

/** Proxy of the TV base service in another process. */
class KELUTV_API BpTVBaseService : public BpInterface<ITVBaseService> {
public:
    /**
     * A proxy that sends to `object`.
     * @param object The service's binder object, not null.
     */
    explicit BpTVBaseService(const sp<IBinder>& object);
    ~BpTVBaseService() override;

    /**
     * One synchronous transaction, code 1, flags 0.
     * @param request Interface token, command identifier, arguments.
     * @param reply Receives the service's answer, result word first.
     * @return The transport's status unchanged, 0 when a reply came.
     */
    status_t invoke(const Parcel& request, Parcel* reply) override;
};

} // namespace android
