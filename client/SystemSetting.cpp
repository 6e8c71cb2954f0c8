#include "CommandCalls.h"
#include "Marshalling.h"

#include <kelutv/SystemSetting.h>
#include <kelutv/commands.h>
#include <kelutv/items.h>
#include <kelutv/link/TVBaseClient.h>

#include <android/log.h>
#include <binder/Parcel.h>

#include <algorithm>
#include <cstring>
#include <initializer_list>

using android::Parcel;
using android::TVBaseClient;
using namespace kelutv::internal;

namespace {

constexpr char kTag[] = "TVBASEMW@SystemSetting";
constexpr int kDispParaCount = 12;

int failed(const char* method, const char* reason) {
    __android_log_print(ANDROID_LOG_ERROR, kTag, "%s %s", method, reason);
    return -1;
}

int readBlock(int cmd, const char* method, int address, int* buf, int length) {
    if (buf == nullptr) {
        return failed(method, "input buf is null");
    }
    Parcel reply;
    if (TVBaseClient::self()->exeCmdGet(cmd, address, length, reply) != 0) {
        return -1;
    }
    readValues(reply, buf, length);
    return 0;
}

int writeBlock(int cmd, int address, const int* buf, int length) {
    return Request().values(buf, length).sendBehind(cmd, address, length);
}

/** The line numbers are part of the messages. */
int tellSuccess(const char* method, int line) {
    __android_log_print(ANDROID_LOG_DEBUG, kTag, "[%s, %d] success", method, line);
    return 0;
}

int tellFailure(const char* method, int line) {
    __android_log_print(ANDROID_LOG_ERROR, kTag, "[%s, %d] failed", method, line);
    return -1;
}

/** The size is the service's. Bytes that the reply does not hold are 0, as far as the caller's room goes. */
void readSizedBytes(const Parcel& reply, void* bytes, int size, int room) {
    if (size <= 0) {
        return;
    }
    const size_t held = std::min(static_cast<size_t>(size), reply.dataAvail());
    const size_t wanted = static_cast<size_t>(std::clamp(room, 0, size));
    const size_t copied = reply.read(bytes, held) == android::NO_ERROR ? held : 0;
    if (copied < wanted) {
        std::memset(static_cast<char*>(bytes) + copied, 0, wanted - copied);
    }
}

} // namespace

SystemSetting* SystemSetting::instance() {
    static SystemSetting mObj;
    return &mObj;
}

// Defaults and screen

int SystemSetting::restoreDefault() { return TVBaseClient::self()->exeCmdSet(CMD_SYSTEM_RESTOREDEFAULT); }

bool SystemSetting::isScreenBlueEnable() { return TVBaseClient::self()->exeCmdGet(CMD_SYSTEM_GETSCREENBLUE) != 0; }

int SystemSetting::enableScreenBlue(bool onoff) {
    return TVBaseClient::self()->exeCmdSet(CMD_SYSTEM_SETSCREENBLUE, onoff);
}

int SystemSetting::setDispFixOutRate(int fixFrmRate) {
    return TVBaseClient::self()->exeCmdSet(CMD_SYSTEM_SETPANELFIXOUTRATE, fixFrmRate);
}

int SystemSetting::notifyPlatfromMediaInfo(int width, int heigh, int hdrType, int isVideo) {
    return TVBaseClient::self()->exeCmdSet(CMD_SYSTEM_NOTIFY_PLATFROM_MEDIAINFO, width, heigh, hdrType, isVideo);
}

std::list<int> SystemSetting::getSupportedTvResolution() {
    Parcel reply;
    if (TVBaseClient::self()->exeCmdGet(CMD_SYSTEM_GETSUPPORTEDTVRESOLUTION, reply) != 0) {
        return {};
    }
    return readNumbers(reply);
}

// Power

int SystemSetting::enterStrSuspend() { return TVBaseClient::self()->exeCmdSet(CMD_SYSTEM_SET_ENTER_STR_SUSPEND); }

int SystemSetting::strResume() { return TVBaseClient::self()->exeCmdSet(CMD_SYSTEM_SET_STR_RESUME); }

int SystemSetting::enterNormalSuspend() { return TVBaseClient::self()->exeCmdSet(CMD_SYSTEM_SET_ENTER_NORMAL_SUSPEND); }

int SystemSetting::enterShallowSuspend() {
    return TVBaseClient::self()->exeCmdSet(CMD_SYSTEM_SET_ENTER_SHALLOW_SUSPEND);
}

int SystemSetting::shallowResume() { return TVBaseClient::self()->exeCmdSet(CMD_SYSTEM_SET_SHALLOW_RESUME); }

int SystemSetting::preSuspendForPlugin() { return TVBaseClient::self()->exeCmdSet(CMD_SYSTEM_PRESUSPEND_FOR_PLUGIN); }

