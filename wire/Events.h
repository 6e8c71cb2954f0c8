#pragma once

#include "wire/Rows.h"

#include <kelutv/events.h>

namespace kelutv::wire {

/**
 * The events of the simulated television. The payload is a row of int32 words where nothing else is said.
 *
 * An event is published once per change, before the call that made it returns; setting a value anew is no change.
 */
enum Event : unsigned int {
    /** Words: window (of `KELU_TV_WINDOW_E`), source (of `KELU_TV_SRC_E`). */
    kSourceChanged = KELU_EM_MODE_SRCDETECT + 1,
    /** Words: 1 when the main window has a signal, or 0. */
    kSignalChanged = KELU_EM_MODE_SRCDETECT + 2,
    /** Words: the nine fields of `TimingScreen`. */
    kTimingChanged = KELU_EM_MODE_SRCDETECT + 3,
    /** Words: source, 1 when something is plugged in there or 0, 1 when it has a signal or 0; shown or not. */
    kSourcePlugged = KELU_EM_MODE_SRCDETECT + 4,
    /** Words: 3D mode (of `KELU_TV_3DMODE_E`). */
    kMode3dChanged = KELU_EM_MODE_3DSIGNAL + 1,
    /** Words: channel (of `KELU_TV_AUDIO_CHANNEL_E`), volume. */
    kVolumeChanged = KELU_EM_MODE_VOLUME + 1,
    /** Words: channel (of `KELU_TV_AUDIO_CHANNEL_E`), 1 for mute or 0. */
    kMuteChanged = KELU_EM_MODE_VOLUME + 2,
    /** Words: stream type (of `KELU_TV_HDR_TYPE_E`). */
    kStreamTypeChanged = KELU_EM_MODE_COMMON + 1,
    /** Words: power state (of `PowerState`). */
    kPowerStateChanged = KELU_EM_MODE_COMMON + 2,
    /** Words: key code (of `KELU_TV_LINUX_KEYCODE_E`), what happened to it (of `KELU_TV_KPC_EV_KEY_E`). */
    kKeyUsed = KELU_EM_MODE_COMMON + 3,
    /** Words: logical address, HDMI port, 1 for plugged in or 0. */
    kCecDeviceChanged = KELU_EM_MODE_CEC + 1,
    /** Words: logical address of the device that plays, 0 for the television itself. */
    kCecPlayingChanged = KELU_EM_MODE_CEC + 2,
    /** Plus the type of the data, 1 to 0xFFFF. Payload: one word with the length of the data, then the data. */
    kVbiBlock = KELU_EM_MODE_TTX,
};

struct EventName {
    const char* name;
    unsigned int event;
    /** The first words of its payload. */
    Rows<const char*> words;
};

/** Every event by the name it has in a configuration. */
Rows<EventName> allEvents();

} // namespace kelutv::wire
