#pragma once

#include <binder/Parcel.h>

#include <algorithm>
#include <cstring>

namespace android {

constexpr size_t kLargestParcel = INT32_MAX;

constexpr size_t padded(size_t length) { return (length + 3) & ~size_t{3}; }

/** How much a string of so many units takes: their number, the units, a terminator, all in whole words. */
constexpr size_t stringSize(size_t length) { return sizeof(int32_t) + padded((length + 1) * sizeof(char16_t)); }

/** Puts a string where there is room for it. */
inline void putString(uint8_t* place, const char16_t* text, size_t length) {
    const auto units = static_cast<int32_t>(length);
    // The terminator and the padding are in the last word, which the text may begin.
    std::memset(place + stringSize(length) - sizeof(int32_t), 0, sizeof(int32_t));
    std::memcpy(place, &units, sizeof(units));
    std::memcpy(place + sizeof(units), text, length * sizeof(char16_t));
}

/** Makes room for `length` more bytes at the position, in whole words; false when there is none to be had. */
inline bool Parcel::makeRoom(size_t length) {
    const size_t end = mPosition + padded(length);
    return length <= kLargestParcel && (end <= mCapacity || reserve(end));
}

/** Moves the position by `length` bytes, in whole words, for which there is room, and gives the place where it was. */
inline uint8_t* Parcel::advance(size_t length) {
    uint8_t* const place = mData + mPosition;
    mPosition += padded(length);
    mSize = std::max(mSize, mPosition);
    return place;
}

} // namespace android
