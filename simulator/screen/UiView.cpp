#include "simulator/screen/UiView.h"

#include "simulator/television/StateAccess.h"
#include "wire/text/EnumeratorNames.h"

#include <kelutv/audio_types.h>
#include <kelutv/commands.h>
#include <kelutv/picture_types.h>
#include <kelutv/video_types.h>

#include <algorithm>
#include <cstddef>

namespace kelutv::simulator {

namespace {

constexpr char kSourcePrefix[] = "KELU_TV_SRC_";
constexpr const char* kPowerStates[] = {
    "on", "suspended", "suspended to memory", "normally suspended", "shallowly suspended", "rebooting"};
constexpr const char* kSdrModes[] = {"standard", "cinema", "vivid",   "game",     "eco", "photo vivid",
                                     "photo",    "sports", "dynamic", "softness", "AI",  "care"};
constexpr const char* kHdrModes[] = {"standard", "cinema", "vivid", "game", "AI"};
constexpr const char* kDolbyModes[] = {"bright", "dark", "vivid", "standard"};

template <std::size_t count> std::string nameAt(const char* const (&names)[count], std::int32_t index) {
    return index >= 0 && static_cast<std::size_t>(index) < count ? names[index] : std::to_string(index);
}

/** Numbers that the television keeps; 0 where it keeps none. */
class Numbers {
public:
    Numbers(const Equipment& equipment, const char* state, const wire::Values& indexes = {})
        : mValues(readState(equipment, *wire::findState(state), indexes)) {}

    std::int32_t operator[](std::size_t index) const {
        const auto* const number = index < mValues.size() ? std::get_if<std::int32_t>(&mValues[index]) : nullptr;
        return number != nullptr ? *number : 0;
    }

private:
    const wire::Values mValues;
};

/** The enumerator of what a command answers, without the words that all have in common. */
std::string nameAnswered(std::int32_t command, std::int32_t value, const std::string& prefix) {
    const std::string name = wire::nameOfValue(value, wire::findCommand(command)->operation.reply[0].names);
    return name.rfind(prefix, 0) == 0 ? name.substr(prefix.size()) : std::to_string(value);
}

std::string signalOf(const Equipment& equipment) {
    if (Numbers(equipment, "sourcemanager.signalStatus")[0] == 0) {
        return "none";
    }
    const Numbers timing(equipment, "sourcemanager.timingInfo");
    return std::to_string(timing[0]) + 'x' + std::to_string(timing[1]) + (timing[3] != 0 ? "i " : "p ") +
           std::to_string(timing[2]) + " Hz";
}

std::string pictureModeOf(const Equipment& equipment, std::int32_t streamType) {
    const std::int32_t mode = Numbers(equipment, "picture.currentPictureMode")[0];
    switch (streamType) {
    case KELU_TV_HDR_TYPE_HDR10:
    case KELU_TV_HDR_TYPE_HDR10_PLUS:
    case KELU_TV_HDR_TYPE_HLG:
        return nameAt(kHdrModes, mode);
    case KELU_TV_HDR_TYPE_DOLBY_HDR:
        return nameAt(kDolbyModes, mode);
    default:
        return nameAt(kSdrModes, mode);
    }
}

std::optional<UiColor> patternOf(const Equipment& equipment) {
    const Numbers pattern(equipment, "factory.whiteBalanceColor");
    if (pattern[0] == 0) {
        return std::nullopt;
    }
    const auto part = [&pattern](std::size_t index) { return std::clamp(pattern[index], 0, 255); };
    return UiColor{part(1), part(2), part(3)};
}

std::string hotelOf(const Equipment& equipment) {
    if (Numbers(equipment, "factory.hotelEnable")[0] == 0) {
        return "off";
    }
    return "on, volume up to " + std::to_string(Numbers(equipment, "factory.hotelMaxVolume")[0]);
}

std::string withoutPrefix(const std::string& name, const std::string& prefix) {
    return name.rfind(prefix, 0) == 0 ? name.substr(prefix.size()) : name;
}

std::vector<UiInput> inputsOf(const Equipment& equipment, std::int32_t current) {
    const Sources& sources = equipment.sources;
    std::vector<UiInput> inputs;
    for (const std::int32_t id : sources.ids()) {
        const std::string& name = sources.nameOf(id);
        inputs.push_back({id, name, withoutPrefix(name, kSourcePrefix), sources.isPlugged(id), sources.hasSignal(id),
                          id == current});
    }
    return inputs;
}

std::vector<std::string> devicesOf(const Equipment& equipment) {
    std::vector<std::string> devices;
    for (const CecDevice& device : equipment.cec.all()) {
        const std::string text = std::to_string(device.logAddr) + ' ' + device.name;
        const bool isPlaying = device.logAddr == equipment.cec.playing();
        devices.push_back(text + (!device.plugged ? " (unplugged)" : isPlaying ? " (plays)" : ""));
    }
    return devices;
}

} // namespace

UiView viewOf(const Equipment& equipment) {
    const wire::Values speaker{std::int32_t{KELU_TV_AUDIO_CHANNEL_SPEAKER}};
    const std::int32_t streamType = Numbers(equipment, "picture.hdrStreamType")[0];
    const std::int32_t source = Numbers(equipment, "sourcemanager.curSource", {std::int32_t{KELU_TV_WINDOW_MAIN}})[0];
    UiView view;
    view.power = nameAt(kPowerStates, static_cast<std::int32_t>(equipment.power.state()));
    view.isOn = equipment.power.state() == PowerState::On;
    view.source = nameAnswered(CMD_SOURCE_GETCURSOURCEID, source, kSourcePrefix);
    view.inputs = inputsOf(equipment, source);
    view.devices = devicesOf(equipment);
    view.signal = signalOf(equipment);
    view.streamType = nameAnswered(CMD_PICTURE_GETHDRSTREAMTYPE, streamType, "KELU_TV_HDR_TYPE_");
    view.pictureMode = pictureModeOf(equipment, streamType);
    view.volume = Numbers(equipment, "audio.volume", speaker)[0];
    view.muted = Numbers(equipment, "audio.mute", speaker)[0] != 0;
    view.pattern = patternOf(equipment);
    view.hotel = hotelOf(equipment);
    view.faults = equipment.faults.list();
    return view;
}

} // namespace kelutv::simulator
