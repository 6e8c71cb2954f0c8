#include "service/Registration.h"

#include <binder/IServiceManager.h>

#include <cstring>

namespace kelutv::service {

std::string registerService(const android::sp<android::IBinder>& object) {
    const android::status_t status =
        android::defaultServiceManager()->addService(android::String16(kServiceName), object);
    if (status == android::ALREADY_EXISTS) {
        return std::string("another process already serves ") + kServiceName;
    }
    return status == android::NO_ERROR ? ""
                                       : std::string("cannot serve ") + kServiceName + ": " + std::strerror(-status);
}

} // namespace kelutv::service
