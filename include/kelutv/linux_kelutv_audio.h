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
 * Forwards to `Audio::getSoundMode`, which sends `CMD_AUDIO_GETSOUNDMODE`.
 * @return The mode, one of `KELU_TV_SNDMODE_E`; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Audio_getSoundMode(void);

/**
 * Chooses the sound mode.
 * Forwards to `Audio::setSoundMode`, which sends `CMD_AUDIO_SETSOUNDMODE`: `sndmode`.
 * @param sndmode One of `KELU_TV_SNDMODE_E`.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_setSoundMode(int sndmode);

/**
 * Reads the output mode of the sound.
 * Forwards to `Audio::getOutMode`, which sends `CMD_AUDIO_GETOUTMODE`.
 * @return The mode as the service numbers it; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Audio_getOutMode(void);

/**
 * Reads the place of the set, desk or wall.
 * Forwards to `Audio::getHangMode`, which sends `CMD_AUDIO_GETHANGMODE`.
 * @return One of `KELU_TV_SNDLOCATE_E`; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Audio_getHangMode(void);

/**
 * Chooses the place of the set, desk or wall.
 * Forwards to `Audio::setHangMode`, which sends `CMD_AUDIO_SETHANGMODE`: `hangmode`.
 * @param hangmode One of `KELU_TV_SNDLOCATE_E`.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_setHangMode(int hangmode);

/**
 * Reads the volume of one output channel.
 * Forwards to `Audio::getVolume`, which sends `CMD_AUDIO_GETVOLUME`: `channel`.
 * @param channel Output channel, one of `KELU_TV_AUDIO_CHANNEL_E`.
 * @return The volume; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Audio_getVolume(int channel);

/**
 * Sets the volume of one output channel.
 * Forwards to `Audio::setVolume`, which sends `CMD_AUDIO_SETVOLUME`: `channel`, `vol`.
 * @param channel Output channel, one of `KELU_TV_AUDIO_CHANNEL_E`.
 * @param vol Volume; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_setVolume(int channel, int vol);

/**
 * Reads the stereo mode.
 * Forwards to `Audio::getStereoMode`, which sends `CMD_AUDIO_GETSTEREOMODE`.
 * @return The mode, one of `KELU_TV_SIF_OUTMODE_E`; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Audio_getStereoMode(void);

/**
 * Chooses the stereo mode.
 * Forwards to `Audio::setStereoMode`, which sends `CMD_AUDIO_SETSTEREOMODE`: `stereo`.
 * @param stereo One of `KELU_TV_SIF_OUTMODE_E`.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_setStereoMode(int stereo);

/**
 * Sets the delay between sound and picture.
 * Forwards to `Audio::setAVsync`, which sends `CMD_AUDIO_SETAVSYNC`: `ms`.
 * @param ms Delay in milliseconds; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_setAVsync(int ms);

/**
 * Reads the delay between sound and picture.
 * Forwards to `Audio::getAVsync`, which sends `CMD_AUDIO_GETAVSYNC`.
 * @return The delay in milliseconds; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Audio_getAVsync(void);

/**
 * Reads which speakers play.
 * Forwards to `Audio::getSpeakerOutput`, which sends `CMD_AUDIO_GETSPEAKEROUTPUT`.
 * @return One of `KELU_TV_SPEAKER_E`; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Audio_getSpeakerOutput(void);

/**
 * Chooses which speakers play.
 * Forwards to `Audio::setSpeakerOutput`, which sends `CMD_AUDIO_SETSPEAKEROUTPUT`: `output`.
 * @param output One of `KELU_TV_SPEAKER_E`.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_setSpeakerOutput(int output);

/**
 * Tells whether one output channel is mute.
 * Forwards to `Audio::getMute`, which sends `CMD_AUDIO_GETMUTE`: `channel`.
 * @param channel Output channel, one of `KELU_TV_AUDIO_CHANNEL_E`.
 * @return 0 for the service's 0; 1 for any other answer, a failure included.
 */
KELUTV_API int linux_tv_Audio_getMute(int channel);

