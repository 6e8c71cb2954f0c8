#include <binder/Parcel.h>

#include "InterfaceToken.h"
#include "ParcelObjects.h"

#include <algorithm>
#include <cstring>
#include <new>

namespace android {

namespace {

static_assert(__BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__, "words travel in little-endian order");

constexpr size_t kLargest = INT32_MAX;

constexpr size_t padded(size_t length) { return (length + 3) & ~size_t{3}; }

/** Copies `length` bytes to where there is room for them in whole words, and zeros behind them. */
void copyPadded(uint8_t* place, const void* bytes, size_t length) {
    if (length > 0) {
        std::memmove(place, bytes, length);
    }
    if (const size_t padding = padded(length) - length; padding != 0) {
        std::memset(place + length, 0, padding);
    }
}

} // namespace

/** Room for `capacity` bytes in all, more than there is now; false when there is none to be had. */
[[gnu::cold]] bool Parcel::reserve(size_t capacity) {
    if (capacity > kLargest) {
        return false;
    }
    const size_t larger = std::min(std::max({capacity, mSize, mCapacity + mCapacity / 2}), kLargest);
    auto* const moved = static_cast<uint8_t*>(::operator new(larger, std::nothrow));
    if (moved == nullptr) {
        return false;
    }
    if (mSize > 0) {
        std::memcpy(moved, mData, mSize);
    }
    if (mRelease != nullptr) {
        // What objects came with the buffer goes with it.
        mObjects.reset();
    }
    if (mData != mInline) {
        dropStorage();
    }
    mData = moved;
    mCapacity = larger;
    mRelease = nullptr;
    return true;
}

// The storage is left as it is: only what was written is ever read.
Parcel::Parcel() noexcept {}

Parcel::~Parcel() {
    if (mData != mInline) {
        dropStorage();
    }
}

void Parcel::useInlineStorage() {
    mData = mInline;
    mCapacity = kInlineCapacity;
    mRelease = nullptr;
}

/** Gives back storage that is not the parcel's own. */
void Parcel::dropStorage() {
    if (mRelease != nullptr) {
        mRelease(mOwner, mData);
    } else {
        ::operator delete(mData);
    }
}

void Parcel::freeData() {
    mSize = 0;
    mPosition = 0;
    if (mData != mInline) {
        dropStorage();
        useInlineStorage();
    }
    if (mObjects != nullptr) {
        mObjects.reset();
    }
}

void Parcel::setDataPosition(size_t position) const { mPosition = std::min(position, mSize); }

/** Room for `length` more bytes at the position, in whole words; null when there is none to be had. */
inline uint8_t* Parcel::grow(size_t length) {
    const size_t end = mPosition + padded(length);
    if (length > kLargest || (end > mCapacity && !reserve(end))) {
        return nullptr;
    }
    uint8_t* const place = mData + mPosition;
    mPosition = end;
    mSize = std::max(mSize, end);
    return place;
}

status_t Parcel::setData(const uint8_t* buffer, size_t length) {
    if (length > kLargest) {
        return BAD_VALUE;
    }
    // First, since what stands here stays when there is no memory for the new.
    if (length > mCapacity && !reserve(length)) {
        return NO_MEMORY;
    }
    if (mRelease != nullptr) {
        freeData();
    }
    if (mObjects != nullptr) {
        mObjects.reset();
    }
    mSize = length;
    mPosition = 0;
    if (length > 0) {
        std::memmove(mData, buffer, length);
    }
    return NO_ERROR;
}

status_t Parcel::appendFrom(const Parcel* parcel, size_t start, size_t length) {
    if (start > parcel->mSize || length > parcel->mSize - start) {
        return BAD_VALUE;
    }
    uint8_t* const place = grow(length);
    if (place == nullptr) {
        return NO_MEMORY;
    }
    // Only now, since a parcel that is appended to itself has moved.
    copyPadded(place, parcel->mData + start, length);
    return NO_ERROR;
}

status_t Parcel::writeInterfaceToken(const String16& interface) {
    return android::writeInterfaceToken(this, binderLevel(), interface);
}

bool Parcel::enforceInterface(const String16& interface, IPCThreadState*) const {
    return readInterfaceToken(*this, interface).accepted;
}

// Not put into those that write a word, which then save no registers for it.
[[gnu::noinline]] status_t Parcel::write(const void* bytes, size_t length) {
    if (length > kLargest) {
        return BAD_VALUE;
    }
    uint8_t* const place = grow(length);
    if (place == nullptr) {
        return NO_MEMORY;
    }
    copyPadded(place, bytes, length);
    return NO_ERROR;
}

template <typename T> status_t Parcel::writeScalar(T value) {
    const size_t end = mPosition + sizeof(value);
    if (end > mCapacity) {
        const T written = value;
        return write(&written, sizeof(written));
    }
    std::memcpy(mData + mPosition, &value, sizeof(value));
    mPosition = end;
    mSize = std::max(mSize, end);
    return NO_ERROR;
}

status_t Parcel::writeInt32(int32_t value) { return writeScalar(value); }
status_t Parcel::writeInt64(int64_t value) { return writeScalar(value); }
status_t Parcel::writeDouble(double value) { return writeScalar(value); }

status_t Parcel::writeCString(const char* text) {
    const char* const written = text == nullptr ? "" : text;
    return write(written, std::strlen(written) + 1);
}

status_t Parcel::writeString16(const String16& text) { return writeString16(text.string(), text.size()); }

status_t Parcel::writeString16(const char16_t* text, size_t length) {
    if (text == nullptr) {
        return writeInt32(-1);
    }
    if (length >= kLargest / sizeof(char16_t)) {
        return BAD_VALUE;
    }
    const auto units = static_cast<int32_t>(length);
    const size_t bytes = padded((length + 1) * sizeof(char16_t));
    uint8_t* const place = grow(sizeof(units) + bytes);
    if (place == nullptr) {
        return NO_MEMORY;
    }
    uint8_t* const units16 = place + sizeof(units);
    // The terminator and the padding are in the last word, which the text may begin.
    std::memset(units16 + bytes - sizeof(int32_t), 0, sizeof(int32_t));
    std::memcpy(place, &units, sizeof(units));
    std::memcpy(units16, text, length * sizeof(char16_t));
    return NO_ERROR;
}

const void* Parcel::readInplace(size_t length) const {
    if (length > dataAvail() || padded(length) > dataAvail()) {
        return nullptr;
    }
    const uint8_t* const place = mData + mPosition;
    mPosition += padded(length);
    return place;
}

status_t Parcel::read(void* bytes, size_t length) const {
    const void* const place = readInplace(length);
    if (place == nullptr) {
        return NOT_ENOUGH_DATA;
    }
    if (length > 0) {
        std::memcpy(bytes, place, length);
    }
    return NO_ERROR;
}

template <typename T> status_t Parcel::readScalar(T* value) const { return read(value, sizeof(*value)); }

status_t Parcel::readInt32(int32_t* value) const { return readScalar(value); }
status_t Parcel::readInt64(int64_t* value) const { return readScalar(value); }
status_t Parcel::readDouble(double* value) const { return readScalar(value); }

int32_t Parcel::readInt32() const {
    int32_t value = 0;
    readScalar(&value);
    return value;
}
int64_t Parcel::readInt64() const {
    int64_t value = 0;
    readScalar(&value);
    return value;
}
double Parcel::readDouble() const {
    double value = 0;
    readScalar(&value);
    return value;
}

const char* Parcel::readCString() const {
    const uint8_t* const start = mData + mPosition;
    const auto* const end =
        dataAvail() == 0 ? nullptr : static_cast<const uint8_t*>(std::memchr(start, 0, dataAvail()));
    if (end == nullptr) {
        return nullptr;
    }
    setDataPosition(mPosition + padded(static_cast<size_t>(end - start) + 1));
    return reinterpret_cast<const char*>(start);
}

const char16_t* Parcel::readString16Inplace(size_t* length) const {
    const size_t start = mPosition;
    int32_t units = -1;
    *length = 0;
    if (readInt32(&units) == NO_ERROR && units >= 0 && static_cast<size_t>(units) < dataAvail()) {
        const size_t count = static_cast<size_t>(units);
        if (const void* const text = readInplace((count + 1) * sizeof(char16_t)); text != nullptr) {
            *length = count;
            return static_cast<const char16_t*>(text);
        }
    }
    mPosition = start;
    return nullptr;
}

status_t Parcel::readString16(String16* text) const {
    size_t length = 0;
    const char16_t* const units = readString16Inplace(&length);
    if (units == nullptr) {
        return UNEXPECTED_NULL;
    }
    *text = String16(units, length);
    return NO_ERROR;
}

String16 Parcel::readString16() const {
    String16 text;
    readString16(&text);
    return text;
}

} // namespace android
