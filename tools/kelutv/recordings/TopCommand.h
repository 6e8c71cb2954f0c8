#pragma once

#include "tools/kelutv/parser/Context.h"
#include "tools/kelutv/parser/Parser.h"

namespace kelutv::tool {

void addTopCommand(const Command& program, Context& context);

} // namespace kelutv::tool
