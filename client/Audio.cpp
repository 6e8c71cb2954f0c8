#include "Marshalling.h"

#include <kelutv/Audio.h>
#include <kelutv/commands.h>
#include <kelutv/link/TVBaseClient.h>

#include <android/log.h>
#include <binder/Parcel.h>

#include <type_traits>

using android::Parcel;
using android::TVBaseClient;
using namespace kelutv::internal;

// Volume, mute and modes

int Audio::getSoundMode() { return TVBaseClient::self()->exeCmdGet(CMD_AUDIO_GETSOUNDMODE); }

int Audio::setSoundMode(int sndmode) { return TVBaseClient::self()->exeCmdSet(CMD_AUDIO_SETSOUNDMODE, sndmode); }

int Audio::getOutMode() { return TVBaseClient::self()->exeCmdGet(CMD_AUDIO_GETOUTMODE); }

int Audio::getHangMode() { return TVBaseClient::self()->exeCmdGet(CMD_AUDIO_GETHANGMODE); }

int Audio::setHangMode(int hangmode) { return TVBaseClient::self()->exeCmdSet(CMD_AUDIO_SETHANGMODE, hangmode); }

int Audio::getInputVolume() { return TVBaseClient::self()->exeCmdGet(CMD_AUDIO_GETINPUTVOLUME); }

int Audio::setInputVolume(int vol) { return TVBaseClient::self()->exeCmdSet(CMD_AUDIO_SETINPUTVOLUME, vol); }

int Audio::getVolume(int channel) { return TVBaseClient::self()->exeCmdGet(CMD_AUDIO_GETVOLUME, channel); }

int Audio::setVolume(int channel, int vol) {
    return TVBaseClient::self()->exeCmdSet(CMD_AUDIO_SETVOLUME, channel, vol);
}

int Audio::setVolumeByC(int channel, int vol) {
    return TVBaseClient::self()->exeCmdSet(CMD_AUDIO_SETVOLUME_C, channel, vol);
}

bool Audio::getMute(int channel) { return TVBaseClient::self()->exeCmdGet(CMD_AUDIO_GETMUTE, channel) != 0; }

int Audio::setMute(int channel, bool onoff, MuteType type) {
    return TVBaseClient::self()->exeCmdSet(CMD_AUDIO_SETMUTE, channel, onoff, type);
}

int Audio::setMuteByC(int channel, bool onoff, MuteType type) {
    return TVBaseClient::self()->exeCmdSet(CMD_AUDIO_SETMUTE_C, channel, onoff, type);
}

int Audio::modifyMute() { return TVBaseClient::self()->exeCmdSet(CMD_CEC_MODIFY_MUTE); }

int Audio::EnableAmplifierMute(bool bmute) { return TVBaseClient::self()->exeCmdSet(CMD_AUDIO_SETAMPMUTE, bmute); }

bool Audio::isAmplifierMute() { return TVBaseClient::self()->exeCmdGet(CMD_AUDIO_GETAMPMUTE) != 0; }

int Audio::setAllSndOutputMute(bool onOff) {
    return TVBaseClient::self()->exeCmdSet(CMD_AUDIO_SETALLSNDOUTPUTMUTE, onOff);
}

int Audio::setSndTrackMute(bool onOff) { return TVBaseClient::self()->exeCmdSet(CMD_AUDIO_SETSNDTRACKMUTE, onOff); }

int Audio::getStereoMode() { return TVBaseClient::self()->exeCmdGet(CMD_AUDIO_GETSTEREOMODE); }

int Audio::setStereoMode(int stereo) { return TVBaseClient::self()->exeCmdSet(CMD_AUDIO_SETSTEREOMODE, stereo); }

int Audio::setAVsync(int ms) { return TVBaseClient::self()->exeCmdSet(CMD_AUDIO_SETAVSYNC, ms); }

int Audio::getAVsync() { return TVBaseClient::self()->exeCmdGet(CMD_AUDIO_GETAVSYNC); }

int Audio::restoreSoundSets() { return TVBaseClient::self()->exeCmdSet(CMD_AUDIO_RESTORESOUNDSETS); }

// Outputs, subwoofer and gains

int Audio::getSpeakerOutput() { return TVBaseClient::self()->exeCmdGet(CMD_AUDIO_GETSPEAKEROUTPUT); }

int Audio::setSpeakerOutput(int output) { return TVBaseClient::self()->exeCmdSet(CMD_AUDIO_SETSPEAKEROUTPUT, output); }

