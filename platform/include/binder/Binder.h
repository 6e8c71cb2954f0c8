#pragma once

#include <binder/IBinder.h>

namespace android {

/** An object of this process that others may call. Calls arrive on threads of the runtime, several at once. */
class BBinder : public IBinder {
public:
    BBinder() = default;

    const String16& getInterfaceDescriptor() const override;
    bool isBinderAlive() const override { return true; }
    status_t pingBinder() override { return NO_ERROR; }
    status_t transact(uint32_t code, const Parcel& data, Parcel* reply, uint32_t flags = 0) override;
    status_t linkToDeath(const sp<DeathRecipient>& recipient, void* cookie = nullptr, uint32_t flags = 0) override;
    status_t unlinkToDeath(const wp<DeathRecipient>& recipient, void* cookie = nullptr, uint32_t flags = 0,
                           wp<DeathRecipient>* outRecipient = nullptr) override;
    BBinder* localBinder() override { return this; }

protected:
    ~BBinder() override = default;

    /** Handles one call; `reply` is null for a one-way call. Unknown codes give UNKNOWN_TRANSACTION. */
    virtual status_t onTransact(uint32_t code, const Parcel& data, Parcel* reply, uint32_t flags = 0);
};

/** What a proxy class holds: a strong reference to the object it speaks for. */
class BpRefBase : public virtual RefBase {
protected:
    explicit BpRefBase(const sp<IBinder>& object);
    ~BpRefBase() override;

    IBinder* remote() const { return mRemote.get(); }

private:
    const sp<IBinder> mRemote;
};

} // namespace android
