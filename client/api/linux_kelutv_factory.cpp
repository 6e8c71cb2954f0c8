#include "Marshalling.h"

#include <kelutv/Factory.h>
#include <kelutv/linux_kelutv_factory.h>

#include <android/log.h>

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <iterator>
#include <list>
#include <string>

using namespace kelutv::internal;

namespace {

struct WhiteBalancePattern {
    bool onoff;
    int red;
    int green;
    int blue;
};

/** By `KELU_TV_PATTERN_TYPE_E`. */
constexpr WhiteBalancePattern kWhiteBalancePatterns[] = {
    {false, 0, 0, 0},      {true, 51, 51, 51},    {true, 63, 63, 63},    {true, 127, 127, 127}, {true, 153, 153, 153},
    {true, 178, 178, 178}, {true, 204, 204, 204}, {true, 230, 230, 230}, {true, 255, 255, 255}, {true, 255, 0, 0},
    {true, 0, 255, 0},     {true, 0, 0, 255},     {true, 0, 0, 0},
};

std::atomic<int> testPatternIndex{0};

/** Stores the record, which is all zeros after a failed read; without a place for it nothing is read. */
template <typename Record, typename... Arguments>
int storeRecord(Record* record, Record (Factory::*read)(Arguments...), Arguments... arguments) {
    if (record == nullptr) {
        return -1;
    }
    *record = (Factory::instance()->*read)(arguments...);
    return 0;
}

/** A name stands at the start of a record of its own; one that fills its row has no terminator. */
void storeTableNames(const std::list<std::string>& names, BOE_OD_TableInfo* tables) {
    tables[0] = {};
    const std::size_t count = std::min(names.size(), std::size(tables->ODTableStr));
    auto name = names.begin();
    for (std::size_t i = 0; i < count; ++i, ++name) {
        name->copy(tables[i].ODTableStr[0], sizeof tables->ODTableStr[0]);
    }
}

} // namespace

// Calibration and white balance

int linux_tv_Factory_autoCalibration() { return Factory::instance()->autoCalibration(); }

int linux_tv_Factory_getADCGainOffset(int srcId, CalibrationInfo* pstInfo) {
    return storeRecord(pstInfo, &Factory::getADCGainOffset, srcId);
}

int linux_tv_Factory_setADCGainOffset(int srcId, CalibrationInfo info) {
    return Factory::instance()->setADCGainOffset(srcId, info);
}

int linux_tv_Factory_getColorTemp(int colorTempLevel, ColorTempData* pstColorTemp) {
    return storeRecord(pstColorTemp, &Factory::getColorTemp, colorTempLevel);
}

int linux_tv_Factory_setColorTemp(int srcId, ColorTempData info) {
    return Factory::instance()->setColorTemp(srcId, info);
}

int linux_tv_Factory_getNLAPoint(int item, NlaInfo* pstNlaInfo, KELU_TV_SRC_E srcId) {
    return storeRecord(pstNlaInfo, &Factory::getNLAPoint, item, srcId);
}

int linux_tv_Factory_setNLAPoint(int item, NlaInfo info) { return Factory::instance()->setNLAPoint(item, info); }

int linux_tv_Factory_updataNLAToSource() { return Factory::instance()->updataNLAToSource(); }

int linux_tv_Factory_restoreColorTemp() { return Factory::instance()->restoreColorTemp(); }

int getAutoColorTempDebugInfo(int colorTemp, char* pStr) {
    return Factory::instance()->getAutoColorTempDebugInfo(pStr, colorTemp);
}

int linux_tv_Factory_setWhiteBalanceColor(bool onoff, int red, int green, int blue) {
    return Factory::instance()->setWhiteBalanceColor(onoff, red, green, blue);
}

int linux_tv_Factory_setWBWhitePattern(int type) {
    if (type < 0 || type >= static_cast<int>(std::size(kWhiteBalancePatterns))) {
        std::printf("unhandled cmd type = %d", type);
        return 0;
    }
    const auto& [onoff, red, green, blue] = kWhiteBalancePatterns[type];
    const int result = linux_tv_Factory_setWhiteBalanceColor(onoff, red, green, blue);
    testPatternIndex.store(type, std::memory_order_relaxed);
    return result;
}

int linux_tv_Factory_getWBWhitePattern() { return testPatternIndex.load(std::memory_order_relaxed); }

