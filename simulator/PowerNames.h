#pragma once

#include "Power.h"
#include "Table.h"

#include <string>

namespace simulator {

/** What the control channel calls the power states. */
EnumerationNames powerStateNames();
std::string wordFor(PowerState state);

} // namespace simulator
