#pragma once

#include "wire/Function.h"

#include <string>
#include <vector>

namespace kelutv::wire {

/** The full and the short names of all functions. */
std::vector<std::string> functionNames();

/** The functions of a module (`audio`), else those of which the full or the short name matches the `Pattern`. */
std::vector<const Function*> functionsMatching(const std::string& pattern);

} // namespace kelutv::wire
