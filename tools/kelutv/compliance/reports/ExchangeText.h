#pragma once

#include "tools/kelutv/compliance/results/CheckResult.h"

#include <string>
#include <vector>

namespace kelutv::tool::compliance {

/** An exchange as a person reads it. */
struct ExchangeText {
    /** `CMD_AUDIO_GETVOLUME(channel=0 KELU_TV_AUDIO_CHANNEL_SPEAKER)`, with what is wrong in brackets. */
    std::string request;
    /** `0: 35`, with what is wrong in brackets, or why there is no reply. */
    std::string reply;
    /** Lines of hex dumps; none for a reply that did not come. */
    std::vector<std::string> requestBytes;
    std::vector<std::string> replyBytes;
};

ExchangeText textOf(const Exchange& exchange);

} // namespace kelutv::tool::compliance
