#pragma once

#include "Table.h"

#include <cstdint>
#include <string>

namespace simulator {

/** The enumerator that has the value; empty when none has it or there are no names. */
std::string nameOfValue(std::int32_t value, const EnumerationNames* names);

} // namespace simulator
