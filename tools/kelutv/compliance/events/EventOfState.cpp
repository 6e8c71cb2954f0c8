#include "tools/kelutv/compliance/events/EventOfState.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace kelutv::tool::compliance {

namespace {

struct StateEvent {
    std::string_view state;
    const char* event;
};

/** Of those that are not called as the state is, or belong to another of its name, by ascending state. */
constexpr StateEvent kOtherwiseNamed[] = {
    {"audio.advancedEffectParameter", "advancedSoundEffectChanged"},
    {"audio.allSndOutputMute", "allOutputsMuteChanged"},
    {"audio.arcByPassEnable", "arcBypassChanged"},
    {"audio.csTenhancerEnable", "soundEnhancerChanged"},
    {"audio.defaultSndOutputDev", "defaultAudioOutputChanged"},
    {"audio.dolblyAtmosEnable", "dolbyAtmosChanged"},
    {"audio.dtsDrcState", "dtsDrcChanged"},
    {"audio.effectParameter", "soundEffectChanged"},
    {"audio.eqEnable", "equalizerChanged"},
    {"audio.equalLound", "equalizerBandChanged"},
    {"audio.hangMode", "mountingChanged"},
    {"audio.headphoneForLineout", "headphoneLineoutChanged"},
    {"audio.intelligentVolumeEnable", "intelligentVolumeChanged"},
    {"audio.newOutputMode", "audioOutputChanged"},
    {"audio.spdifOutputDelay", "spdifDelayChanged"},
    {"audio.subWooferEnable", "subwooferChanged"},
    {"audio.surroundMode", "surroundChanged"},
    {"audio.trubassMode", "trubassChanged"},
    {"config.arcEnable", "arcSwitchChanged"},
    {"config.cecSwitchMode", "cecSwitchChanged"},
    {"factory.alexaEnable", "alexaChanged"},
    {"factory.bluetoothEnable", "bluetoothChanged"},
    {"factory.bootLogoIndex", "bootLogoChanged"},
    {"factory.ciEnable", "ciChanged"},
    {"factory.hotelBootSrc", "hotelBootSourceChanged"},
    {"factory.hotelEnable", "hotelModeChanged"},
    {"factory.hotelSetupMenu", "hotelMenuChanged"},
    {"factory.nonStandardItemValue", "nonStandardItemChanged"},
    {"factory.otherItemValue", "otherItemChanged"},
    {"factory.overscan", ""},
    {"factory.performanceItemValue", "performanceItemChanged"},
    {"factory.powerMusicVol", "powerMusicVolumeChanged"},
    {"factory.presentationEnable", "presentationChanged"},
    {"factory.pvrEnable", "pvrChanged"},
    {"factory.voiceCuesEnable", "voiceCuesChanged"},
    {"factory.voiceEnable", "voiceChanged"},
    {"pcsetting.clock", "pcClockChanged"},
    {"pcsetting.hPosition", "pcHorizontalPositionChanged"},
    {"pcsetting.phase", "pcPhaseChanged"},
    {"pcsetting.vPosition", "pcVerticalPositionChanged"},
    {"picture.backlightEnable", "backlightSwitched"},
    {"picture.blackStretchLevel", "blackStretchChanged"},
    {"picture.blueExtend", "blueExtensionChanged"},
    {"picture.colorRangeType", "colorRangeChanged"},
    {"picture.colorTemp", "colorTemperatureChanged"},
    {"picture.dci", "dynamicContrastChanged"},
    {"picture.dciLevel", "dynamicContrastLevelChanged"},
    {"picture.dynamicBL", "dynamicBacklightChanged"},
    {"picture.eyeSafeMode", "eyeProtectionChanged"},
    {"picture.hdr10Enable", "hdr10Changed"},
    {"picture.hdrStreamType", "streamTypeChanged"},
    {"picture.localContrastMode", "localContrastChanged"},
    {"picture.localDimmingMode", "localDimmingChanged"},
    {"picture.memcEnable", "motionCompensationChanged"},
    {"picture.memcLevel", "motionCompensationLevelChanged"},
    {"picture.nr", "noiseReductionChanged"},
    {"picture.pictureModePara", "pictureModeParameterChanged"},
    {"picture.sdrToHdrMode", "sdrToHdrChanged"},
    {"picture.srLevel", "superResolutionChanged"},
    {"sourcemanager.curSource", "sourceChanged"},
    {"sourcemanager.signalStatus", "signalChanged"},
    {"sourcemanager.timingInfo", "timingChanged"},
    {"systemsetting.aiCloseScreenMode", "aiScreenOffChanged"},
    {"systemsetting.aodUIMode", "alwaysOnDisplayChanged"},
    {"systemsetting.boxOutputFormat", "outputFormatChanged"},
    {"systemsetting.lsadcKey", "localKeysChanged"},
    {"systemsetting.output4k2k", "output4kChanged"},
    {"systemsetting.screenBlue", "blueScreenChanged"},
    {"systemsetting.screenOn", "screenChanged"},
    {"systemsetting.soundBarAudioInputSource", "soundbarInputChanged"},
    {"systemsetting.tvStartMode", "startModeChanged"},
    {"video.depth", "depth3dChanged"},
    {"video.switchLR", "eyesSwapped"},
    {"video.view", "view3dChanged"},
};

} // namespace

std::string eventNameOf(const std::string& state) {
    const auto* const found =
        std::lower_bound(std::begin(kOtherwiseNamed), std::end(kOtherwiseNamed), state,
                         [](const StateEvent& row, const std::string& wanted) { return row.state < wanted; });
    if (found != std::end(kOtherwiseNamed) && found->state == state) {
        return found->event;
    }
    return state.substr(state.find('.') + 1) + "Changed";
}

} // namespace kelutv::tool::compliance
