#include "Marshalling.h"

#include <kelutv/SystemSetting.h>
#include <kelutv/items.h>
#include <kelutv/linux_kelutv_systemsetting.h>

#include <android/log.h>

#include <cstdio>

using namespace kelutv::internal;

namespace {

constexpr char kTag[] = "TVBASEMW@linuxSystemSetting";

// Items go through the exported functions, so that a program that puts its own in their place sees them.

ItemAnswer readItem(int item, int param = 0) {
    ItemAnswer answer;
    answer.result = linux_tv_SystemSetting_getSystemItemValue(item, param, 0, answer.values.data());
    return answer;
}

int setItem(int item, int param1, int param2 = 0) {
    return linux_tv_SystemSetting_setSystemItemValue(item, param1, param2, 0, 0);
}

} // namespace

// Defaults and screen

int linux_tv_SystemSetting_restoreDefault() { return SystemSetting::instance()->restoreDefault(); }

int linux_tv_SystemSetting_isScreenBlueEnable() { return SystemSetting::instance()->isScreenBlueEnable(); }

int linux_tv_SystemSetting_enableScreenBlue(bool onoff) { return SystemSetting::instance()->enableScreenBlue(onoff); }

int linux_tv_SystemSetting_setDispFixOutRate(int fixFrmRate) {
    return SystemSetting::instance()->setDispFixOutRate(fixFrmRate);
}

int linux_tv_SystemSetting_getSupportedTvResolution(int* pModeList, int* pListSize) {
    const std::list<int> modes = SystemSetting::instance()->getSupportedTvResolution();
    copyNumbers(modes, pModeList, pListSize);
    return modes.empty() ? -1 : 0;
}

// Power

int linux_tv_SystemSetting_preSuspendForPlugin() { return SystemSetting::instance()->preSuspendForPlugin(); }

int linux_tv_SystemSetting_prepareReboot() { return SystemSetting::instance()->prepareReboot(); }

int linux_tv_SystemSetting_preSuspend() { return SystemSetting::instance()->preSuspend(); }

int linux_tv_SystemSetting_suspend() { return SystemSetting::instance()->suspend(); }

int linux_tv_SystemSetting_resume(int powerType) { return SystemSetting::instance()->resume(powerType); }

int linux_tv_SystemSetting_setStandbyReason(int reason) { return SystemSetting::instance()->setStandbyReason(reason); }

int linux_tv_SystemSetting_setHalfStandby(int value) { return SystemSetting::instance()->setHalfStandby(value); }

int linux_tv_SystemSetting_getHalfStandby() { return SystemSetting::instance()->getHalfStandby(); }

int linux_tv_SystemSetting_getWakeupMode() { return SystemSetting::instance()->getWakeupMode(); }

int linux_tv_SystemSetting_getLastPowerOffMode() { return SystemSetting::instance()->getLastPowerOffMode(); }

// Start

int linux_tv_SystemSetting_getBootVersion(char* pStr) {
    return pStr == nullptr ? -1 : SystemSetting::instance()->getBootVersion(pStr);
}

int linux_tv_SystemSetting_setBootPicPath(const char* pathName) {
    return pathName == nullptr ? -1 : SystemSetting::instance()->setBootPicPath(pathName);
}

int linux_tv_SystemSetting_getTvStartMode() { return SystemSetting::instance()->getTvStartMode(); }

int linux_tv_SystemSetting_setTvStartMode(int mode) { return SystemSetting::instance()->setTvStartMode(mode); }

// Keys and camera

int linux_tv_SystemSetting_isLSADCKeyEnable() { return SystemSetting::instance()->isLSADCKeyEnable(); }

int linux_tv_SystemSetting_enableLSADCKey(bool onoff) { return SystemSetting::instance()->enableLSADCKey(onoff); }

int linux_tv_SystemSetting_reportKeyEvent(KELU_TV_LINUX_KEYCODE_E iKeyValue, KELU_TV_KPC_EV_KEY_E iStatus) {
    __android_log_print(ANDROID_LOG_INFO, kTag, "linnuxapi %s iKeyValue = %d,iStatus = %d",
                        "linux_tv_SystemSetting_reportKeyEvent", iKeyValue, iStatus);
    return SystemSetting::instance()->reportKeyEvent(iKeyValue, iStatus);
}

