#pragma once

#include "tools/kelutv/compliance/framework/Check.h"
#include "tools/kelutv/compliance/framework/Terms.h"

#include <string>
#include <vector>

namespace kelutv::tool::compliance {

/**
 * The checks that the words choose, in the order in which they are made; all without one. A word is a module, a family,
 * a function, or a pattern of identifiers.
 *
 * @throws UsageError when a word chooses none, or `allowed` names a function that needs no leave
 */
Checks chosenChecks(const std::vector<std::string>& words, const Terms& terms);

} // namespace kelutv::tool::compliance
