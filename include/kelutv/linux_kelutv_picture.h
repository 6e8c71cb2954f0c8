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
 * that, and sets the mode by it. Two commands in all; the prints go to standard output without a line end. A stream
 * type that cannot be read is -1, which has the modes of standard dynamic range and is sent so.
 * @param picturemode One of `KELU_TV_PIC_MODE_E`; any other, and one the stream type does not have, is taken as the
 * first mode.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setPictureMode(int picturemode);

/**
 * Reads the picture mode.
 * Reads the stream type and the index of the mode, turns the index into the mode it stands for among the modes of that
 * stream type, and prints mode and stream type to standard output without a line end. Two commands in all.
 * @return One of `KELU_TV_PIC_MODE_E`; `KELU_TV_PIC_MODE_STANDARD` for an index without a mode, and when the index
 * cannot be read. When only the stream type cannot be read, the index is taken as one of a signal of standard dynamic
 * range.
 */
KELUTV_API int linux_tv_Picture_getPictureMode(void);

/**
 * Reads which picture modes a stream type offers.
 * @param streamType Stream type, one of `KELU_TV_HDR_TYPE_E`.
 * @param pModeList Receives the modes in the service's order, for a signal of standard dynamic range of
 * `KELU_TV_PIC_MODE_NEW_E` and so on. Must have room for all the service sends, which alone bounds what is written:
 * 260,095 at most. Untouched on failure; may be null.
 * @param pListSize Receives their count; untouched on failure; may be null.
 * @return 0; -1 when there is no entry or the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getPicModeEnable(int streamType, int* pModeList, int* pListSize);

/**
 * Reads the backlight a picture mode has.
 * Finds the index of the mode as `linux_tv_Picture_setPictureMode` does, prints included. Two commands in all.
 * @param pictureMode One of `KELU_TV_PIC_MODE_E`; any other, and one the stream type does not have, is taken as the
 * first mode.
 * @return The backlight; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getBLValueInPicmode(int pictureMode);

/**
 * Reads the dream panel setting a picture mode has.
 * Finds the index of the mode as `linux_tv_Picture_setPictureMode` does, prints included. Two commands in all.
 * @param pictureMode One of `KELU_TV_PIC_MODE_E`; any other, and one the stream type does not have, is taken as the
 * first mode.
 * @return One of `KELU_TV_PANELLEVEL_E`; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getDreamPanelByPicmode(int pictureMode);

/**
 * Chooses the enhanced picture mode for an application that shows a camera.
 * @param mode Mode as the service numbers it.
 * @param pkgNameString Package of the application.
 * @param classNameString Class of the application.
 * @return The service's result, 0 for success; -1 when the link fails, and for a null string, with nothing sent.
 */
KELUTV_API int linux_tv_Picture_setCameraEnhancePictureMode(int mode, const char* pkgNameString,
                                                            const char* classNameString);

/**
 * Tells the service that an album of photographs is being shown.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_enterAlbumPlay(void);

/**
 * Tells the service that an album of photographs is no longer shown.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_exitAlbumPlay(void);

/**
 * Restores the picture settings to their defaults.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_restorePictureSets(void);

/**
 * Tries out one value of the image inside a picture mode.
 * Prints the arguments to standard error first.
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
 * @param brightness Brightness; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setBrightness(int brightness);

/**
 * Reads the brightness.
 * @return The brightness; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getBrightness(void);

/**
 * Sets the contrast.
 * @param contrast Contrast; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setContrast(int contrast);

/**
 * Reads the contrast.
 * @return The contrast; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getContrast(void);

/**
 * Sets the saturation.
 * @param saturation Saturation; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setSaturation(int saturation);

/**
 * Reads the saturation.
 * @return The saturation; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getSaturation(void);

/**
 * Sets the sharpness.
 * @param sharpness Sharpness; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setSharpness(int sharpness);

/**
 * Reads the sharpness.
 * @return The sharpness; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getSharpness(void);

/**
 * Sets the hue.
 * @param hue Hue; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setHue(int hue);

/**
 * Reads the hue.
 * @return The hue; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getHue(void);

/**
 * Sets the level of the dynamic contrast.
 * @param dciLevel Level; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setDciLevel(int dciLevel);

/**
 * Reads the level of the dynamic contrast.
 * @return The level; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getDciLevel(void);

/**
 * Switches the dynamic contrast on or off.
 * @param onoff True switches it on.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_enableDCI(bool onoff);

/**
 * Tells whether the dynamic contrast is on.
 * @return 0 for the service's 0; 1 for any other answer, a failure included.
 */
