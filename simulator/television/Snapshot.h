#pragma once

#include "simulator/television/Equipment.h"

#include <string>

namespace kelutv::simulator {

/** Everything that a state file keeps of the equipment, as JSON text with a line for each thing. */
std::string snapshotOf(const Equipment& equipment);

/**
 * Gives the equipment what a text of that kind says.
 * @throws ConfigurationError when it is none or names what the television does not have; nothing is changed then
 */
void restoreSnapshot(Equipment& equipment, const JsonNode& root);

} // namespace kelutv::simulator
