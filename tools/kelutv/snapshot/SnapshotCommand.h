#pragma once

#include "tools/kelutv/parser/Context.h"
#include "tools/kelutv/parser/Parser.h"

namespace kelutv::tool {

/** `kelutv snapshot`: all that a television says of itself, compared and put back. */
void addSnapshotCommand(const Command& program, Context& context);

} // namespace kelutv::tool