KELUTV_API int linux_tv_Picture_isDCIEnable(void);

/**
 * Sets the level of the black stretch.
 * @param bsLevel Level; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setBlackStretchLevel(int bsLevel);

/**
 * Reads the level of the black stretch.
 * @return The level; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getBlackStretchLevel(void);

/**
 * Sets the mode of the local contrast.
 * @param mode Mode as the service numbers it; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setLocalContrastMode(int mode);

/**
 * Reads the mode of the local contrast.
 * @return The mode; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getLocalContrastMode(void);

/**
 * Sets the level of the super resolution.
 * @param srlevel Level; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setSRLevel(int srlevel);

/**
 * Reads the level of the super resolution.
 * @return The level; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getSRLevel(void);

/**
 * Sets the eye protection mode.
 * @param mode Mode as the service numbers it; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setEyeSafeMode(int mode);

/**
 * Reads the eye protection mode.
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
 * @param backlight Backlight; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setBacklight(int backlight);

/**
 * Reads the backlight.
 * @return The backlight; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getBacklight(void);

/**
 * Switches the backlight on or off.
 * @param onoff True switches it on.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_enableBacklight(bool onoff);

/**
 * Tells whether the backlight is on.
 * @return 0 for the service's 0; 1 for any other answer, a failure included.
 */
KELUTV_API int linux_tv_Picture_isBacklightEnable(void);

/**
 * Chooses the dream panel setting.
 * @param mode One of `KELU_TV_PANELLEVEL_E`.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setDreamPanel(int mode);

/**
 * Reads the dream panel setting.
 * @return One of `KELU_TV_PANELLEVEL_E`; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getDreamPanel(void);

/**
 * Sets the number of areas of local dimming.
 * @param num Number; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setLocalDimmingAreaNumber(int num);

/**
 * Reads the number of areas of local dimming.
 * @return The number; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getLocalDimmingAreaNumber(void);

/**
 * Chooses the place of the lights of local dimming.
 * @param pos One of `KELU_TV_LDLIGHTPOS_E`.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setLocalDimmingLightPosition(int pos);

/**
 * Reads the place of the lights of local dimming.
 * @return One of `KELU_TV_LDLIGHTPOS_E`; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getLocalDimmingLightPosition(void);

/**
 * Sets the mode of local dimming.
 * @param mode Mode as the service numbers it; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setLocalDimmingMode(int mode);

/**
 * Reads the mode of local dimming.
 * @return The mode; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getLocalDimmingMode(void);

/**
 * Chooses the demonstration of local dimming.
 * @param mode One of `KELU_TV_LOCALDIMMING_DEMO_MODE_E`.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setLocalDimmingDemoMode(int mode);

/**
 * Reads the demonstration of local dimming.
 * @return One of `KELU_TV_LOCALDIMMING_DEMO_MODE_E`; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getLocalDimmingDemoMode(void);

/**
 * Reads whether the running light of local dimming is at work.
 * @return False for the service's 0; true for any other answer, a failure included.
 */
KELUTV_API bool linux_tv_Picture_getLDHorseLightIsRunning(void);

/**
 * Reads the data of every partition of micro dimming.
 * @param widthPartionIndex Partitions side by side.
 * @param heightPartionIndex Partitions one above the other.
 * @param pBuf Room for as many ints as the product of the two; all are written, 0 where the service sent less, and none
 * when the product is below 1. Untouched on failure.
 * @return 0; -1 when the service or the link fails, and for a null pointer, with nothing sent.
 */
KELUTV_API int linux_tv_Picture_getMicroDimmingData(int widthPartionIndex, int heightPartionIndex, int* pBuf);

/**
 * Reads one channel of the light sensor.
 * @param channel Channel as the service numbers it.
 * @return The reading; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getLSADCChannelValue(int channel);

/**
 * Reads the histogram of brightness.
 * @param pBuf Receives the values in the service's order. Must have room for all the service sends, which alone bounds
 * what is written: 260,095 at most. Untouched on failure. How many there are is not told.
 * @return 0; -1 when there is no value or the service or the link fails, and for a null pointer, with nothing sent.
 */
