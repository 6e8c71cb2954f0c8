#pragma once

#include "tools/kelutv/parser/Context.h"
#include "tools/kelutv/parser/Parser.h"

namespace kelutv::tool {

/** `kelutv compliance`: judges the service that answers. */
void addComplianceCommand(const Command& program, Context& context);

} // namespace kelutv::tool