/**
 * Reads what the SPDIF output carries.
 * Forwards to `Audio::getSPDIFOutput`, which sends `CMD_AUDIO_GETSPDIFOUTPUT`.
 * @return One of `KELU_TV_SPDIF_E`; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Audio_getSPDIFOutput(void);

/**
 * Chooses what the SPDIF output carries.
 * Forwards to `Audio::setSPDIFOutput`, which sends `CMD_AUDIO_SETSPDIFOUTPUT`: `spdif`.
 * @param spdif One of `KELU_TV_SPDIF_E`.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_setSPDIFOutput(int spdif);

/**
 * Sets the delay of the SPDIF output.
 * Forwards to `Audio::setSPDIFOutputDelay`, which sends `CMD_AUDIO_SETSPDIFOUTPUTDELAY`: `ms`.
 * @param ms Delay in milliseconds; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_setSPDIFOutputDelay(int ms);

/**
 * Reads the delay of the SPDIF output.
 * Forwards to `Audio::getSPDIFOutputDelay`, which sends `CMD_AUDIO_GETSPDIFOUTPUTDELAY`.
 * @return The delay in milliseconds; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Audio_getSPDIFOutputDelay(void);

/**
 * Switches the subwoofer on or off.
 * Forwards to `Audio::enableSubWoofer`, which sends `CMD_AUDIO_SETSUBWOOFERENABLE`: `onoff`.
 * @param onoff True switches it on.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_enableSubWoofer(bool onoff);

/**
 * Tells whether the subwoofer is on.
 * Forwards to `Audio::isSubWooferEnable`, which sends `CMD_AUDIO_GETSUBWOOFERENABLE`.
 * @return 0 for the service's 0; 1 for any other answer, a failure included.
 */
KELUTV_API int linux_tv_Audio_isSubWooferEnable(void);

/**
 * Sets the volume of the subwoofer.
 * Forwards to `Audio::setSubWooferVolume`, which sends `CMD_AUDIO_SETSUBWOOFERVOL`: `value`.
 * @param value Volume; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_setSubWooferVolume(int value);

/**
 * Reads the volume of the subwoofer.
 * Forwards to `Audio::getSubWooferVolume`, which sends `CMD_AUDIO_GETSUBWOOFERVOL`.
 * @return The volume; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Audio_getSubWooferVolume(void);

/**
 * Tells whether the amplifier is mute.
 * Forwards to `Audio::isAmplifierMute`, which sends `CMD_AUDIO_GETAMPMUTE`.
 * @return 0 for the service's 0; 1 for any other answer, a failure included.
 */
KELUTV_API int linux_tv_Audio_isAmplifierMute(void);