int SystemSetting::prepareReboot() { return TVBaseClient::self()->exeCmdSet(CMD_SYSTEM_PREPARE_REBOOT); }

int SystemSetting::preSuspend() { return TVBaseClient::self()->exeCmdSet(CMD_SYSTEM_PRESUSPEND); }

int SystemSetting::suspend() { return TVBaseClient::self()->exeCmdSet(CMD_SYSTEM_SUSPEND); }

int SystemSetting::resume(int powerType) { return TVBaseClient::self()->exeCmdSet(CMD_SYSTEM_RESUME, powerType); }

int SystemSetting::setStandbyReason(int reason) {
    return TVBaseClient::self()->exeCmdSet(CMD_SYSTEM_SETSTANDBYREASON, reason);
}

int SystemSetting::setHalfStandby(int value) {
    return TVBaseClient::self()->exeCmdSet(CMD_SYSTEM_SETHALFSTANDBY, value);
}

int SystemSetting::getHalfStandby() { return TVBaseClient::self()->exeCmdGet(CMD_SYSTEM_GETHALFSTANDBY); }

int SystemSetting::getWakeupMode() { return TVBaseClient::self()->exeCmdGet(CMD_SYSTEM_GETWAKEUPMODE); }

int SystemSetting::setTimerWakeupParam(int wakeupTime, int timerWakeupMode, int isNeedPanelOn) {
    return TVBaseClient::self()->exeCmdGet(CMD_SYSTEM_SET_TIMER_WAKEUP_PARAM, wakeupTime, timerWakeupMode,
                                           isNeedPanelOn);
}

int SystemSetting::getLastPowerOffMode() { return TVBaseClient::self()->exeCmdGet(CMD_SYSTEM_GETLASTPOWEROFFMODE); }

// Start

int SystemSetting::getBootVersion(char* pStr) {
    if (pStr == nullptr) {
        return failed("getBootVersion", "buf is null");
    }
    Parcel reply;
    if (TVBaseClient::self()->exeCmdGet(CMD_SYSTEM_GETBOOTVERSION, reply) != 0) {
        return failed("getBootVersion", "error,return error");
    }
    return copyText(reply, pStr) ? 0 : failed("getBootVersion", "error,return null");
}

int SystemSetting::setBootPicPath(char const* path) {
    return TVBaseClient::self()->exeCmdSet(CMD_SYSTEM_SETBOOTPICPATH, path);
}

int SystemSetting::getTvStartMode() { return TVBaseClient::self()->exeCmdGet(CMD_SYSTEM_GET_TV_START_MODE); }

int SystemSetting::setTvStartMode(int mode) {
    return TVBaseClient::self()->exeCmdSet(CMD_SYSTEM_SET_TV_START_MODE, mode);
}

// Keys and camera

bool SystemSetting::isLSADCKeyEnable() { return TVBaseClient::self()->exeCmdGet(CMD_SYSTEM_GETLSADCKEY) != 0; }

int SystemSetting::enableLSADCKey(bool onoff) { return TVBaseClient::self()->exeCmdSet(CMD_SYSTEM_SETLSADCKEY, onoff); }

int SystemSetting::reportKeyEvent(KELU_TV_LINUX_KEYCODE_E iKeyValue, KELU_TV_KPC_EV_KEY_E iStatus) {
    return TVBaseClient::self()->exeCmdSet(CMD_SYSTEM_SET_REPOKEYEVENT, iKeyValue, iStatus);
}

int SystemSetting::setCameraUpDown(int mode) {
    return TVBaseClient::self()->exeCmdSet(CMD_SYSTEM_SETCAMERAUPDOWN, mode);
}

// Storage

int SystemSetting::getEepByte(int u32Address) {
    return TVBaseClient::self()->exeCmdGet(CMD_SYSTEM_GETEEPBYTE, u32Address);
}

int SystemSetting::getEepMulti(int u32Address, int* buf, int u32Len) {
    return readBlock(CMD_SYSTEM_GETEEPMULTI, "getEepMulti", u32Address, buf, u32Len);
}

int SystemSetting::setEepByte(int u32Address, int value) {
    return TVBaseClient::self()->exeCmdSet(CMD_SYSTEM_SETEEPBYTE, u32Address, value);
}

int SystemSetting::setEepMulti(int u32Address, int* buf, int u32Len) {
    return writeBlock(CMD_SYSTEM_SETEEPMULTI, u32Address, buf, u32Len);
}

int SystemSetting::getFlashEepByte(int u32Address) {
    return TVBaseClient::self()->exeCmdGet(CMD_SYSTEM_GETFLASHEEPBYTE, u32Address);
}

int SystemSetting::getFlashEepMulti(int u32Address, int* buf, int u32Len) {
    return readBlock(CMD_SYSTEM_GETFLASHEEPMULTI, "getFlashEepMulti", u32Address, buf, u32Len);
}

