#include "tools/kelutv/checks/Asking.h"
#include "tools/kelutv/checks/ServiceLooks.h"
#include "tools/kelutv/doctor/DoctorChecks.h"
#include "tools/kelutv/output/Errors.h"
#include "tools/kelutv/service/ServiceLink.h"
#include "wire/text/ResultNames.h"

#include <binder/IServiceManager.h>
#include <binder/Parcel.h>
#include <kelutv/commands.h>
#include <kelutv/link/ITVBaseService.h>

#include <cstdlib>

namespace kelutv::tool {

namespace {

constexpr int kTries = 5;

Finding lookForManager() {
    const bool isThere = android::defaultServiceManager() != nullptr;
    return {isThere ? Verdict::Good : Verdict::Unlinked, isThere ? "there" : "the platform gives no service manager"};
}

/** As the client library does, which tries as often. */
Finding lookForService() {
    const android::String16 name("TVBaseService");
    for (int tried = 0; tried < kTries; ++tried) {
        android::sp<android::IBinder> found;
        const auto time = timeOf([&] { found = android::defaultServiceManager()->getService(name); });
        if (found != nullptr) {
            return {tried == 0 ? Verdict::Good : Verdict::Warning, "found at try " + std::to_string(tried + 1), time};
        }
    }
    requireService();
    return {Verdict::Warning, "found after " + std::to_string(kTries) + " tries, by which time the library gives up"};
}

/** A request that no service should take as a good one. */
struct WrongRequest {
    const char* token;
    std::int32_t command;
};

Finding sendWrong(const WrongRequest& wrong) {
    android::Parcel request;
    android::Parcel reply;
    request.writeInterfaceToken(android::String16(wrong.token));
    request.writeInt32(wrong.command);
    android::status_t status = 0;
    const auto service = requireService();
    const auto time =
        timeOf([&] { status = service->transact(android::IBinder::FIRST_CALL_TRANSACTION, request, &reply, 0); });
    if (status == android::DEAD_OBJECT) {
        throw LinkError("the service ended when it got the request");
    }
    if (status != 0) {
        return {Verdict::Good, "refused with status " + wire::statusText(status), time};
    }
    if (reply.dataSize() < sizeof(std::int32_t)) {
        return {Verdict::Warning, "answered with nothing", time};
    }
    const std::int32_t result = reply.readInt32();
    return {result == 0 ? Verdict::Warning : Verdict::Good,
            result == 0 ? "taken as a good request: 0" : "refused with " + wire::resultText(result), time};
}

void addAsking(std::vector<Check>& checks, const char* name, double limit, Finding (*look)()) {
    checks.push_back({name, "service", limit, [look] { return askingFinds(look); }});
}

void addWrong(std::vector<Check>& checks, const char* name, double limit, const WrongRequest& wrong) {
    checks.push_back({name, "service", limit, [wrong] { return askingFinds([wrong] { return sendWrong(wrong); }); }});
}

} // namespace

void addServiceChecks(std::vector<Check>& checks, const DoctorOptions& options) {
    constexpr std::int32_t kNoCommand = 0x7FFFFFF0;
    addAsking(checks, "service.manager", options.limit, lookForManager);
    // Each try waits as long as the platform does.
    addAsking(checks, "service.found", options.limit + kTries * kTries, lookForService);
    addAsking(checks, "service.transport", options.limit, lookForTransport);
    addAsking(checks, "service.descriptor", options.limit, lookAtDescriptor);
    addWrong(checks, "service.wrongToken", options.limit, {"kelutv.doctor", CMD_AUDIO_GETVOLUME});
    addWrong(checks, "service.unknownCommand", options.limit, {kServiceDescriptor, kNoCommand});
    addWrong(checks, "service.shortRequest", options.limit, {kServiceDescriptor, CMD_AUDIO_GETVOLUME});
}

} // namespace kelutv::tool
