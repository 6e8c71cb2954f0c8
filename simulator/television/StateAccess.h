#pragma once

#include "simulator/television/Equipment.h"
#include "wire/codec/Request.h"

#include <optional>

namespace kelutv::simulator {

/** Why a state has no value at these indexes; none if it has. */
std::optional<wire::Refusal> objectionToIndexes(const Equipment& equipment, const wire::StateKey& key,
                                                const wire::Values& indexes);

/** Why a state cannot have these values: kind, range or source; none if it can. */
std::optional<wire::Refusal> objectionToValues(const Equipment& equipment, const wire::StateKey& key,
                                               const wire::Values& values);

/** Why a client cannot set this value on top of all that has been set; none if it can. */
std::optional<wire::Refusal> objectionToSize(const State& state, const wire::StateKey& key, const wire::Values& indexes,
                                             const wire::Values& values);

/** What readers get of a state; the indexes must be valid. */
wire::Values readState(const Equipment& equipment, const wire::StateKey& key, const wire::Values& indexes);

/**
 * Sets a state as a request does, with all that follows from it: a source that is selected shows its signal.
 * @return why that cannot be, and then nothing is changed
 */
std::optional<wire::Refusal> setState(Equipment& equipment, const wire::StateKey& key, const wire::Values& indexes,
                                      const wire::Values& values);

/** Brings a state back to its initial value, with all that follows from it; one that shows a signal stays. */
void resetState(Equipment& equipment, const wire::StateKey& key, const wire::Values& indexes);

} // namespace kelutv::simulator
