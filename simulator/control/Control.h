#pragma once

#include "simulator/control/Answer.h"
#include "simulator/television/Equipment.h"

#include <optional>
#include <string>

namespace kelutv::simulator {

/**
 * Carries out a line of the control channel; see controlVerbs(). Empty lines and those that begin with `#` do nothing.
 * @return the data that were asked for, or what is wrong with the line, and then nothing is done
 */
Answer obey(Equipment& equipment, const std::string& line);

/** What is wrong with a line, if anything, as far as its verb shows without carrying it out. */
std::optional<std::string> objectionToLine(const std::string& line);

} // namespace kelutv::simulator
