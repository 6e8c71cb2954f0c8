#include "Marshalling.h"

#include <kelutv/Picture.h>
#include <kelutv/commands.h>
#include <kelutv/link/TVBaseClient.h>

#include <android/log.h>
#include <binder/Parcel.h>

#include <cstdint>
#include <cstdio>

using android::Parcel;
using android::TVBaseClient;
using namespace kelutv::internal;

Picture* Picture::instance() {
    static Picture mObj;
    return &mObj;
}

// Picture mode

int Picture::setPictureMode(int picturemode, int streamType) {
    __android_log_print(ANDROID_LOG_ERROR, nullptr, "%s", "setPictureMode");
    return TVBaseClient::self()->exeCmdSet(CMD_PICTURE_SETPICTUREMODE, picturemode, streamType);
}

int Picture::getPictureMode() { return TVBaseClient::self()->exeCmdGet(CMD_PICTURE_GETPICTUREMODE); }

std::list<int> Picture::getPicModeEnable(int streamType) {
    Parcel reply;
    if (TVBaseClient::self()->exeCmdGet(CMD_PICTURE_GETPICMODEENABLE, streamType, reply) != 0) {
        return {};
    }
    return readNumbers(reply);
}

int Picture::getBLValueInPicmode(int pictureMode) {
    return TVBaseClient::self()->exeCmdGet(CMD_PICTURE_GETBACKLIGHT_INPICMODE, pictureMode);
}

int Picture::getDreamPanelByPicmode(int pictureMode) {
    return TVBaseClient::self()->exeCmdGet(CMD_PICTURE_GETDREAMPANEL_BYPICMODE, pictureMode);
}

int Picture::setCameraEnhancePictureMode(int mode, char const* pkgName, char const* className) {
    return TVBaseClient::self()->exeCmdSet(CMD_PICTURE_SET_CAMERA_ENHANCE_PICTURE_MODE, mode, pkgName, className);
}

int Picture::notifyAlbumPlayStatus(int mode) {
    return TVBaseClient::self()->exeCmdSet(CMD_PICTURE_NOTIFYALBUMPLAYSTATUS, mode);
}

int Picture::restorePictureSets() { return TVBaseClient::self()->exeCmdSet(CMD_PICTURE_RESTOREPICTURESETS); }

int Picture::debugPictureModePara(int pictureMode, int imagePara, int value) {
    std::fprintf(stderr, "pictureMode=%d,imagePara=%d,value=%d\n", pictureMode, imagePara, value);
    return TVBaseClient::self()->exeCmdSet(CMD_PICTURE_DEBUGTPICTUREMODEPARA, pictureMode, imagePara, value);
}

int Picture::setDolbyHdrPicMode(int) { return -1; }

int Picture::getDolbyHdrPicMode() { return -1; }

// Image

int Picture::setBrightness(int brightness) {
    return TVBaseClient::self()->exeCmdSet(CMD_PICTURE_SETBRIGHTNESS, brightness);
}

int Picture::getBrightness() { return TVBaseClient::self()->exeCmdGet(CMD_PICTURE_GETBRIGHTNESS); }

int Picture::setContrast(int contrast) { return TVBaseClient::self()->exeCmdSet(CMD_PICTURE_SETCONTRAST, contrast); }

int Picture::getContrast() { return TVBaseClient::self()->exeCmdGet(CMD_PICTURE_GETCONTRAST); }

int Picture::setSaturation(int saturation) {
    return TVBaseClient::self()->exeCmdSet(CMD_PICTURE_SETSATURATION, saturation);
}

int Picture::getSaturation() { return TVBaseClient::self()->exeCmdGet(CMD_PICTURE_GETSATURATION); }

int Picture::setSharpness(int sharpness) {
    return TVBaseClient::self()->exeCmdSet(CMD_PICTURE_SETSHARPNESS, sharpness);
}

