#pragma once

#include "fuzz/support/Input.h"

#include "tools/kelutv/calls/CallFrame.h"
#include "wire/Function.h"

#include <optional>

namespace kelutv::fuzz {

/**
 * The arguments of one call as the input has them, within what the header of the function asks of a caller: texts have
 * an end, arrays the length that is given with them, flags are 0 or 1. Outputs have exactly the memory that the header
 * asks for, where it says how much.
 *
 * @return nothing for a call that would need more memory than there is to be had
 */
std::optional<tool::CallFrame> readFrame(const wire::Function& function, Input& input);

} // namespace kelutv::fuzz
