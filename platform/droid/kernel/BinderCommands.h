#pragma once

#include "BinderDriver.h"

#include <linux/android/binder.h>
#include <sys/types.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <vector>

namespace android {

/** Commands on their way to the driver. */
class BinderCommands {
public:
    template <typename Payload> void append(uint32_t command, const Payload& payload) {
        uint8_t* const place = room(sizeof(command) + sizeof(payload));
        std::memcpy(place, &command, sizeof(command));
        std::memcpy(place + sizeof(command), &payload, sizeof(payload));
    }
    void append(uint32_t command) { std::memcpy(room(sizeof(command)), &command, sizeof(command)); }
    /** Appends what another one has still to send. */
    void append(const BinderCommands& other);
    bool empty() const { return mSize == 0; }
    /** How many bytes are still to be sent. */
    size_t size() const { return mSize; }
    /** True when so many bytes more, commands and what comes with them, take no memory. */
    bool hasRoomFor(size_t length) const { return mMany.empty() && mFew.size() - mSize >= length; }
    /** Drops what was not sent. */
    void clear() { dropFirst(mSize); }
    void dropFirst(size_t length) {
        if (length == mSize && mMany.empty()) {
            mSize = 0;
        } else if (length > 0) {
            moveUp(length);
        }
    }

    /**
     * Sends what was appended, without waiting for anything: 0 or a negative errno value. What the driver leaves stays
     * for the next time: it takes nothing from a thread that has still to be told of a failure, nor while it has no
     * memory.
     */
    int sendTo(BinderDriver& driver);
    /**
     * As sendTo, and waits for what the driver has for this thread: the number of bytes put into `returns`
     * or a negative errno value.
     */
    ssize_t exchangeWith(BinderDriver& driver, uint8_t* returns, size_t capacity);

private:
    /** Where `length` more bytes go. */
    uint8_t* room(size_t length) {
        if (!hasRoomFor(length)) {
            return roomAmongMany(length);
        }
        uint8_t* const place = mFew.data() + mSize;
        mSize += length;
        return place;
    }
    uint8_t* roomAmongMany(size_t length);
    void moveUp(size_t length);
    uint8_t* bytes() { return mMany.empty() ? mFew.data() : mMany.data(); }
    const uint8_t* bytes() const { return mMany.empty() ? mFew.data() : mMany.data(); }

    size_t mSize = 0;
    std::array<uint8_t, 512> mFew;
    // All of them, once they are too many for that: a driver that takes none for the time being may not lose any.
    std::vector<uint8_t> mMany;
};

/** Reads what came from the driver; nothing beyond its end. */
class BinderReturns {
public:
    BinderReturns(const uint8_t* bytes, size_t size) : mNext(bytes), mEnd(bytes + size) {}

    /** Moves on to the next complete command that says anything; false when there is none. */
    bool next() {
        do {
            const auto left = static_cast<size_t>(mEnd - mNext);
            if (left < sizeof(mCommand)) {
                return false;
            }
            std::memcpy(&mCommand, mNext, sizeof(mCommand));
            mPayload = mNext + sizeof(mCommand);
            if (left - sizeof(mCommand) < _IOC_SIZE(mCommand)) {
                return false;
            }
            mNext = mPayload + _IOC_SIZE(mCommand);
        } while (mCommand == BR_NOOP);
        return true;
    }
    uint32_t command() const { return mCommand; }
    /** What came with the command; false when that is something of another size. */
    template <typename Payload> bool payload(Payload* payload) const {
        if (_IOC_SIZE(mCommand) != sizeof(*payload)) {
            return false;
        }
        std::memcpy(payload, mPayload, sizeof(*payload));
        return true;
    }

private:
    const uint8_t* mNext;
    const uint8_t* const mEnd;
    uint32_t mCommand = 0;
    const uint8_t* mPayload = nullptr;
};

} // namespace android
