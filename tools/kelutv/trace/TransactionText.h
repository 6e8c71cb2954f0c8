#pragma once

#include "tools/kelutv/decoding/Decoding.h"
#include "tools/kelutv/trace/TracePipe.h"

#include <string>

namespace kelutv::tool {

/** `[1234:1240] `; the thread is left out when it is the process's first. */
std::string callerText(std::int32_t process, std::int32_t thread);

/** `CMD_AUDIO_GETVOLUME(channel=0 ...) -> 0: 35 <0.000301>`, with what is wrong in brackets. */
std::string lineOf(const TracedTransaction& transaction, const DecodedRequest& decoded);

} // namespace kelutv::tool
