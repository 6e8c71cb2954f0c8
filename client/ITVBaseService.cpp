#include "Failures.h"

#include <kelutv/link/BpTVBaseService.h>

namespace android {

using kelutv::internal::allocating;

const String16 ITVBaseService::descriptor = allocating([] { return String16("android.ITVBaseService"); });

ITVBaseService::ITVBaseService() = default;
ITVBaseService::~ITVBaseService() = default;

const String16& ITVBaseService::getInterfaceDescriptor() const { return descriptor; }

sp<ITVBaseService> ITVBaseService::asInterface(const sp<IBinder>& obj) {
    if (obj == nullptr) {
        return nullptr;
    }
    if (const sp<IInterface> local = obj->queryLocalInterface(descriptor); local != nullptr) {
        return static_cast<ITVBaseService*>(local.get());
    }
    return allocating([&] { return new BpTVBaseService(obj); });
}

} // namespace android
