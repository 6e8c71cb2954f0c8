#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace kelutv::tool {

/** In small letters. */
std::string lowered(std::string text);

/** The parts with the separator between them. */
std::string joined(const std::vector<std::string>& parts, const std::string& separator);

/** Splits at a separator, blanks around the parts taken off; an empty text has no parts. */
std::vector<std::string> split(const std::string& text, char separator);

/** Small hexadecimal digits, two a byte. */
std::string hexOf(const std::vector<std::uint8_t>& bytes);

/** The bytes of hexadecimal digits. @throws UsageError for an odd number of digits or anything else */
std::vector<std::uint8_t> bytesOfHex(const std::string& digits);

/** The content of a file. @throws UsageError when it cannot be read */
std::vector<std::uint8_t> bytesOfFile(const std::string& path);

} // namespace kelutv::tool
