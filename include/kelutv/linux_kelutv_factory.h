/**
 * @file
 * Factory and service functions: calibration, panel and memory tuning, test patterns, identity, keys, transfer.
 *
 * A function is one command to the TV base service, which owns all values. It blocks until the service has answered and
 * may be called from any thread. A `bool` travels as 0 or 1. A set command whose link fails is logged as
 * "invoke failure\n"; what else is logged is said at the methods of `Factory`. The one thing kept here is the pattern
 * of `linux_tv_Factory_setWBWhitePattern`; of several threads that set it the last one's is kept.
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
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_autoCalibration(void);

/**
 * Reads the gains and offsets of the analogue converter.
 * @param srcId Source, one of `KELU_TV_SRC_E`.
 * @param pstInfo Receives the record, zeros on failure.
 * @return 0, also on failure; -1 for a null record, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_getADCGainOffset(int srcId, CalibrationInfo* pstInfo);

/**
 * Sets the gains and offsets of the analogue converter.
 * @param srcId Source, one of `KELU_TV_SRC_E`.
 * @param info Gains and offsets; the service enforces the ranges.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setADCGainOffset(int srcId, CalibrationInfo info);

/**
 * Reads the gains and offsets of a colour temperature.
 * @param colorTempLevel Colour temperature, one of `KELU_TV_COLORTEMP_E`.
 * @param pstColorTemp Receives the record, zeros on failure.
 * @return 0, also on failure; -1 for a null record, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_getColorTemp(int colorTempLevel, ColorTempData* pstColorTemp);

/**
 * Sets the gains and offsets of the colour temperature.
 * @param srcId Source by its name, one of `KELU_TV_SRC_E`; the reading operation has a colour temperature in its place.
 * @param info Gains and offsets; the service enforces the ranges.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setColorTemp(int srcId, ColorTempData info);

/**
 * Reads the five points of a non-linear curve.
 * @param item Curve as the service numbers it.
 * @param pstNlaInfo Receives the points, zeros on failure.
 * @param srcId Source.
 * @return 0, also on failure; -1 for a null record, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_getNLAPoint(int item, NlaInfo* pstNlaInfo, KELU_TV_SRC_E srcId);

/**
 * Sets the five points of a non-linear curve.
 * @param item Curve as the service numbers it.
 * @param info Points; the service enforces the ranges.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setNLAPoint(int item, NlaInfo info);

/**
 * Asks for the non-linear curves to be applied to the sources.
 * Prints "updataNLAToSource\n" to standard error first.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_updataNLAToSource(void);

/**
 * Restores the colour temperatures to their defaults.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_restoreColorTemp(void);

/**
 * Reads the debug information on the automatic colour temperature.
 * @param colorTemp Colour temperature as the service numbers it.
 * @param pStr Receives the text, terminator included, and must have room for all the service sends, 1,040,380 bytes at
 * most; untouched on failure.
 * @return 0; -1 when the service or the link fails or there is no text, and for null, with nothing sent.
 */
KELUTV_API int getAutoColorTempDebugInfo(int colorTemp, char* pStr);

/**
 * Shows a plain colour for the white balance, or ends it.
 * @param onoff True shows the colour.
 * @param red Red; the service enforces the range.
 * @param green Green; the service enforces the range.
 * @param blue Blue; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setWhiteBalanceColor(bool onoff, int red, int green, int blue);

/**
 * Shows a pattern of the white balance, or ends it.
 * Any other type prints "unhandled cmd type = %d" without a line end to standard output and sends nothing.
 * @param type One of `KELU_TV_PATTERN_TYPE_E`, which `linux_tv_Factory_getWBWhitePattern` then gives, whatever the
 * result.
 * @return The service's result, 0 for success; -1 when the link fails; 0 for any other type.
 */
KELUTV_API int linux_tv_Factory_setWBWhitePattern(int type);

/**
 * Gives the pattern of the white balance that this process has last asked for.
 * @return One of `KELU_TV_PATTERN_TYPE_E`; 0 before the first pattern.
 */
KELUTV_API int linux_tv_Factory_getWBWhitePattern(void);

/**
 * Tells whether the main chip supports the patterns of the white balance.
 * @return 0 for the service's 0; 1 for any other answer, a failure included.
 */
KELUTV_API int linux_tv_Factory_isSupportSocWhiteBalancePattern(void);

/**
 * Enters the white balance by infrared.
 * @return The service's answer; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_factory_enterIrWBAdj(void);

/**
 * Reads the status of the white balance by infrared.
 * @return The status; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getIRWBStatus(void);

/**
 * Reads the status of the white balance by infrared.
 * @param pResult Receives the status, -1 on failure; may be null.
 * @return 0 in every case.
 */
KELUTV_API int linux_tv_factory_getIRWBStatus(int* pResult);

/**
 * Sets the gamma value of the picture processing.
 * Prints "pqSetGammaValue\n" to standard error first.
 * @param value Gamma value; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_pqSetGammaValue(int value);

/**
 * Reads the version of the picture processing data.
 * The text is printed to standard error.
 * @param pPQBinVersion Receives the text, terminator included, and must have room for all the service sends, 1,040,380
 * bytes at most; untouched on failure.
 * @return 0; -1 when the service or the link fails, and for null, after the command was sent.
 */
KELUTV_API int linux_tv_Factory_getPQBinVersion(char* pPQBinVersion);

/**
 * Sends a control code to the picture processing.
 * @param cmdID Control code, one of `KELU_TV_PQ_IOCTL_CMD_E`.
 * @param pParm Not used; may be null.
 * @return 0; -1, with "pqIoCtl error" on standard error, for any other result of the service and when the link fails.
 */
KELUTV_API int linux_tv_Factory_pqIoCtl(KELU_TV_PQ_IOCTL_CMD_E cmdID, void* pParm);

/** @} */

/**
 * @name Overscan, panel and memory spread, patterns
 * @{
 */

/**
 * Reads the overscan rectangle.
 * @param pRect Receives the rectangle, zeros on failure.
 * @return 0, also on failure; -1 for a null record, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_getOverscan(KeluRect* pRect);

/**
 * Sets the overscan rectangle.
 * @param rect Position and size; the service enforces the ranges.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setOverscan(KeluRect rect);

/**
 * Tells whether the output of the panel interface is on.
 * @return 0 for the service's 0; 1 for any other answer, a failure included.
 */
