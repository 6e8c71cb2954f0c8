#include <kelutv/link/BpTVBaseService.h>

namespace android {

const String16 ITVBaseService::descriptor("android.ITVBaseService");

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
    return new BpTVBaseService(obj);
}

} // namespace android
