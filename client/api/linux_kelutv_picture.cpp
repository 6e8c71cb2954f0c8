#include "Marshalling.h"
#include "PictureModes.h"

#include <kelutv/Picture.h>
#include <kelutv/items.h>
#include <kelutv/linux_kelutv_picture.h>

#include <cstdio>

using namespace kelutv::internal;

namespace {

struct ModeIndex {
    int index;
    int streamType;
};

/** Finds the index of the mode for the stream type at hand, and prints both in the name of the caller. */
ModeIndex toIndex(const char* caller, int mode) {
    const int streamType = linux_tv_Picture_getHdrStreamType();
    std::printf("%s picturemode = %d,streamTypeIndex = %d", caller, mode, streamType);
    const int index = toServiceMode(mode, streamType);
    std::printf("%s pictureModeIndex = %d,streamTypeIndex = %d", caller, index, streamType);
    return {index, streamType};
}

} // namespace

// Picture mode

int linux_tv_Picture_setPictureMode(int picturemode) {
    const ModeIndex found = toIndex("setPictureMode", picturemode);
    return Picture::instance()->setPictureMode(found.index, found.streamType);
}

int linux_tv_Picture_getPictureMode() {
    const int streamType = linux_tv_Picture_getHdrStreamType();
    const int mode = toPictureMode(Picture::instance()->getPictureMode(), streamType);
    std::printf("getPictureMode : pictureModeIndex = %d, streamTypeIndex  = %d", mode, streamType);
    return mode;
}

int linux_tv_Picture_getPicModeEnable(int streamType, int* pModeList, int* pListSize) {
    return storeNumbers(Picture::instance()->getPicModeEnable(streamType), pModeList, pListSize);
}

int linux_tv_Picture_getBLValueInPicmode(int pictureMode) {
    return Picture::instance()->getBLValueInPicmode(toIndex("getBLValueInPicmode", pictureMode).index);
}

int linux_tv_Picture_getDreamPanelByPicmode(int pictureMode) {
    return Picture::instance()->getDreamPanelByPicmode(toIndex("getDreamPanelByPicmode", pictureMode).index);
}

int linux_tv_Picture_setCameraEnhancePictureMode(int mode, const char* pkgNameString, const char* classNameString) {
    if (pkgNameString == nullptr || classNameString == nullptr) {
        return -1;
    }
    return Picture::instance()->setCameraEnhancePictureMode(mode, pkgNameString, classNameString);
}

int linux_tv_Picture_enterAlbumPlay() { return Picture::instance()->notifyAlbumPlayStatus(1); }

int linux_tv_Picture_exitAlbumPlay() { return Picture::instance()->notifyAlbumPlayStatus(0); }

int linux_tv_Picture_restorePictureSets() { return Picture::instance()->restorePictureSets(); }

int linux_tv_Picture_debugPictureModePara(int pictureMode, int imagePara, int value) {
    return Picture::instance()->debugPictureModePara(pictureMode, imagePara, value);
}

// Image

int linux_tv_Picture_setBrightness(int brightness) { return Picture::instance()->setBrightness(brightness); }

int linux_tv_Picture_getBrightness() { return Picture::instance()->getBrightness(); }

int linux_tv_Picture_setContrast(int contrast) { return Picture::instance()->setContrast(contrast); }

int linux_tv_Picture_getContrast() { return Picture::instance()->getContrast(); }

int linux_tv_Picture_setSaturation(int saturation) { return Picture::instance()->setSaturation(saturation); }

int linux_tv_Picture_getSaturation() { return Picture::instance()->getSaturation(); }

int linux_tv_Picture_setSharpness(int sharpness) { return Picture::instance()->setSharpness(sharpness); }

int linux_tv_Picture_getSharpness() { return Picture::instance()->getSharpness(); }

int linux_tv_Picture_setHue(int hue) { return Picture::instance()->setHue(hue); }

int linux_tv_Picture_getHue() { return Picture::instance()->getHue(); }

int linux_tv_Picture_setDciLevel(int dciLevel) { return Picture::instance()->setDciLevel(dciLevel); }

int linux_tv_Picture_getDciLevel() { return Picture::instance()->getDciLevel(); }

int linux_tv_Picture_enableDCI(bool onoff) { return Picture::instance()->enableDCI(onoff); }

int linux_tv_Picture_isDCIEnable() { return Picture::instance()->isDCIEnable(); }

int linux_tv_Picture_setBlackStretchLevel(int bsLevel) { return Picture::instance()->setBlackStretchLevel(bsLevel); }

int linux_tv_Picture_getBlackStretchLevel() { return Picture::instance()->getBlackStretchLevel(); }

int linux_tv_Picture_setLocalContrastMode(int mode) { return Picture::instance()->setLocalContrastMode(mode); }

