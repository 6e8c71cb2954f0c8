#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <vector>

namespace kelutv::test {

using Bytes = std::vector<std::uint8_t>;

/**
 * Expected parcel bytes, laid down without the parcel class whose work they check.
 *
 * Every item starts on a multiple of four bytes and is padded with zeros; numbers are little-endian.
 */
class Wire {
public:
    /** Starts a request: the interface token "android.ITVBaseService", then the command identifier. */
    static Wire request(int command);

    /** Starts a request with an interface token of a binder level: 28, 29 or 30. */
    static Wire token(int level, const char16_t* interface);

    /** Starts a reply, which has no token. */
    static Wire reply() { return Wire(); }

    Wire& i32(std::int32_t value);
    Wire& f64(double value);

    /** The bytes of the text and a terminating zero, without a length word. */
    Wire& cstr(const char* text);

    /** The length in UTF-16 units, the units and a terminating zero unit. */
    Wire& str16(const char16_t* text);
    Wire& raw(const void* data, std::size_t length);

    const Bytes& bytes() const { return mBytes; }

private:
    Bytes mBytes;
};

/** Builds a request of 32-bit integers only. */
Bytes requestOf(int command, std::initializer_list<std::int32_t> arguments = {});

/** Builds a reply of 32-bit integers only. */
Bytes replyOf(std::initializer_list<std::int32_t> words);

/** Shows bytes in hexadecimal, four to a group, for a failed comparison. */
std::string hex(const Bytes& bytes);

} // namespace kelutv::test
