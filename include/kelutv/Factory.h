/**
 * @file
 * The class `Factory`; its C functions are in linux_kelutv_factory.h.
 */
#pragma once

#include <kelutv/export.h>
#include <kelutv/factory_types.h>

#include <list>
#include <string>

/**
 * The factory menu, the production line and the service: calibration, panel and interfaces, power, identity of the set,
 * keys, the laser projector and external picture chips.
 *
 * Every operation is one command to the TV base service, which owns all values and gives them their meaning; the object
 * keeps none. A `bool` travels as 0 or 1. An operation blocks until the service has answered, may be called from any
 * thread, and writes nothing to the log unless it says so, save that a set command whose link fails is logged as
 * "invoke failure\n", and one that reads an answer also when the service fails. What is logged here has error priority
 * and no tag. Texts are copied into the caller's buffer whatever its size.
 */
class KELUTV_API Factory {
public:
    /**
     * The one object, made on the first call from any thread and kept until the process ends.
     * @return The object; never null.
     */
    static Factory* instance();

    Factory(const Factory&) = delete;
    Factory& operator=(const Factory&) = delete;

    /**
     * @name Calibration, colour temperature and white balance
     * @{
     */

    /**
     * Starts the automatic calibration.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int autoCalibration();

    /**
     * Reads the gains and offsets of the analogue converter.
     * @param srcId Source, one of `KELU_TV_SRC_E`.
     * @return The record; all zeros when the service or the link fails.
     */
    CalibrationInfo getADCGainOffset(int srcId);

    /**
     * Sets the gains and offsets of the analogue converter.
     * @param srcId Source, one of `KELU_TV_SRC_E`.
     * @param info Gains and offsets; the service enforces the ranges.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setADCGainOffset(int srcId, CalibrationInfo info);

    /**
     * Reads the gains and offsets of a colour temperature.
     * @param colorTempLevel Colour temperature, one of `KELU_TV_COLORTEMP_E`.
     * @return The record; all zeros when the service or the link fails.
     */
    ColorTempData getColorTemp(int colorTempLevel);

    /**
     * Sets the gains and offsets of the colour temperature.
     * @param srcId Source by its name, one of `KELU_TV_SRC_E`; the reading operation has a colour temperature in its
     * place.
     * @param info Gains and offsets; the service enforces the ranges.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setColorTemp(int srcId, ColorTempData info);

    /**
     * Reads the five points of a non-linear curve.
     * @param item Curve as the service numbers it.
     * @param srcId Source.
     * @return The record; all zeros when the service or the link fails.
     */
    NlaInfo getNLAPoint(int item, KELU_TV_SRC_E srcId);

    /**
     * Sets the five points of a non-linear curve.
     * @param item Curve as the service numbers it.
     * @param info Points; the service enforces the ranges.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setNLAPoint(int item, NlaInfo info);

    /**
     * Asks for the non-linear curves to be applied to the sources.
     * Prints "updataNLAToSource\n" to standard error first.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int updataNLAToSource();

    /**
     * Restores the colour temperatures to their defaults.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int restoreColorTemp();

    /**
     * Reads the debug information on the automatic colour temperature.
     * @param str Receives the text, terminator included, and must have room for all the service sends, 1,040,380 bytes
     * at most; untouched on failure.
     * @param colorTempIndex Colour temperature as the service numbers it.
     * @return 0; -1 when the service or the link fails or there is no text, and for a null `str`, with nothing sent;
     * each is logged.
     */
    int getAutoColorTempDebugInfo(char* str, int colorTempIndex);

    /**
     * Shows a plain colour for the white balance, or ends it.
     * @param onoff True shows the colour.
     * @param red Red; the service enforces the range.
     * @param green Green; the service enforces the range.
     * @param blue Blue; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setWhiteBalanceColor(bool onoff, int red, int green, int blue);

    /**
     * Tells whether the main chip supports the patterns of the white balance.
     * @return False for the service's 0; true for any other answer, a failure included.
     */
    bool isSupportSocWhiteBalancePattern();

    /**
     * Enters the white balance by infrared.
     * A get command, although it starts something.
     * @return The service's answer; -1 when the service or the link fails.
     */
    int enterIrWBAdj();

    /**
     * Reads the status of the white balance by infrared.
     * @return The status; -1 when the service or the link fails.
     */
    int getIRWBStatus();

    /**
     * Sets the gamma value of the picture processing.
     * Prints "pqSetGammaValue\n" to standard error first.
     * @param value Gamma value; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int pqSetGammaValue(int value);

    /**
     * Reads the version of the picture processing data.
     * What the service answers is printed to standard error as "pStr=%s\n", "(null)" for no text, and a missing text or
     * buffer as "getPQBinVersion error\n".
     * @param pPQBinVersion Receives the text, terminator included, and must have room for all the service sends,
     * 1,040,380 bytes at most; untouched on failure.
     * @return 0; -1 when the service or the link fails, when there is no text, and for a null `pPQBinVersion`, for
     * which the command is sent nevertheless.
     */
    int getPQBinVersion(char* pPQBinVersion);

    /**
     * Sends a control code to the picture processing.
     * @param cmdID Control code, one of `KELU_TV_PQ_IOCTL_CMD_E`.
     * @param pParm Not used; may be null.
     * @return 0; -1, with "pqIoCtl error" on standard error, for any other result of the service and when the link
     * fails.
     */
    int pqIoCtl(KELU_TV_PQ_IOCTL_CMD_E cmdID, void* pParm);

