#pragma once

#include "tools/kelutv/calls/CallFrame.h"
#include "tools/kelutv/output/Output.h"
#include "wire/Function.h"

namespace kelutv::tool {

/** What a call returned. */
Json resultOf(const wire::Function& function, const CallFrame& frame);

/** What a call wrote, by parameter; null where it wrote nothing. */
Json outputsOf(const wire::Function& function, const CallFrame& frame);

} // namespace kelutv::tool