int Audio::getSPDIFOutput() { return TVBaseClient::self()->exeCmdGet(CMD_AUDIO_GETSPDIFOUTPUT); }

int Audio::setSPDIFOutput(int spdif) { return TVBaseClient::self()->exeCmdSet(CMD_AUDIO_SETSPDIFOUTPUT, spdif); }

int Audio::setSPDIFOutputDelay(int ms) { return TVBaseClient::self()->exeCmdSet(CMD_AUDIO_SETSPDIFOUTPUTDELAY, ms); }

int Audio::getSPDIFOutputDelay() { return TVBaseClient::self()->exeCmdGet(CMD_AUDIO_GETSPDIFOUTPUTDELAY); }

int Audio::enableSubWoofer(bool onoff) { return TVBaseClient::self()->exeCmdSet(CMD_AUDIO_SETSUBWOOFERENABLE, onoff); }

bool Audio::isSubWooferEnable() { return TVBaseClient::self()->exeCmdGet(CMD_AUDIO_GETSUBWOOFERENABLE) != 0; }

int Audio::setSubWooferVolume(int value) { return TVBaseClient::self()->exeCmdSet(CMD_AUDIO_SETSUBWOOFERVOL, value); }

int Audio::getSubWooferVolume() { return TVBaseClient::self()->exeCmdGet(CMD_AUDIO_GETSUBWOOFERVOL); }

int Audio::setSubwooferGeq(KELU_TV_SUBWOOFER_GEQ subwooferGeq) {
    return TVBaseClient::self()->exeCmdSet(CMD_AUDIO_SETSUBWOOFERGEQ, subwooferGeq.geqBand0, subwooferGeq.geqBand1,
                                           subwooferGeq.geqBand2, subwooferGeq.geqBand3, subwooferGeq.geqBand4);
}

int Audio::setAvoutGain(int gain) { return TVBaseClient::self()->exeCmdSet(CMD_AUDIO_SET_AVOUT_GAIN, gain); }

int Audio::setSpdifGain(int gain) { return TVBaseClient::self()->exeCmdSet(CMD_AUDIO_SET_SPDIF_GAIN, gain); }

int Audio::setPreScalerLevel(int level) { return TVBaseClient::self()->exeCmdSet(CMD_AUDIO_SETPRESCALELEVEL, level); }

int Audio::setAudioOutKtvInit(bool isInit) {
    return TVBaseClient::self()->exeCmdSet(CMD_AUDIO_SETAUDIOOUTKTVINIT, isInit);
}

int Audio::setDefaultSndOutputDev(KELU_TV_SOUND_OUTPUT_MODE_E aOutputMode) {
    return TVBaseClient::self()->exeCmdSet(CMD_AUDIO_SETDEFAULTSNDOUTPUTDEV, aOutputMode);
}

int Audio::getHeadPhoneConnectStatus() { return TVBaseClient::self()->exeCmdGet(CMD_AUDIO_GETHEADPHONECONNECTSTATUS); }

int Audio::setBluetoothConnect(int connect) {
    return TVBaseClient::self()->exeCmdSet(CMD_AUDIO_SETBLUETOOTHCONNECT, connect);
}

int Audio::setBtTrackHandle(int btTrackHandle) {
    return TVBaseClient::self()->exeCmdSet(CMD_AUDIO_SET_BT_TRACK_HANDLE, btTrackHandle);
}

int Audio::setMicrophoneConnect(int connect) {
    return TVBaseClient::self()->exeCmdSet(CMD_AUDIO_SETMICROPHONECONNECT, connect);
}

// Effects and processing

int Audio::setEffectParameter(int type, int value) {
    return TVBaseClient::self()->exeCmdSet(CMD_AUDIO_SETEFFECTPARAMETER, type, value);
}

int Audio::getEffectParameter(int type) { return TVBaseClient::self()->exeCmdGet(CMD_AUDIO_GETEFFECTPARAMETER, type); }

int Audio::setAdvancedEffectParameter(int type, int value) {
    return TVBaseClient::self()->exeCmdSet(CMD_AUDIO_SETADVANCEDEFFECTPARAMETER, type, value);
}

int Audio::getAdvancedEffectParameter(int type) {
    return TVBaseClient::self()->exeCmdGet(CMD_AUDIO_GETADVANCEDEFFECTPARAMETER, type);
}

int Audio::setDolbyMode(int dolbymode) { return TVBaseClient::self()->exeCmdSet(CMD_AUDIO_SETDOLBYMODE, dolbymode); }

