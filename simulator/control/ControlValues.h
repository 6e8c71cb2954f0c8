#pragma once

#include "simulator/text/Tokenizer.h"
#include "wire/Interface.h"

#include <string>

namespace kelutv::simulator {

/** The state of the name, or of its part after the dot if that is unambiguous. @throws BadLine */
const wire::StateKey& stateNamed(const std::string& name);

/** Indexes and values of the kinds that the state has: numbers, short names of enumerators, texts. @throws BadLine */
wire::Values indexesOf(const wire::StateKey& key, const Tokens& tokens);
wire::Values valuesOf(const wire::StateKey& key, const Tokens& tokens);

/** Values as a line of the control channel has them. */
std::string textOf(const wire::Values& values, const char* separator = ", ");

/** `NAME[INDEX...] = VALUE...`, the brackets only with indexes. */
std::string textOf(const wire::StateKey& key, const wire::Values& indexes, const wire::Values& values);

} // namespace kelutv::simulator
