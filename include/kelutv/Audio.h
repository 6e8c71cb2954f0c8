/**
 * @file
 * The class `Audio`; its C functions are in linux_kelutv_audio.h.
 */
#pragma once

#include <kelutv/audio_types.h>
#include <kelutv/export.h>

#include <list>
#include <string>

/**
 * The sound of the television: volume, mute, outputs, effects.
 *
 * Every operation is one command to the TV base service, which owns all values; the object keeps none. A `bool` travels
 * as 0 or 1. An operation blocks until the service has answered, may be called from any thread, and writes nothing to
 * the log unless it says so, save that a set command whose link fails is logged as "invoke failure\n". Pointers that
 * receive a value may be null where nothing else is said; the value is then dropped.
 */
class KELUTV_API Audio {
public:
    /**
     * The one object, made on the first call from any thread and kept until the process ends.
     * @return The object; never null.
     */
    static Audio* instance();

    Audio(const Audio&) = delete;
    Audio& operator=(const Audio&) = delete;

    /**
     * @name Volume, mute and modes
     * @{
     */

    /**
     * Reads the sound mode.
     * @return The mode, one of `KELU_TV_SNDMODE_E`; -1 when the service or the link fails.
     */
    int getSoundMode();

    /**
     * Chooses the sound mode.
     * @param sndmode One of `KELU_TV_SNDMODE_E`.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setSoundMode(int sndmode);

    /**
     * Reads the output mode of the sound.
     * @return The mode as the service numbers it; -1 when the service or the link fails.
     */
    int getOutMode();

    /**
     * Reads the place of the set, desk or wall.
     * @return One of `KELU_TV_SNDLOCATE_E`; -1 when the service or the link fails.
     */
    int getHangMode();

    /**
     * Chooses the place of the set, desk or wall.
     * @param hangmode One of `KELU_TV_SNDLOCATE_E`.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setHangMode(int hangmode);

    /**
     * Reads the input volume.
     * @return The volume; -1 when the service or the link fails.
     */
    int getInputVolume();

    /**
     * Sets the input volume.
     * @param vol Volume; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setInputVolume(int vol);

    /**
     * Reads the volume of one output channel.
     * @param channel Output channel, one of `KELU_TV_AUDIO_CHANNEL_E`.
     * @return The volume; -1 when the service or the link fails.
     */
    int getVolume(int channel);

    /**
     * Sets the volume of one output channel.
     * @param channel Output channel, one of `KELU_TV_AUDIO_CHANNEL_E`.
     * @param vol Volume; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setVolume(int channel, int vol);

    /**
     * Sets the volume of one output channel through the second volume command.
     * @param channel Output channel, one of `KELU_TV_AUDIO_CHANNEL_E`.
     * @param vol Volume; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setVolumeByC(int channel, int vol);

    /**
     * Tells whether one output channel is mute.
     * @param channel Output channel, one of `KELU_TV_AUDIO_CHANNEL_E`.
     * @return False for the service's 0; true for any other answer, a failure included.
     */
    bool getMute(int channel);

    /**
     * Mutes one output channel or lifts the mute.
     * @param channel Output channel, one of `KELU_TV_AUDIO_CHANNEL_E`.
     * @param onoff True mutes.
     * @param type Owner of the request.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setMute(int channel, bool onoff, MuteType type);

    /**
     * Mutes one output channel, or lifts the mute, through the second mute command.
     * @param channel Output channel, one of `KELU_TV_AUDIO_CHANNEL_E`.
     * @param onoff True mutes.
     * @param type Owner of the request.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setMuteByC(int channel, bool onoff, MuteType type);

    /**
     * Sends the CEC command for a change of the mute, which has no argument; what changes is the service's matter.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int modifyMute();

    /**
     * Mutes the amplifier or lifts its mute.
     * @param bmute True mutes.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int EnableAmplifierMute(bool bmute);

    /**
     * Tells whether the amplifier is mute.
     * @return False for the service's 0; true for any other answer, a failure included.
     */
    bool isAmplifierMute();

