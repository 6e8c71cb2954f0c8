#pragma once

#include "tools/kelutv/compliance/framework/Check.h"
#include "tools/kelutv/compliance/framework/Terms.h"

namespace kelutv::tool::compliance {

/** Adds the checks of what is told when something is set: of each state that has an event, under each key. */
void addEventChecks(Checks& checks, const Terms& terms);

} // namespace kelutv::tool::compliance
