#pragma once

#include "tools/kelutv/compliance/Judging.h"
#include "tools/kelutv/output/Errors.h"
#include "tools/kelutv/output/Output.h"

#include <string>

namespace kelutv::tool::compliance {

/**
 * Writes to a file what the television has: reads everything, and changes and puts back what has events. This process
 * must not have used the library yet.
 *
 * @return `Exit::Failure` when not all that was changed is as it was
 * @throws LinkError, UsageError, ToolError as `judge`
 */
Exit discover(const std::string& path, const JudgingOrder& order, const Output& output);

} // namespace kelutv::tool::compliance
