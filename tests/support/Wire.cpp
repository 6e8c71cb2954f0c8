#include "support/Wire.h"

#include <cstdio>
#include <cstring>
#include <string>

namespace kelutv::test {

namespace {

constexpr std::int32_t kStrictModeWord = 0x00400000;
constexpr std::int32_t kNoWorkSource = -1;
constexpr std::int32_t kSystemHeader = 0x53595354; // "SYST"
constexpr std::size_t kAlignment = 4;

} // namespace

Wire Wire::request(int command) { return Wire().i32(kStrictModeWord).str16(u"android.ITVBaseService").i32(command); }

Wire Wire::token(int level, const char16_t* interface) {
    Wire wire = Wire().i32(kStrictModeWord);
    if (level >= 29) {
        wire.i32(kNoWorkSource);
    }
    if (level >= 30) {
        wire.i32(kSystemHeader);
    }
    return wire.str16(interface);
}

Wire& Wire::i32(std::int32_t value) { return raw(&value, sizeof value); }

Wire& Wire::f64(double value) { return raw(&value, sizeof value); }

Wire& Wire::cstr(const char* text) { return raw(text, std::strlen(text) + 1); }

Wire& Wire::str16(const char16_t* text) {
    const std::size_t units = std::char_traits<char16_t>::length(text);
    i32(static_cast<std::int32_t>(units));
    return raw(text, (units + 1) * sizeof(char16_t));
}

Wire& Wire::raw(const void* data, std::size_t length) {
    const auto* const first = static_cast<const std::uint8_t*>(data);
    mBytes.insert(mBytes.end(), first, first + length);
    mBytes.resize((mBytes.size() + kAlignment - 1) / kAlignment * kAlignment, 0);
    return *this;
}

Bytes requestOf(int command, std::initializer_list<std::int32_t> arguments) {
    Wire wire = Wire::request(command);
    for (const std::int32_t argument : arguments) {
        wire.i32(argument);
    }
    return wire.bytes();
}

Bytes replyOf(std::initializer_list<std::int32_t> words) {
    Wire wire = Wire::reply();
    for (const std::int32_t word : words) {
        wire.i32(word);
    }
    return wire.bytes();
}

std::string hex(const Bytes& bytes) {
    std::string text;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        char digits[4];
        std::snprintf(digits, sizeof digits, "%02x", static_cast<unsigned>(bytes[i]));
        text += (i > 0 && i % kAlignment == 0) ? " " : "";
        text += digits;
    }
    return text;
}

} // namespace kelutv::test