    /**
     * Mutes all sound outputs or lifts the mute.
     * @param onOff True mutes.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setAllSndOutputMute(bool onOff);

    /**
     * Mutes the sound track or lifts its mute.
     * @param onOff True mutes.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setSndTrackMute(bool onOff);

    /**
     * Reads the stereo mode.
     * @return The mode, one of `KELU_TV_SIF_OUTMODE_E`; -1 when the service or the link fails.
     */
    int getStereoMode();

    /**
     * Chooses the stereo mode.
     * @param stereo One of `KELU_TV_SIF_OUTMODE_E`.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setStereoMode(int stereo);

    /**
     * Sets the delay between sound and picture.
     * @param ms Delay in milliseconds; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setAVsync(int ms);

    /**
     * Reads the delay between sound and picture.
     * @return The delay in milliseconds; -1 when the service or the link fails.
     */
    int getAVsync();

    /**
     * Restores the sound settings to their defaults.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int restoreSoundSets();

    /** @} */

    /**
     * @name Outputs, subwoofer and gains
     * @{
     */

    /**
     * Reads which speakers play.
     * @return One of `KELU_TV_SPEAKER_E`; -1 when the service or the link fails.
     */
    int getSpeakerOutput();

    /**
     * Chooses which speakers play.
     * @param output One of `KELU_TV_SPEAKER_E`.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setSpeakerOutput(int output);

    /**
     * Reads what the SPDIF output carries.
     * @return One of `KELU_TV_SPDIF_E`; -1 when the service or the link fails.
     */
    int getSPDIFOutput();

    /**
     * Chooses what the SPDIF output carries.
     * @param spdif One of `KELU_TV_SPDIF_E`.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setSPDIFOutput(int spdif);

    /**
     * Sets the delay of the SPDIF output.
     * @param ms Delay in milliseconds; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setSPDIFOutputDelay(int ms);

    /**
     * Reads the delay of the SPDIF output.
     * @return The delay in milliseconds; -1 when the service or the link fails.
     */
    int getSPDIFOutputDelay();

    /**
     * Switches the subwoofer on or off.
     * @param onoff True switches it on.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int enableSubWoofer(bool onoff);

    /**
     * Tells whether the subwoofer is on.
     * @return False for the service's 0; true for any other answer, a failure included.
     */
    bool isSubWooferEnable();

    /**
     * Sets the volume of the subwoofer.
     * @param value Volume; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setSubWooferVolume(int value);

    /**
     * Reads the volume of the subwoofer.
     * @return The volume; -1 when the service or the link fails.
     */
    int getSubWooferVolume();

    /**
     * Sets the graphic equalizer of the subwoofer.
     * @param subwooferGeq Gains of the five bands; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setSubwooferGeq(KELU_TV_SUBWOOFER_GEQ subwooferGeq);

    /**
     * Sets the gain of the AV output.
     * @param gain Gain; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setAvoutGain(int gain);

    /**
     * Sets the gain of the SPDIF output.
     * @param gain Gain; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setSpdifGain(int gain);

    /**
     * Sets the level of the prescaler.
     * @param level Level; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setPreScalerLevel(int level);

    /**
     * Asks for the karaoke initialisation of the sound output, or for its end.
     * @param isInit True for the initialisation.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setAudioOutKtvInit(bool isInit);

    /**
     * Chooses the default sound output device.
     * @param aOutputMode The device.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setDefaultSndOutputDev(KELU_TV_SOUND_OUTPUT_MODE_E aOutputMode);

    /**
     * Reads whether headphones are connected.
     * @return The state as the service numbers it; -1 when the service or the link fails.
     */
    int getHeadPhoneConnectStatus();

    /**
     * Tells the service whether a Bluetooth device is connected.
     * @param connect The state, 1 for connected.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setBluetoothConnect(int connect);

    /**
     * Hands the service the Bluetooth track.
     * @param btTrackHandle Handle of the track.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setBtTrackHandle(int btTrackHandle);

    /**
     * Tells the service whether a microphone is connected.
     * @param connect The state, 1 for connected.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setMicrophoneConnect(int connect);

    /** @} */