int linux_tv_Factory_isSupportSocWhiteBalancePattern() {
    return Factory::instance()->isSupportSocWhiteBalancePattern();
}

int linux_tv_factory_enterIrWBAdj() { return Factory::instance()->enterIrWBAdj(); }

int linux_tv_Factory_getIRWBStatus() { return Factory::instance()->getIRWBStatus(); }

int linux_tv_factory_getIRWBStatus(int* pResult) {
    storeIfGiven(pResult, Factory::instance()->getIRWBStatus());
    return 0;
}

int linux_tv_Factory_pqSetGammaValue(int value) { return Factory::instance()->pqSetGammaValue(value); }

int linux_tv_Factory_getPQBinVersion(char* pPQBinVersion) {
    return Factory::instance()->getPQBinVersion(pPQBinVersion);
}

int linux_tv_Factory_pqIoCtl(KELU_TV_PQ_IOCTL_CMD_E cmdID, void* pParm) {
    return Factory::instance()->pqIoCtl(cmdID, pParm);
}

// Overscan, panel and memory spread, patterns

int linux_tv_Factory_getOverscan(KeluRect* pRect) { return storeRecord(pRect, &Factory::getOverscan); }

int linux_tv_Factory_setOverscan(KeluRect rect) { return Factory::instance()->setOverscan(rect); }

int linux_tv_Factory_getPanelIntfOutEnable() { return Factory::instance()->getPanelIntfOutEnable() != 0; }

int linux_tv_Factory_setPanelIntfOutEnable(bool onoff) { return Factory::instance()->setPanelIntfOutEnable(onoff); }

int linux_tv_Factory_getPanelSpreadEnable() { return Factory::instance()->getPanelSpreadEnable(); }

int linux_tv_Factory_setPanelSpreadEnable(bool onoff) { return Factory::instance()->setPanelSpreadEnable(onoff); }

int linux_tv_Factory_getPanelSpreadRatio() { return Factory::instance()->getPanelSpreadRatio(); }

int linux_tv_Factory_setPanelSpreadRatio(int ratio) { return Factory::instance()->setPanelSpreadRatio(ratio); }

int linux_tv_Factory_getPanelSpreadFreq() { return Factory::instance()->getPanelSpreadFreq(); }

int linux_tv_Factory_setPanelSpreadFreq(int freq) { return Factory::instance()->setPanelSpreadFreq(freq); }

int linux_tv_Factory_getPanelDrvCurrent() { return Factory::instance()->getPanelDrvCurrent(); }

int linux_tv_Factory_setPanelDrvCurrent(int current) { return Factory::instance()->setPanelDrvCurrent(current); }

int linux_tv_Factory_getPanelComVoltage() { return Factory::instance()->getPanelComVoltage(); }

int linux_tv_Factory_setPanelComVoltage(int voltage) { return Factory::instance()->setPanelComVoltage(voltage); }

int linux_tv_Factory_getPanelEmphasis() { return Factory::instance()->getPanelEmphasis(); }

int linux_tv_Factory_setPanelEmphasis(int ems) { return Factory::instance()->setPanelEmphasis(ems); }

int linux_tv_Factory_isDdrSpreadEnable() { return Factory::instance()->isDdrSpreadEnable(); }

int linux_tv_Factory_enableDdrSpread(bool onoff) { return Factory::instance()->EnableDdrSpread(onoff); }

int linux_tv_Factory_getDdrSpreadRatio() { return Factory::instance()->getDdrSpreadRatio(); }

int linux_tv_Factory_setDdrSpreadRatio(int ratio) { return Factory::instance()->setDdrSpreadRatio(ratio); }

int linux_tv_Factory_getDdrSpreadFreq() { return Factory::instance()->getDdrSpreadFreq(); }

int linux_tv_Factory_setDdrSpreadFreq(int freq) { return Factory::instance()->setDdrSpreadFreq(freq); }

int linux_tv_Factory_getGamma() { return Factory::instance()->getGamma(); }

int linux_tv_Factory_setGamma(int gamma) { return Factory::instance()->setGamma(gamma); }

int linux_tv_Factory_getTestPattern() { return Factory::instance()->getTestPattern(); }

int linux_tv_Factory_setTestPattern(int index) { return Factory::instance()->setTestPattern(index); }