int Audio::getDolbyMode() { return TVBaseClient::self()->exeCmdGet(CMD_AUDIO_GETDOLBYMODE); }

bool Audio::isDolbyDigitalSupport() {
    return TVBaseClient::self()->exeCmdGet(CMD_AUDIO_GET_IS_DOLBY_DIGITAL_SUPPORT) != 0;
}

int Audio::setSurroundMode(bool onOff) { return TVBaseClient::self()->exeCmdSet(CMD_AUDIO_SET_SURROUND_MODE, onOff); }

bool Audio::getSurroundMode() { return TVBaseClient::self()->exeCmdGet(CMD_AUDIO_GET_SURROUND_MODE) != 0; }

int Audio::setTrubassMode(bool onOff) { return TVBaseClient::self()->exeCmdSet(CMD_AUDIO_SET_TRUBASS_MODE, onOff); }

bool Audio::getTrubassMode() { return TVBaseClient::self()->exeCmdGet(CMD_AUDIO_GET_TRUBASS_MODE) != 0; }

int Audio::setSoundClarity(bool onOff) { return TVBaseClient::self()->exeCmdSet(CMD_AUDIO_SET_SOUND_CLARITY, onOff); }

bool Audio::getSoundClarity() { return TVBaseClient::self()->exeCmdGet(CMD_AUDIO_GET_SOUND_CLARITY) != 0; }

int Audio::setAudioWallMode(bool onOff) { return TVBaseClient::self()->exeCmdSet(CMD_AUDIO_SET_AUDIOWALL_MODE, onOff); }

bool Audio::getAudioWallMode() { return TVBaseClient::self()->exeCmdGet(CMD_AUDIO_GET_AUDIOWALL_MODE) != 0; }

int Audio::setEqualLoundValue(int index, int band, int value) {
    return TVBaseClient::self()->exeCmdSet(CMD_AUDIO_SET_AUDIO_EQUAL_LOUND, index, band, value);
}

int Audio::getEqualLoundValue(int index, int band) {
    return TVBaseClient::self()->exeCmdSet(CMD_AUDIO_GET_AUDIO_EQUAL_LOUND, index, band);
}

int Audio::isDialogueEnhancement() { return TVBaseClient::self()->exeCmdSet(CMD_AUDIO_GETDIOLOGUEENHANCEMENT); }

int Audio::setDialogueEnhancement(int enable) {
    return TVBaseClient::self()->exeCmdSet(CMD_AUDIO_SETDIOLOGUEENHANCEMENT, enable);
}

int Audio::isDolblyAtmosEnable() { return TVBaseClient::self()->exeCmdGet(CMD_AUDIO_GETDOLBLYATMOSENABLE); }

int Audio::setDolblyAtmosEnable(int enable) {
    return TVBaseClient::self()->exeCmdSet(CMD_AUDIO_SETDOLBLYATMOSENABLE, enable);
}

int Audio::isARCByPassEnable() { return TVBaseClient::self()->exeCmdGet(CMD_AUDIO_GETARCBYPASSENABLE); }

int Audio::setARCByPassEnable(int enable) {
    return TVBaseClient::self()->exeCmdSet(CMD_AUDIO_SETARCBYPASSENABLE, enable);
}

int Audio::isIntelligentVolumeEnable() { return TVBaseClient::self()->exeCmdGet(CMD_AUDIO_GETINTELLIGENTVOLUMEENABLE); }

int Audio::setIntelligentVolumeEnable(int enable) {
    return TVBaseClient::self()->exeCmdSet(CMD_AUDIO_SETINTELLIGENTVOLUMEENABLE, enable);
}

int Audio::getKeluAudioStreamType() { return TVBaseClient::self()->exeCmdGet(CMD_AUDIO_GETDOBLYSOUNDEFFECTMODE); }

int Audio::setAudioDemoMode(int demomode, int onoff) {
    return TVBaseClient::self()->exeCmdSet(CMD_AUDIO_SETAUDIODEMOMODE, demomode, onoff);
}

int Audio::getAudioEffect() { return TVBaseClient::self()->exeCmdGet(CMD_AUDIO_GETAUDIOEFFECT); }

int Audio::setDtsDrcState(bool onOff) { return TVBaseClient::self()->exeCmdSet(CMD_AUDIO_SET_DTSDRC_STATE, onOff); }

