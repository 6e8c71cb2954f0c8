#pragma once

#include "wire/text/Names.h"
#include "wire/text/Numbers.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace kelutv::simulator {

using wire::int32Of;
using wire::wholeNumber;

/** Bytes from hexadecimal digits; colons and a leading `0x` are skipped. Nothing when there is anything else. */
std::optional<std::string> bytesOf(const std::string& hex);

/** The number in a word, or the value of the name that it is. @throws BadLine that says what is allowed for `what` */
std::int32_t integerOf(const std::string& word, const wire::Names& names, const std::string& what);

/** Milliseconds from `200ms` or `1.5s`, from 0 to an hour. */
std::optional<int> millisecondsOf(std::string_view word);

/** The real number that the whole word is. */
std::optional<double> realOf(std::string_view word);

} // namespace kelutv::simulator
