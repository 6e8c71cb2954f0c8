#pragma once

#include "simulator/television/Equipment.h"

#include <string>
#include <vector>

namespace kelutv::simulator {

/**
 * @name Lines that say what a state holds, as they set it again.
 * @{
 */

/** `STATE[KEY...] = VALUE...`. @throws BadLine when the state has no such key */
std::string lineOf(Equipment& equipment, const wire::StateKey& key, const wire::Values& indexes);

/**
 * A line for the value under each known key, as a remark where setting it does more than keep it, and a remark with the
 * value under all others.
 */
std::vector<std::string> linesOf(Equipment& equipment, const wire::StateKey& key);

/** The line that brings the values under all other keys back to their initial ones; none for a state that needs none.
 */
std::vector<std::string> resetLinesOf(const Equipment& equipment, const wire::StateKey& key);
/** @} */

} // namespace kelutv::simulator