KELUTV_API int linux_tv_Factory_getPanelIntfOutEnable(void);

/**
 * Switches the output of the panel interface on or off.
 * @param onoff True switches it on.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setPanelIntfOutEnable(bool onoff);

/**
 * Tells whether the spread spectrum of the panel interface is on.
 * @return 0 for the service's 0; 1 for any other answer, a failure included.
 */
KELUTV_API int linux_tv_Factory_getPanelSpreadEnable(void);

/**
 * Switches the spread spectrum of the panel interface on or off.
 * @param onoff True switches it on.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setPanelSpreadEnable(bool onoff);

/**
 * Reads the spread ratio of the panel interface.
 * @return The ratio; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getPanelSpreadRatio(void);

/**
 * Sets the spread ratio of the panel interface.
 * @param ratio Ratio; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setPanelSpreadRatio(int ratio);

/**
 * Reads the spread frequency of the panel interface.
 * @return The frequency; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getPanelSpreadFreq(void);

/**
 * Sets the spread frequency of the panel interface.
 * @param freq Frequency; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setPanelSpreadFreq(int freq);

/**
 * Reads the drive current of the panel interface.
 * @return The current; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getPanelDrvCurrent(void);

/**
 * Sets the drive current of the panel interface.
 * @param current Current; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setPanelDrvCurrent(int current);

/**
 * Reads the common voltage of the panel interface.
 * @return The voltage; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getPanelComVoltage(void);

/**
 * Sets the common voltage of the panel interface.
 * @param voltage Voltage; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setPanelComVoltage(int voltage);

/**
 * Reads the emphasis of the panel interface.
 * @return The emphasis; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getPanelEmphasis(void);

/**
 * Sets the emphasis of the panel interface.
 * @param ems Emphasis; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setPanelEmphasis(int ems);

/**
 * Tells whether the spread spectrum of the memory interface is on.
 * @return 0 for the service's 0; 1 for any other answer, a failure included.
 */
KELUTV_API int linux_tv_Factory_isDdrSpreadEnable(void);

/**
 * Switches the spread spectrum of the memory interface on or off.
 * @param onoff True switches it on.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_enableDdrSpread(bool onoff);

/**
 * Reads the spread ratio of the memory interface.
 * @return The ratio; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getDdrSpreadRatio(void);

/**
 * Sets the spread ratio of the memory interface.
 * @param ratio Ratio; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setDdrSpreadRatio(int ratio);

/**
 * Reads the spread frequency of the memory interface.
 * @return The frequency; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getDdrSpreadFreq(void);

/**
 * Sets the spread frequency of the memory interface.
 * @param freq Frequency; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setDdrSpreadFreq(int freq);

/**
 * Reads the gamma curve.
 * @return The curve as the service numbers it; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getGamma(void);

/**
 * Sets the gamma curve.
 * @param gamma Curve as the service numbers it.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setGamma(int gamma);

/**
 * Reads the test pattern.
 * @return One of `KELU_TV_PATTERN_E`; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getTestPattern(void);

/**
 * Sets the test pattern.
 * @param index One of `KELU_TV_PATTERN_E`.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setTestPattern(int index);

/**
 * Reads the index of the panel.
 * @return The index of the panel; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getPanelIndex(void);

/**
 * Sets the index of the panel.
 * @param index Index of the panel; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setPanelIndex(int index);

/**
 * Reads how the picture is flipped and mirrored.
 * @return The flip as the service numbers it; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getPanelFlipMirror(void);

/**
 * Sets how the picture is flipped and mirrored.
 * @param flip Flip as the service numbers it.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setPanelFlipMirror(int flip);

/**
 * Sets the test pattern of the external picture chip.
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
 * @return The duty; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getBackLightPwmMax(void);

/**
 * Sets the highest duty of the backlight.
 * @param pwmMax Duty; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setBackLightPwmMax(int pwmMax);

/**
 * Reads the lowest duty of the backlight.
 * @return The duty; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getBackLightPwmMin(void);

/**
 * Sets the lowest duty of the backlight.
 * @param pwmMin Duty; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setBackLightPwmMin(int pwmMin);

/**
 * Reads the delta value of the dream panel.
 * @return The delta value; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getDreamPanelDeltaValue(void);

/**
 * Sets the delta value of the dream panel.
 * @param tmpValue Delta value; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setDreamPanelDeltaValue(int tmpValue);

/**
 * Reads the dream panel's offset of the lowest backlight.
 * @return The offset; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getDPBLMinOffset(void);

/**
 * Sets the dream panel's offset of the lowest backlight.
 * @param tmpValue Offset; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setDPBLMinOffset(int tmpValue);

/**
 * Reads the disturbing mode of the LED.
 * @return One of `KELU_TV_LED_DISTURBING_MODE_E`; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getLedDisturbingMode(void);

/**
 * Sets the disturbing mode of the LED.
 * @param mode One of `KELU_TV_LED_DISTURBING_MODE_E`.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setLedDisturbingMode(int mode);

/**
 * Sets the state of the breathing LED.
 * @param arg1 First value as the service defines it.
 * @param arg2 Second value as the service defines it.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setBreathePlatformStatus(int arg1, int arg2);

/**
 * Reads whether the pixel shift of the OLED panel is on.
 * @return 0 for off, 1 for on; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getOLEDPixelShiftEnable(void);

/**
 * Switches the pixel shift of the OLED panel on or off.
 * @param enable 0 for off, 1 for on.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setOLEDPixelShiftEnable(int enable);

/**
 * Reads which line overdrive table is in use.
 * @return The index of the table; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getLineODIndex(void);

/**
 * Chooses the line overdrive table.
 * @param tmpIndex Index of the table; the service enforces the range.
 * @return 0 for success; 1 for any other result, a failure included.
 */
KELUTV_API int linux_tv_Factory_setLineODIndex(int tmpIndex);

