#pragma once

#include <string>
#include <vector>

namespace kelutv::tool {

/** The nearest names as the end of a message, "; nearest: volume, mute", or nothing when none is near. */
std::string nearestHint(const std::string& written, const std::vector<std::string>& names);

} // namespace kelutv::tool