int SystemSetting::setFlashEepByte(int u32Address, int value) {
    return TVBaseClient::self()->exeCmdSet(CMD_SYSTEM_SETFLASHEEPBYTE, u32Address, value);
}

int SystemSetting::setFlashEepMulti(int u32Address, int* buf, int u32Len) {
    return writeBlock(CMD_SYSTEM_SETFLASHEEPMULTI, u32Address, buf, u32Len);
}

int SystemSetting::setFlashEepFlush() { return TVBaseClient::self()->exeCmdSet(CMD_SYSTEM_SETFLASHEEPFLUSH); }

// Lamps and sound bar

int SystemSetting::setPWMInfo(int pwmType, bool enable, int freq, int duty, bool invert) {
    return TVBaseClient::self()->exeCmdSet(CMD_SYSTEM_SET_PWM_INFO, pwmType, enable, freq, duty, invert);
}

int SystemSetting::enableSoundbarMode(bool enable) {
    return TVBaseClient::self()->exeCmdSet(CMD_SYSTEM_SET_SOUNDBAR_MODE, enable);
}

bool SystemSetting::isSoundbarModeEnable() {
    return TVBaseClient::self()->exeCmdGet(CMD_SYSTEM_GET_SOUNDBAR_MODE) != 0;
}

// OLED panel

bool SystemSetting::isOledEnabled() { return TVBaseClient::self()->exeCmdGet(CMD_SYSTEM_OLEDENABLED) != 0; }

bool SystemSetting::OledJbOffrsRepairProc() { return TVBaseClient::self()->exeCmdGet(CMD_SYSTEM_OLEDREPAIRPROC) != 0; }

int SystemSetting::getOledOffRsTime() { return TVBaseClient::self()->exeCmdGet(CMD_SYSTEM_GETOLEDOFFRSTIME); }

bool SystemSetting::setPanelOffrsRepair() { return TVBaseClient::self()->exeCmdGet(CMD_SYSTEM_SETOLEDOFFRSPROC) != 0; }

// Output of a box

int SystemSetting::getOutput4k2k() { return TVBaseClient::self()->exeCmdGet(CMD_SYSTEM_GETOUTPUT4K2K); }

int SystemSetting::setOutput4k2k(int mode) { return TVBaseClient::self()->exeCmdSet(CMD_SYSTEM_SETOUTPUT4K2K, mode); }

int SystemSetting::setBoxOutputDispPara(int iLeft, int iTop, int iRight, int iBottom) {
    return TVBaseClient::self()->exeCmdSet(CMD_SYSTEM_SET_BOX_OUTPUT_DISP_PARA, iLeft, iTop, iRight, iBottom);
}

int SystemSetting::getBoxOutputDispPara(int* pbuf) {
    Parcel reply;
    if (TVBaseClient::self()->exeCmdGet(CMD_SYSTEM_GET_BOX_OUTPUT_DISP_PARA, reply) != 0) {
        return -1;
    }
    readValues(reply, pbuf, kDispParaCount);
    return 0;
}

int SystemSetting::getBoxOutputFormat() { return TVBaseClient::self()->exeCmdGet(CMD_SYSTEM_GET_BOX_OUTPUT_FORMAT); }

int SystemSetting::setBoxOutputFormat(int format) {
    return TVBaseClient::self()->exeCmdSet(CMD_SYSTEM_SET_BOX_OUTPUT_FORMAT, format);
}

// Ambient display and screen saving

int SystemSetting::setAodState(int mode) { return TVBaseClient::self()->exeCmdSet(CMD_SYSTEM_SET_AOD_STATE, mode); }

int SystemSetting::setAodUIMode(int mode) { return TVBaseClient::self()->exeCmdSet(CMD_SYSTEM_SET_AODUI_MODE, mode); }

int SystemSetting::getAodUIMode() { return TVBaseClient::self()->exeCmdGet(CMD_SYSTEM_GET_AODUI_MODE); }

int SystemSetting::getAICloseScreenMode() { return TVBaseClient::self()->exeCmdGet(CMD_SYSTEM_GET_AICLOSESCREENMODE); }

int SystemSetting::setAICloseScreenMode(int mode) {
    return TVBaseClient::self()->exeCmdSet(CMD_SYSTEM_SET_AICLOSESCREENMODE, mode);
}

int SystemSetting::setAIScreenStandby(int mode) {
    return TVBaseClient::self()->exeCmdSet(CMD_SYSTEM_SET_AICLOSESCREENSTANDBY, mode);
}

bool SystemSetting::isSupportAIStandby() {
    return TVBaseClient::self()->exeCmdGet(CMD_SYSTEM_GETISSUPPORTAISTANDBY) != 0;
}

// Generic items

