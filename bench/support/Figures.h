#pragma once

#include <string>

namespace kelutv::bench {

/**
 * Prints one figure as a line of its path, a blank and the value. The parts of a path stand between slashes, from the
 * measurement down to what was measured, whose name ends with the unit.
 */
void printFigure(const std::string& path, double value);

} // namespace kelutv::bench
