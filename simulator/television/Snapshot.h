#pragma once

#include "simulator/television/Equipment.h"

#include <string>

namespace kelutv::simulator {

/** Everything that a state file keeps of the equipment, as JSON text with a line for each entry. */
std::string snapshotOf(const Equipment& equipment);

/**
 * Loads a snapshot into the equipment, without events.
 * @throws ConfigurationError when it is not a snapshot or names what the television does not have; nothing is changed
 * then
 */
void restoreSnapshot(Equipment& equipment, const JsonNode& root);

} // namespace kelutv::simulator