KELUTV_API int linux_tv_Picture_getBrightnessHistogram(int* pBuf);

/**
 * Sets the brightness of the laser.
 * @param brightness Brightness; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setLaserBrightness(int brightness);

/**
 * Reads the brightness of the laser.
 * @return The brightness; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getLaserBrightness(void);

/**
 * Sets the highest brightness of the laser.
 * @param brightness Brightness; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setLaserMaxBrightness(int brightness);

/**
 * Reads the highest brightness of the laser.
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
 * @param colortemp One of `KELU_TV_COLORTEMP_E`.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setColorTemp(int colortemp);

/**
 * Reads the colour temperature.
 * @return One of `KELU_TV_COLORTEMP_E`; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getColorTemp(void);

/**
 * Sets the white balance of the colour temperature.
 * @param stColorTemp Gains and offsets; the service enforces the ranges.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setColorTempPara(ColorTempData stColorTemp);

/**
 * Reads the white balance of the colour temperature.
 * @param pstColorTemp Receives gains and offsets; all 0 when the service or the link fails.
 * @return 0, also when the service or the link fails; -1 for a null pointer, with nothing sent.
 */
KELUTV_API int linux_tv_Picture_getColorTempPara(ColorTempData* pstColorTemp);

/**
 * Reads the highest gain of red, green and blue.
 * @return The gain; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getMaxRGBGain(void);

/**
 * Chooses the colour system.
 * @param colorSys One of `KELU_TV_CLRSYS_E`.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setColorSystem(int colorSys);

/**
 * Reads the colour system.
 * @return One of `KELU_TV_CLRSYS_E`; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getColorSystem(void);

/**
 * Reads the colour system that the signal really has.
 * @param colorSys Receives one of `KELU_TV_CLRSYS_E`, -1 when the service or the link fails; may be null.
 * @return 0, also when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getRealColorSystem(int* colorSys);

/**
 * Sets the table of the colour manager.
 * @param index Index of the table; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setColorManagerTableIndex(int index);

/**
 * Reads the table of the colour manager.
 * @return The index of the table; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getColorManagerTableIndex(void);

/**
 * Sets the type of the colour range.
 * @param crType Type as the service numbers it; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setColorRangeType(int crType);

/**
 * Reads the type of the colour range.
 * @return The type; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getColorRangeType(void);

/**
 * Chooses the colour range of HDMI signals.
 * @param val One of `KELU_TV_IMAGE_RGB_TYPE_E`.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setHDMIColorRange(int val);

/**
 * Reads the colour range of HDMI signals.
 * @return One of `KELU_TV_IMAGE_RGB_TYPE_E`; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getHDMIColorRange(void);

/**
 * Sets the correction of skin tones.
 * @param fleshtone Strength; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setFleshTone(int fleshtone);

/**
 * Reads the correction of skin tones.
 * @return The strength; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getFleshTone(void);

/**
 * Reads the highest correction of skin tones.
 * @return The strength; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getMaxFleshTone(void);

/**
 * Sets the brightness of skin tones.
 * @param brightness Brightness; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setFleshToneBrightness(int brightness);

/**
 * Reads the brightness of skin tones.
 * @return The brightness; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getFleshToneBrightness(void);

/**
 * Sets the hue of skin tones.
 * @param hue Hue; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setFleshToneHue(int hue);

/**
 * Reads the hue of skin tones.
 * @return The hue; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getFleshToneHue(void);

/**
 * Sets the saturation of skin tones.
 * @param saturation Saturation; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setFleshToneSaturation(int saturation);

/**
 * Reads the saturation of skin tones.
 * @return The saturation; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getFleshToneSaturation(void);

/**
 * Switches the extension of blue on or off.
 * @param onoff True switches it on.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_enableBlueExtend(bool onoff);

/**
 * Tells whether the extension of blue is on.
 * @return 0 for the service's 0; 1 for any other answer, a failure included.
 */
KELUTV_API int linux_tv_Picture_isBlueExtendEnable(void);