int Picture::getSharpness() { return TVBaseClient::self()->exeCmdGet(CMD_PICTURE_GETSHARPNESS); }

int Picture::setHue(int hue) { return TVBaseClient::self()->exeCmdSet(CMD_PICTURE_SETHUE, hue); }

int Picture::getHue() { return TVBaseClient::self()->exeCmdGet(CMD_PICTURE_GETHUE); }

int Picture::setDciLevel(int dciLevel) { return TVBaseClient::self()->exeCmdSet(CMD_PICTURE_SETDCILEVEL, dciLevel); }

int Picture::getDciLevel() { return TVBaseClient::self()->exeCmdGet(CMD_PICTURE_GETDCILEVEL); }

int Picture::enableDCI(bool onoff) { return TVBaseClient::self()->exeCmdSet(CMD_PICTURE_SETDCI, onoff); }

bool Picture::isDCIEnable() { return TVBaseClient::self()->exeCmdGet(CMD_PICTURE_GETDCI) != 0; }

int Picture::setBlackStretchLevel(int bsLevel) {
    return TVBaseClient::self()->exeCmdSet(CMD_PICTURE_SETBLACKSTRETCH, bsLevel);
}

int Picture::getBlackStretchLevel() { return TVBaseClient::self()->exeCmdGet(CMD_PICTURE_GETBLACKSTRETCH); }

int Picture::setLocalContrastMode(int mode) {
    return TVBaseClient::self()->exeCmdSet(CMD_PICTURE_SETLOCALCONTRASTMODE, mode);
}

int Picture::getLocalContrastMode() { return TVBaseClient::self()->exeCmdGet(CMD_PICTURE_GETLOCALCONTRASTMODE); }

int Picture::setSRLevel(int srlevel) { return TVBaseClient::self()->exeCmdSet(CMD_PICTURE_SETSRLEVEL, srlevel); }

int Picture::getSRLevel() { return TVBaseClient::self()->exeCmdGet(CMD_PICTURE_GETSRLEVEL); }

int Picture::setEyeSafeMode(int mode) { return TVBaseClient::self()->exeCmdSet(CMD_PICTURE_SETEYESAFEMODE, mode); }

int Picture::getEyeSafeMode() { return TVBaseClient::self()->exeCmdGet(CMD_PICTURE_GETEYESAFEMODE); }

// Backlight and dimming

int Picture::setBacklight(int backlight) {
    __android_log_print(ANDROID_LOG_DEBUG, nullptr, "##########setBacklight");
    return TVBaseClient::self()->exeCmdSet(CMD_PICTURE_SETBACKLIGHT, backlight);
}

int Picture::getBacklight() { return TVBaseClient::self()->exeCmdGet(CMD_PICTURE_GETBACKLIGHT); }

int Picture::enableBacklight(bool onoff) {
    return TVBaseClient::self()->exeCmdSet(CMD_PICTURE_SETBACKLIGHTENABLE, onoff);
}

bool Picture::isBacklightEnable() { return TVBaseClient::self()->exeCmdGet(CMD_PICTURE_GETBACKLIGHTENABLE) != 0; }

int Picture::enableDynamicBL(bool onoff) { return TVBaseClient::self()->exeCmdSet(CMD_PICTURE_SETDYNAMICBL, onoff); }

bool Picture::isDynamicBLEnable() { return TVBaseClient::self()->exeCmdGet(CMD_PICTURE_GETDYNAMICBL) != 0; }

int Picture::setMatrixBacklight(bool onOff) {
    return TVBaseClient::self()->exeCmdSet(CMD_PICTURE_SETMATRIXBACKLIGHT, onOff);
}

bool Picture::getMatrixBacklight() { return TVBaseClient::self()->exeCmdGet(CMD_PICTURE_GETMATRIXBACKLIGHT) != 0; }

int Picture::setDreamPanel(int mode) { return TVBaseClient::self()->exeCmdSet(CMD_PICTURE_SETDREAMPANEL, mode); }

