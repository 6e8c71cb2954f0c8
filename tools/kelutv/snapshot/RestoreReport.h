#pragma once

#include "tools/kelutv/output/Errors.h"
#include "tools/kelutv/output/Output.h"
#include "tools/kelutv/snapshot/Restoring.h"

#include <cstddef>
#include <vector>

namespace kelutv::tool {

/** Tells of one state: what it was and is, with the call in a rehearsal, or why it is not as wanted. */
void tellRestored(const Restored& restored, bool isRehearsal, const Output& output);

/** Names those that are dangerous and left alone, as far as there are any, without their keys. */
void tellLeftAlone(const std::vector<HeldState>& states, const Output& output);

/**
 * Tells of all that are not as wanted, and how many there are of each kind.
 *
 * @param leftAlone how many dangerous ones were not touched
 * @return `Exit::Failure` when something is not as wanted
 */
Exit finishRestoring(const std::vector<Restored>& all, std::size_t leftAlone, bool isRehearsal, const Output& output);

} // namespace kelutv::tool
