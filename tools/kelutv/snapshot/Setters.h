#pragma once

#include "tools/kelutv/snapshot/Snapshot.h"
#include "wire/Function.h"

#include <vector>

namespace kelutv::tool {

/**
 * The operations that the catalogue says can put this state back, since another one reads what they change: first those
 * that are not dangerous. Empty for a state that can only be read.
 */
std::vector<const wire::Function*> settersOf(const HeldState& held);

/** Whether every operation that can put the state back is dangerous. */
bool isDangerous(const HeldState& held);

/**
 * How early a state is to be put back, 0 first: what others depend on before them. A state whose value picks the keys
 * of others, as the source and the modes do, stands the earlier the more of them there are; any other mode comes before
 * plain numbers.
 */
int turnOf(const HeldState& held);

} // namespace kelutv::tool
