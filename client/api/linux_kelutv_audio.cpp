#include "Marshalling.h"

#include <kelutv/Audio.h>
#include <kelutv/items.h>
#include <kelutv/linux_kelutv_audio.h>

using namespace kelutv::internal;

namespace {

ItemAnswer readItem(int item, int param = 0) {
    ItemAnswer answer;
    answer.result = linux_tv_Audio_getAudioItemValue(item, param, 0, answer.values.data());
    return answer;
}

int setItem(int item, int param1, int param2 = 0, int param3 = 0) {
    return linux_tv_Audio_setAudioItemValue(item, param1, param2, param3, 0);
}

int readList(int item, int* list, int* size) {
    return list == nullptr || size == nullptr ? -1 : storeList(readItem(item), list, size);
}

} // namespace

Audio::Audio() = default;

Audio::~Audio() = default;

Audio* Audio::instance() {
    static Audio mObj;
    return &mObj;
}

// Plain values

int linux_tv_Audio_getSoundMode() { return Audio::instance()->getSoundMode(); }

int linux_tv_Audio_setSoundMode(int sndmode) { return Audio::instance()->setSoundMode(sndmode); }

int linux_tv_Audio_getOutMode() { return Audio::instance()->getOutMode(); }

int linux_tv_Audio_getHangMode() { return Audio::instance()->getHangMode(); }

int linux_tv_Audio_setHangMode(int hangmode) { return Audio::instance()->setHangMode(hangmode); }

int linux_tv_Audio_getVolume(int channel) { return Audio::instance()->getVolume(channel); }

int linux_tv_Audio_setVolume(int channel, int vol) { return Audio::instance()->setVolume(channel, vol); }

int linux_tv_Audio_getStereoMode() { return Audio::instance()->getStereoMode(); }

int linux_tv_Audio_setStereoMode(int stereo) { return Audio::instance()->setStereoMode(stereo); }

int linux_tv_Audio_setAVsync(int ms) { return Audio::instance()->setAVsync(ms); }

int linux_tv_Audio_getAVsync() { return Audio::instance()->getAVsync(); }

int linux_tv_Audio_getSpeakerOutput() { return Audio::instance()->getSpeakerOutput(); }

int linux_tv_Audio_setSpeakerOutput(int output) { return Audio::instance()->setSpeakerOutput(output); }

int linux_tv_Audio_getMute(int channel) { return Audio::instance()->getMute(channel); }

int linux_tv_Audio_getSPDIFOutput() { return Audio::instance()->getSPDIFOutput(); }

int linux_tv_Audio_setSPDIFOutput(int spdif) { return Audio::instance()->setSPDIFOutput(spdif); }

int linux_tv_Audio_setSPDIFOutputDelay(int ms) { return Audio::instance()->setSPDIFOutputDelay(ms); }

int linux_tv_Audio_getSPDIFOutputDelay() { return Audio::instance()->getSPDIFOutputDelay(); }

int linux_tv_Audio_enableSubWoofer(bool onoff) { return Audio::instance()->enableSubWoofer(onoff); }

int linux_tv_Audio_isSubWooferEnable() { return Audio::instance()->isSubWooferEnable(); }

int linux_tv_Audio_setSubWooferVolume(int value) { return Audio::instance()->setSubWooferVolume(value); }

int linux_tv_Audio_getSubWooferVolume() { return Audio::instance()->getSubWooferVolume(); }

int linux_tv_Audio_isAmplifierMute() { return Audio::instance()->isAmplifierMute(); }

int linux_tv_Audio_setEffectParameter(int type, int value) {
    return Audio::instance()->setEffectParameter(type, value);
}

int linux_tv_Audio_getEffectParameter(int type) { return Audio::instance()->getEffectParameter(type); }

int linux_tv_Audio_setAdvancedEffectParameter(int type, int value) {
    return Audio::instance()->setAdvancedEffectParameter(type, value);
}

