#pragma once

#include "simulator/television/Equipment.h"
#include "wire/codec/Request.h"

#include <optional>

namespace kelutv::simulator {

/**
 * @name States as requests read and set them, also those that have a command of their own, like the EEP.
 * @{
 */

/** Why the state cannot be set like that, and then nothing is done. */
std::optional<wire::Refusal> setByRequest(Equipment& equipment, const wire::StateKey& key, const wire::Values& indexes,
                                          const wire::Values& values);

/** Why there is no such value, or the value. */
struct Reading {
    std::optional<wire::Refusal> refusal;
    wire::Values values;
};
Reading readByRequest(Equipment& equipment, const wire::StateKey& key, const wire::Values& indexes);

/** Whether setting the state to what it is does nothing. */
bool isPlainState(const Equipment& equipment, const wire::StateKey& key, const wire::Values& indexes);
/** @} */

} // namespace kelutv::simulator