    /** @} */

    /**
     * @name Overscan, panel interface, memory spread, gamma and test patterns
     * @{
     */

    /**
     * Reads the overscan rectangle.
     * @return The record; all zeros when the service or the link fails.
     */
    KeluRect getOverscan();

    /**
     * Sets the overscan rectangle.
     * @param rect Position and size; the service enforces the ranges.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setOverscan(KeluRect rect);

    /**
     * Tells whether the output of the panel interface is on.
     * @return 1 when it is on, 0 when not; -1 when the service or the link fails.
     */
    int getPanelIntfOutEnable();

    /**
     * Switches the output of the panel interface on or off.
     * @param onoff True switches it on.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setPanelIntfOutEnable(bool onoff);

    /**
     * Tells whether the spread spectrum of the panel interface is on.
     * @return False for the service's 0; true for any other answer, a failure included.
     */
    bool getPanelSpreadEnable();

    /**
     * Switches the spread spectrum of the panel interface on or off.
     * @param onoff True switches it on.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setPanelSpreadEnable(bool onoff);

    /**
     * Reads the spread ratio of the panel interface.
     * @return The ratio; -1 when the service or the link fails.
     */
    int getPanelSpreadRatio();

    /**
     * Sets the spread ratio of the panel interface.
     * @param ratio Ratio; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setPanelSpreadRatio(int ratio);

    /**
     * Reads the spread frequency of the panel interface.
     * @return The frequency; -1 when the service or the link fails.
     */
    int getPanelSpreadFreq();

    /**
     * Sets the spread frequency of the panel interface.
     * @param freq Frequency; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setPanelSpreadFreq(int freq);

    /**
     * Reads the drive current of the panel interface.
     * @return The current; -1 when the service or the link fails.
     */
    int getPanelDrvCurrent();

    /**
     * Sets the drive current of the panel interface.
     * @param current Current; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setPanelDrvCurrent(int current);

    /**
     * Reads the common voltage of the panel interface.
     * @return The voltage; -1 when the service or the link fails.
     */
    int getPanelComVoltage();

    /**
     * Sets the common voltage of the panel interface.
     * @param voltage Voltage; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setPanelComVoltage(int voltage);

    /**
     * Reads the emphasis of the panel interface.
     * @return The emphasis; -1 when the service or the link fails.
     */
    int getPanelEmphasis();

    /**
     * Sets the emphasis of the panel interface.
     * @param ems Emphasis; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setPanelEmphasis(int ems);

    /**
     * Tells whether the spread spectrum of the memory interface is on.
     * @return False for the service's 0; true for any other answer, a failure included.
     */
    bool isDdrSpreadEnable();

    /**
     * Switches the spread spectrum of the memory interface on or off.
     * @param onoff True switches it on.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int EnableDdrSpread(bool onoff);

    /**
     * Reads the spread ratio of the memory interface.
     * @return The ratio; -1 when the service or the link fails.
     */
    int getDdrSpreadRatio();

    /**
     * Sets the spread ratio of the memory interface.
     * @param ratio Ratio; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setDdrSpreadRatio(int ratio);

    /**
     * Reads the spread frequency of the memory interface.
     * @return The frequency; -1 when the service or the link fails.
     */
    int getDdrSpreadFreq();

    /**
     * Sets the spread frequency of the memory interface.
     * @param freq Frequency; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setDdrSpreadFreq(int freq);

    /**
     * Reads the gamma curve.
     * @return The curve as the service numbers it; -1 when the service or the link fails.
     */
    int getGamma();

    /**
     * Sets the gamma curve.
     * @param gamma Curve as the service numbers it.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setGamma(int gamma);

    /**
     * Reads the test pattern.
     * @return One of `KELU_TV_PATTERN_E`; -1 when the service or the link fails.
     */
    int getTestPattern();

    /**
     * Sets the test pattern.
     * @param index One of `KELU_TV_PATTERN_E`.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setTestPattern(int index);

    /**
     * Reads the index of the panel.
     * @return The index of the panel; -1 when the service or the link fails.
     */
    int getPanelIndex();

    /**
     * Sets the index of the panel.
     * @param index Index of the panel; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setPanelIndex(int index);

    /**
     * Reads how the picture is flipped and mirrored.
     * @return The flip as the service numbers it; -1 when the service or the link fails.
     */
    int getPanelFlipMirror();

    /**
     * Sets how the picture is flipped and mirrored.
     * @param flip Flip as the service numbers it.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setPanelFlipMirror(int flip);

    /**
     * Sets the test pattern of the external picture chip.
     * @param pattern Pattern as the service numbers it.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setIChipTestPattern(int pattern);

    /** @} */

    /**
     * @name Backlight, LEDs and panel compensation
     * @{
     */

    /**
     * Reads the highest duty of the backlight.
     * @return The duty; -1 when the service or the link fails.
     */
    int getBackLightPwmMax();

    /**
     * Sets the highest duty of the backlight.
     * @param pwmMax Duty; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setBackLightPwmMax(int pwmMax);

    /**
     * Reads the lowest duty of the backlight.
     * @return The duty; -1 when the service or the link fails.
     */
    int getBackLightPwmMin();