/**
 * Sets one parameter of the plain sound effects.
 * Forwards to `Audio::setEffectParameter`, which sends `CMD_AUDIO_SETEFFECTPARAMETER`: `type`, `value`.
 * @param type One of `KELU_TV_AUDIO_EFFECT_PARAM_E`.
 * @param value Value; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_setEffectParameter(int type, int value);

/**
 * Reads one parameter of the plain sound effects.
 * Forwards to `Audio::getEffectParameter`, which sends `CMD_AUDIO_GETEFFECTPARAMETER`: `type`.
 * @param type One of `KELU_TV_AUDIO_EFFECT_PARAM_E`.
 * @return The value; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Audio_getEffectParameter(int type);

/**
 * Sets one parameter of the advanced sound effects.
 * Forwards to `Audio::setAdvancedEffectParameter`, which sends `CMD_AUDIO_SETADVANCEDEFFECTPARAMETER`: `type`, `value`.
 * @param type One of `KELU_TV_AUDIO_ADVANCED_EFFECT_PARAM_E`.
 * @param value Value; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_setAdvancedEffectParameter(int type, int value);

/**
 * Reads one parameter of the advanced sound effects.
 * Forwards to `Audio::getAdvancedEffectParameter`, which sends `CMD_AUDIO_GETADVANCEDEFFECTPARAMETER`: `type`.
 * @param type One of `KELU_TV_AUDIO_ADVANCED_EFFECT_PARAM_E`.
 * @return The value; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Audio_getAdvancedEffectParameter(int type);

/**
 * Chooses the Dolby mode.
 * Forwards to `Audio::setDolbyMode`, which sends `CMD_AUDIO_SETDOLBYMODE`: `dolbymode`.
 * @param dolbymode One of `KELU_TV_DOLBY_E`.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_setDolbyMode(int dolbymode);

/**
 * Reads the Dolby mode.
 * Forwards to `Audio::getDolbyMode`, which sends `CMD_AUDIO_GETDOLBYMODE`.
 * @return One of `KELU_TV_DOLBY_E`; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Audio_getDolbyMode(void);

/**
 * Sets the level of the prescaler.
 * Forwards to `Audio::setPreScalerLevel`, which sends `CMD_AUDIO_SETPRESCALELEVEL`: `level`.
 * @param level Level; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_setPreScalerLevel(int level);

/**
 * Switches surround sound on or off.
 * Forwards to `Audio::setSurroundMode`, which sends `CMD_AUDIO_SET_SURROUND_MODE`: `surroundMode`.
 * @param surroundMode True switches it on.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_setSurroundMode(bool surroundMode);

/**
 * Tells whether surround sound is on.
 * Forwards to `Audio::getSurroundMode`, which sends `CMD_AUDIO_GET_SURROUND_MODE`.
 * @return 0 for the service's 0; 1 for any other answer, a failure included.
 */
KELUTV_API int linux_tv_Audio_getSurroundMode(void);

/**
 * Switches bass enhancement on or off.
 * Forwards to `Audio::setTrubassMode`, which sends `CMD_AUDIO_SET_TRUBASS_MODE`: `trubassMode`.
 * @param trubassMode True switches it on.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_setTrubassMode(bool trubassMode);

/**
 * Tells whether bass enhancement is on.
 * Forwards to `Audio::getTrubassMode`, which sends `CMD_AUDIO_GET_TRUBASS_MODE`.
 * @return 0 for the service's 0; 1 for any other answer, a failure included.
 */
KELUTV_API int linux_tv_Audio_getTrubassMode(void);

/**
 * Switches sound clarity on or off.
 * Forwards to `Audio::setSoundClarity`, which sends `CMD_AUDIO_SET_SOUND_CLARITY`: `onOff`.
 * @param onOff True switches it on.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_setSoundClarity(bool onOff);

/**
 * Tells whether sound clarity is on.
 * Forwards to `Audio::getSoundClarity`, which sends `CMD_AUDIO_GET_SOUND_CLARITY`.
 * @return 0 for the service's 0; 1 for any other answer, a failure included.
 */
KELUTV_API int linux_tv_Audio_getSoundClarity(void);

/**
 * Tells whether Dolby Digital is supported.
 * Forwards to `Audio::isDolbyDigitalSupport`, which sends `CMD_AUDIO_GET_IS_DOLBY_DIGITAL_SUPPORT`.
 * @return 0 for the service's 0; 1 for any other answer, a failure included.
 */
KELUTV_API int linux_tv_Audio_isDolbyDigitalSupport(void);