    /**
     * @name Effects and processing
     * @{
     */

    /**
     * Sets one parameter of the plain sound effects.
     * @param type One of `KELU_TV_AUDIO_EFFECT_PARAM_E`.
     * @param value Value; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setEffectParameter(int type, int value);

    /**
     * Reads one parameter of the plain sound effects.
     * @param type One of `KELU_TV_AUDIO_EFFECT_PARAM_E`.
     * @return The value; -1 when the service or the link fails.
     */
    int getEffectParameter(int type);

    /**
     * Sets one parameter of the advanced sound effects.
     * @param type One of `KELU_TV_AUDIO_ADVANCED_EFFECT_PARAM_E`.
     * @param value Value; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setAdvancedEffectParameter(int type, int value);

    /**
     * Reads one parameter of the advanced sound effects.
     * @param type One of `KELU_TV_AUDIO_ADVANCED_EFFECT_PARAM_E`.
     * @return The value; -1 when the service or the link fails.
     */
    int getAdvancedEffectParameter(int type);

    /**
     * Chooses the Dolby mode.
     * @param dolbymode One of `KELU_TV_DOLBY_E`.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setDolbyMode(int dolbymode);

    /**
     * Reads the Dolby mode.
     * @return One of `KELU_TV_DOLBY_E`; -1 when the service or the link fails.
     */
    int getDolbyMode();

    /**
     * Tells whether Dolby Digital is supported.
     * @return False for the service's 0; true for any other answer, a failure included.
     */
    bool isDolbyDigitalSupport();

    /**
     * Switches surround sound on or off.
     * @param onOff True switches it on.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setSurroundMode(bool onOff);

    /**
     * Tells whether surround sound is on.
     * @return False for the service's 0; true for any other answer, a failure included.
     */
    bool getSurroundMode();

    /**
     * Switches bass enhancement on or off.
     * @param onOff True switches it on.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setTrubassMode(bool onOff);

    /**
     * Tells whether bass enhancement is on.
     * @return False for the service's 0; true for any other answer, a failure included.
     */
    bool getTrubassMode();

    /**
     * Switches sound clarity on or off.
     * @param onOff True switches it on.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setSoundClarity(bool onOff);

    /**
     * Tells whether sound clarity is on.
     * @return False for the service's 0; true for any other answer, a failure included.
     */
    bool getSoundClarity();

    /**
     * Switches the audio wall mode on or off.
     * @param onOff True switches it on.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setAudioWallMode(bool onOff);

    /**
     * Tells whether the audio wall mode is on.
     * @return False for the service's 0; true for any other answer, a failure included.
     */
    bool getAudioWallMode();

    /**
     * Sets one band of an equal-loudness curve.
     * @param index Number of the curve.
     * @param band Number of the band.
     * @param value Value; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setEqualLoundValue(int index, int band, int value);

    /**
     * Reads one band of an equal-loudness curve.
     * @param index Number of the curve.
     * @param band Number of the band.
     * @return The service's result word, which is the value; -1 when the link fails, logged as for a set command.
     */
    int getEqualLoundValue(int index, int band);

    /**
     * Reads whether dialogue enhancement is on.
     * @return The service's result word, which is the value; -1 when the link fails, logged as for a set command.
     */
    int isDialogueEnhancement();

    /**
     * Switches dialogue enhancement on or off.
     * @param enable 1 for on, 0 for off.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setDialogueEnhancement(int enable);

    /**
     * Reads whether Dolby Atmos is on.
     * @return 1 for on, 0 for off, as the service gives it; -1 when the service or the link fails.
     */
    int isDolblyAtmosEnable();

    /**
     * Switches Dolby Atmos on or off.
     * @param enable 1 for on, 0 for off.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setDolblyAtmosEnable(int enable);

    /**
     * Reads whether the bypass of the audio return channel is on.
     * @return 1 for on, 0 for off, as the service gives it; -1 when the service or the link fails.
     */
    int isARCByPassEnable();

