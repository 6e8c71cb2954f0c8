#pragma once

#include "simulator/control/Answer.h"
#include "simulator/television/Equipment.h"

#include <string>

namespace kelutv::fuzz {

/** The configuration that comes with the simulator, read once. */
const simulator::Configuration& standardConfiguration();

/** Has a line of the control channel carried out. */
simulator::Answer obey(simulator::Equipment& equipment, const std::string& line);

} // namespace kelutv::fuzz
