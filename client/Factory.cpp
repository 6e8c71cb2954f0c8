#include "Marshalling.h"

#include <kelutv/Factory.h>
#include <kelutv/commands.h>
#include <kelutv/items.h>
#include <kelutv/link/TVBaseClient.h>

#include <android/log.h>
#include <binder/Parcel.h>

#include <cstdint>
#include <cstdio>
#include <initializer_list>
#include <string_view>

using android::Parcel;
using android::TVBaseClient;
using namespace kelutv::internal;

namespace {

constexpr int kBurnKeyCount = 32;

/** What a reader logs; no failure message, no line in the log. */
struct Messages {
    const char* ofNull;
    const char* ofFailure = nullptr;
};

/** Whether a text that stands in for the service's brings its terminator along. */
enum class Ending { Terminated, Open };

/** A reader that leaves a text of its own where the service has none. */
struct TextReader {
    const char* ofNull;
    const char* standIn;
    Ending ending;
    const char* ofFailure = nullptr;
    const char* ofMissing = nullptr;
};

void logError(const char* message) {
    if (message != nullptr) {
        __android_log_print(ANDROID_LOG_ERROR, nullptr, "%s", message);
    }
}

bool isNull(const void* pointer, const char* message) {
    if (pointer == nullptr) {
        logError(message);
    }
    return pointer == nullptr;
}

const char* printable(const char* text) { return text == nullptr ? "(null)" : text; }

template <typename Record, typename... Arguments> Record getRecord(int command, Arguments... arguments) {
    Parcel reply;
    if (TVBaseClient::self()->exeCmdGet(command, arguments..., reply) != 0) {
        return {};
    }
    return readRecord<Record>(reply);
}

template <typename Record> int setRecord(int command, std::initializer_list<int> words, const Record& record) {
    return Request().words(words).record(record).send(command);
}

template <typename Value>
int setValues(int command, std::initializer_list<int> words, const Value* values, int length) {
    return Request().words(words).values(values, length).send(command);
}

template <typename Value, typename... Arguments>
int getValues(const Messages& messages, Value* values, int length, int command, Arguments... arguments) {
    if (isNull(values, messages.ofNull)) {
        return -1;
    }
    Parcel reply;
    if (TVBaseClient::self()->exeCmdGet(command, arguments..., reply) != 0) {
        logError(messages.ofFailure);
        return -1;
    }
    readValues(reply, values, length);
    return 0;
}

int getVolumeCurve(int command, int* values, int* count) {
    if (values == nullptr || count == nullptr) {
        logError("soundCurveCtlData or volumeNum is null");
        return -1;
    }
    Parcel reply;
    if (TVBaseClient::self()->exeCmdGet(command, reply) != 0) {
        return -1;
    }
    *count = readCountedValues(reply, values);
    return 0;
}

void putStandIn(const TextReader& reader, char* text, const char* message) {
    logError(message);
    if (text != nullptr) {
        text += std::string_view(reader.standIn).copy(text, std::string_view::npos);
        if (reader.ending == Ending::Terminated) {
            *text = '\0';
        }
    }
}

/** Whether the text is the service's own. */
template <typename... Arguments>
bool fetchText(const TextReader& reader, char* text, int command, Arguments... arguments) {
    Parcel reply;
    if (TVBaseClient::self()->exeCmdGet(command, arguments..., reply) != 0) {
        putStandIn(reader, text, reader.ofFailure);
        return false;
    }
    if (text == nullptr || !copyText(reply, text)) {
        putStandIn(reader, text, reader.ofMissing);
        return false;
    }
    return true;
}

int getTextOrStandIn(const TextReader& reader, char* text, int command) {
    if (isNull(text, reader.ofNull)) {
        return -1;
    }
    fetchText(reader, text, command);
    return 0;
}

template <typename... Arguments>
int getTextOrFail(const TextReader& reader, char* text, int command, Arguments... arguments) {
    if (isNull(text, reader.ofNull)) {
        return -1;
    }
    return fetchText(reader, text, command, arguments...) ? 0 : -1;
}

int getChipVersion(int command, char* version) {
    if (isNull(version, "getNTPQPlatFormVer Data buf is null")) {
        return -1;
    }
    Parcel reply;
    if (TVBaseClient::self()->exeCmdGet(command, reply) != 0) {
        return -1;
    }
    copyText(reply, version);
    return 0;
}

} // namespace

Factory* Factory::instance() {
    static Factory mObj;
    return &mObj;
}

// Calibration, colour temperature and white balance

int Factory::autoCalibration() { return TVBaseClient::self()->exeCmdSet(CMD_FACTORY_AUTOCALIBRATION); }

CalibrationInfo Factory::getADCGainOffset(int srcId) {
    return getRecord<CalibrationInfo>(CMD_FACTORY_GETADCGAINOFFSET, srcId);
}

int Factory::setADCGainOffset(int srcId, CalibrationInfo info) {
    return setRecord(CMD_FACTORY_SETADCGAINOFFSET, {srcId}, info);
}

ColorTempData Factory::getColorTemp(int colorTempLevel) {
    return getRecord<ColorTempData>(CMD_FACTORY_GETCOLORTEMP, colorTempLevel);
}

int Factory::setColorTemp(int srcId, ColorTempData info) { return setRecord(CMD_FACTORY_SETCOLORTEMP, {srcId}, info); }

NlaInfo Factory::getNLAPoint(int item, KELU_TV_SRC_E srcId) {
    return getRecord<NlaInfo>(CMD_FACTORY_GETNLAPOINT, item, srcId);
}

