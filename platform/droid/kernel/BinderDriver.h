#pragma once

#include "socket/UniqueFd.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

namespace android {

/** The kernel's binder driver as one process has it open: everything that goes to the kernel passes here. */
class BinderDriver {
public:
    virtual ~BinderDriver() = default;

    /** One ioctl, taken up again when a signal interrupts it: 0 or a negative errno value. */
    virtual int control(unsigned long request, void* argument) = 0;

    /** True when the driver put `length` bytes at `data` into the memory that it shares with this process. */
    virtual bool owns(const uint8_t* data, size_t length) const = 0;
};

/** The driver behind a device file. */
class BinderDevice : public BinderDriver {
public:
    /** Null, with the reason in `problem`, when the device is no binder driver of the protocol spoken here. */
    static std::unique_ptr<BinderDevice> open(const std::string& path, std::string* problem);
    ~BinderDevice() override;

    int control(unsigned long request, void* argument) override;
    bool owns(const uint8_t* data, size_t length) const override;

private:
    explicit BinderDevice(kq::UniqueFd device) : mDevice(std::move(device)) {}

    int checkVersion();
    int map();

    const kq::UniqueFd mDevice;
    const uint8_t* mMemory = nullptr;
};

} // namespace android