/**
 * Sets the correction of every colour.
 * @param stColorControlInfo The corrections; the service enforces the ranges.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setColorControlInfoPara(ColorControlInfoData stColorControlInfo);

/**
 * Reads the correction of every colour.
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
 * @param nr One of `KELU_TV_LEVEL_E`.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setNR(int nr);

/**
 * Reads the noise reduction.
 * @return One of `KELU_TV_LEVEL_E`; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getNR(void);

/**
 * Sets the level of the removal of block edges.
 * @param dbLevel Level; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setDeBlocking(int dbLevel);

/**
 * Reads the level of the removal of block edges.
 * @return The level; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getDeBlocking(void);

/**
 * Sets the level of the removal of ringing.
 * @param drLevel Level; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setDeRinging(int drLevel);

/**
 * Reads the level of the removal of ringing.
 * @return The level; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getDeRinging(void);

/**
 * Sets the level of the MPEG noise reduction: block edges and ringing alike.
 * Both are set, the second also when the first fails.
 * @param level Level; the service enforces the range.
 * @return The bits of both results together, 0 when both calls succeed.
 */
KELUTV_API int linux_tv_Picture_setMPEGNR(int level);

/**
 * Reads the level of the MPEG noise reduction, which is that of the removal of block edges.
 * @param pLevel Receives the level, -1 when the service or the link fails; may be null.
 * @return 0, also when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getMPEGNR(int* pLevel);

/**
 * Sets the level of the removal of overshoot.
 * @param dsLevel Level; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setDeShooting(int dsLevel);

/**
 * Reads the level of the removal of overshoot.
 * @return The level; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getDeShooting(void);

/**
 * Sets the removal of false contours.
 * @param mode Mode as the service numbers it; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setDeContour(int mode);

/**
 * Reads the removal of false contours.
 * @return The mode; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getDeContour(void);

/**
 * Switches the smoothing of jagged edges on or off.
 * @param bEnable True switches it on.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setAIDeJaggyMode(bool bEnable);

/**
 * Tells whether the smoothing of jagged edges is on.
 * @return 0 for the service's 0; 1 for any other answer, a failure included.
 */
KELUTV_API int linux_tv_Picture_getAIDeJaggyMode(void);

/**
 * Sets the film mode.
 * @param filmmode Mode as the service numbers it; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setFilmMode(int filmmode);

/**
 * Reads the film mode.
 * @return The mode; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getFilmMode(void);

/**
 * Sets the level of the motion compensation.
 * @param memclevel Level; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setMEMCLevel(int memclevel);

/**
 * Reads the level of the motion compensation.
 * @return The level; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getMEMCLevel(void);

/**
 * Sets the demonstration of the motion compensation.
 * @param mode Mode as the service numbers it; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setMEMCDemoMode(int mode);

/**
 * Reads the demonstration of the motion compensation.
 * @return The mode; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getMEMCDemoMode(void);

/**
 * Sets the level at which motion compensation removes blur.
 * @param blurlevel Level; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setMemcDeBlurLevel(int blurlevel);

/**
 * Reads the level at which motion compensation removes blur.
 * @return The level; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getMemcDeBlurLevel(void);

/**
 * Sets the level at which motion compensation removes judder.
 * @param judderlevel Level; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setMemcDeJudderLevel(int judderlevel);

/**
 * Reads the level at which motion compensation removes judder.
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
 * @return One of `KELU_TV_HDR_TYPE_E`; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getHdrStreamType(void);

/**
 * Switches HDR10 on or off.
 * @param bEnable True switches it on.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setHdr10Enable(bool bEnable);

/**
 * Tells whether HDR10 is on.
 * @return 0 for the service's 0; 1 for any other answer, a failure included.
 */
KELUTV_API int linux_tv_Picture_getHdr10Enable(void);

/**
 * Chooses the dynamic range the picture is shown in.
 * @param hdrMode One of `KELU_MW_HDR_MODE_E`.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setHdrMode(int hdrMode);

/**
 * Reads the dynamic range the picture is shown in.
 * @return One of `KELU_MW_HDR_MODE_E`; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getHdrMode(void);

/**
 * Sets the mode of the conversion from standard to high dynamic range.
 * @param mode Mode as the service numbers it; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setSdrToHdrMode(int mode);

/**
 * Reads the mode of the conversion from standard to high dynamic range.
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
 * @param aspect One of `KELU_TV_ASPECT_E`.
 * @param mute True hides the picture while it changes.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setAspect(int aspect, bool mute);

/**
 * Reads the aspect.
 * @return One of `KELU_TV_ASPECT_E`; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getAspect(void);

/**
 * Reads the aspects the current signal can be shown in.
 * @param pModeList Receives the aspects in the service's order, each one of `KELU_TV_ASPECT_E`, unchecked. Must have
 * room for all the service sends, which alone bounds what is written: 260,095 at most. Untouched on failure; may be
 * null.
 * @param pListSize Receives their count; untouched on failure; may be null.
 * @return 0; -1 when there is no entry or the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getAvailAspectList(int* pModeList, int* pListSize);

/**
 * Switches overscan on or off.
 * @param bEnable True switches it on.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_enableOverscan(bool bEnable);

/**
 * Tells whether overscan is on.
 * @return 0 for the service's 0; 1 for any other answer, a failure included.
 */