int Factory::setNLAPoint(int item, NlaInfo info) { return setRecord(CMD_FACTORY_SETNLAPOINT, {item}, info); }

int Factory::updataNLAToSource() {
    std::fprintf(stderr, "%s\n", "updataNLAToSource");
    return TVBaseClient::self()->exeCmdSet(CMD_FACTORY_UPATANLATOSURCEO);
}

int Factory::restoreColorTemp() { return TVBaseClient::self()->exeCmdSet(CMD_FACTORY_RESTORECOLORTEMP); }

int Factory::getAutoColorTempDebugInfo(char* str, int colorTempIndex) {
    return getTextOrFail({"getAutoColorTempDebugInfo buf is null", "", Ending::Open,
                          "getAutoColorTempDebugInfo return error", "getAutoColorTempDebugInfo return null"},
                         str, CMD_FACTORY_GETCOLORTEMPDEBUGINFO, colorTempIndex);
}

int Factory::setWhiteBalanceColor(bool onoff, int red, int green, int blue) {
    return TVBaseClient::self()->exeCmdSet(CMD_FACTORY_SETWHITEBALANCECOLOR, onoff, red, green, blue);
}

bool Factory::isSupportSocWhiteBalancePattern() {
    return TVBaseClient::self()->exeCmdGet(CMD_FACTORY_GET_IS_SUPPORT_SOC_WB_PATTERN) != 0;
}

int Factory::enterIrWBAdj() { return TVBaseClient::self()->exeCmdGet(CMD_EXTRA_SETENTERIRWBADJ); }

int Factory::getIRWBStatus() { return TVBaseClient::self()->exeCmdGet(CMD_FACTORY_GET_IR_WB_RESULT); }

int Factory::pqSetGammaValue(int value) {
    std::fprintf(stderr, "%s\n", "pqSetGammaValue");
    return TVBaseClient::self()->exeCmdSet(CMD_FACTORY_SET_PQ_GAMMA_VALUE, value);
}

int Factory::getPQBinVersion(char* pPQBinVersion) {
    Parcel reply;
    if (TVBaseClient::self()->exeCmdGet(CMD_FACOTRY_COMMON_GET_PQ_BINVERSION, reply) != 0) {
        return -1;
    }
    const char* const version = reply.readCString();
    std::fprintf(stderr, "pStr=%s\n", printable(version));
    if (version == nullptr || pPQBinVersion == nullptr) {
        std::fprintf(stderr, "%s error\n", "getPQBinVersion");
        return -1;
    }
    copyTextIfGiven(pPQBinVersion, version);
    return 0;
}

int Factory::pqIoCtl(KELU_TV_PQ_IOCTL_CMD_E cmdID, void* /*pParm*/) {
    if (TVBaseClient::self()->exeCmdSet(CMD_FACOTRY_COMMON_COPY_SOURCE_COLOR_LUT, cmdID) != 0) {
        std::fprintf(stderr, "pqIoCtl error");
        return -1;
    }
    return 0;
}

// Overscan, panel interface, memory spread, gamma and test patterns

KeluRect Factory::getOverscan() { return getRecord<KeluRect>(CMD_FACTORY_GETOVERSCAN); }

int Factory::setOverscan(KeluRect rect) { return setRecord(CMD_FACTORY_SETOVERSCAN, {}, rect); }

int Factory::getPanelIntfOutEnable() { return TVBaseClient::self()->exeCmdGet(CMD_FACTORY_GETPANELINTFOUTENABLE); }

int Factory::setPanelIntfOutEnable(bool onoff) {
    return TVBaseClient::self()->exeCmdSet(CMD_FACTORY_SETPANELINTFOUTENABLE, onoff);
}

bool Factory::getPanelSpreadEnable() { return TVBaseClient::self()->exeCmdGet(CMD_FACTORY_GETPANELSPREADENABLE) != 0; }

int Factory::setPanelSpreadEnable(bool onoff) {
    return TVBaseClient::self()->exeCmdSet(CMD_FACTORY_SETPANELSPREADENABLE, onoff);
}

int Factory::getPanelSpreadRatio() { return TVBaseClient::self()->exeCmdGet(CMD_FACTORY_GETPANELSPREADRATIO); }

int Factory::setPanelSpreadRatio(int ratio) {
    return TVBaseClient::self()->exeCmdSet(CMD_FACTORY_SETPANELSPREADRATIO, ratio);
}

int Factory::getPanelSpreadFreq() { return TVBaseClient::self()->exeCmdGet(CMD_FACTORY_GETPANELSPREADFREQ); }

int Factory::setPanelSpreadFreq(int freq) {
    return TVBaseClient::self()->exeCmdSet(CMD_FACTORY_SETPANELSPREADFREQ, freq);
}

int Factory::getPanelDrvCurrent() { return TVBaseClient::self()->exeCmdGet(CMD_FACTORY_GETPANELDRVCURRENT); }

int Factory::setPanelDrvCurrent(int current) {
    return TVBaseClient::self()->exeCmdSet(CMD_FACTORY_SETPANELDRVCURRENT, current);
}

int Factory::getPanelComVoltage() { return TVBaseClient::self()->exeCmdGet(CMD_FACTORY_GETPANELCOMVOLTAGE); }

int Factory::setPanelComVoltage(int voltage) {
    return TVBaseClient::self()->exeCmdSet(CMD_FACTORY_SETPANELCOMVOLTAGE, voltage);
}

