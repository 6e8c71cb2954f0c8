#pragma once

#include <utils/Errors.h>
#include <utils/RefBase.h>
#include <utils/String16.h>

#include <cstdint>

namespace android {

class BBinder;
class BpBinder;
class IInterface;
class Parcel;

/** An object that can be called from another process: the object itself (BBinder) or a proxy of one elsewhere. */
class IBinder : public virtual RefBase {
public:
    enum {
        FIRST_CALL_TRANSACTION = 0x00000001,
        LAST_CALL_TRANSACTION = 0x00ffffff,

        PING_TRANSACTION = ('_' << 24) | ('P' << 16) | ('N' << 8) | 'G',
        INTERFACE_TRANSACTION = ('_' << 24) | ('N' << 16) | ('T' << 8) | 'F',

        /** The call returns once the request is on its way; there is no reply. */
        FLAG_ONEWAY = 0x00000001,
    };

    /** Told when the process that holds an object goes away. */
    class DeathRecipient : public virtual RefBase {
    public:
        /** Runs once per link, on a thread of the runtime, with no lock of the runtime held. */
        virtual void binderDied(const wp<IBinder>& who) = 0;
    };

    /** The object's own interface when it lives in this process and implements `descriptor`, else null. */
    virtual sp<IInterface> queryLocalInterface(const String16& descriptor);
    virtual const String16& getInterfaceDescriptor() const = 0;

    virtual bool isBinderAlive() const = 0;
    virtual status_t pingBinder() = 0;

    /**
     * One call: `data` goes out, `reply` comes back with its position at the start.
     *
     * @return NO_ERROR or what the object's handler returned; DEAD_OBJECT when its process is gone, now or during the
     *         call; FAILED_TRANSACTION when request or reply exceed 1 MiB - 8 KiB. `reply` is then empty. May be null.
     */
    virtual status_t transact(uint32_t code, const Parcel& data, Parcel* reply, uint32_t flags = 0) = 0;

    /**
     * Asks for `recipient->binderDied` when the object's process goes away. The recipient is held weakly.
     *
     * @return NO_ERROR, also when it is gone and that is not known here: the recipient is then told at once;
     * DEAD_OBJECT when that is known, and the recipient is not told; INVALID_OPERATION for an object of this process.
     */
    virtual status_t linkToDeath(const sp<DeathRecipient>& recipient, void* cookie = nullptr, uint32_t flags = 0) = 0;

    /**
     * Takes one link back. NO_ERROR means that it will not fire; DEAD_OBJECT that the object is gone and the link fires
     * or has fired; NAME_NOT_FOUND that there is none. A null `recipient` matches by `cookie`.
     */
    virtual status_t unlinkToDeath(const wp<DeathRecipient>& recipient, void* cookie = nullptr, uint32_t flags = 0,
                                   wp<DeathRecipient>* outRecipient = nullptr) = 0;

    virtual BBinder* localBinder() { return nullptr; }
    virtual BpBinder* remoteBinder() { return nullptr; }
};

} // namespace android
