#pragma once

#include "tools/kelutv/recordings/RecordingSession.h"

namespace kelutv::tool {

/**
 * Records the programs that are started with KELUTV_RECORD naming the file, until the last of them has ended, in
 * another process; returns when programs can begin. Does nothing where that is done already.
 *
 * @throws ToolError when the file cannot be written or is no recording, or the other process cannot be made
 */
void recordInBackground(const RecordOptions& options);

} // namespace kelutv::tool
