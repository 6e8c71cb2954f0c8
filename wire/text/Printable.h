#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace kelutv::wire {

/** How many bytes the character at this place has; 0 when it is a control character or no UTF-8. */
std::size_t lengthOfPrintable(std::string_view text, std::size_t at);

/** The byte at this place as `\x1f`. */
std::string escapedByte(std::string_view text, std::size_t at);

} // namespace kelutv::wire