int linux_tv_Audio_getAdvancedEffectParameter(int type) { return Audio::instance()->getAdvancedEffectParameter(type); }

int linux_tv_Audio_setDolbyMode(int dolbymode) { return Audio::instance()->setDolbyMode(dolbymode); }

int linux_tv_Audio_getDolbyMode() { return Audio::instance()->getDolbyMode(); }

int linux_tv_Audio_setPreScalerLevel(int level) { return Audio::instance()->setPreScalerLevel(level); }

int linux_tv_Audio_setSurroundMode(bool surroundMode) { return Audio::instance()->setSurroundMode(surroundMode); }

int linux_tv_Audio_getSurroundMode() { return Audio::instance()->getSurroundMode(); }

int linux_tv_Audio_setTrubassMode(bool trubassMode) { return Audio::instance()->setTrubassMode(trubassMode); }

int linux_tv_Audio_getTrubassMode() { return Audio::instance()->getTrubassMode(); }

int linux_tv_Audio_setSoundClarity(bool onOff) { return Audio::instance()->setSoundClarity(onOff); }

int linux_tv_Audio_getSoundClarity() { return Audio::instance()->getSoundClarity(); }

int linux_tv_Audio_isDolbyDigitalSupport() { return Audio::instance()->isDolbyDigitalSupport(); }

int linux_tv_Audio_setNRAttr(NRAttrData stNRInfo) { return Audio::instance()->setNRAttr(stNRInfo); }

int linux_tv_Audio_setAvoutGain(int gain) { return Audio::instance()->setAvoutGain(gain); }

int linux_tv_Audio_setSpdifGain(int gain) { return Audio::instance()->setSpdifGain(gain); }

int linux_tv_Audio_setAudioOutKtvInit(bool isInit) { return Audio::instance()->setAudioOutKtvInit(isInit); }

int linux_tv_Audio_isARCByPassEnable() { return Audio::instance()->isARCByPassEnable(); }

int linux_tv_Audio_getKeluAudioStreamType() { return Audio::instance()->getKeluAudioStreamType(); }

int linux_tv_Audio_restoreSoundSets() { return Audio::instance()->restoreSoundSets(); }

int linux_tv_Audio_setAudioDemoMode(int demomode, int onoff) {
    return Audio::instance()->setAudioDemoMode(demomode, onoff);
}

int linux_tv_Audio_setBluetoothConnect(bool connect) { return Audio::instance()->setBluetoothConnect(connect); }

int linux_tv_Audio_getAudioEffect() { return Audio::instance()->getAudioEffect(); }

int linux_tv_Audio_getHeadPhoneConnectStatus() { return Audio::instance()->getHeadPhoneConnectStatus(); }

int linux_tv_Audio_setDtsDrcState(bool DtsDrcState) { return Audio::instance()->setDtsDrcState(DtsDrcState); }

int linux_tv_Audio_getDtsDrcState() { return Audio::instance()->getDtsDrcState(); }

int linux_tv_Audio_setMicrophoneConnect(int connect) { return Audio::instance()->setMicrophoneConnect(connect); }

int linux_tv_Audio_getAudioFunctionEnable(int func) { return Audio::instance()->getAudioFunctionEnable(func); }

int linux_tv_Audio_setSndTrackMute(bool onOff) { return Audio::instance()->setSndTrackMute(onOff); }

int linux_tv_Audio_setAllSndOutputMute(bool onOff) { return Audio::instance()->setAllSndOutputMute(onOff); }

int linux_tv_Audio_setPEQEnable(bool onoff) { return Audio::instance()->setPEQEnable(onoff); }

int linux_tv_Audio_setCStenhancerEnable(int onOff) { return Audio::instance()->setCStenhancerEnable(onOff); }

int linux_tv_Audio_setAvcAttackTime(int avcAttackTime) { return Audio::instance()->setAvcAttackTime(avcAttackTime); }

