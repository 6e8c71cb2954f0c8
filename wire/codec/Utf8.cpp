#include "wire/codec/Utf8.h"

#include <cstddef>

namespace kelutv::wire {

namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool isHigh(char16_t unit) { return (unit & 0xFC00) == 0xD800; }

bool isLow(char16_t unit) { return (unit & 0xFC00) == 0xDC00; }

/** The code point at `position`, which moves behind it. */
char32_t next(std::u16string_view text, std::size_t& position) {
    const char16_t unit = text[position++];
    if (isHigh(unit) && position < text.size() && isLow(text[position])) {
        return 0x10000 + (static_cast<char32_t>(unit - 0xD800) << 10) + (text[position++] - 0xDC00U);
    }
    return isHigh(unit) || isLow(unit) ? kReplacement : unit;
}

void append(std::string& text, char32_t point) {
    if (point < 0x80) {
        text += static_cast<char>(point);
        return;
    }
    const int tails = point < 0x800 ? 1 : point < 0x10000 ? 2 : 3;
    text += static_cast<char>(((0xFFU << (7 - tails)) & 0xFF) | point >> (6 * tails));
    for (int tail = tails - 1; tail >= 0; --tail) {
        text += static_cast<char>(0x80 | (point >> (6 * tail) & 0x3F));
    }
}

} // namespace

std::string toUtf8(std::u16string_view text) {
    std::string result;
    for (std::size_t position = 0; position < text.size();) {
        append(result, next(text, position));
    }
    return result;
}

} // namespace kelutv::wire
