#pragma once

#include "wire/Interface.h"

#include <cstdint>
#include <string>

namespace kelutv::wire {

/** The enumerator that has the value; empty when none has it or there are no names. */
std::string nameOfValue(std::int32_t value, const Enumeration* names);

} // namespace kelutv::wire
