#pragma once

#include "torture/starvation/Starvation.h"

namespace kelutv::starvation {

/** Counts one request of this process for the resource, and says whether it is to fail. */
bool refused(Resource resource);

} // namespace kelutv::starvation
