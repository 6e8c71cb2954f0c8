#include "foreign/platform/driver/DriverRoute.h"

#include "foreign/platform/driver/Driver.h"

#include <binder/Parcel.h>

#include <cerrno>
#include <cstring>

namespace foreign {

namespace {

constexpr std::uint32_t kServiceManager = 0;
constexpr std::uint32_t kCheckService = 2;

class DriverRemote : public Remote {
public:
    DriverRemote(Driver& driver, std::uint32_t handle) : mDriver(driver), mHandle(handle) {}

    android::status_t call(std::uint32_t code, const Bytes& request, Bytes& reply) override {
        Answer answer = mDriver.call(mHandle, code, request);
        reply = std::move(answer.bytes);
        return answer.status;
    }

    void awaitEnd() override { mDriver.awaitDeath(mHandle); }

private:
    Driver& mDriver;
    const std::uint32_t mHandle;
};

Bytes requestFor(const std::string& name) {
    android::Parcel request;
    request.writeInterfaceToken(android::String16("android.os.IServiceManager"));
    request.writeString16(android::String16(name.c_str()));
    return {request.data(), request.data() + request.dataSize()};
}

} // namespace

std::shared_ptr<Remote> DriverRoute::find(const std::string& name, std::string& reason) {
    Driver& driver = Driver::ofProcess();
    if (!driver.isOpen()) {
        reason = "FOREIGN_FOLDER is not set, and " + driver.complaint();
        return nullptr;
    }
    const Answer answer = driver.call(kServiceManager, kCheckService, requestFor(name));
    if (answer.status != android::NO_ERROR) {
        reason = "the service manager does not answer: status " + std::to_string(answer.status);
        return nullptr;
    }
    if (!answer.handle) {
        reason = "the service manager knows none";
        return nullptr;
    }
    return std::make_shared<DriverRemote>(driver, *answer.handle);
}

} // namespace foreign
