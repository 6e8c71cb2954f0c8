#pragma once

#include <utils/Errors.h>
#include <utils/RefBase.h>
#include <utils/String16.h>

#include <cstdint>

namespace android {

class IInterface;
class Parcel;

/** An object of another process. */
class FOREIGN_API IBinder : public virtual RefBase {
public:
    enum { FIRST_CALL_TRANSACTION = 1 };

    /** Told, on a thread of the platform, when an object's process is gone. */
    class FOREIGN_API DeathRecipient : public virtual RefBase {
    public:
        DeathRecipient();
        ~DeathRecipient() override;

        /** First in the table of virtual functions, where other platforms have none. */
        virtual bool wantsNotice() const;
        virtual void binderDied(const wp<IBinder>& who) = 0;

    protected:
        std::uint64_t mReserved[2] = {};
    };

    IBinder();
    ~IBinder() override;

    virtual status_t linkToDeath(const sp<DeathRecipient>& recipient, void* cookie = nullptr,
                                 std::uint32_t flags = 0) = 0;
    virtual status_t unlinkToDeath(const wp<DeathRecipient>& recipient, void* cookie = nullptr, std::uint32_t flags = 0,
                                   wp<DeathRecipient>* out = nullptr) = 0;
    virtual status_t transact(std::uint32_t code, const Parcel& data, Parcel* reply, std::uint32_t flags = 0) = 0;
    virtual sp<IInterface> queryLocalInterface(const String16& descriptor);

protected:
    /** Makes objects larger than elsewhere, as its like in other classes. */
    std::uint64_t mReserved = 0;
};

} // namespace android