    /**
     * Sets the lowest duty of the backlight.
     * @param pwmMin Duty; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setBackLightPwmMin(int pwmMin);

    /**
     * Reads the delta value of the dream panel.
     * @return The delta value; -1 when the service or the link fails.
     */
    int getDreamPanelDeltaValue();

    /**
     * Sets the delta value of the dream panel.
     * @param tmpValue Delta value; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setDreamPanelDeltaValue(int tmpValue);

    /**
     * Reads the dream panel's offset of the lowest backlight.
     * @return The offset; -1 when the service or the link fails.
     */
    int getDPBLMinOffset();

    /**
     * Sets the dream panel's offset of the lowest backlight.
     * @param tmpValue Offset; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setDPBLMinOffset(int tmpValue);

    /**
     * Reads the disturbing mode of the LED.
     * @return One of `KELU_TV_LED_DISTURBING_MODE_E`; -1 when the service or the link fails.
     */
    int getLedDisturbingMode();

    /**
     * Sets the disturbing mode of the LED.
     * @param mode One of `KELU_TV_LED_DISTURBING_MODE_E`.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setLedDisturbingMode(int mode);

    /**
     * Sets the state of the breathing LED.
     * @param arg1 First value as the service defines it.
     * @param arg2 Second value as the service defines it.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setBreathePlatformStatus(int arg1, int arg2);

    /**
     * Reads whether the pixel shift of the OLED panel is on.
     * @return 0 for off, 1 for on; -1 when the service or the link fails.
     */
    int getOLEDPixelShiftEnable();

    /**
     * Switches the pixel shift of the OLED panel on or off.
     * @param enable 0 for off, 1 for on.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setOLEDPixelShiftEnable(int enable);

    /**
     * Reads which line overdrive table is in use.
     * @return The index of the table; -1 when the service or the link fails.
     */
    int getLineODIndex();

    /**
     * Chooses the line overdrive table.
     * @param tmpIndex Index of the table; the service enforces the range.
     * @return False for success; true for any other result of the service and when the link fails.
     */
    bool setLineODIndex(int tmpIndex);

    /**
     * Reads the names of the line overdrive tables.
     * @return The names in the order of the service; empty when the service or the link fails.
     */
    std::list<std::string> getLineODListTable();

    /**
     * Sets one of the LEDs.
     * @param ledType LED as the service numbers it.
     * @param value Value; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setVarietyLedControl(int ledType, int value);

    /** @} */

    /**
     * @name Tuner, picture and sound tuning
     * @{
     */

    /**
     * Tells whether the initial analogue channels are on.
     * @return False for the service's 0; true for any other answer, a failure included.
     */
    bool isATVIniChnEnable();

    /**
     * Switches the initial analogue channels on or off.
     * @param onoff True switches them on.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int enableATVIniChn(bool onoff);

    /**
     * Reads the over-modulation mode.
     * @return The mode; -1 when the service or the link fails.
     */
    int getOverModulation();

    /**
     * Sets the over-modulation mode.
     * @param over Mode as the service numbers it.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setOverModulation(int over);

    /**
     * Reads the frequency offset of the tuner.
     * @return The offset; -1 when the service or the link fails.
     */
    int getFrequencyOffset();

    /**
     * Sets the frequency offset of the tuner.
     * @param offset Offset; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setFrequencyOffset(int offset);

    /**
     * Reads the bandwidth of the tuner.
     * @return The bandwidth; -1 when the service or the link fails.
     */
    int getTunerBandwidth();

    /**
     * Sets the bandwidth of the tuner.
     * @param bandwidth Bandwidth; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setTunerBandwidth(int bandwidth);

    /**
     * Sets the threshold of the noise reduction.
     * @param level Threshold; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setNRThreshold(int level);

    /**
     * Reads the threshold of the noise reduction.
     * @return The threshold; -1 when the service or the link fails.
     */
    int getNRThreshold();

    /**
     * Sets the threshold of the automatic volume control.
     * @param level Threshold; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setAVCThreshold(int level);

    /**
     * Reads the threshold of the automatic volume control.
     * @return The threshold; -1 when the service or the link fails.
     */
    int getAVCThreshold();

    /**
     * Reads the parametric equaliser of the sound.
     * @return The record; all zeros when the service or the link fails.
     */
    SoundPeqData getSoundPEQ();

    /**
     * Sets the parametric equaliser of the sound.
     * @param info Frequencies, gains and qualities; the service enforces the ranges.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setSoundPEQ(SoundPeqData info);

    /**
     * Reads the volume curve.
     * @param pData Room for `length` doubles; all are written, 0 where the service sent less. Untouched on failure.
     * @param length How many numbers to read; sent as it is, and below 1 none is read.
     * @return 0; -1 when the service or the link fails, and for a null `pData`, logged and with nothing sent.
     */
    int getSoundCurve(double* pData, int length);

    /**
     * Sets the volume curve.
     * @param info `length` numbers.
     * @param length How many numbers to send; sent as it is, and below 1 no number behind it.
     * @return The service's result, 0 for success; -1 when the link fails, and for a null `info`, logged and with
     * nothing sent.
     */
    int setSoundCurve(double* info, int length);

    /**
     * Reads the control points of the volume curve.
     * @param soundCurveCtlData Receives the points. Must have room for all that the service sends, 260,094 at most, and
     * for 255 at least: of a count above what it sends the rest is 0, up to the 255th. Untouched on failure.
     * @param volumeNum Receives their count as the service gives it; untouched on failure.
     * @return 0; -1 when the service or the link fails, and when either pointer is null, logged and with nothing
     * sent.
     */
    int getSoundCurveCtlData(int* soundCurveCtlData, int* volumeNum);

