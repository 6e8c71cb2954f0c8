#include "tools/kelutv/checks/ServiceLooks.h"

#include "tools/kelutv/checks/Asking.h"
#include "tools/kelutv/output/Errors.h"
#include "tools/kelutv/service/ServiceLink.h"
#include "wire/codec/Utf8.h"
#include "wire/text/Shown.h"

#include <binder/Parcel.h>

#include <cstring>
#include <filesystem>
#include <optional>

namespace kelutv::tool {

namespace {

/** The device of the kernel's driver that this process has open; empty without one. */
std::string openDevice() {
    std::error_code ignored;
    for (const auto& descriptor : std::filesystem::directory_iterator("/proc/self/fd", ignored)) {
        const std::string target = std::filesystem::read_symlink(descriptor.path(), ignored).string();
        if (target.rfind("/dev/", 0) == 0 && target.find("binder") != std::string::npos) {
            return target;
        }
    }
    return "";
}

/** The text with its length in front, as a parcel has it; nothing when it is not whole. */
std::optional<std::string> textIn(const android::Parcel& reply) {
    std::int32_t length = 0;
    if (reply.dataSize() < sizeof(length)) {
        return std::nullopt;
    }
    std::memcpy(&length, reply.data(), sizeof(length));
    if (length < 0 || (reply.dataSize() - sizeof(length)) / sizeof(char16_t) < static_cast<std::size_t>(length)) {
        return std::nullopt;
    }
    std::u16string text(static_cast<std::size_t>(length), u'\0');
    std::memcpy(text.data(), reply.data() + sizeof(length), text.size() * sizeof(char16_t));
    return wire::toUtf8(text);
}

} // namespace

Finding lookForTransport() {
    requireService();
    const std::string device = openDevice();
    return {Verdict::Good, device.empty() ? "not through a binder driver of the kernel"
                                          : "through the kernel's binder driver, " + device};
}

Finding lookAtDescriptor() {
    const android::Parcel request;
    android::Parcel reply;
    android::status_t status = 0;
    const auto service = requireService();
    const auto time = timeOf([&] { status = service->transact(kAskForInterface, request, &reply, 0); });
    if (status == android::DEAD_OBJECT) {
        throw LinkError("the service ended when it was asked for its descriptor");
    }
    const std::optional<std::string> descriptor = status == 0 ? textIn(reply) : std::nullopt;
    if (!descriptor) {
        return {Verdict::Warning, "the service does not say it (status " + std::to_string(status) + ')', time};
    }
    return {*descriptor == kServiceDescriptor ? Verdict::Good : Verdict::Bad,
            wire::shown(*descriptor) +
                (*descriptor == kServiceDescriptor ? "" : std::string(", not ") + kServiceDescriptor),
            time};
}

} // namespace kelutv::tool
