#include "foreign/platform/droid/Utf8.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

namespace foreign {

namespace {

/** A lead byte: its bits under the mask, how many bytes follow, and the least that they may stand for. */
struct Lead {
    std::uint8_t mask;
    std::uint8_t bits;
    std::size_t following;
    char32_t least;
};

constexpr std::array<Lead, 4> kLeads{
    {{0x80, 0x00, 0, 0}, {0xE0, 0xC0, 1, 0x80}, {0xF0, 0xE0, 2, 0x800}, {0xF8, 0xF0, 3, 0x10000}}};
constexpr char32_t kNone = 0xFFFD;

bool isScalar(char32_t value, char32_t least) {
    return value >= least && value <= 0x10FFFF && (value < 0xD800 || value > 0xDFFF);
}

/** The next character; moves behind it, or behind one byte when there is none. */
char32_t next(const std::string& text, std::size_t& at) {
    const auto first = static_cast<std::uint8_t>(text[at++]);
    const auto* const lead =
        std::find_if(kLeads.begin(), kLeads.end(), [first](const Lead& one) { return (first & one.mask) == one.bits; });
    if (lead == kLeads.end() || text.size() - at < lead->following) {
        return kNone;
    }
    char32_t value = first & static_cast<std::uint8_t>(~lead->mask);
    for (std::size_t i = 0; i < lead->following; ++i) {
        const auto byte = static_cast<std::uint8_t>(text[at + i]);
        if ((byte & 0xC0U) != 0x80) {
            return kNone;
        }
        value = value << 6 | (byte & 0x3FU);
    }
    if (!isScalar(value, lead->least)) {
        return kNone;
    }
    at += lead->following;
    return value;
}

} // namespace

std::u16string utf16(const std::string& utf8) {
    std::u16string units;
    for (std::size_t at = 0; at < utf8.size();) {
        const char32_t value = next(utf8, at);
        if (value < 0x10000) {
            units += static_cast<char16_t>(value);
        } else {
            units += static_cast<char16_t>(0xD7C0 + (value >> 10));
            units += static_cast<char16_t>(0xDC00 + (value & 0x3FFU));
        }
    }
    return units;
}

std::string ascii(const std::u16string& text) {
    std::string bytes;
    for (const char16_t unit : text) {
        bytes += unit > 0x20 && unit < 0x7F && unit != u'/' ? static_cast<char>(unit) : '?';
    }
    return bytes;
}

} // namespace foreign
