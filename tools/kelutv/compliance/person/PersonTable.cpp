#include "tools/kelutv/compliance/person/PersonTable.h"

#include <kelutv/audio_types.h>
#include <kelutv/factory_types.h>
#include <kelutv/source_types.h>

namespace kelutv::tool::compliance {

wire::Rows<SeenCheck> seenChecks() {
    static constexpr SeenCheck kChecks[] = {
        {"white", "factory.setTestPattern", nullptr, KELU_TV_PATTERN_WHITE, "Is the whole picture white?"},
        {"black", "factory.setTestPattern", nullptr, KELU_TV_PATTERN_BLACK, "Is the whole picture black?"},
        {"red", "factory.setTestPattern", nullptr, KELU_TV_PATTERN_RED, "Is the whole picture red?"},
        {"green", "factory.setTestPattern", nullptr, KELU_TV_PATTERN_GREEN, "Is the whole picture green?"},
        {"blue", "factory.setTestPattern", nullptr, KELU_TV_PATTERN_BLUE, "Is the whole picture blue?"},
        {"still", "picture.enableFreeze", nullptr, 1, "Does the picture stand still?"},
        {"dark", "picture.enableBacklight", nullptr, 0, "Is the backlight off?"},
        {"off", "systemsetting.setScreenOn", nullptr, 0, "Is the screen off?"},
        {"silent", "audio.setMute", "KELU_TV_AUDIO_CHANNEL_SPEAKER", 1, "Are the loudspeakers silent?"},
    };
    return kChecks;
}

wire::Rows<DoneCheck> doneChecks() {
    static constexpr std::int32_t kPlugged1[] = {KELU_TV_SRC_HDMI1, 1};
    static constexpr std::int32_t kUnplugged1[] = {KELU_TV_SRC_HDMI1, 0};
    static constexpr std::int32_t kPlugged2[] = {KELU_TV_SRC_HDMI2, 1};
    static constexpr std::int32_t kUnplugged2[] = {KELU_TV_SRC_HDMI2, 0};
    static constexpr std::int32_t kSpeaker[] = {KELU_TV_AUDIO_CHANNEL_SPEAKER};
    static constexpr DoneCheck kChecks[] = {
        {"hdmi1Unplugged", "sourcemanager", "Take the cable out of HDMI 1.", "sourcePlugged", kUnplugged1},
        {"hdmi1Plugged", "sourcemanager", "Plug a cable into HDMI 1, with a source at its other end.", "sourcePlugged",
         kPlugged1},
        {"hdmi2Unplugged", "sourcemanager", "Take the cable out of HDMI 2.", "sourcePlugged", kUnplugged2},
        {"hdmi2Plugged", "sourcemanager", "Plug a cable into HDMI 2, with a source at its other end.", "sourcePlugged",
         kPlugged2},
        {"volumeKey", "audio", "Change the volume with the remote control.", "volumeChanged", kSpeaker},
    };
    return kChecks;
}

} // namespace kelutv::tool::compliance
