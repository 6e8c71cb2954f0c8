#pragma once

#include "tools/trace/Channel.h"

namespace kelutv::trace {

/** Names the file that programs are recorded into, in their environment. */
constexpr const char* kRecordFileVariable = "KELUTV_RECORD";

/**
 * Opens the channel to who records programs into this file, and starts that first where nobody does.
 *
 * @return false when there is none within ten seconds; says why on standard error
 */
bool openRecordingService(Channel& channel, const char* file);

} // namespace kelutv::trace
