/**
 * @file
 * Factory and service functions: calibration, panel and memory tuning, test patterns, identity, keys, transfer.
 *
 * A function is one command to the TV base service, which owns all values. It blocks until the service has answered and
 * may be called from any thread. A `bool` travels as 0 or 1. A set command whose link fails is logged as
 * "invoke failure\n"; what else is logged is said at the methods of `Factory`. The one thing kept here is the pattern
 * of `linux_tv_Factory_setWBWhitePattern`, which has no lock.
 */
#ifndef KELUTV_LINUX_KELUTV_FACTORY_H
#define KELUTV_LINUX_KELUTV_FACTORY_H

#include <kelutv/export.h>
#include <kelutv/factory_types.h>

#include <stdbool.h>

#ifdef __cplusplus
extern "C" {
#endif

/**
 * @name Calibration and white balance
 * @{
 */

/**
 * Starts the automatic calibration.
 * Forwards to `Factory::autoCalibration`, which sends `CMD_FACTORY_AUTOCALIBRATION`.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_autoCalibration(void);

/**
 * Reads the gains and offsets of the analogue converter.
 * Forwards to `Factory::getADCGainOffset`, which sends `CMD_FACTORY_GETADCGAINOFFSET`: `srcId`.
 * @param srcId Source, one of `KELU_TV_SRC_E`.
 * @param pstInfo Receives the record, zeros on failure.
 * @return 0, also on failure; -1 for a null record, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_getADCGainOffset(int srcId, CalibrationInfo* pstInfo);

/**
 * Sets the gains and offsets of the analogue converter.
 * Forwards to `Factory::setADCGainOffset`, which sends `CMD_FACTORY_SETADCGAINOFFSET`: `srcId`, the six fields of
 * `info` in order.
 * @param srcId Source, one of `KELU_TV_SRC_E`.
 * @param info Gains and offsets; the service enforces the ranges.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setADCGainOffset(int srcId, CalibrationInfo info);

/**
 * Reads the gains and offsets of a colour temperature.
 * Forwards to `Factory::getColorTemp`, which sends `CMD_FACTORY_GETCOLORTEMP`: `colorTempLevel`.
 * @param colorTempLevel Colour temperature, one of `KELU_TV_COLORTEMP_E`.
 * @param pstColorTemp Receives the record, zeros on failure.
 * @return 0, also on failure; -1 for a null record, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_getColorTemp(int colorTempLevel, ColorTempData* pstColorTemp);

/**
 * Sets the gains and offsets of the colour temperature.
 * Forwards to `Factory::setColorTemp`, which sends `CMD_FACTORY_SETCOLORTEMP`: `srcId`, the six fields of `info` in
 * order.
 * @param srcId Source by its name, one of `KELU_TV_SRC_E`; the reading operation has a colour temperature in its place.
 * @param info Gains and offsets; the service enforces the ranges.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setColorTemp(int srcId, ColorTempData info);

/**
 * Reads the five points of a non-linear curve.
 * Forwards to `Factory::getNLAPoint`, which sends `CMD_FACTORY_GETNLAPOINT`: `item`, `srcId`.
 * @param item Curve as the service numbers it.
 * @param pstNlaInfo Receives the points, zeros on failure.
 * @param srcId Source.
 * @return 0, also on failure; -1 for a null record, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_getNLAPoint(int item, NlaInfo* pstNlaInfo, KELU_TV_SRC_E srcId);

/**
 * Sets the five points of a non-linear curve.
 * Forwards to `Factory::setNLAPoint`, which sends `CMD_FACTORY_SETNLAPOINT`: `item`, the five fields of `info` in
 * order.
 * @param item Curve as the service numbers it.
 * @param info Points; the service enforces the ranges.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setNLAPoint(int item, NlaInfo info);

/**
 * Asks for the non-linear curves to be applied to the sources.
 * Forwards to `Factory::updataNLAToSource`, which sends `CMD_FACTORY_UPATANLATOSURCEO`. Prints "updataNLAToSource\n" to
 * standard error first.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_updataNLAToSource(void);

/**
 * Restores the colour temperatures to their defaults.
 * Forwards to `Factory::restoreColorTemp`, which sends `CMD_FACTORY_RESTORECOLORTEMP`.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_restoreColorTemp(void);

/**
 * Reads the debug information on the automatic colour temperature.
 * Forwards to `Factory::getAutoColorTempDebugInfo`, which sends `CMD_FACTORY_GETCOLORTEMPDEBUGINFO`: `colorTemp`.
 * @param colorTemp Colour temperature as the service numbers it.
 * @param pStr Receives the text, terminator included, and must have room for all the service sends; untouched on
 * failure.
 * @return 0; -1 when the service or the link fails, and for null, with nothing sent.
 */
KELUTV_API int getAutoColorTempDebugInfo(int colorTemp, char* pStr);

/**
 * Shows a plain colour for the white balance, or ends it.
 * Forwards to `Factory::setWhiteBalanceColor`, which sends `CMD_FACTORY_SETWHITEBALANCECOLOR`: `onoff`, `red`,
 * `green`, `blue`.
 * @param onoff True shows the colour.
 * @param red Red; the service enforces the range.
 * @param green Green; the service enforces the range.
 * @param blue Blue; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setWhiteBalanceColor(bool onoff, int red, int green, int blue);

/**
 * Shows a pattern of the white balance, or ends it.
 * Forwards to `linux_tv_Factory_setWhiteBalanceColor`, which sends `CMD_FACTORY_SETWHITEBALANCECOLOR`: on or off,
 * red, green, blue. Any other type prints "unhandled cmd type = %d" without a line end to standard output and sends
 * nothing.
 * @param type One of `KELU_TV_PATTERN_TYPE_E`, which `linux_tv_Factory_getWBWhitePattern` then gives, whatever the
 * result.
 * @return The service's result, 0 for success; -1 when the link fails; 0 for any other type.
 */
KELUTV_API int linux_tv_Factory_setWBWhitePattern(int type);

/**
 * Gives the pattern of the white balance that this process has last asked for. Sends nothing.
 * @return One of `KELU_TV_PATTERN_TYPE_E`; 0 before the first pattern.
 */
KELUTV_API int linux_tv_Factory_getWBWhitePattern(void);

/**
 * Tells whether the main chip supports the patterns of the white balance.
 * Forwards to `Factory::isSupportSocWhiteBalancePattern`, which sends `CMD_FACTORY_GET_IS_SUPPORT_SOC_WB_PATTERN`.
 * @return 0 for the service's 0; 1 for any other answer, a failure included.
 */
KELUTV_API int linux_tv_Factory_isSupportSocWhiteBalancePattern(void);

/**
 * Enters the white balance by infrared.
 * Forwards to `Factory::enterIrWBAdj`, which sends `CMD_EXTRA_SETENTERIRWBADJ`.
 * @return The service's answer; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_factory_enterIrWBAdj(void);

/**
 * Reads the status of the white balance by infrared.
 * Forwards to `Factory::getIRWBStatus`, which sends `CMD_FACTORY_GET_IR_WB_RESULT`.
 * @return The status; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getIRWBStatus(void);

/**
 * Reads the status of the white balance by infrared.
 * Forwards to `Factory::getIRWBStatus`, which sends `CMD_FACTORY_GET_IR_WB_RESULT`.
 * @param pResult Receives the status, -1 on failure; may be null.
 * @return 0 in every case.
 */
KELUTV_API int linux_tv_factory_getIRWBStatus(int* pResult);

/**
 * Sets the gamma value of the picture processing.
 * Forwards to `Factory::pqSetGammaValue`, which sends `CMD_FACTORY_SET_PQ_GAMMA_VALUE`: `value`. Prints
 * "pqSetGammaValue\n" to standard error first.
 * @param value Gamma value; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_pqSetGammaValue(int value);

/**
 * Reads the version of the picture processing data.
 * Forwards to `Factory::getPQBinVersion`, which sends `CMD_FACOTRY_COMMON_GET_PQ_BINVERSION`. The text is printed to
 * standard error.
 * @param pPQBinVersion Receives the text, terminator included, and must have room for all the service sends; untouched
 * on failure.
 * @return 0; -1 when the service or the link fails, and for null, after the command was sent.
 */
KELUTV_API int linux_tv_Factory_getPQBinVersion(char* pPQBinVersion);

/**
 * Sends a control code to the picture processing.
 * Forwards to `Factory::pqIoCtl`, which sends `CMD_FACOTRY_COMMON_COPY_SOURCE_COLOR_LUT`: `cmdID`.
 * @param cmdID Control code, one of `KELU_TV_PQ_IOCTL_CMD_E`.
 * @param pParm Not used; may be null.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_pqIoCtl(KELU_TV_PQ_IOCTL_CMD_E cmdID, void* pParm);

/** @} */

/**
 * @name Overscan, panel and memory spread, patterns
 * @{
 */

/**
 * Reads the overscan rectangle.
 * Forwards to `Factory::getOverscan`, which sends `CMD_FACTORY_GETOVERSCAN`.
 * @param pRect Receives the rectangle, zeros on failure.
 * @return 0, also on failure; -1 for a null record, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_getOverscan(KeluRect* pRect);

/**
 * Sets the overscan rectangle.
 * Forwards to `Factory::setOverscan`, which sends `CMD_FACTORY_SETOVERSCAN`: the four fields of `rect` in order.
 * @param rect Position and size; the service enforces the ranges.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setOverscan(KeluRect rect);

/**
 * Tells whether the output of the panel interface is on.
 * Forwards to `Factory::getPanelIntfOutEnable`, which sends `CMD_FACTORY_GETPANELINTFOUTENABLE`.
 * @return 0 for the service's 0; 1 for any other answer, a failure included.
 */
KELUTV_API int linux_tv_Factory_getPanelIntfOutEnable(void);

/**
 * Switches the output of the panel interface on or off.
 * Forwards to `Factory::setPanelIntfOutEnable`, which sends `CMD_FACTORY_SETPANELINTFOUTENABLE`: `onoff`.
 * @param onoff True switches it on.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setPanelIntfOutEnable(bool onoff);

/**
 * Tells whether the spread spectrum of the panel interface is on.
 * Forwards to `Factory::getPanelSpreadEnable`, which sends `CMD_FACTORY_GETPANELSPREADENABLE`.
 * @return 0 for the service's 0; 1 for any other answer, a failure included.
 */
KELUTV_API int linux_tv_Factory_getPanelSpreadEnable(void);

/**
 * Switches the spread spectrum of the panel interface on or off.
 * Forwards to `Factory::setPanelSpreadEnable`, which sends `CMD_FACTORY_SETPANELSPREADENABLE`: `onoff`.
 * @param onoff True switches it on.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setPanelSpreadEnable(bool onoff);

/**
 * Reads the spread ratio of the panel interface.
 * Forwards to `Factory::getPanelSpreadRatio`, which sends `CMD_FACTORY_GETPANELSPREADRATIO`.
 * @return The ratio; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getPanelSpreadRatio(void);

/**
 * Sets the spread ratio of the panel interface.
 * Forwards to `Factory::setPanelSpreadRatio`, which sends `CMD_FACTORY_SETPANELSPREADRATIO`: `ratio`.
 * @param ratio Ratio; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setPanelSpreadRatio(int ratio);

/**
 * Reads the spread frequency of the panel interface.
 * Forwards to `Factory::getPanelSpreadFreq`, which sends `CMD_FACTORY_GETPANELSPREADFREQ`.
 * @return The frequency; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getPanelSpreadFreq(void);

/**
 * Sets the spread frequency of the panel interface.
 * Forwards to `Factory::setPanelSpreadFreq`, which sends `CMD_FACTORY_SETPANELSPREADFREQ`: `freq`.
 * @param freq Frequency; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setPanelSpreadFreq(int freq);

/**
 * Reads the drive current of the panel interface.
 * Forwards to `Factory::getPanelDrvCurrent`, which sends `CMD_FACTORY_GETPANELDRVCURRENT`.
 * @return The current; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getPanelDrvCurrent(void);

/**
 * Sets the drive current of the panel interface.
 * Forwards to `Factory::setPanelDrvCurrent`, which sends `CMD_FACTORY_SETPANELDRVCURRENT`: `current`.
 * @param current Current; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setPanelDrvCurrent(int current);

/**
 * Reads the common voltage of the panel interface.
 * Forwards to `Factory::getPanelComVoltage`, which sends `CMD_FACTORY_GETPANELCOMVOLTAGE`.
 * @return The voltage; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getPanelComVoltage(void);

/**
 * Sets the common voltage of the panel interface.
 * Forwards to `Factory::setPanelComVoltage`, which sends `CMD_FACTORY_SETPANELCOMVOLTAGE`: `voltage`.
 * @param voltage Voltage; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setPanelComVoltage(int voltage);

/**
 * Reads the emphasis of the panel interface.
 * Forwards to `Factory::getPanelEmphasis`, which sends `CMD_FACTORY_GETPANELEMPHASIS`.
 * @return The emphasis; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getPanelEmphasis(void);

/**
 * Sets the emphasis of the panel interface.
 * Forwards to `Factory::setPanelEmphasis`, which sends `CMD_FACTORY_SETPANELEMPHASIS`: `ems`.
 * @param ems Emphasis; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setPanelEmphasis(int ems);

/**
 * Tells whether the spread spectrum of the memory interface is on.
 * Forwards to `Factory::isDdrSpreadEnable`, which sends `CMD_FACTORY_GETDDRSPREADENABLE`.
 * @return 0 for the service's 0; 1 for any other answer, a failure included.
 */
KELUTV_API int linux_tv_Factory_isDdrSpreadEnable(void);

/**
 * Switches the spread spectrum of the memory interface on or off.
 * Forwards to `Factory::EnableDdrSpread`, which sends `CMD_FACTORY_SETDDRSPREADENABLE`: `onoff`.
 * @param onoff True switches it on.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_enableDdrSpread(bool onoff);

/**
 * Reads the spread ratio of the memory interface.
 * Forwards to `Factory::getDdrSpreadRatio`, which sends `CMD_FACTORY_GETDDRSPREADRATIO`.
 * @return The ratio; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getDdrSpreadRatio(void);

/**
 * Sets the spread ratio of the memory interface.
 * Forwards to `Factory::setDdrSpreadRatio`, which sends `CMD_FACTORY_SETDDRSPREADRATIO`: `ratio`.
 * @param ratio Ratio; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setDdrSpreadRatio(int ratio);

/**
 * Reads the spread frequency of the memory interface.
 * Forwards to `Factory::getDdrSpreadFreq`, which sends `CMD_FACTORY_GETDDRSPREADFREQ`.
 * @return The frequency; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getDdrSpreadFreq(void);

/**
 * Sets the spread frequency of the memory interface.
 * Forwards to `Factory::setDdrSpreadFreq`, which sends `CMD_FACTORY_SETDDRSPREADFREQ`: `freq`.
 * @param freq Frequency; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setDdrSpreadFreq(int freq);

/**
 * Reads the gamma curve.
 * Forwards to `Factory::getGamma`, which sends `CMD_FACTORY_GETGAMMA`.
 * @return The curve; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getGamma(void);

/**
 * Sets the gamma curve.
 * Forwards to `Factory::setGamma`, which sends `CMD_FACTORY_SETGAMMA`: `gamma`.
 * @param gamma Curve as the service numbers it.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setGamma(int gamma);

/**
 * Reads the test pattern.
 * Forwards to `Factory::getTestPattern`, which sends `CMD_FACTORY_GETTESTPATTERN`.
 * @return One of `KELU_TV_PATTERN_E`; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getTestPattern(void);

/**
 * Sets the test pattern.
 * Forwards to `Factory::setTestPattern`, which sends `CMD_FACTORY_SETTESTPATTERN`: `index`.
 * @param index One of `KELU_TV_PATTERN_E`.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setTestPattern(int index);

/**
 * Reads the index of the panel.
 * Forwards to `Factory::getPanelIndex`, which sends `CMD_FACTORY_GETPANELINDEX`.
 * @return The index of the panel; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getPanelIndex(void);

/**
 * Sets the index of the panel.
 * Forwards to `Factory::setPanelIndex`, which sends `CMD_FACTORY_SETPANELINDEX`: `index`.
 * @param index Index of the panel; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setPanelIndex(int index);

/**
 * Reads how the picture is flipped and mirrored.
 * Forwards to `Factory::getPanelFlipMirror`, which sends `CMD_FACTORY_GETPANELFLIPMIRROR`.
 * @return The flip; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getPanelFlipMirror(void);

/**
 * Sets how the picture is flipped and mirrored.
 * Forwards to `Factory::setPanelFlipMirror`, which sends `CMD_FACTORY_SETPANELFLIPMIRROR`: `flip`.
 * @param flip Flip as the service numbers it.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setPanelFlipMirror(int flip);

/**
 * Sets the test pattern of the external picture chip.
 * Forwards to `Factory::setIChipTestPattern`, which sends `CMD_FACTORY_SET_ICHIP_TEST_PATTERN`: `pattern`.
 * @param pattern Pattern as the service numbers it.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setIChipTestPattern(int pattern);

/** @} */

/**
 * @name Backlight, LEDs and panel compensation
 * @{
 */

/**
 * Reads the highest duty of the backlight.
 * Forwards to `Factory::getBackLightPwmMax`, which sends `CMD_FACTORY_GETBLPWMMAX`.
 * @return The upper end; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getBackLightPwmMax(void);

/**
 * Sets the highest duty of the backlight.
 * Forwards to `Factory::setBackLightPwmMax`, which sends `CMD_FACTORY_SETBLPWMMAX`: `pwmMax`.
 * @param pwmMax Duty; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setBackLightPwmMax(int pwmMax);

/**
 * Reads the lowest duty of the backlight.
 * Forwards to `Factory::getBackLightPwmMin`, which sends `CMD_FACTORY_GETBLPWMMIN`.
 * @return The lower end; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getBackLightPwmMin(void);

/**
 * Sets the lowest duty of the backlight.
 * Forwards to `Factory::setBackLightPwmMin`, which sends `CMD_FACTORY_SETBLPWMMIN`: `pwmMin`.
 * @param pwmMin Duty; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setBackLightPwmMin(int pwmMin);

/**
 * Reads the delta value of the dream panel.
 * Forwards to `Factory::getDreamPanelDeltaValue`, which sends `CMD_FACTORY_GET_DREAM_PANEL_DELTA_VALUE`.
 * @return The offset; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getDreamPanelDeltaValue(void);

/**
 * Sets the delta value of the dream panel.
 * Forwards to `Factory::setDreamPanelDeltaValue`, which sends `CMD_FACTORY_SET_DREAM_PANEL_DELTA_VALUE`: `tmpValue`.
 * @param tmpValue Delta value; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setDreamPanelDeltaValue(int tmpValue);

/**
 * Reads the dream panel's offset of the lowest backlight.
 * Forwards to `Factory::getDPBLMinOffset`, which sends `CMD_FACTORY_GET_DP_BL_MIN_OFFSET`.
 * @return The offset; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getDPBLMinOffset(void);

/**
 * Sets the dream panel's offset of the lowest backlight.
 * Forwards to `Factory::setDPBLMinOffset`, which sends `CMD_FACTORY_SET_DP_BL_MIN_OFFSET`: `tmpValue`.
 * @param tmpValue Offset; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setDPBLMinOffset(int tmpValue);

/**
 * Reads the disturbing mode of the LED.
 * Forwards to `Factory::getLedDisturbingMode`, which sends `CMD_FACTORY_GETBLEDDISTURBINGMODE`.
 * @return One of `KELU_TV_LED_DISTURBING_MODE_E`; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getLedDisturbingMode(void);

/**
 * Sets the disturbing mode of the LED.
 * Forwards to `Factory::setLedDisturbingMode`, which sends `CMD_FACTORY_SETBLEDDISTURBINGMODE`: `mode`.
 * @param mode One of `KELU_TV_LED_DISTURBING_MODE_E`.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setLedDisturbingMode(int mode);

/**
 * Sets the state of the breathing LED.
 * Forwards to `Factory::setBreathePlatformStatus`, which sends `CMD_FACTORY_SET_BREATHE_LED_STATUS`: `arg1`, `arg2`.
 * @param arg1 First value as the service defines it.
 * @param arg2 Second value as the service defines it.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setBreathePlatformStatus(int arg1, int arg2);

/**
 * Reads whether the pixel shift of the OLED panel is on.
 * Forwards to `Factory::getOLEDPixelShiftEnable`, which sends `CMD_EXTRA_GETOLEDPIEXLSHIFTENABLE`.
 * @return 0 for off, 1 for on; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getOLEDPixelShiftEnable(void);

/**
 * Switches the pixel shift of the OLED panel on or off.
 * Forwards to `Factory::setOLEDPixelShiftEnable`, which sends `CMD_EXTRA_SETOLEDPIEXLSHIFTENABLE`: `enable`.
 * @param enable 0 for off, 1 for on.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setOLEDPixelShiftEnable(int enable);

/**
 * Reads which line overdrive table is in use.
 * Forwards to `Factory::getLineODIndex`, which sends `CMD_FACTORY_GETLINEODINDEX`.
 * @return The index of the table; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getLineODIndex(void);

/**
 * Chooses the line overdrive table.
 * Forwards to `Factory::setLineODIndex`, which sends `CMD_FACTORY_SETLINEODINDEX`: `tmpIndex`.
 * @param tmpIndex Index of the table; the service enforces the range.
 * @return 0 for success; 1 for any other result, a failure included.
 */
KELUTV_API int linux_tv_Factory_setLineODIndex(int tmpIndex);

/**
 * Reads the names of the line overdrive tables.
 * Forwards to `Factory::getLineODListTable`, which sends `CMD_FACTORY_GETLINEODLIST`.
 * @param pTable Room for one record for each name the service sends, nine at most. A name stands at the start of a
 * record of its own, cut to ten bytes and then without a terminator; only the first record is cleared before. May be
 * null.
 * @return 0; -1 with nothing written when there is no name or the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getLineODListTable(BOE_OD_TableInfo* pTable);

/**
 * Sets one of the LEDs.
 * Forwards to `Factory::setVarietyLedControl`, which sends `CMD_FACTORY_SETVARIETYLEDCONTROL`: `ledType`, `value`.
 * @param ledType LED as the service numbers it.
 * @param value Value; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setVarietyLedControl(int ledType, int value);

/** @} */

/**
 * @name Tuner and sound
 * @{
 */

/**
 * Tells whether the initial analogue channels are on.
 * Forwards to `Factory::isATVIniChnEnable`, which sends `CMD_FACTORY_GETATVINITIALCHANNEL`.
 * @return 0 for the service's 0; 1 for any other answer, a failure included.
 */
KELUTV_API int linux_tv_Factory_isATVIniChnEnable(void);

/**
 * Switches the initial analogue channels on or off.
 * Forwards to `Factory::enableATVIniChn`, which sends `CMD_FACTORY_SETATVINITIALCHANNEL`: `onoff`.
 * @param onoff True switches them on.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_enableATVIniChn(bool onoff);

/**
 * Reads the over-modulation mode.
 * Forwards to `Factory::getOverModulation`, which sends `CMD_FACTORY_GETOVERMODULATION`.
 * @return The mode; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getOverModulation(void);

/**
 * Sets the over-modulation mode.
 * Forwards to `Factory::setOverModulation`, which sends `CMD_FACTORY_SETOVERMODULATION`: `over`.
 * @param over Mode as the service numbers it.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setOverModulation(int over);

/**
 * Reads the frequency offset of the tuner.
 * Forwards to `Factory::getFrequencyOffset`, which sends `CMD_FACTORY_GETFREQUENCYOFFSET`.
 * @return The offset; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getFrequencyOffset(void);

/**
 * Sets the frequency offset of the tuner.
 * Forwards to `Factory::setFrequencyOffset`, which sends `CMD_FACTORY_SETFREQUENCYOFFSET`: `offset`.
 * @param offset Offset; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setFrequencyOffset(int offset);

/**
 * Reads the bandwidth of the tuner.
 * Forwards to `Factory::getTunerBandwidth`, which sends `CMD_FACTORY_GETTUNERBANDWIDTH`.
 * @return The bandwidth; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getTunerBandwidth(void);

/**
 * Sets the bandwidth of the tuner.
 * Forwards to `Factory::setTunerBandwidth`, which sends `CMD_FACTORY_SETTUNERBANDWIDTH`: `bandwidth`.
 * @param bandwidth Bandwidth; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setTunerBandwidth(int bandwidth);

/**
 * Reads the threshold of the noise reduction.
 * Forwards to `Factory::getNRThreshold`, which sends `CMD_FACTORY_GETNRTHRESHOLD`.
 * @return The threshold; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getNRThreshold(void);

/**
 * Sets the threshold of the noise reduction.
 * Forwards to `Factory::setNRThreshold`, which sends `CMD_FACTORY_SETNRTHRESHOLD`: `level`.
 * @param level Threshold; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setNRThreshold(int level);

/**
 * Reads the threshold of the automatic volume control.
 * Forwards to `Factory::getAVCThreshold`, which sends `CMD_FACTORY_GETAVCTHRESHOLD`.
 * @return The threshold; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getAVCThreshold(void);

/**
 * Sets the threshold of the automatic volume control.
 * Forwards to `Factory::setAVCThreshold`, which sends `CMD_FACTORY_SETAVCTHRESHOLD`: `level`.
 * @param level Threshold; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setAVCThreshold(int level);

/**
 * Reads the parametric equaliser of the sound.
 * Forwards to `Factory::getSoundPEQ`, which sends `CMD_FACTORY_GETSOUNDPEQ`.
 * @param pSoundPeq Receives the record, zeros on failure.
 * @return 0, also on failure; -1 for a null record, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_getSoundPEQ(SoundPeqData* pSoundPeq);

/**
 * Sets the parametric equaliser of the sound.
 * Forwards to `Factory::setSoundPEQ`, which sends `CMD_FACTORY_SETSOUNDPEQ`: the twelve fields of `info` in order.
 * @param info Frequencies, gains and qualities; the service enforces the ranges.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setSoundPEQ(SoundPeqData info);

/**
 * Reads the volume curve.
 * Forwards to `Factory::getSoundCurve`, which sends `CMD_FACTORY_GETSOUNDCURVE`: `length`.
 * @param pSoundCurve Room for `length` doubles; all are written, 0 where the service sent less. Untouched on failure.
 * @param length How many numbers to read; sent as it is, and below 1 none is read.
 * @return 0; -1 when the service or the link fails, and for a null `pSoundCurve`, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_getSoundCurve(double* pSoundCurve, int length);

/**
 * Sets the volume curve.
 * Forwards to `Factory::setSoundCurve`, which sends `CMD_FACTORY_SETSOUNDCURVE`: `length`, the numbers.
 * @param info `length` numbers.
 * @param length How many numbers to send; sent as it is, and below 1 no number behind it.
 * @return The service's result, 0 for success; -1 when the link fails, and for a null `info`, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_setSoundCurve(double* info, int length);

/**
 * Reads the control points of the volume curve.
 * Forwards to `Factory::getSoundCurveCtlData`, which sends `CMD_FACTORY_GET_CTL_VOLUME`.
 * @param soundCurveCtlData Receives the points, at most as many as the answer holds, and must have room for them;
 * untouched on failure.
 * @param volumeNum Receives their count as the service gives it; untouched on failure.
 * @return 0; -1 when the service or the link fails, and for a null pointer, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_getSoundCurveCtlData(int* soundCurveCtlData, int* volumeNum);

/**
 * Reads the control points of the headphones' volume curve.
 * Forwards to `Factory::getHeadPhoneSoundCurveCtlData`, which sends `CMD_FACTORY_GET_CTL_HEADPHONE_VOLUME`.
 * @param soundCurveCtlData Receives the points, at most as many as the answer holds, and must have room for them;
 * untouched on failure.
 * @param volumeNum Receives their count as the service gives it; untouched on failure.
 * @return 0; -1 when the service or the link fails, and for a null pointer, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_getHeadPhoneSoundCurveCtlData(int* soundCurveCtlData, int* volumeNum);

/** @} */

/**
 * @name Generic items
 * @{
 */

/**
 * Reads one non-standard item.
 * Forwards to `Factory::getNonStandardItemValue`, which sends `CMD_FACTORY_GETNONSTANDARDITEMVALUE`: `itemid`.
 * @param itemid One of `KELU_TV_NONSTAND_TPYE_E`.
 * @return The value; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getNonStandardItemValue(int itemid);

/**
 * Sets one non-standard item.
 * Forwards to `Factory::setNonStandardItemValue`, which sends `CMD_FACTORY_SETNONSTANDARDITEMVALUE`: `itemid`, `value`.
 * @param itemid One of `KELU_TV_NONSTAND_TPYE_E`.
 * @param value Value; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setNonStandardItemValue(int itemid, int value);

/**
 * Reads one performance item.
 * Forwards to `Factory::getPerformanceItemValue`, which sends `CMD_FACTORY_GETPERFORMANCEITEMVALUE`: `itemid`.
 * @param itemid Item as the service numbers it.
 * @return The value; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getPerformanceItemValue(int itemid);

/**
 * Sets one performance item.
 * Forwards to `Factory::setPerformanceItemValue`, which sends `CMD_FACTORY_SETPERFORMANCEITEMVALUE`: `itemid`, `value`.
 * @param itemid Item as the service numbers it.
 * @param value Value; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setPerformanceItemValue(int itemid, int value);

/**
 * Reads one of the other items.
 * Forwards to `Factory::getOtherItemValue`, which sends `CMD_FACTORY_GETOTHERITEMVALUE`: `itemid`.
 * @param itemid Item as the service numbers it.
 * @return The value; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getOtherItemValue(int itemid);

/**
 * Sets one of the other items.
 * Forwards to `Factory::setOtherItemValue`, which sends `CMD_FACTORY_SETOTHERITEMVALUE`: `itemid`, `value`.
 * @param itemid Item as the service numbers it.
 * @param value Value; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setOtherItemValue(int itemid, int value);

/**
 * Sets a factory item.
 * Forwards to `Factory::setFactoryItemValue`, which sends `CMD_FACOTRY_COMMON_SET_ITEM_VALUE`: `cmdID`, `param1`,
 * `param2`, `param3`, `param4`.
 * @param cmdID Item of the factory module, one of `KELU_TV_CMDID_E`.
 * @param param1,param2,param3,param4 What the item defines.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setFactoryItemValue(int cmdID, int param1, int param2, int param3, int param4);

/**
 * Reads a factory item.
 * Forwards to `Factory::getFactoryItemValue`, which sends `CMD_FACOTRY_COMMON_GET_ITEM_VALUE`: `cmdID`, `param1`,
 * `param2`.
 * @param cmdID Item of the factory module, one of `KELU_TV_CMDID_E`.
 * @param param1,param2 What the item defines.
 * @param pBuf Room for 255 ints (1,020 bytes); all are written, 0 where the service sent less. Untouched on failure.
 * @return 0; -1 when the service or the link fails, and for a null `pBuf`, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_getFactoryItemValue(int cmdID, int param1, int param2, int* pBuf);

/**
 * Sets a factory item that is a text.
 * Forwards to `Factory::setFactoryItemStrValue`, which sends `CMD_FACOTRY_COMMON_SET_ITEM_STRVALUE`: `cmdID`,
 * `param1`, `stringParam`, `param2`.
 * @param cmdID Item of the factory module, one of `KELU_TV_CMDID_E`.
 * @param param1,param2 What the item defines.
 * @param stringParam The text.
 * @return The service's result, 0 for success; -1 when the link fails, and for a null `stringParam`, with nothing
 * sent.
 */
KELUTV_API int linux_tv_Factory_setFactoryItemStrValue(int cmdID, int param1, int param2, const char* stringParam);

/**
 * Reads a factory item that is a text.
 * Forwards to `Factory::getFactoryItemStrValue`, which sends `CMD_FACOTRY_COMMON_GET_ITEM_STRVALUE`: `cmdID`,
 * `param1`, `param2`.
 * @param cmdID Item of the factory module, one of `KELU_TV_CMDID_E`.
 * @param param1,param2 What the item defines.
 * @param pStr Receives the text, terminator included, and must have room for all the service sends; untouched on
 * failure.
 * @return 0; -1 when the service or the link fails, and for a null `pStr`, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_getFactoryItemStrValue(int cmdID, int param1, int param2, char* pStr);

/** @} */

/**
 * @name Power, modes and maintenance
 * @{
 */

/**
 * Switches the ageing mode on or off.
 * Forwards to `Factory::enableAgingMode`, which sends `CMD_FACTORY_SETAGINGMODE`: `onoff`.
 * @param onoff True switches it on.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_enableAgingMode(bool onoff);

/**
 * Tells whether the ageing mode is on.
 * Forwards to `Factory::isAgingModeEnable`, which sends `CMD_FACTORY_GETAGINGMODE`.
 * @return 0 for the service's 0; 1 for any other answer, a failure included.
 */
KELUTV_API int linux_tv_Factory_isAgingModeEnable(void);

/**
 * Resets the non-volatile memory.
 * Forwards to `Factory::resetNVM`, which sends `CMD_FACTORY_RESETNVM`.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_resetNVM(void);

/**
 * Resets the analogue channels.
 * Forwards to `Factory::resetAtvChannel`, which sends `CMD_FACTORY_RESETATVCHANNEL`.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_resetAtvChannel(void);

/**
 * Starts to record the transport stream.
 * Forwards to `Factory::startRecorderTsStream`, which sends `CMD_FACTORY_STARTRECORDERTS`: `pathName`.
 * @param pathName Path of the recording.
 * @return The service's result, 0 for success; -1 when the link fails, and for a null `pathName`, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_startRecorderTsStream(const char* pathName);

/**
 * Ends the recording of the transport stream.
 * Forwards to `Factory::stopRecorderTsStream`, which sends `CMD_FACTORY_STOPRECORDERTS`.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_stopRecorderTsStream(void);

/**
 * Tells whether the watchdog is on.
 * Forwards to `Factory::isWdtEnable`, which sends `CMD_FACTORY_GETWATCHDOG`.
 * @return 0 for the service's 0; 1 for any other answer, a failure included.
 */
KELUTV_API int linux_tv_Factory_isWdtEnable(void);

/**
 * Switches the watchdog on or off.
 * Forwards to `Factory::enableWdt`, which sends `CMD_FACTORY_SETWATCHDOG`: `onoff`.
 * @param onoff True switches it on.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_enableWdt(bool onoff);

/**
 * Tells whether the serial port is on.
 * Forwards to `Factory::isUartEnable`, which sends `CMD_FACTORY_GETUART`.
 * @return 0 for the service's 0; 1 for any other answer, a failure included.
 */
KELUTV_API int linux_tv_Factory_isUartEnable(void);

/**
 * Switches the serial port on or off.
 * Forwards to `Factory::enableUart`, which sends `CMD_FACTORY_SETUART`: `onoff`.
 * @param onoff True switches it on.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_enableUart(bool onoff);

/**
 * Starts an upgrade of the system. Logs "d%\n" at error priority under the tag "TVBASEMW@linuxFactory" first.
 * Forwards to `Factory::upgradeSystem`, which sends `CMD_FACTORY_UPGRADESYSTEM`: `mode`.
 * @param mode Kind of upgrade as the service numbers it.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_upgradeSystem(int mode);

/**
 * Reads the power-on mode.
 * Forwards to `Factory::getPoweronMode`, which sends `CMD_FACTORY_GETPOWERMODE`.
 * @return The mode; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getPoweronMode(void);

/**
 * Sets the power-on mode.
 * Forwards to `Factory::setPoweronMode`, which sends `CMD_FACTORY_SETPOWERMODE`: `mode`.
 * @param mode Mode as the service numbers it.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setPoweronMode(int mode);

/**
 * Switches the music at power-on on or off.
 * Forwards to `Factory::enablePowerMusic`, which sends `CMD_FACTORY_SETPOWERMUSIC`: `onoff`.
 * @param onoff True switches it on.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_enablePowerMusic(bool onoff);

/**
 * Tells whether the music at power-on is on.
 * Forwards to `Factory::isPowerMusicEnable`, which sends `CMD_FACTORY_GETPOWERMUSIC`.
 * @return 0 for the service's 0; 1 for any other answer, a failure included.
 */
KELUTV_API int linux_tv_Factory_isPowerMusicEnable(void);

/**
 * Reads the volume of the music at power-on.
 * Forwards to `Factory::getPowerMusicVol`, which sends `CMD_FACTORY_GETPOWERMUSICVOL`.
 * @return The volume; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getPowerMusicVol(void);

/**
 * Sets the volume of the music at power-on.
 * Forwards to `Factory::setPowerMusicVol`, which sends `CMD_FACTORY_SETPOWERMUSICVOL`: `val`.
 * @param val Volume; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setPowerMusicVol(int val);

/**
 * Reads the suspend mode.
 * Forwards to `Factory::getSuspendMode`, which sends `CMD_FACTORY_GETSUSPENDMODE`.
 * @return The mode; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getSuspendMode(void);

/**
 * Sets the suspend mode.
 * Forwards to `Factory::setSuspendMode`, which sends `CMD_FACTORY_SETSUSPENDMODE`: `mode`.
 * @param mode Mode as the service numbers it.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setSuspendMode(int mode);

/**
 * Sets the suspend mode by the inner command.
 * Forwards to `Factory::setSuspendModeInner`, which sends `CMD_FACTORY_SETSUSPENDMODEINNER`: `mode`.
 * @param mode Mode as the service numbers it.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setSuspendModeInner(int mode);

/**
 * Restores the factory state.
 * Forwards to `Factory::restoreFactory`, which sends `CMD_FACTORY_RESTOREFACTORY`.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_restoreFactory(void);

/**
 * Restores the factory settings.
 * Forwards to `Factory::restoreFactorySetting`, which sends `CMD_FACTORY_RESTOREFACTORYSETTING`.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_restoreFactorySetting(void);

/**
 * Reads the mode of the serial port.
 * Forwards to `Factory::getUartMode`, which sends `CMD_FACTORY_GETUARTMODE`.
 * @return The mode; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getUartMode(void);

/**
 * Sets the mode of the serial port.
 * Forwards to `Factory::setUartMode`, which sends `CMD_FACTORY_SETUARTMODE`: `mode`.
 * @param mode Mode as the service numbers it.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setUartMode(int mode);

/**
 * Reads the mode of the single key.
 * Forwards to `Factory::getSingleKeyMode`, which sends `CMD_FACTORY_GETSINGLEKEYMODE`.
 * @return The mode; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getSingleKeyMode(void);

/**
 * Sets the mode of the single key.
 * Forwards to `Factory::setSingleKeyMode`, which sends `CMD_FACTORY_SETSINGLEKEYMODE`: `mode`.
 * @param mode Mode as the service numbers it.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setSingleKeyMode(int mode);

/**
 * Reads the customer code of the remote control.
 * Forwards to `Factory::getIrCustomCode`, which sends `CMD_FACTORY_GETIRCUSTOMCODE`.
 * @return The code; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getIrCustomCode(void);

/**
 * Sets the customer code of the remote control.
 * Forwards to `Factory::setIrCustomCode`, which sends `CMD_FACTORY_SETIRCUSTOMCODE`: `num`.
 * @param num Code; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setIrCustomCode(int num);

/**
 * Tells whether the board is marked as repaired.
 * Forwards to `Factory::getRepairedBoard`, which sends `CMD_FACTORY_GETREPAIREDBOARD`.
 * @return 0 for the service's 0; 1 for any other answer, a failure included.
 */
KELUTV_API int linux_tv_Factory_getRepairedBoard(void);

/**
 * Marks the board as repaired, or not.
 * Forwards to `Factory::setRepairedBoard`, which sends `CMD_FACTORY_SETREPAIREDBOARD`: `onoff`.
 * @param onoff True marks it.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setRepairedBoard(bool onoff);

/**
 * Saves, restores or updates the data of the flash EEPROM.
 * Forwards to `Factory::operateFlashEEPROM`, which sends `CMD_FACTORY_OPERATEEROM`: `oper`, `pathName`.
 * @param oper One of `KELU_TV_OPERATEFLASHEEPROM`.
 * @param pathName Path of the file.
 * @return The service's result, 0 for success; -1 when the link fails, and for a null `pathName`, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_operateFlashEEPROM(int oper, const char* pathName);

/**
 * Resets the working time.
 * Forwards to `Factory::resetWorkingTime`, which sends `CMD_FACTORY_RESETWORKINGTIME`.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_resetWorkingTime(void);

/**
 * Reads the status of the wireless network test.
 * Forwards to `Factory::getWifiTestStatus`, which sends `CMD_FACTORY_GETWIFITESTSTATUS`.
 * @return The status; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getWifiTestStatus(void);

/**
 * Sets the status of the wireless network test.
 * Forwards to `Factory::setWifiTestStatus`, which sends `CMD_FACTORY_SETWIFITESTSTATUS`: `value`.
 * @param value Status as the service numbers it.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setWifiTestStatus(int value);

/**
 * Sets the result of the Bluetooth test.
 * Forwards to `Factory::setBTTestResult`, which sends `CMD_FACOTRY_SET_BT_TESTRESULT`: `value`.
 * @param value Result as the service numbers it.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setBTTestResult(int value);

/**
 * Reads the type of the display identification data (EDID).
 * Forwards to `Factory::getEDIDType`, which sends `CMD_EXTRA_GETEDIDTYPE`. The type is printed to standard output.
 * @param pType Receives one of `KELU_TV_EDID_TYPE_E`, -1 on failure; may be null.
 * @return 0 in every case.
 */
KELUTV_API int linux_tv_factory_getEDIDType(int* pType);

/**
 * Sets the type of the display identification data (EDID).
 * Forwards to `Factory::setEDIDType`, which sends `CMD_EXTRA_SETEDIDTYPE`: `type`. The type is printed to standard
 * output first.
 * @param type One of `KELU_TV_EDID_TYPE_E`.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_factory_setEDIDType(int type);

/**
 * Hands the service a text for the serial port.
 * Prints the line "setUartData" to standard output first. Forwards to `Factory::setUartData`, which sends
 * `CMD_EXTRA_SETUARTDATA`: `pData` as UTF-16.
 * @param pData The text, in UTF-8.
 * @return The service's result, 0 for success; -1 when the link fails, and for null, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_setUartData(const char* pData);

/** @} */

/**
 * @name Identity, versions and counters
 * @{
 */

/**
 * Reads the name of the platform.
 * Forwards to `Factory::getPlatform`, which sends `CMD_FACTORY_GETPLATFORM`.
 * @param str Receives the text, terminator included, and must have room for all the service sends; "default" when the
 * service or the link fails or there is no text.
 * @return 0, also on failure; -1 for null, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_getPlatform(char* str);

/**
 * Reads the date of the EEPROM.
 * Forwards to `Factory::getEepromDate`, which sends `CMD_FACTORY_GETEEPROMDATE`.
 * @param pStr Receives the text, terminator included, and must have room for all the service sends; "date error" when
 * the service or the link fails or there is no text.
 * @return 0 in every case, also for a null `pStr`, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_getEepromDate(char* pStr);

/**
 * Reads the bar code of the set.
 * Forwards to `Factory::getBarCode`, which sends `CMD_FACTORY_GETBARCODE`.
 * @param pStr Receives the text, terminator included, and must have room for all the service sends; "error barcode"
 * when the service or the link fails or there is no text.
 * @return 0 in every case, also for a null `pStr`, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_getBarCode(char* pStr);

/**
 * Reads the identifier of the panel.
 * Forwards to `Factory::getPanelID`, which sends `CMD_FACTORY_GETPANELID`.
 * @param pStr Receives the text, terminator included, and must have room for all the service sends; "error panelId"
 * when the service or the link fails or there is no text.
 * @return 0, also on failure; -1 for null, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_getPanelID(char* pStr);

/**
 * Reads the address of the network port.
 * Forwards to `Factory::getMacAddress`, which sends `CMD_FACTORY_GETMACADDRESS`.
 * @param pStr Receives the text, terminator included, and must have room for all the service sends; "error mac" when
 * the service or the link fails or there is no text.
 * @return 0, also on failure; -1 for null, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_getMacAddress(char* pStr);

/**
 * Sets the address of the network port.
 * Forwards to `Factory::setMacAddress`, which sends `CMD_FACTORY_SETMACADDRESS`: `length`, the numbers.
 * @param pMacAddr `length` numbers, one for each part of the address.
 * @param length How many numbers to send; sent as it is, and below 1 no number behind it.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setMacAddress(int* pMacAddr, int length);

/**
 * Reads the identifier of the eMMC memory.
 * Forwards to `Factory::getEmmcID`, which sends `CMD_FACTORY_GET_EMMC_ID`.
 * @param pStr Receives the text, terminator included, and must have room for all the service sends; "error_emmc_id"
 * without a terminator, so that the buffer should be zeroed before, when the service or the link fails or there is no
 * text.
 * @return 0, also on failure; -1 for a null `pStr`, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_getEmmcID(char* pStr);

/**
 * Reads the identifier of the main chip.
 * Forwards to `Factory::getSocChipID`, which sends `CMD_FACTORY_GET_SOC_CHIP_ID`.
 * @param pStr Receives the text, terminator included, and must have room for all the service sends; "error_chip_id"
 * without a terminator, so that the buffer should be zeroed before, when the service or the link fails or there is no
 * text.
 * @return 0, also on failure; -1 for a null `pStr`, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_getSocChipID(char* pStr);

/**
 * Reads the version of the inner timing controller.
 * Forwards to `Factory::getInnerTconVersion`, which sends `CMD_FACTORY_GET_INNER_TCON_VERSION`.
 * @param pStr Receives the text, terminator included, and must have room for all the service sends;
 * "error_inner_tcon_ver" without a terminator, so that the buffer should be zeroed before, when the service or the link
 * fails or there is no text.
 * @return 0, also on failure; -1 for a null `pStr`, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_getInnerTconVersion(char* pStr);

/**
 * Reads the version of the external motion compensation.
 * Forwards to `Factory::getExternalMemcVersion`, which sends `CMD_FACTORY_GET_EXTERNAL_MEMC_VERSION`.
 * @param pStr Receives the text, terminator included, and must have room for all the service sends;
 * "error_external_memc_ver" without a terminator, so that the buffer should be zeroed before, when the service or the
 * link fails or there is no text.
 * @return 0, also on failure; -1 for a null `pStr`, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_getExternalMemcVersion(char* pStr);

/**
 * Reads the version of the panel's picture processing.
 * Forwards to `Factory::getPanelPQVersion`, which sends `CMD_FACTORY_GET_PANEL_PQ_VERSION`.
 * @param pStr Receives the text, terminator included, and must have room for all the service sends;
 * "error_panel_pq_ver" without a terminator, so that the buffer should be zeroed before, when the service or the link
 * fails or there is no text.
 * @return 0, also on failure; -1 for a null `pStr`, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_getPanelPQVersion(char* pStr);

/**
 * Reads the version of the panel's data.
 * Forwards to `Factory::getPanelDataVersion`, which sends `CMD_FACTORY_GET_PANEL_DATA_VERSION`.
 * @param pStr Receives the text, terminator included, and must have room for all the service sends;
 * "error_external_panel_ver" without a terminator, so that the buffer should be zeroed before, when the service or the
 * link fails or there is no text.
 * @return 0, also on failure; -1 for a null `pStr`, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_getPanelDataVersion(char* pStr);

/**
 * Reads the number of USB disks.
 * Forwards to `Factory::getUDiskNum`, which sends `CMD_FACTORY_GET_USBKINDNUM`.
 * @param pBuf Receives the number, 0 where the service sent none; untouched on failure.
 * @return 0; -1 when the service or the link fails, and for a null `pBuf`, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_getUDiskNum(int* pBuf);

/**
 * Reads how long the system has been up.
 * Forwards to `Factory::getSystemupTime`, which sends `CMD_FACTORY_GETSYSUPTIME`.
 * @param pBuf Room for 2 ints, as the service defines them; both are written, 0 where the service sent less. Untouched
 * on failure.
 * @return 0; -1 when the service or the link fails, and for a null `pBuf`, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_getSystemupTime(int* pBuf);

/**
 * Hands the service the time that the network gave.
 * Forwards to `Factory::setInternetTime`, which sends `CMD_FACTORY_SETINTERNETTIME`: `time`.
 * @param time The time as a text.
 * @return The service's result, 0 for success; -1 when the link fails, and for a null `time`, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_setInternetTime(const char* time);

/**
 * Reads the time that the network gave.
 * Forwards to `Factory::getInternetTime`, which sends `CMD_FACTORY_GETINTERNETTIME`.
 * @param pStr Receives the text, terminator included, and must have room for all the service sends; "19700101" without
 * a terminator, so that the buffer should be zeroed before, when the service or the link fails or there is no text.
 * @return 0, also on failure; -1 for a null `pStr`, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_getInternetTime(char* pStr);

/**
 * Reads how many USB ports the platform supports.
 * Forwards to `Factory::getPlatFormSupportUsbNum`, which sends `CMD_FACTORY_GET_SUPPORTUSBNUM`.
 * @param pBuf Receives the number, 0 where the service sent none; untouched on failure.
 * @return 0; -1 when the service or the link fails, and for a null `pBuf`, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_getPlatFormSupportUsbNum(int* pBuf);

/** @} */

/**
 * @name Keys, serial numbers and transfer
 * @{
 */

/**
 * Reads the burn status of each kind of key.
 * Forwards to `Factory::getBurnKeyStatus`, which sends `CMD_FACTORY_GETBURNKEYSTATUS`.
 * @param pBuf Room for 32 ints, in the service's order; all are written, 0 where the service sent less. Untouched on
 * failure.
 * @return 0; -1 when the service or the link fails, and for a null `pBuf`, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_getBurnKeyStatus(int* pBuf);

/**
 * Burns data into one-time programmable memory and reads the serial number.
 * Forwards to `Factory::setStbOtpBurn`, which sends `CMD_FACTORY_SETSTBOTPBURN`: `CaCardKind`, `str`.
 * @param CaCardKind One of `KELU_TV_OPT_CA_TYPE_E`.
 * @param str The data, a text.
 * @param retSnData Receives the serial number, terminator included, and must have room for all the service sends;
 * untouched on failure.
 * @return 0; -1 when the service or the link fails, and for a null `str` or `retSnData`, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_setStbOtpBurn(int CaCardKind, const char* str, char* retSnData);

/**
 * Reads a serial number of digital television.
 * Forwards to `Factory::getDtvSn`, which sends `CMD_FACTORY_GETDTVSN`: `cmdId`.
 * @param cmdId One of `KELU_TV_DTV_SN_E`.
 * @param retSnData Receives the serial number, terminator included, and must have room for all the service sends;
 * untouched on failure.
 * @return 0; -1 when the service or the link fails, and for a null `retSnData`, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_getDtvSn(int cmdId, char* retSnData);

/**
 * Reads whether the RSA key is burnt into the one-time programmable memory.
 * Forwards to `Factory::getIsBurnOtpRsa`, which sends `CMD_FACTORY_GETISBURNOTPRSA`.
 * @return The status; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getIsBurnOtpRsa(void);

/**
 * Reads which kinds of key are there to be burnt.
 * Prints "get tv BurnKeyType fail,path is null,return -1" to standard output for a null pointer. Forwards to
 * `Factory::getBurnKeyType`, which sends `CMD_FACTORY_GET_SUPPORT_BURN_KEY_TYPE`: `path`.
 * @param path Path of the keys.
 * @param pSupportKeyList Receives the kinds, of `KELU_TV_MUL_KEY_E`, in the service's order. Must have room for all
 * the service sends; untouched without an entry.
 * @param length Receives their count, 0 without an entry.
 * @return 0; -1 when there is no entry or the service or the link fails, and for a null pointer, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_getBurnKeyType(const char* path, int* pSupportKeyList, int* length);

/**
 * Tells the service that an external device was plugged in. Prints "linux_tv_Factory_ExDevInserted enter\n" to
 * standard output first.
 * Forwards to `Factory::exDevInserted`, which sends `CMD_FACTORY_EXTERNAL_DEV_INSERT`: `pData`.
 * @param pData Text as the service defines it.
 * @return The service's answer; -1 when the service or the link fails, and for null, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_ExDevInserted(const char* pData);

/**
 * Hands over the data of a key.
 * Forwards to `Factory::setKeyData`, which sends `CMD_FACTORY_SETKEYDATA`: `type`, `length`, `checksum`,
 * `xorchecksum`, the numbers.
 * @param type One of `KELU_TV_MUL_KEY_E`.
 * @param pData `length` numbers.
 * @param length How many numbers to send; sent as it is, and below 1 no number behind the header.
 * @param checksum Sum over the data, as the caller computed it.
 * @param xorchecksum Exclusive or over the data, as the caller computed it.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setKeyData(int type, int* pData, int length, int checksum, int xorchecksum);

/**
 * Hands over data of the network port.
 * Forwards to `Factory::setNetPortDataTransmission`, which sends `CMD_FACTORY_NETPORTDATATRAN`: `type`, `length`,
 * `checksum`, `xorchecksum`, the numbers.
 * @param type One of `KELU_TV_NETDATATRAN_TPYE_E`.
 * @param pData `length` numbers.
 * @param length How many numbers to send; sent as it is, and below 1 no number behind the header.
 * @param checksum Sum over the data, as the caller computed it.
 * @param xorchecksum Exclusive or over the data, as the caller computed it.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setNetPortDataTransmission(int type, int* pData, int length, int checksum,
                                                           int xorchecksum);

/**
 * Reads data of the network port.
 * Forwards to `Factory::getNetPortDataTransmission`, which sends `CMD_FACTORY_GET_NETPORTDATATRAN`: `type`, `length`.
 * @param type One of `KELU_TV_NETDATATRAN_TPYE_E`.
 * @param length How many numbers to read; sent as it is, and below 1 none is read.
 * @param pBuf Room for `length` ints; all are written, 0 where the service sent less. Untouched on failure.
 * @return 0; -1 when the service or the link fails, and for a null `pBuf`, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_getNetPortDataTransmission(int type, int length, int* pBuf);

/** @} */

/**
 * @name What the hardware can do
 * @{
 */

/**
 * Tells whether a router is supported.
 * Forwards to `Factory::isSupportRouter`, which sends `CMD_FACTORY_GET_IS_HW_SUPPORT_ROUTER`.
 * @return 0 for the service's 0; 1 for any other answer, a failure included.
 */
KELUTV_API int linux_tv_Factory_isSupportRouter(void);

/**
 * Tells whether a cable modem is supported.
 * Forwards to `Factory::isSupportCableModem`, which sends `CMD_FACTORY_GET_IS_HW_SUPPORT_CABLE_MODEM`.
 * @return 0 for the service's 0; 1 for any other answer, a failure included.
 */
KELUTV_API int linux_tv_Factory_isSupportCableModem(void);

/**
 * Tells whether a wireless network is supported.
 * Forwards to `Factory::isSupportWifi`, which sends `CMD_FACTORY_GET_IS_HW_SUPPORT_WIFI`.
 * @return 0 for the service's 0; 1 for any other answer, a failure included.
 */
KELUTV_API int linux_tv_Factory_isSupportWifi(void);

/**
 * Tells whether Ethernet over coaxial cable is supported.
 * Forwards to `Factory::isSupportEOC`, which sends `CMD_FACTORY_GET_IS_HW_SUPPORT_EOC`.
 * @return 0 for the service's 0; 1 for any other answer, a failure included.
 */
KELUTV_API int linux_tv_Factory_isSupportEOC(void);

/**
 * Reads the mode of the device.
 * Forwards to `Factory::getDeviceMode`, which sends `CMD_FACTORY_GETDEVICEMODE`.
 * @return The mode; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getDeviceMode(void);

/**
 * Reads whether the set is made for an operator.
 * Forwards to `Factory::isOperatorCustomized`, which sends `CMD_FACTORY_ISOPERATORCUSTOMIZED`.
 * @return The answer; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_isOperatorCustomized(void);

/**
 * Tells whether an external chip is supported.
 * Forwards to `Factory::isSupportExternChip`, which sends `CMD_FACOTRY_IS_SUPPORT_EXTERN_CHIP`: `chipType`.
 * @param chipType Chip as the service numbers it.
 * @return 0 for the service's 0; 1 for any other answer, a failure included.
 */
KELUTV_API int linux_tv_Factory_isSupportExternChip(int chipType);

/** @} */

/**
 * @name Laser projector
 * @{
 */

/**
 * Reads the test pattern of the laser projector.
 * Forwards to `Factory::getLaserTVTestPattern`, which sends `CMD_FACTORY_GET_LASER_TEST_PATTERN`.
 * @return The pattern; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getLaserTVTestPattern(void);

/**
 * Sets the test pattern of the laser projector.
 * Forwards to `Factory::setLaserTVTestPattern`, which sends `CMD_FACTORY_SET_LASER_TEST_PATTERN`: `pattern`.
 * @param pattern Pattern as the service numbers it.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setLaserTVTestPattern(int pattern);

/**
 * Reads the index of a colour wheel.
 * Forwards to `Factory::getLaserWheelIndex`, which sends `CMD_FACTORY_GET_LASER_WHEEL_INDEX`: `wheel`.
 * @param wheel Wheel as the service numbers it.
 * @return The index; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getLaserWheelIndex(int wheel);

/**
 * Sets the index of a colour wheel.
 * Forwards to `Factory::setLaserWheelIndex`, which sends `CMD_FACTORY_SET_LASER_WHEEL_INDEX`: `wheel`, `index`.
 * @param wheel Wheel as the service numbers it.
 * @param index Index; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setLaserWheelIndex(int wheel, int index);

/**
 * Moves the motor of the laser projector.
 * Forwards to `Factory::setMotorMove`, which sends `CMD_FACOTRY_SET_MOTOR_MOVE`: `move`.
 * @param move Movement as the service numbers it.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setMotorMove(int move);

/**
 * Reads the brightness mode of the laser projector.
 * Forwards to `Factory::getLaserBrightMode`, which sends `CMD_FACOTRY_GET_LASER_BRIGHT_MODE`.
 * @return The mode; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getLaserBrightMode(void);

/**
 * Sets the brightness mode of the laser projector.
 * Forwards to `Factory::setLaserBrightMode`, which sends `CMD_FACOTRY_SET_LASER_BRIGHT_MODE`: `mode`.
 * @param mode Mode as the service numbers it.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setLaserBrightMode(int mode);

/**
 * Reads the output mode of the laser projector.
 * Forwards to `Factory::getLaserPonputMode`, which sends `CMD_FACOTRY_GET_LASER_PONPUT_MODE`.
 * @return The mode; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getLaserPonputMode(void);

/**
 * Sets the output mode of the laser projector.
 * Forwards to `Factory::setLaserPonputMode`, which sends `CMD_FACOTRY_SET_LASER_PONPUT_MODE`: `mode`.
 * @param mode Mode as the service numbers it.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setLaserPonputMode(int mode);

/**
 * Tells whether the eye shield mode of the laser projector is on.
 * Forwards to `Factory::getLaserEyeShieldMode`, which sends `CMD_FACOTRY_GET_LASER_EYE_SHIELD_MODE`.
 * @return 0 for the service's 0; 1 for any other answer, a failure included.
 */
KELUTV_API int linux_tv_Factory_getLaserEyeShieldMode(void);

/**
 * Switches the eye shield mode of the laser projector on or off.
 * Forwards to `Factory::setLaserEyeShieldMode`, which sends `CMD_FACOTRY_SET_LASER_EYE_SHIELD_MODE`: `mode`.
 * @param mode True switches it on.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setLaserEyeShieldMode(bool mode);

/**
 * Reads the version of a firmware of the laser projector.
 * Forwards to `Factory::getLaserFWVersion`, which sends `CMD_FACOTRY_GET_LASER_FW_VERSION`: `type`.
 * @param type Firmware as the service numbers it.
 * @param pStr Receives the text, terminator included, and must have room for all the service sends; "error" without a
 * terminator, so that the buffer should be zeroed before, when the service or the link fails or there is no text.
 * @return 0, also on failure; -1 for a null `pStr`, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_getLaserFWVersion(int type, char* pStr);

/**
 * Sets one item of the laser projector.
 * Forwards to `Factory::setLaserItemValue`, which sends `CMD_FACOTRY_SET_LASER_ITEM_VALUE`: `cmdID`, `param1`,
 * `param2`, `param3`, `param4`.
 * @param cmdID Item as the service numbers it.
 * @param param1,param2,param3,param4 What the item defines.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setLaserItemValue(int cmdID, int param1, int param2, int param3, int param4);

/**
 * Reads one item of the laser projector.
 * Forwards to `Factory::getLaserItemValue`, which sends `CMD_FACOTRY_GET_LASER_ITEM_VALUE`: `cmdID`, `param`.
 * @param cmdID Item as the service numbers it.
 * @param param What the item defines.
 * @param pBuf Receives the value, 0 where the service sent none; untouched on failure.
 * @return 0; -1 when the service or the link fails, and for a null `pBuf`, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_getLaserItemValue(int cmdID, int param, int* pBuf);

/**
 * Sets one item of the laser projector that is a text.
 * Forwards to `Factory::setLaserItemStringValue`, which sends `CMD_FACOTRY_SET_LASER_ITEM_STRING_VALUE`: `cmdID`,
 * `param`, `stringParam`.
 * @param cmdID Item as the service numbers it.
 * @param param What the item defines.
 * @param stringParam The text.
 * @return The service's result, 0 for success; -1 when the link fails, and for a null `stringParam`, with nothing
 * sent.
 */
KELUTV_API int linux_tv_Factory_setLaserItemStringValue(int cmdID, int param, const char* stringParam);

/** @} */

/**
 * @name External picture chips
 * @{
 */

/**
 * Reads one item of the external picture chip.
 * Forwards to `Factory::getNTPQItemValue`, which sends `CMD_FACTORY_GET_NTPQITEMVALUE`: `channel`, `cmdId`.
 * @param channel Channel of the chip.
 * @param cmdId Item as the service numbers it.
 * @return The value; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getNTPQItemValue(int channel, int cmdId);

/**
 * Sets one item of the external picture chip.
 * Forwards to `Factory::setNTPQItemValue`, which sends `CMD_FACTORY_SET_NTPQITEMVALUE`: `channel`, `cmdId`, `value`.
 * @param channel Channel of the chip.
 * @param cmdId Item as the service numbers it.
 * @param value Value; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setNTPQItemValue(int channel, int cmdId, int value);

/**
 * Reads the version of the external picture chip.
 * Forwards to `Factory::getNTPQPlatFormVer`, which sends `CMD_FACTORY_GET_NTPQPLATFORMVER`.
 * @param pStr Receives the text, terminator included, and must have room for all the service sends; untouched on
 * failure and when there is no text.
 * @return 0; -1 when the service or the link fails, and for a null `pStr`, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_getNTPQPlatFormVer(char* pStr);

/**
 * Upgrades the external picture chip.
 * Forwards to `Factory::upgradeNTPQIC`, which sends `CMD_FACOTRY_UPGRADENTPQIC`: `chipId`, `path`.
 * @param chipId Chip as the service numbers it.
 * @param path Path of the image.
 * @return The service's result, 0 for success; -1 when the link fails, and for a null `path`, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_upgradeNTPQIC(int chipId, const char* path);

/**
 * Reads the answer of the NT72315 chip to a command.
 * Forwards to `Factory::getNT72315Command`, which sends `CMD_FACTORY_GET_NT72315_COMMAND`: `mainCmd`, `subCmd`,
 * `value`.
 * @param mainCmd Main command as the chip numbers it.
 * @param subCmd Subordinate command as the chip numbers it.
 * @param value Value of the command.
 * @return The value; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getNT72315Command(int mainCmd, int subCmd, int value);

/**
 * Sends a command to the NT72315 chip.
 * Forwards to `Factory::setNT72315Command`, which sends `CMD_FACTORY_SET_NT72315_COMMAND`: `mainCmd`, `subCmd`,
 * `value`.
 * @param mainCmd Main command as the chip numbers it.
 * @param subCmd Subordinate command as the chip numbers it.
 * @param value Value of the command.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setNT72315Command(int mainCmd, int subCmd, int value);

/**
 * Reads the version of the EP9169 chip.
 * Forwards to `Factory::getEP9169PlatFormVer`, which sends `CMD_FACTORY_GET_EP9169FORMVER`.
 * @param pVersion Receives the text, terminator included, and must have room for all the service sends; untouched on
 * failure and when there is no text.
 * @return 0; -1 when the service or the link fails, and for a null `pVersion`, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_getEP9169PlatFormVer(char* pVersion);

/**
 * Upgrades the EP9169 chip.
 * Forwards to `Factory::upgradeEP9169IC`, which sends `CMD_FACOTRY_UPGRADEEP9169IC`: `pathName`.
 * @param pathName Path of the image.
 * @return The service's result, 0 for success; -1 when the link fails, and for a null `pathName`, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_upgradeEP9169IC(const char* pathName);

/** @} */

/**
 * @name Product
 * @{
 */

/**
 * Reads a text about the machine.
 * Reads the text item `CMDID_FACTORY_GET_MACHINEINFO`: `type`, 0.
 * @param type One of `KELU_TV_MACHINE_INFO_E`.
 * @param info Receives the text, terminator included, and must have room for all the service sends; untouched on
 * failure.
 * @return 0; -1 when the service or the link fails, and for null, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_getMachineInfo(int type, char* info);

/**
 * Sets a text about the machine.
 * Sets the text item `CMDID_FACTORY_SET_MACHINEINFO`: `type`, `info`, 0.
 * @param type One of `KELU_TV_MACHINE_INFO_E`.
 * @param info Text.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setMachineInfo(int type, char* info);

/**
 * Reads the number of the product.
 * Reads the text item `CMDID_FACTORY_GET_PRODUCT_NUMBER`: 0, 0.
 * @param PID Receives the text, terminator included, and must have room for all the service sends; untouched on
 * failure.
 * @return 0; -1 when the service or the link fails, and for null, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_getProductNumber(char* PID);

/**
 * Reads the number of the order.
 * Reads the text item `CMDID_FACTORY_GET_ORDER_NUMBER`: 0, 0.
 * @param OrderNum Receives the text, terminator included, and must have room for all the service sends; untouched on
 * failure.
 * @return 0; -1 when the service or the link fails, and for null, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_getOrderNumber(char* OrderNum);

/**
 * Reads the identity of the developer.
 * Reads the text item `CMDID_FACTORY_GET_DEVELOPER_ID`: 0, 0.
 * @param pData Receives the text, terminator included, and must have room for all the service sends; untouched on
 * failure.
 * @return 0; -1 when the service or the link fails, and for null, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_getDeveloperID(char* pData);

/**
 * Reads the identity of the product.
 * Reads the text item `CMDID_FACTORY_GET_PRODUCE_ID`: 0, 0.
 * @param pData Receives the text, terminator included, and must have room for all the service sends; untouched on
 * failure.
 * @return 0; -1 when the service or the link fails, and for null, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_getProductID(char* pData);

/**
 * Reads a password.
 * Reads the text item `CMDID_FACTORY_GET_PASSWORD`: `type`, 0.
 * @param type One of `KELU_TV_PASSWORD_TYPE_E`.
 * @param pwd Receives the text, terminator included, and must have room for all the service sends; untouched on
 * failure.
 * @return 0; -1 when the service or the link fails, and for null, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_getPassWord(int type, char* pwd);

/**
 * Reads the version of the separate data.
 * Reads the text item `CMDID_FACTORY_GET_SEPERATE_DATA_VER`: 0, 0.
 * @param ver Receives the text, terminator included, and must have room for all the service sends; untouched on
 * failure.
 * @return 0; -1 when the service or the link fails, and for null, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_getSeperateDataVer(char* ver);

/**
 * Reads the country.
 * Reads the item `CMDID_FACTORY_GET_COUNTRY`: 0, 0.
 * @param country Receives the country as the service numbers it, 0 on failure; may be null.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getCountry(int* country);

/**
 * Chooses the country.
 * Sets the item `CMDID_FACTORY_SET_COUNTRY`: `country`, 0, 0, 0.
 * @param country Country as the service numbers it.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setCountry(int country);

/**
 * Reads the countries the set knows.
 * Reads the item `CMDID_FACTORY_GET_COUNTRY_LIST`: 0, 0.
 * @param pCountryList Room for 254 entries, values as the service numbers them; untouched on failure. May be null.
 * @param pListSize Receives the count as the service gives it, of which at most 254 entries are stored; 0 on
 * failure. May be null.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getCountryList(int* pCountryList, int* pListSize);

/**
 * Reads the front ends the set has.
 * Reads the item `CMDID_FACTORY_GET_FRONTEND_LIST`: 0, 0.
 * @param pFrontendList Room for 254 entries, values as the service numbers them; untouched on failure. May be null.
 * @param pListSize Receives the count as the service gives it, of which at most 254 entries are stored; 0 on
 * failure. May be null.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getFrontendList(int* pFrontendList, int* pListSize);

/**
 * Reads the area the product is made for.
 * Reads the item `CMDID_FACTORY_GET_PRODUCT_AREA`: 0, 0.
 * @param Area Receives the area as the service numbers it, 0 on failure; may be null.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getProductArea(int* Area);

/**
 * Reads the customer the set is made for.
 * Reads the item `CMDID_FACTORY_GET_CUSTOMER_NAME`: 0, 0.
 * @param customerName Receives the customer as the service numbers it, 0 on failure; may be null.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getCustomerName(int* customerName);

/**
 * Reads the style of the user interface.
 * Reads the item `CMDID_FACTORY_GET_UI_STYLE`: 0, 0.
 * @param UIStyle Receives the style as the service numbers it, 0 on failure; may be null.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getUIStyle(int* UIStyle);

/**
 * Reads the store of applications.
 * Reads the item `CMDID_FACTORY_GET_APP_STORE`: 0, 0.
 * @param APPStore Receives the store as the service numbers it, 0 on failure; may be null.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getAPPStore(int* APPStore);

/**
 * Reads the protocol of the remote control.
 * Reads the item `CMDID_FACTORY_GET_IR_PROTOCOL`: 0, 0.
 * @param pIrProtocol Receives one of `KELU_TV_IR_PROTOCOL_TYPE_E`, 0 on failure; may be null.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getIrProtocol(int* pIrProtocol);

/**
 * Reads the type of the key pad.
 * Reads the item `CMDID_FACTORY_GET_KEYPAD_TYPE`: 0, 0.
 * @param pType Receives the type as the service numbers it, 0 on failure; may be null.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getKeyPadType(int* pType);

/** @} */

/**
 * @name Switches
 * @{
 */

/**
 * Tells whether the hot keys are on.
 * Reads the item `CMDID_FACTORY_GET_HOTKEY`: 0, 0.
 * @param mode Receives the answer, false on failure; may be null.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getHotkeyMode(bool* mode);

/**
 * Switches the hot keys on or off.
 * Sets the item `CMDID_FACTORY_SET_HOTKEY`: `mode`, 0, 0, 0.
 * @param mode True switches them on.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setHotkeyMode(bool mode);

/**
 * Tells whether the panel interface is in TI mode.
 * Reads the item `CMDID_FACTORY_GET_TI_MODE`: 0, 0.
 * @param mode Receives the answer, false on failure; may be null.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getTIMode(bool* mode);

/**
 * Switches the TI mode of the panel interface on or off.
 * Sets the item `CMDID_FACTORY_SET_TI_MODE`: `mode`, 0, 0, 0.
 * @param mode True switches it on.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setTIMode(bool mode);

/**
 * Tells whether Bluetooth is on.
 * Reads the item `CMDID_FACTORY_GET_BLUETOOTH_ENABLE`: 0, 0.
 * @param pEnable Receives the answer, false on failure; may be null.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getBluetoothEnable(bool* pEnable);

/**
 * Switches Bluetooth on or off.
 * Sets the item `CMDID_FACTORY_SET_BLUETOOTH_ENABLE`: `enable`, 0, 0, 0.
 * @param enable True switches it on.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setBluetoothEnable(bool enable);

/**
 * Tells whether the common interface is on.
 * Reads the item `CMDID_FACTORY_GET_CI_ENABLE`: 0, 0.
 * @param pEnable Receives the answer, false on failure; may be null.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getCIEnable(bool* pEnable);

/**
 * Switches the common interface on or off.
 * Sets the item `CMDID_FACTORY_SET_CI_ENABLE`: `enable`, 0, 0, 0.
 * @param enable True switches it on.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setCIEnable(bool enable);

/**
 * Tells whether recording is on.
 * Reads the item `CMDID_FACTORY_GET_PVR_ENABLE`: 0, 0.
 * @param pEnable Receives the answer, false on failure; may be null.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getPVREnable(bool* pEnable);

/**
 * Switches recording on or off.
 * Sets the item `CMDID_FACTORY_SET_PVR_ENABLE`: `enable`, 0, 0, 0.
 * @param enable True switches it on.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setPVREnable(bool enable);

/**
 * Tells whether the voice assistant is on.
 * Reads the item `CMDID_FACTORY_GET_ALEXA_ENABLE`: 0, 0.
 * @param pEnable Receives the answer, false on failure; may be null.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getAlexaEnable(bool* pEnable);

/**
 * Switches the voice assistant on or off.
 * Sets the item `CMDID_FACTORY_SET_ALEXA_ENABLE`: `enable`, 0, 0, 0.
 * @param enable True switches it on.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setAlexaEnable(bool enable);

/**
 * Tells whether control by voice is on.
 * Reads the item `CMDID_FACTORY_GET_VOICE_ENABLE`: 0, 0.
 * @param pEnable Receives the answer, false on failure; may be null.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getVoiceEnable(bool* pEnable);

/**
 * Switches control by voice on or off.
 * Sets the item `CMDID_FACTORY_SET_VOICE_ENABLE`: `enable`, 0, 0, 0.
 * @param enable True switches it on.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setVoiceEnable(bool enable);

/**
 * Tells whether spoken cues are on.
 * Reads the item `CMDID_FACTORY_GET_VOICECUES_ENABLE`: 0, 0.
 * @param pEnable Receives the answer, false on failure; may be null.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getVoiceCuesEnable(bool* pEnable);

/**
 * Switches spoken cues on or off.
 * Sets the item `CMDID_FACTORY_SET_VOICECUES_ENABLE`: `enable`, 0, 0, 0.
 * @param enable True switches them on.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setVoiceCuesEnable(bool enable);

/**
 * Tells whether the presentation is on.
 * Reads the item `CMDID_FACTORY_GET_PRESENTATION_ENABLE`: 0, 0.
 * @param pEnable Receives the answer, false on failure; may be null.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getPresentationEnable(bool* pEnable);

/**
 * Switches the presentation on or off.
 * Sets the item `CMDID_FACTORY_SET_PRESENTATION_ENABLE`: `enable`, 0, 0, 0.
 * @param enable True switches it on.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setPresentationEnable(bool enable);

/**
 * Tells whether the backlight's signal is inverted.
 * Reads the item `CMDID_FACTORY_GET_BACKLIGHT_INVERSION`: 0, 0.
 * @param polarity Receives the answer, false on failure; may be null.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getBacklightInversion(bool* polarity);

/**
 * Inverts the backlight's signal or not.
 * Sets the item `CMDID_FACTORY_SET_BACKLIGHT_INVERSION`: `polarity`, 0, 0, 0.
 * @param polarity True inverts it.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setBacklightInversion(bool polarity);

/** @} */

/**
 * @name Panel, converter and temperature
 * @{
 */

/**
 * Reads the swing of the panel interface.
 * Reads the item `CMDID_FACTORY_GET_PANEL_SWING`: 0, 0.
 * @param pSwing Receives the swing, 0 on failure; may be null.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getPanelSwing(int* pSwing);

/**
 * Sets the swing of the panel interface.
 * Sets the item `CMDID_FACTORY_SET_PANEL_SWING`: `swing`, 0, 0, 0.
 * @param swing Swing; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setPanelSwing(int swing);

/**
 * Reads the size of the panel.
 * Reads the text item `CMDID_FACTORY_GET_PANEL_SIZE`: 0, 0.
 * @param size Receives the text, terminator included, and must have room for all the service sends; untouched on
 * failure.
 * @return 0; -1 when the service or the link fails, and for null, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_getPanelSize(char* size);

/**
 * Reads a description of the panel.
 * Reads the text item `CMDID_FACTORY_GET_PANEL_INFO`: 0, 0.
 * @param info Receives the text, terminator included, and must have room for all the service sends; untouched on
 * failure.
 * @return 0; -1 when the service or the link fails, and for null, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_getPanelInfo(char* info);

/**
 * Reads how the ports of the panel interface are swapped.
 * Reads the item `CMDID_FACTORY_GET_LVDS_SWAP_PORT`: 0, 0.
 * @param pPort Receives the swap, 0 on failure; may be null.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_factory_getLvdsPort(int* pPort);

/**
 * Swaps the ports of the panel interface.
 * Sets the item `CMDID_FACTORY_SET_LVDS_SWAP_PORT`: `port`, 0, 0, 0.
 * @param port Swap as the service numbers it.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_factory_setLvdsPort(int port);

/**
 * Reads one value of the panel's start sequence.
 * Reads the item `CMDID_FACTORY_GET_PANEL_BOOT_SEQUENCE`: `type`, 0.
 * @param type Time as the service numbers it.
 * @param pValue Receives the time, 0 on failure; may be null.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_factory_getPanelSequence(int type, int* pValue);

/**
 * Sets one value of the panel's start sequence.
 * Sets the item `CMDID_FACTORY_SET_PANEL_BOOT_SEQUENCE`: `type`, `value`, 0, 0.
 * @param type Time as the service numbers it.
 * @param value Time; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_factory_setPanelSequence(int type, int value);

/**
 * Reads the bit mode of the panel interface.
 * Reads the item `CMDID_FACTORY_GET_LVDS_TI_BITMODE`: 0, 0.
 * @param mode Receives the mode as the service numbers it, 0 on failure; may be null.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getLVDSTIBitMode(int* mode);

/**
 * Chooses the bit mode of the panel interface.
 * Sets the item `CMDID_FACTORY_SET_LVDS_TI_BITMODE`: `mode`, 0, 0, 0.
 * @param mode Mode as the service numbers it.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setLVDSTIBitMode(int mode);

/**
 * Reads which logo is shown at start.
 * Reads the item `CMDID_FACTORY_GET_BOOT_LOGO_INDEX`: 0, 0.
 * @param index Receives the index, 0 on failure; may be null.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getBootLogoIndex(int* index);

/**
 * Chooses the logo shown at start.
 * Sets the item `CMDID_FACTORY_SET_BOOT_LOGO_INDEX`: `index`, 0, 0, 0.
 * @param index Index; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setBootLogoIndex(int index);

/**
 * Restores the analogue converter to its defaults.
 * Sets the item `CMDID_FACTORY_SET_RESTORE_ADC`: 0, 0, 0, 0.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_restoreADC(void);

/**
 * Sets the gain of the automatic volume control.
 * Sets the item `CMDID_FACTORY_SET_AVC_GAIN`: the whole part, the thousandths of the rest, 0, 0.
 * @param value Gain. Both parts are cut towards zero; not-a-number counts as 0, and what no int holds as the nearest
 * int.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setAvcGain(double value);

/**
 * Reads the gain of the automatic volume control.
 * Reads the item `CMDID_FACTORY_GET_AVC_GAIN`: 0, 0.
 * @param pValue Receives the whole part and a thousandth of the second value, 0 on failure; may be null.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getAvcGain(double* pValue);

/**
 * Reads the current temperature.
 * Reads the item `CMDID_FACTORY_GET_SOC_TEMP`: `KELU_MW_SOC_TEMP_REAL`, 0.
 * @param value Receives the temperature, 0 on failure; may be null.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getCurrentTemperature(int* value);

/**
 * Reads the highest temperature on record.
 * Reads the item `CMDID_FACTORY_GET_SOC_TEMP`: `KELU_MW_SOC_TEMP_HISTORY_MAX`, 0.
 * @param value Receives the temperature, 0 on failure; may be null.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getHistoryMaxTemperature(int* value);

/** @} */

/**
 * @name Keys
 * @{
 */

/**
 * Burns all keys of a path.
 * Sets the text item `CMDID_FACTORY_SET_SEA_ALL_KEY_BURN`: 0, `str`, 0.
 * @param str Path of the folder.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setSeaAllKeyBurn(char* str);

/**
 * Tells whether a key is burnt.
 * Reads the item `CMDID_FACTORY_GET_KEY_BURN_STATUS`: `keyType`, 0.
 * @param keyType One of `KELU_TV_MUL_KEY_E`.
 * @param pIsKeyBurned Receives the answer, false on failure; may be null.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getKeyBurnStatus(int keyType, bool* pIsKeyBurned);

/**
 * Tells whether the set takes a key. Prints "getKeySupportStatus keyType = %d\n" to standard output first.
 * Reads the item `CMDID_FACTORY_GET_KEY_IS_SUPPORT`: `keyType`, 0.
 * @param keyType One of `KELU_TV_MUL_KEY_E`.
 * @param pIsKeySupport Receives the answer, false on failure.
 * @return 0; -1 when the service or the link fails, and for a null `pIsKeySupport`, with nothing sent and
 * "getKeySupportStatus param is null" printed to standard output.
 */
KELUTV_API int linux_tv_Factory_getKeySupportStatus(int keyType, bool* pIsKeySupport);

/** @} */

/**
 * @name Files and transfer
 * @{
 */

/**
 * Deletes the data of the presentation.
 * Sets the item `CMDID_FACTORY_DEL_PRESENTATION_DATA`: 0, 0, 0, 0.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_deletePresentationData(void);

/**
 * Copies the data of the presentation from a path.
 * Sets the text item `CMDID_FACTORY_COPY_PRESENTATION_DATA`: 0, `pPath`, 0.
 * @param pPath Path of the file.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_copyPresentationData(char* pPath);

/**
 * Copies the middleware's data base to a USB disk.
 * Sets the text item `CMDID_FACTORY_COPY_MWDB2USB`: 0, `pPath`, 0.
 * @param pPath Path of the file.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_copyMWDB2USB(char* pPath);

/**
 * Copies the middleware's data base from a USB disk.
 * Sets the text item `CMDID_FACTORY_COPY_USBDB2MW`: 0, `pPath`, 0.
 * @param pPath Path of the file.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_copyUSBDB2MW(char* pPath);

/**
 * Replaces the logo shown at start.
 * Sets the text item `CMDID_FACTORY_UPDATE_BOOTLOGO`: 0, `pPath`, 0.
 * @param pPath Path of the file.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_updateBootLogo(char* pPath);

/**
 * Writes the separate data to a file.
 * Sets the text item `CMDID_FACTORY_EXPORT_SEPARATED_DATA`: 0, `pPath`, 0.
 * @param pPath Path of the file.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_exportSeparatedData(char* pPath);

/**
 * Reads the separate data from a file.
 * Sets the text item `CMDID_FACTORY_SET_IMPORT_SEPERAT_DATA`: 0, `pPath`, 0.
 * @param pPath Path of the file.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_importSeparatedData(char* pPath);

/**
 * Checks a file for an upgrade of the EEPROM data.
 * Sets the text item `CMDID_FACTORY_UPDATE_FLASHEEP_CHECK`: 0, `pPath`, 0.
 * @param pPath Path of the file.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_upgradeFlashEEPROMCheck(char* pPath);

/**
 * Copies preset channels from a file.
 * Sets the text item `CMDID_FACTORY_COPY_PRECHANNEL2MW`: `type`, `pPath`, 0.
 * @param pPath Path of the file.
 * @param type Kind of channels as the service numbers it.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_factory_copyPresetChannelDB2MW(char* pPath, int type);

/**
 * Copies preset channels to a file.
 * Sets the text item `CMDID_FACTORY_COPY_PRECHANNEL2USB`: `type`, `pPath`, 0.
 * @param pPath Path of the file.
 * @param type Kind of channels as the service numbers it.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_factory_copyPresetChannelDB2USB(char* pPath, int type);

/**
 * Presets the channels by a named list.
 * Sets the text item `CMDID_FACTORY_PRESETCHANNEL`: 0, `pName`, 0.
 * @param pName Name of the list.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_factory_presetChannel(char* pName);

/**
 * Hands over the data of an update over the air.
 * Sets the text item `CMDID_FACTORY_SET_OTA_UPDATE`: `bUpdate`, `pData`, 0.
 * @param pData Text of the update as the service defines it.
 * @param bUpdate True asks for the update.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setOtaUpdate(char* pData, bool bUpdate);

/**
 * Sends the result of the self check out of the serial port.
 * Sets the text item `CMDID_FACTORY_SEND_SERIAL_SELF_CHECK_DATA`: 0, `checkDataStr`, 0.
 * @param checkDataStr Result as text.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_sendSelfCheckData(char* checkDataStr);

/** @} */

#ifdef __cplusplus
}
#endif

#endif
