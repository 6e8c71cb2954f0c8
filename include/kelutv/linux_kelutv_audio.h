/**
 * @file
 * The sound of the television: volume, mute, outputs, effects.
 *
 * Every function is one command to the TV base service, which owns all values. It blocks until the service has answered
 * and may be called from any thread. A `bool` travels as 0 or 1. A set command whose link fails is logged as
 * "invoke failure\n"; what else is logged is said at the methods of `Audio`.
 */
#ifndef KELUTV_LINUX_KELUTV_AUDIO_H
#define KELUTV_LINUX_KELUTV_AUDIO_H

#include <kelutv/audio_types.h>
#include <kelutv/export.h>

#include <stdbool.h>

#ifdef __cplusplus
extern "C" {
#endif

/**
 * @name Plain values
 * @{
 */

/**
 * Reads the sound mode.
 * @return The mode, one of `KELU_TV_SNDMODE_E`; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Audio_getSoundMode(void);

/**
 * Chooses the sound mode.
 * @param sndmode One of `KELU_TV_SNDMODE_E`.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_setSoundMode(int sndmode);

/**
 * Reads the output mode of the sound.
 * @return The mode as the service numbers it; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Audio_getOutMode(void);

/**
 * Reads the place of the set, desk or wall.
 * @return One of `KELU_TV_SNDLOCATE_E`; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Audio_getHangMode(void);

/**
 * Chooses the place of the set, desk or wall.
 * @param hangmode One of `KELU_TV_SNDLOCATE_E`.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_setHangMode(int hangmode);

/**
 * Reads the volume of one output channel.
 * @param channel Output channel, one of `KELU_TV_AUDIO_CHANNEL_E`.
 * @return The volume; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Audio_getVolume(int channel);

/**
 * Sets the volume of one output channel.
 * @param channel Output channel, one of `KELU_TV_AUDIO_CHANNEL_E`.
 * @param vol Volume; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_setVolume(int channel, int vol);

/**
 * Reads the stereo mode.
 * @return The mode, one of `KELU_TV_SIF_OUTMODE_E`; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Audio_getStereoMode(void);

/**
 * Chooses the stereo mode.
 * @param stereo One of `KELU_TV_SIF_OUTMODE_E`.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_setStereoMode(int stereo);

/**
 * Sets the delay between sound and picture.
 * @param ms Delay in milliseconds; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_setAVsync(int ms);

/**
 * Reads the delay between sound and picture.
 * @return The delay in milliseconds; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Audio_getAVsync(void);

/**
 * Reads which speakers play.
 * @return One of `KELU_TV_SPEAKER_E`; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Audio_getSpeakerOutput(void);

/**
 * Chooses which speakers play.
 * @param output One of `KELU_TV_SPEAKER_E`.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_setSpeakerOutput(int output);

/**
 * Tells whether one output channel is mute.
 * @param channel Output channel, one of `KELU_TV_AUDIO_CHANNEL_E`.
 * @return 0 for the service's 0; 1 for any other answer, a failure included.
 */
KELUTV_API int linux_tv_Audio_getMute(int channel);

/**
 * Reads what the SPDIF output carries.
 * @return One of `KELU_TV_SPDIF_E`; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Audio_getSPDIFOutput(void);

/**
 * Chooses what the SPDIF output carries.
 * @param spdif One of `KELU_TV_SPDIF_E`.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_setSPDIFOutput(int spdif);

/**
 * Sets the delay of the SPDIF output.
 * @param ms Delay in milliseconds; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_setSPDIFOutputDelay(int ms);

/**
 * Reads the delay of the SPDIF output.
 * @return The delay in milliseconds; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Audio_getSPDIFOutputDelay(void);

/**
 * Switches the subwoofer on or off.
 * @param onoff True switches it on.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_enableSubWoofer(bool onoff);

/**
 * Tells whether the subwoofer is on.
 * @return 0 for the service's 0; 1 for any other answer, a failure included.
 */
KELUTV_API int linux_tv_Audio_isSubWooferEnable(void);

/**
 * Sets the volume of the subwoofer.
 * @param value Volume; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_setSubWooferVolume(int value);

/**
 * Reads the volume of the subwoofer.
 * @return The volume; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Audio_getSubWooferVolume(void);

/**
 * Tells whether the amplifier is mute.
 * @return 0 for the service's 0; 1 for any other answer, a failure included.
 */
KELUTV_API int linux_tv_Audio_isAmplifierMute(void);

/**
 * Sets one parameter of the plain sound effects.
 * @param type One of `KELU_TV_AUDIO_EFFECT_PARAM_E`.
 * @param value Value; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_setEffectParameter(int type, int value);

/**
 * Reads one parameter of the plain sound effects.
 * @param type One of `KELU_TV_AUDIO_EFFECT_PARAM_E`.
 * @return The value; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Audio_getEffectParameter(int type);

/**
 * Sets one parameter of the advanced sound effects.
 * @param type One of `KELU_TV_AUDIO_ADVANCED_EFFECT_PARAM_E`.
 * @param value Value; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_setAdvancedEffectParameter(int type, int value);

/**
 * Reads one parameter of the advanced sound effects.
 * @param type One of `KELU_TV_AUDIO_ADVANCED_EFFECT_PARAM_E`.
 * @return The value; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Audio_getAdvancedEffectParameter(int type);

/**
 * Chooses the Dolby mode.
 * @param dolbymode One of `KELU_TV_DOLBY_E`.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_setDolbyMode(int dolbymode);

/**
 * Reads the Dolby mode.
 * @return One of `KELU_TV_DOLBY_E`; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Audio_getDolbyMode(void);

/**
 * Sets the level of the prescaler.
 * @param level Level; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_setPreScalerLevel(int level);

/**
 * Switches surround sound on or off.
 * @param surroundMode True switches it on.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_setSurroundMode(bool surroundMode);

/**
 * Tells whether surround sound is on.
 * @return 0 for the service's 0; 1 for any other answer, a failure included.
 */
KELUTV_API int linux_tv_Audio_getSurroundMode(void);

/**
 * Switches bass enhancement on or off.
 * @param trubassMode True switches it on.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_setTrubassMode(bool trubassMode);

/**
 * Tells whether bass enhancement is on.
 * @return 0 for the service's 0; 1 for any other answer, a failure included.
 */
KELUTV_API int linux_tv_Audio_getTrubassMode(void);

/**
 * Switches sound clarity on or off.
 * @param onOff True switches it on.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_setSoundClarity(bool onOff);

/**
 * Tells whether sound clarity is on.
 * @return 0 for the service's 0; 1 for any other answer, a failure included.
 */
KELUTV_API int linux_tv_Audio_getSoundClarity(void);

/**
 * Tells whether Dolby Digital is supported.
 * @return 0 for the service's 0; 1 for any other answer, a failure included.
 */
KELUTV_API int linux_tv_Audio_isDolbyDigitalSupport(void);

/**
 * Sets the noise reduction.
 * @param stNRInfo Whether it is on, and its level; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_setNRAttr(NRAttrData stNRInfo);

/**
 * Sets the gain of the AV output.
 * @param gain Gain; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_setAvoutGain(int gain);

/**
 * Sets the gain of the SPDIF output.
 * @param gain Gain; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_setSpdifGain(int gain);

/**
 * Asks for the karaoke initialisation of the sound output, or for its end.
 * @param isInit True for the initialisation.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_setAudioOutKtvInit(bool isInit);

/**
 * Reads whether the bypass of the audio return channel is on.
 * @return 1 for on, 0 for off, as the service gives it; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Audio_isARCByPassEnable(void);

/**
 * Reads the format of the audio stream that plays.
 * @return One of `KELU_TV_AUDIO_STREAM_TYPE_E`; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Audio_getKeluAudioStreamType(void);

/**
 * Restores the sound settings to their defaults.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_restoreSoundSets(void);

/**
 * Starts or ends a sound demonstration.
 * @param demomode One of `KELU_TV_AUDIO_DEMO_MODE_E`.
 * @param onoff 1 starts it, 0 ends it.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_setAudioDemoMode(int demomode, int onoff);

/**
 * Tells the service whether a Bluetooth device is connected.
 * @param connect True for connected.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_setBluetoothConnect(bool connect);

/**
 * Reads which sound effect is at work.
 * @return One of `KELU_TV_AUDIO_EFFECT_TYPE_E`; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Audio_getAudioEffect(void);

/**
 * Reads whether headphones are connected.
 * @return The state as the service numbers it; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Audio_getHeadPhoneConnectStatus(void);

/**
 * Switches dynamic range control of DTS streams on or off.
 * @param DtsDrcState True switches it on.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_setDtsDrcState(bool DtsDrcState);

/**
 * Tells whether dynamic range control of DTS streams is on.
 * @return 0 for the service's 0; 1 for any other answer, a failure included.
 */
KELUTV_API int linux_tv_Audio_getDtsDrcState(void);

/**
 * Tells the service whether a microphone is connected.
 * @param connect The state, 1 for connected.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_setMicrophoneConnect(int connect);

/**
 * Reads whether a sound function is enabled.
 * @param func One of `KELU_TV_AUDIO_FUNC_E`.
 * @return 1 if it is, 0 if not, as the service gives it; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Audio_getAudioFunctionEnable(int func);

/**
 * Mutes the sound track or lifts its mute.
 * @param onOff True mutes.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_setSndTrackMute(bool onOff);

/**
 * Mutes all sound outputs or lifts the mute.
 * @param onOff True mutes.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_setAllSndOutputMute(bool onOff);

/**
 * Switches the parametric equalizer on or off.
 * @param onoff True switches it on.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_setPEQEnable(bool onoff);

/**
 * Switches the CS enhancer on or off.
 * @param onOff 1 for on, 0 for off.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_setCStenhancerEnable(int onOff);

/**
 * Sets the attack time of the automatic volume control.
 * @param avcAttackTime Time in the service's unit; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_setAvcAttackTime(int avcAttackTime);

/**
 * Sets the release time of the automatic volume control.
 * @param avcReleaseTime Time in the service's unit; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_setAvcReleaseTime(int avcReleaseTime);

/**
 * Reads the attack time of the automatic volume control.
 * @return The time in the service's unit; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Audio_getAvcAttackTime(void);

/**
 * Reads the release time of the automatic volume control.
 * @return The time in the service's unit; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Audio_getAvcReleaseTime(void);

/**
 * Sets the graphic equalizer of the subwoofer.
 * @param subwooferGeq Gains of the five bands; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_setSubwooferGeq(KELU_TV_SUBWOOFER_GEQ subwooferGeq);

/**
 * Mutes the amplifier or lifts its mute.
 * @param bmute True mutes.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_enableAmplifierMute(bool bmute);

/**
 * Sends the CEC command for a change of the mute, which has no argument; what changes is the service's matter.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_ModifyMute(void);

/**
 * Chooses the default sound output device.
 * @param aOutputMode The device.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_SetDefaultSndOutputDev(KELU_TV_SOUND_OUTPUT_MODE_E aOutputMode);

/**
 * Sets the threshold of the automatic volume control.
 * @param avcLevel One of `KELU_TV_AVC_LEVEL`.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_setAVCLevel(int avcLevel);

/**
 * Reads whether the CS enhancer is on.
 * @return 0 for the service's 0; 1 for any other answer, a failure included.
 */
KELUTV_API int linux_tv_Audio_getCStenhancerEnable(void);

/**
 * Mutes one output channel or lifts the mute, as the remote control does.
 * @param channel Output channel, one of `KELU_TV_AUDIO_CHANNEL_E`.
 * @param onoff True mutes.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_setMute(int channel, bool onoff);

/** @} */

/**
 * @name Records
 * @{
 */

/**
 * Sets the parametric equalizer.
 * @param peqAttr The bands; `intBandNum` is 1 to 10, all ten bands are sent whatever it says.
 * @return The service's result, 0 for success; -1 when the link fails, and with nothing sent for a null pointer or
 * another `intBandNum`.
 */
KELUTV_API int linux_tv_Audio_setPEQAttr(KELU_TV_SND_PEQ_ATTR_S* peqAttr);

/**
 * Reads the parametric equalizer.
 * @param peqAttr Receives the number of bands in use as the service gives it, and all ten bands; untouched on failure.
 * @return 0; -1 when the service or the link fails, and for a null pointer, with nothing sent.
 */
KELUTV_API int linux_tv_Audio_getPEQAttr(KELU_TV_SND_PEQ_ATTR_S* peqAttr);

/**
 * Sets the dynamic range control.
 * @param stDrcAttr Threshold and limit; the service enforces the ranges.
 * @return The service's result, 0 for success; -1 when the link fails, and for a null pointer, with nothing sent.
 */
KELUTV_API int linux_tv_Audio_setDRCAttr(KELU_TV_SND_DRC_ATTR_S* stDrcAttr);

/**
 * Reads the dynamic range control.
 * @param stDrcAttr Receives threshold and limit; untouched on failure.
 * @return 0; -1 when the service or the link fails, and for a null pointer, with nothing sent.
 */
KELUTV_API int linux_tv_Audio_getDRCAttr(KELU_TV_SND_DRC_ATTR_S* stDrcAttr);

/**
 * Reads the default sound output device.
 * @param apOutputMode Receives the device, unchecked; untouched on failure.
 * @return 0; -1 when the service or the link fails, and for a null pointer, with nothing sent.
 */
KELUTV_API int linux_tv_Audio_GetDefaultSndOutputDev(KELU_TV_SOUND_OUTPUT_MODE_E* apOutputMode);

/**
 * Reads the threshold of the automatic volume control.
 * @param avcLevel Receives the threshold, unchecked; untouched on failure.
 * @return 0; -1 when the service or the link fails, and for a null pointer, with nothing sent.
 */
KELUTV_API int linux_tv_Audio_getAVCLevel(KELU_TV_AVC_LEVEL* avcLevel);

/**
 * Reads the noise reduction.
 * @param pstNRInfo Receives the state and the level; off and 0 when the service or the link fails.
 * @return 0, also when the service or the link fails; -1 for a null pointer, with nothing sent.
 */
KELUTV_API int linux_tv_Audio_getNRAttr(NRAttrData* pstNRInfo);

/** @} */

/**
 * @name Items
 * @{
 */

/**
 * Sets one item.
 * @param cmdID Item of the audio module, of `KELU_TV_CMDID_E`.
 * @param param1,param2,param3,param4 What the item defines.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_setAudioItemValue(int cmdID, int param1, int param2, int param3, int param4);

/**
 * Reads one item.
 * @param cmdID Item of the audio module, of `KELU_TV_CMDID_E`.
 * @param param1,param2 What the item defines.
 * @param pBuf Room for 255 ints (1,020 bytes); all are written, 0 where the service sent less. Untouched on failure.
 * @return 0; -1 when the service or the link fails, and for a null pointer, with nothing sent.
 */
KELUTV_API int linux_tv_Audio_getAudioItemValue(int cmdID, int param1, int param2, void* pBuf);

/**
 * Sets the highest volume of one output channel.
 * @param channel Output channel, one of `KELU_TV_AUDIO_CHANNEL_E`.
 * @param vol Volume; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_setMaxVolume(int channel, int vol);

/**
 * Reads the highest volume of one output channel.
 * @param channel Output channel, one of `KELU_TV_AUDIO_CHANNEL_E`.
 * @return The volume; 0 when the service or the link fails.
 */
KELUTV_API int linux_tv_Audio_getMaxVolume(int channel);

/**
 * Sets the volume one output channel has after start.
 * @param channel Output channel, one of `KELU_TV_AUDIO_CHANNEL_E`.
 * @param vol Volume; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_setBootVolume(int channel, int vol);

/**
 * Reads the volume one output channel has after start.
 * @param channel Output channel, one of `KELU_TV_AUDIO_CHANNEL_E`.
 * @return The volume; 0 when the service or the link fails.
 */
KELUTV_API int linux_tv_Audio_getBootVolume(int channel);

/**
 * Sets the register volume of one output channel.
 * @param channel Output channel, one of `KELU_TV_AUDIO_CHANNEL_E`.
 * @param vol Volume; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_setVolumeToReg(int channel, int vol);

/**
 * Switches the equalizer on or off.
 * @param enable True switches it on.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_setEQEnable(bool enable);

/**
 * Reads whether the equalizer is on.
 * @param pEnable Receives the state, false on failure; may be null.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Audio_getEQEnable(bool* pEnable);

/**
 * Reads the prescale gain of one kind of source.
 * @param preScaleSource One of `KELU_TV_PRESCALE_SOURCE_E`.
 * @param pAttr Receives the gain, both parts 0 on failure; may be null.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Audio_getSourcePreScale(int preScaleSource, KELU_TV_SND_PRECIGAIN_ATTR_S* pAttr);

/**
 * Sets the prescale gain of one kind of source.
 * @param preScaleSource One of `KELU_TV_PRESCALE_SOURCE_E`.
 * @param attr The gain; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_setSourcePreScale(int preScaleSource, KELU_TV_SND_PRECIGAIN_ATTR_S attr);

/**
 * Chooses the sound output.
 * @param mode One of `KELU_TV_NEW_AUDIO_OUTPUT_E`.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_setNewOutputMode(int mode);

/**
 * Reads the sound output.
 * @param pMode Receives one of `KELU_TV_NEW_AUDIO_OUTPUT_E`, unchecked; 0 on failure.
 * @return 0; -1 when the service or the link fails, and for a null pointer, with nothing sent.
 */
KELUTV_API int linux_tv_Audio_getNewOutputMode(int* pMode);

/**
 * Reads the sound outputs the set has.
 * @param pAudOutputList Room for 254 entries, each one of `KELU_TV_NEW_AUDIO_OUTPUT_E`; untouched on failure.
 * @param pListSize Receives the count as the service gives it, of which at most 254 entries are there; untouched on
 *        failure.
 * @return 0; -1 when there is no entry or the service or the link fails, and for a null pointer, with nothing sent.
 */
KELUTV_API int linux_tv_Audio_getNewOutputList(int* pAudOutputList, int* pListSize);

/**
 * Reads the devices the default sound output can be.
 * @param pSndOutputList Room for 254 entries, codes as the service numbers them; untouched on failure.
 * @param pListSize Receives the count as the service gives it, of which at most 254 entries are there; untouched on
 *        failure.
 * @return 0; -1 when there is no entry or the service or the link fails, and for a null pointer, with nothing sent.
 */
KELUTV_API int linux_tv_Audio_GetDefaultSndOutputList(int* pSndOutputList, int* pListSize);

/**
 * Tells whether the headphone socket can serve as line output.
 * @return 1 if it can, else 0; 0 also when the service or the link fails.
 */
KELUTV_API int linux_tv_Audio_isHeadphoneForLineoutSupport(void);

/**
 * Has the headphone socket serve as line output, or ends that.
 * @param onoff True makes it a line output.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_setHeadphoneForLineoutEnable(bool onoff);

/**
 * Reads whether the headphone socket serves as line output.
 * @param pEnable Receives the state, false on failure; may be null.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Audio_getHeadphoneForLineoutEnable(bool* pEnable);

/**
 * Reads the surround type.
 * @param pMode Receives the type as the service numbers it, 0 on failure; may be null.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Audio_getSurroundType(int* pMode);

/**
 * Chooses the equalizer mode.
 * @param mode One of `KELU_TV_EQUALIZER_MODE`.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_setEqualizerMode(int mode);

/**
 * Reads the equalizer mode.
 * @param pMode Receives one of `KELU_TV_EQUALIZER_MODE`, unchecked; 0 on failure; may be null.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Audio_getEqualizerMode(int* pMode);

/**
 * Sets the mute level, which the item calls the lock level of the sound.
 * @param level Level; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_SetMuteLevel(int level);

/** @} */

#ifdef __cplusplus
}
#endif

#endif
