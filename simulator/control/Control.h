#pragma once

#include "simulator/control/Answer.h"
#include "simulator/television/Equipment.h"

#include <functional>
#include <optional>
#include <string>

namespace kelutv::simulator {

/** What a line asks for: does it and gives the data that were asked for. @throws BadLine, and then nothing is done */
using Deed = std::function<std::string(Equipment& equipment)>;

/** Has a deed done, and gives what it gave. */
using Operate = std::function<std::string(const Deed& deed)>;

/**
 * Carries out a line of the control channel; see controlVerbs(). Empty lines and those that begin with `#` do nothing.
 *
 * The line is read first, however long that takes; only `operate` needs the television to itself.
 * @return the data that were asked for, or what is wrong with the line, and then nothing is done
 */
Answer obey(const Configuration& configuration, const std::string& line, const Operate& operate);

/** What is wrong with a line, if anything, as far as its verb shows without carrying it out. */
std::optional<std::string> objectionToLine(const std::string& line);

} // namespace kelutv::simulator