int linux_tv_Audio_setAvcReleaseTime(int avcReleaseTime) {
    return Audio::instance()->setAvcReleaseTime(avcReleaseTime);
}

int linux_tv_Audio_getAvcAttackTime() { return Audio::instance()->getAvcAttackTime(); }

int linux_tv_Audio_getAvcReleaseTime() { return Audio::instance()->getAvcReleaseTime(); }

int linux_tv_Audio_setSubwooferGeq(KELU_TV_SUBWOOFER_GEQ subwooferGeq) {
    return Audio::instance()->setSubwooferGeq(subwooferGeq);
}

int linux_tv_Audio_enableAmplifierMute(bool bmute) { return Audio::instance()->EnableAmplifierMute(bmute); }

int linux_tv_Audio_ModifyMute() { return Audio::instance()->modifyMute(); }

int linux_tv_Audio_SetDefaultSndOutputDev(KELU_TV_SOUND_OUTPUT_MODE_E aOutputMode) {
    return Audio::instance()->setDefaultSndOutputDev(aOutputMode);
}

int linux_tv_Audio_setAVCLevel(int avcLevel) { return Audio::instance()->setAvcLevel(avcLevel); }

int linux_tv_Audio_getCStenhancerEnable() { return Audio::instance()->getCStenhancerEnable() != 0; }

int linux_tv_Audio_setMute(int channel, bool onoff) {
    return Audio::instance()->setMute(channel, onoff, KELU_TV_SND_MUTE_IRCTRL);
}

// Records

int linux_tv_Audio_setPEQAttr(KELU_TV_SND_PEQ_ATTR_S* peqAttr) {
    return peqAttr == nullptr ? -1 : Audio::instance()->setPEQAttr(peqAttr);
}

int linux_tv_Audio_getPEQAttr(KELU_TV_SND_PEQ_ATTR_S* peqAttr) {
    return peqAttr == nullptr ? -1 : Audio::instance()->getPEQAttr(peqAttr);
}

int linux_tv_Audio_setDRCAttr(KELU_TV_SND_DRC_ATTR_S* stDrcAttr) {
    return stDrcAttr == nullptr ? -1 : Audio::instance()->setDRCAttr(stDrcAttr);
}

int linux_tv_Audio_getDRCAttr(KELU_TV_SND_DRC_ATTR_S* stDrcAttr) {
    return stDrcAttr == nullptr ? -1 : Audio::instance()->getDRCAttr(stDrcAttr);
}

int linux_tv_Audio_GetDefaultSndOutputDev(KELU_TV_SOUND_OUTPUT_MODE_E* apOutputMode) {
    return apOutputMode == nullptr ? -1 : Audio::instance()->getDefaultSndOutputDev(apOutputMode);
}

int linux_tv_Audio_getAVCLevel(KELU_TV_AVC_LEVEL* avcLevel) {
    return avcLevel == nullptr ? -1 : Audio::instance()->getAvcLevel(avcLevel);
}

int linux_tv_Audio_getNRAttr(NRAttrData* pstNRInfo) {
    if (pstNRInfo == nullptr) {
        return -1;
    }
    *pstNRInfo = Audio::instance()->getNRAttr();
    return 0;
}

// Items

int linux_tv_Audio_setAudioItemValue(int cmdID, int param1, int param2, int param3, int param4) {
    return Audio::instance()->setAudioItemValue(cmdID, param1, param2, param3, param4);
}

int linux_tv_Audio_getAudioItemValue(int cmdID, int param1, int param2, void* pBuf) {
    return pBuf == nullptr ? -1 : Audio::instance()->getAudioItemValue(cmdID, param1, param2, static_cast<int*>(pBuf));
}

int linux_tv_Audio_setMaxVolume(int channel, int vol) { return setItem(CMDID_AUDIO_SET_MAX_VOLUME, channel, vol); }

