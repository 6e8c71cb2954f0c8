#include "service/RequestServer.h"

#include <binder/IPCThreadState.h>

#include <new>

namespace kelutv::service {

namespace {

/** Which tokens are taken is the platform's to say. */
wire::Request requestIn(const android::Parcel& data, const android::String16& interface) {
    const bool isMeant = data.enforceInterface(interface);
    wire::ByteReader bytes(data.data(), data.dataSize());
    bytes.moveTo(data.dataPosition());
    return isMeant ? wire::readRequestBehindToken(bytes) : wire::requestWithWrongToken(bytes);
}

} // namespace

const android::String16& RequestServer::getInterfaceDescriptor() const {
    static const auto* const descriptor = new android::String16("android.ITVBaseService");
    return *descriptor;
}

android::status_t RequestServer::onTransact(uint32_t code, const android::Parcel& data, android::Parcel* reply,
                                            uint32_t flags) {
    if (code != FIRST_CALL_TRANSACTION) {
        return BBinder::onTransact(code, data, reply, flags);
    }
    try {
        return serve(requestIn(data, getInterfaceDescriptor()), data, reply);
    } catch (const std::bad_alloc&) {
        // The next request may find memory again.
        return android::NO_MEMORY;
    }
}

pid_t caller() { return android::IPCThreadState::self()->getCallingPid(); }

} // namespace kelutv::service
