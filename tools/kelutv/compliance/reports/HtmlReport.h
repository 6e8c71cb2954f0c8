#pragma once

#include "tools/kelutv/compliance/results/Run.h"

#include <string>

namespace kelutv::tool::compliance {

/**
 * The run as one page that needs nothing else: a summary by module, each failure with what was exchanged, decoded and
 * as bytes, how long answers took, and why other checks did not pass.
 */
std::string htmlOf(const Run& run);

} // namespace kelutv::tool::compliance