/**
 * Reads the names of the line overdrive tables.
 * @param pTable Room for one record for each name the service sends, nine at most. A name stands at the start of a
 * record of its own, cut to ten bytes and then without a terminator; only the first record is cleared before. May be
 * null.
 * @return 0; -1 with nothing written when there is no name or the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getLineODListTable(BOE_OD_TableInfo* pTable);

/**
 * Sets one of the LEDs.
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
 * @return 0 for the service's 0; 1 for any other answer, a failure included.
 */
KELUTV_API int linux_tv_Factory_isATVIniChnEnable(void);

/**
 * Switches the initial analogue channels on or off.
 * @param onoff True switches them on.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_enableATVIniChn(bool onoff);

/**
 * Reads the over-modulation mode.
 * @return The mode; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getOverModulation(void);

/**
 * Sets the over-modulation mode.
 * @param over Mode as the service numbers it.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setOverModulation(int over);

/**
 * Reads the frequency offset of the tuner.
 * @return The offset; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getFrequencyOffset(void);

/**
 * Sets the frequency offset of the tuner.
 * @param offset Offset; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setFrequencyOffset(int offset);

/**
 * Reads the bandwidth of the tuner.
 * @return The bandwidth; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getTunerBandwidth(void);

/**
 * Sets the bandwidth of the tuner.
 * @param bandwidth Bandwidth; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setTunerBandwidth(int bandwidth);

/**
 * Reads the threshold of the noise reduction.
 * @return The threshold; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getNRThreshold(void);

/**
 * Sets the threshold of the noise reduction.
 * @param level Threshold; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setNRThreshold(int level);

/**
 * Reads the threshold of the automatic volume control.
 * @return The threshold; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getAVCThreshold(void);

/**
 * Sets the threshold of the automatic volume control.
 * @param level Threshold; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setAVCThreshold(int level);

/**
 * Reads the parametric equaliser of the sound.
 * @param pSoundPeq Receives the record, zeros on failure.
 * @return 0, also on failure; -1 for a null record, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_getSoundPEQ(SoundPeqData* pSoundPeq);

/**
 * Sets the parametric equaliser of the sound.
 * @param info Frequencies, gains and qualities; the service enforces the ranges.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setSoundPEQ(SoundPeqData info);

/**
 * Reads the volume curve.
 * @param pSoundCurve Room for `length` doubles; all are written, 0 where the service sent less. Untouched on failure.
 * @param length How many numbers to read; sent as it is, and below 1 none is read.
 * @return 0; -1 when the service or the link fails, and for a null `pSoundCurve`, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_getSoundCurve(double* pSoundCurve, int length);

/**
 * Sets the volume curve.
 * @param info `length` numbers.
 * @param length How many numbers to send; sent as it is, and below 1 no number behind it.
 * @return The service's result, 0 for success; -1 when the link fails, and for a null `info`, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_setSoundCurve(double* info, int length);

/**
 * Reads the control points of the volume curve.
 * @param soundCurveCtlData Receives the points. Must have room for all that the service sends, 260,094 at most, and for
 * 255 at least: of a count above what it sends the rest is 0, up to the 255th. Untouched on failure.
 * @param volumeNum Receives their count as the service gives it; untouched on failure.
 * @return 0; -1 when the service or the link fails, and for a null pointer, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_getSoundCurveCtlData(int* soundCurveCtlData, int* volumeNum);

/**
 * Reads the control points of the headphones' volume curve.
 * @param soundCurveCtlData Receives the points. Must have room for all that the service sends, 260,094 at most, and for
 * 255 at least: of a count above what it sends the rest is 0, up to the 255th. Untouched on failure.
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
 * @param itemid One of `KELU_TV_NONSTAND_TPYE_E`.
 * @return The value; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getNonStandardItemValue(int itemid);

/**
 * Sets one non-standard item.
 * @param itemid One of `KELU_TV_NONSTAND_TPYE_E`.
 * @param value Value; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setNonStandardItemValue(int itemid, int value);

/**
 * Reads one performance item.
 * @param itemid Item as the service numbers it.
 * @return The value; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getPerformanceItemValue(int itemid);

/**
 * Sets one performance item.
 * @param itemid Item as the service numbers it.
 * @param value Value; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setPerformanceItemValue(int itemid, int value);

/**
 * Reads one of the other items.
 * @param itemid Item as the service numbers it.
 * @return The value; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getOtherItemValue(int itemid);

/**
 * Sets one of the other items.
 * @param itemid Item as the service numbers it.
 * @param value Value; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setOtherItemValue(int itemid, int value);

/**
 * Sets a factory item.
 * @param cmdID Item of the factory module, one of `KELU_TV_CMDID_E`.
 * @param param1,param2,param3,param4 What the item defines.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setFactoryItemValue(int cmdID, int param1, int param2, int param3, int param4);

/**
 * Reads a factory item.
 * @param cmdID Item of the factory module, one of `KELU_TV_CMDID_E`.
 * @param param1,param2 What the item defines.
 * @param pBuf Room for 255 ints (1,020 bytes); all are written, 0 where the service sent less. Untouched on failure.
 * @return 0; -1 when the service or the link fails, and for a null `pBuf`, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_getFactoryItemValue(int cmdID, int param1, int param2, int* pBuf);

/**
 * Sets a factory item that is a text.
 * @param cmdID Item of the factory module, one of `KELU_TV_CMDID_E`.
 * @param param1,param2 What the item defines.
 * @param stringParam The text.
 * @return The service's result, 0 for success; -1 when the link fails, and for a null `stringParam`, with nothing
 * sent.
 */
KELUTV_API int linux_tv_Factory_setFactoryItemStrValue(int cmdID, int param1, int param2, const char* stringParam);

/**
 * Reads a factory item that is a text.
 * @param cmdID Item of the factory module, one of `KELU_TV_CMDID_E`.
 * @param param1,param2 What the item defines.
 * @param pStr Receives the text, terminator included, and must have room for all the service sends, 1,040,380 bytes at
 * most; untouched on failure.
 * @return 0; -1 when the service or the link fails or there is no text, and for a null `pStr`, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_getFactoryItemStrValue(int cmdID, int param1, int param2, char* pStr);

/** @} */

/**
 * @name Power, modes and maintenance
 * @{
 */

/**
 * Switches the ageing mode on or off.
 * @param onoff True switches it on.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_enableAgingMode(bool onoff);

/**
 * Tells whether the ageing mode is on.
 * @return 0 for the service's 0; 1 for any other answer, a failure included.
 */
