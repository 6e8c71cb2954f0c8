#pragma once

#include "CallFrame.h"
#include "Function.h"
#include "Output.h"

namespace kelutv::tool {

/** What a call returned. */
Json resultOf(const Function& function, const CallFrame& frame);

/** What a call wrote, by parameter; null where it wrote nothing. */
Json outputsOf(const Function& function, const CallFrame& frame);

} // namespace kelutv::tool