int linux_tv_SystemSetting_setCameraUpDown(int mode) { return SystemSetting::instance()->setCameraUpDown(mode); }

// Lamps and sound bar

int linux_tv_SystemSetting_setPWMInfo(int pwmType, bool enable, int freq, int duty, bool invert) {
    return SystemSetting::instance()->setPWMInfo(pwmType, enable, freq, duty, invert);
}

int linux_tv_SystemSetting_enableSoundbarMode(bool enable) {
    return SystemSetting::instance()->enableSoundbarMode(enable);
}

int linux_tv_SystemSetting_isSoundbarModeEnable() { return SystemSetting::instance()->isSoundbarModeEnable(); }

// OLED panel

int linux_tv_SystemSetting_isOledEnabled() { return SystemSetting::instance()->isOledEnabled(); }

int linux_tv_SystemSetting_OledJbOffrsRepairProc() { return SystemSetting::instance()->OledJbOffrsRepairProc(); }

int linux_tv_SystemSetting_getOledOffRsTime() { return SystemSetting::instance()->getOledOffRsTime(); }

int linux_tv_SystemSetting_setPanelOffrsRepair() { return SystemSetting::instance()->setPanelOffrsRepair(); }

// Output of a box

int linux_tv_SystemSetting_getOutput4k2k() { return SystemSetting::instance()->getOutput4k2k(); }

int linux_tv_SystemSetting_setOutput4k2k(int mode) { return SystemSetting::instance()->setOutput4k2k(mode); }

int linux_tv_SystemSetting_setBoxOutputDispPara(int iLeft, int iTop, int iRight, int iBottom) {
    return SystemSetting::instance()->setBoxOutputDispPara(iLeft, iTop, iRight, iBottom);
}

int linux_tv_SystemSetting_getBoxOutputDispPara(int* pBuf) {
    return pBuf == nullptr ? -1 : SystemSetting::instance()->getBoxOutputDispPara(pBuf);
}

int linux_tv_SystemSetting_getBoxOutputFormat() { return SystemSetting::instance()->getBoxOutputFormat(); }

int linux_tv_SystemSetting_setBoxOutputFormat(int format) {
    return SystemSetting::instance()->setBoxOutputFormat(format);
}

// Ambient display and screen saving

bool linux_tv_SystemSetting_getAICloseScreenMode() { return SystemSetting::instance()->getAICloseScreenMode() != 0; }

int linux_tv_SystemSetting_setAICloseScreenMode(bool mode) {
    return SystemSetting::instance()->setAICloseScreenMode(mode);
}

bool linux_tv_SystemSetting_setAIScreenStandby(int mode) {
    return SystemSetting::instance()->setAIScreenStandby(mode) != 0;
}

int linux_tv_SystemSetting_isSupportAIStandby() { return SystemSetting::instance()->isSupportAIStandby(); }

// Generic items

int linux_tv_SystemSetting_setSystemItemValue(int cmdID, int param1, int param2, int param3, int param4) {
    return SystemSetting::instance()->setSystemItemValue(cmdID, param1, param2, param3, param4);
}

int linux_tv_SystemSetting_getSystemItemValue(int cmdID, int param1, int param2, int* pData) {
    return pData == nullptr ? -1 : SystemSetting::instance()->getSystemItemValue(cmdID, param1, param2, pData);
}

int linux_tv_SystemSetting_setSystemItemStrValue(int cmdID, int param1, int param2, const char* stringParam) {
    return stringParam == nullptr
               ? -1
               : SystemSetting::instance()->setSystemItemStrValue(cmdID, param1, param2, stringParam);
}

int linux_tv_SystemSetting_getSystemItemStrValue(int cmdID, int param1, int param2, char* data) {
    return data == nullptr ? -1 : SystemSetting::instance()->getSystemItemStrValue(cmdID, param1, param2, data);
}

// Language

int linux_tv_SystemSetting_setLanguage(int lan) { return setItem(CMDID_SYSTEM_SET_MENU_LANGUAGE, lan); }

