#pragma once

#include "tools/kelutv/compliance/framework/Check.h"
#include "tools/kelutv/compliance/framework/Terms.h"

namespace kelutv::tool::compliance {

/** Adds the checks of calls at once, from 1 to 64 threads of one process and from as many processes. */
void addLoadChecks(Checks& checks, const Terms& terms);

} // namespace kelutv::tool::compliance
