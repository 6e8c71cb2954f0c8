#pragma once

#include "tools/kelutv/parser/Context.h"
#include "tools/kelutv/parser/Parser.h"

namespace kelutv::tool {

/** Adds `replay` below `kelutv recording`. */
void addRecordingReplay(const Subcommand& recording, Context& context);

} // namespace kelutv::tool