KELUTV_API int linux_tv_Factory_isAgingModeEnable(void);

/**
 * Resets the non-volatile memory.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_resetNVM(void);

/**
 * Resets the analogue channels.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_resetAtvChannel(void);

/**
 * Starts to record the transport stream.
 * @param pathName Path of the recording.
 * @return The service's result, 0 for success; -1 when the link fails, and for a null `pathName`, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_startRecorderTsStream(const char* pathName);

/**
 * Ends the recording of the transport stream.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_stopRecorderTsStream(void);

/**
 * Tells whether the watchdog is on.
 * @return 0 for the service's 0; 1 for any other answer, a failure included.
 */
KELUTV_API int linux_tv_Factory_isWdtEnable(void);

/**
 * Switches the watchdog on or off.
 * @param onoff True switches it on.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_enableWdt(bool onoff);

/**
 * Tells whether the serial port is on.
 * @return 0 for the service's 0; 1 for any other answer, a failure included.
 */
KELUTV_API int linux_tv_Factory_isUartEnable(void);

/**
 * Switches the serial port on or off.
 * @param onoff True switches it on.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_enableUart(bool onoff);

/**
 * Starts an upgrade of the system.
 * Logs "d%\n" at error priority under the tag "TVBASEMW@linuxFactory" first.
 * @param mode Kind of upgrade as the service numbers it.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_upgradeSystem(int mode);

/**
 * Reads the power-on mode.
 * @return The mode; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getPoweronMode(void);

/**
 * Sets the power-on mode.
 * @param mode Mode as the service numbers it.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setPoweronMode(int mode);

/**
 * Switches the music at power-on on or off.
 * @param onoff True switches it on.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_enablePowerMusic(bool onoff);

/**
 * Tells whether the music at power-on is on.
 * @return 0 for the service's 0; 1 for any other answer, a failure included.
 */
KELUTV_API int linux_tv_Factory_isPowerMusicEnable(void);

/**
 * Reads the volume of the music at power-on.
 * @return The volume; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getPowerMusicVol(void);

/**
 * Sets the volume of the music at power-on.
 * @param val Volume; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setPowerMusicVol(int val);

/**
 * Reads the suspend mode.
 * @return The mode; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getSuspendMode(void);

/**
 * Sets the suspend mode.
 * @param mode Mode as the service numbers it.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setSuspendMode(int mode);

/**
 * Sets the suspend mode by the inner command.
 * @param mode Mode as the service numbers it.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setSuspendModeInner(int mode);

/**
 * Restores the factory state.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_restoreFactory(void);

/**
 * Restores the factory settings.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_restoreFactorySetting(void);

/**
 * Reads the mode of the serial port.
 * @return The mode; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getUartMode(void);

/**
 * Sets the mode of the serial port.
 * @param mode Mode as the service numbers it.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setUartMode(int mode);

/**
 * Reads the mode of the single key.
 * @return The mode; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getSingleKeyMode(void);

/**
 * Sets the mode of the single key.
 * @param mode Mode as the service numbers it.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setSingleKeyMode(int mode);

/**
 * Reads the customer code of the remote control.
 * @return The code; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getIrCustomCode(void);

/**
 * Sets the customer code of the remote control.
 * @param num Code; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setIrCustomCode(int num);

/**
 * Tells whether the board is marked as repaired.
 * @return 0 for the service's 0; 1 for any other answer, a failure included.
 */
KELUTV_API int linux_tv_Factory_getRepairedBoard(void);

/**
 * Marks the board as repaired, or not.
 * @param onoff True marks it.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setRepairedBoard(bool onoff);

/**
 * Saves, restores or updates the data of the flash EEPROM.
 * @param oper One of `KELU_TV_OPERATEFLASHEEPROM`.
 * @param pathName Path of the file.
 * @return The service's result, 0 for success; -1 when the link fails, and for a null `pathName`, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_operateFlashEEPROM(int oper, const char* pathName);

/**
 * Resets the working time.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_resetWorkingTime(void);

/**
 * Reads the status of the wireless network test.
 * @return The status; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getWifiTestStatus(void);

/**
 * Sets the status of the wireless network test.
 * @param value Status as the service numbers it.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setWifiTestStatus(int value);

/**
 * Sets the result of the Bluetooth test.
 * @param value Result as the service numbers it.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setBTTestResult(int value);

/**
 * Reads the type of the display identification data (EDID).
 * The type is printed to standard output.
 * @param pType Receives one of `KELU_TV_EDID_TYPE_E`, -1 on failure; may be null.
 * @return 0 in every case.
 */
KELUTV_API int linux_tv_factory_getEDIDType(int* pType);

