#pragma once

#include "tools/kelutv/Function.h"

#include <vector>

namespace kelutv::tool {

/** Generated: the functions of each module. */
std::vector<Rows<Function>> functionTables();

} // namespace kelutv::tool
