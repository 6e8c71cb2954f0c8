#pragma once

#include "tools/kelutv/parser/Context.h"
#include "tools/kelutv/parser/Parser.h"

namespace kelutv::tool {

/** Adds `kelutv doctor` below the program. */
void addDoctorCommand(const Command& program, Context& context);

} // namespace kelutv::tool