    /**
     * Reads the control points of the headphones' volume curve.
     * @param soundCurveCtlData Receives the points. Must have room for all that the service sends, 260,094 at most, and
     * for 255 at least: of a count above what it sends the rest is 0, up to the 255th. Untouched on failure.
     * @param volumeNum Receives their count as the service gives it; untouched on failure.
     * @return 0; -1 when the service or the link fails, and when either pointer is null, logged and with nothing
     * sent.
     */
    int getHeadPhoneSoundCurveCtlData(int* soundCurveCtlData, int* volumeNum);

    /** @} */

    /**
     * @name Generic item access
     * @{
     */

    /**
     * Reads one non-standard item.
     * @param itemid One of `KELU_TV_NONSTAND_TPYE_E`.
     * @return The value; -1 when the service or the link fails.
     */
    int getNonStandardItemValue(int itemid);

    /**
     * Sets one non-standard item.
     * @param itemid One of `KELU_TV_NONSTAND_TPYE_E`.
     * @param value Value; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setNonStandardItemValue(int itemid, int value);

    /**
     * Reads one performance item.
     * @param itemid Item as the service numbers it.
     * @return The value; -1 when the service or the link fails.
     */
    int getPerformanceItemValue(int itemid);

    /**
     * Sets one performance item.
     * @param itemid Item as the service numbers it.
     * @param value Value; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setPerformanceItemValue(int itemid, int value);

    /**
     * Reads one of the other items.
     * @param itemid Item as the service numbers it.
     * @return The value; -1 when the service or the link fails.
     */
    int getOtherItemValue(int itemid);

    /**
     * Sets one of the other items.
     * @param itemid Item as the service numbers it.
     * @param value Value; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setOtherItemValue(int itemid, int value);

    /**
     * Sets one item.
     * @param cmdID Item of the factory module, one of `KELU_TV_CMDID_E`.
     * @param param1,param2,param3,param4 What the item defines.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setFactoryItemValue(int cmdID, int param1, int param2, int param3, int param4);

    /**
     * Reads one item.
     * @param cmdID Item of the factory module, one of `KELU_TV_CMDID_E`.
     * @param param1,param2 What the item defines.
     * @param pData Room for 255 ints (1,020 bytes); all are written, 0 where the service sent less. Untouched on
     *         failure.
     * @return 0; -1 when the service or the link fails, and for a null `pData`, logged and with nothing sent.
     */
    int getFactoryItemValue(int cmdID, int param1, int param2, int* pData);

    /**
     * Reads one item that is a text.
     * @param cmdID Item of the factory module, one of `KELU_TV_CMDID_E`.
     * @param param1,param2 What the item defines.
     * @param data Receives the text, terminator included, and must have room for all the service sends, 1,040,380 bytes
     * at most; untouched on failure.
     * @return 0; -1 when the service or the link fails or there is no text, and for a null `data`, with nothing sent;
     * each is logged under the name of a system function.
     */
    int getFactoryItemStrValue(int cmdID, int param1, int param2, char* data);

    /**
     * Sets one item that is a text.
     * @param cmdID Item of the factory module, one of `KELU_TV_CMDID_E`.
     * @param param1,param2 What the item defines.
     * @param stringParam The text. Null is sent as the empty text.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setFactoryItemStrValue(int cmdID, int param1, int param2, char const* stringParam);

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
    int enableAgingMode(bool onoff);

    /**
     * Tells whether the ageing mode is on.
     * @return False for the service's 0; true for any other answer, a failure included.
     */
    bool isAgingModeEnable();

    /**
     * Resets the non-volatile memory.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int resetNVM();

    /**
     * Resets the analogue channels.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int resetAtvChannel();

    /**
     * Starts to record the transport stream.
     * Logged first as "DtvChannel startRecorderTsStream usbPath = %s".
     * @param usbPath Path of the recording. Null is sent as the empty text.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int startRecorderTsStream(char const* usbPath);

    /**
     * Ends the recording of the transport stream.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int stopRecorderTsStream();

    /**
     * Tells whether the watchdog is on.
     * @return False for the service's 0; true for any other answer, a failure included.
     */
    bool isWdtEnable();

    /**
     * Switches the watchdog on or off.
     * @param onoff True switches it on.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int enableWdt(bool onoff);

    /**
     * Tells whether the serial port is on.
     * @return False for the service's 0; true for any other answer, a failure included.
     */
    bool isUartEnable();

    /**
     * Switches the serial port on or off.
     * @param onoff True switches it on.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int enableUart(bool onoff);

    /**
     * Starts an upgrade of the system.
     * @param mode Kind of upgrade as the service numbers it.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int upgradeSystem(int mode);

    /**
     * Sets the power-on mode.
     * @param mode Mode as the service numbers it.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setPoweronMode(int mode);

    /**
     * Reads the power-on mode.
     * @return The mode; -1 when the service or the link fails.
     */
    int getPoweronMode();

    /**
     * Switches the music at power-on on or off.
     * @param onoff True switches it on.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int enablePowerMusic(bool onoff);

    /**
     * Tells whether the music at power-on is on.
     * @return False for the service's 0; true for any other answer, a failure included.
     */
    bool isPowerMusicEnable();

