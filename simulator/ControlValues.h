#pragma once

#include "ControlWords.h"

#include <string>

namespace simulator {

/** The slot of the name, or of what stands behind the dot of it if that is clear. @throws BadLine */
const StateSlot& slotNamed(const std::string& name);

/** Keys and values as the slot has them: numbers, enumerators in a short form, texts. @throws BadLine */
Scalars keysOf(const StateSlot& slot, const ControlWords& words);
Scalars valuesOf(const StateSlot& slot, const ControlWords& words);

/** Scalars as the words that say them. */
std::string inWords(const Scalars& scalars, const char* separator = ", ");

/** `NAME[KEY...] = VALUE...`, the brackets only with keys. */
std::string inWords(const StateSlot& slot, const Scalars& keys, const Scalars& values);

} // namespace simulator