/**
 * Sets the noise reduction.
 * Forwards to `Audio::setNRAttr`, which sends `CMD_AUDIO_SETNRATTR`: `onOff`, `value`.
 * @param stNRInfo Whether it is on, and its level; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_setNRAttr(NRAttrData stNRInfo);

/**
 * Sets the gain of the AV output.
 * Forwards to `Audio::setAvoutGain`, which sends `CMD_AUDIO_SET_AVOUT_GAIN`: `gain`.
 * @param gain Gain; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_setAvoutGain(int gain);

/**
 * Sets the gain of the SPDIF output.
 * Forwards to `Audio::setSpdifGain`, which sends `CMD_AUDIO_SET_SPDIF_GAIN`: `gain`.
 * @param gain Gain; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_setSpdifGain(int gain);

/**
 * Asks for the karaoke initialisation of the sound output, or for its end.
 * Forwards to `Audio::setAudioOutKtvInit`, which sends `CMD_AUDIO_SETAUDIOOUTKTVINIT`: `isInit`.
 * @param isInit True for the initialisation.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_setAudioOutKtvInit(bool isInit);

/**
 * Reads whether the bypass of the audio return channel is on.
 * Forwards to `Audio::isARCByPassEnable`, which sends `CMD_AUDIO_GETARCBYPASSENABLE`.
 * @return 1 for on, 0 for off, as the service gives it; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Audio_isARCByPassEnable(void);

/**
 * Reads the format of the audio stream that plays.
 * Forwards to `Audio::getKeluAudioStreamType`, which sends `CMD_AUDIO_GETDOBLYSOUNDEFFECTMODE`.
 * @return One of `KELU_TV_AUDIO_STREAM_TYPE_E`; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Audio_getKeluAudioStreamType(void);

/**
 * Restores the sound settings to their defaults.
 * Forwards to `Audio::restoreSoundSets`, which sends `CMD_AUDIO_RESTORESOUNDSETS`.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_restoreSoundSets(void);

/**
 * Starts or ends a sound demonstration.
 * Forwards to `Audio::setAudioDemoMode`, which sends `CMD_AUDIO_SETAUDIODEMOMODE`: `demomode`, `onoff`.
 * @param demomode One of `KELU_TV_AUDIO_DEMO_MODE_E`.
 * @param onoff 1 starts it, 0 ends it.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_setAudioDemoMode(int demomode, int onoff);

/**
 * Tells the service whether a Bluetooth device is connected.
 * Forwards to `Audio::setBluetoothConnect`, which sends `CMD_AUDIO_SETBLUETOOTHCONNECT`: `connect`.
 * @param connect True for connected.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_setBluetoothConnect(bool connect);

/**
 * Reads which sound effect is at work.
 * Forwards to `Audio::getAudioEffect`, which sends `CMD_AUDIO_GETAUDIOEFFECT`.
 * @return One of `KELU_TV_AUDIO_EFFECT_TYPE_E`; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Audio_getAudioEffect(void);

/**
 * Reads whether headphones are connected.
 * Forwards to `Audio::getHeadPhoneConnectStatus`, which sends `CMD_AUDIO_GETHEADPHONECONNECTSTATUS`.
 * @return The state as the service numbers it; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Audio_getHeadPhoneConnectStatus(void);

/**
 * Switches dynamic range control of DTS streams on or off.
 * Forwards to `Audio::setDtsDrcState`, which sends `CMD_AUDIO_SET_DTSDRC_STATE`: `DtsDrcState`.
 * @param DtsDrcState True switches it on.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_setDtsDrcState(bool DtsDrcState);

/**
 * Tells whether dynamic range control of DTS streams is on.
 * Forwards to `Audio::getDtsDrcState`, which sends `CMD_AUDIO_GET_DTSDRC_STATE`.
 * @return 0 for the service's 0; 1 for any other answer, a failure included.
 */
KELUTV_API int linux_tv_Audio_getDtsDrcState(void);