    /**
     * Sets the volume of the music at power-on.
     * @param val Volume; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setPowerMusicVol(int val);

    /**
     * Reads the volume of the music at power-on.
     * @return The volume; -1 when the service or the link fails.
     */
    int getPowerMusicVol();

    /**
     * Sets the suspend mode.
     * @param mode Mode as the service numbers it.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setSuspendMode(int mode);

    /**
     * Reads the suspend mode.
     * @return The mode; -1 when the service or the link fails.
     */
    int getSuspendMode();

    /**
     * Sets the suspend mode by the inner command.
     * @param mode Mode as the service numbers it.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setSuspendModeInner(int mode);

    /**
     * Turns the amplifier of the 2.4 GHz module on or off.
     * @param enable True turns it on.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int set24GAMPEnable(bool enable);

    /**
     * Names the file that the 2.4 GHz module is upgraded from.
     * @param path The file; null is sent as the empty text.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int set24GUpgradePath(char* path);

    /**
     * Reads whether the 2.4 GHz module is connected.
     * A set command, although it reads something.
     * @return The service's result, which is the status; -1 when the link fails.
     */
    int get24GConnectStatus();

    /**
     * Restores the factory state.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int restoreFactory();

    /**
     * Restores the factory settings.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int restoreFactorySetting();

    /**
     * Reads the mode of the serial port.
     * @return The mode; -1 when the service or the link fails.
     */
    int getUartMode();

    /**
     * Sets the mode of the serial port.
     * @param mode Mode as the service numbers it.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setUartMode(int mode);

    /**
     * Reads the mode of the single key.
     * @return The mode; -1 when the service or the link fails.
     */
    int getSingleKeyMode();

    /**
     * Sets the mode of the single key.
     * @param mode Mode as the service numbers it.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setSingleKeyMode(int mode);

    /**
     * Reads the customer code of the remote control.
     * @return The code; -1 when the service or the link fails.
     */
    int getIrCustomCode();

    /**
     * Sets the customer code of the remote control.
     * @param num Code; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setIrCustomCode(int num);

    /**
     * Tells whether the board is marked as repaired.
     * @return False for the service's 0; true for any other answer, a failure included.
     */
    bool getRepairedBoard();

    /**
     * Marks the board as repaired, or not.
     * @param onoff True marks it.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setRepairedBoard(bool onoff);

    /**
     * Saves, restores or updates the data of the flash EEPROM.
     * @param oper One of `KELU_TV_OPERATEFLASHEEPROM`.
     * @param path Path of the file. Null is sent as the empty text.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int operateFlashEEPROM(int oper, char const* path);

    /**
     * Resets the working time.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int resetWorkingTime();

    /**
     * Sets the status of the wireless network test.
     * @param value Status as the service numbers it.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setWifiTestStatus(int value);

    /**
     * Reads the status of the wireless network test.
     * @return The status; -1 when the service or the link fails.
     */
    int getWifiTestStatus();

    /**
     * Sets the result of the Bluetooth test.
     * @param value Result as the service numbers it.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setBTTestResult(int value);

    /**
     * Sets the log level of the service.
     * @param level Level; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setPrintLogLevel(int level);

    /**
     * Reads the log level of the service.
     * @return The level; -1 when the service or the link fails.
     */
    int getPrintLogLevel();

    /**
     * Sets the type of the display identification data (EDID).
     * @param type One of `KELU_TV_EDID_TYPE_E`.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setEDIDType(int type);

    /**
     * Reads the type of the display identification data (EDID).
     * @return One of `KELU_TV_EDID_TYPE_E`; -1 when the service or the link fails.
     */
    int getEDIDType();

    /**
     * Hands the service a text for the serial port.
     * @param pData The text, in UTF-8.
     * @return The service's result, 0 for success; -1 when the link fails, and for a null `pData`, logged and with
     * nothing sent.
     */
    int setUartData(char const* pData);

    /** @} */

    /**
     * @name Device identity, versions and counters
     * @{
     */

    /**
     * Reads the name of the platform.
     * A failure and a missing text are logged, each in its own words.
     * @param str Receives the text, terminator included, and must have room for all the service sends, 1,040,380 bytes
     * at most; "default" when the service or the link fails or there is no text.
     * @return 0, also on failure; -1 for a null `str`, logged and with nothing sent.
     */
    int getPlatform(char* str);

    /**
     * Reads the date of the EEPROM.
     * A failure and a missing text are logged, each in its own words.
     * @param pStr Receives the text, terminator included, and must have room for all the service sends, 1,040,380 bytes
     * at most; "date error" when the service or the link fails or there is no text.
     * @return 0, also on failure; -1 for a null `pStr`, logged and with nothing sent.
     */
    int getEepromDate(char* pStr);

    /**
     * Reads the bar code of the set.
     * @param pStr Receives the text, terminator included, and must have room for all the service sends, 1,040,380 bytes
     * at most; "error barcode" when the service or the link fails or there is no text.
     * @return 0, also on failure; -1 for a null `pStr`, logged and with nothing sent.
     */
    int getBarCode(char* pStr);

    /**
     * Reads the identifier of the panel.
     * @param pStr Receives the text, terminator included, and must have room for all the service sends, 1,040,380 bytes
     * at most; "error panelId" when the service or the link fails or there is no text.
     * @return 0, also on failure; -1 for a null `pStr`, logged and with nothing sent.
     */
    int getPanelID(char* pStr);

