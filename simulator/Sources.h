#pragma once

#include "State.h"

#include <cstdint>
#include <optional>

namespace simulator {

/** Gives the source to a window; the main window shows its signal from then on. */
void selectSource(State& state, std::int32_t source, std::int32_t window);

/** Takes the signal off the main window if it is that of the source. */
void deselectSource(State& state, std::int32_t source);

/** What follows from the sources and from other slots and is therefore not kept; none if the slot is kept. */
std::optional<Scalars> workedOut(const State& state, const StateSlot& slot, const Scalars& keys);

} // namespace simulator
