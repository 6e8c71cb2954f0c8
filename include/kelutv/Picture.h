/**
 * @file
 * The class `Picture`; its C functions are in linux_kelutv_picture.h.
 */
#pragma once

#include <kelutv/export.h>
#include <kelutv/picture_types.h>

#include <list>

/**
 * The picture of the television: modes, image values, backlight, colour, noise and motion, dynamic range, aspect.
 *
 * Every operation is one command to the TV base service, which owns all values; the object keeps none. A `bool` travels
 * as 0 or 1. An operation blocks until the service has answered, may be called from any thread, and writes nothing to
 * the log unless it says so, save that a set command whose link fails is logged as "invoke failure\n".
 */
class KELUTV_API Picture {
public:
    /**
     * The one object, made on the first call from any thread.
     * @return The object; never null.
     */
    static Picture* instance();

    Picture(const Picture&) = delete;
    Picture& operator=(const Picture&) = delete;

    /**
     * @name Picture mode
     * @{
     */

    /**
     * Chooses the picture mode.
     * Logs "setPictureMode" at error priority first.
     * @param picturemode Index of the mode among those of the stream type: in `KELU_MW_PICMODE_E`,
     * `KELU_MW_PICMODE_HDR_E`, `KELU_MW_PICMODE_HDR_PLUS_E` or `KELU_MW_PICMODE_DOLBY_E`.
     * @param streamType Stream type, one of `KELU_TV_HDR_TYPE_E`.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setPictureMode(int picturemode, int streamType);

    /**
     * Reads the picture mode.
     * @return The index of the mode among those of the stream type at hand; -1 when the service or the link fails.
     */
    int getPictureMode();

    /**
     * Reads which picture modes a stream type offers.
     * @param streamType Stream type, one of `KELU_TV_HDR_TYPE_E`.
     * @return The modes in the service's order, for a signal of standard dynamic range of `KELU_TV_PIC_MODE_NEW_E` and
     * so on; empty when the service or the link fails.
     */
    std::list<int> getPicModeEnable(int streamType);

    /**
     * Reads the backlight a picture mode has.
     * @param pictureMode Index of the mode among those of the stream type at hand.
     * @return The backlight; -1 when the service or the link fails.
     */
    int getBLValueInPicmode(int pictureMode);

    /**
     * Reads the dream panel setting a picture mode has.
     * @param pictureMode Index of the mode among those of the stream type at hand.
     * @return One of `KELU_TV_PANELLEVEL_E`; -1 when the service or the link fails.
     */
    int getDreamPanelByPicmode(int pictureMode);

    /**
     * Chooses the enhanced picture mode for an application that shows a camera.
     * @param mode Mode as the service numbers it.
     * @param pkgName Package of the application.
     * @param className Class of the application.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setCameraEnhancePictureMode(int mode, char const* pkgName, char const* className);

    /**
     * Tells the service that an album of photographs is being shown, or no longer.
     * @param mode 1 for shown, 0 for no longer.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int notifyAlbumPlayStatus(int mode);

    /**
     * Restores the picture settings to their defaults.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int restorePictureSets();

    /**
     * Tries out one value of the image inside a picture mode.
     * Prints "pictureMode=%d,imagePara=%d,value=%d\n" with the arguments to standard error first.
     * @param pictureMode Index of the mode among those of the stream type at hand.
     * @param imagePara One of `KELU_TV_PIC_IMAGE_E`.
     * @param value Value; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int debugPictureModePara(int pictureMode, int imagePara, int value);

    /**
     * Would choose the picture mode of Dolby HDR; the service has no such command.
     * @param mode Not looked at.
     * @return -1.
     */
    int setDolbyHdrPicMode(int mode);

    /**
     * Would read the picture mode of Dolby HDR; the service has no such command.
     * @return -1.
     */
    int getDolbyHdrPicMode();

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
    int setBrightness(int brightness);

    /**
     * Reads the brightness.
     * @return The brightness; -1 when the service or the link fails.
     */
    int getBrightness();

