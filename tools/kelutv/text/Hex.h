#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace kelutv::tool {

using Bytes = std::vector<std::uint8_t>;

/** Small hexadecimal digits, two a byte. */
std::string hexOf(const Bytes& bytes);

/** The same with spaces between the bytes. */
std::string spacedHexOf(const Bytes& bytes);

/** The bytes of hexadecimal digits. @throws UsageError for an odd number of digits or anything else */
Bytes bytesOfHex(const std::string& digits);

} // namespace kelutv::tool