/**
 * Sets the type of the display identification data (EDID).
 * The type is printed to standard output first.
 * @param type One of `KELU_TV_EDID_TYPE_E`.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_factory_setEDIDType(int type);

/**
 * Hands the service a text for the serial port.
 * Prints the line "setUartData" to standard output first.
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
 * @param str Receives the text, terminator included, and must have room for all the service sends, 1,040,380 bytes at
 * most; "default" when the service or the link fails or there is no text.
 * @return 0, also on failure; -1 for null, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_getPlatform(char* str);

/**
 * Reads the date of the EEPROM.
 * @param pStr Receives the text, terminator included, and must have room for all the service sends, 1,040,380 bytes at
 * most; "date error" when the service or the link fails or there is no text.
 * @return 0 in every case, also for a null `pStr`, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_getEepromDate(char* pStr);

/**
 * Reads the bar code of the set.
 * @param pStr Receives the text, terminator included, and must have room for all the service sends, 1,040,380 bytes at
 * most; "error barcode" when the service or the link fails or there is no text.
 * @return 0 in every case, also for a null `pStr`, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_getBarCode(char* pStr);

/**
 * Reads the identifier of the panel.
 * @param pStr Receives the text, terminator included, and must have room for all the service sends, 1,040,380 bytes at
 * most; "error panelId" when the service or the link fails or there is no text.
 * @return 0, also on failure; -1 for null, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_getPanelID(char* pStr);

/**
 * Reads the address of the network port.
 * @param pStr Receives the text, terminator included, and must have room for all the service sends, 1,040,380 bytes at
 * most; "error mac" when the service or the link fails or there is no text.
 * @return 0, also on failure; -1 for null, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_getMacAddress(char* pStr);

/**
 * Sets the address of the network port.
 * @param pMacAddr `length` numbers, one for each part of the address. Null sends none.
 * @param length How many numbers to send; sent as it is, and below 1 no number behind it.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setMacAddress(int* pMacAddr, int length);

/**
 * Reads the identifier of the eMMC memory.
 * @param pStr Receives the text, terminator included, and must have room for all the service sends, 1,040,380 bytes at
 * most; "error_emmc_id" without a terminator, so that the buffer should be zeroed before, when the service or the link
 * fails or there is no text.
 * @return 0, also on failure; -1 for a null `pStr`, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_getEmmcID(char* pStr);

/**
 * Reads the identifier of the main chip.
 * @param pStr Receives the text, terminator included, and must have room for all the service sends, 1,040,380 bytes at
 * most; "error_chip_id" without a terminator, so that the buffer should be zeroed before, when the service or the link
 * fails or there is no text.
 * @return 0, also on failure; -1 for a null `pStr`, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_getSocChipID(char* pStr);

/**
 * Reads the version of the inner timing controller.
 * @param pStr Receives the text, terminator included, and must have room for all the service sends, 1,040,380 bytes at
 * most; "error_inner_tcon_ver" without a terminator, so that the buffer should be zeroed before, when the service or
 * the link fails or there is no text.
 * @return 0, also on failure; -1 for a null `pStr`, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_getInnerTconVersion(char* pStr);

/**
 * Reads the version of the external motion compensation.
 * @param pStr Receives the text, terminator included, and must have room for all the service sends, 1,040,380 bytes at
 * most; "error_external_memc_ver" without a terminator, so that the buffer should be zeroed before, when the service or
 * the link fails or there is no text.
 * @return 0, also on failure; -1 for a null `pStr`, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_getExternalMemcVersion(char* pStr);

/**
 * Reads the version of the panel's picture processing.
 * @param pStr Receives the text, terminator included, and must have room for all the service sends, 1,040,380 bytes at
 * most; "error_panel_pq_ver" without a terminator, so that the buffer should be zeroed before, when the service or the
 * link fails or there is no text.
 * @return 0, also on failure; -1 for a null `pStr`, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_getPanelPQVersion(char* pStr);

/**
 * Reads the version of the panel's data.
 * @param pStr Receives the text, terminator included, and must have room for all the service sends, 1,040,380 bytes at
 * most; "error_external_panel_ver" without a terminator, so that the buffer should be zeroed before, when the service
 * or the link fails or there is no text.
 * @return 0, also on failure; -1 for a null `pStr`, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_getPanelDataVersion(char* pStr);

/**
 * Reads the number of USB disks.
 * @param pBuf Receives the number, 0 where the service sent none; untouched on failure.
 * @return 0; -1 when the service or the link fails, and for a null `pBuf`, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_getUDiskNum(int* pBuf);

/**
 * Reads how long the system has been up.
 * @param pBuf Room for 2 ints, as the service defines them; both are written, 0 where the service sent less. Untouched
 * on failure.
 * @return 0; -1 when the service or the link fails, and for a null `pBuf`, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_getSystemupTime(int* pBuf);

/**
 * Hands the service the time that the network gave.
 * @param time The time as a text.
 * @return The service's result, 0 for success; -1 when the link fails, and for a null `time`, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_setInternetTime(const char* time);

/**
 * Reads the time that the network gave.
 * @param pStr Receives the text, terminator included, and must have room for all the service sends, 1,040,380 bytes at
 * most; "19700101" without a terminator, so that the buffer should be zeroed before, when the service or the link fails
 * or there is no text.
 * @return 0, also on failure; -1 for a null `pStr`, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_getInternetTime(char* pStr);

/**
 * Reads how many USB ports the platform supports.
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
 * @param pBuf Room for 32 ints, in the service's order; all are written, 0 where the service sent less. Untouched on
 * failure.
 * @return 0; -1 when the service or the link fails, and for a null `pBuf`, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_getBurnKeyStatus(int* pBuf);

/**
 * Burns data into one-time programmable memory and reads the serial number.
 * @param CaCardKind One of `KELU_TV_OPT_CA_TYPE_E`.
 * @param str The data, a text.
 * @param retSnData Receives the serial number, terminator included, and must have room for all the service sends,
 * 1,040,380 bytes at most; untouched on failure.
 * @return 0; -1 when the service or the link fails or there is no serial number, and for a null `str` or `retSnData`,
 * with nothing sent.
 */
KELUTV_API int linux_tv_Factory_setStbOtpBurn(int CaCardKind, const char* str, char* retSnData);

/**
 * Reads a serial number of digital television.
 * @param cmdId One of `KELU_TV_DTV_SN_E`.
 * @param retSnData Receives the serial number, terminator included, and must have room for all the service sends,
 * 1,040,380 bytes at most; untouched on failure.
 * @return 0; -1 when the service or the link fails, and for a null `retSnData`, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_getDtvSn(int cmdId, char* retSnData);

/**
 * Reads whether the RSA key is burnt into the one-time programmable memory.
 * @return The status; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getIsBurnOtpRsa(void);

/**
 * Reads which kinds of key are there to be burnt.
 * Prints "get tv BurnKeyType fail,path is null,return -1" to standard output for a null pointer.
 * @param path Path of the keys.
 * @param pSupportKeyList Receives the kinds, of `KELU_TV_MUL_KEY_E`, in the service's order. Must have room for all
 * the service sends, which alone bounds what is written: 260,095 at most. Untouched without an entry.
 * @param length Receives their count, 0 without an entry.
 * @return 0; -1 when there is no entry or the service or the link fails, and for a null pointer, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_getBurnKeyType(const char* path, int* pSupportKeyList, int* length);

/**
 * Tells the service that an external device was plugged in.
 * Prints "linux_tv_Factory_ExDevInserted enter\n" to standard output first.
 * @param pData Text as the service defines it.
 * @return The service's answer; -1 when the service or the link fails, and for null, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_ExDevInserted(const char* pData);

/**
 * Hands over the data of a key.
 * @param type One of `KELU_TV_MUL_KEY_E`.
 * @param pData `length` numbers. Null sends none.
 * @param length How many numbers to send; sent as it is, and below 1 no number behind the header.
 * @param checksum Sum over the data, as the caller computed it.
 * @param xorchecksum Exclusive or over the data, as the caller computed it.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setKeyData(int type, int* pData, int length, int checksum, int xorchecksum);

/**
 * Hands over data of the network port.
 * @param type One of `KELU_TV_NETDATATRAN_TPYE_E`.
 * @param pData `length` numbers. Null sends none.
 * @param length How many numbers to send; sent as it is, and below 1 no number behind the header.
 * @param checksum Sum over the data, as the caller computed it.
 * @param xorchecksum Exclusive or over the data, as the caller computed it.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setNetPortDataTransmission(int type, int* pData, int length, int checksum,
                                                           int xorchecksum);

/**
 * Reads data of the network port.
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
 * @return 0 for the service's 0; 1 for any other answer, a failure included.
 */
