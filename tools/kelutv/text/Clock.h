#pragma once

#include <string>

namespace kelutv::tool {

/** The time in seconds, `2026-11-22T14:00:00Z`. */
std::string textOfNow();

} // namespace kelutv::tool
