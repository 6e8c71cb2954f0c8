#pragma once

#include "simulator/faults/FaultRule.h"
#include "simulator/television/PublishedEvent.h"
#include "simulator/television/Television.h"
#include "wire/text/Describe.h"

#include <sys/types.h>

#include <string>

namespace kelutv::simulator {

/** The text of a change: `audio.volume[0] = 35`. */
std::string describe(const Change& change);

/** The line for a request: `[4711] CMD_AUDIO_GETVOLUME(channel=0 KELU_TV_AUDIO_CHANNEL_SPEAKER) -> 0: 35`. */
std::string describe(pid_t caller, const wire::Request& request, const wire::Reply& reply);

/** The line for an event: `event 0x60001 volumeChanged: audio.volume[0] = 35`. */
std::string describe(const PublishedEvent& event);

/** The line for a request that meets a fault: `[4711] CMD_AUDIO_GETSOUNDMODE() meets fault any die before`. */
std::string describe(pid_t caller, const wire::Request& request, const FaultRule& fault);

} // namespace kelutv::simulator
