#pragma once

#include "tools/kelutv/compliance/framework/Check.h"
#include "tools/kelutv/compliance/framework/Terms.h"

namespace kelutv::tool::compliance {

/** Adds the check of whether all who listen are told the same. */
void addSeveralListenersCheck(Checks& checks, const Terms& terms);

} // namespace kelutv::tool::compliance
