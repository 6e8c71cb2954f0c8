#include "DriverEcho.h"

#include "bench/support/Failure.h"

#include <linux/android/binder.h>

#include <fcntl.h>
#include <sys/eventfd.h>
#include <sys/ioctl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstring>

namespace kelutv::bench {

namespace {

constexpr const char* kDevice = "/dev/binder-bench";
constexpr size_t kMemory = 4 * 1024 * 1024;
constexpr size_t kLargestReply = 1024 * 1024;

/** Commands for the driver, and what it returns. */
class Conversation {
public:
    explicit Conversation(int device) : mDevice(device) {}

    template <typename Payload> void add(uint32_t command, const Payload& payload) {
        put(&command, sizeof(command));
        put(&payload, sizeof(payload));
    }
    void add(uint32_t command) { put(&command, sizeof(command)); }

    /** Sends what was added, and waits until the driver returns this command: its message. */
    binder_transaction_data exchange(uint32_t awaited) {
        for (;;) {
            binder_write_read exchange{};
            exchange.write_buffer = addressOf(mCommands.data());
            exchange.write_size = mSize;
            exchange.read_buffer = addressOf(mReturns.data());
            exchange.read_size = mReturns.size();
            require(::ioctl(mDevice, BINDER_WRITE_READ, &exchange) == 0, "binder exchange");
            mSize = 0;
            binder_transaction_data message{};
            if (find(awaited, exchange.read_consumed, &message)) {
                return message;
            }
        }
    }

private:
    static binder_uintptr_t addressOf(const void* place) { return reinterpret_cast<uintptr_t>(place); }

    void put(const void* bytes, size_t length) {
        std::memcpy(mCommands.data() + mSize, bytes, length);
        mSize += length;
    }

    bool find(uint32_t awaited, size_t length, binder_transaction_data* message) const {
        for (size_t at = 0; at + sizeof(uint32_t) <= length;) {
            uint32_t command = 0;
            std::memcpy(&command, mReturns.data() + at, sizeof(command));
            at += sizeof(command);
            if (command == awaited) {
                std::memcpy(message, mReturns.data() + at, sizeof(*message));
                return true;
            }
            if (command == BR_DEAD_REPLY || command == BR_FAILED_REPLY) {
                giveUp("the driver refused a transaction");
            }
            at += _IOC_SIZE(command);
        }
        return false;
    }

    const int mDevice;
    std::array<uint8_t, 256> mCommands;
    std::array<uint8_t, 256> mReturns;
    size_t mSize = 0;
};

int openDevice() {
    const int device = ::open(kDevice, O_RDWR | O_CLOEXEC);
    require(device >= 0, kDevice);
    require(::mmap(nullptr, kMemory, PROT_READ, MAP_PRIVATE | MAP_NORESERVE, device, 0) != MAP_FAILED, kDevice);
    return device;
}

binder_transaction_data messageOf(const std::vector<uint8_t>& bytes, size_t size) {
    binder_transaction_data message{};
    message.data_size = size;
    message.data.ptr.buffer = reinterpret_cast<uintptr_t>(bytes.data());
    return message;
}

/** The code of a transaction says how many bytes the reply has. */
void answer(int ready) {
    const std::vector<uint8_t> reply(kLargestReply);
    const int device = openDevice();
    int unused = 0;
    require(::ioctl(device, BINDER_SET_CONTEXT_MGR, &unused) == 0, kDevice);
    ::eventfd_write(ready, 1);
    Conversation conversation(device);
    conversation.add(BC_ENTER_LOOPER);
    for (;;) {
        const binder_transaction_data request = conversation.exchange(BR_TRANSACTION);
        conversation.add(BC_FREE_BUFFER, request.data.ptr.buffer);
        conversation.add(BC_REPLY, messageOf(reply, std::min<size_t>(request.code, reply.size())));
    }
}

} // namespace

std::shared_ptr<DriverEcho> DriverEcho::shared() {
    static std::weak_ptr<DriverEcho> known;
    std::shared_ptr<DriverEcho> echo = known.lock();
    if (echo == nullptr) {
        echo = std::make_shared<DriverEcho>();
        known = echo;
    }
    return echo;
}

DriverEcho::DriverEcho() {
    const int ready = ::eventfd(0, EFD_CLOEXEC);
    mAnswerer.emplace([ready] { answer(ready); });
    eventfd_t value = 0;
    require(::eventfd_read(ready, &value) == 0, "eventfd");
    ::close(ready);
    mDevice = openDevice();
}

DriverEcho::~DriverEcho() { ::close(mDevice); }

void DriverEcho::roundTrip(const std::vector<uint8_t>& request, size_t replyBytes) {
    Conversation conversation(mDevice);
    if (mReceived != 0) {
        conversation.add(BC_FREE_BUFFER, mReceived);
    }
    binder_transaction_data message = messageOf(request, request.size());
    message.code = static_cast<uint32_t>(replyBytes);
    conversation.add(BC_TRANSACTION, message);
    mReceived = conversation.exchange(BR_REPLY).data.ptr.buffer;
}

} // namespace kelutv::bench
