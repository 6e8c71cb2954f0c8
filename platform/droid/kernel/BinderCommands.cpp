#include "BinderCommands.h"

#include "socket/ProcessLife.h"

#include <algorithm>
#include <cerrno>

namespace android {

namespace {

template <typename T> binder_uintptr_t addressOf(T* place) { return reinterpret_cast<uintptr_t>(place); }

} // namespace

uint8_t* BinderCommands::roomAmongMany(size_t length) {
    if (mMany.empty()) {
        mMany.assign(mFew.begin(), mFew.begin() + mSize);
    }
    mMany.resize(mSize + length);
    uint8_t* const place = mMany.data() + mSize;
    mSize += length;
    return place;
}

void BinderCommands::append(const BinderCommands& other) { std::memcpy(room(other.mSize), other.bytes(), other.mSize); }

int BinderCommands::sendTo(BinderDriver& driver) { return static_cast<int>(exchangeWith(driver, nullptr, 0)); }

ssize_t BinderCommands::exchangeWith(BinderDriver& driver, uint8_t* returns, size_t capacity) {
    binder_write_read exchange{mSize, 0, addressOf(bytes()), capacity, 0, addressOf(returns)};
    if (kq::inForkedChild()) {
        // To the driver a forked child speaks for its parent.
        clear();
        return -ENODEV;
    }
    const int error = driver.control(BINDER_WRITE_READ, &exchange);
    dropFirst(std::min(mSize, static_cast<size_t>(exchange.write_consumed)));
    if (error != 0) {
        return error;
    }
    return exchange.read_consumed <= capacity ? static_cast<ssize_t>(exchange.read_consumed) : -EPROTO;
}

void BinderCommands::moveUp(size_t length) {
    std::copy(bytes() + length, bytes() + mSize, bytes());
    mSize -= length;
    if (mSize == 0) {
        mMany.clear();
    }
}

} // namespace android