    /**
     * Switches the bypass of the audio return channel on or off.
     * @param enable 1 for on, 0 for off.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setARCByPassEnable(int enable);

    /**
     * Reads whether intelligent volume is on.
     * @return 1 for on, 0 for off, as the service gives it; -1 when the service or the link fails.
     */
    int isIntelligentVolumeEnable();

    /**
     * Switches intelligent volume on or off.
     * @param enable 1 for on, 0 for off.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setIntelligentVolumeEnable(int enable);

    /**
     * Reads the format of the audio stream that plays.
     * @return One of `KELU_TV_AUDIO_STREAM_TYPE_E`; -1 when the service or the link fails.
     */
    int getKeluAudioStreamType();

    /**
     * Starts or ends a sound demonstration.
     * @param demomode One of `KELU_TV_AUDIO_DEMO_MODE_E`.
     * @param onoff 1 starts it, 0 ends it.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setAudioDemoMode(int demomode, int onoff);

    /**
     * Reads which sound effect is at work.
     * @return One of `KELU_TV_AUDIO_EFFECT_TYPE_E`; -1 when the service or the link fails.
     */
    int getAudioEffect();

    /**
     * Switches dynamic range control of DTS streams on or off.
     * @param onOff True switches it on.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setDtsDrcState(bool onOff);

    /**
     * Tells whether dynamic range control of DTS streams is on.
     * @return False for the service's 0; true for any other answer, a failure included.
     */
    bool getDtsDrcState();

    /**
     * Reads whether a sound function is enabled.
     * @param func One of `KELU_TV_AUDIO_FUNC_E`.
     * @return 1 if it is, 0 if not, as the service gives it; -1 when the service or the link fails.
     */
    int getAudioFunctionEnable(int func);

    /**
     * Switches the parametric equalizer on or off.
     * @param onoff True switches it on.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setPEQEnable(bool onoff);

    /**
     * Sets the threshold of the automatic volume control.
     * @param avcLevel One of `KELU_TV_AVC_LEVEL`.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setAvcLevel(int avcLevel);

    /**
     * Switches the CS enhancer on or off.
     * @param onOff 1 for on, 0 for off.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setCStenhancerEnable(int onOff);

    /**
     * Reads whether the CS enhancer is on.
     * @return 1 for on, 0 for off, as the service gives it; -1 when the service or the link fails.
     */
    int getCStenhancerEnable();

    /**
     * Sets the attack time of the automatic volume control.
     * @param avcAttackTime Time in the service's unit; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setAvcAttackTime(int avcAttackTime);

    /**
     * Sets the release time of the automatic volume control.
     * @param avcReleaseTime Time in the service's unit; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setAvcReleaseTime(int avcReleaseTime);

    /**
     * Reads the attack time of the automatic volume control.
     * @return The time in the service's unit; -1 when the service or the link fails.
     */
    int getAvcAttackTime();

    /**
     * Reads the release time of the automatic volume control.
     * @return The time in the service's unit; -1 when the service or the link fails.
     */
    int getAvcReleaseTime();

    /** @} */
    /**
     * @name Generic items
     * @{
     */

    /**
     * Sets one item; the class's one virtual operation.
     * @param cmdID Item of the audio module, of `KELU_TV_CMDID_E`.
     * @param param1,param2,param3,param4 What the item defines.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    virtual int setAudioItemValue(int cmdID, int param1, int param2, int param3, int param4);

    /**
     * Reads one item.
     * @param cmdID Item of the audio module, of `KELU_TV_CMDID_E`.
     * @param param1,param2 What the item defines.
     * @param pData Room for 255 ints (1,020 bytes); all are written, 0 where the service sent less. Untouched on
     * failure.
     * @return 0; -1 when the service or the link fails, and for a null `pData`, logged and with nothing sent.
     */
    int getAudioItemValue(int cmdID, int param1, int param2, int* pData);