int linux_tv_Factory_getPanelIndex() { return Factory::instance()->getPanelIndex(); }

int linux_tv_Factory_setPanelIndex(int index) { return Factory::instance()->setPanelIndex(index); }

int linux_tv_Factory_getPanelFlipMirror() { return Factory::instance()->getPanelFlipMirror(); }

int linux_tv_Factory_setPanelFlipMirror(int flip) { return Factory::instance()->setPanelFlipMirror(flip); }

int linux_tv_Factory_setIChipTestPattern(int pattern) { return Factory::instance()->setIChipTestPattern(pattern); }

// Backlight, LEDs and panel compensation

int linux_tv_Factory_getBackLightPwmMax() { return Factory::instance()->getBackLightPwmMax(); }

int linux_tv_Factory_setBackLightPwmMax(int pwmMax) { return Factory::instance()->setBackLightPwmMax(pwmMax); }

int linux_tv_Factory_getBackLightPwmMin() { return Factory::instance()->getBackLightPwmMin(); }

int linux_tv_Factory_setBackLightPwmMin(int pwmMin) { return Factory::instance()->setBackLightPwmMin(pwmMin); }

int linux_tv_Factory_getDreamPanelDeltaValue() { return Factory::instance()->getDreamPanelDeltaValue(); }

int linux_tv_Factory_setDreamPanelDeltaValue(int tmpValue) {
    return Factory::instance()->setDreamPanelDeltaValue(tmpValue);
}

int linux_tv_Factory_getDPBLMinOffset() { return Factory::instance()->getDPBLMinOffset(); }

int linux_tv_Factory_setDPBLMinOffset(int tmpValue) { return Factory::instance()->setDPBLMinOffset(tmpValue); }

int linux_tv_Factory_getLedDisturbingMode() { return Factory::instance()->getLedDisturbingMode(); }

int linux_tv_Factory_setLedDisturbingMode(int mode) { return Factory::instance()->setLedDisturbingMode(mode); }

int linux_tv_Factory_setBreathePlatformStatus(int arg1, int arg2) {
    return Factory::instance()->setBreathePlatformStatus(arg1, arg2);
}

int linux_tv_Factory_getOLEDPixelShiftEnable() { return Factory::instance()->getOLEDPixelShiftEnable(); }

int linux_tv_Factory_setOLEDPixelShiftEnable(int enable) {
    return Factory::instance()->setOLEDPixelShiftEnable(enable);
}

int linux_tv_Factory_getLineODIndex() { return Factory::instance()->getLineODIndex(); }

int linux_tv_Factory_setLineODIndex(int tmpIndex) { return Factory::instance()->setLineODIndex(tmpIndex); }

int linux_tv_Factory_getLineODListTable(BOE_OD_TableInfo* pTable) {
    const std::list<std::string> names = Factory::instance()->getLineODListTable();
    if (names.empty()) {
        return -1;
    }
    if (pTable != nullptr) {
        storeTableNames(names, pTable);
    }
    return 0;
}

int linux_tv_Factory_setVarietyLedControl(int ledType, int value) {
    return Factory::instance()->setVarietyLedControl(ledType, value);
}

// Tuner and sound

int linux_tv_Factory_isATVIniChnEnable() { return Factory::instance()->isATVIniChnEnable(); }

int linux_tv_Factory_enableATVIniChn(bool onoff) { return Factory::instance()->enableATVIniChn(onoff); }

int linux_tv_Factory_getOverModulation() { return Factory::instance()->getOverModulation(); }

int linux_tv_Factory_setOverModulation(int over) { return Factory::instance()->setOverModulation(over); }

int linux_tv_Factory_getFrequencyOffset() { return Factory::instance()->getFrequencyOffset(); }

int linux_tv_Factory_setFrequencyOffset(int offset) { return Factory::instance()->setFrequencyOffset(offset); }

int linux_tv_Factory_getTunerBandwidth() { return Factory::instance()->getTunerBandwidth(); }

int linux_tv_Factory_setTunerBandwidth(int bandwidth) { return Factory::instance()->setTunerBandwidth(bandwidth); }

int linux_tv_Factory_getNRThreshold() { return Factory::instance()->getNRThreshold(); }

int linux_tv_Factory_setNRThreshold(int level) { return Factory::instance()->setNRThreshold(level); }

