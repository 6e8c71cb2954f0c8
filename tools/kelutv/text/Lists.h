#pragma once

#include "wire/text/Join.h"

#include <cstddef>
#include <string>
#include <vector>

namespace kelutv::tool {

using wire::joined;

/** Splits at a separator and removes blanks around the parts; an empty text has no parts. */
std::vector<std::string> split(const std::string& text, char separator);

/** `1 state`, `2 states`; `2 losses` with the word for several. */
std::string counted(std::size_t count, const std::string& one, const std::string& several = "");

} // namespace kelutv::tool
