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
     * Chooses the picture mode. Logs "setPictureMode" at error priority first.
     * Sends `CMD_PICTURE_SETPICTUREMODE`: `picturemode`, `streamType`.
     * @param picturemode Index of the mode among those of the stream type: in `KELU_MW_PICMODE_E`,
     * `KELU_MW_PICMODE_HDR_E`, `KELU_MW_PICMODE_HDR_PLUS_E` or `KELU_MW_PICMODE_DOLBY_E`.
     * @param streamType Stream type, one of `KELU_TV_HDR_TYPE_E`.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setPictureMode(int picturemode, int streamType);

    /**
     * Reads the picture mode.
     * Sends `CMD_PICTURE_GETPICTUREMODE`.
     * @return The index of the mode among those of the stream type at hand; -1 when the service or the link fails.
     */
    int getPictureMode();

    /**
     * Reads which picture modes a stream type offers.
     * Sends `CMD_PICTURE_GETPICMODEENABLE`: `streamType`; the answer holds ints until its end.
     * @param streamType Stream type, one of `KELU_TV_HDR_TYPE_E`.
     * @return The modes in the service's order, for a signal of standard dynamic range of `KELU_TV_PIC_MODE_NEW_E` and
     * so on; empty when the service or the link fails.
     */
    std::list<int> getPicModeEnable(int streamType);

    /**
     * Reads the backlight a picture mode has.
     * Sends `CMD_PICTURE_GETBACKLIGHT_INPICMODE`: `pictureMode`.
     * @param pictureMode Index of the mode among those of the stream type at hand.
     * @return The backlight; -1 when the service or the link fails.
     */
    int getBLValueInPicmode(int pictureMode);

    /**
     * Reads the dream panel setting a picture mode has.
     * Sends `CMD_PICTURE_GETDREAMPANEL_BYPICMODE`: `pictureMode`.
     * @param pictureMode Index of the mode among those of the stream type at hand.
     * @return One of `KELU_TV_PANELLEVEL_E`; -1 when the service or the link fails.
     */
    int getDreamPanelByPicmode(int pictureMode);

    /**
     * Chooses the enhanced picture mode for an application that shows a camera.
     * Sends `CMD_PICTURE_SET_CAMERA_ENHANCE_PICTURE_MODE`: `mode`, `pkgName`, `className`.
     * @param mode Mode as the service numbers it.
     * @param pkgName Package of the application.
     * @param className Class of the application.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setCameraEnhancePictureMode(int mode, char const* pkgName, char const* className);

    /**
     * Tells the service that an album of photographs is being shown, or no longer.
     * Sends `CMD_PICTURE_NOTIFYALBUMPLAYSTATUS`: `mode`.
     * @param mode 1 for shown, 0 for no longer.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int notifyAlbumPlayStatus(int mode);

    /**
     * Restores the picture settings to their defaults.
     * Sends `CMD_PICTURE_RESTOREPICTURESETS`.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int restorePictureSets();

    /**
     * Tries out one value of the image inside a picture mode. Prints "pictureMode=%d,imagePara=%d,value=%d\n" with the
     * arguments to standard error first.
     * Sends `CMD_PICTURE_DEBUGTPICTUREMODEPARA`: `pictureMode`, `imagePara`, `value`.
     * @param pictureMode Index of the mode among those of the stream type at hand.
     * @param imagePara One of `KELU_TV_PIC_IMAGE_E`.
     * @param value Value; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int debugPictureModePara(int pictureMode, int imagePara, int value);

    /**
     * Would choose the picture mode of Dolby HDR; the service has no such command. Sends nothing.
     * @param mode Not looked at.
     * @return -1.
     */
    int setDolbyHdrPicMode(int mode);

    /**
     * Would read the picture mode of Dolby HDR; the service has no such command. Sends nothing.
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
     * Sends `CMD_PICTURE_SETBRIGHTNESS`: `brightness`.
     * @param brightness Brightness; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setBrightness(int brightness);

    /**
     * Reads the brightness.
     * Sends `CMD_PICTURE_GETBRIGHTNESS`.
     * @return The brightness; -1 when the service or the link fails.
     */
    int getBrightness();

    /**
     * Sets the contrast.
     * Sends `CMD_PICTURE_SETCONTRAST`: `contrast`.
     * @param contrast Contrast; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setContrast(int contrast);

    /**
     * Reads the contrast.
     * Sends `CMD_PICTURE_GETCONTRAST`.
     * @return The contrast; -1 when the service or the link fails.
     */
    int getContrast();

    /**
     * Sets the saturation.
     * Sends `CMD_PICTURE_SETSATURATION`: `saturation`.
     * @param saturation Saturation; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setSaturation(int saturation);

    /**
     * Reads the saturation.
     * Sends `CMD_PICTURE_GETSATURATION`.
     * @return The saturation; -1 when the service or the link fails.
     */
    int getSaturation();

    /**
     * Sets the sharpness.
     * Sends `CMD_PICTURE_SETSHARPNESS`: `sharpness`.
     * @param sharpness Sharpness; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setSharpness(int sharpness);

    /**
     * Reads the sharpness.
     * Sends `CMD_PICTURE_GETSHARPNESS`.
     * @return The sharpness; -1 when the service or the link fails.
     */
    int getSharpness();

    /**
     * Sets the hue.
     * Sends `CMD_PICTURE_SETHUE`: `hue`.
     * @param hue Hue; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setHue(int hue);

    /**
     * Reads the hue.
     * Sends `CMD_PICTURE_GETHUE`.
     * @return The hue; -1 when the service or the link fails.
     */
    int getHue();

    /**
     * Sets the level of the dynamic contrast.
     * Sends `CMD_PICTURE_SETDCILEVEL`: `dciLevel`.
     * @param dciLevel Level; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setDciLevel(int dciLevel);

    /**
     * Reads the level of the dynamic contrast.
     * Sends `CMD_PICTURE_GETDCILEVEL`.
     * @return The level; -1 when the service or the link fails.
     */
    int getDciLevel();

    /**
     * Switches the dynamic contrast on or off.
     * Sends `CMD_PICTURE_SETDCI`: `onoff`.
     * @param onoff True switches it on.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int enableDCI(bool onoff);

    /**
     * Tells whether the dynamic contrast is on.
     * Sends `CMD_PICTURE_GETDCI`.
     * @return False for the service's 0; true for any other answer, a failure included.
     */
    bool isDCIEnable();

    /**
     * Sets the level of the black stretch.
     * Sends `CMD_PICTURE_SETBLACKSTRETCH`: `bsLevel`.
     * @param bsLevel Level; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setBlackStretchLevel(int bsLevel);

    /**
     * Reads the level of the black stretch.
     * Sends `CMD_PICTURE_GETBLACKSTRETCH`.
     * @return The level; -1 when the service or the link fails.
     */
    int getBlackStretchLevel();

    /**
     * Sets the mode of the local contrast.
     * Sends `CMD_PICTURE_SETLOCALCONTRASTMODE`: `mode`.
     * @param mode Mode as the service numbers it; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setLocalContrastMode(int mode);

    /**
     * Reads the mode of the local contrast.
     * Sends `CMD_PICTURE_GETLOCALCONTRASTMODE`.
     * @return The mode; -1 when the service or the link fails.
     */
    int getLocalContrastMode();

    /**
     * Sets the level of the super resolution.
     * Sends `CMD_PICTURE_SETSRLEVEL`: `srlevel`.
     * @param srlevel Level; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setSRLevel(int srlevel);

    /**
     * Reads the level of the super resolution.
     * Sends `CMD_PICTURE_GETSRLEVEL`.
     * @return The level; -1 when the service or the link fails.
     */
    int getSRLevel();

    /**
     * Sets the eye protection mode.
     * Sends `CMD_PICTURE_SETEYESAFEMODE`: `mode`.
     * @param mode Mode as the service numbers it; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setEyeSafeMode(int mode);

    /**
     * Reads the eye protection mode.
     * Sends `CMD_PICTURE_GETEYESAFEMODE`.
     * @return The mode; -1 when the service or the link fails.
     */
    int getEyeSafeMode();

    /** @} */

    /**
     * @name Backlight and dimming
     * @{
     */

    /**
     * Sets the backlight. Logs "##########setBacklight" at debug priority first.
     * Sends `CMD_PICTURE_SETBACKLIGHT`: `backlight`.
     * @param backlight Backlight; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setBacklight(int backlight);

    /**
     * Reads the backlight.
     * Sends `CMD_PICTURE_GETBACKLIGHT`.
     * @return The backlight; -1 when the service or the link fails.
     */
    int getBacklight();

    /**
     * Switches the backlight on or off.
     * Sends `CMD_PICTURE_SETBACKLIGHTENABLE`: `onoff`.
     * @param onoff True switches it on.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int enableBacklight(bool onoff);

    /**
     * Tells whether the backlight is on.
     * Sends `CMD_PICTURE_GETBACKLIGHTENABLE`.
     * @return False for the service's 0; true for any other answer, a failure included.
     */
    bool isBacklightEnable();

    /**
     * Switches the dynamic backlight on or off.
     * Sends `CMD_PICTURE_SETDYNAMICBL`: `onoff`.
     * @param onoff True switches it on.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int enableDynamicBL(bool onoff);

    /**
     * Tells whether the dynamic backlight is on.
     * Sends `CMD_PICTURE_GETDYNAMICBL`.
     * @return False for the service's 0; true for any other answer, a failure included.
     */
    bool isDynamicBLEnable();

    /**
     * Switches the matrix backlight on or off.
     * Sends `CMD_PICTURE_SETMATRIXBACKLIGHT`: `onOff`.
     * @param onOff True switches it on.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setMatrixBacklight(bool onOff);

    /**
     * Tells whether the matrix backlight is on.
     * Sends `CMD_PICTURE_GETMATRIXBACKLIGHT`.
     * @return False for the service's 0; true for any other answer, a failure included.
     */
    bool getMatrixBacklight();

    /**
     * Chooses the dream panel setting.
     * Sends `CMD_PICTURE_SETDREAMPANEL`: `mode`.
     * @param mode One of `KELU_TV_PANELLEVEL_E`.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setDreamPanel(int mode);

    /**
     * Reads the dream panel setting.
     * Sends `CMD_PICTURE_GETDREAMPANEL`.
     * @return One of `KELU_TV_PANELLEVEL_E`; -1 when the service or the link fails.
     */
    int getDreamPanel();

    /**
     * Sets the number of areas of local dimming.
     * Sends `CMD_PICTURE_SETLDAREANUM`: `num`.
     * @param num Number; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setLocalDimmingAreaNumber(int num);

    /**
     * Reads the number of areas of local dimming.
     * Sends `CMD_PICTURE_GETLDAREANUM`.
     * @return The number; -1 when the service or the link fails.
     */
    int getLocalDimmingAreaNumber();

    /**
     * Chooses the place of the lights of local dimming.
     * Sends `CMD_PICTURE_SETLDLIGHTPOS`: `pos`.
     * @param pos One of `KELU_TV_LDLIGHTPOS_E`.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setLocalDimmingLightPosition(int pos);

    /**
     * Reads the place of the lights of local dimming.
     * Sends `CMD_PICTURE_GETLDLIGHTPOS`.
     * @return One of `KELU_TV_LDLIGHTPOS_E`; -1 when the service or the link fails.
     */
    int getLocalDimmingLightPosition();

    /**
     * Sets the mode of local dimming.
     * Sends `CMD_PICTURE_SETLDMODE`: `mode`.
     * @param mode Mode as the service numbers it; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setLocalDimmingMode(int mode);

    /**
     * Reads the mode of local dimming.
     * Sends `CMD_PICTURE_GETLDMODE`.
     * @return The mode; -1 when the service or the link fails.
     */
    int getLocalDimmingMode();

    /**
     * Chooses the demonstration of local dimming.
     * Sends `CMD_PICTURE_SETLDDEMOMODE`: `mode`.
     * @param mode One of `KELU_TV_LOCALDIMMING_DEMO_MODE_E`.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setLocalDimmingDemoMode(int mode);

    /**
     * Reads the demonstration of local dimming.
     * Sends `CMD_PICTURE_GETLDDEMOMODE`.
     * @return One of `KELU_TV_LOCALDIMMING_DEMO_MODE_E`; -1 when the service or the link fails.
     */
    int getLocalDimmingDemoMode();

    /**
     * Reads whether the running light of local dimming is at work.
     * Sends `CMD_PICTURE_GETLDHORSELIGHT_ISRUNNING`.
     * @return The state as the service gives it, 0 for not; -1 when the service or the link fails.
     */
    int getLDHorseLightIsRunning();

    /**
     * Reads the data of every partition of micro dimming.
     * Sends `CMD_PICTURE_GETMICRODIMMINGDATA`: `widthPartionIndex`, `heightPartionIndex`.
     * @param widthPartionIndex Partitions side by side.
     * @param heightPartionIndex Partitions one above the other.
     * @param buff Room for as many ints as the product of the two; all are written, 0 where the service sent less, and
     * none when the product is below 1. Untouched on failure.
     * @return 0; -1 when the service or the link fails, and for a null `buff`, logged and with nothing sent.
     */
    int getMicroDimmingData(int widthPartionIndex, int heightPartionIndex, int* buff);

    /**
     * Reads one channel of the light sensor.
     * Sends `CMD_PICTURE_GETLSADCCHANNELVALUE`: `channel`.
     * @param channel Channel as the service numbers it.
     * @return The reading; -1 when the service or the link fails.
     */
    int getLSADCChannelValue(int channel);

    /**
     * Reads the histogram of brightness.
     * Sends `CMD_PICTURE_GETBRIGHTNESSHISTOGRAM`; the answer holds ints until its end.
     * @return The values in the service's order; empty when the service or the link fails.
     */
    std::list<int> getBrightnessHistogram();

    /**
     * Sets the brightness of the laser.
     * Sends `CMD_PICTURE_SET_LASER_BRIGTH`: `brightness`.
     * @param brightness Brightness; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setLaserBrightness(int brightness);

    /**
     * Reads the brightness of the laser.
     * Sends `CMD_PICTURE_GET_LASER_BRIGTH`.
     * @return The brightness; -1 when the service or the link fails.
     */
    int getLaserBrightness();

    /**
     * Sets the highest brightness of the laser.
     * Sends `CMD_PICTURE_SET_LASER_MAXBRIGTH`: `brightness`.
     * @param brightness Brightness; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setLaserMaxBrightness(int brightness);

    /**
     * Reads the highest brightness of the laser.
     * Sends `CMD_PICTURE_GET_LASER_MAXBRIGTH`.
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
     * Sends `CMD_PICTURE_SETCOLORTEMP`: `colortemp`.
     * @param colortemp One of `KELU_TV_COLORTEMP_E`.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setColorTemp(int colortemp);

    /**
     * Reads the colour temperature.
     * Sends `CMD_PICTURE_GETCOLORTEMP`.
     * @return One of `KELU_TV_COLORTEMP_E`; -1 when the service or the link fails.
     */
    int getColorTemp();

    /**
     * Sets the white balance of the colour temperature.
     * Sends `CMD_PICTURE_SETCOLORTEMPDATA`: `redGain`, `greenGain`, `blueGain`, `redOffset`, `greenOffset`,
     * `blueOffset`.
     * @param stColorTemp Gains and offsets; the service enforces the ranges.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setColorTempPara(ColorTempData stColorTemp);

    /**
     * Reads the white balance of the colour temperature.
     * Sends `CMD_PICTURE_GETCOLORTEMPDATA`; the answer holds `redGain`, `greenGain`, `blueGain`, `redOffset`,
     * `greenOffset`, `blueOffset`.
     * @return Gains and offsets; all 0 when the service or the link fails.
     */
    ColorTempData getColorTempPara();

    /**
     * Reads the highest gain of red, green and blue.
     * Sends `CMD_PICTURE_GET_MAX_RGB_GAIN`.
     * @return The gain; -1 when the service or the link fails.
     */
    int getMaxRGBGain();

    /**
     * Chooses the colour system.
     * Sends `CMD_PICTURE_SETCOLORSYSTEM`: `colorSys`.
     * @param colorSys One of `KELU_TV_CLRSYS_E`.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setColorSystem(int colorSys);

    /**
     * Reads the colour system.
     * Sends `CMD_PICTURE_GETCOLORSYSTEM`.
     * @return One of `KELU_TV_CLRSYS_E`; -1 when the service or the link fails.
     */
    int getColorSystem();

    /**
     * Reads the colour system that the signal really has.
     * Sends `CMD_EXTRA_GETREALCLRSYS`.
     * @return One of `KELU_TV_CLRSYS_E`; -1 when the service or the link fails.
     */
    int getRealColorSystem();

    /**
     * Sets the table of the colour manager.
     * Sends `CMD_PICTURE_SETCOLORGAIN`: `index`.
     * @param index Index of the table; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setColorManagerTableIndex(int index);

    /**
     * Reads the table of the colour manager.
     * Sends `CMD_PICTURE_GETCOLORGAIN`.
     * @return The index of the table; -1 when the service or the link fails.
     */
    int getColorManagerTableIndex();

    /**
     * Sets the type of the colour range.
     * Sends `CMD_PICTURE_SETCOLORRANGETYPE`: `crType`.
     * @param crType Type as the service numbers it; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setColorRangeType(int crType);

    /**
     * Reads the type of the colour range.
     * Sends `CMD_PICTURE_GETCOLORRANGETYPE`.
     * @return The type; -1 when the service or the link fails.
     */
    int getColorRangeType();

    /**
     * Chooses the colour range of HDMI signals.
     * Sends `CMD_PICTURE_SETHDMICOLORRANGE`: `val`.
     * @param val One of `KELU_TV_IMAGE_RGB_TYPE_E`.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setHDMIColorRange(int val);

    /**
     * Reads the colour range of HDMI signals.
     * Sends `CMD_PICTURE_GETHDMICOLORRANGE`.
     * @return One of `KELU_TV_IMAGE_RGB_TYPE_E`; -1 when the service or the link fails.
     */
    int getHDMIColorRange();

    /**
     * Sets the correction of skin tones.
     * Sends `CMD_PICTURE_SETFLESHTONE`: `fleshtone`.
     * @param fleshtone Strength; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setFleshTone(int fleshtone);

    /**
     * Reads the correction of skin tones.
     * Sends `CMD_PICTURE_GETFLESHTONE`.
     * @return The strength; -1 when the service or the link fails.
     */
    int getFleshTone();

    /**
     * Reads the highest correction of skin tones.
     * Sends `CMD_PICTURE_GET_MAX_FLESHTONE`.
     * @return The strength; -1 when the service or the link fails.
     */
    int getMaxFleshTone();

    /**
     * Sets the brightness of skin tones.
     * Sends `CMD_PICTURE_SETFLESHTONEBRIGHTNESS`: `brightness`.
     * @param brightness Brightness; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setFleshToneBrightness(int brightness);

    /**
     * Reads the brightness of skin tones.
     * Sends `CMD_PICTURE_GETFLESHTONEBRIGHTNESS`.
     * @return The brightness; -1 when the service or the link fails.
     */
    int getFleshToneBrightness();

    /**
     * Sets the hue of skin tones.
     * Sends `CMD_PICTURE_SETFLESHTONEHUE`: `hue`.
     * @param hue Hue; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setFleshToneHue(int hue);

    /**
     * Reads the hue of skin tones.
     * Sends `CMD_PICTURE_GETFLESHTONEHUE`.
     * @return The hue; -1 when the service or the link fails.
     */
    int getFleshToneHue();

    /**
     * Sets the saturation of skin tones.
     * Sends `CMD_PICTURE_SETFLESHTONESATURATION`: `saturation`.
     * @param saturation Saturation; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setFleshToneSaturation(int saturation);

    /**
     * Reads the saturation of skin tones.
     * Sends `CMD_PICTURE_GETFLESHTONESATURATION`.
     * @return The saturation; -1 when the service or the link fails.
     */
    int getFleshToneSaturation();

    /**
     * Switches the extension of blue on or off.
     * Sends `CMD_PICTURE_SETBLEXTEND`: `onoff`.
     * @param onoff True switches it on.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int enableBlueExtend(bool onoff);

    /**
     * Tells whether the extension of blue is on.
     * Sends `CMD_PICTURE_GETBLEXTEND`.
     * @return False for the service's 0; true for any other answer, a failure included.
     */
    bool isBlueExtendEnable();

    /**
     * Sets the correction of every colour.
     * Sends `CMD_PICTURE_SETCOLORCONTROLINFOPARA`: `red`, `green`, `blue`, `cyan`, `magenta`, `yellow`, `complexion`.
     * @param stColorControlInfo The corrections; the service enforces the ranges.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setColorControlInfoPara(ColorControlInfoData stColorControlInfo);

    /**
     * Reads the correction of every colour.
     * Sends `CMD_PICTURE_GETCOLORCONTROLINFOPARA`; the answer holds `red`, `green`, `blue`, `cyan`, `magenta`,
     * `yellow`, `complexion`.
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
     * Sends `CMD_PICTURE_SETNR`: `nr`.
     * @param nr One of `KELU_TV_LEVEL_E`.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setNR(int nr);

    /**
     * Reads the noise reduction.
     * Sends `CMD_PICTURE_GETNR`.
     * @return One of `KELU_TV_LEVEL_E`; -1 when the service or the link fails.
     */
    int getNR();

    /**
     * Sets the level of the removal of block edges.
     * Sends `CMD_PICTURE_SETDEBLOCKING`: `dbLevel`.
     * @param dbLevel Level; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setDeBlocking(int dbLevel);

    /**
     * Reads the level of the removal of block edges.
     * Sends `CMD_PICTURE_GETDEBLOCKING`.
     * @return The level; -1 when the service or the link fails.
     */
    int getDeBlocking();

    /**
     * Sets the level of the removal of ringing.
     * Sends `CMD_PICTURE_SETDERINGING`: `drLevel`.
     * @param drLevel Level; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setDeRinging(int drLevel);

    /**
     * Reads the level of the removal of ringing.
     * Sends `CMD_PICTURE_GETDERINGING`.
     * @return The level; -1 when the service or the link fails.
     */
    int getDeRinging();

    /**
     * Sets the level of the removal of overshoot.
     * Sends `CMD_PICTURE_SETDESHOOTING`: `dsLevel`.
     * @param dsLevel Level; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setDeShooting(int dsLevel);

    /**
     * Reads the level of the removal of overshoot.
     * Sends `CMD_PICTURE_GETDESHOOTING`.
     * @return The level; -1 when the service or the link fails.
     */
    int getDeShooting();

    /**
     * Sets the removal of false contours.
     * Sends `CMD_PICTURE_SETDECONTOUR`: `mode`.
     * @param mode Mode as the service numbers it; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setDeContour(int mode);

    /**
     * Reads the removal of false contours.
     * Sends `CMD_PICTURE_GETDECONTOUR`.
     * @return The mode; -1 when the service or the link fails.
     */
    int getDeContour();

    /**
     * Switches the smoothing of jagged edges on or off.
     * Sends `CMD_PICTURE_SET_AI_DEJAGGY`: `bEnable`.
     * @param bEnable True switches it on.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setAIDeJaggyMode(bool bEnable);

    /**
     * Tells whether the smoothing of jagged edges is on.
     * Sends `CMD_PICTURE_GET_AI_DEJAGGY`.
     * @return False for the service's 0; true for any other answer, a failure included.
     */
    bool getAIDeJaggyMode();

    /**
     * Sets the film mode.
     * Sends `CMD_PICTURE_SETFILMMODE`: `filmmode`.
     * @param filmmode Mode as the service numbers it; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setFilmMode(int filmmode);

    /**
     * Reads the film mode.
     * Sends `CMD_PICTURE_GETFILMMODE`.
     * @return The mode; -1 when the service or the link fails.
     */
    int getFilmMode();

    /**
     * Switches the motion compensation on or off.
     * Sends `CMD_PICTURE_SETMEMCENABLE`: `onoff`.
     * @param onoff True switches it on.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setMEMCEnable(bool onoff);

    /**
     * Tells whether the motion compensation is on.
     * Sends `CMD_PICTURE_GETMEMCENABLE`.
     * @return False for the service's 0; true for any other answer, a failure included.
     */
    bool isMEMCEnable();

    /**
     * Sets the level of the motion compensation.
     * Sends `CMD_PICTURE_SETMEMCLEVEL`: `memclevel`.
     * @param memclevel Level; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setMEMCLevel(int memclevel);

    /**
     * Reads the level of the motion compensation.
     * Sends `CMD_PICTURE_GETMEMCLEVEL`.
     * @return The level; -1 when the service or the link fails.
     */
    int getMEMCLevel();

    /**
     * Sets the demonstration of the motion compensation.
     * Sends `CMD_PICTURE_SETMEMCDEMOMODE`: `mode`.
     * @param mode Mode as the service numbers it; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setMEMCDemoMode(int mode);

    /**
     * Reads the demonstration of the motion compensation.
     * Sends `CMD_PICTURE_GETMEMCDEMOMODE`.
     * @return The mode; -1 when the service or the link fails.
     */
    int getMEMCDemoMode();

    /**
     * Sets the level at which motion compensation removes blur.
     * Sends `CMD_PICTURE_SETMEMCDEBLURLEVEL`: `blurlevel`.
     * @param blurlevel Level; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setMemcDeBlurLevel(int blurlevel);

    /**
     * Reads the level at which motion compensation removes blur.
     * Sends `CMD_PICTURE_GETMEMCDEBLURLEVEL`.
     * @return The level; -1 when the service or the link fails.
     */
    int getMemcDeBlurLevel();

    /**
     * Sets the level at which motion compensation removes judder.
     * Sends `CMD_PICTURE_SETMEMCDEJUDDERLEVEL`: `judderlevel`.
     * @param judderlevel Level; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setMemcDeJudderLevel(int judderlevel);

    /**
     * Reads the level at which motion compensation removes judder.
     * Sends `CMD_PICTURE_GETMEMCDEJUDDERLEVEL`.
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
     * Sends `CMD_PICTURE_GETHDRSTREAMTYPE`.
     * @return One of `KELU_TV_HDR_TYPE_E`; -1 when the service or the link fails.
     */
    int getHdrStreamType();

    /**
     * Switches HDR10 on or off.
     * Sends `CMD_PICTURE_SETHDR10ENABLE`: `bEnable`.
     * @param bEnable True switches it on.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setHdr10Enable(bool bEnable);

    /**
     * Tells whether HDR10 is on.
     * Sends `CMD_PICTURE_GETHDR10ENABLE`.
     * @return False for the service's 0; true for any other answer, a failure included.
     */
    bool getHdr10Enable();

    /**
     * Chooses the dynamic range the picture is shown in.
     * Sends `CMD_PICTURE_SET_HDR_MODE`: `hdrMode`.
     * @param hdrMode One of `KELU_MW_HDR_MODE_E`.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setHdrMode(int hdrMode);

    /**
     * Reads the dynamic range the picture is shown in.
     * Sends `CMD_PICTURE_GET_HDR_MODE`.
     * @return One of `KELU_MW_HDR_MODE_E`; -1 when the service or the link fails.
     */
    int getHdrMode();

    /**
     * Sets the mode of the conversion from standard to high dynamic range.
     * Sends `CMD_PICTURE_SETSDRTOHDRMODE`: `mode`.
     * @param mode Mode as the service numbers it; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setSdrToHdrMode(int mode);

    /**
     * Reads the mode of the conversion from standard to high dynamic range.
     * Sends `CMD_PICTURE_GETSDRTOHDRMODE`.
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
     * Sends `CMD_PICTURE_SETASPECT`: `aspect`, `mute`.
     * @param aspect One of `KELU_TV_ASPECT_E`.
     * @param mute True hides the picture while it changes.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setAspect(int aspect, bool mute);

    /**
     * Reads the aspect.
     * Sends `CMD_PICTURE_GETASPECT`.
     * @return One of `KELU_TV_ASPECT_E`; -1 when the service or the link fails.
     */
    int getAspect();

    /**
     * Reads the aspects the current signal can be shown in.
     * Sends `CMD_PICTURE_GETAVAILASPECT`; the answer holds ints until its end.
     * @return The aspects in the service's order, each one of `KELU_TV_ASPECT_E`, unchecked; empty when the service or
     * the link fails.
     */
    std::list<int> getAvailAspectList();

    /**
     * Switches overscan on or off.
     * Sends `CMD_PICTURE_SETOVERSCANENABLE`: `bEnable`.
     * @param bEnable True switches it on.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int enableOverscan(bool bEnable);

    /**
     * Tells whether overscan is on.
     * Sends `CMD_PICTURE_GETOVERSCANENABLE`.
     * @return False for the service's 0; true for any other answer, a failure included.
     */
    bool isOverscanEnable();

    /**
     * Sets where the picture lies and how far it reaches.
     * Sends `CMD_PICTURE_SETSCOPE`: `horPos`, `verPos`, `horRange`, `verRange`.
     * @param scope Position and range; the service enforces the ranges.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setScopeInfo(ScopeInfo scope);

    /**
     * Reads where the picture lies and how far it reaches.
     * Sends `CMD_PICTURE_GETSCOPE`; the answer holds `horPos`, `verPos`, `horRange`, `verRange`.
     * @return Position and range; all 0 when the service or the link fails.
     */
    ScopeInfo getScopeInfo();

    /**
     * Freezes the picture or lets it go on.
     * Sends `CMD_PICTURE_SETFREEZE`: `onOff`.
     * @param onOff True freezes it.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int enableFreeze(bool onOff);

    /**
     * Tells whether the picture is frozen.
     * Sends `CMD_PICTURE_GETFREEZE`.
     * @return False for the service's 0; true for any other answer, a failure included.
     */
    bool isFreezeEnable();

    /**
     * Switches the game mode on or off.
     * Sends `CMD_PICTURE_SETGAMEMODE`: `bEnable`.
     * @param bEnable True switches it on.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int enableGameMode(bool bEnable);

    /**
     * Tells whether the game mode is on.
     * Sends `CMD_PICTURE_GETGAMEMODE`.
     * @return False for the service's 0; true for any other answer, a failure included.
     */
    bool isGameModeEnable();

    /**
     * Chooses the PC mode of the picture.
     * Sends `CMD_PICTURE_SETPCMODE`: `mode`.
     * @param mode One of `KELU_MW_PCMODE_E`.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setPcMode(int mode);

    /**
     * Reads the PC mode of the picture.
     * Sends `CMD_PICTURE_GETPCMODE`.
     * @return One of `KELU_MW_PCMODE_E`; -1 when the service or the link fails.
     */
    int GetPcMode();

    /**
     * Switches one demonstration on or off.
     * Sends `CMD_PICTURE_SETDEMOMODE`: `demomode`, `onoff`.
     * @param demomode Demonstration as the service numbers it.
     * @param onoff True switches it on.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setDemoMode(int demomode, bool onoff);

    /**
     * Tells whether one demonstration is on.
     * Sends `CMD_PICTURE_GETDEMOMODE`: `demomode`.
     * @param demomode Demonstration as the service numbers it.
     * @return False for the service's 0; true for any other answer, a failure included.
     */
    bool getDemoMode(int demomode);

    /**
     * Enters or leaves one demonstration.
     * Sends `CMD_PICTURE_SETDEMOMODEENTEREXIT`: `demomode`, `mode`.
     * @param demomode Demonstration as the service numbers it.
     * @param mode Whether to enter or leave, as the service numbers it.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setDemoModeEnterExit(int demomode, int mode);

    /**
     * Has the service write a picture of the screen to a file; a set command in spite of its name.
     * Sends `CMD_PICTURE_GETVIDEOSCREENSHOT`: `width`, `height`, `path`, `bWithUI`.
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
     * Sends `CMD_PICTURE_GETCMDSUPPORTEDMODE`: `mSwitch`.
     * @param mSwitch One of `KELU_TV_SUPPORT_SWITCH_E`.
     * @return One of `KELU_TV_SUPPORT_SWITCH_MODE_E`; -1 when the service or the link fails.
     */
    int getCMDSupportedMode(int mSwitch);

    /**
     * Reads whether one picture function is enabled.
     * Sends `CMD_PICTURE_GETPICTUREFUNTIONENABLE`: `func`.
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
     * Sends `CMD_PICTURE_SET_COLOR_ADVANCED`: `cmdID`, `param1`, `param2`, `param3`, `param4`.
     * @param cmdID Item as the service numbers it.
     * @param param1,param2,param3,param4 What the item defines.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setColorAdvancedItem(int cmdID, int param1, int param2, int param3, int param4);

    /**
     * Reads one item of the advanced colour settings.
     * Sends `CMD_PICTURE_GET_COLOR_ADVANCED`: `cmdID`, `param`.
     * @param cmdID Item as the service numbers it.
     * @param param What the item defines.
     * @param pData Room for 255 ints (1,020 bytes); all are written, 0 where the service sent less. Untouched on
     * failure.
     * @return 0; -1 when the service or the link fails, and for a null `pData`, logged and with nothing sent.
     */
    int getColorAdvancedItem(int cmdID, int param, int* pData);

    /**
     * Sets one item.
     * Sends `CMD_PICTURE_COMMON_SET_ITEM_VALUE`: `cmdID`, `param1`, `param2`, `param3`, `param4`.
     * @param cmdID Item of the picture module, of `KELU_TV_CMDID_E`.
     * @param param1,param2,param3,param4 What the item defines.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setPictureItemValue(int cmdID, int param1, int param2, int param3, int param4);

    /**
     * Reads one item.
     * Sends `CMD_PICTURE_COMMON_GET_ITEM_VALUE`: `cmdID`, `param1`, `param2`.
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
