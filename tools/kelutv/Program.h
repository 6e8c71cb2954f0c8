#pragma once

#include "tools/kelutv/parser/Context.h"
#include "tools/kelutv/parser/Parser.h"

#include <string>
#include <vector>

namespace kelutv::tool {

/** The context's `MakeProgram`. */
Parser makeProgram(Context& context, const std::vector<std::string>& words);

} // namespace kelutv::tool