int Factory::getPanelEmphasis() { return TVBaseClient::self()->exeCmdGet(CMD_FACTORY_GETPANELEMPHASIS); }

int Factory::setPanelEmphasis(int ems) { return TVBaseClient::self()->exeCmdSet(CMD_FACTORY_SETPANELEMPHASIS, ems); }

bool Factory::isDdrSpreadEnable() { return TVBaseClient::self()->exeCmdGet(CMD_FACTORY_GETDDRSPREADENABLE) != 0; }

int Factory::EnableDdrSpread(bool onoff) {
    return TVBaseClient::self()->exeCmdSet(CMD_FACTORY_SETDDRSPREADENABLE, onoff);
}

int Factory::getDdrSpreadRatio() { return TVBaseClient::self()->exeCmdGet(CMD_FACTORY_GETDDRSPREADRATIO); }

int Factory::setDdrSpreadRatio(int ratio) {
    return TVBaseClient::self()->exeCmdSet(CMD_FACTORY_SETDDRSPREADRATIO, ratio);
}

int Factory::getDdrSpreadFreq() { return TVBaseClient::self()->exeCmdGet(CMD_FACTORY_GETDDRSPREADFREQ); }

int Factory::setDdrSpreadFreq(int freq) { return TVBaseClient::self()->exeCmdSet(CMD_FACTORY_SETDDRSPREADFREQ, freq); }

int Factory::getGamma() { return TVBaseClient::self()->exeCmdGet(CMD_FACTORY_GETGAMMA); }

int Factory::setGamma(int gamma) { return TVBaseClient::self()->exeCmdSet(CMD_FACTORY_SETGAMMA, gamma); }

int Factory::getTestPattern() { return TVBaseClient::self()->exeCmdGet(CMD_FACTORY_GETTESTPATTERN); }

int Factory::setTestPattern(int index) { return TVBaseClient::self()->exeCmdSet(CMD_FACTORY_SETTESTPATTERN, index); }

int Factory::getPanelIndex() { return TVBaseClient::self()->exeCmdGet(CMD_FACTORY_GETPANELINDEX); }

int Factory::setPanelIndex(int index) { return TVBaseClient::self()->exeCmdSet(CMD_FACTORY_SETPANELINDEX, index); }

int Factory::getPanelFlipMirror() { return TVBaseClient::self()->exeCmdGet(CMD_FACTORY_GETPANELFLIPMIRROR); }

int Factory::setPanelFlipMirror(int flip) {
    return TVBaseClient::self()->exeCmdSet(CMD_FACTORY_SETPANELFLIPMIRROR, flip);
}

int Factory::setIChipTestPattern(int pattern) {
    return TVBaseClient::self()->exeCmdSet(CMD_FACTORY_SET_ICHIP_TEST_PATTERN, pattern);
}

// Backlight, LEDs and panel compensation

int Factory::getBackLightPwmMax() { return TVBaseClient::self()->exeCmdGet(CMD_FACTORY_GETBLPWMMAX); }

int Factory::setBackLightPwmMax(int pwmMax) { return TVBaseClient::self()->exeCmdSet(CMD_FACTORY_SETBLPWMMAX, pwmMax); }

int Factory::getBackLightPwmMin() { return TVBaseClient::self()->exeCmdGet(CMD_FACTORY_GETBLPWMMIN); }

int Factory::setBackLightPwmMin(int pwmMin) { return TVBaseClient::self()->exeCmdSet(CMD_FACTORY_SETBLPWMMIN, pwmMin); }

int Factory::getDreamPanelDeltaValue() {
    return TVBaseClient::self()->exeCmdGet(CMD_FACTORY_GET_DREAM_PANEL_DELTA_VALUE);
}

int Factory::setDreamPanelDeltaValue(int tmpValue) {
    return TVBaseClient::self()->exeCmdSet(CMD_FACTORY_SET_DREAM_PANEL_DELTA_VALUE, tmpValue);
}

int Factory::getDPBLMinOffset() { return TVBaseClient::self()->exeCmdGet(CMD_FACTORY_GET_DP_BL_MIN_OFFSET); }

int Factory::setDPBLMinOffset(int tmpValue) {
    return TVBaseClient::self()->exeCmdSet(CMD_FACTORY_SET_DP_BL_MIN_OFFSET, tmpValue);
}

int Factory::getLedDisturbingMode() { return TVBaseClient::self()->exeCmdGet(CMD_FACTORY_GETBLEDDISTURBINGMODE); }

int Factory::setLedDisturbingMode(int mode) {
    return TVBaseClient::self()->exeCmdSet(CMD_FACTORY_SETBLEDDISTURBINGMODE, mode);
}

int Factory::setBreathePlatformStatus(int arg1, int arg2) {
    return TVBaseClient::self()->exeCmdSet(CMD_FACTORY_SET_BREATHE_LED_STATUS, arg1, arg2);
}

int Factory::getOLEDPixelShiftEnable() { return TVBaseClient::self()->exeCmdGet(CMD_EXTRA_GETOLEDPIEXLSHIFTENABLE); }

int Factory::setOLEDPixelShiftEnable(int enable) {
    return TVBaseClient::self()->exeCmdSet(CMD_EXTRA_SETOLEDPIEXLSHIFTENABLE, enable);
}

int Factory::getLineODIndex() { return TVBaseClient::self()->exeCmdGet(CMD_FACTORY_GETLINEODINDEX); }

