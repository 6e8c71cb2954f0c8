#pragma once

#include <string>

namespace kelutv::wire {

/**
 * The text in quotes; quotes and backslashes in it have a backslash before them, control characters and bytes that are
 * not UTF-8 are `\x1f`.
 */
std::string inQuotes(const std::string& text);

} // namespace kelutv::wire