KELUTV_API int linux_tv_Factory_isSupportRouter(void);

/**
 * Tells whether a cable modem is supported.
 * @return 0 for the service's 0; 1 for any other answer, a failure included.
 */
KELUTV_API int linux_tv_Factory_isSupportCableModem(void);

/**
 * Tells whether a wireless network is supported.
 * @return 0 for the service's 0; 1 for any other answer, a failure included.
 */
KELUTV_API int linux_tv_Factory_isSupportWifi(void);

/**
 * Tells whether Ethernet over coaxial cable is supported.
 * @return 0 for the service's 0; 1 for any other answer, a failure included.
 */
KELUTV_API int linux_tv_Factory_isSupportEOC(void);

/**
 * Reads the mode of the device.
 * @return The mode as the service numbers it; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getDeviceMode(void);

/**
 * Reads whether the set is made for an operator.
 * @return The answer; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_isOperatorCustomized(void);

/**
 * Tells whether an external chip is supported.
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
 * @return The pattern as the service numbers it; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getLaserTVTestPattern(void);

/**
 * Sets the test pattern of the laser projector.
 * @param pattern Pattern as the service numbers it.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setLaserTVTestPattern(int pattern);

/**
 * Reads the index of a colour wheel.
 * @param wheel Wheel as the service numbers it.
 * @return The index; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getLaserWheelIndex(int wheel);

/**
 * Sets the index of a colour wheel.
 * @param wheel Wheel as the service numbers it.
 * @param index Index; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setLaserWheelIndex(int wheel, int index);

/**
 * Moves the motor of the laser projector.
 * @param move Movement as the service numbers it.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setMotorMove(int move);

/**
 * Reads the brightness mode of the laser projector.
 * @return The mode; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getLaserBrightMode(void);

/**
 * Sets the brightness mode of the laser projector.
 * @param mode Mode as the service numbers it.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setLaserBrightMode(int mode);

/**
 * Reads the output mode of the laser projector.
 * @return The mode; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getLaserPonputMode(void);

/**
 * Sets the output mode of the laser projector.
 * @param mode Mode as the service numbers it.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setLaserPonputMode(int mode);

/**
 * Tells whether the eye shield mode of the laser projector is on.
 * @return 0 for the service's 0; 1 for any other answer, a failure included.
 */
KELUTV_API int linux_tv_Factory_getLaserEyeShieldMode(void);

/**
 * Switches the eye shield mode of the laser projector on or off.
 * @param mode True switches it on.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setLaserEyeShieldMode(bool mode);

/**
 * Reads the version of a firmware of the laser projector.
 * @param type Firmware as the service numbers it.
 * @param pStr Receives the text, terminator included, and must have room for all the service sends, 1,040,380 bytes at
 * most; "error" without a terminator, so that the buffer should be zeroed before, when the service or the link fails or
 * there is no text.
 * @return 0, also on failure; -1 for a null `pStr`, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_getLaserFWVersion(int type, char* pStr);

/**
 * Sets one item of the laser projector.
 * @param cmdID Item as the service numbers it.
 * @param param1,param2,param3,param4 What the item defines.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setLaserItemValue(int cmdID, int param1, int param2, int param3, int param4);

/**
 * Reads one item of the laser projector.
 * @param cmdID Item as the service numbers it.
 * @param param What the item defines.
 * @param pBuf Receives the value, 0 where the service sent none; untouched on failure.
 * @return 0; -1 when the service or the link fails, and for a null `pBuf`, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_getLaserItemValue(int cmdID, int param, int* pBuf);

/**
 * Sets one item of the laser projector that is a text.
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
 * @param channel Channel of the chip.
 * @param cmdId Item as the service numbers it.
 * @return The value; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getNTPQItemValue(int channel, int cmdId);

/**
 * Sets one item of the external picture chip.
 * @param channel Channel of the chip.
 * @param cmdId Item as the service numbers it.
 * @param value Value; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setNTPQItemValue(int channel, int cmdId, int value);

/**
 * Reads the version of the external picture chip.
 * @param pStr Receives the text, terminator included, and must have room for all the service sends, 1,040,380 bytes at
 * most; untouched on failure and when there is no text.
 * @return 0, also when there is no text; -1 when the service or the link fails, and for a null `pStr`, with nothing
 * sent.
 */
KELUTV_API int linux_tv_Factory_getNTPQPlatFormVer(char* pStr);

/**
 * Upgrades the external picture chip.
 * @param chipId Chip as the service numbers it.
 * @param path Path of the image.
 * @return The service's result, 0 for success; -1 when the link fails, and for a null `path`, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_upgradeNTPQIC(int chipId, const char* path);

/**
 * Reads the answer of the NT72315 chip to a command.
 * @param mainCmd Main command as the chip numbers it.
 * @param subCmd Subordinate command as the chip numbers it.
 * @param value Value of the command.
 * @return The answer; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getNT72315Command(int mainCmd, int subCmd, int value);

/**
 * Sends a command to the NT72315 chip.
 * @param mainCmd Main command as the chip numbers it.
 * @param subCmd Subordinate command as the chip numbers it.
 * @param value Value of the command.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setNT72315Command(int mainCmd, int subCmd, int value);

/**
 * Reads the version of the EP9169 chip.
 * @param pVersion Receives the text, terminator included, and must have room for all the service sends, 1,040,380 bytes
 * at most; untouched on failure and when there is no text.
 * @return 0, also when there is no text; -1 when the service or the link fails, and for a null `pVersion`, with nothing
 * sent.
 */
