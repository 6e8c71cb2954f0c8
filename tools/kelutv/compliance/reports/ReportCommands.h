#pragma once

#include "tools/kelutv/parser/Context.h"
#include "tools/kelutv/parser/Parser.h"

#include <functional>

namespace kelutv::tool::compliance {

/**
 * Adds `diff` and `report` below `kelutv compliance`, which need no service.
 *
 * @param begin is called before either does anything
 */
void addReportCommands(const Subcommand& compliance, Context& context, const std::function<void()>& begin);

} // namespace kelutv::tool::compliance
