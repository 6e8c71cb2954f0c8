#pragma once

#include <string>
#include <vector>

namespace kelutv::simulator {

/** One space apart. */
std::string joinedWords(const std::vector<std::string>& words);

std::string joinedLines(const std::vector<std::string>& lines);

/** `a, b and c`. */
std::string listed(const std::vector<std::string>& names);

} // namespace kelutv::simulator
