#pragma once

#include <utils/Errors.h>
#include <utils/String16.h>

#include <cstddef>
#include <cstdint>
#include <memory>

namespace android {

enum class BinderLevel;
class IPCThreadState;
class ParcelObjects;

/**
 * The buffer that requests and replies are written to and read from, in the same order.
 *
 * Every item starts on a multiple of four bytes and is padded with zeros to one. Readers never pass the end: what is
 * not there reads as 0 or null and leaves the position where it was. Small parcels need no memory of their own.
 */
class Parcel {
public:
    Parcel() noexcept;
    ~Parcel();
    Parcel(const Parcel&) = delete;
    Parcel& operator=(const Parcel&) = delete;

    const uint8_t* data() const { return mData; }
    size_t dataSize() const { return mSize; }
    /** Bytes between the position and the end. */
    size_t dataAvail() const { return mSize - mPosition; }
    size_t dataPosition() const { return mPosition; }
    size_t dataCapacity() const { return mCapacity; }
    /** Moves the position; one beyond the end is taken as the end. */
    void setDataPosition(size_t position) const;
    /** Replaces the content by a copy of `length` bytes, position at the start; on failure the content stays. */
    status_t setData(const uint8_t* buffer, size_t length);
    /** Appends `length` bytes of another parcel from its offset `start`. BAD_VALUE beyond its end. */
    status_t appendFrom(const Parcel* parcel, size_t start, size_t length);
    /** Empties the parcel and gives its memory back. */
    void freeData();

    /** The words that requests of this process's binder level begin with, then the interface's descriptor. */
    status_t writeInterfaceToken(const String16& interface);
    /** Reads what writeInterfaceToken wrote at any binder level; false when it names another interface. */
    bool enforceInterface(const String16& interface, IPCThreadState* threadState = nullptr) const;

    /** `length` raw bytes, padded. BAD_VALUE for a length above INT32_MAX, as a negative one is. */
    status_t write(const void* bytes, size_t length);
    status_t writeInt32(int32_t value);
    status_t writeInt64(int64_t value);
    status_t writeDouble(double value);
    /** The bytes and their terminator, padded; a null pointer is written as the empty string. */
    status_t writeCString(const char* text);
    /** Length word, the UTF-16 units and a terminator, padded. */
    status_t writeString16(const String16& text);
    /** As above; a null pointer is written as the length word -1 alone. */
    status_t writeString16(const char16_t* text, size_t length);

    status_t read(void* bytes, size_t length) const;
    /** A pointer to the next `length` bytes, valid until the parcel changes; null when there are not as many. */
    const void* readInplace(size_t length) const;
    int32_t readInt32() const;
    status_t readInt32(int32_t* value) const;
    int64_t readInt64() const;
    status_t readInt64(int64_t* value) const;
    double readDouble() const;
    status_t readDouble(double* value) const;
    /** The next string, valid until the parcel changes; null when no terminated one is left. */
    const char* readCString() const;
    String16 readString16() const;
    status_t readString16(String16* text) const;
    /** The units of the next UTF-16 string and their number; null when there is none. */
    const char16_t* readString16Inplace(size_t* length) const;

private:
    friend class ParcelObjects;
    friend class ReceivedParcel;
    friend status_t writeInterfaceToken(Parcel* request, BinderLevel level, const String16& interface);

    /** Gives back memory that is not the parcel's own. */
    using Release = void (*)(void* owner, const uint8_t* data);

    // Holds any request of the int-shaped commands, so that those allocate nothing.
    static constexpr size_t kInlineCapacity = 256;

    bool makeRoom(size_t length);
    uint8_t* advance(size_t length);
    bool reserve(size_t capacity);
    bool holdsMore() const;
    void dropAll();
    void dropStorage();
    void useInlineStorage();
    status_t replaceData(const uint8_t* buffer, size_t length);
    status_t writePadded(const void* bytes, size_t length);
    template <typename T> status_t writeScalar(T value);
    template <typename T> status_t readScalar(T* value) const;

    alignas(8) uint8_t mInline[kInlineCapacity];
    uint8_t* mData = mInline;
    size_t mSize = 0;
    size_t mCapacity = kInlineCapacity;
    mutable size_t mPosition = 0;
    Release mRelease = nullptr;
    void* mOwner = nullptr;
    std::unique_ptr<ParcelObjects> mObjects;
};

} // namespace android
