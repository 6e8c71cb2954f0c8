#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace kelutv::wire {

/**
 * Reads what a parcel holds from its bytes, which stay where they are and are not the reader's.
 *
 * Every item starts on a multiple of four bytes. What is not there in full is not read, and the position stays.
 */
class ByteReader {
public:
    ByteReader(const std::uint8_t* bytes, std::size_t size) : mBytes(bytes), mSize(size) {}

    std::size_t size() const { return mSize; }
    std::size_t position() const { return mPosition; }
    std::size_t available() const { return mSize - mPosition; }
    /** A position beyond the end is taken as the end. */
    void moveTo(std::size_t position) { mPosition = position < mSize ? position : mSize; }

    /** One number, an `std::int32_t` or a `double`; whether it is there. */
    bool read(std::int32_t& number) { return readBytes(&number, sizeof(number)); }
    bool read(double& number) { return readBytes(&number, sizeof(number)); }
    /** So many bytes, whose padding is there, too. */
    std::optional<std::string_view> readBlock(std::size_t length);
    /** A text with its terminator. */
    std::optional<std::string_view> readText();
    /** A text in UTF-16 behind the number of its units, with its terminator. */
    std::optional<std::u16string> readText16();

private:
    bool readBytes(void* number, std::size_t length);

    const std::uint8_t* mBytes;
    std::size_t mSize;
    std::size_t mPosition = 0;
};

} // namespace kelutv::wire
