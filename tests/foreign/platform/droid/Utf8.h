#pragma once

#include <string>

namespace foreign {

/** UTF-16 of UTF-8; U+FFFD for each byte that is no UTF-8. */
std::u16string utf16(const std::string& utf8);

/** The text as it names a file: what is not ASCII becomes '?'. */
std::string ascii(const std::u16string& text);

} // namespace foreign
