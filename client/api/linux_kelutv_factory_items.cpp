#include "Marshalling.h"

#include <kelutv/Factory.h>
#include <kelutv/items.h>
#include <kelutv/linux_kelutv_factory.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <limits>

using namespace kelutv::internal;

namespace {

ItemAnswer readItem(int item, int param = 0) {
    ItemAnswer answer;
    answer.result = Factory::instance()->getFactoryItemValue(item, param, 0, answer.values.data());
    return answer;
}

int setItem(int item, int param1, int param2 = 0) {
    return Factory::instance()->setFactoryItemValue(item, param1, param2, 0, 0);
}

int readTextItem(int item, int param, char* text) {
    return Factory::instance()->getFactoryItemStrValue(item, param, 0, text);
}

int setTextItem(int item, int param, const char* text) {
    return Factory::instance()->setFactoryItemStrValue(item, param, 0, text);
}

/** Cuts towards zero; 0 for not-a-number, and the nearest int for what none holds. */
int toInt(double number) {
    constexpr double kLeast = std::numeric_limits<int>::min();
    constexpr double kMost = std::numeric_limits<int>::max();
    return std::isnan(number) ? 0 : static_cast<int>(std::clamp(number, kLeast, kMost));
}

} // namespace

// Product

int linux_tv_Factory_getMachineInfo(int type, char* info) {
    return readTextItem(CMDID_FACTORY_GET_MACHINEINFO, type, info);
}

int linux_tv_Factory_setMachineInfo(int type, char* info) {
    return setTextItem(CMDID_FACTORY_SET_MACHINEINFO, type, info);
}

int linux_tv_Factory_getProductNumber(char* PID) { return readTextItem(CMDID_FACTORY_GET_PRODUCT_NUMBER, 0, PID); }

int linux_tv_Factory_getOrderNumber(char* OrderNum) {
    return readTextItem(CMDID_FACTORY_GET_ORDER_NUMBER, 0, OrderNum);
}

int linux_tv_Factory_getDeveloperID(char* pData) { return readTextItem(CMDID_FACTORY_GET_DEVELOPER_ID, 0, pData); }

int linux_tv_Factory_getProductID(char* pData) { return readTextItem(CMDID_FACTORY_GET_PRODUCE_ID, 0, pData); }

int linux_tv_Factory_getPassWord(int type, char* pwd) { return readTextItem(CMDID_FACTORY_GET_PASSWORD, type, pwd); }

int linux_tv_Factory_getSeperateDataVer(char* ver) { return readTextItem(CMDID_FACTORY_GET_SEPERATE_DATA_VER, 0, ver); }

int linux_tv_Factory_getCountry(int* country) { return storeValue(readItem(CMDID_FACTORY_GET_COUNTRY), country); }

int linux_tv_Factory_setCountry(int country) { return setItem(CMDID_FACTORY_SET_COUNTRY, country); }

int linux_tv_Factory_getCountryList(int* pCountryList, int* pListSize) {
    return storeCountedList(readItem(CMDID_FACTORY_GET_COUNTRY_LIST), pCountryList, pListSize);
}

int linux_tv_Factory_getFrontendList(int* pFrontendList, int* pListSize) {
    return storeCountedList(readItem(CMDID_FACTORY_GET_FRONTEND_LIST), pFrontendList, pListSize);
}

int linux_tv_Factory_getProductArea(int* Area) { return storeValue(readItem(CMDID_FACTORY_GET_PRODUCT_AREA), Area); }

int linux_tv_Factory_getCustomerName(int* customerName) {
    return storeValue(readItem(CMDID_FACTORY_GET_CUSTOMER_NAME), customerName);
}

int linux_tv_Factory_getUIStyle(int* UIStyle) { return storeValue(readItem(CMDID_FACTORY_GET_UI_STYLE), UIStyle); }

int linux_tv_Factory_getAPPStore(int* APPStore) { return storeValue(readItem(CMDID_FACTORY_GET_APP_STORE), APPStore); }

int linux_tv_Factory_getIrProtocol(int* pIrProtocol) {
    return storeValue(readItem(CMDID_FACTORY_GET_IR_PROTOCOL), pIrProtocol);
}

int linux_tv_Factory_getKeyPadType(int* pType) { return storeValue(readItem(CMDID_FACTORY_GET_KEYPAD_TYPE), pType); }

// Switches

int linux_tv_Factory_getHotkeyMode(bool* mode) { return storeFlag(readItem(CMDID_FACTORY_GET_HOTKEY), mode); }

int linux_tv_Factory_setHotkeyMode(bool mode) { return setItem(CMDID_FACTORY_SET_HOTKEY, mode); }