/**
 * Tells the service whether a microphone is connected.
 * Forwards to `Audio::setMicrophoneConnect`, which sends `CMD_AUDIO_SETMICROPHONECONNECT`: `connect`.
 * @param connect The state, 1 for connected.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_setMicrophoneConnect(int connect);

/**
 * Reads whether a sound function is enabled.
 * Forwards to `Audio::getAudioFunctionEnable`, which sends `CMD_AUDIO_GETAUDIOFUNCTIONENABLE`: `func`.
 * @param func One of `KELU_TV_AUDIO_FUNC_E`.
 * @return 1 if it is, 0 if not, as the service gives it; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Audio_getAudioFunctionEnable(int func);

/**
 * Mutes the sound track or lifts its mute.
 * Forwards to `Audio::setSndTrackMute`, which sends `CMD_AUDIO_SETSNDTRACKMUTE`: `onOff`.
 * @param onOff True mutes.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_setSndTrackMute(bool onOff);

/**
 * Mutes all sound outputs or lifts the mute.
 * Forwards to `Audio::setAllSndOutputMute`, which sends `CMD_AUDIO_SETALLSNDOUTPUTMUTE`: `onOff`.
 * @param onOff True mutes.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_setAllSndOutputMute(bool onOff);

/**
 * Switches the parametric equalizer on or off.
 * Forwards to `Audio::setPEQEnable`, which sends `CMD_AUDIO_SETPEQENABLE`: `onoff`.
 * @param onoff True switches it on.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_setPEQEnable(bool onoff);

/**
 * Switches the CS enhancer on or off.
 * Forwards to `Audio::setCStenhancerEnable`, which sends `CMD_AUDIO_SETCSTENHANCERENABLE`: `onOff`.
 * @param onOff 1 for on, 0 for off.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_setCStenhancerEnable(int onOff);

/**
 * Sets the attack time of the automatic volume control.
 * Forwards to `Audio::setAvcAttackTime`, which sends `CMD_AUDIO_SET_AVC_ATTACKTIME`: `avcAttackTime`.
 * @param avcAttackTime Time in the service's unit; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_setAvcAttackTime(int avcAttackTime);

/**
 * Sets the release time of the automatic volume control.
 * Forwards to `Audio::setAvcReleaseTime`, which sends `CMD_AUDIO_SET_AVC_RELEASETIME`: `avcReleaseTime`.
 * @param avcReleaseTime Time in the service's unit; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_setAvcReleaseTime(int avcReleaseTime);

/**
 * Reads the attack time of the automatic volume control.
 * Forwards to `Audio::getAvcAttackTime`, which sends `CMD_AUDIO_GET_AVC_ATTACKTIME`.
 * @return The time in the service's unit; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Audio_getAvcAttackTime(void);

/**
 * Reads the release time of the automatic volume control.
 * Forwards to `Audio::getAvcReleaseTime`, which sends `CMD_AUDIO_GET_AVC_RELEASETIME`.
 * @return The time in the service's unit; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Audio_getAvcReleaseTime(void);

/**
 * Sets the graphic equalizer of the subwoofer.
 * Forwards to `Audio::setSubwooferGeq`, which sends `CMD_AUDIO_SETSUBWOOFERGEQ`: `geqBand0`, `geqBand1`, `geqBand2`,
 * `geqBand3`, `geqBand4`.
 * @param subwooferGeq Gains of the five bands; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_setSubwooferGeq(KELU_TV_SUBWOOFER_GEQ subwooferGeq);

/**
 * Mutes the amplifier or lifts its mute.
 * Forwards to `Audio::EnableAmplifierMute`, which sends `CMD_AUDIO_SETAMPMUTE`: `bmute`.
 * @param bmute True mutes.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_enableAmplifierMute(bool bmute);

/**
 * Sends the CEC command for a change of the mute, which has no argument; what changes is the service's matter.
 * Forwards to `Audio::modifyMute`, which sends `CMD_CEC_MODIFY_MUTE`.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_ModifyMute(void);

/**
 * Chooses the default sound output device.
 * Forwards to `Audio::setDefaultSndOutputDev`, which sends `CMD_AUDIO_SETDEFAULTSNDOUTPUTDEV`: `aOutputMode`.
 * @param aOutputMode The device.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_SetDefaultSndOutputDev(KELU_TV_SOUND_OUTPUT_MODE_E aOutputMode);

/**
 * Sets the threshold of the automatic volume control.
 * Forwards to `Audio::setAvcLevel`, which sends `CMD_AUDIO_SETAVCLEVEL`: `avcLevel`.
 * @param avcLevel One of `KELU_TV_AVC_LEVEL`.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_setAVCLevel(int avcLevel);

/**
 * Reads whether the CS enhancer is on.
 * Forwards to `Audio::getCStenhancerEnable`, which sends `CMD_AUDIO_GETCSTENHANCERENABLE`.
 * @return 0 for the service's 0; 1 for any other answer, a failure included.
 */
KELUTV_API int linux_tv_Audio_getCStenhancerEnable(void);