    /**
     * Sets the contrast.
     * @param contrast Contrast; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setContrast(int contrast);

    /**
     * Reads the contrast.
     * @return The contrast; -1 when the service or the link fails.
     */
    int getContrast();

    /**
     * Sets the saturation.
     * @param saturation Saturation; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setSaturation(int saturation);

    /**
     * Reads the saturation.
     * @return The saturation; -1 when the service or the link fails.
     */
    int getSaturation();

    /**
     * Sets the sharpness.
     * @param sharpness Sharpness; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setSharpness(int sharpness);

    /**
     * Reads the sharpness.
     * @return The sharpness; -1 when the service or the link fails.
     */
    int getSharpness();

    /**
     * Sets the hue.
     * @param hue Hue; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setHue(int hue);

    /**
     * Reads the hue.
     * @return The hue; -1 when the service or the link fails.
     */
    int getHue();

    /**
     * Sets the level of the dynamic contrast.
     * @param dciLevel Level; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setDciLevel(int dciLevel);

    /**
     * Reads the level of the dynamic contrast.
     * @return The level; -1 when the service or the link fails.
     */
    int getDciLevel();

    /**
     * Switches the dynamic contrast on or off.
     * @param onoff True switches it on.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int enableDCI(bool onoff);

    /**
     * Tells whether the dynamic contrast is on.
     * @return False for the service's 0; true for any other answer, a failure included.
     */
    bool isDCIEnable();

    /**
     * Sets the level of the black stretch.
     * @param bsLevel Level; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setBlackStretchLevel(int bsLevel);

    /**
     * Reads the level of the black stretch.
     * @return The level; -1 when the service or the link fails.
     */
    int getBlackStretchLevel();

    /**
     * Sets the mode of the local contrast.
     * @param mode Mode as the service numbers it; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setLocalContrastMode(int mode);

    /**
     * Reads the mode of the local contrast.
     * @return The mode; -1 when the service or the link fails.
     */
    int getLocalContrastMode();

    /**
     * Sets the level of the super resolution.
     * @param srlevel Level; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setSRLevel(int srlevel);

    /**
     * Reads the level of the super resolution.
     * @return The level; -1 when the service or the link fails.
     */
    int getSRLevel();

    /**
     * Sets the eye protection mode.
     * @param mode Mode as the service numbers it; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setEyeSafeMode(int mode);

    /**
     * Reads the eye protection mode.
     * @return The mode; -1 when the service or the link fails.
     */
    int getEyeSafeMode();

    /** @} */

    /**
     * @name Backlight and dimming
     * @{
     */

    /**
     * Sets the backlight.
     * Logs "##########setBacklight" at debug priority first.
     * @param backlight Backlight; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setBacklight(int backlight);

    /**
     * Reads the backlight.
     * @return The backlight; -1 when the service or the link fails.
     */
    int getBacklight();

    /**
     * Switches the backlight on or off.
     * @param onoff True switches it on.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int enableBacklight(bool onoff);

    /**
     * Tells whether the backlight is on.
     * @return False for the service's 0; true for any other answer, a failure included.
     */
    bool isBacklightEnable();

    /**
     * Switches the dynamic backlight on or off.
     * @param onoff True switches it on.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int enableDynamicBL(bool onoff);

    /**
     * Tells whether the dynamic backlight is on.
     * @return False for the service's 0; true for any other answer, a failure included.
     */
    bool isDynamicBLEnable();

    /**
     * Switches the matrix backlight on or off.
     * @param onOff True switches it on.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setMatrixBacklight(bool onOff);

    /**
     * Tells whether the matrix backlight is on.
     * @return False for the service's 0; true for any other answer, a failure included.
     */
    bool getMatrixBacklight();

    /**
     * Chooses the dream panel setting.
     * @param mode One of `KELU_TV_PANELLEVEL_E`.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setDreamPanel(int mode);

    /**
     * Reads the dream panel setting.
     * @return One of `KELU_TV_PANELLEVEL_E`; -1 when the service or the link fails.
     */
    int getDreamPanel();