int SystemSetting::setSystemItemValue(int cmdID, int param1, int param2, int param3, int param4) {
    return TVBaseClient::self()->exeCmdSet(CMD_SYSTEM_COMMON_SET_ITEM_VALUE, cmdID, param1, param2, param3, param4);
}

int SystemSetting::getSystemItemValue(int cmdID, int param1, int param2, int* pData) {
    if (pData == nullptr) {
        return failed("getSystemItemValue", "input buf is null");
    }
    Parcel reply;
    if (TVBaseClient::self()->exeCmdGet(CMD_SYSTEM_COMMON_GET_ITEM_VALUE, cmdID, param1, param2, reply) != 0) {
        return -1;
    }
    readItemValues(reply, pData);
    return 0;
}

int SystemSetting::getSystemItemStrValue(int cmdID, int param1, int param2, char* data) {
    if (data == nullptr) {
        return failed("getSystemItemStrValue", "input buf is null");
    }
    Parcel reply;
    if (TVBaseClient::self()->exeCmdGet(CMD_SYSTEM_COMMON_GET_ITEM_STRVALUE, cmdID, param1, param2, reply) != 0) {
        return failed("getSystemItemStrValue", "error");
    }
    return copyText(reply, data) ? 0 : failed("getSystemItemStrValue", "output buf is null");
}

int SystemSetting::setSystemItemStrValue(int cmdID, int param1, int param2, char const* stringParam) {
    return TVBaseClient::self()->exeCmdSet(CMD_SYSTEM_COMMON_SET_ITEM_STRVALUE, cmdID, param1, stringParam, param2);
}

// Single items

int SystemSetting::systemReboot() { return setSystemItemValue(CMDID_SYSTEM_REBOOT, 0, 0, 0, 0); }

int SystemSetting::SetWirelessSubWooferGpio(int value) {
    return setSystemItemValue(CMDID_SYSTEM_SET_WIRELESS_SUBWOOFER_GPIO, value, 0, 0, 0);
}

int SystemSetting::SetMenuLanguage(int value) {
    return setSystemItemValue(CMDID_SYSTEM_SET_MENU_LANGUAGE, value, 0, 0, 0);
}

int SystemSetting::GetMenuLanguage(int* planguage) {
    return getSystemItemValue(CMDID_SYSTEM_GET_MENU_LANGUAGE, 0, 0, planguage);
}

int SystemSetting::GetIsEthandWifiCompatible(int* pdata) {
    return getSystemItemValue(CMDID_SYSTEM_GET_IS_ETHANDWIFICOMPATIBLE, 0, 0, pdata);
}

int SystemSetting::GetIsSupportSoundCareMode(int* pdata) {
    return getSystemItemValue(CMDID_SYSTEM_GET_IS_SUPPORT_SOUND_CARE_MODE, 0, 0, pdata);
}

int SystemSetting::SetSoundBarAudioInputSource(int value) {
    return setSystemItemValue(CMDID_SYSTEM_SET_SOUNDBAR_AUDIO_INPUT_SOURCE, value, 0, 0, 0);
}

int SystemSetting::GetSoundBarAudioInputSource(int* pdata) {
    return getSystemItemValue(CMDID_SYSTEM_GET_SOUNDBAR_AUDIO_INPUT_SOURCE, 0, 0, pdata);
}

// Raw channels

int SystemSetting::dtvControl(int cmd, void* pData, int dataSize) {
    Parcel reply;
    if (!succeeds(*TVBaseClient::self(), CMD_SYSTEM_DTV_CHANGE_CHANNEL, {cmd, dataSize, {pData, dataSize}}, reply)) {
        return tellFailure("dtvControl", 605);
    }
    return tellSuccess("dtvControl", 600);
}

int SystemSetting::sendCmdToTVServer(int cmd, void* pInputData, int inSize, void* pOutputData, int* outSize) {
    const char* const method = "sendCmdToTVServer";
    __android_log_print(ANDROID_LOG_DEBUG, kTag, "[%s, %d] cmd = 0x%x, inSize = %d", method, 616,
                        static_cast<unsigned int>(cmd), inSize);
    const int capacity = outSize == nullptr ? 0 : *outSize;
    Parcel reply;
    if (!succeeds(*TVBaseClient::self(), CMD_SYSTEM_DTV_CMD_TO_TV, {cmd, inSize, capacity, {pInputData, inSize}},
                  reply)) {
        return tellFailure(method, 652);
    }
    tellSuccess(method, 637);
    if (pOutputData != nullptr && outSize != nullptr) {
        *outSize = reply.readInt32();
        __android_log_print(ANDROID_LOG_DEBUG, kTag, "[%s, %d] outSize = %d", method, 642, *outSize);
        readSizedBytes(reply, pOutputData, *outSize, capacity);
    }
    return 0;
}
