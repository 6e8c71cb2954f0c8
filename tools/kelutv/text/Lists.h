#pragma once

#include "wire/text/Join.h"

#include <cstddef>
#include <string>
#include <vector>

namespace kelutv::tool {

using wire::joined;

/** Splits at a separator and removes blanks around the parts; an empty text has no parts. */
std::vector<std::string> split(const std::string& text, char separator);

/** `1 state`, `2 states`. */
std::string counted(std::size_t count, const std::string& what);

} // namespace kelutv::tool
