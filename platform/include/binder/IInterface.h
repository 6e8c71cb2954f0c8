#pragma once

#include <binder/Binder.h>

namespace android {

/** Base of an interface that can be called across processes. */
class IInterface : public virtual RefBase {
public:
    static sp<IBinder> asBinder(const IInterface* interface);
    static sp<IBinder> asBinder(const sp<IInterface>& interface);

protected:
    ~IInterface() override;

    virtual IBinder* onAsBinder() = 0;
};

/** The interface behind a binder: the local object, or a new proxy of a remote one. */
template <typename INTERFACE> sp<INTERFACE> interface_cast(const sp<IBinder>& object) {
    return INTERFACE::asInterface(object);
}

/** Base of a service's implementation of INTERFACE. */
template <typename INTERFACE> class BnInterface : public INTERFACE, public BBinder {
public:
    sp<IInterface> queryLocalInterface(const String16& name) override {
        return name == INTERFACE::descriptor ? sp<IInterface>(this) : nullptr;
    }
    const String16& getInterfaceDescriptor() const override { return INTERFACE::descriptor; }

protected:
    IBinder* onAsBinder() override { return this; }
};

/** Base of a proxy of INTERFACE. */
template <typename INTERFACE> class BpInterface : public INTERFACE, public BpRefBase {
public:
    explicit BpInterface(const sp<IBinder>& object) : BpRefBase(object) {}

protected:
    IBinder* onAsBinder() override { return remote(); }
};

} // namespace android
