#pragma once

#include "tools/kelutv/compliance/framework/Check.h"
#include "tools/kelutv/compliance/framework/Terms.h"

namespace kelutv::tool::compliance {

/** Adds the checks of what each reading operation answers under each key: the form of the reply. */
void addFormChecks(Checks& checks, const Terms& terms);

} // namespace kelutv::tool::compliance