int linux_tv_Factory_getAVCThreshold() { return Factory::instance()->getAVCThreshold(); }

int linux_tv_Factory_setAVCThreshold(int level) { return Factory::instance()->setAVCThreshold(level); }

int linux_tv_Factory_getSoundPEQ(SoundPeqData* pSoundPeq) { return storeRecord(pSoundPeq, &Factory::getSoundPEQ); }

int linux_tv_Factory_setSoundPEQ(SoundPeqData info) { return Factory::instance()->setSoundPEQ(info); }

int linux_tv_Factory_getSoundCurve(double* pSoundCurve, int length) {
    return pSoundCurve == nullptr ? -1 : Factory::instance()->getSoundCurve(pSoundCurve, length);
}

int linux_tv_Factory_setSoundCurve(double* info, int length) {
    return info == nullptr ? -1 : Factory::instance()->setSoundCurve(info, length);
}

int linux_tv_Factory_getSoundCurveCtlData(int* soundCurveCtlData, int* volumeNum) {
    return Factory::instance()->getSoundCurveCtlData(soundCurveCtlData, volumeNum);
}

int linux_tv_Factory_getHeadPhoneSoundCurveCtlData(int* soundCurveCtlData, int* volumeNum) {
    return Factory::instance()->getHeadPhoneSoundCurveCtlData(soundCurveCtlData, volumeNum);
}

// Generic items

int linux_tv_Factory_getNonStandardItemValue(int itemid) {
    return Factory::instance()->getNonStandardItemValue(itemid);
}

int linux_tv_Factory_setNonStandardItemValue(int itemid, int value) {
    return Factory::instance()->setNonStandardItemValue(itemid, value);
}

int linux_tv_Factory_getPerformanceItemValue(int itemid) {
    return Factory::instance()->getPerformanceItemValue(itemid);
}

int linux_tv_Factory_setPerformanceItemValue(int itemid, int value) {
    return Factory::instance()->setPerformanceItemValue(itemid, value);
}

int linux_tv_Factory_getOtherItemValue(int itemid) { return Factory::instance()->getOtherItemValue(itemid); }

int linux_tv_Factory_setOtherItemValue(int itemid, int value) {
    return Factory::instance()->setOtherItemValue(itemid, value);
}

int linux_tv_Factory_setFactoryItemValue(int cmdID, int param1, int param2, int param3, int param4) {
    return Factory::instance()->setFactoryItemValue(cmdID, param1, param2, param3, param4);
}

int linux_tv_Factory_getFactoryItemValue(int cmdID, int param1, int param2, int* pBuf) {
    return pBuf == nullptr ? -1 : Factory::instance()->getFactoryItemValue(cmdID, param1, param2, pBuf);
}

int linux_tv_Factory_setFactoryItemStrValue(int cmdID, int param1, int param2, const char* stringParam) {
    return stringParam == nullptr ? -1
                                  : Factory::instance()->setFactoryItemStrValue(cmdID, param1, param2, stringParam);
}

int linux_tv_Factory_getFactoryItemStrValue(int cmdID, int param1, int param2, char* pStr) {
    return pStr == nullptr ? -1 : Factory::instance()->getFactoryItemStrValue(cmdID, param1, param2, pStr);
}

// Power, modes and maintenance

int linux_tv_Factory_enableAgingMode(bool onoff) { return Factory::instance()->enableAgingMode(onoff); }

int linux_tv_Factory_isAgingModeEnable() { return Factory::instance()->isAgingModeEnable(); }

int linux_tv_Factory_resetNVM() { return Factory::instance()->resetNVM(); }

int linux_tv_Factory_resetAtvChannel() { return Factory::instance()->resetAtvChannel(); }

int linux_tv_Factory_startRecorderTsStream(const char* pathName) {
    return pathName == nullptr ? -1 : Factory::instance()->startRecorderTsStream(pathName);
}

int linux_tv_Factory_stopRecorderTsStream() { return Factory::instance()->stopRecorderTsStream(); }

int linux_tv_Factory_isWdtEnable() { return Factory::instance()->isWdtEnable(); }

int linux_tv_Factory_enableWdt(bool onoff) { return Factory::instance()->enableWdt(onoff); }

int linux_tv_Factory_isUartEnable() { return Factory::instance()->isUartEnable(); }

int linux_tv_Factory_enableUart(bool onoff) { return Factory::instance()->enableUart(onoff); }

