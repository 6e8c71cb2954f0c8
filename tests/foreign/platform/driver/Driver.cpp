#include "foreign/platform/driver/Driver.h"

#include "foreign/platform/driver/Commands.h"

#include <linux/android/binder.h>

#include <fcntl.h>
#include <sys/mman.h>

#include <cerrno>
#include <cstring>

namespace foreign {

namespace {

constexpr char kDevice[] = "/dev/binder";
constexpr std::size_t kMemory = std::size_t{1016} * 1024;

/** What the driver hands over lies in the mapped memory, at an address that it gives as a number. */
const std::uint8_t* at(binder_uintptr_t address) {
    return reinterpret_cast<const std::uint8_t*>(static_cast<std::uintptr_t>(address));
}

std::optional<std::uint32_t> handleIn(const binder_transaction_data& reply) {
    if (reply.offsets_size < sizeof(binder_size_t)) {
        return std::nullopt;
    }
    binder_size_t offset = 0;
    flat_binder_object object{};
    std::memcpy(&offset, at(reply.data.ptr.offsets), sizeof(offset));
    std::memcpy(&object, at(reply.data.ptr.buffer) + offset, sizeof(object));
    return object.hdr.type == BINDER_TYPE_HANDLE ? std::optional(object.handle) : std::nullopt;
}

Answer answerOf(const binder_transaction_data& reply) {
    Answer answer;
    answer.bytes.assign(at(reply.data.ptr.buffer), at(reply.data.ptr.buffer) + reply.data_size);
    if ((reply.flags & TF_STATUS_CODE) != 0 && answer.bytes.size() >= sizeof(answer.status)) {
        std::memcpy(&answer.status, answer.bytes.data(), sizeof(answer.status));
        return answer;
    }
    answer.handle = handleIn(reply);
    return answer;
}

/** Gives the reply's memory back; an object in it is held first. */
void release(int device, const binder_transaction_data& reply, const Answer& answer) {
    Commands commands;
    if (answer.handle) {
        commands.add(BC_INCREFS, *answer.handle).add(BC_ACQUIRE, *answer.handle);
    }
    commands.add(BC_FREE_BUFFER, reply.data.ptr.buffer);
    commands.write(device);
}

} // namespace

Driver::Driver() : mDevice(::open(kDevice, O_RDWR | O_CLOEXEC)) {
    constexpr int kFlags = MAP_PRIVATE | MAP_NORESERVE;
    void* const memory = mDevice < 0 ? MAP_FAILED : ::mmap(nullptr, kMemory, PROT_READ, kFlags, mDevice, 0);
    if (memory != MAP_FAILED) {
        mMemory = memory;
    } else {
        mComplaint = std::string(kDevice) + " cannot be used: " + std::strerror(errno);
    }
}

Driver& Driver::ofProcess() {
    static auto* const driver = new Driver;
    return *driver;
}

Answer Driver::call(std::uint32_t handle, std::uint32_t code, const Bytes& request) {
    binder_transaction_data call{};
    call.target.handle = handle;
    call.code = code;
    call.data_size = request.size();
    call.data.ptr.buffer = reinterpret_cast<std::uintptr_t>(request.data());
    if (!Commands().add(BC_TRANSACTION, call).write(mDevice)) {
        return {android::NOT_SENT, {}, std::nullopt};
    }
    const Notice notice = awaitNotice(mDevice, {BR_REPLY, BR_DEAD_REPLY, BR_FAILED_REPLY});
    if (notice.command != BR_REPLY) {
        const auto status = notice.command == BR_DEAD_REPLY ? android::DEAD_OBJECT : android::NOT_SENT;
        return {status, {}, std::nullopt};
    }
    const auto reply = notice.as<binder_transaction_data>();
    Answer answer = answerOf(reply);
    release(mDevice, reply, answer);
    return answer;
}

void Driver::awaitDeath(std::uint32_t handle) {
    const binder_handle_cookie watched{handle, handle};
    Commands().add(BC_ENTER_LOOPER).add(BC_REQUEST_DEATH_NOTIFICATION, watched).write(mDevice);
    const Notice notice = awaitNotice(mDevice, {BR_DEAD_BINDER});
    Commands().add(BC_DEAD_BINDER_DONE, notice.as<binder_uintptr_t>()).write(mDevice);
}

} // namespace foreign