    /**
     * Sets the number of areas of local dimming.
     * @param num Number; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setLocalDimmingAreaNumber(int num);

    /**
     * Reads the number of areas of local dimming.
     * @return The number; -1 when the service or the link fails.
     */
    int getLocalDimmingAreaNumber();

    /**
     * Chooses the place of the lights of local dimming.
     * @param pos One of `KELU_TV_LDLIGHTPOS_E`.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setLocalDimmingLightPosition(int pos);

    /**
     * Reads the place of the lights of local dimming.
     * @return One of `KELU_TV_LDLIGHTPOS_E`; -1 when the service or the link fails.
     */
    int getLocalDimmingLightPosition();

    /**
     * Sets the mode of local dimming.
     * @param mode Mode as the service numbers it; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setLocalDimmingMode(int mode);

    /**
     * Reads the mode of local dimming.
     * @return The mode; -1 when the service or the link fails.
     */
    int getLocalDimmingMode();

    /**
     * Chooses the demonstration of local dimming.
     * @param mode One of `KELU_TV_LOCALDIMMING_DEMO_MODE_E`.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setLocalDimmingDemoMode(int mode);

    /**
     * Reads the demonstration of local dimming.
     * @return One of `KELU_TV_LOCALDIMMING_DEMO_MODE_E`; -1 when the service or the link fails.
     */
    int getLocalDimmingDemoMode();

    /**
     * Reads whether the running light of local dimming is at work.
     * @return The state as the service gives it, 0 for not; -1 when the service or the link fails.
     */
    int getLDHorseLightIsRunning();

    /**
     * Reads the data of every partition of micro dimming.
     * @param widthPartionIndex Partitions side by side.
     * @param heightPartionIndex Partitions one above the other.
     * @param buff Room for as many ints as the product of the two; all are written, 0 where the service sent less, and
     * none when the product is below 1. Untouched on failure.
     * @return 0; -1 when the service or the link fails, and for a null `buff`, logged and with nothing sent.
     */
    int getMicroDimmingData(int widthPartionIndex, int heightPartionIndex, int* buff);

    /**
     * Reads one channel of the light sensor.
     * @param channel Channel as the service numbers it.
     * @return The reading; -1 when the service or the link fails.
     */
    int getLSADCChannelValue(int channel);

    /**
     * Reads the histogram of brightness.
     * @return The values in the service's order; empty when the service or the link fails.
     */
    std::list<int> getBrightnessHistogram();

    /**
     * Sets the brightness of the laser.
     * @param brightness Brightness; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setLaserBrightness(int brightness);

    /**
     * Reads the brightness of the laser.
     * @return The brightness; -1 when the service or the link fails.
     */
    int getLaserBrightness();

    /**
     * Sets the highest brightness of the laser.
     * @param brightness Brightness; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setLaserMaxBrightness(int brightness);

    /**
     * Reads the highest brightness of the laser.
     * @return The brightness; -1 when the service or the link fails.
     */
    int getLaserMaxBrightness();

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
    int setColorTemp(int colortemp);

    /**
     * Reads the colour temperature.
     * @return One of `KELU_TV_COLORTEMP_E`; -1 when the service or the link fails.
     */
    int getColorTemp();

    /**
     * Sets the white balance of the colour temperature.
     * @param stColorTemp Gains and offsets; the service enforces the ranges.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setColorTempPara(ColorTempData stColorTemp);

    /**
     * Reads the white balance of the colour temperature.
     * @return Gains and offsets; all 0 when the service or the link fails.
     */
    ColorTempData getColorTempPara();

    /**
     * Reads the highest gain of red, green and blue.
     * @return The gain; -1 when the service or the link fails.
     */
    int getMaxRGBGain();

    /**
     * Chooses the colour system.
     * @param colorSys One of `KELU_TV_CLRSYS_E`.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setColorSystem(int colorSys);

    /**
     * Reads the colour system.
     * @return One of `KELU_TV_CLRSYS_E`; -1 when the service or the link fails.
     */
    int getColorSystem();