int linux_tv_Picture_getLocalContrastMode() { return Picture::instance()->getLocalContrastMode(); }

int linux_tv_Picture_setSRLevel(int srlevel) { return Picture::instance()->setSRLevel(srlevel); }

int linux_tv_Picture_getSRLevel() { return Picture::instance()->getSRLevel(); }

int linux_tv_Picture_setEyeSafeMode(int mode) { return Picture::instance()->setEyeSafeMode(mode); }

int linux_tv_Picture_getEyeSafeMode() { return Picture::instance()->getEyeSafeMode(); }

// Backlight and dimming

int linux_tv_Picture_setBacklight(int backlight) { return Picture::instance()->setBacklight(backlight); }

int linux_tv_Picture_getBacklight() { return Picture::instance()->getBacklight(); }

int linux_tv_Picture_enableBacklight(bool onoff) { return Picture::instance()->enableBacklight(onoff); }

int linux_tv_Picture_isBacklightEnable() { return Picture::instance()->isBacklightEnable(); }

int linux_tv_Picture_setDreamPanel(int mode) { return Picture::instance()->setDreamPanel(mode); }

int linux_tv_Picture_getDreamPanel() { return Picture::instance()->getDreamPanel(); }

int linux_tv_Picture_setLocalDimmingAreaNumber(int num) { return Picture::instance()->setLocalDimmingAreaNumber(num); }

int linux_tv_Picture_getLocalDimmingAreaNumber() { return Picture::instance()->getLocalDimmingAreaNumber(); }

int linux_tv_Picture_setLocalDimmingLightPosition(int pos) {
    return Picture::instance()->setLocalDimmingLightPosition(pos);
}

int linux_tv_Picture_getLocalDimmingLightPosition() { return Picture::instance()->getLocalDimmingLightPosition(); }

int linux_tv_Picture_setLocalDimmingMode(int mode) { return Picture::instance()->setLocalDimmingMode(mode); }

int linux_tv_Picture_getLocalDimmingMode() { return Picture::instance()->getLocalDimmingMode(); }

int linux_tv_Picture_setLocalDimmingDemoMode(int mode) { return Picture::instance()->setLocalDimmingDemoMode(mode); }

int linux_tv_Picture_getLocalDimmingDemoMode() { return Picture::instance()->getLocalDimmingDemoMode(); }

bool linux_tv_Picture_getLDHorseLightIsRunning() { return Picture::instance()->getLDHorseLightIsRunning() != 0; }

int linux_tv_Picture_getMicroDimmingData(int widthPartionIndex, int heightPartionIndex, int* pBuf) {
    return pBuf == nullptr ? -1 : Picture::instance()->getMicroDimmingData(widthPartionIndex, heightPartionIndex, pBuf);
}

int linux_tv_Picture_getLSADCChannelValue(int channel) { return Picture::instance()->getLSADCChannelValue(channel); }

int linux_tv_Picture_getBrightnessHistogram(int* pBuf) {
    return pBuf == nullptr ? -1 : storeNumbers(Picture::instance()->getBrightnessHistogram(), pBuf, nullptr);
}

int linux_tv_Picture_setLaserBrightness(int brightness) { return Picture::instance()->setLaserBrightness(brightness); }

int linux_tv_Picture_getLaserBrightness() { return Picture::instance()->getLaserBrightness(); }

int linux_tv_Picture_setLaserMaxBrightness(int brightness) {
    return Picture::instance()->setLaserMaxBrightness(brightness);
}

int linux_tv_Picture_getLaserMaxBrightness() { return Picture::instance()->getLaserMaxBrightness(); }

// Colour

int linux_tv_Picture_setColorTemp(int colortemp) { return Picture::instance()->setColorTemp(colortemp); }

int linux_tv_Picture_getColorTemp() { return Picture::instance()->getColorTemp(); }

int linux_tv_Picture_setColorTempPara(ColorTempData stColorTemp) {
    return Picture::instance()->setColorTempPara(stColorTemp);
}

int linux_tv_Picture_getColorTempPara(ColorTempData* pstColorTemp) {
    if (pstColorTemp == nullptr) {
        return -1;
    }
    *pstColorTemp = Picture::instance()->getColorTempPara();
    return 0;
}

int linux_tv_Picture_getMaxRGBGain() { return Picture::instance()->getMaxRGBGain(); }

int linux_tv_Picture_setColorSystem(int colorSys) { return Picture::instance()->setColorSystem(colorSys); }

int linux_tv_Picture_getColorSystem() { return Picture::instance()->getColorSystem(); }

int linux_tv_Picture_getRealColorSystem(int* colorSys) {
    storeIfGiven(colorSys, Picture::instance()->getRealColorSystem());
    return 0;
}

int linux_tv_Picture_setColorManagerTableIndex(int index) {
    return Picture::instance()->setColorManagerTableIndex(index);
}