    /**
     * Reads the address of the network port.
     * @param pStr Receives the text, terminator included, and must have room for all the service sends, 1,040,380 bytes
     * at most; "error mac" when the service or the link fails or there is no text.
     * @return 0, also on failure; -1 for a null `pStr`, logged and with nothing sent.
     */
    int getMacAddress(char* pStr);

    /**
     * Sets the address of the network port.
     * @param pMacAddr `length` numbers, one for each part of the address. Null sends none.
     * @param length How many numbers to send; sent as it is, and below 1 no number behind it.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setMacAddress(int* pMacAddr, int length);

    /**
     * Reads the identifier of the eMMC memory.
     * @param pStr Receives the text, terminator included, and must have room for all the service sends, 1,040,380 bytes
     * at most; "error_emmc_id" without a terminator, so that the buffer should be zeroed before, when the service or
     * the link fails or there is no text.
     * @return 0, also on failure; -1 for a null `pStr`, logged and with nothing sent.
     */
    int getEmmcID(char* pStr);

    /**
     * Reads the identifier of the main chip.
     * @param pStr Receives the text, terminator included, and must have room for all the service sends, 1,040,380 bytes
     * at most; "error_chip_id" without a terminator, so that the buffer should be zeroed before, when the service or
     * the link fails or there is no text.
     * @return 0, also on failure; -1 for a null `pStr`, logged and with nothing sent.
     */
    int getSocChipID(char* pStr);

    /**
     * Reads the version of the inner timing controller.
     * @param pStr Receives the text, terminator included, and must have room for all the service sends, 1,040,380 bytes
     * at most; "error_inner_tcon_ver" without a terminator, so that the buffer should be zeroed before, when the
     * service or the link fails or there is no text.
     * @return 0, also on failure; -1 for a null `pStr`, logged and with nothing sent.
     */
    int getInnerTconVersion(char* pStr);

    /**
     * Reads the version of the external motion compensation.
     * @param pStr Receives the text, terminator included, and must have room for all the service sends, 1,040,380 bytes
     * at most; "error_external_memc_ver" without a terminator, so that the buffer should be zeroed before, when the
     * service or the link fails or there is no text.
     * @return 0, also on failure; -1 for a null `pStr`, logged and with nothing sent.
     */
    int getExternalMemcVersion(char* pStr);

    /**
     * Reads the version of the panel's picture processing.
     * @param pStr Receives the text, terminator included, and must have room for all the service sends, 1,040,380 bytes
     * at most; "error_panel_pq_ver" without a terminator, so that the buffer should be zeroed before, when the service
     * or the link fails or there is no text.
     * @return 0, also on failure; -1 for a null `pStr`, logged and with nothing sent.
     */
    int getPanelPQVersion(char* pStr);

    /**
     * Reads the version of the panel's data.
     * @param pStr Receives the text, terminator included, and must have room for all the service sends, 1,040,380 bytes
     * at most; "error_external_panel_ver" without a terminator, so that the buffer should be zeroed before, when the
     * service or the link fails or there is no text.
     * @return 0, also on failure; -1 for a null `pStr`, logged and with nothing sent.
     */
    int getPanelDataVersion(char* pStr);

    /**
     * Reads the number of USB disks.
     * @param pData Receives the number, 0 where the service sent none; untouched on failure.
     * @return 0; -1 when the service or the link fails, and for a null `pData`, logged and with nothing sent.
     */
    int getUDiskNum(int* pData);

    /**
     * Reads how long the system has been up.
     * @param timeData Room for 2 ints, as the service defines them; both are written, 0 where the service sent less.
     * Untouched on failure.
     * @return 0; -1 when the service or the link fails, and for a null `timeData`, with nothing sent; each is logged,
     * null under the name of a picture function.
     */
    int getSystemupTime(int* timeData);

    /**
     * Hands the service the time that the network gave.
     * @param time The time as a text. Null is sent as the empty text.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setInternetTime(char const* time);

    /**
     * Reads the time that the network gave.
     * A text that was read is logged as "getInternetTime %s".
     * @param time Receives the text, terminator included, and must have room for all the service sends, 1,040,380 bytes
     * at most; "19700101" without a terminator, so that the buffer should be zeroed before, when the service or the
     * link fails or there is no text.
     * @return 0, also on failure; -1 for a null `time`, logged and with nothing sent.
     */
    int getInternetTime(char* time);

    /**
     * Reads how many USB ports the platform supports.
     * @param pData Receives the number, 0 where the service sent none; untouched on failure.
     * @return 0; -1 when the service or the link fails, and for a null `pData`, logged and with nothing sent.
     */
    int getPlatFormSupportUsbNum(int* pData);

    /** @} */

    /**
     * @name Keys, serial numbers, data transfer and external devices
     * @{
     */

    /**
     * Reads the burn status of each kind of key.
     * @param bufData Room for 32 ints, in the service's order; all are written, 0 where the service sent less.
     * Untouched on failure.
     * @return 0; -1 when the service or the link fails, and for a null `bufData`, with nothing sent; each is logged.
     */
    int getBurnKeyStatus(int* bufData);