    /**
     * Reads the colour system that the signal really has.
     * @return One of `KELU_TV_CLRSYS_E`; -1 when the service or the link fails.
     */
    int getRealColorSystem();

    /**
     * Sets the table of the colour manager.
     * @param index Index of the table; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setColorManagerTableIndex(int index);

    /**
     * Reads the table of the colour manager.
     * @return The index of the table; -1 when the service or the link fails.
     */
    int getColorManagerTableIndex();

    /**
     * Sets the type of the colour range.
     * @param crType Type as the service numbers it; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setColorRangeType(int crType);

    /**
     * Reads the type of the colour range.
     * @return The type; -1 when the service or the link fails.
     */
    int getColorRangeType();

    /**
     * Chooses the colour range of HDMI signals.
     * @param val One of `KELU_TV_IMAGE_RGB_TYPE_E`.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setHDMIColorRange(int val);

    /**
     * Reads the colour range of HDMI signals.
     * @return One of `KELU_TV_IMAGE_RGB_TYPE_E`; -1 when the service or the link fails.
     */
    int getHDMIColorRange();

    /**
     * Sets the correction of skin tones.
     * @param fleshtone Strength; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setFleshTone(int fleshtone);

    /**
     * Reads the correction of skin tones.
     * @return The strength; -1 when the service or the link fails.
     */
    int getFleshTone();

    /**
     * Reads the highest correction of skin tones.
     * @return The strength; -1 when the service or the link fails.
     */
    int getMaxFleshTone();

    /**
     * Sets the brightness of skin tones.
     * @param brightness Brightness; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setFleshToneBrightness(int brightness);

    /**
     * Reads the brightness of skin tones.
     * @return The brightness; -1 when the service or the link fails.
     */
    int getFleshToneBrightness();

    /**
     * Sets the hue of skin tones.
     * @param hue Hue; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setFleshToneHue(int hue);

    /**
     * Reads the hue of skin tones.
     * @return The hue; -1 when the service or the link fails.
     */
    int getFleshToneHue();

    /**
     * Sets the saturation of skin tones.
     * @param saturation Saturation; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setFleshToneSaturation(int saturation);

    /**
     * Reads the saturation of skin tones.
     * @return The saturation; -1 when the service or the link fails.
     */
    int getFleshToneSaturation();

    /**
     * Switches the extension of blue on or off.
     * @param onoff True switches it on.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int enableBlueExtend(bool onoff);

    /**
     * Tells whether the extension of blue is on.
     * @return False for the service's 0; true for any other answer, a failure included.
     */
    bool isBlueExtendEnable();

    /**
     * Sets the correction of every colour.
     * @param stColorControlInfo The corrections; the service enforces the ranges.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setColorControlInfoPara(ColorControlInfoData stColorControlInfo);

    /**
     * Reads the correction of every colour.
     * @return The corrections; all 0 when the service or the link fails.
     */
    ColorControlInfoData getColorControlInfoPara();

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
    int setNR(int nr);

    /**
     * Reads the noise reduction.
     * @return One of `KELU_TV_LEVEL_E`; -1 when the service or the link fails.
     */
    int getNR();

    /**
     * Sets the level of the removal of block edges.
     * @param dbLevel Level; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setDeBlocking(int dbLevel);

    /**
     * Reads the level of the removal of block edges.
     * @return The level; -1 when the service or the link fails.
     */
    int getDeBlocking();

    /**
     * Sets the level of the removal of ringing.
     * @param drLevel Level; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setDeRinging(int drLevel);

    /**
     * Reads the level of the removal of ringing.
     * @return The level; -1 when the service or the link fails.
     */
    int getDeRinging();

    /**
     * Sets the level of the removal of overshoot.
     * @param dsLevel Level; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setDeShooting(int dsLevel);

    /**
     * Reads the level of the removal of overshoot.
     * @return The level; -1 when the service or the link fails.
     */
    int getDeShooting();

