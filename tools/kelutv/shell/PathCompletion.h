#pragma once

#include <string>
#include <vector>

namespace kelutv::tool {

/** The files and folders whose paths begin so, in order, folders with a slash; hidden ones once the dot is written. */
std::vector<std::string> pathsBeginningWith(const std::string& begun);

} // namespace kelutv::tool
