#pragma once

#include <charconv>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kelutv::simulator {

using Words = std::vector<std::string>;

/** The words of a line, which stand apart by spaces. */
Words wordsOf(const std::string& line);

/** The words from the one at `first` on, one space apart. */
std::string lineOf(const Words& words, std::size_t first = 0);

/** Milliseconds from `200ms` or `1.5s`, from 0 to an hour. */
std::optional<int> millisecondsOf(std::string_view word);

/** The number that the whole word is. */
template <typename Number> std::optional<Number> numberOf(std::string_view word, int base = 10) {
    Number number{};
    const char* const end = word.data() + word.size();
    const auto read = std::from_chars(word.data(), end, number, base);
    return read.ec == std::errc() && read.ptr == end ? std::optional<Number>(number) : std::nullopt;
}

} // namespace kelutv::simulator
