#include <binder/IInterface.h>
#include <binder/IServiceManager.h>

namespace android {

IBinder::IBinder() = default;
IBinder::~IBinder() = default;

sp<IInterface> IBinder::queryLocalInterface(const String16& /*descriptor*/) { return nullptr; }

IBinder::DeathRecipient::DeathRecipient() = default;
IBinder::DeathRecipient::~DeathRecipient() = default;

bool IBinder::DeathRecipient::wantsNotice() const { return true; }

IInterface::IInterface() = default;
IInterface::~IInterface() = default;

std::uint32_t IInterface::interfaceVersion() const { return 1; }

sp<IBinder> IInterface::asBinder(const IInterface* interface) {
    return interface == nullptr ? nullptr : const_cast<IInterface*>(interface)->onAsBinder();
}

sp<IBinder> IInterface::asBinder(const sp<IInterface>& interface) { return asBinder(interface.get()); }

BpRefBase::BpRefBase(const sp<IBinder>& object) : mRemote(object) {}
BpRefBase::~BpRefBase() = default;

IBinder* BpRefBase::remote() const { return mRemote.get(); }

IServiceManager::IServiceManager() = default;
IServiceManager::~IServiceManager() = default;

} // namespace android
