#pragma once

#include "simulator/television/Equipment.h"
#include "wire/codec/Request.h"

#include <optional>

namespace kelutv::simulator {

/**
 * @name Reading and setting states as requests do, also those whose commands have handlers of their own, like the EEP.
 * @{
 */

/** Sets the state. @return why it is refused, and then nothing is done */
std::optional<wire::Refusal> setByRequest(Equipment& equipment, const wire::StateKey& key, const wire::Values& indexes,
                                          const wire::Values& values);

/** The value, or why it is refused. */
struct Reading {
    std::optional<wire::Refusal> refusal;
    wire::Values values;
};
Reading readByRequest(Equipment& equipment, const wire::StateKey& key, const wire::Values& indexes);

/** Whether setting the state just keeps its value: it has no handler and is not derived. */
bool isPlainState(const Equipment& equipment, const wire::StateKey& key, const wire::Values& indexes);

/** Whether the state has a value of its own, which is the one that it was given last. */
bool isKeptState(const Equipment& equipment, const wire::StateKey& key);

/** Whether a command that sets the state may do more than that. */
bool isSetByCommandOfItsOwn(const wire::StateKey& key);
/** @} */

} // namespace kelutv::simulator
