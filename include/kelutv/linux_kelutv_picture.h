/**
 * @file
 * The picture of the television: modes, image values, backlight, colour, noise and motion, dynamic range, aspect.
 *
 * A function is one command to the TV base service, which owns all values, unless it says that it is two. It blocks
 * until the service has answered and may be called from any thread. A `bool` travels as 0 or 1. A set command whose
 * link fails is logged as "invoke failure\n"; what else is logged is said at the methods of `Picture`.
 */
#ifndef KELUTV_LINUX_KELUTV_PICTURE_H
#define KELUTV_LINUX_KELUTV_PICTURE_H

#include <kelutv/export.h>
#include <kelutv/picture_types.h>

#include <stdbool.h>

#ifdef __cplusplus
extern "C" {
#endif

/**
 * @name Picture mode
 * @{
 */

/**
 * Chooses the picture mode.
 * Reads the stream type, prints the mode, turns it into the index it has among the modes of that stream type, prints
 * that, and forwards it to `Picture::setPictureMode`, which sends `CMD_PICTURE_SETPICTUREMODE`: the index, the stream
 * type. Two commands in all; the prints go to standard output without a line end. A stream type that cannot be read
 * is -1, which has the modes of standard dynamic range and is sent so.
 * @param picturemode One of `KELU_TV_PIC_MODE_E`; any other, and one the stream type does not have, is taken as the
 * first mode.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setPictureMode(int picturemode);

/**
 * Reads the picture mode.
 * Reads the stream type, forwards to `Picture::getPictureMode`, which sends `CMD_PICTURE_GETPICTUREMODE`, turns the
 * index into the mode it stands for among the modes of that stream type, and prints mode and stream type to standard
 * output without a line end. Two commands in all.
 * @return One of `KELU_TV_PIC_MODE_E`; `KELU_TV_PIC_MODE_STANDARD` for an index without a mode, and when the index
 * cannot be read. When only the stream type cannot be read, the index is taken as one of a signal of standard dynamic
 * range.
 */
KELUTV_API int linux_tv_Picture_getPictureMode(void);

/**
 * Reads which picture modes a stream type offers.
 * Forwards to `Picture::getPicModeEnable`, which sends `CMD_PICTURE_GETPICMODEENABLE`: `streamType`; the answer holds
 * ints until its end.
 * @param streamType Stream type, one of `KELU_TV_HDR_TYPE_E`.
 * @param pModeList Receives the modes in the service's order, for a signal of standard dynamic range of
 * `KELU_TV_PIC_MODE_NEW_E` and so on. Must have room for all the service sends; untouched on failure; may be null.
 * @param pListSize Receives their count; untouched on failure; may be null.
 * @return 0; -1 when there is no entry or the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getPicModeEnable(int streamType, int* pModeList, int* pListSize);

/**
 * Reads the backlight a picture mode has.
 * Finds the index of the mode as `linux_tv_Picture_setPictureMode` does, prints included, and forwards it to
 * `Picture::getBLValueInPicmode`, which sends `CMD_PICTURE_GETBACKLIGHT_INPICMODE`: the index. Two commands in all.
 * @param pictureMode One of `KELU_TV_PIC_MODE_E`; any other, and one the stream type does not have, is taken as the
 * first mode.
 * @return The backlight; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getBLValueInPicmode(int pictureMode);

/**
 * Reads the dream panel setting a picture mode has.
 * Finds the index of the mode as `linux_tv_Picture_setPictureMode` does, prints included, and forwards it to
 * `Picture::getDreamPanelByPicmode`, which sends `CMD_PICTURE_GETDREAMPANEL_BYPICMODE`: the index. Two commands in all.
 * @param pictureMode One of `KELU_TV_PIC_MODE_E`; any other, and one the stream type does not have, is taken as the
 * first mode.
 * @return One of `KELU_TV_PANELLEVEL_E`; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getDreamPanelByPicmode(int pictureMode);

/**
 * Chooses the enhanced picture mode for an application that shows a camera.
 * Forwards to `Picture::setCameraEnhancePictureMode`, which sends `CMD_PICTURE_SET_CAMERA_ENHANCE_PICTURE_MODE`:
 * `mode`, `pkgName`, `className`.
 * @param mode Mode as the service numbers it.
 * @param pkgNameString Package of the application.
 * @param classNameString Class of the application.
 * @return The service's result, 0 for success; -1 when the link fails, and for a null string, with nothing sent.
 */
KELUTV_API int linux_tv_Picture_setCameraEnhancePictureMode(int mode, const char* pkgNameString,
                                                            const char* classNameString);

/**
 * Tells the service that an album of photographs is being shown.
 * Forwards to `Picture::notifyAlbumPlayStatus` with 1, which sends `CMD_PICTURE_NOTIFYALBUMPLAYSTATUS`: 1.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_enterAlbumPlay(void);

/**
 * Tells the service that an album of photographs is no longer shown.
 * Forwards to `Picture::notifyAlbumPlayStatus` with 0, which sends `CMD_PICTURE_NOTIFYALBUMPLAYSTATUS`: 0.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_exitAlbumPlay(void);

/**
 * Restores the picture settings to their defaults.
 * Forwards to `Picture::restorePictureSets`, which sends `CMD_PICTURE_RESTOREPICTURESETS`.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_restorePictureSets(void);

/**
 * Tries out one value of the image inside a picture mode.
 * Forwards to `Picture::debugPictureModePara`, which sends `CMD_PICTURE_DEBUGTPICTUREMODEPARA`: `pictureMode`,
 * `imagePara`, `value`. Prints the arguments to standard error first.
 * @param pictureMode Index of the mode among those of the stream type at hand.
 * @param imagePara One of `KELU_TV_PIC_IMAGE_E`.
 * @param value Value; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_debugPictureModePara(int pictureMode, int imagePara, int value);

/** @} */

/**
 * @name Image
 * @{
 */

/**
 * Sets the brightness.
 * Forwards to `Picture::setBrightness`, which sends `CMD_PICTURE_SETBRIGHTNESS`: `brightness`.
 * @param brightness Brightness; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setBrightness(int brightness);

/**
 * Reads the brightness.
 * Forwards to `Picture::getBrightness`, which sends `CMD_PICTURE_GETBRIGHTNESS`.
 * @return The brightness; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getBrightness(void);

/**
 * Sets the contrast.
 * Forwards to `Picture::setContrast`, which sends `CMD_PICTURE_SETCONTRAST`: `contrast`.
 * @param contrast Contrast; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setContrast(int contrast);

/**
 * Reads the contrast.
 * Forwards to `Picture::getContrast`, which sends `CMD_PICTURE_GETCONTRAST`.
 * @return The contrast; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getContrast(void);

/**
 * Sets the saturation.
 * Forwards to `Picture::setSaturation`, which sends `CMD_PICTURE_SETSATURATION`: `saturation`.
 * @param saturation Saturation; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setSaturation(int saturation);

/**
 * Reads the saturation.
 * Forwards to `Picture::getSaturation`, which sends `CMD_PICTURE_GETSATURATION`.
 * @return The saturation; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getSaturation(void);

/**
 * Sets the sharpness.
 * Forwards to `Picture::setSharpness`, which sends `CMD_PICTURE_SETSHARPNESS`: `sharpness`.
 * @param sharpness Sharpness; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setSharpness(int sharpness);

/**
 * Reads the sharpness.
 * Forwards to `Picture::getSharpness`, which sends `CMD_PICTURE_GETSHARPNESS`.
 * @return The sharpness; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getSharpness(void);

/**
 * Sets the hue.
 * Forwards to `Picture::setHue`, which sends `CMD_PICTURE_SETHUE`: `hue`.
 * @param hue Hue; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setHue(int hue);

/**
 * Reads the hue.
 * Forwards to `Picture::getHue`, which sends `CMD_PICTURE_GETHUE`.
 * @return The hue; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getHue(void);

/**
 * Sets the level of the dynamic contrast.
 * Forwards to `Picture::setDciLevel`, which sends `CMD_PICTURE_SETDCILEVEL`: `dciLevel`.
 * @param dciLevel Level; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setDciLevel(int dciLevel);

/**
 * Reads the level of the dynamic contrast.
 * Forwards to `Picture::getDciLevel`, which sends `CMD_PICTURE_GETDCILEVEL`.
 * @return The level; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getDciLevel(void);

/**
 * Switches the dynamic contrast on or off.
 * Forwards to `Picture::enableDCI`, which sends `CMD_PICTURE_SETDCI`: `onoff`.
 * @param onoff True switches it on.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_enableDCI(bool onoff);

/**
 * Tells whether the dynamic contrast is on.
 * Forwards to `Picture::isDCIEnable`, which sends `CMD_PICTURE_GETDCI`.
 * @return 0 for the service's 0; 1 for any other answer, a failure included.
 */
KELUTV_API int linux_tv_Picture_isDCIEnable(void);

/**
 * Sets the level of the black stretch.
 * Forwards to `Picture::setBlackStretchLevel`, which sends `CMD_PICTURE_SETBLACKSTRETCH`: `bsLevel`.
 * @param bsLevel Level; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setBlackStretchLevel(int bsLevel);

/**
 * Reads the level of the black stretch.
 * Forwards to `Picture::getBlackStretchLevel`, which sends `CMD_PICTURE_GETBLACKSTRETCH`.
 * @return The level; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getBlackStretchLevel(void);

/**
 * Sets the mode of the local contrast.
 * Forwards to `Picture::setLocalContrastMode`, which sends `CMD_PICTURE_SETLOCALCONTRASTMODE`: `mode`.
 * @param mode Mode as the service numbers it; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setLocalContrastMode(int mode);

/**
 * Reads the mode of the local contrast.
 * Forwards to `Picture::getLocalContrastMode`, which sends `CMD_PICTURE_GETLOCALCONTRASTMODE`.
 * @return The mode; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getLocalContrastMode(void);

/**
 * Sets the level of the super resolution.
 * Forwards to `Picture::setSRLevel`, which sends `CMD_PICTURE_SETSRLEVEL`: `srlevel`.
 * @param srlevel Level; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setSRLevel(int srlevel);

/**
 * Reads the level of the super resolution.
 * Forwards to `Picture::getSRLevel`, which sends `CMD_PICTURE_GETSRLEVEL`.
 * @return The level; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getSRLevel(void);

/**
 * Sets the eye protection mode.
 * Forwards to `Picture::setEyeSafeMode`, which sends `CMD_PICTURE_SETEYESAFEMODE`: `mode`.
 * @param mode Mode as the service numbers it; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setEyeSafeMode(int mode);

/**
 * Reads the eye protection mode.
 * Forwards to `Picture::getEyeSafeMode`, which sends `CMD_PICTURE_GETEYESAFEMODE`.
 * @return The mode; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getEyeSafeMode(void);

/** @} */

/**
 * @name Backlight and dimming
 * @{
 */

/**
 * Sets the backlight.
 * Forwards to `Picture::setBacklight`, which sends `CMD_PICTURE_SETBACKLIGHT`: `backlight`.
 * @param backlight Backlight; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setBacklight(int backlight);

/**
 * Reads the backlight.
 * Forwards to `Picture::getBacklight`, which sends `CMD_PICTURE_GETBACKLIGHT`.
 * @return The backlight; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getBacklight(void);

/**
 * Switches the backlight on or off.
 * Forwards to `Picture::enableBacklight`, which sends `CMD_PICTURE_SETBACKLIGHTENABLE`: `onoff`.
 * @param onoff True switches it on.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_enableBacklight(bool onoff);

/**
 * Tells whether the backlight is on.
 * Forwards to `Picture::isBacklightEnable`, which sends `CMD_PICTURE_GETBACKLIGHTENABLE`.
 * @return 0 for the service's 0; 1 for any other answer, a failure included.
 */
KELUTV_API int linux_tv_Picture_isBacklightEnable(void);

/**
 * Chooses the dream panel setting.
 * Forwards to `Picture::setDreamPanel`, which sends `CMD_PICTURE_SETDREAMPANEL`: `mode`.
 * @param mode One of `KELU_TV_PANELLEVEL_E`.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setDreamPanel(int mode);

/**
 * Reads the dream panel setting.
 * Forwards to `Picture::getDreamPanel`, which sends `CMD_PICTURE_GETDREAMPANEL`.
 * @return One of `KELU_TV_PANELLEVEL_E`; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getDreamPanel(void);

/**
 * Sets the number of areas of local dimming.
 * Forwards to `Picture::setLocalDimmingAreaNumber`, which sends `CMD_PICTURE_SETLDAREANUM`: `num`.
 * @param num Number; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setLocalDimmingAreaNumber(int num);

/**
 * Reads the number of areas of local dimming.
 * Forwards to `Picture::getLocalDimmingAreaNumber`, which sends `CMD_PICTURE_GETLDAREANUM`.
 * @return The number; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getLocalDimmingAreaNumber(void);

/**
 * Chooses the place of the lights of local dimming.
 * Forwards to `Picture::setLocalDimmingLightPosition`, which sends `CMD_PICTURE_SETLDLIGHTPOS`: `pos`.
 * @param pos One of `KELU_TV_LDLIGHTPOS_E`.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setLocalDimmingLightPosition(int pos);

/**
 * Reads the place of the lights of local dimming.
 * Forwards to `Picture::getLocalDimmingLightPosition`, which sends `CMD_PICTURE_GETLDLIGHTPOS`.
 * @return One of `KELU_TV_LDLIGHTPOS_E`; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getLocalDimmingLightPosition(void);

/**
 * Sets the mode of local dimming.
 * Forwards to `Picture::setLocalDimmingMode`, which sends `CMD_PICTURE_SETLDMODE`: `mode`.
 * @param mode Mode as the service numbers it; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setLocalDimmingMode(int mode);

/**
 * Reads the mode of local dimming.
 * Forwards to `Picture::getLocalDimmingMode`, which sends `CMD_PICTURE_GETLDMODE`.
 * @return The mode; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getLocalDimmingMode(void);

/**
 * Chooses the demonstration of local dimming.
 * Forwards to `Picture::setLocalDimmingDemoMode`, which sends `CMD_PICTURE_SETLDDEMOMODE`: `mode`.
 * @param mode One of `KELU_TV_LOCALDIMMING_DEMO_MODE_E`.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setLocalDimmingDemoMode(int mode);

/**
 * Reads the demonstration of local dimming.
 * Forwards to `Picture::getLocalDimmingDemoMode`, which sends `CMD_PICTURE_GETLDDEMOMODE`.
 * @return One of `KELU_TV_LOCALDIMMING_DEMO_MODE_E`; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getLocalDimmingDemoMode(void);

/**
 * Reads whether the running light of local dimming is at work.
 * Forwards to `Picture::getLDHorseLightIsRunning`, which sends `CMD_PICTURE_GETLDHORSELIGHT_ISRUNNING`.
 * @return False for the service's 0; true for any other answer, a failure included.
 */
KELUTV_API bool linux_tv_Picture_getLDHorseLightIsRunning(void);

/**
 * Reads the data of every partition of micro dimming.
 * Forwards to `Picture::getMicroDimmingData`, which sends `CMD_PICTURE_GETMICRODIMMINGDATA`: `widthPartionIndex`,
 * `heightPartionIndex`.
 * @param widthPartionIndex Partitions side by side.
 * @param heightPartionIndex Partitions one above the other.
 * @param pBuf Room for as many ints as the product of the two; all are written, 0 where the service sent less, and none
 * when the product is below 1. Untouched on failure.
 * @return 0; -1 when the service or the link fails, and for a null pointer, with nothing sent.
 */
KELUTV_API int linux_tv_Picture_getMicroDimmingData(int widthPartionIndex, int heightPartionIndex, int* pBuf);

/**
 * Reads one channel of the light sensor.
 * Forwards to `Picture::getLSADCChannelValue`, which sends `CMD_PICTURE_GETLSADCCHANNELVALUE`: `channel`.
 * @param channel Channel as the service numbers it.
 * @return The reading; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getLSADCChannelValue(int channel);

/**
 * Reads the histogram of brightness.
 * Forwards to `Picture::getBrightnessHistogram`, which sends `CMD_PICTURE_GETBRIGHTNESSHISTOGRAM`; the answer holds
 * ints until its end.
 * @param pBuf Receives the values in the service's order; must have room for all the service sends. Untouched on
 * failure. How many there are is not told.
 * @return 0; -1 when there is no value or the service or the link fails, and for a null pointer, with nothing sent.
 */
KELUTV_API int linux_tv_Picture_getBrightnessHistogram(int* pBuf);

/**
 * Sets the brightness of the laser.
 * Forwards to `Picture::setLaserBrightness`, which sends `CMD_PICTURE_SET_LASER_BRIGTH`: `brightness`.
 * @param brightness Brightness; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setLaserBrightness(int brightness);

/**
 * Reads the brightness of the laser.
 * Forwards to `Picture::getLaserBrightness`, which sends `CMD_PICTURE_GET_LASER_BRIGTH`.
 * @return The brightness; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getLaserBrightness(void);

/**
 * Sets the highest brightness of the laser.
 * Forwards to `Picture::setLaserMaxBrightness`, which sends `CMD_PICTURE_SET_LASER_MAXBRIGTH`: `brightness`.
 * @param brightness Brightness; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setLaserMaxBrightness(int brightness);

/**
 * Reads the highest brightness of the laser.
 * Forwards to `Picture::getLaserMaxBrightness`, which sends `CMD_PICTURE_GET_LASER_MAXBRIGTH`.
 * @return The brightness; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getLaserMaxBrightness(void);

/** @} */

/**
 * @name Colour
 * @{
 */

/**
 * Chooses the colour temperature.
 * Forwards to `Picture::setColorTemp`, which sends `CMD_PICTURE_SETCOLORTEMP`: `colortemp`.
 * @param colortemp One of `KELU_TV_COLORTEMP_E`.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setColorTemp(int colortemp);

/**
 * Reads the colour temperature.
 * Forwards to `Picture::getColorTemp`, which sends `CMD_PICTURE_GETCOLORTEMP`.
 * @return One of `KELU_TV_COLORTEMP_E`; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getColorTemp(void);

/**
 * Sets the white balance of the colour temperature.
 * Forwards to `Picture::setColorTempPara`, which sends `CMD_PICTURE_SETCOLORTEMPDATA`: `redGain`, `greenGain`,
 * `blueGain`, `redOffset`, `greenOffset`, `blueOffset`.
 * @param stColorTemp Gains and offsets; the service enforces the ranges.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setColorTempPara(ColorTempData stColorTemp);

/**
 * Reads the white balance of the colour temperature.
 * Forwards to `Picture::getColorTempPara`, which sends `CMD_PICTURE_GETCOLORTEMPDATA`; the answer holds `redGain`,
 * `greenGain`, `blueGain`, `redOffset`, `greenOffset`, `blueOffset`.
 * @param pstColorTemp Receives gains and offsets; all 0 when the service or the link fails.
 * @return 0, also when the service or the link fails; -1 for a null pointer, with nothing sent.
 */
KELUTV_API int linux_tv_Picture_getColorTempPara(ColorTempData* pstColorTemp);

/**
 * Reads the highest gain of red, green and blue.
 * Forwards to `Picture::getMaxRGBGain`, which sends `CMD_PICTURE_GET_MAX_RGB_GAIN`.
 * @return The gain; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getMaxRGBGain(void);

/**
 * Chooses the colour system.
 * Forwards to `Picture::setColorSystem`, which sends `CMD_PICTURE_SETCOLORSYSTEM`: `colorSys`.
 * @param colorSys One of `KELU_TV_CLRSYS_E`.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setColorSystem(int colorSys);

/**
 * Reads the colour system.
 * Forwards to `Picture::getColorSystem`, which sends `CMD_PICTURE_GETCOLORSYSTEM`.
 * @return One of `KELU_TV_CLRSYS_E`; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getColorSystem(void);

/**
 * Reads the colour system that the signal really has.
 * Forwards to `Picture::getRealColorSystem`, which sends `CMD_EXTRA_GETREALCLRSYS`.
 * @param colorSys Receives one of `KELU_TV_CLRSYS_E`, -1 when the service or the link fails; may be null.
 * @return 0, also when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getRealColorSystem(int* colorSys);

/**
 * Sets the table of the colour manager.
 * Forwards to `Picture::setColorManagerTableIndex`, which sends `CMD_PICTURE_SETCOLORGAIN`: `index`.
 * @param index Index of the table; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setColorManagerTableIndex(int index);

/**
 * Reads the table of the colour manager.
 * Forwards to `Picture::getColorManagerTableIndex`, which sends `CMD_PICTURE_GETCOLORGAIN`.
 * @return The index of the table; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getColorManagerTableIndex(void);

/**
 * Sets the type of the colour range.
 * Forwards to `Picture::setColorRangeType`, which sends `CMD_PICTURE_SETCOLORRANGETYPE`: `crType`.
 * @param crType Type as the service numbers it; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setColorRangeType(int crType);

/**
 * Reads the type of the colour range.
 * Forwards to `Picture::getColorRangeType`, which sends `CMD_PICTURE_GETCOLORRANGETYPE`.
 * @return The type; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getColorRangeType(void);

/**
 * Chooses the colour range of HDMI signals.
 * Forwards to `Picture::setHDMIColorRange`, which sends `CMD_PICTURE_SETHDMICOLORRANGE`: `val`.
 * @param val One of `KELU_TV_IMAGE_RGB_TYPE_E`.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setHDMIColorRange(int val);

/**
 * Reads the colour range of HDMI signals.
 * Forwards to `Picture::getHDMIColorRange`, which sends `CMD_PICTURE_GETHDMICOLORRANGE`.
 * @return One of `KELU_TV_IMAGE_RGB_TYPE_E`; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getHDMIColorRange(void);

/**
 * Sets the correction of skin tones.
 * Forwards to `Picture::setFleshTone`, which sends `CMD_PICTURE_SETFLESHTONE`: `fleshtone`.
 * @param fleshtone Strength; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setFleshTone(int fleshtone);

/**
 * Reads the correction of skin tones.
 * Forwards to `Picture::getFleshTone`, which sends `CMD_PICTURE_GETFLESHTONE`.
 * @return The strength; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getFleshTone(void);

/**
 * Reads the highest correction of skin tones.
 * Forwards to `Picture::getMaxFleshTone`, which sends `CMD_PICTURE_GET_MAX_FLESHTONE`.
 * @return The strength; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getMaxFleshTone(void);

/**
 * Sets the brightness of skin tones.
 * Forwards to `Picture::setFleshToneBrightness`, which sends `CMD_PICTURE_SETFLESHTONEBRIGHTNESS`: `brightness`.
 * @param brightness Brightness; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setFleshToneBrightness(int brightness);

/**
 * Reads the brightness of skin tones.
 * Forwards to `Picture::getFleshToneBrightness`, which sends `CMD_PICTURE_GETFLESHTONEBRIGHTNESS`.
 * @return The brightness; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getFleshToneBrightness(void);

/**
 * Sets the hue of skin tones.
 * Forwards to `Picture::setFleshToneHue`, which sends `CMD_PICTURE_SETFLESHTONEHUE`: `hue`.
 * @param hue Hue; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setFleshToneHue(int hue);

/**
 * Reads the hue of skin tones.
 * Forwards to `Picture::getFleshToneHue`, which sends `CMD_PICTURE_GETFLESHTONEHUE`.
 * @return The hue; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getFleshToneHue(void);

/**
 * Sets the saturation of skin tones.
 * Forwards to `Picture::setFleshToneSaturation`, which sends `CMD_PICTURE_SETFLESHTONESATURATION`: `saturation`.
 * @param saturation Saturation; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setFleshToneSaturation(int saturation);

/**
 * Reads the saturation of skin tones.
 * Forwards to `Picture::getFleshToneSaturation`, which sends `CMD_PICTURE_GETFLESHTONESATURATION`.
 * @return The saturation; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getFleshToneSaturation(void);

/**
 * Switches the extension of blue on or off.
 * Forwards to `Picture::enableBlueExtend`, which sends `CMD_PICTURE_SETBLEXTEND`: `onoff`.
 * @param onoff True switches it on.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_enableBlueExtend(bool onoff);

/**
 * Tells whether the extension of blue is on.
 * Forwards to `Picture::isBlueExtendEnable`, which sends `CMD_PICTURE_GETBLEXTEND`.
 * @return 0 for the service's 0; 1 for any other answer, a failure included.
 */
KELUTV_API int linux_tv_Picture_isBlueExtendEnable(void);

/**
 * Sets the correction of every colour.
 * Forwards to `Picture::setColorControlInfoPara`, which sends `CMD_PICTURE_SETCOLORCONTROLINFOPARA`: `red`, `green`,
 * `blue`, `cyan`, `magenta`, `yellow`, `complexion`.
 * @param stColorControlInfo The corrections; the service enforces the ranges.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setColorControlInfoPara(ColorControlInfoData stColorControlInfo);

/**
 * Reads the correction of every colour.
 * Forwards to `Picture::getColorControlInfoPara`, which sends `CMD_PICTURE_GETCOLORCONTROLINFOPARA`; the answer holds
 * `red`, `green`, `blue`, `cyan`, `magenta`, `yellow`, `complexion`.
 * @param pstColorControlInfo Receives the corrections; all 0 when the service or the link fails.
 * @return 0, also when the service or the link fails; -1 for a null pointer, with nothing sent.
 */
KELUTV_API int linux_tv_Picture_getColorControlInfoPara(ColorControlInfoData* pstColorControlInfo);

/** @} */

/**
 * @name Noise, edges and motion
 * @{
 */

/**
 * Chooses the noise reduction.
 * Forwards to `Picture::setNR`, which sends `CMD_PICTURE_SETNR`: `nr`.
 * @param nr One of `KELU_TV_LEVEL_E`.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setNR(int nr);

/**
 * Reads the noise reduction.
 * Forwards to `Picture::getNR`, which sends `CMD_PICTURE_GETNR`.
 * @return One of `KELU_TV_LEVEL_E`; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getNR(void);

/**
 * Sets the level of the removal of block edges.
 * Forwards to `Picture::setDeBlocking`, which sends `CMD_PICTURE_SETDEBLOCKING`: `dbLevel`.
 * @param dbLevel Level; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setDeBlocking(int dbLevel);

/**
 * Reads the level of the removal of block edges.
 * Forwards to `Picture::getDeBlocking`, which sends `CMD_PICTURE_GETDEBLOCKING`.
 * @return The level; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getDeBlocking(void);

/**
 * Sets the level of the removal of ringing.
 * Forwards to `Picture::setDeRinging`, which sends `CMD_PICTURE_SETDERINGING`: `drLevel`.
 * @param drLevel Level; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setDeRinging(int drLevel);

/**
 * Reads the level of the removal of ringing.
 * Forwards to `Picture::getDeRinging`, which sends `CMD_PICTURE_GETDERINGING`.
 * @return The level; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getDeRinging(void);

/**
 * Sets the level of the MPEG noise reduction: block edges and ringing alike.
 * Calls `linux_tv_Picture_setDeBlocking`, then `linux_tv_Picture_setDeRinging`, the second also when the first fails.
 * @param level Level; the service enforces the range.
 * @return The bits of both results together, 0 when both calls succeed.
 */
KELUTV_API int linux_tv_Picture_setMPEGNR(int level);

/**
 * Reads the level of the MPEG noise reduction, which is that of the removal of block edges.
 * Forwards to `linux_tv_Picture_getDeBlocking`.
 * @param pLevel Receives the level, -1 when the service or the link fails; may be null.
 * @return 0, also when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getMPEGNR(int* pLevel);

/**
 * Sets the level of the removal of overshoot.
 * Forwards to `Picture::setDeShooting`, which sends `CMD_PICTURE_SETDESHOOTING`: `dsLevel`.
 * @param dsLevel Level; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setDeShooting(int dsLevel);

/**
 * Reads the level of the removal of overshoot.
 * Forwards to `Picture::getDeShooting`, which sends `CMD_PICTURE_GETDESHOOTING`.
 * @return The level; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getDeShooting(void);

/**
 * Sets the removal of false contours.
 * Forwards to `Picture::setDeContour`, which sends `CMD_PICTURE_SETDECONTOUR`: `mode`.
 * @param mode Mode as the service numbers it; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setDeContour(int mode);

/**
 * Reads the removal of false contours.
 * Forwards to `Picture::getDeContour`, which sends `CMD_PICTURE_GETDECONTOUR`.
 * @return The mode; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getDeContour(void);

/**
 * Switches the smoothing of jagged edges on or off.
 * Forwards to `Picture::setAIDeJaggyMode`, which sends `CMD_PICTURE_SET_AI_DEJAGGY`: `bEnable`.
 * @param bEnable True switches it on.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setAIDeJaggyMode(bool bEnable);

/**
 * Tells whether the smoothing of jagged edges is on.
 * Forwards to `Picture::getAIDeJaggyMode`, which sends `CMD_PICTURE_GET_AI_DEJAGGY`.
 * @return 0 for the service's 0; 1 for any other answer, a failure included.
 */
KELUTV_API int linux_tv_Picture_getAIDeJaggyMode(void);

/**
 * Sets the film mode.
 * Forwards to `Picture::setFilmMode`, which sends `CMD_PICTURE_SETFILMMODE`: `filmmode`.
 * @param filmmode Mode as the service numbers it; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setFilmMode(int filmmode);

/**
 * Reads the film mode.
 * Forwards to `Picture::getFilmMode`, which sends `CMD_PICTURE_GETFILMMODE`.
 * @return The mode; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getFilmMode(void);

/**
 * Sets the level of the motion compensation.
 * Forwards to `Picture::setMEMCLevel`, which sends `CMD_PICTURE_SETMEMCLEVEL`: `memclevel`.
 * @param memclevel Level; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setMEMCLevel(int memclevel);

/**
 * Reads the level of the motion compensation.
 * Forwards to `Picture::getMEMCLevel`, which sends `CMD_PICTURE_GETMEMCLEVEL`.
 * @return The level; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getMEMCLevel(void);

/**
 * Sets the demonstration of the motion compensation.
 * Forwards to `Picture::setMEMCDemoMode`, which sends `CMD_PICTURE_SETMEMCDEMOMODE`: `mode`.
 * @param mode Mode as the service numbers it; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setMEMCDemoMode(int mode);

/**
 * Reads the demonstration of the motion compensation.
 * Forwards to `Picture::getMEMCDemoMode`, which sends `CMD_PICTURE_GETMEMCDEMOMODE`.
 * @return The mode; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getMEMCDemoMode(void);

/**
 * Sets the level at which motion compensation removes blur.
 * Forwards to `Picture::setMemcDeBlurLevel`, which sends `CMD_PICTURE_SETMEMCDEBLURLEVEL`: `blurlevel`.
 * @param blurlevel Level; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setMemcDeBlurLevel(int blurlevel);

/**
 * Reads the level at which motion compensation removes blur.
 * Forwards to `Picture::getMemcDeBlurLevel`, which sends `CMD_PICTURE_GETMEMCDEBLURLEVEL`.
 * @return The level; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getMemcDeBlurLevel(void);

/**
 * Sets the level at which motion compensation removes judder.
 * Forwards to `Picture::setMemcDeJudderLevel`, which sends `CMD_PICTURE_SETMEMCDEJUDDERLEVEL`: `judderlevel`.
 * @param judderlevel Level; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setMemcDeJudderLevel(int judderlevel);

/**
 * Reads the level at which motion compensation removes judder.
 * Forwards to `Picture::getMemcDeJudderLevel`, which sends `CMD_PICTURE_GETMEMCDEJUDDERLEVEL`.
 * @return The level; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getMemcDeJudderLevel(void);

/** @} */

/**
 * @name Dynamic range
 * @{
 */

/**
 * Reads the kind of dynamic range of the signal.
 * Forwards to `Picture::getHdrStreamType`, which sends `CMD_PICTURE_GETHDRSTREAMTYPE`.
 * @return One of `KELU_TV_HDR_TYPE_E`; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getHdrStreamType(void);

/**
 * Switches HDR10 on or off.
 * Forwards to `Picture::setHdr10Enable`, which sends `CMD_PICTURE_SETHDR10ENABLE`: `bEnable`.
 * @param bEnable True switches it on.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setHdr10Enable(bool bEnable);

/**
 * Tells whether HDR10 is on.
 * Forwards to `Picture::getHdr10Enable`, which sends `CMD_PICTURE_GETHDR10ENABLE`.
 * @return 0 for the service's 0; 1 for any other answer, a failure included.
 */
KELUTV_API int linux_tv_Picture_getHdr10Enable(void);

/**
 * Chooses the dynamic range the picture is shown in.
 * Forwards to `Picture::setHdrMode`, which sends `CMD_PICTURE_SET_HDR_MODE`: `hdrMode`.
 * @param hdrMode One of `KELU_MW_HDR_MODE_E`.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setHdrMode(int hdrMode);

/**
 * Reads the dynamic range the picture is shown in.
 * Forwards to `Picture::getHdrMode`, which sends `CMD_PICTURE_GET_HDR_MODE`.
 * @return One of `KELU_MW_HDR_MODE_E`; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getHdrMode(void);

/**
 * Sets the mode of the conversion from standard to high dynamic range.
 * Forwards to `Picture::setSdrToHdrMode`, which sends `CMD_PICTURE_SETSDRTOHDRMODE`: `mode`.
 * @param mode Mode as the service numbers it; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setSdrToHdrMode(int mode);

/**
 * Reads the mode of the conversion from standard to high dynamic range.
 * Forwards to `Picture::getSdrToHdrMode`, which sends `CMD_PICTURE_GETSDRTOHDRMODE`.
 * @return The mode; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getSdrToHdrMode(void);

/** @} */

/**
 * @name Aspect, freeze and demonstrations
 * @{
 */

/**
 * Chooses the aspect.
 * Forwards to `Picture::setAspect`, which sends `CMD_PICTURE_SETASPECT`: `aspect`, `mute`.
 * @param aspect One of `KELU_TV_ASPECT_E`.
 * @param mute True hides the picture while it changes.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setAspect(int aspect, bool mute);

/**
 * Reads the aspect.
 * Forwards to `Picture::getAspect`, which sends `CMD_PICTURE_GETASPECT`.
 * @return One of `KELU_TV_ASPECT_E`; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getAspect(void);

/**
 * Reads the aspects the current signal can be shown in.
 * Forwards to `Picture::getAvailAspectList`, which sends `CMD_PICTURE_GETAVAILASPECT`; the answer holds ints until its
 * end.
 * @param pModeList Receives the aspects in the service's order, each one of `KELU_TV_ASPECT_E`, unchecked. Must have
 * room for all the service sends; untouched on failure; may be null.
 * @param pListSize Receives their count; untouched on failure; may be null.
 * @return 0; -1 when there is no entry or the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getAvailAspectList(int* pModeList, int* pListSize);

/**
 * Switches overscan on or off.
 * Forwards to `Picture::enableOverscan`, which sends `CMD_PICTURE_SETOVERSCANENABLE`: `bEnable`.
 * @param bEnable True switches it on.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_enableOverscan(bool bEnable);

/**
 * Tells whether overscan is on.
 * Forwards to `Picture::isOverscanEnable`, which sends `CMD_PICTURE_GETOVERSCANENABLE`.
 * @return 0 for the service's 0; 1 for any other answer, a failure included.
 */
KELUTV_API int linux_tv_Picture_isOverscanEnable(void);

/**
 * Freezes the picture or lets it go on.
 * Forwards to `Picture::enableFreeze`, which sends `CMD_PICTURE_SETFREEZE`: `onOff`.
 * @param onOff True freezes it.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_enableFreeze(bool onOff);

/**
 * Tells whether the picture is frozen.
 * Forwards to `Picture::isFreezeEnable`, which sends `CMD_PICTURE_GETFREEZE`.
 * @return 0 for the service's 0; 1 for any other answer, a failure included.
 */
KELUTV_API int linux_tv_Picture_isFreezeEnable(void);

/**
 * Switches the game mode on or off.
 * Forwards to `Picture::enableGameMode`, which sends `CMD_PICTURE_SETGAMEMODE`: `bEnable`.
 * @param bEnable True switches it on.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_enableGameMode(bool bEnable);

/**
 * Tells whether the game mode is on.
 * Forwards to `Picture::isGameModeEnable`, which sends `CMD_PICTURE_GETGAMEMODE`.
 * @return 0 for the service's 0; 1 for any other answer, a failure included.
 */
KELUTV_API int linux_tv_Picture_isGameModeEnable(void);

/**
 * Chooses the PC mode of the picture.
 * Forwards to `Picture::setPcMode`, which sends `CMD_PICTURE_SETPCMODE`: `mode`.
 * @param mode One of `KELU_MW_PCMODE_E`.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setPcMode(int mode);

/**
 * Reads the PC mode of the picture.
 * Forwards to `Picture::GetPcMode`, which sends `CMD_PICTURE_GETPCMODE`.
 * @return One of `KELU_MW_PCMODE_E`; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getPcMode(void);

/**
 * Switches one demonstration on or off.
 * Forwards to `Picture::setDemoMode`, which sends `CMD_PICTURE_SETDEMOMODE`: `demomode`, `onoff`.
 * @param demomode Demonstration as the service numbers it.
 * @param onoff True switches it on.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setDemoMode(int demomode, bool onoff);

/**
 * Tells whether one demonstration is on.
 * Forwards to `Picture::getDemoMode`, which sends `CMD_PICTURE_GETDEMOMODE`: `demomode`.
 * @param demomode Demonstration as the service numbers it.
 * @return 0 for the service's 0; 1 for any other answer, a failure included.
 */
KELUTV_API int linux_tv_Picture_getDemoMode(int demomode);

/**
 * Enters or leaves one demonstration.
 * Forwards to `Picture::setDemoModeEnterExit`, which sends `CMD_PICTURE_SETDEMOMODEENTEREXIT`: `demomode`, `mode`.
 * @param demomode Demonstration as the service numbers it.
 * @param mode Whether to enter or leave, as the service numbers it.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setDemoModeEnterExit(int demomode, int mode);

/**
 * Has the service write a picture of the screen to a file.
 * Forwards to `Picture::getVideoScreenShot`, which sends `CMD_PICTURE_GETVIDEOSCREENSHOT`: `width`, `height`, `path`,
 * `bWithUI`.
 * @param width Width of the picture in pixels.
 * @param height Height of the picture in pixels.
 * @param pathName Path of the file in the service's file system.
 * @param bWithUI True takes the user interface into the picture.
 * @return The service's result, 0 for success; -1 when the link fails, and for a null `pathName`, with nothing sent.
 */
KELUTV_API int linux_tv_Picture_getVideoScreenShot(int width, int height, const char* pathName, bool bWithUI);

/** @} */

/**
 * @name What the set can do
 * @{
 */

/**
 * Reads the supported mode of one setting.
 * Forwards to `Picture::getCMDSupportedMode`, which sends `CMD_PICTURE_GETCMDSUPPORTEDMODE`: `mSwitch`.
 * @param mSwitch One of `KELU_TV_SUPPORT_SWITCH_E`.
 * @return One of `KELU_TV_SUPPORT_SWITCH_MODE_E`; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getCMDSupportedMode(int mSwitch);

/**
 * Reads whether one picture function is enabled.
 * Forwards to `Picture::getPictureFunctionEnable`, which sends `CMD_PICTURE_GETPICTUREFUNTIONENABLE`: `func`.
 * @param func One of `KELU_TV_PICTURE_FUNC_E`.
 * @return The answer as the service gives it, 0 for not; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getPictureFunctionEnable(int func);

/** @} */

/**
 * @name Generic items
 * @{
 */

/**
 * Sets one item of the advanced colour settings.
 * Forwards to `Picture::setColorAdvancedItem`, which sends `CMD_PICTURE_SET_COLOR_ADVANCED`: `cmdID`, `param1`,
 * `param2`, `param3`, `param4`.
 * @param cmdID Item as the service numbers it.
 * @param param1,param2,param3,param4 What the item defines.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setColorAdvancedItem(int cmdID, int param1, int param2, int param3, int param4);

/**
 * Reads one item of the advanced colour settings.
 * Forwards to `Picture::getColorAdvancedItem`, which sends `CMD_PICTURE_GET_COLOR_ADVANCED`: `cmdID`, `param`.
 * @param cmdID Item as the service numbers it.
 * @param param What the item defines.
 * @param pBuf Room for 255 ints (1,020 bytes); all are written, 0 where the service sent less. Untouched on failure.
 * @return 0; -1 when the service or the link fails, and for a null pointer, with nothing sent.
 */
KELUTV_API int linux_tv_Picture_getColorAdvancedItem(int cmdID, int param, int* pBuf);

/**
 * Sets one item.
 * Forwards to `Picture::setPictureItemValue`, which sends `CMD_PICTURE_COMMON_SET_ITEM_VALUE`: `cmdID`, `param1`,
 * `param2`, `param3`, `param4`.
 * @param cmdID Item of the picture module, of `KELU_TV_CMDID_E`.
 * @param param1,param2,param3,param4 What the item defines.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setPictureItemValue(int cmdID, int param1, int param2, int param3, int param4);

/**
 * Reads one item.
 * Forwards to `Picture::getPictureItemValue`, which sends `CMD_PICTURE_COMMON_GET_ITEM_VALUE`: `cmdID`, `param1`,
 * `param2`.
 * @param cmdID Item of the picture module, of `KELU_TV_CMDID_E`.
 * @param param1,param2 What the item defines.
 * @param pBuf Room for 255 ints (1,020 bytes); all are written, 0 where the service sent less. Untouched on failure.
 * @return 0; -1 when the service or the link fails, and for a null pointer, with nothing sent.
 */
KELUTV_API int linux_tv_Picture_getPictureItemValue(int cmdID, int param1, int param2, int* pBuf);

/**
 * Copies the values of the current picture mode to the user mode.
 * Sets the item `CMDID_PICTURE_COPY_CURPICDATA_TO_USER`: 0, 0, 0, 0.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_copyCurPicModeDataToUser(void);

/** @} */

#ifdef __cplusplus
}
#endif

#endif
