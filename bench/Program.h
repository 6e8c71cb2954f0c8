#pragma once

#include "bench/support/Extent.h"

#include <string>
#include <vector>

namespace kelutv::bench {

/** The names of all measurements, in order. */
std::vector<std::string> measurementNames();

/**
 * Runs these measurements one after the other, each in processes and a runtime directory of its own, and prints their
 * figures.
 *
 * @return false, with a line on standard error, when one of them has failed
 */
bool measure(const std::vector<std::string>& names, Extent extent);

} // namespace kelutv::bench
