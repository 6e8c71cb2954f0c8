/**
 * @file
 * The service's binder interface.
 */
#pragma once

#include <binder/IInterface.h>
#include <binder/Parcel.h>
#include <kelutv/export.h>

namespace android {

/** The TV base service's binder interface: one operation, which carries every command. */
class KELUTV_API ITVBaseService : public IInterface {
public:
    /** "android.ITVBaseService", which is also the interface token of every request. */
    static const String16 descriptor;

    /**
     * The service interface of a binder object.
     * @param obj The object that was looked up; may be null.
     * @return The local service object behind `obj`, or a new proxy of a remote one; null for a null `obj`.
     */
    static sp<ITVBaseService> asInterface(const sp<IBinder>& obj);

    ITVBaseService();
    ~ITVBaseService() override;

    /**
     * The name of the interface.
     * @return `descriptor`.
     */
    virtual const String16& getInterfaceDescriptor() const;

    /**
     * Sends one request and waits for the reply.
     *
     * @param request interface token, command identifier, arguments
     * @param reply receives the service's answer, result word first
     * @return the transport's status, 0 when a reply came
     */
    virtual status_t invoke(const Parcel& request, Parcel* reply) = 0;
};

} // namespace android
