#include <binder/Parcel.h>

#include "InterfaceToken.h"
#include "ParcelObjects.h"
#include "ParcelRoom.h"

#include <algorithm>
#include <cstring>
#include <new>

namespace android {

namespace {

static_assert(__BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__, "words travel in little-endian order");

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
    if (capacity > kLargestParcel) {
        return false;
    }
    const size_t larger = std::min(std::max({capacity, mSize, mCapacity + mCapacity / 2}), kLargestParcel);
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
    if (holdsMore()) {
        dropAll();
    }
}

/** Whether there is anything that is to be given back. */
inline bool Parcel::holdsMore() const { return mData != mInline || mObjects != nullptr; }

/** Gives back all that is not the parcel's own, which is empty then. */
[[gnu::cold, gnu::noinline]] void Parcel::dropAll() {
    mSize = 0;
    mPosition = 0;
    if (mData != mInline) {
        dropStorage();
        useInlineStorage();
    }
    mObjects.reset();
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
    if (holdsMore()) {
        dropAll();
    }
}

void Parcel::setDataPosition(size_t position) const { mPosition = std::min(position, mSize); }

status_t Parcel::setData(const uint8_t* buffer, size_t length) {
    if (length == 0 || length > mCapacity || mObjects != nullptr) {
        return replaceData(buffer, length);
    }
    mSize = length;
    mPosition = 0;
    std::memmove(mData, buffer, length);
    return NO_ERROR;
}

[[gnu::noinline]] status_t Parcel::replaceData(const uint8_t* buffer, size_t length) {
    if (length > kLargestParcel) {
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
    if (!makeRoom(length)) {
        return NO_MEMORY;
    }
    // Only now, since a parcel that is appended to itself has moved.
    copyPadded(advance(length), parcel->mData + start, length);
    return NO_ERROR;
}

bool Parcel::enforceInterface(const String16& interface, IPCThreadState*) const {
    return readInterfaceToken(*this, interface).accepted;
}

// Not put into those that write a word, which then save no registers for it.
[[gnu::noinline]] status_t Parcel::write(const void* bytes, size_t length) {
    if (length == 0 || length > kLargestParcel || padded(length) != length || mPosition + length > mCapacity) {
        return writePadded(bytes, length);
    }
    std::memmove(advance(length), bytes, length);
    return NO_ERROR;
}

[[gnu::noinline]] status_t Parcel::writePadded(const void* bytes, size_t length) {
    if (length > kLargestParcel) {
        return BAD_VALUE;
    }
    if (!makeRoom(length)) {
        return NO_MEMORY;
    }
    copyPadded(advance(length), bytes, length);
    return NO_ERROR;
}

template <typename T> status_t Parcel::writeScalar(T value) {
    if (mPosition + sizeof(value) > mCapacity) {
        const T written = value;
        return write(&written, sizeof(written));
    }
    std::memcpy(advance(sizeof(value)), &value, sizeof(value));
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
    if (length >= kLargestParcel / sizeof(char16_t)) {
        return BAD_VALUE;
    }
    const size_t size = stringSize(length);
    if (!makeRoom(size)) {
        return NO_MEMORY;
    }
    putString(advance(size), text, length);
    return NO_ERROR;
}

status_t Parcel::writeInterfaceToken(const String16& interface) {
    return android::writeInterfaceToken(this, binderLevel(), interface);
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
