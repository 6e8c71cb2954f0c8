#pragma once

#include "support/Deadline.h"
#include "support/Wire.h"

#include <linux/android/binder.h>

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <vector>

namespace kelutv::test {

/** A process's bare use of the kernel's driver, without the runtime. Throws when the driver refuses an ioctl. */
class DriverUser {
public:
    /** A call or an answer as it came in; the handles in it are held. */
    struct Message {
        /** BR_TRANSACTION, BR_REPLY, BR_DEAD_REPLY or BR_FAILED_REPLY; 0 for none in time. */
        uint32_t command = 0;
        uint32_t code = 0;
        uint32_t flags = 0;
        Bytes content{};
        std::vector<uint32_t> handles{};

        /** The status that came instead of an answer; 0 for none. */
        int32_t status() const;
    };

    /** Opens /dev/binder and maps memory for what comes in. */
    explicit DriverUser(size_t memory);
    ~DriverUser();
    DriverUser(const DriverUser&) = delete;
    DriverUser& operator=(const DriverUser&) = delete;

    int32_t protocolVersion();
    void becomeContextManager();
    void enterLooper();

    /** A request with objects at these places, and what came of it. */
    Message call(uint32_t handle, uint32_t code, const Bytes& content, const std::vector<binder_size_t>& objects = {});
    /** Sends so many bytes to handle 0 and gives BR_REPLY, BR_DEAD_REPLY or BR_FAILED_REPLY. */
    uint32_t callContextManager(size_t size) { return call(0, 0, Bytes(size)).command; }
    /** The next call that comes in. */
    Message nextCall() { return await({BR_TRANSACTION}); }
    /** Answers the call that came last. */
    void answer(const Bytes& content = {});
    /** The same with a status. */
    void refuse(int32_t status);

    /** Reads until one of the commands has come and gives it. */
    Message await(std::initializer_list<uint32_t> commands);

    /** An object of this process in a parcel. */
    static Bytes object();

private:
    struct Command {
        uint32_t code;
        Bytes payload;
    };

    void control(unsigned long request, void* argument);
    std::vector<Command> readCommands();
    void acknowledge(const Command& command);
    Message messageOf(const Command& command);
    void send(uint32_t command, const void* payload, size_t size);
    void sendAnswer(const void* content, size_t size, uint32_t flags);

    const size_t mSize;
    const int mDevice;
    void* const mMemory;
    std::vector<Command> mUnread;
};

} // namespace kelutv::test
