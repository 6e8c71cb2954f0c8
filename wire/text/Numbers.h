#pragma once

#include <charconv>
#include <cstdint>
#include <optional>
#include <string_view>
#include <system_error>

namespace kelutv::wire {

/** The integer that all of the digits make, with a minus sign if it is negative; nothing if it does not fit. */
template <typename Integer> std::optional<Integer> wholeNumber(std::string_view digits, int base = 10) {
    Integer number{};
    const char* const end = digits.data() + digits.size();
    const auto [last, error] = std::from_chars(digits.data(), end, number, base);
    return error == std::errc() && last == end ? std::optional<Integer>(number) : std::nullopt;
}

/** A number in decimal or, after `0x`, in hexadecimal, that fits into 32 bits. */
std::optional<std::int32_t> int32Of(std::string_view word);

} // namespace kelutv::wire