bool Factory::setLineODIndex(int tmpIndex) {
    return TVBaseClient::self()->exeCmdSet(CMD_FACTORY_SETLINEODINDEX, tmpIndex) != 0;
}

std::list<std::string> Factory::getLineODListTable() {
    Parcel reply;
    if (TVBaseClient::self()->exeCmdGet(CMD_FACTORY_GETLINEODLIST, reply) != 0) {
        return {};
    }
    return readTexts(reply);
}

int Factory::setVarietyLedControl(int ledType, int value) {
    return TVBaseClient::self()->exeCmdSet(CMD_FACTORY_SETVARIETYLEDCONTROL, ledType, value);
}

// Tuner, picture and sound tuning

bool Factory::isATVIniChnEnable() { return TVBaseClient::self()->exeCmdGet(CMD_FACTORY_GETATVINITIALCHANNEL) != 0; }

int Factory::enableATVIniChn(bool onoff) {
    return TVBaseClient::self()->exeCmdSet(CMD_FACTORY_SETATVINITIALCHANNEL, onoff);
}

int Factory::getOverModulation() { return TVBaseClient::self()->exeCmdGet(CMD_FACTORY_GETOVERMODULATION); }

int Factory::setOverModulation(int over) {
    return TVBaseClient::self()->exeCmdSet(CMD_FACTORY_SETOVERMODULATION, over);
}

int Factory::getFrequencyOffset() { return TVBaseClient::self()->exeCmdGet(CMD_FACTORY_GETFREQUENCYOFFSET); }

int Factory::setFrequencyOffset(int offset) {
    return TVBaseClient::self()->exeCmdSet(CMD_FACTORY_SETFREQUENCYOFFSET, offset);
}

int Factory::getTunerBandwidth() { return TVBaseClient::self()->exeCmdGet(CMD_FACTORY_GETTUNERBANDWIDTH); }

int Factory::setTunerBandwidth(int bandwidth) {
    return TVBaseClient::self()->exeCmdSet(CMD_FACTORY_SETTUNERBANDWIDTH, bandwidth);
}

int Factory::setNRThreshold(int level) { return TVBaseClient::self()->exeCmdSet(CMD_FACTORY_SETNRTHRESHOLD, level); }

int Factory::getNRThreshold() { return TVBaseClient::self()->exeCmdGet(CMD_FACTORY_GETNRTHRESHOLD); }

int Factory::setAVCThreshold(int level) { return TVBaseClient::self()->exeCmdSet(CMD_FACTORY_SETAVCTHRESHOLD, level); }

int Factory::getAVCThreshold() { return TVBaseClient::self()->exeCmdGet(CMD_FACTORY_GETAVCTHRESHOLD); }

SoundPeqData Factory::getSoundPEQ() { return getRecord<SoundPeqData>(CMD_FACTORY_GETSOUNDPEQ); }

int Factory::setSoundPEQ(SoundPeqData info) { return setRecord(CMD_FACTORY_SETSOUNDPEQ, {}, info); }

int Factory::getSoundCurve(double* pData, int length) {
    return getValues({"getSoundCurve pData is NULL"}, pData, length, CMD_FACTORY_GETSOUNDCURVE, length);
}

int Factory::setSoundCurve(double* info, int length) {
    if (isNull(info, "setSoundCurve info is NULL")) {
        return -1;
    }
    return setValues(CMD_FACTORY_SETSOUNDCURVE, {length}, info, length);
}

int Factory::getSoundCurveCtlData(int* soundCurveCtlData, int* volumeNum) {
    return getVolumeCurve(CMD_FACTORY_GET_CTL_VOLUME, soundCurveCtlData, volumeNum);
}

int Factory::getHeadPhoneSoundCurveCtlData(int* soundCurveCtlData, int* volumeNum) {
    return getVolumeCurve(CMD_FACTORY_GET_CTL_HEADPHONE_VOLUME, soundCurveCtlData, volumeNum);
}

// Generic item access

int Factory::getNonStandardItemValue(int itemid) {
    return TVBaseClient::self()->exeCmdGet(CMD_FACTORY_GETNONSTANDARDITEMVALUE, itemid);
}

int Factory::setNonStandardItemValue(int itemid, int value) {
    return TVBaseClient::self()->exeCmdSet(CMD_FACTORY_SETNONSTANDARDITEMVALUE, itemid, value);
}

int Factory::getPerformanceItemValue(int itemid) {
    return TVBaseClient::self()->exeCmdGet(CMD_FACTORY_GETPERFORMANCEITEMVALUE, itemid);
}

int Factory::setPerformanceItemValue(int itemid, int value) {
    return TVBaseClient::self()->exeCmdSet(CMD_FACTORY_SETPERFORMANCEITEMVALUE, itemid, value);
}

int Factory::getOtherItemValue(int itemid) {
    return TVBaseClient::self()->exeCmdGet(CMD_FACTORY_GETOTHERITEMVALUE, itemid);
}

int Factory::setOtherItemValue(int itemid, int value) {
    return TVBaseClient::self()->exeCmdSet(CMD_FACTORY_SETOTHERITEMVALUE, itemid, value);
}

int Factory::setFactoryItemValue(int cmdID, int param1, int param2, int param3, int param4) {
    return TVBaseClient::self()->exeCmdSet(CMD_FACOTRY_COMMON_SET_ITEM_VALUE, cmdID, param1, param2, param3, param4);
}

