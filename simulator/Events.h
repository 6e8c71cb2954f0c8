#pragma once

#include <kelutv/events.h>

namespace simulator {

/**
 * The events of the simulated television. The payload of each is a row of int32 words.
 *
 * An event is published once per change, before the call that made it returns; setting a value anew is no change.
 */
enum Event : unsigned int {
    /** Words: channel (of `KELU_TV_AUDIO_CHANNEL_E`), volume. */
    kVolumeChanged = KELU_EM_MODE_VOLUME + 1,
    /** Words: channel (of `KELU_TV_AUDIO_CHANNEL_E`), 1 for mute or 0. */
    kMuteChanged = KELU_EM_MODE_VOLUME + 2,
};

} // namespace simulator
