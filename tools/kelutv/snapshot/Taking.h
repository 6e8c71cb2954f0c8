#pragma once

#include "tools/kelutv/snapshot/Snapshot.h"

namespace kelutv::tool {

/**
 * Reads every readable state, and changes nothing. This process must not have used the library yet.
 *
 * @param limit how many seconds one answer may take; a state whose answer takes longer is missing
 * @throws LinkError when there is no service or it is gone, ToolError when nothing is answered any longer
 */
Snapshot takeSnapshot(double limit);

/** The same of what these readings give. */
Snapshot takeSnapshot(const Readings& readings, double limit);

} // namespace kelutv::tool