int linux_tv_Factory_getTIMode(bool* mode) { return storeFlag(readItem(CMDID_FACTORY_GET_TI_MODE), mode); }

int linux_tv_Factory_setTIMode(bool mode) { return setItem(CMDID_FACTORY_SET_TI_MODE, mode); }

int linux_tv_Factory_getBluetoothEnable(bool* pEnable) {
    return storeFlag(readItem(CMDID_FACTORY_GET_BLUETOOTH_ENABLE), pEnable);
}

int linux_tv_Factory_setBluetoothEnable(bool enable) { return setItem(CMDID_FACTORY_SET_BLUETOOTH_ENABLE, enable); }

int linux_tv_Factory_getCIEnable(bool* pEnable) { return storeFlag(readItem(CMDID_FACTORY_GET_CI_ENABLE), pEnable); }

int linux_tv_Factory_setCIEnable(bool enable) { return setItem(CMDID_FACTORY_SET_CI_ENABLE, enable); }

int linux_tv_Factory_getPVREnable(bool* pEnable) { return storeFlag(readItem(CMDID_FACTORY_GET_PVR_ENABLE), pEnable); }

int linux_tv_Factory_setPVREnable(bool enable) { return setItem(CMDID_FACTORY_SET_PVR_ENABLE, enable); }

int linux_tv_Factory_getAlexaEnable(bool* pEnable) {
    return storeFlag(readItem(CMDID_FACTORY_GET_ALEXA_ENABLE), pEnable);
}

int linux_tv_Factory_setAlexaEnable(bool enable) { return setItem(CMDID_FACTORY_SET_ALEXA_ENABLE, enable); }

int linux_tv_Factory_getVoiceEnable(bool* pEnable) {
    return storeFlag(readItem(CMDID_FACTORY_GET_VOICE_ENABLE), pEnable);
}

int linux_tv_Factory_setVoiceEnable(bool enable) { return setItem(CMDID_FACTORY_SET_VOICE_ENABLE, enable); }

int linux_tv_Factory_getVoiceCuesEnable(bool* pEnable) {
    return storeFlag(readItem(CMDID_FACTORY_GET_VOICECUES_ENABLE), pEnable);
}

int linux_tv_Factory_setVoiceCuesEnable(bool enable) { return setItem(CMDID_FACTORY_SET_VOICECUES_ENABLE, enable); }

int linux_tv_Factory_getPresentationEnable(bool* pEnable) {
    return storeFlag(readItem(CMDID_FACTORY_GET_PRESENTATION_ENABLE), pEnable);
}

int linux_tv_Factory_setPresentationEnable(bool enable) {
    return setItem(CMDID_FACTORY_SET_PRESENTATION_ENABLE, enable);
}

int linux_tv_Factory_getBacklightInversion(bool* polarity) {
    return storeFlag(readItem(CMDID_FACTORY_GET_BACKLIGHT_INVERSION), polarity);
}

int linux_tv_Factory_setBacklightInversion(bool polarity) {
    return setItem(CMDID_FACTORY_SET_BACKLIGHT_INVERSION, polarity);
}

// Panel, converter and temperature

int linux_tv_Factory_getPanelSwing(int* pSwing) { return storeValue(readItem(CMDID_FACTORY_GET_PANEL_SWING), pSwing); }

int linux_tv_Factory_setPanelSwing(int swing) { return setItem(CMDID_FACTORY_SET_PANEL_SWING, swing); }

int linux_tv_Factory_getPanelSize(char* size) { return readTextItem(CMDID_FACTORY_GET_PANEL_SIZE, 0, size); }

int linux_tv_Factory_getPanelInfo(char* info) { return readTextItem(CMDID_FACTORY_GET_PANEL_INFO, 0, info); }

int linux_tv_factory_getLvdsPort(int* pPort) { return storeValue(readItem(CMDID_FACTORY_GET_LVDS_SWAP_PORT), pPort); }

int linux_tv_factory_setLvdsPort(int port) { return setItem(CMDID_FACTORY_SET_LVDS_SWAP_PORT, port); }

int linux_tv_factory_getPanelSequence(int type, int* pValue) {
    return storeValue(readItem(CMDID_FACTORY_GET_PANEL_BOOT_SEQUENCE, type), pValue);
}

int linux_tv_factory_setPanelSequence(int type, int value) {
    return setItem(CMDID_FACTORY_SET_PANEL_BOOT_SEQUENCE, type, value);
}

int linux_tv_Factory_getLVDSTIBitMode(int* mode) {
    return storeValue(readItem(CMDID_FACTORY_GET_LVDS_TI_BITMODE), mode);
}

int linux_tv_Factory_setLVDSTIBitMode(int mode) { return setItem(CMDID_FACTORY_SET_LVDS_TI_BITMODE, mode); }