int Picture::getDreamPanel() { return TVBaseClient::self()->exeCmdGet(CMD_PICTURE_GETDREAMPANEL); }

int Picture::setLocalDimmingAreaNumber(int num) {
    return TVBaseClient::self()->exeCmdSet(CMD_PICTURE_SETLDAREANUM, num);
}

int Picture::getLocalDimmingAreaNumber() { return TVBaseClient::self()->exeCmdGet(CMD_PICTURE_GETLDAREANUM); }

int Picture::setLocalDimmingLightPosition(int pos) {
    return TVBaseClient::self()->exeCmdSet(CMD_PICTURE_SETLDLIGHTPOS, pos);
}

int Picture::getLocalDimmingLightPosition() { return TVBaseClient::self()->exeCmdGet(CMD_PICTURE_GETLDLIGHTPOS); }

int Picture::setLocalDimmingMode(int mode) { return TVBaseClient::self()->exeCmdSet(CMD_PICTURE_SETLDMODE, mode); }

int Picture::getLocalDimmingMode() { return TVBaseClient::self()->exeCmdGet(CMD_PICTURE_GETLDMODE); }

int Picture::setLocalDimmingDemoMode(int mode) {
    return TVBaseClient::self()->exeCmdSet(CMD_PICTURE_SETLDDEMOMODE, mode);
}

int Picture::getLocalDimmingDemoMode() { return TVBaseClient::self()->exeCmdGet(CMD_PICTURE_GETLDDEMOMODE); }

int Picture::getLDHorseLightIsRunning() {
    return TVBaseClient::self()->exeCmdGet(CMD_PICTURE_GETLDHORSELIGHT_ISRUNNING);
}

int Picture::getMicroDimmingData(int widthPartionIndex, int heightPartionIndex, int* buff) {
    if (buff == nullptr) {
        __android_log_print(ANDROID_LOG_ERROR, nullptr, "getMicroDimmingData input buf is null");
        return -1;
    }
    Parcel reply;
    if (TVBaseClient::self()->exeCmdGet(CMD_PICTURE_GETMICRODIMMINGDATA, widthPartionIndex, heightPartionIndex,
                                        reply) != 0) {
        return -1;
    }
    readValues(reply, buff, static_cast<std::int64_t>(widthPartionIndex) * heightPartionIndex);
    return 0;
}

int Picture::getLSADCChannelValue(int channel) {
    return TVBaseClient::self()->exeCmdGet(CMD_PICTURE_GETLSADCCHANNELVALUE, channel);
}

std::list<int> Picture::getBrightnessHistogram() {
    Parcel reply;
    if (TVBaseClient::self()->exeCmdGet(CMD_PICTURE_GETBRIGHTNESSHISTOGRAM, reply) != 0) {
        return {};
    }
    return readNumbers(reply);
}

int Picture::setLaserBrightness(int brightness) {
    return TVBaseClient::self()->exeCmdSet(CMD_PICTURE_SET_LASER_BRIGTH, brightness);
}

int Picture::getLaserBrightness() { return TVBaseClient::self()->exeCmdGet(CMD_PICTURE_GET_LASER_BRIGTH); }

int Picture::setLaserMaxBrightness(int brightness) {
    return TVBaseClient::self()->exeCmdSet(CMD_PICTURE_SET_LASER_MAXBRIGTH, brightness);
}

int Picture::getLaserMaxBrightness() { return TVBaseClient::self()->exeCmdGet(CMD_PICTURE_GET_LASER_MAXBRIGTH); }

// Colour

int Picture::setColorTemp(int colortemp) {
    return TVBaseClient::self()->exeCmdSet(CMD_PICTURE_SETCOLORTEMP, colortemp);
}

int Picture::getColorTemp() { return TVBaseClient::self()->exeCmdGet(CMD_PICTURE_GETCOLORTEMP); }

