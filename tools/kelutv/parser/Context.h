#pragma once

#include "tools/kelutv/output/Errors.h"
#include "tools/kelutv/output/Output.h"

#include <string>
#include <vector>

namespace kelutv::tool {

/** What every command has at hand. */
struct Context {
    /** Runs another command line in this process. */
    Exit (*runCommandLine)(std::vector<std::string> words);
    Output output = {};
    Exit exit = Exit::Success;
};

} // namespace kelutv::tool
