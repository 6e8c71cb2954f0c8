#include "DriverUser.h"

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

namespace {

constexpr binder_uintptr_t kObject = 0x1234;

const uint8_t* pointerTo(binder_uintptr_t address) {
    // NOLINTNEXTLINE(performance-no-int-to-ptr): the driver speaks of addresses as numbers.
    return reinterpret_cast<const uint8_t*>(static_cast<uintptr_t>(address));
}

Bytes copyOf(binder_uintptr_t address, binder_size_t size) {
    const uint8_t* const first = pointerTo(address);
    return size == 0 ? Bytes() : Bytes(first, first + static_cast<size_t>(size));
}

} // namespace

int32_t DriverUser::Message::status() const {
    int32_t word = 0;
    if ((flags & TF_STATUS_CODE) != 0 && content.size() == sizeof(word)) {
        std::memcpy(&word, content.data(), sizeof(word));
    }
    return word;
}

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

Bytes DriverUser::object() {
    flat_binder_object object{};
    object.hdr.type = BINDER_TYPE_BINDER;
    object.flags = 0x7F;
    object.binder = kObject;
    object.cookie = kObject;
    const auto* const bytes = reinterpret_cast<const uint8_t*>(&object);
    return {bytes, bytes + sizeof(object)};
}

DriverUser::Message DriverUser::call(uint32_t handle, uint32_t code, const Bytes& content,
                                     const std::vector<binder_size_t>& objects) {
    binder_transaction_data call{};
    call.target.handle = handle;
    call.code = code;
    call.data_size = content.size();
    call.data.ptr.buffer = reinterpret_cast<uintptr_t>(content.data());
    call.offsets_size = objects.size() * sizeof(binder_size_t);
    call.data.ptr.offsets = reinterpret_cast<uintptr_t>(objects.data());
    send(BC_TRANSACTION, &call, sizeof(call));
    return await({BR_REPLY, BR_DEAD_REPLY, BR_FAILED_REPLY});
}

void DriverUser::answer(const Bytes& content) { sendAnswer(content.data(), content.size(), 0); }

void DriverUser::refuse(int32_t status) { sendAnswer(&status, sizeof(status), TF_STATUS_CODE); }

void DriverUser::sendAnswer(const void* content, size_t size, uint32_t flags) {
    binder_transaction_data answer{};
    answer.flags = flags;
    answer.data_size = size;
    answer.data.ptr.buffer = reinterpret_cast<uintptr_t>(content);
    send(BC_REPLY, &answer, sizeof(answer));
    await({BR_TRANSACTION_COMPLETE});
}

DriverUser::Message DriverUser::await(std::initializer_list<uint32_t> commands) {
    for (;;) {
        while (!mUnread.empty()) {
            const Command next = mUnread.front();
            mUnread.erase(mUnread.begin());
            acknowledge(next);
            if (std::find(commands.begin(), commands.end(), next.code) != commands.end()) {
                return messageOf(next);
            }
        }
        pollfd device{mDevice, POLLIN, 0};
        if (::poll(&device, 1, static_cast<int>(kPatience.count())) <= 0) {
            return {};
        }
        mUnread = readCommands();
    }
}

/** The driver wants to hear of each reference that it has had taken. */
void DriverUser::acknowledge(const Command& command) {
    if (command.code == BR_INCREFS || command.code == BR_ACQUIRE) {
        send(command.code == BR_INCREFS ? BC_INCREFS_DONE : BC_ACQUIRE_DONE, command.payload.data(),
             command.payload.size());
    }
}

DriverUser::Message DriverUser::messageOf(const Command& command) {
    Message message;
    message.command = command.code;
    if (command.code != BR_TRANSACTION && command.code != BR_REPLY) {
        return message;
    }
    binder_transaction_data data{};
    std::memcpy(&data, command.payload.data(), sizeof(data));
    message.code = data.code;
    message.flags = data.flags;
    message.content = copyOf(data.data.ptr.buffer, data.data_size);
    const Bytes offsets = copyOf(data.data.ptr.offsets, data.offsets_size);
    for (size_t at = 0; at < offsets.size(); at += sizeof(binder_size_t)) {
        binder_size_t offset = 0;
        std::memcpy(&offset, offsets.data() + at, sizeof(offset));
        flat_binder_object object{};
        std::memcpy(&object, message.content.data() + static_cast<size_t>(offset), sizeof(object));
        const uint32_t handle = object.handle;
        send(BC_ACQUIRE, &handle, sizeof(handle));
        message.handles.push_back(handle);
    }
    const binder_uintptr_t buffer = data.data.ptr.buffer;
    send(BC_FREE_BUFFER, &buffer, sizeof(buffer));
    return message;
}

std::vector<DriverUser::Command> DriverUser::readCommands() {
    std::array<uint8_t, 512> bytes{};
    binder_write_read exchange{};
    exchange.read_size = bytes.size();
    exchange.read_buffer = reinterpret_cast<uintptr_t>(bytes.data());
    control(BINDER_WRITE_READ, &exchange);
    std::vector<Command> commands;
    for (size_t at = 0; at < exchange.read_consumed;) {
        Command command{};
        std::memcpy(&command.code, bytes.data() + at, sizeof(command.code));
        const uint8_t* const payload = bytes.data() + at + sizeof(command.code);
        command.payload.assign(payload, payload + _IOC_SIZE(command.code));
        at += sizeof(command.code) + command.payload.size();
        commands.push_back(std::move(command));
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
