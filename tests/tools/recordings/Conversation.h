#pragma once

#include "recording/Line.h"

#include <set>
#include <string>
#include <vector>

namespace kelutv::test {

/** What each thread asked and was answered, byte by byte and in order, whichever processes and threads these were. */
std::multiset<std::vector<std::string>> conversationsOf(const std::vector<recording::Line>& lines);

} // namespace kelutv::test