int linux_tv_SystemSetting_getLanguage() {
    const ItemAnswer answer = readItem(CMDID_SYSTEM_GET_MENU_LANGUAGE);
    if (answer.result == -1) {
        std::printf("linux_tv_SystemSetting_getSystemItemValue fail");
    }
    return answer.values[0];
}

int linux_tv_SystemSetting_getLanguageList(int* pCountryList, int* pListSize) {
    return storeCountedList(readItem(CMDID_SYSTEM_GET_LANGUAGE_LIST), pCountryList, pListSize);
}

int linux_tv_SystemSetting_getSubtitleLanList(int country, int* pLanList, int* pListSize) {
    const ItemAnswer answer = readItem(CMDID_SYSTEM_GET_SUBTITLE_AND_AUDIO_LANGUAGE, country);
    for (int i = 0; i < entriesOf(answer); ++i) {
        __android_log_print(ANDROID_LOG_INFO, kTag, "%s pLanList[%d] = %d", "linux_tv_SystemSetting_getSubtitleLanList",
                            i, answer.values[static_cast<size_t>(i) + 1]);
    }
    return storeCountedList(answer, pLanList, pListSize);
}

// The service and its software

int linux_tv_SystemSetting_getMiddlewareVersion(char* version) {
    return linux_tv_SystemSetting_getSystemItemStrValue(CMDID_SYSTEM_GET_MODULAR_VERSION, 0, 0, version);
}

int linux_tv_SystemSetting_getTvserverInitFinish(bool* pIsFinish) {
    return storeFlag(readItem(CMDID_SYSTEM_GET_TVSERVER_INIT_FINISH), pIsFinish);
}

int linux_tv_SystemSetting_setMarketModeEnable(bool enable) { return setItem(CMDID_SYSTEM_SET_MARKET_ENABLE, enable); }

int linux_tv_SystemSetting_getMarketModeEnable(bool* pEnable) {
    return storeFlag(readItem(CMDID_SYSTEM_GET_MARKET_ENABLE), pEnable);
}

int linux_tv_SystemSetting_setSingleCallBack(int event, bool isRegigster) {
    return setItem(CMDID_SYSTEM_SET_CALLBACK_EVNET, event, isRegigster);
}

int linux_tv_SystemSetting_getSocPlatformInfo(int* pPlatform) {
    return storeValue(readItem(CMDID_SYSTEM_GET_SOC_PLATFORM), pPlatform);
}

int linux_tv_SystemSetting_setSoftwareDebugMode(int mode) {
    return setItem(CMDID_SYSTEM_SET_SOFTWARE_DEBUG_MODE, mode);
}

int linux_tv_SystemSetting_getSoftwareDebugMode(int* pMode) {
    return storeValue(readItem(CMDID_SYSTEM_GET_SOFTWARE_DEBUG_MODE), pMode);
}

int linux_tv_SystemSetting_SetBootVideoStatus(int status) { return setItem(CMDID_SYSTEM_SET_BOOTVIDEO_STATUS, status); }

int linux_tv_SystemSetting_SetAPPInitStatus(int status) { return setItem(CMDID_SYSTEM_SET_APPINIT_STATUS, status); }

// Screen and reception

int linux_tv_SystemSetting_setScreenOn(bool onOff) { return setItem(CMDID_SYSTEM_SET_SCREEN_ON, onOff); }

int linux_tv_SystemSetting_getScreenOn(bool* pOnOff) { return storeFlag(readItem(CMDID_SYSTEM_GET_SCREEN_ON), pOnOff); }

int linux_tv_SystemSetting_SetVsyncStatus(int status) { return setItem(CMDID_SYSTEM_SET_VSYNC_STATUS, status); }

int linux_tv_SystemSetting_getAtvScanRange(int* pMinFre, int* pMaxFre) {
    const ItemAnswer answer = readItem(CMDID_SYSTEM_GET_ATV_SCAN_RANGE);
    storeIfGiven(pMinFre, answer.values[0]);
    storeIfGiven(pMaxFre, answer.values[1]);
    return answer.result;
}