    /**
     * Sets one item that is a text.
     * @param cmdID Item of the audio module, of `KELU_TV_CMDID_E`.
     * @param param1,param2 What the item defines.
     * @param stringParam The text.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setAudioItemStrValue(int cmdID, int param1, int param2, char const* stringParam);

    /**
     * Reads one item that is a text.
     * @param cmdID Item of the audio module, of `KELU_TV_CMDID_E`.
     * @param param1,param2 What the item defines.
     * @param data Room for the text and its terminating zero; the service decides the length, 1,040,380 bytes at most.
     * Untouched on failure.
     * @return 0; -1, logged, when the service or the link fails or the answer holds no text, and for a null `data`,
     * with nothing sent.
     */
    int getAudioItemStrValue(int cmdID, int param1, int param2, char* data);

    /** @} */

    /**
     * @name Records and lists
     * @{
     */

    /**
     * Sets the prescale gain of one output channel.
     * @param channel Output channel, one of `KELU_TV_AUDIO_CHANNEL_E`.
     * @param prescale The gain; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setPreScale(int channel, PreScaleInfo prescale);

    /**
     * Reads the prescale gain of one output channel.
     * @param channel Output channel, one of `KELU_TV_AUDIO_CHANNEL_E`.
     * @return The gain; both parts 0 when the service or the link fails.
     */
    PreScaleInfo getPreScale(int channel);

    /**
     * Sets the noise reduction.
     * @param stNRAttrData Whether it is on, and its level; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setNRAttr(NRAttrData stNRAttrData);

    /**
     * Reads the noise reduction.
     * @return Whether it is on, and its level; off and 0 when the service or the link fails.
     */
    NRAttrData getNRAttr();

    /**
     * Sets the dynamic range control.
     * @param stDrcAttr Threshold and limit; the service enforces the ranges. Must not be null.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setDRCAttr(KELU_TV_SND_DRC_ATTR_S const* stDrcAttr);

    /**
     * Reads the dynamic range control.
     * @param stDrcAttr Receives threshold and limit; untouched on failure.
     * @return 0; -1 when the service or the link fails.
     */
    int getDRCAttr(KELU_TV_SND_DRC_ATTR_S* stDrcAttr);

    /**
     * Sets the parametric equalizer.
     * @param peqAttr The bands; `intBandNum` is 1 to 10, all ten bands are sent whatever it says. Must not be null.
     * @return The service's result, 0 for success; -1 when the link fails, and for another `intBandNum`, logged and
     * with nothing sent.
     */
    int setPEQAttr(KELU_TV_SND_PEQ_ATTR_S const* peqAttr);

    /**
     * Reads the parametric equalizer.
     * @param peqAttr Receives the number of bands in use as the service gives it, and all ten bands; untouched on
     * failure.
     * @return 0; -1 when the service or the link fails.
     */
    int getPEQAttr(KELU_TV_SND_PEQ_ATTR_S* peqAttr);

    /**
     * Reads the default sound output device.
     * @param apOutputMode Receives the device, unchecked; untouched on failure.
     * @return 0; -1 when the service or the link fails.
     */
    int getDefaultSndOutputDev(KELU_TV_SOUND_OUTPUT_MODE_E* apOutputMode);

    /**
     * Reads the threshold of the automatic volume control.
     * @param avcLevel Receives the threshold, unchecked; untouched on failure.
     * @return 0; -1 when the service or the link fails.
     */
    int getAvcLevel(KELU_TV_AVC_LEVEL* avcLevel);

    /**
     * Reads the names of the sound outputs.
     * @return The names in the service's order; empty when the service or the link fails.
     */
    std::list<std::string> getOutputList();

    /**
     * Reads whether one sound output is switched on.
     * @param str Name of the output, as `getOutputList` gives it; null is logged and sent as an empty name.
     * @param pOnoff Receives the state; untouched on failure. Must not be null.
     * @return 0, also when the service or the link fails, which is only logged; -1 when a pointer is null.
     */
    int getOutputStatus(char const* str, bool* pOnoff);

    /** @} */

protected:
    Audio();
    ~Audio();
};
