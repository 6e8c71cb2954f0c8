#pragma once

#include "simulator/television/Power.h"
#include "wire/Interface.h"

#include <string>

namespace kelutv::simulator {

/** What the control channel calls the power states. */
const wire::Enumeration& powerStateNames();
std::string wordFor(PowerState state);

} // namespace kelutv::simulator
