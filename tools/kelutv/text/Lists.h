#pragma once

#include "wire/text/Join.h"

#include <string>
#include <vector>

namespace kelutv::tool {

using wire::joined;

/** Splits at a separator and removes blanks around the parts; an empty text has no parts. */
std::vector<std::string> split(const std::string& text, char separator);

} // namespace kelutv::tool
