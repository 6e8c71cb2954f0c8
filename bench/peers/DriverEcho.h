#pragma once

#include "bench/support/Child.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace kelutv::bench {

/**
 * The floor over the kernel's driver: another process that answers a transaction by a reply, with one ioctl for each
 * on either side. It meets its callers at a device of its own, since a device has one service manager; all of a process
 * share it.
 */
class DriverEcho {
public:
    static std::shared_ptr<DriverEcho> shared();
    DriverEcho();
    ~DriverEcho();
    DriverEcho(const DriverEcho&) = delete;
    DriverEcho& operator=(const DriverEcho&) = delete;

    /** One transaction. */
    void roundTrip(const std::vector<uint8_t>& request, size_t replyBytes);
    pid_t process() const { return mAnswerer->process(); }

private:
    std::optional<Child> mAnswerer;
    int mDevice = -1;
    uint64_t mReceived = 0;
};

} // namespace kelutv::bench