KELUTV_API int linux_tv_Picture_isOverscanEnable(void);

/**
 * Freezes the picture or lets it go on.
 * @param onOff True freezes it.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_enableFreeze(bool onOff);

/**
 * Tells whether the picture is frozen.
 * @return 0 for the service's 0; 1 for any other answer, a failure included.
 */
KELUTV_API int linux_tv_Picture_isFreezeEnable(void);

/**
 * Switches the game mode on or off.
 * @param bEnable True switches it on.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_enableGameMode(bool bEnable);

/**
 * Tells whether the game mode is on.
 * @return 0 for the service's 0; 1 for any other answer, a failure included.
 */
KELUTV_API int linux_tv_Picture_isGameModeEnable(void);

/**
 * Chooses the PC mode of the picture.
 * @param mode One of `KELU_MW_PCMODE_E`.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setPcMode(int mode);

/**
 * Reads the PC mode of the picture.
 * @return One of `KELU_MW_PCMODE_E`; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getPcMode(void);

/**
 * Switches one demonstration on or off.
 * @param demomode Demonstration as the service numbers it.
 * @param onoff True switches it on.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setDemoMode(int demomode, bool onoff);

/**
 * Tells whether one demonstration is on.
 * @param demomode Demonstration as the service numbers it.
 * @return 0 for the service's 0; 1 for any other answer, a failure included.
 */
KELUTV_API int linux_tv_Picture_getDemoMode(int demomode);

/**
 * Enters or leaves one demonstration.
 * @param demomode Demonstration as the service numbers it.
 * @param mode Whether to enter or leave, as the service numbers it.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setDemoModeEnterExit(int demomode, int mode);

/**
 * Has the service write a picture of the screen to a file.
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
 * @param mSwitch One of `KELU_TV_SUPPORT_SWITCH_E`.
 * @return One of `KELU_TV_SUPPORT_SWITCH_MODE_E`; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Picture_getCMDSupportedMode(int mSwitch);

/**
 * Reads whether one picture function is enabled.
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
 * @param cmdID Item as the service numbers it.
 * @param param1,param2,param3,param4 What the item defines.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setColorAdvancedItem(int cmdID, int param1, int param2, int param3, int param4);

/**
 * Reads one item of the advanced colour settings.
 * @param cmdID Item as the service numbers it.
 * @param param What the item defines.
 * @param pBuf Room for 255 ints (1,020 bytes); all are written, 0 where the service sent less. Untouched on failure.
 * @return 0; -1 when the service or the link fails, and for a null pointer, with nothing sent.
 */
KELUTV_API int linux_tv_Picture_getColorAdvancedItem(int cmdID, int param, int* pBuf);

/**
 * Sets one item.
 * @param cmdID Item of the picture module, of `KELU_TV_CMDID_E`.
 * @param param1,param2,param3,param4 What the item defines.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_setPictureItemValue(int cmdID, int param1, int param2, int param3, int param4);

/**
 * Reads one item.
 * @param cmdID Item of the picture module, of `KELU_TV_CMDID_E`.
 * @param param1,param2 What the item defines.
 * @param pBuf Room for 255 ints (1,020 bytes); all are written, 0 where the service sent less. Untouched on failure.
 * @return 0; -1 when the service or the link fails, and for a null pointer, with nothing sent.
 */
KELUTV_API int linux_tv_Picture_getPictureItemValue(int cmdID, int param1, int param2, int* pBuf);

/**
 * Copies the values of the current picture mode to the user mode.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Picture_copyCurPicModeDataToUser(void);

/** @} */

#ifdef __cplusplus
}
#endif

#endif
