#pragma once

#include "simulator/replay/ReplayScript.h"
#include "simulator/television/Equipment.h"

namespace kelutv::simulator {

/** Gives the states that just keep their value those that the recording reads before it sets them. What the television
 * cannot be given is left as it is. */
void beginAsRecorded(Equipment& equipment, const ReplayScript& script);

} // namespace kelutv::simulator
