#pragma once

#include "tools/kelutv/compliance/framework/Check.h"
#include "tools/kelutv/compliance/framework/Terms.h"

namespace kelutv::tool::compliance {

/** Adds the checks of what only a person sees or does, where one is there. */
void addPersonChecks(Checks& checks, const Terms& terms);

} // namespace kelutv::tool::compliance