KELUTV_API int linux_tv_Factory_getEP9169PlatFormVer(char* pVersion);

/**
 * Upgrades the EP9169 chip.
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
 * @param type One of `KELU_TV_MACHINE_INFO_E`.
 * @param info Receives the text, terminator included, and must have room for all the service sends, 1,040,380 bytes at
 * most; untouched on failure.
 * @return 0; -1 when the service or the link fails, and for null, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_getMachineInfo(int type, char* info);

/**
 * Sets a text about the machine.
 * @param type One of `KELU_TV_MACHINE_INFO_E`.
 * @param info The text. Null is sent as the empty text.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setMachineInfo(int type, char* info);

/**
 * Reads the number of the product.
 * @param PID Receives the text, terminator included, and must have room for all the service sends, 1,040,380 bytes at
 * most; untouched on failure.
 * @return 0; -1 when the service or the link fails, and for null, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_getProductNumber(char* PID);

/**
 * Reads the number of the order.
 * @param OrderNum Receives the text, terminator included, and must have room for all the service sends, 1,040,380 bytes
 * at most; untouched on failure.
 * @return 0; -1 when the service or the link fails, and for null, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_getOrderNumber(char* OrderNum);

/**
 * Reads the identity of the developer.
 * @param pData Receives the text, terminator included, and must have room for all the service sends, 1,040,380 bytes at
 * most; untouched on failure.
 * @return 0; -1 when the service or the link fails, and for null, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_getDeveloperID(char* pData);

/**
 * Reads the identity of the product.
 * @param pData Receives the text, terminator included, and must have room for all the service sends, 1,040,380 bytes at
 * most; untouched on failure.
 * @return 0; -1 when the service or the link fails, and for null, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_getProductID(char* pData);

/**
 * Reads a password.
 * @param type One of `KELU_TV_PASSWORD_TYPE_E`.
 * @param pwd Receives the text, terminator included, and must have room for all the service sends, 1,040,380 bytes at
 * most; untouched on failure.
 * @return 0; -1 when the service or the link fails, and for null, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_getPassWord(int type, char* pwd);

/**
 * Reads the version of the separate data.
 * @param ver Receives the text, terminator included, and must have room for all the service sends, 1,040,380 bytes at
 * most; untouched on failure.
 * @return 0; -1 when the service or the link fails, and for null, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_getSeperateDataVer(char* ver);

/**
 * Reads the country.
 * @param country Receives the country as the service numbers it, 0 on failure; may be null.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getCountry(int* country);

/**
 * Chooses the country.
 * @param country Country as the service numbers it.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setCountry(int country);

/**
 * Reads the countries the set knows.
 * @param pCountryList Room for 254 entries, values as the service numbers them; untouched on failure. May be null.
 * @param pListSize Receives the count as the service gives it, of which at most 254 entries are stored; 0 on
 * failure. May be null.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getCountryList(int* pCountryList, int* pListSize);

/**
 * Reads the front ends the set has.
 * @param pFrontendList Room for 254 entries, values as the service numbers them; untouched on failure. May be null.
 * @param pListSize Receives the count as the service gives it, of which at most 254 entries are stored; 0 on
 * failure. May be null.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getFrontendList(int* pFrontendList, int* pListSize);

/**
 * Reads the area the product is made for.
 * @param Area Receives the area as the service numbers it, 0 on failure; may be null.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getProductArea(int* Area);

/**
 * Reads the customer the set is made for.
 * @param customerName Receives the customer as the service numbers it, 0 on failure; may be null.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getCustomerName(int* customerName);

/**
 * Reads the style of the user interface.
 * @param UIStyle Receives the style as the service numbers it, 0 on failure; may be null.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getUIStyle(int* UIStyle);

/**
 * Reads the store of applications.
 * @param APPStore Receives the store as the service numbers it, 0 on failure; may be null.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getAPPStore(int* APPStore);

/**
 * Reads the protocol of the remote control.
 * @param pIrProtocol Receives one of `KELU_TV_IR_PROTOCOL_TYPE_E`, 0 on failure; may be null.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getIrProtocol(int* pIrProtocol);

/**
 * Reads the type of the key pad.
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
 * @param mode Receives the answer, false on failure; may be null.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getHotkeyMode(bool* mode);

/**
 * Switches the hot keys on or off.
 * @param mode True switches them on.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setHotkeyMode(bool mode);

/**
 * Tells whether the panel interface is in TI mode.
 * @param mode Receives the answer, false on failure; may be null.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getTIMode(bool* mode);

/**
 * Switches the TI mode of the panel interface on or off.
 * @param mode True switches it on.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setTIMode(bool mode);

/**
 * Tells whether Bluetooth is on.
 * @param pEnable Receives the answer, false on failure; may be null.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getBluetoothEnable(bool* pEnable);

/**
 * Switches Bluetooth on or off.
 * @param enable True switches it on.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setBluetoothEnable(bool enable);

/**
 * Tells whether the common interface is on.
 * @param pEnable Receives the answer, false on failure; may be null.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getCIEnable(bool* pEnable);

/**
 * Switches the common interface on or off.
 * @param enable True switches it on.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setCIEnable(bool enable);

/**
 * Tells whether recording is on.
 * @param pEnable Receives the answer, false on failure; may be null.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getPVREnable(bool* pEnable);

/**
 * Switches recording on or off.
 * @param enable True switches it on.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setPVREnable(bool enable);

/**
 * Tells whether the voice assistant is on.
 * @param pEnable Receives the answer, false on failure; may be null.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getAlexaEnable(bool* pEnable);

/**
 * Switches the voice assistant on or off.
 * @param enable True switches it on.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setAlexaEnable(bool enable);

/**
 * Tells whether control by voice is on.
 * @param pEnable Receives the answer, false on failure; may be null.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getVoiceEnable(bool* pEnable);

/**
 * Switches control by voice on or off.
 * @param enable True switches it on.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setVoiceEnable(bool enable);

/**
 * Tells whether spoken cues are on.
 * @param pEnable Receives the answer, false on failure; may be null.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getVoiceCuesEnable(bool* pEnable);

/**
 * Switches spoken cues on or off.
 * @param enable True switches them on.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setVoiceCuesEnable(bool enable);

/**
 * Tells whether the presentation is on.
 * @param pEnable Receives the answer, false on failure; may be null.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getPresentationEnable(bool* pEnable);

/**
 * Switches the presentation on or off.
 * @param enable True switches it on.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setPresentationEnable(bool enable);

/**
 * Tells whether the backlight's signal is inverted.
 * @param polarity Receives the answer, false on failure; may be null.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getBacklightInversion(bool* polarity);

/**
 * Inverts the backlight's signal or not.
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
 * @param pSwing Receives the swing, 0 on failure; may be null.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getPanelSwing(int* pSwing);

/**
 * Sets the swing of the panel interface.
 * @param swing Swing; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setPanelSwing(int swing);

/**
 * Reads the size of the panel.
 * @param size Receives the text, terminator included, and must have room for all the service sends, 1,040,380 bytes at
 * most; untouched on failure.
 * @return 0; -1 when the service or the link fails, and for null, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_getPanelSize(char* size);

/**
 * Reads a description of the panel.
 * @param info Receives the text, terminator included, and must have room for all the service sends, 1,040,380 bytes at
 * most; untouched on failure.
 * @return 0; -1 when the service or the link fails, and for null, with nothing sent.
 */
