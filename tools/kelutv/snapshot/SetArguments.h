#pragma once

#include "tools/kelutv/snapshot/Snapshot.h"
#include "wire/Function.h"

#include <string>
#include <vector>

namespace kelutv::tool {

/**
 * The arguments with which an operation may set what was held: the keys as they were asked for, the values in their
 * order, and behind them what is plain. Whether it stores just that is for its request to show.
 */
std::vector<std::string> argumentsFor(const wire::Function& setter, const HeldState& held);

} // namespace kelutv::tool
