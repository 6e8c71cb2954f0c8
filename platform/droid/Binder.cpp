#include <binder/IInterface.h>

#include "ProxyKeeper.h"

#include <binder/Parcel.h>

namespace android {

sp<IInterface> IBinder::queryLocalInterface(const String16&) { return nullptr; }

const String16& BBinder::getInterfaceDescriptor() const {
    static const String16* const none = new String16;
    return *none;
}

namespace {

[[gnu::noinline]] status_t transactUnanswered(BBinder& binder, uint32_t code, const Parcel& data, uint32_t flags) {
    Parcel unwanted;
    return binder.transact(code, data, &unwanted, flags);
}

} // namespace

status_t BBinder::transact(uint32_t code, const Parcel& data, Parcel* reply, uint32_t flags) {
    if (reply == nullptr && (flags & FLAG_ONEWAY) == 0) {
        return transactUnanswered(*this, code, data, flags);
    }
    data.setDataPosition(0);
    if (reply != nullptr) {
        reply->freeData();
    }
    const status_t status = code == PING_TRANSACTION ? pingBinder() : onTransact(code, data, reply, flags);
    if (reply != nullptr && status == NO_ERROR) {
        reply->setDataPosition(0);
    } else if (reply != nullptr) {
        reply->freeData();
    }
    return status;
}

status_t BBinder::onTransact(uint32_t code, const Parcel&, Parcel* reply, uint32_t) {
    if (code == INTERFACE_TRANSACTION && reply != nullptr) {
        return reply->writeString16(getInterfaceDescriptor());
    }
    return UNKNOWN_TRANSACTION;
}

status_t BBinder::linkToDeath(const sp<DeathRecipient>&, void*, uint32_t) { return INVALID_OPERATION; }

status_t BBinder::unlinkToDeath(const wp<DeathRecipient>&, void*, uint32_t, wp<DeathRecipient>*) {
    return INVALID_OPERATION;
}

BpRefBase::BpRefBase(const sp<IBinder>& object) : mRemote(object) { ProxyKeeper::add(this); }

BpRefBase::~BpRefBase() { ProxyKeeper::remove(this); }

IInterface::~IInterface() = default;

sp<IBinder> IInterface::asBinder(const IInterface* interface) {
    return interface == nullptr ? nullptr : const_cast<IInterface*>(interface)->onAsBinder();
}

sp<IBinder> IInterface::asBinder(const sp<IInterface>& interface) { return asBinder(interface.get()); }

} // namespace android
