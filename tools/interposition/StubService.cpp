#include "tools/interposition/StubService.h"

#include <kelutv/link/ITVBaseService.h>

#include <array>
#include <cstdint>

namespace kelutv::interposition {

namespace {

class StubService : public android::BnInterface<android::ITVBaseService> {
public:
    android::status_t invoke(const android::Parcel& request, android::Parcel* reply) override {
        return answerWithZeros(request, reply);
    }
};

class StubServiceManager : public android::IServiceManager {
public:
    android::sp<android::IBinder> getService(const android::String16& /*name*/) const override {
        return android::IInterface::asBinder(android::sp<android::ITVBaseService>(new StubService));
    }
    android::sp<android::IBinder> checkService(const android::String16& name) const override {
        return getService(name);
    }
    android::status_t addService(const android::String16& /*name*/, const android::sp<android::IBinder>& /*service*/,
                                 bool /*allowIsolated*/, int /*dumpsysFlags*/) override {
        return android::INVALID_OPERATION;
    }
    android::Vector<android::String16> listServices(int /*dumpsysFlags*/) override { return {}; }
};

} // namespace

int answerWithZeros(const android::Parcel& /*request*/, android::Parcel* reply) {
    static constexpr std::array<std::uint8_t, 4096> kZeros{};
    return reply->setData(kZeros.data(), kZeros.size());
}

android::sp<android::IServiceManager> stubServiceManager() { return new StubServiceManager; }

} // namespace kelutv::interposition
