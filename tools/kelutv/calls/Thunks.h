#pragma once

#include "wire/Function.h"
#include "wire/Rows.h"

namespace kelutv::tool {

class CallFrame;

/** Makes one call with the frame's arguments and stores the result in it. */
using Thunk = void (*)(CallFrame& frame);

/** Generated: one for each of `wire::allFunctions()`, in their order. */
wire::Rows<Thunk> allThunks();

/** The one of this row of `wire::allFunctions()`. */
Thunk thunkOf(const wire::Function& function);

} // namespace kelutv::tool
