#pragma once

#include "tools/kelutv/output/Errors.h"

#include <string>
#include <vector>

namespace kelutv::tool {

/** Runs one command line, the program's name left out, and says what went wrong; never throws. */
Exit runCommandLine(std::vector<std::string> words);

} // namespace kelutv::tool
