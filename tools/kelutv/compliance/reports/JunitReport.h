#pragma once

#include "tools/kelutv/compliance/results/Run.h"

#include <string>

namespace kelutv::tool::compliance {

/**
 * The run as build servers read it: a test suite for each module, a test case for each check, whose class is
 * `kelutv.FAMILY.MODULE`. What failed is a failure; what was refused, left out, inconclusive or expected to fail is
 * skipped, with the verdict before the reason.
 */
std::string junitOf(const Run& run);

} // namespace kelutv::tool::compliance
