#pragma once

#include "simulator/text/ControlWords.h"

#include <string>

namespace kelutv::simulator {

/** The slot of the name, or of what stands behind the dot of it if that is clear. @throws BadLine */
const wire::StateSlot& slotNamed(const std::string& name);

/** Keys and values as the slot has them: numbers, enumerators in a short form, texts. @throws BadLine */
wire::Values keysOf(const wire::StateSlot& slot, const ControlWords& words);
wire::Values valuesOf(const wire::StateSlot& slot, const ControlWords& words);

/** Scalars as the words that say them. */
std::string inWords(const wire::Values& scalars, const char* separator = ", ");

/** `NAME[KEY...] = VALUE...`, the brackets only with keys. */
std::string inWords(const wire::StateSlot& slot, const wire::Values& keys, const wire::Values& values);

} // namespace kelutv::simulator