/**
 * Mutes one output channel or lifts the mute, as the remote control does.
 * Forwards to `Audio::setMute` with the owner `KELU_TV_SND_MUTE_IRCTRL`, which sends `CMD_AUDIO_SETMUTE`.
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
 * Forwards to `Audio::setPEQAttr`, which sends `CMD_AUDIO_SETPEQATTR`: the number of bands in use, then all ten bands.
 * @param peqAttr The bands; `intBandNum` is 1 to 10, all ten bands are sent whatever it says.
 * @return The service's result, 0 for success; -1 when the link fails, and with nothing sent for a null pointer or
 * another `intBandNum`.
 */
KELUTV_API int linux_tv_Audio_setPEQAttr(KELU_TV_SND_PEQ_ATTR_S* peqAttr);

/**
 * Reads the parametric equalizer.
 * Forwards to `Audio::getPEQAttr`, which sends `CMD_AUDIO_GETPEQATTR`.
 * @param peqAttr Receives the number of bands in use as the service gives it, and all ten bands; untouched on failure.
 * @return 0; -1 when the service or the link fails, and for a null pointer, with nothing sent.
 */
KELUTV_API int linux_tv_Audio_getPEQAttr(KELU_TV_SND_PEQ_ATTR_S* peqAttr);

/**
 * Sets the dynamic range control.
 * Forwards to `Audio::setDRCAttr`, which sends `CMD_AUDIO_SETDRCATTR`: `intthrhd`, `intLimit`.
 * @param stDrcAttr Threshold and limit; the service enforces the ranges.
 * @return The service's result, 0 for success; -1 when the link fails, and for a null pointer, with nothing sent.
 */
KELUTV_API int linux_tv_Audio_setDRCAttr(KELU_TV_SND_DRC_ATTR_S* stDrcAttr);

/**
 * Reads the dynamic range control.
 * Forwards to `Audio::getDRCAttr`, which sends `CMD_AUDIO_GETDRCATTR`.
 * @param stDrcAttr Receives threshold and limit; untouched on failure.
 * @return 0; -1 when the service or the link fails, and for a null pointer, with nothing sent.
 */
KELUTV_API int linux_tv_Audio_getDRCAttr(KELU_TV_SND_DRC_ATTR_S* stDrcAttr);

/**
 * Reads the default sound output device.
 * Forwards to `Audio::getDefaultSndOutputDev`, which sends `CMD_AUDIO_GETDEFAULTSNDOUTPUTDEV`.
 * @param apOutputMode Receives the device, unchecked; untouched on failure.
 * @return 0; -1 when the service or the link fails, and for a null pointer, with nothing sent.
 */
KELUTV_API int linux_tv_Audio_GetDefaultSndOutputDev(KELU_TV_SOUND_OUTPUT_MODE_E* apOutputMode);

/**
 * Reads the threshold of the automatic volume control.
 * Forwards to `Audio::getAvcLevel`, which sends `CMD_AUDIO_GETAVCLEVEL`.
 * @param avcLevel Receives the threshold, unchecked; untouched on failure.
 * @return 0; -1 when the service or the link fails, and for a null pointer, with nothing sent.
 */
KELUTV_API int linux_tv_Audio_getAVCLevel(KELU_TV_AVC_LEVEL* avcLevel);

/**
 * Reads the noise reduction.
 * Forwards to `Audio::getNRAttr`, which sends `CMD_AUDIO_GETNRATTR`.
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
 * Forwards to the virtual `Audio::setAudioItemValue`, which sends `CMD_AUDIO_COMMON_SET_ITEM_VALUE` and all arguments.
 * @param cmdID Item of the audio module, of `KELU_TV_CMDID_E`.
 * @param param1,param2,param3,param4 What the item defines.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_setAudioItemValue(int cmdID, int param1, int param2, int param3, int param4);

/**
 * Reads one item.
 * Forwards to `Audio::getAudioItemValue`, which sends `CMD_AUDIO_COMMON_GET_ITEM_VALUE`: `cmdID`, `param1`, `param2`.
 * @param cmdID Item of the audio module, of `KELU_TV_CMDID_E`.
 * @param param1,param2 What the item defines.
 * @param pBuf Room for 255 ints (1,020 bytes); all are written, 0 where the service sent less. Untouched on failure.
 * @return 0; -1 when the service or the link fails, and for a null pointer, with nothing sent.
 */
