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
std::optional<wire::Refusal> setLikeRequest(Equipment& equipment, const wire::StateSlot& slot, const wire::Values& keys,
                                            const wire::Values& values);

/** Why there is no such value, or the value. */
struct Reading {
    std::optional<wire::Refusal> refusal;
    wire::Values values;
};
Reading readLikeRequest(Equipment& equipment, const wire::StateSlot& slot, const wire::Values& keys);

/** Whether setting the state to what it is does nothing. */
bool isJustKept(const Equipment& equipment, const wire::StateSlot& slot, const wire::Values& keys);
/** @} */

} // namespace kelutv::simulator
