#pragma once

#include "simulator/state/State.h"

#include <string>

namespace kelutv::simulator {

/**
 * Writes the hotel settings to a file, which is replaced as a whole.
 * @throws std::runtime_error when that fails or when the path is not a regular file; it is left as it is
 */
void backUpHotel(const State& state, const std::string& path);

/**
 * Loads the hotel settings from a file that `backUpHotel` wrote.
 * @throws std::runtime_error when it cannot be read or does not hold every setting; nothing is changed then
 */
void restoreHotel(State& state, const std::string& path);

/** Restores the initial hotel settings. */
void resetHotel(State& state);

} // namespace kelutv::simulator
