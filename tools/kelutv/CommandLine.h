#pragma once

#include "tools/kelutv/output/Errors.h"
#include "tools/kelutv/parser/Context.h"

#include <string>
#include <vector>

namespace kelutv::tool {

/**
 * Runs one command line, the program's name left out, and says what went wrong; never throws.
 *
 * @param limitTime called before a command that is to be done within a time
 */
Exit runCommandLine(std::vector<std::string> words, const LimitTime& limitTime);

} // namespace kelutv::tool