int linux_tv_Picture_getColorManagerTableIndex() { return Picture::instance()->getColorManagerTableIndex(); }

int linux_tv_Picture_setColorRangeType(int crType) { return Picture::instance()->setColorRangeType(crType); }

int linux_tv_Picture_getColorRangeType() { return Picture::instance()->getColorRangeType(); }

int linux_tv_Picture_setHDMIColorRange(int val) { return Picture::instance()->setHDMIColorRange(val); }

int linux_tv_Picture_getHDMIColorRange() { return Picture::instance()->getHDMIColorRange(); }

int linux_tv_Picture_setFleshTone(int fleshtone) { return Picture::instance()->setFleshTone(fleshtone); }

int linux_tv_Picture_getFleshTone() { return Picture::instance()->getFleshTone(); }

int linux_tv_Picture_getMaxFleshTone() { return Picture::instance()->getMaxFleshTone(); }

int linux_tv_Picture_setFleshToneBrightness(int brightness) {
    return Picture::instance()->setFleshToneBrightness(brightness);
}

int linux_tv_Picture_getFleshToneBrightness() { return Picture::instance()->getFleshToneBrightness(); }

int linux_tv_Picture_setFleshToneHue(int hue) { return Picture::instance()->setFleshToneHue(hue); }

int linux_tv_Picture_getFleshToneHue() { return Picture::instance()->getFleshToneHue(); }

int linux_tv_Picture_setFleshToneSaturation(int saturation) {
    return Picture::instance()->setFleshToneSaturation(saturation);
}

int linux_tv_Picture_getFleshToneSaturation() { return Picture::instance()->getFleshToneSaturation(); }

int linux_tv_Picture_enableBlueExtend(bool onoff) { return Picture::instance()->enableBlueExtend(onoff); }

int linux_tv_Picture_isBlueExtendEnable() { return Picture::instance()->isBlueExtendEnable(); }

int linux_tv_Picture_setColorControlInfoPara(ColorControlInfoData stColorControlInfo) {
    return Picture::instance()->setColorControlInfoPara(stColorControlInfo);
}

int linux_tv_Picture_getColorControlInfoPara(ColorControlInfoData* pstColorControlInfo) {
    if (pstColorControlInfo == nullptr) {
        return -1;
    }
    *pstColorControlInfo = Picture::instance()->getColorControlInfoPara();
    return 0;
}

// Noise, edges and motion

int linux_tv_Picture_setNR(int nr) { return Picture::instance()->setNR(nr); }

int linux_tv_Picture_getNR() { return Picture::instance()->getNR(); }

int linux_tv_Picture_setDeBlocking(int dbLevel) { return Picture::instance()->setDeBlocking(dbLevel); }

int linux_tv_Picture_getDeBlocking() { return Picture::instance()->getDeBlocking(); }

int linux_tv_Picture_setDeRinging(int drLevel) { return Picture::instance()->setDeRinging(drLevel); }

int linux_tv_Picture_getDeRinging() { return Picture::instance()->getDeRinging(); }

int linux_tv_Picture_setMPEGNR(int level) {
    const int deBlocking = linux_tv_Picture_setDeBlocking(level);
    const int deRinging = linux_tv_Picture_setDeRinging(level);
    return deBlocking | deRinging;
}

int linux_tv_Picture_getMPEGNR(int* pLevel) {
    storeIfGiven(pLevel, linux_tv_Picture_getDeBlocking());
    return 0;
}

int linux_tv_Picture_setDeShooting(int dsLevel) { return Picture::instance()->setDeShooting(dsLevel); }

int linux_tv_Picture_getDeShooting() { return Picture::instance()->getDeShooting(); }

int linux_tv_Picture_setDeContour(int mode) { return Picture::instance()->setDeContour(mode); }

int linux_tv_Picture_getDeContour() { return Picture::instance()->getDeContour(); }

int linux_tv_Picture_setAIDeJaggyMode(bool bEnable) { return Picture::instance()->setAIDeJaggyMode(bEnable); }

int linux_tv_Picture_getAIDeJaggyMode() { return Picture::instance()->getAIDeJaggyMode(); }

int linux_tv_Picture_setFilmMode(int filmmode) { return Picture::instance()->setFilmMode(filmmode); }

int linux_tv_Picture_getFilmMode() { return Picture::instance()->getFilmMode(); }

int linux_tv_Picture_setMEMCLevel(int memclevel) { return Picture::instance()->setMEMCLevel(memclevel); }

int linux_tv_Picture_getMEMCLevel() { return Picture::instance()->getMEMCLevel(); }

int linux_tv_Picture_setMEMCDemoMode(int mode) { return Picture::instance()->setMEMCDemoMode(mode); }

int linux_tv_Picture_getMEMCDemoMode() { return Picture::instance()->getMEMCDemoMode(); }

