#pragma once

#include "tools/kelutv/output/Json.h"
#include "tools/kelutv/snapshot/Snapshot.h"
#include "wire/Function.h"

#include <vector>

namespace kelutv::tool::compliance {

/**
 * Lists of values that the function may give to the state in place of those that it holds, the likeliest to be taken
 * first: all values changed where that can be, then the first alone. Empty when it takes none.
 */
std::vector<Json> otherValues(const wire::Function& setter, const HeldState& held);

} // namespace kelutv::tool::compliance