int Factory::getFactoryItemValue(int cmdID, int param1, int param2, int* pData) {
    return getValues({"getFactoryItemValue pData buf is null"}, pData, kItemValueCount,
                     CMD_FACOTRY_COMMON_GET_ITEM_VALUE, cmdID, param1, param2);
}

int Factory::getFactoryItemStrValue(int cmdID, int param1, int param2, char* data) {
    return getTextOrFail({"getSystemItemStrValue input buf is null", "", Ending::Open, "getSystemItemStrValue error",
                          "getSystemItemStrValue error"},
                         data, CMD_FACOTRY_COMMON_GET_ITEM_STRVALUE, cmdID, param1, param2);
}

int Factory::setFactoryItemStrValue(int cmdID, int param1, int param2, char const* stringParam) {
    return TVBaseClient::self()->exeCmdSet(CMD_FACOTRY_COMMON_SET_ITEM_STRVALUE, cmdID, param1, stringParam, param2);
}

// Power, modes and maintenance

int Factory::enableAgingMode(bool onoff) { return TVBaseClient::self()->exeCmdSet(CMD_FACTORY_SETAGINGMODE, onoff); }

bool Factory::isAgingModeEnable() { return TVBaseClient::self()->exeCmdGet(CMD_FACTORY_GETAGINGMODE) != 0; }

int Factory::resetNVM() { return TVBaseClient::self()->exeCmdSet(CMD_FACTORY_RESETNVM); }

int Factory::resetAtvChannel() { return TVBaseClient::self()->exeCmdSet(CMD_FACTORY_RESETATVCHANNEL); }

int Factory::startRecorderTsStream(char const* usbPath) {
    __android_log_print(ANDROID_LOG_ERROR, nullptr, "DtvChannel startRecorderTsStream usbPath = %s",
                        printable(usbPath));
    return Request().text(usbPath).send(CMD_FACTORY_STARTRECORDERTS);
}

int Factory::stopRecorderTsStream() { return TVBaseClient::self()->exeCmdSet(CMD_FACTORY_STOPRECORDERTS); }

bool Factory::isWdtEnable() { return TVBaseClient::self()->exeCmdGet(CMD_FACTORY_GETWATCHDOG) != 0; }

int Factory::enableWdt(bool onoff) { return TVBaseClient::self()->exeCmdSet(CMD_FACTORY_SETWATCHDOG, onoff); }

bool Factory::isUartEnable() { return TVBaseClient::self()->exeCmdGet(CMD_FACTORY_GETUART) != 0; }

int Factory::enableUart(bool onoff) { return TVBaseClient::self()->exeCmdSet(CMD_FACTORY_SETUART, onoff); }

int Factory::upgradeSystem(int mode) { return TVBaseClient::self()->exeCmdSet(CMD_FACTORY_UPGRADESYSTEM, mode); }

int Factory::setPoweronMode(int mode) { return TVBaseClient::self()->exeCmdSet(CMD_FACTORY_SETPOWERMODE, mode); }

int Factory::getPoweronMode() { return TVBaseClient::self()->exeCmdGet(CMD_FACTORY_GETPOWERMODE); }

int Factory::enablePowerMusic(bool onoff) { return TVBaseClient::self()->exeCmdSet(CMD_FACTORY_SETPOWERMUSIC, onoff); }

bool Factory::isPowerMusicEnable() { return TVBaseClient::self()->exeCmdGet(CMD_FACTORY_GETPOWERMUSIC) != 0; }

int Factory::setPowerMusicVol(int val) { return TVBaseClient::self()->exeCmdSet(CMD_FACTORY_SETPOWERMUSICVOL, val); }

int Factory::getPowerMusicVol() { return TVBaseClient::self()->exeCmdGet(CMD_FACTORY_GETPOWERMUSICVOL); }

int Factory::setSuspendMode(int mode) { return TVBaseClient::self()->exeCmdSet(CMD_FACTORY_SETSUSPENDMODE, mode); }

int Factory::getSuspendMode() { return TVBaseClient::self()->exeCmdGet(CMD_FACTORY_GETSUSPENDMODE); }

int Factory::setSuspendModeInner(int mode) {
    return TVBaseClient::self()->exeCmdSet(CMD_FACTORY_SETSUSPENDMODEINNER, mode);
}

int Factory::set24GAMPEnable(bool enable) {
    return TVBaseClient::self()->exeCmdSet(CMD_FACTORY_SET24GAMPENABLE, enable);
}

int Factory::set24GUpgradePath(char* path) {
    return TVBaseClient::self()->exeCmdSet(CMD_FACTORY_SET24GUPGRADEPATH, path);
}

int Factory::get24GConnectStatus() { return TVBaseClient::self()->exeCmdSet(CMD_FACTORY_GET24GCONNECTSTATUS); }

int Factory::restoreFactory() { return TVBaseClient::self()->exeCmdSet(CMD_FACTORY_RESTOREFACTORY); }

int Factory::restoreFactorySetting() { return TVBaseClient::self()->exeCmdSet(CMD_FACTORY_RESTOREFACTORYSETTING); }

int Factory::getUartMode() { return TVBaseClient::self()->exeCmdGet(CMD_FACTORY_GETUARTMODE); }

int Factory::setUartMode(int mode) { return TVBaseClient::self()->exeCmdSet(CMD_FACTORY_SETUARTMODE, mode); }

int Factory::getSingleKeyMode() { return TVBaseClient::self()->exeCmdGet(CMD_FACTORY_GETSINGLEKEYMODE); }