KELUTV_API int linux_tv_Audio_getAudioItemValue(int cmdID, int param1, int param2, void* pBuf);

/**
 * Sets the highest volume of one output channel.
 * Sets the item `CMDID_AUDIO_SET_MAX_VOLUME`: `channel`, `vol`, 0, 0.
 * @param channel Output channel, one of `KELU_TV_AUDIO_CHANNEL_E`.
 * @param vol Volume; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_setMaxVolume(int channel, int vol);

/**
 * Reads the highest volume of one output channel.
 * Reads the item `CMDID_AUDIO_GET_MAX_VOLUME`: `channel`, 0.
 * @param channel Output channel, one of `KELU_TV_AUDIO_CHANNEL_E`.
 * @return The volume; 0 when the service or the link fails.
 */
KELUTV_API int linux_tv_Audio_getMaxVolume(int channel);

/**
 * Sets the volume one output channel has after start.
 * Sets the item `CMDID_AUDIO_SET_BOOT_VOLUME`: `channel`, `vol`, 0, 0.
 * @param channel Output channel, one of `KELU_TV_AUDIO_CHANNEL_E`.
 * @param vol Volume; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_setBootVolume(int channel, int vol);

/**
 * Reads the volume one output channel has after start.
 * Reads the item `CMDID_AUDIO_GET_BOOT_VOLUME`: `channel`, 0.
 * @param channel Output channel, one of `KELU_TV_AUDIO_CHANNEL_E`.
 * @return The volume; 0 when the service or the link fails.
 */
KELUTV_API int linux_tv_Audio_getBootVolume(int channel);

/**
 * Sets the register volume of one output channel.
 * Sets the item `CMDID_AUDIO_SET_VOLUME_TO_REG`: `channel`, `vol`, 0, 0.
 * @param channel Output channel, one of `KELU_TV_AUDIO_CHANNEL_E`.
 * @param vol Volume; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_setVolumeToReg(int channel, int vol);

/**
 * Switches the equalizer on or off.
 * Sets the item `CMDID_AUDIO_SET_EQ_ENABLE`: `enable` as 0 or 1, 0, 0, 0.
 * @param enable True switches it on.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_setEQEnable(bool enable);

/**
 * Reads whether the equalizer is on.
 * Reads the item `CMDID_AUDIO_GET_EQ_ENABLE`: 0, 0.
 * @param pEnable Receives the state, false on failure; may be null.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Audio_getEQEnable(bool* pEnable);

/**
 * Reads the prescale gain of one kind of source.
 * Reads the item `CMDID_AUDIO_GET_SOURCE_PRESCALE`: `preScaleSource`, 0.
 * @param preScaleSource One of `KELU_TV_PRESCALE_SOURCE_E`.
 * @param pAttr Receives the gain, both parts 0 on failure; may be null.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Audio_getSourcePreScale(int preScaleSource, KELU_TV_SND_PRECIGAIN_ATTR_S* pAttr);

/**
 * Sets the prescale gain of one kind of source.
 * Sets the item `CMDID_AUDIO_SET_SOURCE_PRESCALE`: `preScaleSource`, `s32IntegerGain`, `s32DecimalGain`, 0.
 * @param preScaleSource One of `KELU_TV_PRESCALE_SOURCE_E`.
 * @param attr The gain; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_setSourcePreScale(int preScaleSource, KELU_TV_SND_PRECIGAIN_ATTR_S attr);

/**
 * Chooses the sound output.
 * Sets the item `CMDID_AUDIO_SET_NEW_AUDIO_OUTPUT`: `mode`, 0, 0, 0.
 * @param mode One of `KELU_TV_NEW_AUDIO_OUTPUT_E`.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_setNewOutputMode(int mode);

/**
 * Reads the sound output.
 * Reads the item `CMDID_AUDIO_GET_NEW_AUDIO_OUTPUT`: 0, 0.
 * @param pMode Receives one of `KELU_TV_NEW_AUDIO_OUTPUT_E`, unchecked; 0 on failure.
 * @return 0; -1 when the service or the link fails, and for a null pointer, with nothing sent.
 */