int linux_tv_Factory_upgradeSystem(int mode) {
    __android_log_print(ANDROID_LOG_ERROR, "TVBASEMW@linuxFactory", "%s", "d%\n");
    return Factory::instance()->upgradeSystem(mode);
}

int linux_tv_Factory_getPoweronMode() { return Factory::instance()->getPoweronMode(); }

int linux_tv_Factory_setPoweronMode(int mode) { return Factory::instance()->setPoweronMode(mode); }

int linux_tv_Factory_enablePowerMusic(bool onoff) { return Factory::instance()->enablePowerMusic(onoff); }

int linux_tv_Factory_isPowerMusicEnable() { return Factory::instance()->isPowerMusicEnable(); }

int linux_tv_Factory_getPowerMusicVol() { return Factory::instance()->getPowerMusicVol(); }

int linux_tv_Factory_setPowerMusicVol(int val) { return Factory::instance()->setPowerMusicVol(val); }

int linux_tv_Factory_getSuspendMode() { return Factory::instance()->getSuspendMode(); }

int linux_tv_Factory_setSuspendMode(int mode) { return Factory::instance()->setSuspendMode(mode); }

int linux_tv_Factory_setSuspendModeInner(int mode) { return Factory::instance()->setSuspendModeInner(mode); }

int linux_tv_Factory_restoreFactory() { return Factory::instance()->restoreFactory(); }

int linux_tv_Factory_restoreFactorySetting() { return Factory::instance()->restoreFactorySetting(); }

int linux_tv_Factory_getUartMode() { return Factory::instance()->getUartMode(); }

int linux_tv_Factory_setUartMode(int mode) { return Factory::instance()->setUartMode(mode); }

int linux_tv_Factory_getSingleKeyMode() { return Factory::instance()->getSingleKeyMode(); }

int linux_tv_Factory_setSingleKeyMode(int mode) { return Factory::instance()->setSingleKeyMode(mode); }

int linux_tv_Factory_getIrCustomCode() { return Factory::instance()->getIrCustomCode(); }

int linux_tv_Factory_setIrCustomCode(int num) { return Factory::instance()->setIrCustomCode(num); }

int linux_tv_Factory_getRepairedBoard() { return Factory::instance()->getRepairedBoard(); }

int linux_tv_Factory_setRepairedBoard(bool onoff) { return Factory::instance()->setRepairedBoard(onoff); }

int linux_tv_Factory_operateFlashEEPROM(int oper, const char* pathName) {
    return pathName == nullptr ? -1 : Factory::instance()->operateFlashEEPROM(oper, pathName);
}

int linux_tv_Factory_resetWorkingTime() { return Factory::instance()->resetWorkingTime(); }

int linux_tv_Factory_getWifiTestStatus() { return Factory::instance()->getWifiTestStatus(); }

int linux_tv_Factory_setWifiTestStatus(int value) { return Factory::instance()->setWifiTestStatus(value); }

int linux_tv_Factory_setBTTestResult(int value) { return Factory::instance()->setBTTestResult(value); }

int linux_tv_factory_getEDIDType(int* pType) {
    const int type = Factory::instance()->getEDIDType();
    storeIfGiven(pType, type);
    std::printf("linux_tv_factory_getEDIDType = %d\n", type);
    return 0;
}

int linux_tv_factory_setEDIDType(int type) {
    std::printf("linux_tv_factory_setEDIDType type = %d\n", type);
    return Factory::instance()->setEDIDType(type);
}

int linux_tv_Factory_setUartData(const char* pData) {
    std::puts("setUartData");
    return Factory::instance()->setUartData(pData);
}

// Identity, versions and counters

int linux_tv_Factory_getPlatform(char* str) { return Factory::instance()->getPlatform(str); }

int linux_tv_Factory_getEepromDate(char* pStr) {
    Factory::instance()->getEepromDate(pStr);
    return 0;
}

int linux_tv_Factory_getBarCode(char* pStr) {
    Factory::instance()->getBarCode(pStr);
    return 0;
}

int linux_tv_Factory_getPanelID(char* pStr) { return Factory::instance()->getPanelID(pStr); }

int linux_tv_Factory_getMacAddress(char* pStr) { return Factory::instance()->getMacAddress(pStr); }

