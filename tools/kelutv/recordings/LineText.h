#pragma once

#include "recording/Line.h"

#include <string>

namespace kelutv::tool {

/** A line of a recording for people; empty for one of an unknown kind. */
std::string lineText(const recording::Line& line);

} // namespace kelutv::tool
