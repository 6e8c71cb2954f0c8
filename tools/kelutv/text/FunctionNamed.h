#pragma once

#include "wire/Function.h"

#include <string>

namespace kelutv::tool {

/**
 * The function of this full or short name.
 *
 * @throws UsageError when there is none, with the nearest names, or several, with all of them
 */
const wire::Function& functionNamed(const std::string& name);

} // namespace kelutv::tool
