#pragma once

#include "Equipment.h"
#include "Request.h"

#include <optional>

namespace simulator {

/** Why a state has no value for these keys; none if it has. */
std::optional<Fault> objectionToKeys(const Equipment& equipment, const StateSlot& slot, const Scalars& keys);

/** Why a state cannot have these values: kind, range or source; none if it can. */
std::optional<Fault> objectionToValues(const Equipment& equipment, const StateSlot& slot, const Scalars& values);

/** What readers get of a state; the keys must be good. */
Scalars readState(const Equipment& equipment, const StateSlot& slot, const Scalars& keys);

/**
 * Sets a state as a request does, with all that follows from it: a source that is selected shows its signal.
 * @return why that cannot be, and then nothing is changed
 */
std::optional<Fault> setState(Equipment& equipment, const StateSlot& slot, const Scalars& keys, const Scalars& values);

} // namespace simulator
