#pragma once

#include "simulator/text/ControlWords.h"

#include <string>

namespace kelutv::simulator {

/** The state of the name, or of what stands behind the dot of it if that is clear. @throws BadLine */
const wire::StateKey& stateNamed(const std::string& name);

/** Indexes and values of the kinds that the state has: numbers, short names of enumerators, texts. @throws BadLine */
wire::Values indexesOf(const wire::StateKey& key, const ControlWords& words);
wire::Values valuesOf(const wire::StateKey& key, const ControlWords& words);

/** Scalars as the words that say them. */
std::string textOf(const wire::Values& values, const char* separator = ", ");

/** `NAME[INDEX...] = VALUE...`, the brackets only with indexes. */
std::string textOf(const wire::StateKey& key, const wire::Values& indexes, const wire::Values& values);

} // namespace kelutv::simulator
