#pragma once

#include "tools/kelutv/compliance/framework/Check.h"
#include "tools/kelutv/compliance/framework/Terms.h"

namespace kelutv::tool::compliance {

/** Adds the checks of what each set that can be put back does to what is read: under each key, once and again. */
void addStateChecks(Checks& checks, const Terms& terms);

} // namespace kelutv::tool::compliance
