#pragma once

#include "tools/kelutv/parser/Context.h"
#include "tools/kelutv/parser/Parser.h"

#include <vector>

namespace kelutv::tool {

/** Adds a command below `kelutv recording`. */
using AddBelowRecording = void (*)(const Subcommand& recording, Context& context);

/** @param more the commands of other rooms */
void addRecordingCommand(const Command& program, Context& context, const std::vector<AddBelowRecording>& more);

} // namespace kelutv::tool