int linux_tv_Audio_getMaxVolume(int channel) { return readItem(CMDID_AUDIO_GET_MAX_VOLUME, channel).values[0]; }

int linux_tv_Audio_setBootVolume(int channel, int vol) { return setItem(CMDID_AUDIO_SET_BOOT_VOLUME, channel, vol); }

int linux_tv_Audio_getBootVolume(int channel) { return readItem(CMDID_AUDIO_GET_BOOT_VOLUME, channel).values[0]; }

int linux_tv_Audio_setVolumeToReg(int channel, int vol) { return setItem(CMDID_AUDIO_SET_VOLUME_TO_REG, channel, vol); }

int linux_tv_Audio_setEQEnable(bool enable) { return setItem(CMDID_AUDIO_SET_EQ_ENABLE, enable); }

int linux_tv_Audio_getEQEnable(bool* pEnable) { return storeFlag(readItem(CMDID_AUDIO_GET_EQ_ENABLE), pEnable); }

int linux_tv_Audio_getSourcePreScale(int preScaleSource, KELU_TV_SND_PRECIGAIN_ATTR_S* pAttr) {
    const ItemAnswer answer = readItem(CMDID_AUDIO_GET_SOURCE_PRESCALE, preScaleSource);
    storeIfGiven(pAttr, {answer.values[0], answer.values[1]});
    return answer.result;
}

int linux_tv_Audio_setSourcePreScale(int preScaleSource, KELU_TV_SND_PRECIGAIN_ATTR_S attr) {
    return setItem(CMDID_AUDIO_SET_SOURCE_PRESCALE, preScaleSource, attr.s32IntegerGain, attr.s32DecimalGain);
}

int linux_tv_Audio_setNewOutputMode(int mode) { return setItem(CMDID_AUDIO_SET_NEW_AUDIO_OUTPUT, mode); }

int linux_tv_Audio_getNewOutputMode(int* pMode) {
    return pMode == nullptr ? -1 : storeValue(readItem(CMDID_AUDIO_GET_NEW_AUDIO_OUTPUT), pMode);
}

int linux_tv_Audio_getNewOutputList(int* pAudOutputList, int* pListSize) {
    return readList(CMDID_AUDIO_GET_SUPPORTED_NEW_AUDIO_OUTPUT_LIST, pAudOutputList, pListSize);
}

int linux_tv_Audio_GetDefaultSndOutputList(int* pSndOutputList, int* pListSize) {
    return readList(CMDID_AUDIO_GET_INTERNAL_DEF_OUTPUT_LIST, pSndOutputList, pListSize);
}

int linux_tv_Audio_isHeadphoneForLineoutSupport() {
    return readItem(CMDID_AUDIO_IS_SUPPORT_HEADPHONE_FOR_LINEOUT).values[0] != 0;
}

int linux_tv_Audio_setHeadphoneForLineoutEnable(bool onoff) {
    return setItem(CMDID_AUDIO_SET_HEADPHONE_FOR_LINEOUT, onoff);
}

int linux_tv_Audio_getHeadphoneForLineoutEnable(bool* pEnable) {
    return storeFlag(readItem(CMDID_AUDIO_GET_HEADPHONE_FOR_LINEOUT), pEnable);
}

int linux_tv_Audio_getSurroundType(int* pMode) { return storeValue(readItem(CMDID_AUDIO_GET_SURROUND_TYPE), pMode); }

int linux_tv_Audio_setEqualizerMode(int mode) { return setItem(CMDID_AUDIO_SET_EQUALIZER_MODE, mode); }

int linux_tv_Audio_getEqualizerMode(int* pMode) { return storeValue(readItem(CMDID_AUDIO_GET_EQUALIZER_MODE), pMode); }

int linux_tv_Audio_SetMuteLevel(int level) { return setItem(CMDID_AUDIO_SET_AUDIO_LOCK_LEVEL, level); }
