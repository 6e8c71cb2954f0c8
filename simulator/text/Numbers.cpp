#include "simulator/text/Numbers.h"

#include "simulator/text/Tokenizer.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace kelutv::simulator {

namespace {

constexpr int kLongestTime = 3600 * 1000;

bool isHexadecimal(const std::string& word) { return word.rfind("0x", 0) == 0 || word.rfind("0X", 0) == 0; }

} // namespace

std::optional<double> realOf(std::string_view word) {
    double number = 0;
    const char* const end = word.data() + word.size();
    const auto read = std::from_chars(word.data(), end, number);
    return read.ec == std::errc() && read.ptr == end ? std::optional<double>(number) : std::nullopt;
}

std::optional<std::string> bytesOf(const std::string& hex) {
    std::string digits = isHexadecimal(hex) ? hex.substr(2) : hex;
    digits.erase(std::remove(digits.begin(), digits.end(), ':'), digits.end());
    std::string bytes;
    for (std::size_t i = 0; i < digits.size(); i += 2) {
        const auto byte = wholeNumber<unsigned char>(std::string_view(digits).substr(i, 2), 16);
        if (!byte || i + 1 == digits.size()) {
            return std::nullopt;
        }
        bytes += static_cast<char>(*byte);
    }
    return bytes;
}

std::int32_t integerOf(const std::string& word, const wire::Names& names, const std::string& what) {
    if (const auto number = wire::int32Of(word)) {
        return *number;
    }
    try {
        return names.valueOf(word);
    } catch (const wire::UnknownName& error) {
        throw BadLine(what + ": " + error.what());
    }
}

std::optional<int> millisecondsOf(std::string_view word) {
    const std::size_t unit = word.find_first_not_of("0123456789.");
    if (unit == std::string_view::npos || (word.substr(unit) != "ms" && word.substr(unit) != "s")) {
        return std::nullopt;
    }
    const auto amount = realOf(word.substr(0, unit));
    const double milliseconds = amount.value_or(-1) * (word.substr(unit) == "s" ? 1000 : 1);
    return milliseconds >= 0 && milliseconds <= kLongestTime
               ? std::optional<int>(static_cast<int>(std::lround(milliseconds)))
               : std::nullopt;
}

} // namespace kelutv::simulator
