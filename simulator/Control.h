#pragma once

#include "Equipment.h"

#include <optional>
#include <string>

namespace simulator {

/**
 * Does what a line of the control channel says: `plug ADDRESS`, `unplug ADDRESS`, `vbi TYPE [HEX]`.
 *
 * Empty lines and those that begin with `#` say nothing.
 * @return what is wrong with the line, and then nothing is done
 */
std::optional<std::string> obey(Equipment& equipment, const std::string& line);

} // namespace simulator
