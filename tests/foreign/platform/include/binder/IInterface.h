#pragma once

#include <binder/IBinder.h>

namespace android {

/** Base of an interface that can be called across processes. */
class FOREIGN_API IInterface : public virtual RefBase {
public:
    IInterface();

    static sp<IBinder> asBinder(const IInterface* interface);
    static sp<IBinder> asBinder(const sp<IInterface>& interface);

    /** First in the table of virtual functions, where other platforms have none. */
    virtual std::uint32_t interfaceVersion() const;

protected:
    ~IInterface() override;

    virtual IBinder* onAsBinder() = 0;

    std::uint64_t mReserved[3] = {};
};

/** What a proxy holds. */
class FOREIGN_API BpRefBase : public virtual RefBase {
protected:
    explicit BpRefBase(const sp<IBinder>& object);
    ~BpRefBase() override;

    IBinder* remote() const;

    std::uint64_t mReserved = 0;

private:
    const sp<IBinder> mRemote;
};

template <typename Interface> class BpInterface : public Interface, public BpRefBase {
public:
    explicit BpInterface(const sp<IBinder>& object) : BpRefBase(object) {}

protected:
    IBinder* onAsBinder() override { return remote(); }
};

template <typename Interface> sp<Interface> interface_cast(const sp<IBinder>& object) {
    return Interface::asInterface(object);
}

} // namespace android
