#pragma once

#include <string>
#include <vector>

namespace kelutv::tool {

/** Whether a state is meant by one of the patterns: by its full name, or as the tool's patterns are read. */
bool isMeant(const std::string& state, const std::vector<std::string>& patterns);

} // namespace kelutv::tool
