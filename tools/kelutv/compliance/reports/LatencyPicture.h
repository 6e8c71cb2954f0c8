#pragma once

#include "tools/kelutv/compliance/results/Run.h"

#include <string>

namespace kelutv::tool::compliance {

/**
 * How long answers took, as a table with a picture in each row: where between the quickest and the slowest answer of
 * the run, in powers of ten, how many answers lie, with lines at p50 and p99. A row for each module or family.
 *
 * @param member what the rows are
 * @param title of the first column
 * @return the markup; empty when nothing was measured
 */
std::string latencyTable(const Run& run, std::string CheckResult::*member, const std::string& title);

} // namespace kelutv::tool::compliance