    /**
     * Sets the removal of false contours.
     * @param mode Mode as the service numbers it; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setDeContour(int mode);

    /**
     * Reads the removal of false contours.
     * @return The mode; -1 when the service or the link fails.
     */
    int getDeContour();

    /**
     * Switches the smoothing of jagged edges on or off.
     * @param bEnable True switches it on.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setAIDeJaggyMode(bool bEnable);

    /**
     * Tells whether the smoothing of jagged edges is on.
     * @return False for the service's 0; true for any other answer, a failure included.
     */
    bool getAIDeJaggyMode();

    /**
     * Sets the film mode.
     * @param filmmode Mode as the service numbers it; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setFilmMode(int filmmode);

    /**
     * Reads the film mode.
     * @return The mode; -1 when the service or the link fails.
     */
    int getFilmMode();

    /**
     * Switches the motion compensation on or off.
     * @param onoff True switches it on.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setMEMCEnable(bool onoff);

    /**
     * Tells whether the motion compensation is on.
     * @return False for the service's 0; true for any other answer, a failure included.
     */
    bool isMEMCEnable();

    /**
     * Sets the level of the motion compensation.
     * @param memclevel Level; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setMEMCLevel(int memclevel);

    /**
     * Reads the level of the motion compensation.
     * @return The level; -1 when the service or the link fails.
     */
    int getMEMCLevel();

    /**
     * Sets the demonstration of the motion compensation.
     * @param mode Mode as the service numbers it; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setMEMCDemoMode(int mode);

    /**
     * Reads the demonstration of the motion compensation.
     * @return The mode; -1 when the service or the link fails.
     */
    int getMEMCDemoMode();

    /**
     * Sets the level at which motion compensation removes blur.
     * @param blurlevel Level; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setMemcDeBlurLevel(int blurlevel);

    /**
     * Reads the level at which motion compensation removes blur.
     * @return The level; -1 when the service or the link fails.
     */
    int getMemcDeBlurLevel();

    /**
     * Sets the level at which motion compensation removes judder.
     * @param judderlevel Level; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setMemcDeJudderLevel(int judderlevel);

    /**
     * Reads the level at which motion compensation removes judder.
     * @return The level; -1 when the service or the link fails.
     */
    int getMemcDeJudderLevel();

    /** @} */

    /**
     * @name Dynamic range
     * @{
     */

    /**
     * Reads the kind of dynamic range of the signal.
     * @return One of `KELU_TV_HDR_TYPE_E`; -1 when the service or the link fails.
     */
    int getHdrStreamType();

    /**
     * Switches HDR10 on or off.
     * @param bEnable True switches it on.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setHdr10Enable(bool bEnable);

    /**
     * Tells whether HDR10 is on.
     * @return False for the service's 0; true for any other answer, a failure included.
     */
    bool getHdr10Enable();

    /**
     * Chooses the dynamic range the picture is shown in.
     * @param hdrMode One of `KELU_MW_HDR_MODE_E`.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setHdrMode(int hdrMode);

    /**
     * Reads the dynamic range the picture is shown in.
     * @return One of `KELU_MW_HDR_MODE_E`; -1 when the service or the link fails.
     */
    int getHdrMode();

    /**
     * Sets the mode of the conversion from standard to high dynamic range.
     * @param mode Mode as the service numbers it; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setSdrToHdrMode(int mode);

    /**
     * Reads the mode of the conversion from standard to high dynamic range.
     * @return The mode; -1 when the service or the link fails.
     */
    int getSdrToHdrMode();

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
    int setAspect(int aspect, bool mute);

    /**
     * Reads the aspect.
     * @return One of `KELU_TV_ASPECT_E`; -1 when the service or the link fails.
     */
    int getAspect();

    /**
     * Reads the aspects the current signal can be shown in.
     * @return The aspects in the service's order, each one of `KELU_TV_ASPECT_E`, unchecked; empty when the service or
     * the link fails.
     */
    std::list<int> getAvailAspectList();

