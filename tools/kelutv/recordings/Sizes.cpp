#include "tools/kelutv/recordings/Sizes.h"

#include "tools/kelutv/output/Errors.h"
#include "wire/text/Numbers.h"
#include "wire/text/Shown.h"

#include <optional>

namespace kelutv::tool {

namespace {

constexpr int kDecimal = 10;
constexpr std::uint64_t kMost = std::uint64_t{1} << 50;

std::uint64_t unitOf(char letter) {
    switch (letter) {
    case 'K':
        return std::uint64_t{1} << 10;
    case 'M':
        return std::uint64_t{1} << 20;
    case 'G':
        return std::uint64_t{1} << 30;
    default:
        return 1;
    }
}

} // namespace

std::uint64_t sizeOf(const std::string& option, const std::string& text) {
    const std::uint64_t unit = text.empty() ? 1 : unitOf(text.back());
    const std::string digits = unit == 1 ? text : text.substr(0, text.size() - 1);
    const std::optional<std::uint64_t> number = wire::wholeNumber<std::uint64_t>(digits, kDecimal);
    if (!number || *number == 0 || *number > kMost / unit) {
        throw UsageError(option + " takes a number of bytes above 0, as 4096, 64K, 10M or 2G, not '" +
                         wire::shown(text) + '\'');
    }
    return *number * unit;
}

} // namespace kelutv::tool