bool Audio::getDtsDrcState() { return TVBaseClient::self()->exeCmdGet(CMD_AUDIO_GET_DTSDRC_STATE) != 0; }

int Audio::getAudioFunctionEnable(int func) {
    return TVBaseClient::self()->exeCmdGet(CMD_AUDIO_GETAUDIOFUNCTIONENABLE, func);
}

int Audio::setPEQEnable(bool onoff) { return TVBaseClient::self()->exeCmdSet(CMD_AUDIO_SETPEQENABLE, onoff); }

int Audio::setAvcLevel(int avcLevel) { return TVBaseClient::self()->exeCmdSet(CMD_AUDIO_SETAVCLEVEL, avcLevel); }

int Audio::setCStenhancerEnable(int onOff) {
    return TVBaseClient::self()->exeCmdSet(CMD_AUDIO_SETCSTENHANCERENABLE, onOff);
}

int Audio::getCStenhancerEnable() { return TVBaseClient::self()->exeCmdGet(CMD_AUDIO_GETCSTENHANCERENABLE); }

int Audio::setAvcAttackTime(int avcAttackTime) {
    return TVBaseClient::self()->exeCmdSet(CMD_AUDIO_SET_AVC_ATTACKTIME, avcAttackTime);
}

int Audio::setAvcReleaseTime(int avcReleaseTime) {
    return TVBaseClient::self()->exeCmdSet(CMD_AUDIO_SET_AVC_RELEASETIME, avcReleaseTime);
}

int Audio::getAvcAttackTime() { return TVBaseClient::self()->exeCmdGet(CMD_AUDIO_GET_AVC_ATTACKTIME); }

int Audio::getAvcReleaseTime() { return TVBaseClient::self()->exeCmdGet(CMD_AUDIO_GET_AVC_RELEASETIME); }
// Generic items

int Audio::setAudioItemValue(int cmdID, int param1, int param2, int param3, int param4) {
    return TVBaseClient::self()->exeCmdSet(CMD_AUDIO_COMMON_SET_ITEM_VALUE, cmdID, param1, param2, param3, param4);
}

int Audio::getAudioItemValue(int cmdID, int param1, int param2, int* pData) {
    if (pData == nullptr) {
        __android_log_print(ANDROID_LOG_ERROR, nullptr, "getAudioItemValue input buf is null");
        return -1;
    }
    Parcel reply;
    if (TVBaseClient::self()->exeCmdGet(CMD_AUDIO_COMMON_GET_ITEM_VALUE, cmdID, param1, param2, reply) != 0) {
        return -1;
    }
    readItemValues(reply, pData);
    return 0;
}

int Audio::setAudioItemStrValue(int cmdID, int param1, int param2, char const* stringParam) {
    return TVBaseClient::self()->exeCmdSet(CMD_AUDIO_COMMON_SET_ITEM_STRVALUE, cmdID, param1, stringParam, param2);
}

int Audio::getAudioItemStrValue(int cmdID, int param1, int param2, char* data) {
    if (data == nullptr) {
        __android_log_print(ANDROID_LOG_ERROR, nullptr, "getAudioItemStrValue input buf is null");
        return -1;
    }
    Parcel reply;
    if (TVBaseClient::self()->exeCmdGet(CMD_AUDIO_COMMON_GET_ITEM_STRVALUE, cmdID, param1, param2, reply) != 0 ||
        !copyText(reply, data)) {
        __android_log_print(ANDROID_LOG_ERROR, nullptr, "getSystemItemStrValue error");
        return -1;
    }
    return 0;
}

// Records and lists

int Audio::setPreScale(int channel, PreScaleInfo prescale) {
    return Request().words({channel, prescale.integer, prescale.decimal}).send(CMD_AUDIO_SETPRESCALE);
}

PreScaleInfo Audio::getPreScale(int channel) {
    PreScaleInfo prescale{};
    Parcel reply;
    if (TVBaseClient::self()->exeCmdGet(CMD_AUDIO_GETPRESCALE, channel, reply) == 0) {
        readWords(reply, {&prescale.integer, &prescale.decimal});
    }
    return prescale;
}

int Audio::setNRAttr(NRAttrData stNRAttrData) {
    return Request().words({stNRAttrData.onOff, stNRAttrData.value}).send(CMD_AUDIO_SETNRATTR);
}

NRAttrData Audio::getNRAttr() {
    NRAttrData attr{};
    Parcel reply;
    if (TVBaseClient::self()->exeCmdGet(CMD_AUDIO_GETNRATTR, reply) == 0) {
        attr.onOff = reply.readInt32() != 0;
        attr.value = reply.readInt32();
    }
    return attr;
}

