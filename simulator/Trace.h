#pragma once

#include "Reply.h"
#include "Request.h"
#include "Television.h"

#include <string>

namespace simulator {

/** One request in words: `CMD_AUDIO_SETVOLUME(channel=0 KELU_TV_AUDIO_CHANNEL_SPEAKER, vol=35)`. */
std::string describe(const Request& request);

/** Its answer in words: the result word, then what stands behind it, as in `0: 35`; or why it was refused. */
std::string describe(const Request& request, const Reply& reply);

/** A change in words: `audio.volume[0] = 35`. */
std::string describe(const Change& change);

} // namespace simulator
