#pragma once

#include "bench/support/Child.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace kelutv::bench {

/**
 * The floor over the kernel's driver: another process that answers a transaction by a reply, with one ioctl for each
 * on either side. It meets its caller at a device of its own, since a device has one service manager.
 */
class DriverEcho {
public:
    DriverEcho(size_t requestBytes, size_t replyBytes);
    ~DriverEcho();
    DriverEcho(const DriverEcho&) = delete;
    DriverEcho& operator=(const DriverEcho&) = delete;

    /** One transaction. */
    void roundTrip();
    pid_t process() const { return mAnswerer->process(); }

private:
    std::vector<uint8_t> mRequest;
    std::optional<Child> mAnswerer;
    int mDevice = -1;
    uint64_t mReceived = 0;
};

} // namespace kelutv::bench