int Picture::setColorTempPara(ColorTempData stColorTemp) {
    return Request()
        .words({stColorTemp.redGain, stColorTemp.greenGain, stColorTemp.blueGain, stColorTemp.redOffset,
                stColorTemp.greenOffset, stColorTemp.blueOffset})
        .send(CMD_PICTURE_SETCOLORTEMPDATA);
}

ColorTempData Picture::getColorTempPara() {
    ColorTempData colorTemp{};
    Parcel reply;
    if (TVBaseClient::self()->exeCmdGet(CMD_PICTURE_GETCOLORTEMPDATA, reply) == 0) {
        readWords(reply, {&colorTemp.redGain, &colorTemp.greenGain, &colorTemp.blueGain, &colorTemp.redOffset,
                          &colorTemp.greenOffset, &colorTemp.blueOffset});
    }
    return colorTemp;
}

int Picture::getMaxRGBGain() { return TVBaseClient::self()->exeCmdGet(CMD_PICTURE_GET_MAX_RGB_GAIN); }

int Picture::setColorSystem(int colorSys) {
    return TVBaseClient::self()->exeCmdSet(CMD_PICTURE_SETCOLORSYSTEM, colorSys);
}

int Picture::getColorSystem() { return TVBaseClient::self()->exeCmdGet(CMD_PICTURE_GETCOLORSYSTEM); }

int Picture::getRealColorSystem() { return TVBaseClient::self()->exeCmdGet(CMD_EXTRA_GETREALCLRSYS); }

int Picture::setColorManagerTableIndex(int index) {
    return TVBaseClient::self()->exeCmdSet(CMD_PICTURE_SETCOLORGAIN, index);
}

int Picture::getColorManagerTableIndex() { return TVBaseClient::self()->exeCmdGet(CMD_PICTURE_GETCOLORGAIN); }

int Picture::setColorRangeType(int crType) {
    return TVBaseClient::self()->exeCmdSet(CMD_PICTURE_SETCOLORRANGETYPE, crType);
}

int Picture::getColorRangeType() { return TVBaseClient::self()->exeCmdGet(CMD_PICTURE_GETCOLORRANGETYPE); }

int Picture::setHDMIColorRange(int val) { return TVBaseClient::self()->exeCmdSet(CMD_PICTURE_SETHDMICOLORRANGE, val); }

int Picture::getHDMIColorRange() { return TVBaseClient::self()->exeCmdGet(CMD_PICTURE_GETHDMICOLORRANGE); }

int Picture::setFleshTone(int fleshtone) {
    return TVBaseClient::self()->exeCmdSet(CMD_PICTURE_SETFLESHTONE, fleshtone);
}

int Picture::getFleshTone() { return TVBaseClient::self()->exeCmdGet(CMD_PICTURE_GETFLESHTONE); }

int Picture::getMaxFleshTone() { return TVBaseClient::self()->exeCmdGet(CMD_PICTURE_GET_MAX_FLESHTONE); }

int Picture::setFleshToneBrightness(int brightness) {
    return TVBaseClient::self()->exeCmdSet(CMD_PICTURE_SETFLESHTONEBRIGHTNESS, brightness);
}

int Picture::getFleshToneBrightness() { return TVBaseClient::self()->exeCmdGet(CMD_PICTURE_GETFLESHTONEBRIGHTNESS); }

int Picture::setFleshToneHue(int hue) { return TVBaseClient::self()->exeCmdSet(CMD_PICTURE_SETFLESHTONEHUE, hue); }

int Picture::getFleshToneHue() { return TVBaseClient::self()->exeCmdGet(CMD_PICTURE_GETFLESHTONEHUE); }

int Picture::setFleshToneSaturation(int saturation) {
    return TVBaseClient::self()->exeCmdSet(CMD_PICTURE_SETFLESHTONESATURATION, saturation);
}

int Picture::getFleshToneSaturation() { return TVBaseClient::self()->exeCmdGet(CMD_PICTURE_GETFLESHTONESATURATION); }

