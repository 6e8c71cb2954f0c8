#pragma once

#include <string>
#include <vector>

namespace kelutv::tool {

/** The parts with the separator between them. */
std::string joined(const std::vector<std::string>& parts, const std::string& separator);

/** Splits at a separator and removes blanks around the parts; an empty text has no parts. */
std::vector<std::string> split(const std::string& text, char separator);

} // namespace kelutv::tool
