#pragma once

#include "tools/kelutv/parser/Context.h"
#include "tools/kelutv/parser/Parser.h"

namespace kelutv::tool {

/** `kelutv new-service DIR`: writes a project in which a service is built. */
void addNewServiceCommand(const Command& program, Context& context);

} // namespace kelutv::tool
