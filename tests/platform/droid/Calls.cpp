#include "Calls.h"

#include "peer/PeerProtocol.h"
#include "support/Deadline.h"

#include <binder/IServiceManager.h>
#include <binder/Parcel.h>

#include <stdexcept>

namespace kelutv::test {

Answer call(const android::sp<android::IBinder>& binder, uint32_t code, const Bytes& request, uint32_t flags) {
    android::Parcel data;
    android::Parcel reply;
    data.setData(request.data(), request.size());
    reply.writeInt32(0x0DD0);
    const android::status_t status = binder->transact(code, data, &reply, flags);
    return {status, Bytes(reply.data(), reply.data() + reply.dataSize())};
}

int32_t ask(const android::sp<android::IBinder>& binder, uint32_t code, const Bytes& request) {
    android::Parcel data;
    android::Parcel reply;
    data.setData(request.data(), request.size());
    if (const android::status_t status = binder->transact(code, data, &reply); status != android::NO_ERROR) {
        throw std::runtime_error("call " + std::to_string(code) + " failed with status " + std::to_string(status));
    }
    return reply.readInt32();
}

android::sp<android::IBinder> service(const std::string& name) {
    return android::defaultServiceManager()->checkService(android::String16(name.c_str(), name.size()));
}

bool waitUntilHeld(const android::sp<android::IBinder>& binder, int32_t callers) {
    return eventually([&] { return ask(binder, kHeld) == callers; });
}

} // namespace kelutv::test