int Audio::setDRCAttr(KELU_TV_SND_DRC_ATTR_S const* stDrcAttr) {
    return Request().words({stDrcAttr->intthrhd, stDrcAttr->intLimit}).send(CMD_AUDIO_SETDRCATTR);
}

int Audio::getDRCAttr(KELU_TV_SND_DRC_ATTR_S* stDrcAttr) {
    Parcel reply;
    if (TVBaseClient::self()->exeCmdGet(CMD_AUDIO_GETDRCATTR, reply) != 0) {
        return -1;
    }
    KELU_TV_SND_DRC_ATTR_S attr{};
    readWords(reply, {&attr.intthrhd, &attr.intLimit});
    storeIfGiven(stDrcAttr, attr);
    return 0;
}

int Audio::setPEQAttr(KELU_TV_SND_PEQ_ATTR_S const* peqAttr) {
    constexpr int kMaxBands = std::extent_v<decltype(KELU_TV_SND_PEQ_ATTR_S::stEqParam)>;
    if (peqAttr->intBandNum < 1 || peqAttr->intBandNum > kMaxBands) {
        __android_log_print(ANDROID_LOG_ERROR, nullptr, "invalid parameter %d max = %d", peqAttr->intBandNum,
                            kMaxBands);
        return -1;
    }
    Request request;
    request.word(peqAttr->intBandNum);
    for (const KELU_TV_SND_PEQ_BAND_ATTR_S& band : peqAttr->stEqParam) {
        request.words({band.enFltType, band.intfreq, band.intQ, band.intGain});
    }
    return request.send(CMD_AUDIO_SETPEQATTR);
}

int Audio::getPEQAttr(KELU_TV_SND_PEQ_ATTR_S* peqAttr) {
    Parcel reply;
    if (TVBaseClient::self()->exeCmdGet(CMD_AUDIO_GETPEQATTR, reply) != 0) {
        return -1;
    }
    KELU_TV_SND_PEQ_ATTR_S attr{};
    attr.intBandNum = reply.readInt32();
    for (KELU_TV_SND_PEQ_BAND_ATTR_S& band : attr.stEqParam) {
        band.enFltType = static_cast<KELU_TV_PEQ_FILTER_TYPE_E>(reply.readInt32());
        readWords(reply, {&band.intfreq, &band.intQ, &band.intGain});
    }
    storeIfGiven(peqAttr, attr);
    return 0;
}

int Audio::getDefaultSndOutputDev(KELU_TV_SOUND_OUTPUT_MODE_E* apOutputMode) {
    Parcel reply;
    if (TVBaseClient::self()->exeCmdGet(CMD_AUDIO_GETDEFAULTSNDOUTPUTDEV, reply) != 0) {
        return -1;
    }
    storeIfGiven(apOutputMode, static_cast<KELU_TV_SOUND_OUTPUT_MODE_E>(reply.readInt32()));
    return 0;
}

int Audio::getAvcLevel(KELU_TV_AVC_LEVEL* avcLevel) {
    Parcel reply;
    if (TVBaseClient::self()->exeCmdGet(CMD_AUDIO_GETAVCLEVEL, reply) != 0) {
        return -1;
    }
    storeIfGiven(avcLevel, static_cast<KELU_TV_AVC_LEVEL>(reply.readInt32()));
    return 0;
}

std::list<std::string> Audio::getOutputList() {
    Parcel reply;
    if (TVBaseClient::self()->exeCmdGet(CMDID_AUDIO_GET_OUTPUT_LIST, reply) != 0) {
        return {};
    }
    return readTexts(reply);
}

int Audio::getOutputStatus(char const* str, bool* pOnoff) {
    // The number is part of the message that log readers know.
    constexpr int kMessageLine = 527;

    int result = 0;
    if (str == nullptr || pOnoff == nullptr) {
        __android_log_print(ANDROID_LOG_ERROR, nullptr, "getOutputStatus input buf is null");
        result = -1;
    }
    Parcel reply;
    if (Request().text(str).send(CMDID_AUDIO_GET_OUTPUT_ENABLE, reply) != 0) {
        __android_log_print(ANDROID_LOG_ERROR, nullptr, "[%d] getOutputStatus,err,force pOnoff = 0", kMessageLine);
        return result;
    }
    storeIfGiven(pOnoff, reply.readInt32() != 0);
    return result;
}
