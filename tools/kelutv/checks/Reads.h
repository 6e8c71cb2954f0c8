#pragma once

#include "tools/kelutv/calls/Call.h"
#include "wire/Function.h"

#include <chrono>

namespace kelutv::tool {

/** Whether it takes any item of the module, none of which is plain. */
bool takesAnyItem(const wire::Function& function);

/** Whether the function reads something that the service answers, and that its plain arguments name. */
bool isAnsweredRead(const wire::Function& function);

/** How long the answers to all requests of a call took. */
std::chrono::nanoseconds timeOfCall(const CallResult& call);

} // namespace kelutv::tool
