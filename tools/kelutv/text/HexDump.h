#pragma once

#include "tools/kelutv/text/Hex.h"

#include <string>
#include <vector>

namespace kelutv::tool {

/**
 * The lines of a hex dump: address, 16 bytes, their characters; then the address behind the last byte. Lines that
 * repeat the one before them become one `*` when `squeezed`.
 */
std::vector<std::string> hexDump(const Bytes& bytes, int address, bool squeezed);

/**
 * Bytes from hex digits in pairs; spaces, line ends and a leading `0x` of any word are left out. The lines of a hex
 * dump are read as well: without the offset that ends in a colon or precedes a `|...|` column, and without the column
 * of characters.
 *
 * @throws UsageError for anything else
 */
Bytes bytesOfDump(const std::string& text);

} // namespace kelutv::tool
