#pragma once

#include "tools/kelutv/calls/CallFrame.h"
#include "wire/Function.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace kelutv::tool {

/**
 * A frame with the arguments in memory and room for every output.
 *
 * @throws UsageError which argument is wrong and what is allowed
 */
CallFrame frameOf(const wire::Function& function, const std::vector<std::string>& arguments);

/** What the parameter's length comes to; nothing where it says none or its parts are not known. */
std::optional<std::int64_t> lengthOf(const wire::Function& function, const wire::Parameter& parameter,
                                     const CallFrame& frame);

} // namespace kelutv::tool
