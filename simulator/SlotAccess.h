#pragma once

#include "Equipment.h"
#include "Request.h"

#include <optional>

namespace simulator {

/**
 * @name States as requests read and set them, also those that have a command of their own, like the EEP.
 * @{
 */

/** Why the state cannot be set like that, and then nothing is done. */
std::optional<Fault> setLikeRequest(Equipment& equipment, const StateSlot& slot, const Scalars& keys,
                                    const Scalars& values);

/** Why there is no such value, or the value. */
struct Reading {
    std::optional<Fault> fault;
    Scalars values;
};
Reading readLikeRequest(Equipment& equipment, const StateSlot& slot, const Scalars& keys);

/** Whether setting the state to what it is does nothing. */
bool isJustKept(const Equipment& equipment, const StateSlot& slot, const Scalars& keys);
/** @} */

} // namespace simulator