KELUTV_API int linux_tv_Factory_getPanelInfo(char* info);

/**
 * Reads how the ports of the panel interface are swapped.
 * @param pPort Receives the swap, 0 on failure; may be null.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_factory_getLvdsPort(int* pPort);

/**
 * Swaps the ports of the panel interface.
 * @param port Swap as the service numbers it.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_factory_setLvdsPort(int port);

/**
 * Reads one value of the panel's start sequence.
 * @param type Time as the service numbers it.
 * @param pValue Receives the time, 0 on failure; may be null.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_factory_getPanelSequence(int type, int* pValue);

/**
 * Sets one value of the panel's start sequence.
 * @param type Time as the service numbers it.
 * @param value Time; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_factory_setPanelSequence(int type, int value);

/**
 * Reads the bit mode of the panel interface.
 * @param mode Receives the mode as the service numbers it, 0 on failure; may be null.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getLVDSTIBitMode(int* mode);

/**
 * Chooses the bit mode of the panel interface.
 * @param mode Mode as the service numbers it.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setLVDSTIBitMode(int mode);

/**
 * Reads which logo is shown at start.
 * @param index Receives the index, 0 on failure; may be null.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getBootLogoIndex(int* index);

/**
 * Chooses the logo shown at start.
 * @param index Index; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setBootLogoIndex(int index);

/**
 * Restores the analogue converter to its defaults.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_restoreADC(void);

/**
 * Sets the gain of the automatic volume control.
 * The gain is sent as its whole part and the thousandths of the rest.
 * @param value Gain. Both parts are cut towards zero; not-a-number counts as 0, and what no int holds as the nearest
 * int.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setAvcGain(double value);

/**
 * Reads the gain of the automatic volume control.
 * @param pValue Receives the whole part and a thousandth of the second value, 0 on failure; may be null.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getAvcGain(double* pValue);

/**
 * Reads the current temperature.
 * @param value Receives the temperature, 0 on failure; may be null.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getCurrentTemperature(int* value);

/**
 * Reads the highest temperature on record.
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
 * @param str Path of the folder. Null is sent as the empty text.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setSeaAllKeyBurn(char* str);

/**
 * Tells whether a key is burnt.
 * @param keyType One of `KELU_TV_MUL_KEY_E`.
 * @param pIsKeyBurned Receives the answer, false on failure; may be null.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Factory_getKeyBurnStatus(int keyType, bool* pIsKeyBurned);

/**
 * Tells whether the set takes a key.
 * Prints "getKeySupportStatus keyType = %d\n" to standard output first.
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
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_deletePresentationData(void);

/**
 * Copies the data of the presentation from a path.
 * @param pPath Path of the file. Null is sent as the empty text.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_copyPresentationData(char* pPath);

/**
 * Copies the middleware's data base to a USB disk.
 * @param pPath Path of the file. Null is sent as the empty text.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_copyMWDB2USB(char* pPath);

/**
 * Copies the middleware's data base from a USB disk.
 * @param pPath Path of the file. Null is sent as the empty text.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_copyUSBDB2MW(char* pPath);

/**
 * Replaces the logo shown at start.
 * @param pPath Path of the file. Null is sent as the empty text.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_updateBootLogo(char* pPath);

/**
 * Writes the separate data to a file.
 * @param pPath Path of the file. Null is sent as the empty text.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_exportSeparatedData(char* pPath);

/**
 * Reads the separate data from a file.
 * @param pPath Path of the file. Null is sent as the empty text.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_importSeparatedData(char* pPath);

/**
 * Checks a file for an upgrade of the EEPROM data.
 * @param pPath Path of the file. Null is sent as the empty text.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_upgradeFlashEEPROMCheck(char* pPath);

/**
 * Copies preset channels from a file.
 * @param pPath Path of the file. Null is sent as the empty text.
 * @param type Kind of channels as the service numbers it.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_factory_copyPresetChannelDB2MW(char* pPath, int type);

/**
 * Copies preset channels to a file.
 * @param pPath Path of the file. Null is sent as the empty text.
 * @param type Kind of channels as the service numbers it.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_factory_copyPresetChannelDB2USB(char* pPath, int type);

/**
 * Presets the channels by a named list.
 * @param pName Name of the list. Null is sent as the empty text.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_factory_presetChannel(char* pName);

/**
 * Hands over the data of an update over the air.
 * @param pData Text of the update as the service defines it. Null is sent as the empty text.
 * @param bUpdate True asks for the update.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_setOtaUpdate(char* pData, bool bUpdate);

/**
 * Sends the result of the self check out of the serial port.
 * @param checkDataStr The result as a text. Null is sent as the empty text.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Factory_sendSelfCheckData(char* checkDataStr);

/** @} */

#ifdef __cplusplus
}
#endif

#endif
