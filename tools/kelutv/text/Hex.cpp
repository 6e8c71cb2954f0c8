#include "tools/kelutv/text/Hex.h"

#include "tools/kelutv/output/Errors.h"
#include "wire/text/Hexadecimal.h"
#include "wire/text/Shown.h"

#include <cctype>
#include <cstddef>
#include <cstring>

namespace kelutv::tool {

namespace {

constexpr const char* kDigits = "0123456789abcdef";

std::uint8_t digitOf(char letter) {
    const auto small = static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
    const char* const found = small == '\0' ? nullptr : std::strchr(kDigits, small);
    if (found == nullptr) {
        throw UsageError("'" + wire::shown({&letter, 1}) + "' is not a hexadecimal digit");
    }
    return static_cast<std::uint8_t>(found - kDigits);
}

} // namespace

std::string hexOf(const Bytes& bytes) { return wire::hexadecimalOf(bytes); }

std::string spacedHexOf(const Bytes& bytes) {
    std::string text;
    for (const std::uint8_t byte : bytes) {
        text += (text.empty() ? "" : " ") + hexOf({byte});
    }
    return text;
}

Bytes bytesOfHex(const std::string& digits) {
    if (digits.size() % 2 != 0) {
        throw UsageError("'" + wire::shown(digits) + "' has an odd number of hexadecimal digits");
    }
    Bytes bytes;
    for (std::size_t i = 0; i < digits.size(); i += 2) {
        bytes.push_back(static_cast<std::uint8_t>(digitOf(digits[i]) << 4 | digitOf(digits[i + 1])));
    }
    return bytes;
}

} // namespace kelutv::tool
