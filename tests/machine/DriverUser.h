#pragma once

#include "support/Deadline.h"

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <vector>

namespace kelutv::test {

/** A process's bare use of the kernel's driver, without the runtime. Throws when the driver refuses an ioctl. */
class DriverUser {
public:
    /** Opens /dev/binder and maps memory for what comes in. */
    explicit DriverUser(size_t memory);
    ~DriverUser();
    DriverUser(const DriverUser&) = delete;
    DriverUser& operator=(const DriverUser&) = delete;

    int32_t protocolVersion();
    void becomeContextManager();
    void enterLooper();

    /** Sends so many bytes to handle 0 and gives BR_REPLY, BR_DEAD_REPLY or BR_FAILED_REPLY. */
    uint32_t callContextManager(size_t size);
    /** Answers the call that came last with an empty reply. */
    void answer();

    /** Reads until one of the commands has come and gives it; 0 when none comes in time. */
    uint32_t await(std::initializer_list<uint32_t> commands);

private:
    void control(unsigned long request, void* argument);
    std::vector<uint32_t> readCommands();
    void send(uint32_t command, const void* payload, size_t size);

    const size_t mSize;
    const int mDevice;
    void* const mMemory;
};

} // namespace kelutv::test
