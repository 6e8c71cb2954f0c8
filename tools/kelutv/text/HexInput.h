#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace kelutv::tool {

using Bytes = std::vector<std::uint8_t>;

/**
 * Bytes from hex digits in pairs, with spaces, line ends and a leading `0x` of any word left out. The lines of a hex
 * dump are taken as well: without the offset that ends in a colon or goes before a `|...|` column, and without the
 * column of characters.
 *
 * @throws UsageError for anything else
 */
Bytes bytesOfDump(const std::string& text);

/** Hex digits, two a byte, with spaces between the bytes. */
std::string spacedHexOf(const Bytes& bytes);

/** A whole file, or standard input for `-`. @throws UsageError when it cannot be read */
Bytes bytesOfInput(const std::string& path);

/** The text that an argument stands for: itself, or for `-` standard input, or for `@FILE` that file. */
std::string textOfArgument(const std::string& argument);

} // namespace kelutv::tool