int Picture::enableBlueExtend(bool onoff) { return TVBaseClient::self()->exeCmdSet(CMD_PICTURE_SETBLEXTEND, onoff); }

bool Picture::isBlueExtendEnable() { return TVBaseClient::self()->exeCmdGet(CMD_PICTURE_GETBLEXTEND) != 0; }

int Picture::setColorControlInfoPara(ColorControlInfoData stColorControlInfo) {
    return Request()
        .words({stColorControlInfo.red, stColorControlInfo.green, stColorControlInfo.blue, stColorControlInfo.cyan,
                stColorControlInfo.magenta, stColorControlInfo.yellow, stColorControlInfo.complexion})
        .send(CMD_PICTURE_SETCOLORCONTROLINFOPARA);
}

ColorControlInfoData Picture::getColorControlInfoPara() {
    ColorControlInfoData colors{};
    Parcel reply;
    if (TVBaseClient::self()->exeCmdGet(CMD_PICTURE_GETCOLORCONTROLINFOPARA, reply) == 0) {
        readWords(reply, {&colors.red, &colors.green, &colors.blue, &colors.cyan, &colors.magenta, &colors.yellow,
                          &colors.complexion});
    }
    return colors;
}

// Noise, edges and motion

int Picture::setNR(int nr) { return TVBaseClient::self()->exeCmdSet(CMD_PICTURE_SETNR, nr); }

int Picture::getNR() { return TVBaseClient::self()->exeCmdGet(CMD_PICTURE_GETNR); }

int Picture::setDeBlocking(int dbLevel) { return TVBaseClient::self()->exeCmdSet(CMD_PICTURE_SETDEBLOCKING, dbLevel); }

int Picture::getDeBlocking() { return TVBaseClient::self()->exeCmdGet(CMD_PICTURE_GETDEBLOCKING); }

int Picture::setDeRinging(int drLevel) { return TVBaseClient::self()->exeCmdSet(CMD_PICTURE_SETDERINGING, drLevel); }

int Picture::getDeRinging() { return TVBaseClient::self()->exeCmdGet(CMD_PICTURE_GETDERINGING); }

int Picture::setDeShooting(int dsLevel) { return TVBaseClient::self()->exeCmdSet(CMD_PICTURE_SETDESHOOTING, dsLevel); }

int Picture::getDeShooting() { return TVBaseClient::self()->exeCmdGet(CMD_PICTURE_GETDESHOOTING); }

int Picture::setDeContour(int mode) { return TVBaseClient::self()->exeCmdSet(CMD_PICTURE_SETDECONTOUR, mode); }

int Picture::getDeContour() { return TVBaseClient::self()->exeCmdGet(CMD_PICTURE_GETDECONTOUR); }

int Picture::setAIDeJaggyMode(bool bEnable) {
    return TVBaseClient::self()->exeCmdSet(CMD_PICTURE_SET_AI_DEJAGGY, bEnable);
}

bool Picture::getAIDeJaggyMode() { return TVBaseClient::self()->exeCmdGet(CMD_PICTURE_GET_AI_DEJAGGY) != 0; }

int Picture::setFilmMode(int filmmode) { return TVBaseClient::self()->exeCmdSet(CMD_PICTURE_SETFILMMODE, filmmode); }

int Picture::getFilmMode() { return TVBaseClient::self()->exeCmdGet(CMD_PICTURE_GETFILMMODE); }

int Picture::setMEMCEnable(bool onoff) { return TVBaseClient::self()->exeCmdSet(CMD_PICTURE_SETMEMCENABLE, onoff); }

bool Picture::isMEMCEnable() { return TVBaseClient::self()->exeCmdGet(CMD_PICTURE_GETMEMCENABLE) != 0; }

int Picture::setMEMCLevel(int memclevel) {
    return TVBaseClient::self()->exeCmdSet(CMD_PICTURE_SETMEMCLEVEL, memclevel);
}

