#pragma once

#include <string>

namespace kelutv::wire {

/** The text in quotes; quotes and backslashes in it have a backslash before them, control characters are `\x1f`. */
std::string inQuotes(const std::string& text);

} // namespace kelutv::wire