int linux_tv_Picture_setMemcDeBlurLevel(int blurlevel) { return Picture::instance()->setMemcDeBlurLevel(blurlevel); }

int linux_tv_Picture_getMemcDeBlurLevel() { return Picture::instance()->getMemcDeBlurLevel(); }

int linux_tv_Picture_setMemcDeJudderLevel(int judderlevel) {
    return Picture::instance()->setMemcDeJudderLevel(judderlevel);
}

int linux_tv_Picture_getMemcDeJudderLevel() { return Picture::instance()->getMemcDeJudderLevel(); }

// Dynamic range

int linux_tv_Picture_getHdrStreamType() { return Picture::instance()->getHdrStreamType(); }

int linux_tv_Picture_setHdr10Enable(bool bEnable) { return Picture::instance()->setHdr10Enable(bEnable); }

int linux_tv_Picture_getHdr10Enable() { return Picture::instance()->getHdr10Enable(); }

int linux_tv_Picture_setHdrMode(int hdrMode) { return Picture::instance()->setHdrMode(hdrMode); }

int linux_tv_Picture_getHdrMode() { return Picture::instance()->getHdrMode(); }

int linux_tv_Picture_setSdrToHdrMode(int mode) { return Picture::instance()->setSdrToHdrMode(mode); }

int linux_tv_Picture_getSdrToHdrMode() { return Picture::instance()->getSdrToHdrMode(); }

// Aspect, freeze and demonstrations

int linux_tv_Picture_setAspect(int aspect, bool mute) { return Picture::instance()->setAspect(aspect, mute); }

int linux_tv_Picture_getAspect() { return Picture::instance()->getAspect(); }

int linux_tv_Picture_getAvailAspectList(int* pModeList, int* pListSize) {
    return storeNumbers(Picture::instance()->getAvailAspectList(), pModeList, pListSize);
}

int linux_tv_Picture_enableOverscan(bool bEnable) { return Picture::instance()->enableOverscan(bEnable); }

int linux_tv_Picture_isOverscanEnable() { return Picture::instance()->isOverscanEnable(); }

int linux_tv_Picture_enableFreeze(bool onOff) { return Picture::instance()->enableFreeze(onOff); }

int linux_tv_Picture_isFreezeEnable() { return Picture::instance()->isFreezeEnable(); }

int linux_tv_Picture_enableGameMode(bool bEnable) { return Picture::instance()->enableGameMode(bEnable); }

int linux_tv_Picture_isGameModeEnable() { return Picture::instance()->isGameModeEnable(); }

int linux_tv_Picture_setPcMode(int mode) { return Picture::instance()->setPcMode(mode); }

int linux_tv_Picture_getPcMode() { return Picture::instance()->GetPcMode(); }

int linux_tv_Picture_setDemoMode(int demomode, bool onoff) { return Picture::instance()->setDemoMode(demomode, onoff); }

int linux_tv_Picture_getDemoMode(int demomode) { return Picture::instance()->getDemoMode(demomode); }

int linux_tv_Picture_setDemoModeEnterExit(int demomode, int mode) {
    return Picture::instance()->setDemoModeEnterExit(demomode, mode);
}

int linux_tv_Picture_getVideoScreenShot(int width, int height, const char* pathName, bool bWithUI) {
    return pathName == nullptr ? -1 : Picture::instance()->getVideoScreenShot(width, height, pathName, bWithUI);
}

// What the set can do

int linux_tv_Picture_getCMDSupportedMode(int mSwitch) { return Picture::instance()->getCMDSupportedMode(mSwitch); }

int linux_tv_Picture_getPictureFunctionEnable(int func) { return Picture::instance()->getPictureFunctionEnable(func); }

// Generic items

int linux_tv_Picture_setColorAdvancedItem(int cmdID, int param1, int param2, int param3, int param4) {
    return Picture::instance()->setColorAdvancedItem(cmdID, param1, param2, param3, param4);
}

int linux_tv_Picture_getColorAdvancedItem(int cmdID, int param, int* pBuf) {
    return pBuf == nullptr ? -1 : Picture::instance()->getColorAdvancedItem(cmdID, param, pBuf);
}

int linux_tv_Picture_setPictureItemValue(int cmdID, int param1, int param2, int param3, int param4) {
    return Picture::instance()->setPictureItemValue(cmdID, param1, param2, param3, param4);
}

int linux_tv_Picture_getPictureItemValue(int cmdID, int param1, int param2, int* pBuf) {
    return pBuf == nullptr ? -1 : Picture::instance()->getPictureItemValue(cmdID, param1, param2, pBuf);
}

int linux_tv_Picture_copyCurPicModeDataToUser() {
    return linux_tv_Picture_setPictureItemValue(CMDID_PICTURE_COPY_CURPICDATA_TO_USER, 0, 0, 0, 0);
}