int Factory::setSingleKeyMode(int mode) { return TVBaseClient::self()->exeCmdSet(CMD_FACTORY_SETSINGLEKEYMODE, mode); }

int Factory::getIrCustomCode() { return TVBaseClient::self()->exeCmdGet(CMD_FACTORY_GETIRCUSTOMCODE); }

int Factory::setIrCustomCode(int num) { return TVBaseClient::self()->exeCmdSet(CMD_FACTORY_SETIRCUSTOMCODE, num); }

bool Factory::getRepairedBoard() { return TVBaseClient::self()->exeCmdGet(CMD_FACTORY_GETREPAIREDBOARD) != 0; }

int Factory::setRepairedBoard(bool onoff) {
    return TVBaseClient::self()->exeCmdSet(CMD_FACTORY_SETREPAIREDBOARD, onoff);
}

int Factory::operateFlashEEPROM(int oper, char const* path) {
    return TVBaseClient::self()->exeCmdSet(CMD_FACTORY_OPERATEEROM, oper, path);
}

int Factory::resetWorkingTime() { return TVBaseClient::self()->exeCmdSet(CMD_FACTORY_RESETWORKINGTIME); }

int Factory::setWifiTestStatus(int value) {
    return TVBaseClient::self()->exeCmdSet(CMD_FACTORY_SETWIFITESTSTATUS, value);
}

int Factory::getWifiTestStatus() { return TVBaseClient::self()->exeCmdGet(CMD_FACTORY_GETWIFITESTSTATUS); }

int Factory::setBTTestResult(int value) {
    return TVBaseClient::self()->exeCmdSet(CMD_FACOTRY_SET_BT_TESTRESULT, value);
}

int Factory::setPrintLogLevel(int level) { return TVBaseClient::self()->exeCmdSet(CMD_EXTRA_SETLOGLEVEL, level); }

int Factory::getPrintLogLevel() { return TVBaseClient::self()->exeCmdGet(CMD_EXTRA_GETLOGLEVEL); }

int Factory::setEDIDType(int type) { return TVBaseClient::self()->exeCmdSet(CMD_EXTRA_SETEDIDTYPE, type); }

int Factory::getEDIDType() { return TVBaseClient::self()->exeCmdGet(CMD_EXTRA_GETEDIDTYPE); }

int Factory::setUartData(char const* pData) {
    if (isNull(pData, "setUartData pData is null")) {
        return -1;
    }
    return Request().wideText(pData).send(CMD_EXTRA_SETUARTDATA);
}

// Device identity, versions and counters

int Factory::getPlatform(char* str) {
    return getTextOrStandIn({"getPlatform buf is null", "default", Ending::Terminated,
                             "getPlatform return error,use default", "getPlatform return null,use default"},
                            str, CMD_FACTORY_GETPLATFORM);
}

int Factory::getEepromDate(char* pStr) {
    return getTextOrStandIn({"getEepromDate buf is null", "date error", Ending::Terminated,
                             "getEepromDate,return error,return data error",
                             "getEepromDate,return buf is null,return data error"},
                            pStr, CMD_FACTORY_GETEEPROMDATE);
}

int Factory::getBarCode(char* pStr) {
    return getTextOrStandIn({"getBarCode buf is null", "error barcode", Ending::Terminated}, pStr,
                            CMD_FACTORY_GETBARCODE);
}

int Factory::getPanelID(char* pStr) {
    return getTextOrStandIn({"getPanelID buf is null", "error panelId", Ending::Terminated}, pStr,
                            CMD_FACTORY_GETPANELID);
}

int Factory::getMacAddress(char* pStr) {
    return getTextOrStandIn({"getMacAddress buf is null", "error mac", Ending::Terminated}, pStr,
                            CMD_FACTORY_GETMACADDRESS);
}

int Factory::setMacAddress(int* pMacAddr, int length) {
    return setValues(CMD_FACTORY_SETMACADDRESS, {length}, pMacAddr, length);
}

int Factory::getEmmcID(char* pStr) {
    return getTextOrStandIn({"getEmmcID buf is null", "error_emmc_id", Ending::Open}, pStr, CMD_FACTORY_GET_EMMC_ID);
}

int Factory::getSocChipID(char* pStr) {
    return getTextOrStandIn({"getSocChipID buf is null", "error_chip_id", Ending::Open}, pStr,
                            CMD_FACTORY_GET_SOC_CHIP_ID);
}

int Factory::getInnerTconVersion(char* pStr) {
    return getTextOrStandIn({"getInnerTconVersion buf is null", "error_inner_tcon_ver", Ending::Open}, pStr,
                            CMD_FACTORY_GET_INNER_TCON_VERSION);
}

int Factory::getExternalMemcVersion(char* pStr) {
    return getTextOrStandIn({"getExternalMemcVersion buf is null", "error_external_memc_ver", Ending::Open}, pStr,
                            CMD_FACTORY_GET_EXTERNAL_MEMC_VERSION);
}

int Factory::getPanelPQVersion(char* pStr) {
    return getTextOrStandIn({"getPanelPQVersion buf is null", "error_panel_pq_ver", Ending::Open}, pStr,
                            CMD_FACTORY_GET_PANEL_PQ_VERSION);
}

int Factory::getPanelDataVersion(char* pStr) {
    return getTextOrStandIn({"getPanelDataVersion buf is null", "error_external_panel_ver", Ending::Open}, pStr,
                            CMD_FACTORY_GET_PANEL_DATA_VERSION);
}

