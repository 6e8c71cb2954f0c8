#pragma once

#include "tools/kelutv/compliance/framework/Check.h"
#include "tools/kelutv/compliance/framework/Terms.h"

namespace kelutv::tool::compliance {

/** Adds the checks of whether the service survives its clients, and is found again when it is restarted. */
void addLifeChecks(Checks& checks, const Terms& terms);

} // namespace kelutv::tool::compliance