int linux_tv_Factory_setMacAddress(int* pMacAddr, int length) {
    return Factory::instance()->setMacAddress(pMacAddr, length);
}

int linux_tv_Factory_getEmmcID(char* pStr) { return pStr == nullptr ? -1 : Factory::instance()->getEmmcID(pStr); }

int linux_tv_Factory_getSocChipID(char* pStr) { return pStr == nullptr ? -1 : Factory::instance()->getSocChipID(pStr); }

int linux_tv_Factory_getInnerTconVersion(char* pStr) {
    return pStr == nullptr ? -1 : Factory::instance()->getInnerTconVersion(pStr);
}

int linux_tv_Factory_getExternalMemcVersion(char* pStr) {
    return pStr == nullptr ? -1 : Factory::instance()->getExternalMemcVersion(pStr);
}

int linux_tv_Factory_getPanelPQVersion(char* pStr) {
    return pStr == nullptr ? -1 : Factory::instance()->getPanelPQVersion(pStr);
}

int linux_tv_Factory_getPanelDataVersion(char* pStr) {
    return pStr == nullptr ? -1 : Factory::instance()->getPanelDataVersion(pStr);
}

int linux_tv_Factory_getUDiskNum(int* pBuf) { return pBuf == nullptr ? -1 : Factory::instance()->getUDiskNum(pBuf); }

int linux_tv_Factory_getSystemupTime(int* pBuf) {
    return pBuf == nullptr ? -1 : Factory::instance()->getSystemupTime(pBuf);
}

int linux_tv_Factory_setInternetTime(const char* time) {
    return time == nullptr ? -1 : Factory::instance()->setInternetTime(time);
}

int linux_tv_Factory_getInternetTime(char* pStr) {
    return pStr == nullptr ? -1 : Factory::instance()->getInternetTime(pStr);
}

int linux_tv_Factory_getPlatFormSupportUsbNum(int* pBuf) {
    return pBuf == nullptr ? -1 : Factory::instance()->getPlatFormSupportUsbNum(pBuf);
}

// Keys, serial numbers and transfer

int linux_tv_Factory_getBurnKeyStatus(int* pBuf) {
    return pBuf == nullptr ? -1 : Factory::instance()->getBurnKeyStatus(pBuf);
}

int linux_tv_Factory_setStbOtpBurn(int CaCardKind, const char* str, char* retSnData) {
    if (str == nullptr || retSnData == nullptr) {
        return -1;
    }
    return Factory::instance()->setStbOtpBurn(CaCardKind, str, retSnData);
}

int linux_tv_Factory_getDtvSn(int cmdId, char* retSnData) {
    return retSnData == nullptr ? -1 : Factory::instance()->getDtvSn(cmdId, retSnData);
}

int linux_tv_Factory_getIsBurnOtpRsa() { return Factory::instance()->getIsBurnOtpRsa(); }

int linux_tv_Factory_getBurnKeyType(const char* path, int* pSupportKeyList, int* length) {
    if (path == nullptr || pSupportKeyList == nullptr || length == nullptr) {
        std::printf("get tv BurnKeyType fail,path is null,return -1");
        return -1;
    }
    const std::list<int> kinds = Factory::instance()->getBurnKeyType(path);
    copyNumbers(kinds, pSupportKeyList, length);
    return kinds.empty() ? -1 : 0;
}

int linux_tv_Factory_ExDevInserted(const char* pData) {
    std::printf("%s enter\n", "linux_tv_Factory_ExDevInserted");
    return Factory::instance()->exDevInserted(pData);
}

int linux_tv_Factory_setKeyData(int type, int* pData, int length, int checksum, int xorchecksum) {
    return Factory::instance()->setKeyData(type, pData, length, checksum, xorchecksum);
}

int linux_tv_Factory_setNetPortDataTransmission(int type, int* pData, int length, int checksum, int xorchecksum) {
    return Factory::instance()->setNetPortDataTransmission(type, pData, length, checksum, xorchecksum);
}

int linux_tv_Factory_getNetPortDataTransmission(int type, int length, int* pBuf) {
    return pBuf == nullptr ? -1 : Factory::instance()->getNetPortDataTransmission(type, pBuf, length);
}

// What the hardware can do

int linux_tv_Factory_isSupportRouter() { return Factory::instance()->isSupportRouter(); }

int linux_tv_Factory_isSupportCableModem() { return Factory::instance()->isSupportCableModem(); }

