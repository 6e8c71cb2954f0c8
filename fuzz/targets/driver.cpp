#include "fuzz/support/Driver.h"
#include "fuzz/support/Input.h"
#include "fuzz/support/Target.h"

#include "droid/LocalObjects.h"
#include "droid/kernel/KernelConversation.h"

#include <binder/Parcel.h>

#include <array>

/** Anything that the kernel's driver may say while this process calls, and calls that come in meanwhile. */
namespace kelutv::fuzz {
namespace {

using android::Parcel;
using android::status_t;
using test::Command;

constexpr std::size_t kMostDelivered = 3000;
constexpr std::size_t kMostReads = 16;

/** Reads all that a parcel has, binders too. */
void readAll(const Parcel& data) {
    touch(data.data(), data.dataSize());
    while (data.dataAvail() > 0) {
        const std::size_t before = data.dataPosition();
        if (Driver::binder().readObject(data) == nullptr) {
            data.readInt32();
        }
        if (data.dataPosition() == before) {
            return;
        }
    }
}

/** Answers a call by what it brought. */
class Echo : public android::BBinder {
protected:
    status_t onTransact(uint32_t code, const Parcel& data, Parcel* reply, uint32_t flags) override {
        if (code > LAST_CALL_TRANSACTION) {
            return BBinder::onTransact(code, data, reply, flags);
        }
        readAll(data);
        return reply == nullptr ? status_t{android::NO_ERROR} : reply->appendFrom(&data, 0, data.dataSize());
    }
};

constexpr std::array<std::uint32_t, 9> kBare{BR_NOOP,         BR_TRANSACTION_COMPLETE, BR_DEAD_REPLY,
                                             BR_FAILED_REPLY, BR_SPAWN_LOOPER,         BR_FROZEN_REPLY,
                                             BR_FINISHED,     BR_ONEWAY_SPAM_SUSPECT,  BR_OK};
constexpr std::array<std::uint32_t, 4> kReferences{BR_INCREFS, BR_ACQUIRE, BR_RELEASE, BR_DECREFS};

/** What the driver says, put together from the input. */
class Script {
public:
    Script(Input& input, test::FakeDriver& driver, std::uint64_t object)
        : mInput(input), mDriver(driver), mObject(object) {}

    void play() {
        for (std::size_t i = 0; i < kMostReads && !mInput.isEmpty(); ++i) {
            mDriver.say(oneRead());
        }
    }

private:
    Bytes oneRead() {
        Bytes said = bytesOf(test::command(BR_NOOP));
        while (!mInput.isEmpty() && mInput.below(8) != 0) {
            const Bytes more = oneCommand();
            said.insert(said.end(), more.begin(), more.end());
        }
        return said;
    }

    static Bytes bytesOf(const Command& command) {
        const auto* const code = reinterpret_cast<const std::uint8_t*>(&command.code);
        Bytes bytes(code, code + sizeof command.code);
        bytes.insert(bytes.end(), command.payload.begin(), command.payload.end());
        return bytes;
    }

    Bytes oneCommand() {
        switch (mInput.below(6)) {
        case 0:
            return bytesOf(test::command(BR_REPLY, message()));
        case 1:
            return bytesOf(test::command(BR_TRANSACTION, message()));
        case 2: {
            const binder_ptr_cookie reference{number(), number()};
            return bytesOf(test::command(kReferences[mInput.below(kReferences.size())], reference));
        }
        case 3:
            return bytesOf(test::command(BR_DEAD_BINDER, static_cast<binder_uintptr_t>(mInput.below(16))));
        case 4:
            return mInput.block();
        default:
            return bytesOf(test::command(kBare[mInput.below(kBare.size())]));
        }
    }

    /** That of the one object, mostly. */
    std::uint64_t number() { return mInput.below(8) != 0 ? mObject : mInput.number<std::uint64_t>(); }

    binder_transaction_data message() {
        Bytes content = mInput.block();
        content.resize(std::min(content.size(), kMostDelivered - std::min(kMostDelivered, mDelivered)));
        std::vector<binder_size_t> offsets(mInput.below(4));
        for (binder_size_t& offset : offsets) {
            offset = static_cast<binder_size_t>(mInput.small());
        }
        mDelivered += content.size() + 16 + offsets.size() * sizeof(binder_size_t) + 16;
        binder_transaction_data message =
            mDelivered < kMostDelivered ? mDriver.message(content, offsets) : binder_transaction_data{};
        message.target.ptr = message.cookie = number();
        message.code = mInput.number<std::uint32_t>();
        message.flags = mInput.number<std::uint8_t>();
        if (mInput.below(8) == 0) {
            damage(message);
        }
        return message;
    }

    void damage(binder_transaction_data& message) {
        message.data_size = mInput.number<std::uint64_t>();
        message.offsets_size = mInput.number<std::uint64_t>();
        message.data.ptr.buffer += static_cast<binder_uintptr_t>(mInput.number<std::int16_t>());
        message.data.ptr.offsets += static_cast<binder_uintptr_t>(mInput.number<std::int16_t>());
    }

    Input& mInput;
    test::FakeDriver& mDriver;
    const std::uint64_t mObject;
    std::size_t mDelivered = 0;
};

void call(Input& input) {
    const auto flags = static_cast<std::uint32_t>(input.below(2));
    Parcel request;
    request.writeInt32(7);
    Parcel reply;
    android::KernelConversation(Driver::binder()).call(5, 1, request, flags == 0 ? &reply : nullptr, flags);
    readAll(reply);
    reply.writeInt32(1);
}

} // namespace
} // namespace kelutv::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace kelutv::fuzz;
    Input input(data, size);
    android::KernelBinder& binder = Driver::binder();
    kelutv::test::FakeDriver& driver = Driver::renew();
    const android::sp<android::BBinder> object = new Echo;
    const std::uint64_t number = android::LocalObjects::instance().hold(object);
    static_cast<void>(binder);
    const std::size_t calls = 1 + input.below(4);
    Script(input, driver, number).play();
    for (std::size_t i = 0; i < calls; ++i) {
        call(input);
    }
    android::LocalObjects::instance().release(number);
    return 0;
}