int Picture::getMEMCLevel() { return TVBaseClient::self()->exeCmdGet(CMD_PICTURE_GETMEMCLEVEL); }

int Picture::setMEMCDemoMode(int mode) { return TVBaseClient::self()->exeCmdSet(CMD_PICTURE_SETMEMCDEMOMODE, mode); }

int Picture::getMEMCDemoMode() { return TVBaseClient::self()->exeCmdGet(CMD_PICTURE_GETMEMCDEMOMODE); }

int Picture::setMemcDeBlurLevel(int blurlevel) {
    return TVBaseClient::self()->exeCmdSet(CMD_PICTURE_SETMEMCDEBLURLEVEL, blurlevel);
}

int Picture::getMemcDeBlurLevel() { return TVBaseClient::self()->exeCmdGet(CMD_PICTURE_GETMEMCDEBLURLEVEL); }

int Picture::setMemcDeJudderLevel(int judderlevel) {
    return TVBaseClient::self()->exeCmdSet(CMD_PICTURE_SETMEMCDEJUDDERLEVEL, judderlevel);
}

int Picture::getMemcDeJudderLevel() { return TVBaseClient::self()->exeCmdGet(CMD_PICTURE_GETMEMCDEJUDDERLEVEL); }

// Dynamic range

int Picture::getHdrStreamType() { return TVBaseClient::self()->exeCmdGet(CMD_PICTURE_GETHDRSTREAMTYPE); }

int Picture::setHdr10Enable(bool bEnable) {
    return TVBaseClient::self()->exeCmdSet(CMD_PICTURE_SETHDR10ENABLE, bEnable);
}

bool Picture::getHdr10Enable() { return TVBaseClient::self()->exeCmdGet(CMD_PICTURE_GETHDR10ENABLE) != 0; }

int Picture::setHdrMode(int hdrMode) { return TVBaseClient::self()->exeCmdSet(CMD_PICTURE_SET_HDR_MODE, hdrMode); }

int Picture::getHdrMode() { return TVBaseClient::self()->exeCmdGet(CMD_PICTURE_GET_HDR_MODE); }

int Picture::setSdrToHdrMode(int mode) { return TVBaseClient::self()->exeCmdSet(CMD_PICTURE_SETSDRTOHDRMODE, mode); }

int Picture::getSdrToHdrMode() { return TVBaseClient::self()->exeCmdGet(CMD_PICTURE_GETSDRTOHDRMODE); }

// Aspect, freeze and demonstrations

int Picture::setAspect(int aspect, bool mute) {
    return TVBaseClient::self()->exeCmdSet(CMD_PICTURE_SETASPECT, aspect, mute);
}

int Picture::getAspect() { return TVBaseClient::self()->exeCmdGet(CMD_PICTURE_GETASPECT); }

std::list<int> Picture::getAvailAspectList() {
    Parcel reply;
    if (TVBaseClient::self()->exeCmdGet(CMD_PICTURE_GETAVAILASPECT, reply) != 0) {
        return {};
    }
    return readNumbers(reply);
}

int Picture::enableOverscan(bool bEnable) {
    return TVBaseClient::self()->exeCmdSet(CMD_PICTURE_SETOVERSCANENABLE, bEnable);
}

bool Picture::isOverscanEnable() { return TVBaseClient::self()->exeCmdGet(CMD_PICTURE_GETOVERSCANENABLE) != 0; }

int Picture::setScopeInfo(ScopeInfo scope) {
    return Request().words({scope.horPos, scope.verPos, scope.horRange, scope.verRange}).send(CMD_PICTURE_SETSCOPE);
}

ScopeInfo Picture::getScopeInfo() {
    ScopeInfo scope{};
    Parcel reply;
    if (TVBaseClient::self()->exeCmdGet(CMD_PICTURE_GETSCOPE, reply) == 0) {
        readWords(reply, {&scope.horPos, &scope.verPos, &scope.horRange, &scope.verRange});
    }
    return scope;
}

