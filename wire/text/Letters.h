#pragma once

#include <string>

namespace kelutv::wire {

/** In small letters; only those of ASCII change. */
std::string lowered(std::string text);

} // namespace kelutv::wire
