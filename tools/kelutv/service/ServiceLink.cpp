#include "tools/kelutv/service/ServiceLink.h"

#include "tools/interposition/Connection.h"
#include "tools/kelutv/output/Errors.h"

#include <kelutv/link/TVBaseClient.h>

namespace kelutv::tool {

android::sp<android::IBinder> requireService() {
    if (!interposition::connectToService()) {
        throw LinkError("there is no television service; is the television, or kelutv-simulator, running?");
    }
    const android::sp<android::ITVBaseService>& service = android::TVBaseClient::self()->getBpTvbaseService();
    return android::IInterface::asBinder(service);
}

void failCall(const std::string& what) {
    if (requireService()->pingBinder() != android::NO_ERROR) {
        throw LinkError(what + ": the service is gone");
    }
    throw ServiceError(what);
}

} // namespace kelutv::tool
