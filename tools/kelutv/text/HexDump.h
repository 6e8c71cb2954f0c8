#pragma once

#include "tools/kelutv/text/HexInput.h"

#include <string>
#include <vector>

namespace kelutv::tool {

/**
 * The lines of a hex dump: address, 16 bytes, their characters; then the address behind the last byte. Lines that
 * repeat the one before them become one `*` when `squeezed`.
 */
std::vector<std::string> hexDump(const Bytes& bytes, int address, bool squeezed);

} // namespace kelutv::tool
