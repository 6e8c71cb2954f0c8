#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace kelutv::wire {

/** Two small digits a byte. */
std::string hexadecimalOf(const std::vector<std::uint8_t>& bytes);

/** Nothing unless the text is pairs of digits, small or capital. */
std::optional<std::vector<std::uint8_t>> bytesOfHexadecimal(const std::string& digits);

} // namespace kelutv::wire
