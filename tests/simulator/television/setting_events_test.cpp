// Whatever an application may show tells of its changes.

#include "simulator/Inbox.h"
#include "simulator/Simulator.h"

#include "simulator/configuration/Configuration.h"

#include <kelutv/kelutv.h>

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

namespace kelutv::test {

namespace {

const auto& environmentOfSettingEvents = SimulatorEnvironment::install();

/** With its zero one word of a payload. */
char kText[] = "hel";
constexpr int kTextWord = 'h' | 'e' << 8 | 'l' << 16;

struct Setting {
    const char* state;
    /** Gives it a value that it does not start with. */
    int (*set)();
    int event;
    std::vector<int> words;
};

const std::vector<Setting>& settings() {
    static const auto* const settings = new std::vector<Setting>{
        {"audio.maxVolume",
         [] { return linux_tv_Audio_setMaxVolume(KELU_TV_AUDIO_CHANNEL_SPEAKER, 62); },
         0x60003,
         {0, 62}},
        {"audio.bootVolume",
         [] { return linux_tv_Audio_setBootVolume(KELU_TV_AUDIO_CHANNEL_SPEAKER, 62); },
         0x60004,
         {0, 62}},
        {"audio.inputVolume", [] { return Audio::instance()->setInputVolume(61); }, 0x60005, {61}},
        {"audio.subWooferVolume", [] { return linux_tv_Audio_setSubWooferVolume(61); }, 0x60006, {61}},
        {"audio.subWooferEnable", [] { return linux_tv_Audio_enableSubWoofer(true); }, 0x60007, {1}},
        {"audio.soundMode", [] { return linux_tv_Audio_setSoundMode(KELU_TV_SNDMODE_MUSIC); }, 0x60008, {2}},
        {"audio.stereoMode", [] { return linux_tv_Audio_setStereoMode(KELU_TV_SIF_OUTMODE_DUAL_A); }, 0x60009, {2}},
        {"audio.surroundMode", [] { return linux_tv_Audio_setSurroundMode(true); }, 0x6000A, {1}},
        {"audio.effectParameter",
         [] { return linux_tv_Audio_setEffectParameter(KELU_TV_AUDIO_EFFECT_PARAM_TREBLE_E, 62); },
         0x6000B,
         {0, 62}},
        {"audio.advancedEffectParameter",
         [] { return linux_tv_Audio_setAdvancedEffectParameter(KELU_TV_AUDIO_ADVANCED_EFFECT_PARAM_SRS_ONOFF_E, 62); },
         0x6000C,
         {0, 62}},
        {"audio.equalizerMode",
         [] { return linux_tv_Audio_setEqualizerMode(KELU_TV_EQUALIZER_PROFESSIONAL); },
         0x6000D,
         {1}},
        {"audio.equalLound", [] { return Audio::instance()->setEqualLoundValue(2, 3, 63); }, 0x6000E, {2, 3, 63}},
        {"audio.eqEnable", [] { return linux_tv_Audio_setEQEnable(false); }, 0x6000F, {0}},
        {"audio.speakerOutput", [] { return linux_tv_Audio_setSpeakerOutput(KELU_TV_SPEAKER_MIX); }, 0x60010, {2}},
        {"audio.spdifOutput", [] { return linux_tv_Audio_setSPDIFOutput(KELU_TV_SPDIF_RAWDATA); }, 0x60011, {2}},
        {"audio.spdifOutputDelay", [] { return linux_tv_Audio_setSPDIFOutputDelay(61); }, 0x60012, {61}},
        {"audio.avSync", [] { return linux_tv_Audio_setAVsync(61); }, 0x60013, {61}},
        {"audio.avcLevel", [] { return linux_tv_Audio_setAVCLevel(KELU_TV_AVC_THRESHOLD_LEVEL2); }, 0x60014, {1}},
        {"audio.intelligentVolumeEnable",
         [] { return Audio::instance()->setIntelligentVolumeEnable(1); },
         0x60015,
         {1}},
        {"audio.dolbyMode", [] { return linux_tv_Audio_setDolbyMode(KELU_TV_DOLBY_RF); }, 0x60016, {1}},
        {"audio.dolblyAtmosEnable", [] { return Audio::instance()->setDolblyAtmosEnable(1); }, 0x60017, {1}},
        {"audio.dtsDrcState", [] { return linux_tv_Audio_setDtsDrcState(true); }, 0x60018, {1}},
        {"audio.trubassMode", [] { return linux_tv_Audio_setTrubassMode(true); }, 0x60019, {1}},
        {"audio.soundClarity", [] { return linux_tv_Audio_setSoundClarity(true); }, 0x6001A, {1}},
        {"audio.dialogueEnhancement", [] { return Audio::instance()->setDialogueEnhancement(1); }, 0x6001B, {1}},
        {"audio.csTenhancerEnable", [] { return linux_tv_Audio_setCStenhancerEnable(1); }, 0x6001C, {1}},
        {"audio.audioWallMode", [] { return Audio::instance()->setAudioWallMode(true); }, 0x6001D, {1}},
        {"audio.hangMode", [] { return linux_tv_Audio_setHangMode(KELU_TV_SNDLOCATE_WALL); }, 0x6001E, {1}},
        {"audio.newOutputMode",
         [] { return linux_tv_Audio_setNewOutputMode(KELU_TV_NEW_AUDIO_OUTPUT_BLUETOOTH); },
         0x6001F,
         {2}},
        {"audio.defaultSndOutputDev",
         [] { return linux_tv_Audio_SetDefaultSndOutputDev(KELU_TV_SOUND_OUTPUT_MODE_SPEAKER); },
         0x60020,
         {2}},
        {"audio.headphoneForLineout", [] { return linux_tv_Audio_setHeadphoneForLineoutEnable(true); }, 0x60021, {1}},
        {"audio.allSndOutputMute", [] { return linux_tv_Audio_setAllSndOutputMute(true); }, 0x60022, {1}},
        {"audio.amplifierMute", [] { return linux_tv_Audio_enableAmplifierMute(true); }, 0x60023, {1}},
        {"audio.arcByPassEnable", [] { return Audio::instance()->setARCByPassEnable(1); }, 0x60024, {1}},
        {"sourcemanager.bootSource",
         [] { return linux_tv_SourceManager_setBootSource(KELU_TV_SRC_HDMI1); },
         0x40005,
         {9}},
        {"sourcemanager.windowRect",
         [] {
             return linux_tv_SourceManager_setWindowRect({62, 63, 64, 65}, KELU_TV_WINDOW_MAIN, 0);
         },
         0x40006,
         {0, 62, 63, 64, 65}},
        {"sourcemanager.focusWindow",
         [] { return linux_tv_SourceManager_setFocusWindow(KELU_TV_WINDOW_AUTO); },
         0x40007,
         {2}},
        {"sourcemanager.dualDisplay", [] { return linux_tv_SourceManager_enableDualDisplay(1); }, 0x40008, {1}},
        {"video.windowMute",
         [] {
             KELU_TV_COLOR_S black{};
             return linux_tv_Video_muteWindow(true, &black, true);
         },
         0x40009,
         {1, 1}},
        {"video.depth", [] { return linux_tv_Video_setDepth(61); }, 0x50002, {61}},
        {"video.view", [] { return linux_tv_Video_setView(61); }, 0x50003, {61}},
        {"video.flat3d", [] { return linux_tv_Video_set3dto2d(true); }, 0x50004, {1}},
        {"video.switchLR", [] { return linux_tv_Video_switchLR(true); }, 0x50005, {1}},
        {"picture.pictureMode",
         [] { return Picture::instance()->setPictureMode(62, KELU_TV_HDR_TYPE_SDR); },
         0x80004,
         {0, 62}},
        {"picture.pictureModePara",
         [] { return linux_tv_Picture_debugPictureModePara(2, KELU_TV_IMAGE_BRIGHTNESS, 63); },
         0x80005,
         {2, 0, 63}},
        {"picture.brightness", [] { return linux_tv_Picture_setBrightness(61); }, 0x80006, {61}},
        {"picture.contrast", [] { return linux_tv_Picture_setContrast(61); }, 0x80007, {61}},
        {"picture.saturation", [] { return linux_tv_Picture_setSaturation(61); }, 0x80008, {61}},
        {"picture.hue", [] { return linux_tv_Picture_setHue(61); }, 0x80009, {61}},
        {"picture.sharpness", [] { return linux_tv_Picture_setSharpness(61); }, 0x8000A, {61}},
        {"picture.backlight", [] { return linux_tv_Picture_setBacklight(61); }, 0x8000B, {61}},
        {"picture.backlightEnable", [] { return linux_tv_Picture_enableBacklight(false); }, 0x8000C, {0}},
        {"picture.dynamicBL", [] { return Picture::instance()->enableDynamicBL(true); }, 0x8000D, {1}},
        {"picture.laserBrightness", [] { return linux_tv_Picture_setLaserBrightness(61); }, 0x8000E, {61}},
        {"picture.colorTemp", [] { return linux_tv_Picture_setColorTemp(KELU_TV_COLORTEMP_WARM); }, 0x8000F, {2}},
        {"picture.aspect", [] { return linux_tv_Picture_setAspect(KELU_TV_ASPECT_FULL, false); }, 0x80010, {2}},
        {"picture.overscan", [] { return linux_tv_Picture_enableOverscan(true); }, 0x80011, {1}},
        {"picture.freeze", [] { return linux_tv_Picture_enableFreeze(true); }, 0x80012, {1}},
        {"picture.nr", [] { return linux_tv_Picture_setNR(KELU_TV_LEVEL_MID); }, 0x80013, {2}},
        {"picture.deBlocking", [] { return linux_tv_Picture_setDeBlocking(61); }, 0x80014, {61}},
        {"picture.deRinging", [] { return linux_tv_Picture_setDeRinging(61); }, 0x80015, {61}},
        {"picture.deContour", [] { return linux_tv_Picture_setDeContour(61); }, 0x80016, {61}},
        {"picture.gameMode", [] { return linux_tv_Picture_enableGameMode(true); }, 0x80017, {1}},
        {"picture.pcMode", [] { return linux_tv_Picture_setPcMode(KELU_MW_PCMODE_VIDEO); }, 0x80018, {2}},
        {"picture.filmMode", [] { return linux_tv_Picture_setFilmMode(61); }, 0x80019, {61}},
        {"picture.hdrMode", [] { return linux_tv_Picture_setHdrMode(KELU_MW_HDR_MODE_HLG); }, 0x8001A, {2}},
        {"picture.hdr10Enable", [] { return linux_tv_Picture_setHdr10Enable(false); }, 0x8001B, {0}},
        {"picture.sdrToHdrMode", [] { return linux_tv_Picture_setSdrToHdrMode(61); }, 0x8001C, {61}},
        {"picture.hdmiColorRange",
         [] { return linux_tv_Picture_setHDMIColorRange(KELU_TV_IMAGE_RGB_TYPE_AUTO); },
         0x8001D,
         {2}},
        {"picture.colorRangeType", [] { return linux_tv_Picture_setColorRangeType(61); }, 0x8001E, {61}},
        {"picture.colorSystem", [] { return linux_tv_Picture_setColorSystem(KELU_TV_CLRSYS_NTSC); }, 0x8001F, {2}},
        {"picture.dreamPanel", [] { return linux_tv_Picture_setDreamPanel(KELU_TV_PANELLEVEL_IMAGE); }, 0x80020, {2}},
        {"picture.dci", [] { return linux_tv_Picture_enableDCI(true); }, 0x80021, {1}},
        {"picture.dciLevel", [] { return linux_tv_Picture_setDciLevel(61); }, 0x80022, {61}},
        {"picture.localContrastMode", [] { return linux_tv_Picture_setLocalContrastMode(61); }, 0x80023, {61}},
        {"picture.localDimmingMode", [] { return linux_tv_Picture_setLocalDimmingMode(61); }, 0x80024, {61}},
        {"picture.matrixBacklight", [] { return Picture::instance()->setMatrixBacklight(true); }, 0x80025, {1}},
        {"picture.blackStretchLevel", [] { return linux_tv_Picture_setBlackStretchLevel(61); }, 0x80026, {61}},
        {"picture.blueExtend", [] { return linux_tv_Picture_enableBlueExtend(true); }, 0x80027, {1}},
        {"picture.fleshTone", [] { return linux_tv_Picture_setFleshTone(61); }, 0x80028, {61}},
        {"picture.eyeSafeMode", [] { return linux_tv_Picture_setEyeSafeMode(61); }, 0x80029, {61}},
        {"picture.srLevel", [] { return linux_tv_Picture_setSRLevel(61); }, 0x8002A, {61}},
        {"picture.memcEnable", [] { return Picture::instance()->setMEMCEnable(true); }, 0x8002B, {1}},
        {"picture.memcLevel", [] { return linux_tv_Picture_setMEMCLevel(61); }, 0x8002C, {61}},
        {"picture.demoMode", [] { return linux_tv_Picture_setDemoMode(2, true); }, 0x8002D, {2, 1}},
        {"pcsetting.clock", [] { return linux_tv_PCSetting_setClock(61); }, 0x8002E, {61}},
        {"pcsetting.phase", [] { return linux_tv_PCSetting_setPhase(61); }, 0x8002F, {61}},
        {"pcsetting.hPosition", [] { return linux_tv_PCSetting_setHPosition(61); }, 0x80030, {61}},
        {"pcsetting.vPosition", [] { return linux_tv_PCSetting_setVPosition(61); }, 0x80031, {61}},
        {"systemsetting.menuLanguage",
         [] { return linux_tv_SystemSetting_setLanguage(KQ_LANG_TRADITIONAL_CHINESE); },
         0x80032,
         {2}},
        {"systemsetting.screenOn", [] { return linux_tv_SystemSetting_setScreenOn(false); }, 0x80033, {0}},
        {"systemsetting.screenBlue", [] { return linux_tv_SystemSetting_enableScreenBlue(true); }, 0x80034, {1}},
        {"systemsetting.marketMode", [] { return linux_tv_SystemSetting_setMarketModeEnable(true); }, 0x80035, {1}},
        {"systemsetting.soundbarMode", [] { return linux_tv_SystemSetting_enableSoundbarMode(true); }, 0x80036, {1}},
        {"systemsetting.soundBarAudioInputSource",
         [] { return SystemSetting::instance()->SetSoundBarAudioInputSource(61); },
         0x80037,
         {61}},
        {"systemsetting.tvStartMode", [] { return linux_tv_SystemSetting_setTvStartMode(61); }, 0x80038, {61}},
        {"systemsetting.output4k2k", [] { return linux_tv_SystemSetting_setOutput4k2k(61); }, 0x80039, {61}},
        {"systemsetting.boxOutputFormat", [] { return linux_tv_SystemSetting_setBoxOutputFormat(61); }, 0x8003A, {61}},
        {"systemsetting.aiCloseScreenMode",
         [] { return linux_tv_SystemSetting_setAICloseScreenMode(true); },
         0x8003B,
         {1}},
        {"systemsetting.aodUIMode", [] { return SystemSetting::instance()->setAodUIMode(61); }, 0x8003C, {61}},
        {"systemsetting.lsadcKey", [] { return linux_tv_SystemSetting_enableLSADCKey(true); }, 0x8003D, {1}},
        {"config.cecSwitchMode", [] { return CConfig().SetCECSwitchMode(true); }, 0x1A0003, {1}},
        {"config.arcEnable", [] { return CConfig().SetARCEnable(true); }, 0x1A0004, {1}},
        {"config.arcMode", [] { return CConfig().SetARCMode(KELU_MW_SND_ARC_AUDIO_MODE_HBR2LBR); }, 0x1A0005, {2}},
        {"config.deviceAutoPowerOff", [] { return CConfig().SetCECDeviceAutoPowerOff(true); }, 0x1A0006, {1}},
        {"config.tvAutoPowerOff", [] { return CConfig().SetCECTvAutoPowerOff(true); }, 0x1A0007, {1}},
        {"config.tvAutoPowerOn", [] { return CConfig().SetCECTVAutoPowerOn(true); }, 0x1A0008, {1}},
        {"factory.hotelEnable", [] { return SetHotelEnable(true); }, 0x30001, {1}},
        {"factory.hotelKeypad", [] { return SetHotelKeypadEnable(false); }, 0x30002, {0}},
        {"factory.hotelSetupMenu", [] { return SetHotelSetupMenuEnable(false); }, 0x30003, {0}},
        {"factory.hotelMaxVolume", [] { return SetHotelMaxVolume(61); }, 0x30004, {61}},
        {"factory.hotelBootVolume", [] { return SetHotelBootVolume(61); }, 0x30005, {61}},
        {"factory.hotelBootSrc", [] { return SetHotelBootSrc(KELU_TV_SRC_HDMI1); }, 0x30006, {9}},
        {"factory.hotelBootChannel", [] { return SetHotelBootChannel(61, 62); }, 0x30007, {61, 62}},
        {"factory.country", [] { return linux_tv_Factory_setCountry(61); }, 0x30008, {61}},
        {"factory.testPattern", [] { return linux_tv_Factory_setTestPattern(KELU_TV_PATTERN_WHITE); }, 0x30009, {2}},
        {"factory.agingMode", [] { return linux_tv_Factory_enableAgingMode(true); }, 0x3000A, {1}},
        {"factory.bootLogoIndex", [] { return linux_tv_Factory_setBootLogoIndex(61); }, 0x3000B, {61}},
        {"factory.powerMusic", [] { return linux_tv_Factory_enablePowerMusic(true); }, 0x3000C, {1}},
        {"factory.powerMusicVol", [] { return linux_tv_Factory_setPowerMusicVol(61); }, 0x3000D, {61}},
        {"factory.poweronMode", [] { return linux_tv_Factory_setPoweronMode(61); }, 0x3000E, {61}},
        {"factory.hotkeyMode", [] { return linux_tv_Factory_setHotkeyMode(true); }, 0x3000F, {1}},
        {"factory.singleKeyMode", [] { return linux_tv_Factory_setSingleKeyMode(61); }, 0x30010, {61}},
        {"factory.machineInfo",
         [] { return linux_tv_Factory_setMachineInfo(KELU_TV_MACHINE_INFO_MODEL, kText); },
         0x30011,
         {0, kTextWord}},
        {"factory.internetTime", [] { return linux_tv_Factory_setInternetTime(kText); }, 0x30012, {kTextWord}},
        {"factory.otherItemValue", [] { return linux_tv_Factory_setOtherItemValue(2, 62); }, 0x30013, {2, 62}},
        {"factory.performanceItemValue",
         [] { return linux_tv_Factory_setPerformanceItemValue(2, 62); },
         0x30014,
         {2, 62}},
        {"factory.nonStandardItemValue",
         [] { return linux_tv_Factory_setNonStandardItemValue(2, 62); },
         0x30015,
         {2, 62}},
        {"factory.bluetoothEnable", [] { return linux_tv_Factory_setBluetoothEnable(true); }, 0x30016, {1}},
        {"factory.voiceEnable", [] { return linux_tv_Factory_setVoiceEnable(true); }, 0x30017, {1}},
        {"factory.voiceCuesEnable", [] { return linux_tv_Factory_setVoiceCuesEnable(true); }, 0x30018, {1}},
        {"factory.alexaEnable", [] { return linux_tv_Factory_setAlexaEnable(true); }, 0x30019, {1}},
        {"factory.ciEnable", [] { return linux_tv_Factory_setCIEnable(true); }, 0x3001A, {1}},
        {"factory.pvrEnable", [] { return linux_tv_Factory_setPVREnable(true); }, 0x3001B, {1}},
        {"factory.presentationEnable", [] { return linux_tv_Factory_setPresentationEnable(true); }, 0x3001C, {1}},
        {"factory.edidType", [] { return Factory::instance()->setEDIDType(KELU_TV_EDID_TYPE_DEFAULT); }, 0x3001D, {2}},
    };
    return *settings;
}

/** What shows the signal and the current source, volume and mute have tests of their own. */
const std::set<std::string> kTestedElsewhere{"audio.mute",
                                             "audio.volume",
                                             "picture.hdrStreamType",
                                             "sourcemanager.curSource",
                                             "sourcemanager.signalStatus",
                                             "sourcemanager.timingInfo",
                                             "video.mode3d"};

TEST(SettingEvents, ComeOncePerChange) {
    linux_tv_registerCallbackFunc(Inbox::onEvent);
    for (const Setting& setting : settings()) {
        EXPECT_EQ(setting.set(), 0) << setting.state;
        EXPECT_EQ(setting.set(), 0) << setting.state;
    }
    const std::vector<Event> events = Inbox::instance().take();
    ASSERT_EQ(events.size(), settings().size());
    for (std::size_t i = 0; i < events.size(); ++i) {
        EXPECT_EQ(events[i], (Event{settings()[i].event, settings()[i].words})) << settings()[i].state;
    }
}

TEST(SettingEvents, AreAllTested) {
    std::set<std::string> tested = kTestedElsewhere;
    for (const Setting& setting : settings()) {
        tested.insert(setting.state);
    }
    std::set<std::string> withEvent;
    const simulator::Configuration configuration = simulator::Configuration::standard();
    for (const wire::StateKey& state : wire::allStates()) {
        if (configuration.settings(state).event != 0) {
            withEvent.insert(state.name);
        }
    }
    EXPECT_EQ(tested, withEvent);
}

} // namespace

} // namespace kelutv::test
