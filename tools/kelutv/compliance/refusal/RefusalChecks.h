#pragma once

#include "tools/kelutv/compliance/framework/Check.h"
#include "tools/kelutv/compliance/framework/Terms.h"

namespace kelutv::tool::compliance {

/** Adds the checks of what must be refused: what no client sends. */
void addRefusalChecks(Checks& checks, const Terms& terms);

} // namespace kelutv::tool::compliance
