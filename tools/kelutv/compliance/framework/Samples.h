#pragma once

#include "tools/kelutv/snapshot/Readings.h"

namespace kelutv::tool::compliance {

/**
 * A call of the function under one of its keys: the first of those that the catalogue has, else 0; lengths are such
 * that there is something.
 */
Reading sampleOf(const wire::Function& function);

} // namespace kelutv::tool::compliance