    /**
     * Burns data into one-time programmable memory and reads the serial number.
     * The serial number is logged.
     * @param CaCardKind One of `KELU_TV_OPT_CA_TYPE_E`.
     * @param str The data, a text. Null is sent as the empty text.
     * @param snData Receives the serial number, terminator included, and must have room for all the service sends,
     * 1,040,380 bytes at most; untouched on failure.
     * @return 0; -1 when the service or the link fails or there is no serial number, and when either pointer is null,
     * for which the command is sent nevertheless; each is logged.
     */
    int setStbOtpBurn(int CaCardKind, char const* str, char* snData);

    /**
     * Reads a serial number of digital television.
     * @param cmdId One of `KELU_TV_DTV_SN_E`.
     * @param snData Receives the serial number, terminator included, and must have room for all the service sends,
     * 1,040,380 bytes at most; untouched on failure.
     * @return 0; -1 when the service or the link fails or there is no serial number, and for a null `snData`, logged,
     * for which the command is sent nevertheless.
     */
    int getDtvSn(int cmdId, char* snData);

    /**
     * Reads whether the RSA key is burnt into the one-time programmable memory.
     * @return The status; -1 when the service or the link fails.
     */
    int getIsBurnOtpRsa();

    /**
     * Reads which kinds of key are there to be burnt.
     * @param path Path of the keys.
     * @return The kinds, of `KELU_TV_MUL_KEY_E`, in the order of the service; empty when the service or the link
     * fails, and for a null `path`, logged and with nothing sent.
     */
    std::list<int> getBurnKeyType(char const* path);

    /**
     * Tells the service that an external device was plugged in.
     * @param pData Text as the service defines it.
     * @return The service's answer; -1 when the service or the link fails, and for a null `pData`, logged and with
     * nothing sent.
     */
    int exDevInserted(char const* pData);

    /**
     * Hands over the data of a key.
     * @param type One of `KELU_TV_MUL_KEY_E`.
     * @param pData `length` numbers. Null sends none.
     * @param length How many numbers to send; sent as it is, and below 1 no number behind the header.
     * @param checksum Sum over the data, as the caller computed it.
     * @param xorchecksum Exclusive or over the data, as the caller computed it.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setKeyData(int type, int* pData, int length, int checksum, int xorchecksum);

    /**
     * Hands over data of the network port.
     * @param type One of `KELU_TV_NETDATATRAN_TPYE_E`.
     * @param pData `length` numbers. Null sends none.
     * @param length How many numbers to send; sent as it is, and below 1 no number behind the header.
     * @param checksum Sum over the data, as the caller computed it.
     * @param xorchecksum Exclusive or over the data, as the caller computed it.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setNetPortDataTransmission(int type, int* pData, int length, int checksum, int xorchecksum);

    /**
     * Reads data of the network port.
     * @param type One of `KELU_TV_NETDATATRAN_TPYE_E`.
     * @param pData Room for `length` ints; all are written, 0 where the service sent less. Untouched on failure.
     * @param length How many numbers to read; sent as it is, and below 1 none is read.
     * @return 0; -1 when the service or the link fails, and for a null `pData`, logged under the name of a picture
     * function and with nothing sent.
     */
    int getNetPortDataTransmission(int type, int* pData, int length);

    /** @} */

    /**
     * @name Hardware capabilities
     * @{
     */

    /**
     * Tells whether a router is supported.
     * @return False for the service's 0; true for any other answer, a failure included.
     */
    bool isSupportRouter();

    /**
     * Tells whether a cable modem is supported.
     * @return False for the service's 0; true for any other answer, a failure included.
     */
    bool isSupportCableModem();

    /**
     * Tells whether a wireless network is supported.
     * @return False for the service's 0; true for any other answer, a failure included.
     */
    bool isSupportWifi();

    /**
     * Tells whether Ethernet over coaxial cable is supported.
     * @return False for the service's 0; true for any other answer, a failure included.
     */
    bool isSupportEOC();

    /**
     * Reads the mode of the device.
     * @return The mode as the service numbers it; -1 when the service or the link fails.
     */
    int getDeviceMode();

    /**
     * Reads whether the set is made for an operator.
     * @return The answer; -1 when the service or the link fails.
     */
    int isOperatorCustomized();

    /**
     * Tells whether an external chip is supported.
     * @param chipType Chip as the service numbers it.
     * @return False for the service's 0; true for any other answer, a failure included.
     */
    bool isSupportExternChip(int chipType);

    /** @} */

    /**
     * @name Laser projector
     * @{
     */

    /**
     * Reads the test pattern of the laser projector.
     * @return The pattern as the service numbers it; -1 when the service or the link fails.
     */
    int getLaserTVTestPattern();

    /**
     * Sets the test pattern of the laser projector.
     * @param pattern Pattern as the service numbers it.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setLaserTVTestPattern(int pattern);

    /**
     * Reads the index of a colour wheel.
     * @param wheel Wheel as the service numbers it.
     * @return The index; -1 when the service or the link fails.
     */
    int getLaserWheelIndex(int wheel);

    /**
     * Sets the index of a colour wheel.
     * @param wheel Wheel as the service numbers it.
     * @param index Index; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setLaserWheelIndex(int wheel, int index);

    /**
     * Moves the motor of the laser projector.
     * @param move Movement as the service numbers it.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setMotorMove(int move);

    /**
     * Sets the brightness mode of the laser projector.
     * @param mode Mode as the service numbers it.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setLaserBrightMode(int mode);

    /**
     * Reads the brightness mode of the laser projector.
     * @return The mode; -1 when the service or the link fails.
     */
    int getLaserBrightMode();

