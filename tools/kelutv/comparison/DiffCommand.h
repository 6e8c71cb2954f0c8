#pragma once

#include "tools/kelutv/parser/Context.h"
#include "tools/kelutv/parser/Parser.h"

namespace kelutv::tool {

/** Adds `diff` below `kelutv recording`. */
void addRecordingDiff(const Subcommand& recording, Context& context);

} // namespace kelutv::tool
