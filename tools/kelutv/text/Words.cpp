#include "tools/kelutv/text/Words.h"

#include "tools/kelutv/output/Errors.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>

namespace kelutv::tool {

namespace {

std::string stripped(const std::string& text) {
    constexpr const char* kBlanks = " \t";
    const std::size_t first = text.find_first_not_of(kBlanks);
    return first == std::string::npos ? "" : text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

constexpr const char* kDigits = "0123456789abcdef";

std::uint8_t digitOf(char letter) {
    const auto small = static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
    const char* const found = small == '\0' ? nullptr : std::strchr(kDigits, small);
    if (found == nullptr) {
        throw UsageError(std::string("'") + letter + "' is not a hexadecimal digit");
    }
    return static_cast<std::uint8_t>(found - kDigits);
}

} // namespace

std::string lowered(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char letter) { return static_cast<char>(std::tolower(letter)); });
    return text;
}

std::string joined(const std::vector<std::string>& parts, const std::string& separator) {
    std::string text;
    for (const std::string& part : parts) {
        text += (text.empty() ? "" : separator) + part;
    }
    return text;
}

std::vector<std::string> split(const std::string& text, char separator) {
    std::vector<std::string> parts;
    if (stripped(text).empty()) {
        return parts;
    }
    std::size_t start = 0;
    for (std::size_t end = 0; end != std::string::npos; start = end + 1) {
        end = text.find(separator, start);
        parts.push_back(stripped(text.substr(start, end == std::string::npos ? end : end - start)));
    }
    return parts;
}

std::string hexOf(const std::vector<std::uint8_t>& bytes) {
    std::string digits;
    for (const std::uint8_t byte : bytes) {
        digits += kDigits[byte >> 4];
        digits += kDigits[byte & 0xf];
    }
    return digits;
}

std::vector<std::uint8_t> bytesOfHex(const std::string& digits) {
    if (digits.size() % 2 != 0) {
        throw UsageError("'" + digits + "' has an odd number of hexadecimal digits");
    }
    std::vector<std::uint8_t> bytes;
    for (std::size_t i = 0; i < digits.size(); i += 2) {
        bytes.push_back(static_cast<std::uint8_t>(digitOf(digits[i]) << 4 | digitOf(digits[i + 1])));
    }
    return bytes;
}

std::vector<std::uint8_t> bytesOfFile(const std::string& path) {
    if (std::error_code ignored; std::filesystem::is_directory(path, ignored)) {
        throw UsageError("cannot read '" + path + "': it is a directory, and a file is needed");
    }
    std::ifstream file(path, std::ios::binary);
    std::vector<std::uint8_t> bytes{std::istreambuf_iterator<char>(file), {}};
    if (!file.is_open() || file.bad()) {
        throw UsageError("cannot read '" + path + "': " + std::strerror(errno));
    }
    return bytes;
}

} // namespace kelutv::tool
