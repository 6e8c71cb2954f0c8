#pragma once

#include "simulator/television/Equipment.h"
#include "wire/codec/Request.h"

#include <optional>

namespace kelutv::simulator {

/** Why a state has no value for these keys; none if it has. */
std::optional<wire::Refusal> objectionToKeys(const Equipment& equipment, const wire::StateSlot& slot,
                                             const wire::Values& keys);

/** Why a state cannot have these values: kind, range or source; none if it can. */
std::optional<wire::Refusal> objectionToValues(const Equipment& equipment, const wire::StateSlot& slot,
                                               const wire::Values& values);

/** What readers get of a state; the keys must be good. */
wire::Values readState(const Equipment& equipment, const wire::StateSlot& slot, const wire::Values& keys);

/**
 * Sets a state as a request does, with all that follows from it: a source that is selected shows its signal.
 * @return why that cannot be, and then nothing is changed
 */
std::optional<wire::Refusal> setState(Equipment& equipment, const wire::StateSlot& slot, const wire::Values& keys,
                                      const wire::Values& values);

} // namespace kelutv::simulator
