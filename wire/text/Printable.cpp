#include "wire/text/Printable.h"

#include <cstdint>
#include <cstdio>

namespace kelutv::wire {

namespace {

std::uint8_t byteAt(std::string_view text, std::size_t at) {
    return at < text.size() ? static_cast<std::uint8_t>(text[at]) : 0;
}

bool isTail(std::uint8_t byte) { return (byte & 0xC0) == 0x80; }

/** Whether the byte after the first is one that this first byte takes: no overlong form, surrogate or control. */
bool isSecond(std::uint8_t first, std::uint8_t second) {
    switch (first) {
    case 0xC2:
    case 0xE0:
        return second >= 0xA0;
    case 0xED:
        return second < 0xA0;
    case 0xF0:
        return second >= 0x90;
    case 0xF4:
        return second < 0x90;
    default:
        return true;
    }
}

} // namespace

std::size_t lengthOfPrintable(std::string_view text, std::size_t at) {
    const std::uint8_t first = byteAt(text, at);
    if (first < 0x80) {
        return first >= 0x20 && first != 0x7F ? 1 : 0;
    }
    if (first < 0xC2 || first > 0xF4 || !isSecond(first, byteAt(text, at + 1))) {
        return 0;
    }
    const std::size_t length = first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
    for (std::size_t i = 1; i < length; ++i) {
        if (!isTail(byteAt(text, at + i))) {
            return 0;
        }
    }
    return length;
}

std::string escapedByte(std::string_view text, std::size_t at) {
    char code[8];
    std::snprintf(code, sizeof(code), "\\x%02x", byteAt(text, at));
    return code;
}

} // namespace kelutv::wire
