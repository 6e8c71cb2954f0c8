#pragma once

#include "tools/kelutv/parser/Context.h"
#include "tools/kelutv/parser/Parser.h"

namespace kelutv::tool {

/** Makes the program of one command line: its commands, the options that all of them have, and its help. */
Parser makeProgram(Context& context);

} // namespace kelutv::tool
