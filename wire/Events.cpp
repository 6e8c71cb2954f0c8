#include "wire/Events.h"

namespace kelutv::wire {

namespace {

constexpr const char* kSourceWords[] = {"window", "source"};
constexpr const char* kSignalWords[] = {"signal"};
constexpr const char* kPluggedWords[] = {"source", "plugged", "signal"};
constexpr const char* kModeWords[] = {"mode"};
constexpr const char* kVolumeWords[] = {"channel", "volume"};
constexpr const char* kMuteWords[] = {"channel", "mute"};
constexpr const char* kTypeWords[] = {"type"};
constexpr const char* kStateWords[] = {"state"};
constexpr const char* kKeyWords[] = {"key", "action"};
constexpr const char* kDeviceWords[] = {"address", "port", "plugged"};
constexpr const char* kPlayingWords[] = {"address"};

constexpr EventName kEvents[] = {
    {"kSourceChanged", kSourceChanged, kSourceWords},
    {"kSignalChanged", kSignalChanged, kSignalWords},
    {"kTimingChanged", kTimingChanged, {}},
    {"kSourcePlugged", kSourcePlugged, kPluggedWords},
    {"kMode3dChanged", kMode3dChanged, kModeWords},
    {"kVolumeChanged", kVolumeChanged, kVolumeWords},
    {"kMuteChanged", kMuteChanged, kMuteWords},
    {"kStreamTypeChanged", kStreamTypeChanged, kTypeWords},
    {"kPowerStateChanged", kPowerStateChanged, kStateWords},
    {"kKeyUsed", kKeyUsed, kKeyWords},
    {"kCecDeviceChanged", kCecDeviceChanged, kDeviceWords},
    {"kCecPlayingChanged", kCecPlayingChanged, kPlayingWords},
    {"kVbiBlock", kVbiBlock, {}},
};

} // namespace

Rows<EventName> allEvents() { return kEvents; }

} // namespace kelutv::wire
