#pragma once

#include "Errors.h"
#include "Output.h"

namespace kelutv::tool {

/** What every command has at hand. */
struct Context {
    Output output;
    Exit exit = Exit::Success;
};

} // namespace kelutv::tool
