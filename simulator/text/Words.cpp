#include "simulator/text/Words.h"

#include <cmath>
#include <sstream>

namespace kelutv::simulator {

namespace {

constexpr int kLongestTime = 3600 * 1000;

std::optional<double> realOf(std::string_view word) {
    double number = 0;
    const char* const end = word.data() + word.size();
    const auto read = std::from_chars(word.data(), end, number);
    return read.ec == std::errc() && read.ptr == end ? std::optional<double>(number) : std::nullopt;
}

} // namespace

Words wordsOf(const std::string& line) {
    std::istringstream text(line);
    Words words;
    for (std::string word; text >> word;) {
        words.push_back(word);
    }
    return words;
}

std::string lineOf(const Words& words, std::size_t first) {
    std::string line;
    for (std::size_t i = first; i < words.size(); ++i) {
        line += (i == first ? "" : " ") + words[i];
    }
    return line;
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