    /**
     * Switches overscan on or off.
     * @param bEnable True switches it on.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int enableOverscan(bool bEnable);

    /**
     * Tells whether overscan is on.
     * @return False for the service's 0; true for any other answer, a failure included.
     */
    bool isOverscanEnable();

    /**
     * Sets where the picture lies and how far it reaches.
     * @param scope Position and range; the service enforces the ranges.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setScopeInfo(ScopeInfo scope);

    /**
     * Reads where the picture lies and how far it reaches.
     * @return Position and range; all 0 when the service or the link fails.
     */
    ScopeInfo getScopeInfo();

    /**
     * Freezes the picture or lets it go on.
     * @param onOff True freezes it.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int enableFreeze(bool onOff);

    /**
     * Tells whether the picture is frozen.
     * @return False for the service's 0; true for any other answer, a failure included.
     */
    bool isFreezeEnable();

    /**
     * Switches the game mode on or off.
     * @param bEnable True switches it on.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int enableGameMode(bool bEnable);

    /**
     * Tells whether the game mode is on.
     * @return False for the service's 0; true for any other answer, a failure included.
     */
    bool isGameModeEnable();

    /**
     * Chooses the PC mode of the picture.
     * @param mode One of `KELU_MW_PCMODE_E`.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setPcMode(int mode);

    /**
     * Reads the PC mode of the picture.
     * @return One of `KELU_MW_PCMODE_E`; -1 when the service or the link fails.
     */
    int GetPcMode();

    /**
     * Switches one demonstration on or off.
     * @param demomode Demonstration as the service numbers it.
     * @param onoff True switches it on.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setDemoMode(int demomode, bool onoff);

    /**
     * Tells whether one demonstration is on.
     * @param demomode Demonstration as the service numbers it.
     * @return False for the service's 0; true for any other answer, a failure included.
     */
    bool getDemoMode(int demomode);

    /**
     * Enters or leaves one demonstration.
     * @param demomode Demonstration as the service numbers it.
     * @param mode Whether to enter or leave, as the service numbers it.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setDemoModeEnterExit(int demomode, int mode);

    /**
     * Has the service write a picture of the screen to a file; a set command in spite of its name.
     * @param width Width of the picture in pixels.
     * @param height Height of the picture in pixels.
     * @param path Path of the file in the service's file system.
     * @param bWithUI True takes the user interface into the picture.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int getVideoScreenShot(int width, int height, char const* path, bool bWithUI);

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
    int getCMDSupportedMode(int mSwitch);

    /**
     * Reads whether one picture function is enabled.
     * @param func One of `KELU_TV_PICTURE_FUNC_E`.
     * @return The answer as the service gives it, 0 for not; -1 when the service or the link fails.
     */
    int getPictureFunctionEnable(int func);

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
    int setColorAdvancedItem(int cmdID, int param1, int param2, int param3, int param4);

    /**
     * Reads one item of the advanced colour settings.
     * @param cmdID Item as the service numbers it.
     * @param param What the item defines.
     * @param pData Room for 255 ints (1,020 bytes); all are written, 0 where the service sent less. Untouched on
     * failure.
     * @return 0; -1 when the service or the link fails, and for a null `pData`, logged and with nothing sent.
     */
    int getColorAdvancedItem(int cmdID, int param, int* pData);

    /**
     * Sets one item.
     * @param cmdID Item of the picture module, of `KELU_TV_CMDID_E`.
     * @param param1,param2,param3,param4 What the item defines.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setPictureItemValue(int cmdID, int param1, int param2, int param3, int param4);

    /**
     * Reads one item.
     * @param cmdID Item of the picture module, of `KELU_TV_CMDID_E`.
     * @param param1,param2 What the item defines.
     * @param pData Room for 255 ints (1,020 bytes); all are written, 0 where the service sent less. Untouched on
     * failure.
     * @return 0; -1 when the service or the link fails, and for a null `pData`, logged and with nothing sent.
     */
    int getPictureItemValue(int cmdID, int param1, int param2, int* pData);

    /** @} */

private:
    Picture() = default;
};