int linux_tv_Factory_isSupportWifi() { return Factory::instance()->isSupportWifi(); }

int linux_tv_Factory_isSupportEOC() { return Factory::instance()->isSupportEOC(); }

int linux_tv_Factory_getDeviceMode() { return Factory::instance()->getDeviceMode(); }

int linux_tv_Factory_isOperatorCustomized() { return Factory::instance()->isOperatorCustomized(); }

int linux_tv_Factory_isSupportExternChip(int chipType) { return Factory::instance()->isSupportExternChip(chipType); }

// Laser projector

int linux_tv_Factory_getLaserTVTestPattern() { return Factory::instance()->getLaserTVTestPattern(); }

int linux_tv_Factory_setLaserTVTestPattern(int pattern) { return Factory::instance()->setLaserTVTestPattern(pattern); }

int linux_tv_Factory_getLaserWheelIndex(int wheel) { return Factory::instance()->getLaserWheelIndex(wheel); }

int linux_tv_Factory_setLaserWheelIndex(int wheel, int index) {
    return Factory::instance()->setLaserWheelIndex(wheel, index);
}

int linux_tv_Factory_setMotorMove(int move) { return Factory::instance()->setMotorMove(move); }

int linux_tv_Factory_getLaserBrightMode() { return Factory::instance()->getLaserBrightMode(); }

int linux_tv_Factory_setLaserBrightMode(int mode) { return Factory::instance()->setLaserBrightMode(mode); }

int linux_tv_Factory_getLaserPonputMode() { return Factory::instance()->getLaserPonputMode(); }

int linux_tv_Factory_setLaserPonputMode(int mode) { return Factory::instance()->setLaserPonputMode(mode); }

int linux_tv_Factory_getLaserEyeShieldMode() { return Factory::instance()->getLaserEyeShieldMode(); }

int linux_tv_Factory_setLaserEyeShieldMode(bool mode) { return Factory::instance()->setLaserEyeShieldMode(mode); }

int linux_tv_Factory_getLaserFWVersion(int type, char* pStr) {
    return pStr == nullptr ? -1 : Factory::instance()->getLaserFWVersion(type, pStr);
}

int linux_tv_Factory_setLaserItemValue(int cmdID, int param1, int param2, int param3, int param4) {
    return Factory::instance()->setLaserItemValue(cmdID, param1, param2, param3, param4);
}

int linux_tv_Factory_getLaserItemValue(int cmdID, int param, int* pBuf) {
    return pBuf == nullptr ? -1 : Factory::instance()->getLaserItemValue(cmdID, param, pBuf);
}

int linux_tv_Factory_setLaserItemStringValue(int cmdID, int param, const char* stringParam) {
    return stringParam == nullptr ? -1 : Factory::instance()->setLaserItemStringValue(cmdID, param, stringParam);
}

// External picture chips

int linux_tv_Factory_getNTPQItemValue(int channel, int cmdId) {
    return Factory::instance()->getNTPQItemValue(channel, cmdId);
}

int linux_tv_Factory_setNTPQItemValue(int channel, int cmdId, int value) {
    return Factory::instance()->setNTPQItemValue(channel, cmdId, value);
}

int linux_tv_Factory_getNTPQPlatFormVer(char* pStr) {
    return pStr == nullptr ? -1 : Factory::instance()->getNTPQPlatFormVer(pStr);
}

int linux_tv_Factory_upgradeNTPQIC(int chipId, const char* path) {
    return path == nullptr ? -1 : Factory::instance()->upgradeNTPQIC(chipId, path);
}

int linux_tv_Factory_getNT72315Command(int mainCmd, int subCmd, int value) {
    return Factory::instance()->getNT72315Command(mainCmd, subCmd, value);
}

int linux_tv_Factory_setNT72315Command(int mainCmd, int subCmd, int value) {
    return Factory::instance()->setNT72315Command(mainCmd, subCmd, value);
}

int linux_tv_Factory_getEP9169PlatFormVer(char* pVersion) {
    return pVersion == nullptr ? -1 : Factory::instance()->getEP9169PlatFormVer(pVersion);
}

int linux_tv_Factory_upgradeEP9169IC(const char* pathName) {
    return pathName == nullptr ? -1 : Factory::instance()->upgradeEP9169IC(pathName);
}