int Factory::getUDiskNum(int* pData) {
    return getValues({"getUDiskNum input buf is null"}, pData, 1, CMD_FACTORY_GET_USBKINDNUM);
}

int Factory::getSystemupTime(int* timeData) {
    return getValues({"getMicroDimmingData input buf is null", "getSystemupTime timeData  error"}, timeData, 2,
                     CMD_FACTORY_GETSYSUPTIME);
}

int Factory::setInternetTime(char const* time) {
    return TVBaseClient::self()->exeCmdSet(CMD_FACTORY_SETINTERNETTIME, time);
}

int Factory::getInternetTime(char* time) {
    const TextReader reader{"getInternetTime buf is null", "19700101", Ending::Open};
    if (isNull(time, reader.ofNull)) {
        return -1;
    }
    if (fetchText(reader, time, CMD_FACTORY_GETINTERNETTIME)) {
        __android_log_print(ANDROID_LOG_ERROR, nullptr, "getInternetTime %s", time);
    }
    return 0;
}

int Factory::getPlatFormSupportUsbNum(int* pData) {
    return getValues({"getPlatFormSupportUsbNum input buf is null"}, pData, 1, CMD_FACTORY_GET_SUPPORTUSBNUM);
}

// Keys, serial numbers, data transfer and external devices

int Factory::getBurnKeyStatus(int* bufData) {
    return getValues({"getBurnKeyStatus input buf is null", "getBurnKeyStatus timeData  error"}, bufData, kBurnKeyCount,
                     CMD_FACTORY_GETBURNKEYSTATUS);
}

int Factory::setStbOtpBurn(int CaCardKind, char const* str, char* snData) {
    const bool complete = str != nullptr && snData != nullptr;
    if (!complete) {
        logError("setStbOtpBurn input buf is null");
    }
    Parcel reply;
    const int result = Request().word(CaCardKind).text(str).send(CMD_FACTORY_SETSTBOTPBURN, reply);
    const char* const serialNumber = result == 0 ? reply.readCString() : nullptr;
    if (serialNumber == nullptr) {
        logError("setStbOtpBurn,getBurnKeyStatus timeData  error");
        return -1;
    }
    copyTextIfGiven(snData, serialNumber);
    __android_log_print(ANDROID_LOG_ERROR, nullptr, "[%d] setStbOtpBurn snData = %s", __LINE__, serialNumber);
    return complete ? 0 : -1;
}

int Factory::getDtvSn(int cmdId, char* snData) {
    const bool complete = !isNull(snData, "getDtvSn snData buf is null");
    Parcel reply;
    const int result = TVBaseClient::self()->exeCmdGet(CMD_FACTORY_GETDTVSN, cmdId, reply);
    const bool copied = complete && result == 0 && copyText(reply, snData);
    return copied ? 0 : -1;
}

int Factory::getIsBurnOtpRsa() { return TVBaseClient::self()->exeCmdGet(CMD_FACTORY_GETISBURNOTPRSA); }

std::list<int> Factory::getBurnKeyType(char const* path) {
    Parcel reply;
    if (isNull(path, "getBurnKeyType path is null") ||
        Request().text(path).send(CMD_FACTORY_GET_SUPPORT_BURN_KEY_TYPE, reply) != 0) {
        return {};
    }
    return readNumbers(reply);
}

int Factory::exDevInserted(char const* pData) {
    Parcel reply;
    if (isNull(pData, "exDevInserted pData is null") ||
        Request().text(pData).send(CMD_FACTORY_EXTERNAL_DEV_INSERT, reply) != 0) {
        return -1;
    }
    return reply.readInt32();
}

int Factory::setKeyData(int type, int* pData, int length, int checksum, int xorchecksum) {
    return setValues(CMD_FACTORY_SETKEYDATA, {type, length, checksum, xorchecksum}, pData, length);
}

int Factory::setNetPortDataTransmission(int type, int* pData, int length, int checksum, int xorchecksum) {
    return setValues(CMD_FACTORY_NETPORTDATATRAN, {type, length, checksum, xorchecksum}, pData, length);
}

int Factory::getNetPortDataTransmission(int type, int* pData, int length) {
    return getValues({"getMicroDimmingData input buf is null"}, pData, length, CMD_FACTORY_GET_NETPORTDATATRAN, type,
                     length);
}

// Hardware capabilities

bool Factory::isSupportRouter() { return TVBaseClient::self()->exeCmdGet(CMD_FACTORY_GET_IS_HW_SUPPORT_ROUTER) != 0; }

bool Factory::isSupportCableModem() {
    return TVBaseClient::self()->exeCmdGet(CMD_FACTORY_GET_IS_HW_SUPPORT_CABLE_MODEM) != 0;
}

bool Factory::isSupportWifi() { return TVBaseClient::self()->exeCmdGet(CMD_FACTORY_GET_IS_HW_SUPPORT_WIFI) != 0; }

bool Factory::isSupportEOC() { return TVBaseClient::self()->exeCmdGet(CMD_FACTORY_GET_IS_HW_SUPPORT_EOC) != 0; }

int Factory::getDeviceMode() { return TVBaseClient::self()->exeCmdGet(CMD_FACTORY_GETDEVICEMODE); }

int Factory::isOperatorCustomized() { return TVBaseClient::self()->exeCmdGet(CMD_FACTORY_ISOPERATORCUSTOMIZED); }

bool Factory::isSupportExternChip(int chipType) {
    return TVBaseClient::self()->exeCmdGet(CMD_FACOTRY_IS_SUPPORT_EXTERN_CHIP, chipType) != 0;
}