KELUTV_API int linux_tv_Audio_getNewOutputMode(int* pMode);

/**
 * Reads the sound outputs the set has.
 * Reads the item `CMDID_AUDIO_GET_SUPPORTED_NEW_AUDIO_OUTPUT_LIST`: 0, 0.
 * @param pAudOutputList Room for 254 entries, each one of `KELU_TV_NEW_AUDIO_OUTPUT_E`; untouched on failure.
 * @param pListSize Receives the count as the service gives it, of which at most 254 entries are there; untouched on
 *        failure.
 * @return 0; -1 when there is no entry or the service or the link fails, and for a null pointer, with nothing sent.
 */
KELUTV_API int linux_tv_Audio_getNewOutputList(int* pAudOutputList, int* pListSize);

/**
 * Reads the devices the default sound output can be.
 * Reads the item `CMDID_AUDIO_GET_INTERNAL_DEF_OUTPUT_LIST`: 0, 0.
 * @param pSndOutputList Room for 254 entries, codes as the service numbers them; untouched on failure.
 * @param pListSize Receives the count as the service gives it, of which at most 254 entries are there; untouched on
 *        failure.
 * @return 0; -1 when there is no entry or the service or the link fails, and for a null pointer, with nothing sent.
 */
KELUTV_API int linux_tv_Audio_GetDefaultSndOutputList(int* pSndOutputList, int* pListSize);

/**
 * Tells whether the headphone socket can serve as line output.
 * Reads the item `CMDID_AUDIO_IS_SUPPORT_HEADPHONE_FOR_LINEOUT`: 0, 0.
 * @return 1 if it can, else 0; 0 also when the service or the link fails.
 */
KELUTV_API int linux_tv_Audio_isHeadphoneForLineoutSupport(void);

/**
 * Has the headphone socket serve as line output, or ends that.
 * Sets the item `CMDID_AUDIO_SET_HEADPHONE_FOR_LINEOUT`: `onoff` as 0 or 1, 0, 0, 0.
 * @param onoff True makes it a line output.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_setHeadphoneForLineoutEnable(bool onoff);

/**
 * Reads whether the headphone socket serves as line output.
 * Reads the item `CMDID_AUDIO_GET_HEADPHONE_FOR_LINEOUT`: 0, 0.
 * @param pEnable Receives the state, false on failure; may be null.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Audio_getHeadphoneForLineoutEnable(bool* pEnable);

/**
 * Reads the surround type.
 * Reads the item `CMDID_AUDIO_GET_SURROUND_TYPE`: 0, 0.
 * @param pMode Receives the type as the service numbers it, 0 on failure; may be null.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Audio_getSurroundType(int* pMode);

/**
 * Chooses the equalizer mode.
 * Sets the item `CMDID_AUDIO_SET_EQUALIZER_MODE`: `mode`, 0, 0, 0.
 * @param mode One of `KELU_TV_EQUALIZER_MODE`.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_setEqualizerMode(int mode);

/**
 * Reads the equalizer mode.
 * Reads the item `CMDID_AUDIO_GET_EQUALIZER_MODE`: 0, 0.
 * @param pMode Receives one of `KELU_TV_EQUALIZER_MODE`, unchecked; 0 on failure; may be null.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Audio_getEqualizerMode(int* pMode);

/**
 * Sets the mute level, which the item calls the lock level of the sound.
 * Sets the item `CMDID_AUDIO_SET_AUDIO_LOCK_LEVEL`: `level`, 0, 0, 0.
 * @param level Level; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Audio_SetMuteLevel(int level);

/** @} */

#ifdef __cplusplus
}
#endif

#endif
