#include "Utf.h"

#include <algorithm>

#include <cstdint>

namespace android {

namespace {

constexpr char32_t kReplacement = 0xFFFD;
constexpr char32_t kLastCodePoint = 0x10FFFF;

bool isHighSurrogate(char32_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
bool isLowSurrogate(char32_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

struct Lead {
    std::size_t length;
    char32_t bits;
    char32_t smallest;
};

/** What a lead byte announces; length 0 for a byte that leads nothing. */
Lead leadOf(std::uint8_t byte) {
    if (byte < 0x80) {
        return {1, byte, 0};
    }
    if ((byte & 0xE0) == 0xC0) {
        return {2, byte & 0x1Fu, 0x80};
    }
    if ((byte & 0xF0) == 0xE0) {
        return {3, byte & 0x0Fu, 0x800};
    }
    if ((byte & 0xF8) == 0xF0) {
        return {4, byte & 0x07u, 0x10000};
    }
    return {0, 0, 0};
}

/** Decodes one code point and moves on; a bad byte is passed alone. */
char32_t decode(const char* text, std::size_t length, std::size_t* at) {
    const Lead lead = leadOf(static_cast<std::uint8_t>(text[*at]));
    const std::size_t start = (*at)++;
    if (lead.length == 0 || lead.length > length - start) {
        return kReplacement;
    }
    char32_t point = lead.bits;
    for (std::size_t i = 1; i < lead.length; ++i) {
        const auto byte = static_cast<std::uint8_t>(text[start + i]);
        if ((byte & 0xC0) != 0x80) {
            return kReplacement;
        }
        point = (point << 6) | (byte & 0x3Fu);
    }
    if (point < lead.smallest || point > kLastCodePoint || isHighSurrogate(point) || isLowSurrogate(point)) {
        return kReplacement;
    }
    *at = start + lead.length;
    return point;
}

void append(std::u16string* text, char32_t point) {
    if (point < 0x10000) {
        text->push_back(static_cast<char16_t>(point));
        return;
    }
    point -= 0x10000;
    text->push_back(static_cast<char16_t>(0xD800 + (point >> 10)));
    text->push_back(static_cast<char16_t>(0xDC00 + (point & 0x3FF)));
}

void append(std::string* text, char32_t point) {
    const auto tail = [point](int shift) { return static_cast<char>(0x80 | ((point >> shift) & 0x3F)); };
    if (point < 0x80) {
        text->push_back(static_cast<char>(point));
    } else if (point < 0x800) {
        text->push_back(static_cast<char>(0xC0 | (point >> 6)));
        text->push_back(tail(0));
    } else if (point < 0x10000) {
        text->push_back(static_cast<char>(0xE0 | (point >> 12)));
        text->push_back(tail(6));
        text->push_back(tail(0));
    } else {
        text->push_back(static_cast<char>(0xF0 | (point >> 18)));
        text->push_back(tail(12));
        text->push_back(tail(6));
        text->push_back(tail(0));
    }
}

constexpr std::size_t kLongestPrinted = 128;

/** Control characters, line separators, and marks that change the direction of what follows. */
bool steersTerminal(char16_t unit) {
    return unit < 0x20 || (unit >= 0x7F && unit < 0xA0) || (unit >= 0x2028 && unit <= 0x202E) ||
           (unit >= 0x2066 && unit <= 0x2069);
}

std::u16string escaped(char16_t unit) {
    constexpr char16_t kDigits[] = u"0123456789ABCDEF";
    std::u16string text = u"\\u";
    for (int shift = 12; shift >= 0; shift -= 4) {
        text += kDigits[(unit >> shift) & 0xF];
    }
    return text;
}

} // namespace

std::u16string utf8ToUtf16(const char* text, std::size_t length) {
    std::u16string result;
    for (std::size_t at = 0; at < length;) {
        append(&result, decode(text, length, &at));
    }
    return result;
}

std::string utf16ToUtf8(const char16_t* text, std::size_t length) {
    std::string result;
    for (std::size_t at = 0; at < length; ++at) {
        char32_t point = text[at];
        if (isHighSurrogate(point) && at + 1 < length && isLowSurrogate(text[at + 1])) {
            point = 0x10000 + ((point - 0xD800) << 10) + (text[++at] - 0xDC00u);
        } else if (isHighSurrogate(point) || isLowSurrogate(point)) {
            point = kReplacement;
        }
        append(&result, point);
    }
    return result;
}

std::string printable(const char16_t* text, std::size_t length) {
    std::u16string shown;
    for (std::size_t at = 0; at < std::min(length, kLongestPrinted); ++at) {
        if (text[at] == u'\\') {
            shown += u"\\\\";
        } else if (steersTerminal(text[at])) {
            shown += escaped(text[at]);
        } else {
            shown += text[at];
        }
    }
    return utf16ToUtf8(shown.data(), shown.size()) + (length > kLongestPrinted ? "..." : "");
}

} // namespace android