int linux_tv_Factory_getBootLogoIndex(int* index) {
    return storeValue(readItem(CMDID_FACTORY_GET_BOOT_LOGO_INDEX), index);
}

int linux_tv_Factory_setBootLogoIndex(int index) { return setItem(CMDID_FACTORY_SET_BOOT_LOGO_INDEX, index); }

int linux_tv_Factory_restoreADC() { return setItem(CMDID_FACTORY_SET_RESTORE_ADC, 0); }

int linux_tv_Factory_setAvcGain(double value) {
    const double whole = std::trunc(value);
    return setItem(CMDID_FACTORY_SET_AVC_GAIN, toInt(whole), toInt((value - whole) * 1000));
}

int linux_tv_Factory_getAvcGain(double* pValue) {
    const ItemAnswer answer = readItem(CMDID_FACTORY_GET_AVC_GAIN);
    storeIfGiven(pValue, answer.values[0] + answer.values[1] / 1000.0);
    return answer.result;
}

int linux_tv_Factory_getCurrentTemperature(int* value) {
    return storeValue(readItem(CMDID_FACTORY_GET_SOC_TEMP, KELU_MW_SOC_TEMP_REAL), value);
}

int linux_tv_Factory_getHistoryMaxTemperature(int* value) {
    return storeValue(readItem(CMDID_FACTORY_GET_SOC_TEMP, KELU_MW_SOC_TEMP_HISTORY_MAX), value);
}

// Keys

int linux_tv_Factory_setSeaAllKeyBurn(char* str) { return setTextItem(CMDID_FACTORY_SET_SEA_ALL_KEY_BURN, 0, str); }

int linux_tv_Factory_getKeyBurnStatus(int keyType, bool* pIsKeyBurned) {
    return storeFlag(readItem(CMDID_FACTORY_GET_KEY_BURN_STATUS, keyType), pIsKeyBurned);
}

int linux_tv_Factory_getKeySupportStatus(int keyType, bool* pIsKeySupport) {
    std::printf("getKeySupportStatus keyType = %d\n", keyType);
    if (pIsKeySupport == nullptr) {
        std::printf("getKeySupportStatus param is null");
        return -1;
    }
    return storeFlag(readItem(CMDID_FACTORY_GET_KEY_IS_SUPPORT, keyType), pIsKeySupport);
}

// Files and transfer

int linux_tv_Factory_deletePresentationData() { return setItem(CMDID_FACTORY_DEL_PRESENTATION_DATA, 0); }

int linux_tv_Factory_copyPresentationData(char* pPath) {
    return setTextItem(CMDID_FACTORY_COPY_PRESENTATION_DATA, 0, pPath);
}

int linux_tv_Factory_copyMWDB2USB(char* pPath) { return setTextItem(CMDID_FACTORY_COPY_MWDB2USB, 0, pPath); }

int linux_tv_Factory_copyUSBDB2MW(char* pPath) { return setTextItem(CMDID_FACTORY_COPY_USBDB2MW, 0, pPath); }

int linux_tv_Factory_updateBootLogo(char* pPath) { return setTextItem(CMDID_FACTORY_UPDATE_BOOTLOGO, 0, pPath); }

int linux_tv_Factory_exportSeparatedData(char* pPath) {
    return setTextItem(CMDID_FACTORY_EXPORT_SEPARATED_DATA, 0, pPath);
}

int linux_tv_Factory_importSeparatedData(char* pPath) {
    return setTextItem(CMDID_FACTORY_SET_IMPORT_SEPERAT_DATA, 0, pPath);
}

int linux_tv_Factory_upgradeFlashEEPROMCheck(char* pPath) {
    return setTextItem(CMDID_FACTORY_UPDATE_FLASHEEP_CHECK, 0, pPath);
}

int linux_tv_factory_copyPresetChannelDB2MW(char* pPath, int type) {
    return setTextItem(CMDID_FACTORY_COPY_PRECHANNEL2MW, type, pPath);
}

int linux_tv_factory_copyPresetChannelDB2USB(char* pPath, int type) {
    return setTextItem(CMDID_FACTORY_COPY_PRECHANNEL2USB, type, pPath);
}

int linux_tv_factory_presetChannel(char* pName) { return setTextItem(CMDID_FACTORY_PRESETCHANNEL, 0, pName); }

int linux_tv_Factory_setOtaUpdate(char* pData, bool bUpdate) {
    return setTextItem(CMDID_FACTORY_SET_OTA_UPDATE, bUpdate, pData);
}

int linux_tv_Factory_sendSelfCheckData(char* checkDataStr) {
    return setTextItem(CMDID_FACTORY_SEND_SERIAL_SELF_CHECK_DATA, 0, checkDataStr);
}
