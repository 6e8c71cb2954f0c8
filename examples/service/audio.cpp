// The sound of a television: all its settings, with what a client must not set, and the events of those that users see.

#include "handlers.h"

#include <kelutv/audio_types.h>
#include <kelutv/commands.h>

#include <utility>
#include <vector>

using kelutv::service::Events;
using kelutv::service::Reply;
using kelutv::service::Request;
using kelutv::service::Setting;
using kelutv::service::Settings;
using kelutv::service::Values;

namespace {

constexpr int kQuietest = 0;
constexpr int kLoudest = 100;

Setting volume(const char* state, int initial, const char* event) {
    return {state, {initial}, event, kQuietest, kLoudest};
}

Setting setting(const char* state, const char* event, Values initial = {}) {
    return {state, std::move(initial), event};
}

/** The equalizer as it comes: its bands, each with filter, frequency in Hz, quality and gain. */
Values equalizerBands() {
    Values bands{10};
    for (const int frequency : {31, 62, 125, 250, 500, 1000, 2000, 4000, 8000, 16000}) {
        bands.insert(bands.end(), {2, frequency, 70, 0});
    }
    return bands;
}

const std::vector<Setting> kSettings{
    volume("audio.volume", 20, "volumeChanged"),
    volume("audio.maxVolume", 100, "maxVolumeChanged"),
    volume("audio.bootVolume", 20, "bootVolumeChanged"),
    volume("audio.inputVolume", 50, "inputVolumeChanged"),
    volume("audio.subWooferVolume", 50, "subwooferVolumeChanged"),
    setting("audio.mute", "muteChanged"),
    setting("audio.amplifierMute", "amplifierMuteChanged"),
    setting("audio.allSndOutputMute", "allOutputsMuteChanged"),
    setting("audio.soundMode", "soundModeChanged"),
    setting("audio.stereoMode", "stereoModeChanged", {KELU_TV_SIF_OUTMODE_STEREO}),
    setting("audio.hangMode", "mountingChanged"),
    setting("audio.surroundMode", "surroundChanged"),
    setting("audio.trubassMode", "trubassChanged"),
    setting("audio.soundClarity", "soundClarityChanged"),
    setting("audio.audioWallMode", "audioWallModeChanged"),
    setting("audio.subWooferEnable", "subwooferChanged"),
    setting("audio.effectParameter", "soundEffectChanged", {50}),
    setting("audio.advancedEffectParameter", "advancedSoundEffectChanged"),
    setting("audio.equalizerMode", "equalizerModeChanged"),
    setting("audio.equalLound", "equalizerBandChanged"),
    setting("audio.eqEnable", "equalizerChanged", {1}),
    setting("audio.speakerOutput", "speakerOutputChanged"),
    setting("audio.spdifOutput", "spdifOutputChanged"),
    setting("audio.spdifOutputDelay", "spdifDelayChanged"),
    setting("audio.defaultSndOutputDev", "defaultAudioOutputChanged"),
    setting("audio.newOutputMode", "audioOutputChanged"),
    setting("audio.headphoneForLineout", "headphoneLineoutChanged"),
    setting("audio.arcByPassEnable", "arcBypassChanged"),
    setting("audio.avSync", "avSyncChanged"),
    setting("audio.avcLevel", "avcLevelChanged"),
    setting("audio.intelligentVolumeEnable", "intelligentVolumeChanged"),
    setting("audio.dialogueEnhancement", "dialogueEnhancementChanged"),
    setting("audio.csTenhancerEnable", "soundEnhancerChanged"),
    setting("audio.dolbyMode", "dolbyModeChanged"),
    setting("audio.dolblyAtmosEnable", "dolbyAtmosChanged"),
    setting("audio.dtsDrcState", "dtsDrcChanged"),
    setting("audio.outputList", nullptr, {"speaker", "headphone", "spdif"}),
    setting("audio.audioFunctionEnable", nullptr, {1}),
    setting("audio.peqAttr", nullptr, equalizerBands()),
};

Settings& sound() {
    static Settings settings("audio", kSettings);
    return settings;
}

/** The mute key of a remote control. */
Reply toggleMute(Events& events) {
    const Values speaker{KELU_TV_AUDIO_CHANNEL_SPEAKER};
    const bool isMuted = sound().read("audio.mute", speaker) == Values{1};
    sound().keep("audio.mute", speaker, {isMuted ? 0 : 1}, events);
    return Reply::done();
}

} // namespace

Reply audio(const Request& request, Events& events) {
    switch (request.command()) {
    case CMD_CEC_MODIFY_MUTE:
        return toggleMute(events);
    case CMD_AUDIO_RESTORESOUNDSETS:
        sound().restore(events);
        return Reply::done();
    default:
        return sound().answer(request, events);
    }
}
