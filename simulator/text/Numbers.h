#pragma once

#include "wire/text/Names.h"
#include "wire/text/Numbers.h"

#include <charconv>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace kelutv::simulator {

using wire::int32Of;

/** Bytes from hexadecimal digits; colons and a leading `0x` are skipped. Nothing when there is anything else. */
std::optional<std::string> bytesOf(const std::string& hex);

/** The number in a word, or the value of the name that it is. @throws BadLine that says what is allowed for `what` */
std::int32_t integerOf(const std::string& word, const wire::Names& names, const std::string& what);

/** Milliseconds from `200ms` or `1.5s`, from 0 to an hour. */
std::optional<int> millisecondsOf(std::string_view word);

/** The number that the whole word is. */
template <typename Number> std::optional<Number> numberOf(std::string_view word) {
    Number number{};
    const char* const end = word.data() + word.size();
    const auto read = std::from_chars(word.data(), end, number);
    return read.ec == std::errc() && read.ptr == end ? std::optional<Number>(number) : std::nullopt;
}

/** The byte that the whole word is, in hexadecimal. */
std::optional<unsigned char> byteOf(std::string_view word);

} // namespace kelutv::simulator