// Laser projector

int Factory::getLaserTVTestPattern() { return TVBaseClient::self()->exeCmdGet(CMD_FACTORY_GET_LASER_TEST_PATTERN); }

int Factory::setLaserTVTestPattern(int pattern) {
    return TVBaseClient::self()->exeCmdSet(CMD_FACTORY_SET_LASER_TEST_PATTERN, pattern);
}

int Factory::getLaserWheelIndex(int wheel) {
    return TVBaseClient::self()->exeCmdGet(CMD_FACTORY_GET_LASER_WHEEL_INDEX, wheel);
}

int Factory::setLaserWheelIndex(int wheel, int index) {
    return TVBaseClient::self()->exeCmdSet(CMD_FACTORY_SET_LASER_WHEEL_INDEX, wheel, index);
}

int Factory::setMotorMove(int move) { return TVBaseClient::self()->exeCmdSet(CMD_FACOTRY_SET_MOTOR_MOVE, move); }

int Factory::setLaserBrightMode(int mode) {
    return TVBaseClient::self()->exeCmdSet(CMD_FACOTRY_SET_LASER_BRIGHT_MODE, mode);
}

int Factory::getLaserBrightMode() { return TVBaseClient::self()->exeCmdGet(CMD_FACOTRY_GET_LASER_BRIGHT_MODE); }

int Factory::setLaserPonputMode(int mode) {
    return TVBaseClient::self()->exeCmdSet(CMD_FACOTRY_SET_LASER_PONPUT_MODE, mode);
}

int Factory::getLaserPonputMode() { return TVBaseClient::self()->exeCmdGet(CMD_FACOTRY_GET_LASER_PONPUT_MODE); }

int Factory::setLaserEyeShieldMode(bool mode) {
    return TVBaseClient::self()->exeCmdSet(CMD_FACOTRY_SET_LASER_EYE_SHIELD_MODE, mode);
}

bool Factory::getLaserEyeShieldMode() {
    return TVBaseClient::self()->exeCmdGet(CMD_FACOTRY_GET_LASER_EYE_SHIELD_MODE) != 0;
}

int Factory::getLaserFWVersion(int type, char* pStr) {
    fetchText({nullptr, "error", Ending::Open}, pStr, CMD_FACOTRY_GET_LASER_FW_VERSION, type);
    return 0;
}

int Factory::setLaserItemValue(int cmdID, int param1, int param2, int param3, int param4) {
    return TVBaseClient::self()->exeCmdSet(CMD_FACOTRY_SET_LASER_ITEM_VALUE, cmdID, param1, param2, param3, param4);
}

int Factory::getLaserItemValue(int cmdID, int param, int* pData) {
    return getValues({"getLaserItemValue input buf is null"}, pData, 1, CMD_FACOTRY_GET_LASER_ITEM_VALUE, cmdID, param);
}

int Factory::setLaserItemStringValue(int cmdID, int param, char const* stringParam) {
    return TVBaseClient::self()->exeCmdSet(CMD_FACOTRY_SET_LASER_ITEM_STRING_VALUE, cmdID, param, stringParam);
}

// External picture-processing chips

int Factory::getNTPQItemValue(int channel, int cmdId) {
    return TVBaseClient::self()->exeCmdGet(CMD_FACTORY_GET_NTPQITEMVALUE, channel, cmdId);
}

int Factory::setNTPQItemValue(int channel, int cmdId, int value) {
    return TVBaseClient::self()->exeCmdSet(CMD_FACTORY_SET_NTPQITEMVALUE, channel, cmdId, value);
}

int Factory::getNTPQPlatFormVer(char* Data) { return getChipVersion(CMD_FACTORY_GET_NTPQPLATFORMVER, Data); }

int Factory::upgradeNTPQIC(int chipId, char const* path) {
    return TVBaseClient::self()->exeCmdSet(CMD_FACOTRY_UPGRADENTPQIC, chipId, path);
}

int Factory::setNT72315Command(int mainCmd, int subCmd, int value) {
    return TVBaseClient::self()->exeCmdSet(CMD_FACTORY_SET_NT72315_COMMAND, mainCmd, subCmd, value);
}

int Factory::getNT72315Command(int mainCmd, int subCmd, int value) {
    return TVBaseClient::self()->exeCmdGet(CMD_FACTORY_GET_NT72315_COMMAND, mainCmd, subCmd, value);
}

int Factory::getEP9169PlatFormVer(char* Data) { return getChipVersion(CMD_FACTORY_GET_EP9169FORMVER, Data); }

int Factory::upgradeEP9169IC(char const* path) {
    return TVBaseClient::self()->exeCmdSet(CMD_FACOTRY_UPGRADEEP9169IC, path);
}

// Composed of items

int Factory::get455Version(char* pdata) { return getFactoryItemStrValue(CMDID_FACTORY_GET_455_VERSION, 0, 0, pdata); }

int Factory::get457Version(char* pdata) { return getFactoryItemStrValue(CMDID_FACTORY_GET_457_VERSION, 0, 0, pdata); }

int Factory::setAdjustParam(int value) { return setFactoryItemStrValue(CMDID_FACTORY_SAVE_ADJUST_PARAM, value, 0, ""); }

int Factory::getSupportEthConfig() {
    ItemBuffer values{};
    getFactoryItemValue(CMDID_FACTORY_GET_ETHCONFIG, 0, 0, values.data());
    return values[0];
}