int Picture::enableFreeze(bool onOff) { return TVBaseClient::self()->exeCmdSet(CMD_PICTURE_SETFREEZE, onOff); }

bool Picture::isFreezeEnable() { return TVBaseClient::self()->exeCmdGet(CMD_PICTURE_GETFREEZE) != 0; }

int Picture::enableGameMode(bool bEnable) { return TVBaseClient::self()->exeCmdSet(CMD_PICTURE_SETGAMEMODE, bEnable); }

bool Picture::isGameModeEnable() { return TVBaseClient::self()->exeCmdGet(CMD_PICTURE_GETGAMEMODE) != 0; }

int Picture::setPcMode(int mode) { return TVBaseClient::self()->exeCmdSet(CMD_PICTURE_SETPCMODE, mode); }

int Picture::GetPcMode() { return TVBaseClient::self()->exeCmdGet(CMD_PICTURE_GETPCMODE); }

int Picture::setDemoMode(int demomode, bool onoff) {
    return TVBaseClient::self()->exeCmdSet(CMD_PICTURE_SETDEMOMODE, demomode, onoff);
}

bool Picture::getDemoMode(int demomode) {
    return TVBaseClient::self()->exeCmdGet(CMD_PICTURE_GETDEMOMODE, demomode) != 0;
}

int Picture::setDemoModeEnterExit(int demomode, int mode) {
    return TVBaseClient::self()->exeCmdSet(CMD_PICTURE_SETDEMOMODEENTEREXIT, demomode, mode);
}

int Picture::getVideoScreenShot(int width, int height, char const* path, bool bWithUI) {
    return TVBaseClient::self()->exeCmdSet(CMD_PICTURE_GETVIDEOSCREENSHOT, width, height, path, bWithUI);
}

// What the set can do

int Picture::getCMDSupportedMode(int mSwitch) {
    return TVBaseClient::self()->exeCmdGet(CMD_PICTURE_GETCMDSUPPORTEDMODE, mSwitch);
}

int Picture::getPictureFunctionEnable(int func) {
    return TVBaseClient::self()->exeCmdGet(CMD_PICTURE_GETPICTUREFUNTIONENABLE, func);
}

// Generic items

int Picture::setColorAdvancedItem(int cmdID, int param1, int param2, int param3, int param4) {
    return TVBaseClient::self()->exeCmdSet(CMD_PICTURE_SET_COLOR_ADVANCED, cmdID, param1, param2, param3, param4);
}

int Picture::getColorAdvancedItem(int cmdID, int param, int* pData) {
    if (pData == nullptr) {
        __android_log_print(ANDROID_LOG_ERROR, nullptr, "getColorAdvancedItem input buf is null");
        return -1;
    }
    Parcel reply;
    if (TVBaseClient::self()->exeCmdGet(CMD_PICTURE_GET_COLOR_ADVANCED, cmdID, param, reply) != 0) {
        return -1;
    }
    readItemValues(reply, pData);
    return 0;
}

int Picture::setPictureItemValue(int cmdID, int param1, int param2, int param3, int param4) {
    return TVBaseClient::self()->exeCmdSet(CMD_PICTURE_COMMON_SET_ITEM_VALUE, cmdID, param1, param2, param3, param4);
}

int Picture::getPictureItemValue(int cmdID, int param1, int param2, int* pData) {
    if (pData == nullptr) {
        __android_log_print(ANDROID_LOG_ERROR, nullptr, "getPictureItemValue input buf is null");
        return -1;
    }
    Parcel reply;
    if (TVBaseClient::self()->exeCmdGet(CMD_PICTURE_COMMON_GET_ITEM_VALUE, cmdID, param1, param2, reply) != 0) {
        return -1;
    }
    readItemValues(reply, pData);
    return 0;
}
