#include "wire/text/Hexadecimal.h"

#include <cstddef>

namespace kelutv::wire {

namespace {

constexpr char kDigits[] = "0123456789abcdef";

/** -1 for what is no digit. */
int digitOf(char letter) {
    if (letter >= '0' && letter <= '9') {
        return letter - '0';
    }
    if (letter >= 'a' && letter <= 'f') {
        return letter - 'a' + 10;
    }
    return letter >= 'A' && letter <= 'F' ? letter - 'A' + 10 : -1;
}

} // namespace

std::string hexadecimalOf(const std::vector<std::uint8_t>& bytes) {
    std::string digits;
    digits.reserve(bytes.size() * 2);
    for (const std::uint8_t byte : bytes) {
        digits += kDigits[byte >> 4];
        digits += kDigits[byte & 0xf];
    }
    return digits;
}

std::optional<std::vector<std::uint8_t>> bytesOfHexadecimal(const std::string& digits) {
    if (digits.size() % 2 != 0) {
        return std::nullopt;
    }
    std::vector<std::uint8_t> bytes;
    bytes.reserve(digits.size() / 2);
    for (std::size_t i = 0; i < digits.size(); i += 2) {
        const int high = digitOf(digits[i]);
        const int low = digitOf(digits[i + 1]);
        if (high < 0 || low < 0) {
            return std::nullopt;
        }
        bytes.push_back(static_cast<std::uint8_t>(high << 4 | low));
    }
    return bytes;
}

} // namespace kelutv::wire
