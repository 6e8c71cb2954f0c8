#include "simulator/television/CommandHandler.h"

#include <kelutv/audio_types.h>
#include <kelutv/commands.h>

namespace kelutv::simulator {

namespace {

wire::Reply toggleSpeakerMute(Equipment& equipment, const wire::Request&) {
    const wire::StateKey& mute = *wire::findState("audio.mute");
    const wire::Values speaker{std::int32_t{KELU_TV_AUDIO_CHANNEL_SPEAKER}};
    const bool muted = equipment.state.kept(mute, speaker) != wire::Values{std::int32_t{0}};
    equipment.state.keep(mute, speaker, {std::int32_t{!muted}});
    return {};
}

wire::Reply restoreSound(Equipment& equipment, const wire::Request&) {
    equipment.state.restore("audio");
    return {};
}

wire::Reply restorePicture(Equipment& equipment, const wire::Request&) {
    equipment.state.restore("picture");
    return {};
}

constexpr CommandHandler kSettingHandlers[] = {
    {CMD_CEC_MODIFY_MUTE, toggleSpeakerMute},
    {CMD_AUDIO_RESTORESOUNDSETS, restoreSound},
    {CMD_PICTURE_RESTOREPICTURESETS, restorePicture},
};

} // namespace

CommandHandlers settingHandlers() { return kSettingHandlers; }

} // namespace kelutv::simulator