    /**
     * Sets the output mode of the laser projector.
     * @param mode Mode as the service numbers it.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setLaserPonputMode(int mode);

    /**
     * Reads the output mode of the laser projector.
     * @return The mode; -1 when the service or the link fails.
     */
    int getLaserPonputMode();

    /**
     * Switches the eye shield mode of the laser projector on or off.
     * @param mode True switches it on.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setLaserEyeShieldMode(bool mode);

    /**
     * Tells whether the eye shield mode of the laser projector is on.
     * @return False for the service's 0; true for any other answer, a failure included.
     */
    bool getLaserEyeShieldMode();

    /**
     * Reads the version of a firmware of the laser projector.
     * @param type Firmware as the service numbers it.
     * @param pStr Receives the text, terminator included, and must have room for all the service sends, 1,040,380 bytes
     * at most; "error" without a terminator, so that the buffer should be zeroed before, when the service or the link
     * fails or there is no text. Null drops it.
     * @return 0, also on failure; 0 for a null `pStr`, too.
     */
    int getLaserFWVersion(int type, char* pStr);

    /**
     * Sets one item of the laser projector.
     * @param cmdID Item as the service numbers it.
     * @param param1,param2,param3,param4 What the item defines.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setLaserItemValue(int cmdID, int param1, int param2, int param3, int param4);

    /**
     * Reads one item of the laser projector.
     * @param cmdID Item as the service numbers it.
     * @param param What the item defines.
     * @param pData Receives the value, 0 where the service sent none; untouched on failure.
     * @return 0; -1 when the service or the link fails, and for a null `pData`, logged and with nothing sent.
     */
    int getLaserItemValue(int cmdID, int param, int* pData);

    /**
     * Sets one item of the laser projector that is a text.
     * @param cmdID Item as the service numbers it.
     * @param param What the item defines.
     * @param stringParam The text. Null is sent as the empty text.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setLaserItemStringValue(int cmdID, int param, char const* stringParam);

    /** @} */

    /**
     * @name External picture-processing chips
     * @{
     */

    /**
     * Reads one item of the external picture chip.
     * @param channel Channel of the chip.
     * @param cmdId Item as the service numbers it.
     * @return The value; -1 when the service or the link fails.
     */
    int getNTPQItemValue(int channel, int cmdId);

    /**
     * Sets one item of the external picture chip.
     * @param channel Channel of the chip.
     * @param cmdId Item as the service numbers it.
     * @param value Value; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setNTPQItemValue(int channel, int cmdId, int value);

    /**
     * Reads the version of the external picture chip.
     * @param Data Receives the text, terminator included, and must have room for all the service sends, 1,040,380 bytes
     * at most; untouched on failure and when there is no text.
     * @return 0, also when there is no text; -1 when the service or the link fails, and for a null `Data`, logged and
     * with nothing sent.
     */
    int getNTPQPlatFormVer(char* Data);

    /**
     * Upgrades the external picture chip.
     * @param chipId Chip as the service numbers it.
     * @param path Path of the image. Null is sent as the empty text.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int upgradeNTPQIC(int chipId, char const* path);

    /**
     * Sends a command to the NT72315 chip.
     * @param mainCmd Main command as the chip numbers it.
     * @param subCmd Subordinate command as the chip numbers it.
     * @param value Value of the command.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setNT72315Command(int mainCmd, int subCmd, int value);

    /**
     * Reads the answer of the NT72315 chip to a command.
     * @param mainCmd Main command as the chip numbers it.
     * @param subCmd Subordinate command as the chip numbers it.
     * @param value Value of the command.
     * @return The answer; -1 when the service or the link fails.
     */
    int getNT72315Command(int mainCmd, int subCmd, int value);

    /**
     * Reads the version of the EP9169 chip.
     * @param Data Receives the text, terminator included, and must have room for all the service sends, 1,040,380 bytes
     * at most; untouched on failure and when there is no text.
     * @return 0, also when there is no text; -1 when the service or the link fails, and for a null `Data`, logged in
     * the words of `getNTPQPlatFormVer` and with nothing sent.
     */
    int getEP9169PlatFormVer(char* Data);

    /**
     * Upgrades the EP9169 chip.
     * @param path Path of the image. Null is sent as the empty text.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int upgradeEP9169IC(char const* path);

    /** @} */

    /**
     * @name Composed of items
     * @{
     */

    /**
     * Reads the version of the 455 chip.
     * @param pdata Receives the text, as in `getFactoryItemStrValue`; null is refused as there.
     * @return What `getFactoryItemStrValue` gives.
     */
    int get455Version(char* pdata);

    /**
     * Reads the version of the 457 chip.
     * @param pdata Receives the text, as in `getFactoryItemStrValue`; null is refused as there.
     * @return What `getFactoryItemStrValue` gives.
     */
    int get457Version(char* pdata);

    /**
     * Saves the adjusted values.
     * @param value What to save, as the service defines it.
     * @return What `setFactoryItemStrValue` gives.
     */
    int setAdjustParam(int value);

    /**
     * Reads the supported Ethernet configuration.
     * @return The first value of the item; 0 when the service or the link fails.
     */
    int getSupportEthConfig();

    /** @} */

private:
    Factory() = default;
};
