#include "DriverUser.h"

#include <linux/android/binder.h>

#include <fcntl.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <system_error>

namespace kelutv::test {

DriverUser::DriverUser(size_t memory)
    : mSize(memory), mDevice(::open("/dev/binder", O_RDWR | O_CLOEXEC)),
      mMemory(::mmap(nullptr, memory, PROT_READ, MAP_PRIVATE, mDevice, 0)) {
    if (mMemory == MAP_FAILED) {
        throw std::system_error(errno, std::generic_category(), "/dev/binder");
    }
}

DriverUser::~DriverUser() {
    ::munmap(mMemory, mSize);
    ::close(mDevice);
}

int32_t DriverUser::protocolVersion() {
    binder_version version{};
    control(BINDER_VERSION, &version);
    return version.protocol_version;
}

void DriverUser::becomeContextManager() {
    int32_t unused = 0;
    control(BINDER_SET_CONTEXT_MGR, &unused);
}

void DriverUser::enterLooper() { send(BC_ENTER_LOOPER, nullptr, 0); }

uint32_t DriverUser::callContextManager(size_t size) {
    const std::vector<uint8_t> bytes(size);
    binder_transaction_data call{};
    call.data_size = size;
    call.data.ptr.buffer = reinterpret_cast<uintptr_t>(bytes.data());
    send(BC_TRANSACTION, &call, sizeof(call));
    return await({BR_REPLY, BR_DEAD_REPLY, BR_FAILED_REPLY});
}

void DriverUser::answer() {
    const binder_transaction_data nothing{};
    send(BC_REPLY, &nothing, sizeof(nothing));
    await({BR_TRANSACTION_COMPLETE});
}

uint32_t DriverUser::await(std::initializer_list<uint32_t> commands) {
    for (;;) {
        pollfd device{mDevice, POLLIN, 0};
        if (::poll(&device, 1, static_cast<int>(kPatience.count())) <= 0) {
            return 0;
        }
        for (const uint32_t command : readCommands()) {
            if (std::find(commands.begin(), commands.end(), command) != commands.end()) {
                return command;
            }
        }
    }
}

std::vector<uint32_t> DriverUser::readCommands() {
    std::array<uint8_t, 256> bytes{};
    binder_write_read exchange{};
    exchange.read_size = bytes.size();
    exchange.read_buffer = reinterpret_cast<uintptr_t>(bytes.data());
    control(BINDER_WRITE_READ, &exchange);
    std::vector<uint32_t> commands;
    uint32_t command = 0;
    for (size_t at = 0; at < exchange.read_consumed; at += sizeof(command) + _IOC_SIZE(command)) {
        std::memcpy(&command, bytes.data() + at, sizeof(command));
        commands.push_back(command);
    }
    return commands;
}

void DriverUser::send(uint32_t command, const void* payload, size_t size) {
    std::array<uint8_t, 128> bytes{};
    std::memcpy(bytes.data(), &command, sizeof(command));
    if (size != 0) {
        std::memcpy(bytes.data() + sizeof(command), payload, size);
    }
    binder_write_read exchange{};
    exchange.write_size = sizeof(command) + size;
    exchange.write_buffer = reinterpret_cast<uintptr_t>(bytes.data());
    control(BINDER_WRITE_READ, &exchange);
}

void DriverUser::control(unsigned long request, void* argument) {
    if (::ioctl(mDevice, request, argument) < 0) {
        throw std::system_error(errno, std::generic_category(), "binder ioctl");
    }
}

} // namespace kelutv::test
