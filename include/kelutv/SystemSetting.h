/**
 * @file
 * The class `SystemSetting`; its C functions are in linux_kelutv_systemsetting.h.
 */
#pragma once

#include <kelutv/export.h>
#include <kelutv/system_types.h>

#include <list>

/**
 * The settings of the television as a whole.
 *
 * Every operation is one command to the TV base service, which owns all values; the object keeps none. A `bool` travels
 * as 0 or 1. An operation blocks until the service has answered, may be called from any thread, and writes nothing to
 * the log unless it says so, save that a set command whose link fails is logged as "invoke failure\n".
 */
class KELUTV_API SystemSetting {
public:
    /**
     * The one object, made on the first call from any thread and kept until the process ends.
     * @return The object; never null.
     */
    static SystemSetting* instance();

    SystemSetting(const SystemSetting&) = delete;
    SystemSetting& operator=(const SystemSetting&) = delete;

    /**
     * @name Defaults and screen
     * @{
     */

    /**
     * Restores the settings of the television to their defaults.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int restoreDefault();

    /**
     * Tells whether the blue screen is on.
     * @return False for the service's 0; true for any other answer, a failure included.
     */
    bool isScreenBlueEnable();

    /**
     * Switches the blue screen on or off.
     * @param onoff True switches it on.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int enableScreenBlue(bool onoff);

    /**
     * Sets the fixed output frame rate of the panel.
     * @param fixFrmRate Frame rate as the service numbers it.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setDispFixOutRate(int fixFrmRate);

    /**
     * Tells the service of the media that is shown: its size, dynamic range, and whether it is a video.
     * @param width,heigh Size in pixels.
     * @param hdrType Dynamic range, one of `KELU_TV_HDR_TYPE_E`.
     * @param isVideo 1 for a video, 0 for a picture.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int notifyPlatfromMediaInfo(int width, int heigh, int hdrType, int isVideo);

    /**
     * Reads which resolutions the television can show.
     * @return The resolutions as the service numbers them, in its order; empty when the service or the link
     * fails.
     */
    std::list<int> getSupportedTvResolution();

    /** @} */

    /**
     * @name Power
     * @{
     */

    /**
     * Enters the STR standby.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int enterStrSuspend();

    /**
     * Leaves the STR standby.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int strResume();

    /**
     * Enters the normal standby.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int enterNormalSuspend();

    /**
     * Enters the shallow standby.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int enterShallowSuspend();

    /**
     * Leaves the shallow standby.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int shallowResume();

    /**
     * Prepares a standby on behalf of a plug-in.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int preSuspendForPlugin();

    /**
     * Prepares a restart of the television.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int prepareReboot();

    /**
     * Prepares a standby.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int preSuspend();

    /**
     * Enters standby.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int suspend();

    /**
     * Leaves standby.
     * @param powerType What the television is switched on for, as the service numbers it.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int resume(int powerType);

    /**
     * Tells the service why the television goes into standby.
     * @param reason Reason as the service numbers it.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setStandbyReason(int reason);

    /**
     * Sets the half standby.
     * @param value Value as the service numbers it.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setHalfStandby(int value);

    /**
     * Reads the half standby.
     * @return The value; -1 when the service or the link fails.
     */
    int getHalfStandby();

    /**
     * Reads the wake-up mode.
     * @return The mode as the service numbers it; -1 when the service or the link fails.
     */
    int getWakeupMode();

    /**
     * Sets the timed wake-up.
     * A get command by its form: the answer is a value behind a result.
     * @param wakeupTime Time as the service counts it.
     * @param timerWakeupMode Mode as the service numbers it.
     * @param isNeedPanelOn 1 to light the panel, 0 to leave it dark.
     * @return The value that the service answers; -1 when the service or the link fails.
     */
    int setTimerWakeupParam(int wakeupTime, int timerWakeupMode, int isNeedPanelOn);

    /**
     * Reads the mode of the last power-off.
     * @return The mode as the service numbers it; -1 when the service or the link fails.
     */
    int getLastPowerOffMode();

    /** @} */

    /**
     * @name Start
     * @{
     */

    /**
     * Reads the version of the boot program.
     * @param pStr Receives the text with its terminator; there must be room for all of it, 1,040,380 bytes at most.
     * Untouched on failure.
     * @return 0; -1 when the service or the link fails or there is no text, and for a null `pStr`, with nothing
     * sent. All three are logged under the tag "TVBASEMW@SystemSetting".
     */
    int getBootVersion(char* pStr);

    /**
     * Sets the path of the boot picture.
     * @param path Path of the picture. Must not be null.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setBootPicPath(char const* path);

    /**
     * Reads the start mode of the television.
     * @return The mode as the service numbers it; -1 when the service or the link fails.
     */
    int getTvStartMode();

    /**
     * Chooses the start mode of the television.
     * @param mode Mode as the service numbers it.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setTvStartMode(int mode);

    /** @} */

    /**
     * @name Keys and camera
     * @{
     */

    /**
     * Tells whether the keys on the low-speed converter (LSADC) are on.
     * @return False for the service's 0; true for any other answer, a failure included.
     */
    bool isLSADCKeyEnable();

    /**
     * Switches the keys on the low-speed converter (LSADC) on or off.
     * @param onoff True switches them on.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int enableLSADCKey(bool onoff);

    /**
     * Reports a key to the service.
     * @param iKeyValue The key.
     * @param iStatus Whether it was pressed or released.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int reportKeyEvent(KELU_TV_LINUX_KEYCODE_E iKeyValue, KELU_TV_KPC_EV_KEY_E iStatus);

    /**
     * Moves the camera up or down.
     * @param mode Position as the service numbers it.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setCameraUpDown(int mode);

    /** @} */

    /**
     * @name Storage
     * @{
     */

    /**
     * Reads one byte of the EEPROM.
     * @param u32Address Address; the service enforces the range.
     * @return The byte; -1 when the service or the link fails.
     */
    int getEepByte(int u32Address);

    /**
     * Reads a block of the EEPROM.
     * @param u32Address First address; the service enforces the range.
     * @param buf Room for `u32Len` ints, one per byte of the block; all are written, 0 where the service sent
     * less. Untouched on failure.
     * @param u32Len Bytes in the block; below 1 the command is sent and nothing is written.
     * @return 0; -1 when the service or the link fails, and for a null `buf`, logged under the tag
     * "TVBASEMW@SystemSetting" and with nothing sent.
     */
    int getEepMulti(int u32Address, int* buf, int u32Len);

    /**
     * Writes one byte of the EEPROM.
     * @param u32Address Address; the service enforces the range.
     * @param value The byte.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setEepByte(int u32Address, int value);

    /**
     * Writes a block of the EEPROM.
     * @param u32Address First address; the service enforces the range.
     * @param buf One int per byte of the block; not looked at when `u32Len` is below 1, else not null.
     * @param u32Len Bytes in the block; below 1 the command is sent without any.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setEepMulti(int u32Address, int* buf, int u32Len);

    /**
     * Reads one byte of the flash EEPROM.
     * @param u32Address Address; the service enforces the range.
     * @return The byte; -1 when the service or the link fails.
     */
    int getFlashEepByte(int u32Address);

    /**
     * Reads a block of the flash EEPROM.
     * @param u32Address First address; the service enforces the range.
     * @param buf Room for `u32Len` ints, one per byte of the block; all are written, 0 where the service sent
     * less. Untouched on failure.
     * @param u32Len Bytes in the block; below 1 the command is sent and nothing is written.
     * @return 0; -1 when the service or the link fails, and for a null `buf`, logged under the tag
     * "TVBASEMW@SystemSetting" and with nothing sent.
     */
    int getFlashEepMulti(int u32Address, int* buf, int u32Len);

    /**
     * Writes one byte of the flash EEPROM.
     * @param u32Address Address; the service enforces the range.
     * @param value The byte.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setFlashEepByte(int u32Address, int value);

    /**
     * Writes a block of the flash EEPROM.
     * @param u32Address First address; the service enforces the range.
     * @param buf One int per byte of the block; not looked at when `u32Len` is below 1, else not null.
     * @param u32Len Bytes in the block; below 1 the command is sent without any.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setFlashEepMulti(int u32Address, int* buf, int u32Len);

    /**
     * Commits what was written to the flash EEPROM.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setFlashEepFlush();

    /** @} */

    /**
     * @name Lamps and sound bar
     * @{
     */

    /**
     * Sets one pulse-width modulated output.
     * @param pwmType Output as the service numbers it.
     * @param enable True switches it on.
     * @param freq Frequency as the service counts it.
     * @param duty Share of the time that it is on, as the service counts it.
     * @param invert True exchanges on and off.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setPWMInfo(int pwmType, bool enable, int freq, int duty, bool invert);

    /**
     * Switches the sound bar mode on or off.
     * @param enable True switches it on.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int enableSoundbarMode(bool enable);

    /**
     * Tells whether the sound bar mode is on.
     * @return False for the service's 0; true for any other answer, a failure included.
     */
    bool isSoundbarModeEnable();

    /** @} */

    /**
     * @name OLED panel
     * @{
     */

    /**
     * Tells whether OLED is enabled.
     * @return False for the service's 0; true for any other answer, a failure included.
     */
    bool isOledEnabled();

    /**
     * Asks for the JB and OFFRS repair of the OLED panel.
     * A get command by its form: the answer is a value behind a result.
     * @return False for the service's 0; true for any other answer, a failure included.
     */
    bool OledJbOffrsRepairProc();

    /**
     * Reads the OFFRS time of the OLED panel.
     * @return The time as the service counts it; -1 when the service or the link fails.
     */
    int getOledOffRsTime();

    /**
     * Asks for the OFFRS repair of the OLED panel.
     * A get command by its form: the answer is a value behind a result.
     * @return False for the service's 0; true for any other answer, a failure included.
     */
    bool setPanelOffrsRepair();

    /** @} */

    /**
     * @name Output of a box
     * @{
     */

    /**
     * Reads the output mode of 4K pictures.
     * @return The mode as the service numbers it; -1 when the service or the link fails.
     */
    int getOutput4k2k();

    /**
     * Chooses the output mode of 4K pictures.
     * @param mode Mode as the service numbers it.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setOutput4k2k(int mode);

    /**
     * Sets the edges of the picture that a box puts out.
     * @param iLeft,iTop,iRight,iBottom Edges as the service counts them.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setBoxOutputDispPara(int iLeft, int iTop, int iRight, int iBottom);

    /**
     * Reads the geometry of the picture that a box puts out.
     * @param pbuf Room for 12 ints; all are written, 0 where the service sent less. Untouched on failure. Must
     * not be null.
     * @return 0; -1 when the service or the link fails.
     */
    int getBoxOutputDispPara(int* pbuf);

    /**
     * Reads the format that a box puts out.
     * @return The format as the service numbers it; -1 when the service or the link fails.
     */
    int getBoxOutputFormat();

    /**
     * Chooses the format that a box puts out.
     * @param format Format as the service numbers it.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setBoxOutputFormat(int format);

    /** @} */

    /**
     * @name Ambient display and screen saving
     * @{
     */

    /**
     * Sets the state of the always-on display (AOD).
     * @param mode State as the service numbers it.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setAodState(int mode);

    /**
     * Sets the UI mode of the always-on display (AOD).
     * @param mode Mode as the service numbers it.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setAodUIMode(int mode);

    /**
     * Reads the UI mode of the always-on display (AOD).
     * @return The mode as the service numbers it; -1 when the service or the link fails.
     */
    int getAodUIMode();

    /**
     * Reads whether the AI close-screen mode is on.
     * @return The mode as the service numbers it; -1 when the service or the link fails.
     */
    int getAICloseScreenMode();

    /**
     * Sets the AI close-screen mode.
     * @param mode Mode as the service numbers it.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setAICloseScreenMode(int mode);

    /**
     * Sets the standby of the AI close-screen mode.
     * @param mode Mode as the service numbers it.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setAIScreenStandby(int mode);

    /**
     * Tells whether AI standby is supported.
     * @return False for the service's 0; true for any other answer, a failure included.
     */
    bool isSupportAIStandby();

    /** @} */

    /**
     * @name Generic items
     * @{
     */

    /**
     * Sets one item.
     * @param cmdID Item of the system module, of `KELU_TV_CMDID_E`.
     * @param param1,param2,param3,param4 What the item defines.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setSystemItemValue(int cmdID, int param1, int param2, int param3, int param4);

    /**
     * Reads one item.
     * @param cmdID Item of the system module, of `KELU_TV_CMDID_E`.
     * @param param1,param2 What the item defines.
     * @param pData Room for 255 ints (1,020 bytes); all are written, 0 where the service sent less. Untouched on
     * failure.
     * @return 0; -1 when the service or the link fails, and for a null `pData`, logged under the tag
     * "TVBASEMW@SystemSetting" and with nothing sent.
     */
    int getSystemItemValue(int cmdID, int param1, int param2, int* pData);

    /**
     * Reads the text of one item.
     * @param cmdID Item of the system module, of `KELU_TV_CMDID_E`.
     * @param param1,param2 What the item defines.
     * @param data Receives the text with its terminator; there must be room for all of it, 1,040,380 bytes at most.
     * Untouched on failure.
     * @return 0; -1 when the service or the link fails or there is no text, and for a null `data`, with nothing sent.
     * All three are logged under the tag "TVBASEMW@SystemSetting".
     */
    int getSystemItemStrValue(int cmdID, int param1, int param2, char* data);

    /**
     * Sets the text of one item.
     * @param cmdID Item of the system module, of `KELU_TV_CMDID_E`.
     * @param param1,param2 What the item defines.
     * @param stringParam The text; must not be null.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setSystemItemStrValue(int cmdID, int param1, int param2, char const* stringParam);

    /** @} */

    /**
     * @name Single items
     * @{
     */

    /**
     * Restarts the television.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int systemReboot();

    /**
     * Sets the pin of the wireless subwoofer.
     * @param value Level of the pin.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int SetWirelessSubWooferGpio(int value);

    /**
     * Chooses the language of the menus.
     * @param value Language, of `kq_lang_type_s`.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int SetMenuLanguage(int value);

    /**
     * Reads the language of the menus.
     * @param planguage Room for 255 ints, all written as `getSystemItemValue` does; the first is the language, of
     * `kq_lang_type_s`. Null is refused as there.
     * @return As `getSystemItemValue`.
     */
    int GetMenuLanguage(int* planguage);

    /**
     * Reads whether Ethernet and wireless network are compatible.
     * @param pdata Room for 255 ints, all written as `getSystemItemValue` does; the first is 0 for not. Null is refused
     * as there.
     * @return As `getSystemItemValue`.
     */
    int GetIsEthandWifiCompatible(int* pdata);

    /**
     * Reads whether the sound care mode is supported.
     * @param pdata Room for 255 ints, all written as `getSystemItemValue` does; the first is 0 for not. Null is refused
     * as there.
     * @return As `getSystemItemValue`.
     */
    int GetIsSupportSoundCareMode(int* pdata);

    /**
     * Chooses the audio input source of the sound bar.
     * @param value Input as the service numbers it.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int SetSoundBarAudioInputSource(int value);

    /**
     * Reads the audio input source of the sound bar.
     * @param pdata Room for 255 ints, all written as `getSystemItemValue` does; the first is the input as the service
     * numbers it. Null is refused as there.
     * @return As `getSystemItemValue`.
     */
    int GetSoundBarAudioInputSource(int* pdata);

    /** @} */

    /**
     * @name Raw channels
     * @{
     */

    /**
     * Hands a command to the player of digital television.
     * Success and failure are logged under the tag "TVBASEMW@SystemSetting"; there is no "invoke failure\n".
     * @param cmd Command as the service numbers it.
     * @param pData What the command carries; may be null, which sends no bytes.
     * @param dataSize Its size in bytes, sent as it is; below 1 no bytes are sent.
     * @return 0; -1 when the service or the link fails.
     */
    int dtvControl(int cmd, void* pData, int dataSize);

    /**
     * Hands a command to the television's own service and takes its answer.
     * The call, its end and the size of the answer are logged under the tag "TVBASEMW@SystemSetting"; there is no
     * "invoke failure\n".
     * @param cmd Command as the service numbers it.
     * @param pInputData What the command carries; may be null, which sends no bytes.
     * @param inSize Its size in bytes, sent as it is; below 1 no bytes are sent.
     * @param pOutputData Receives the answer; null takes none. The service's size is not held against the room here:
     * there must be room for all it sends, 1,040,376 bytes at most. Where its size is above what it sends, the bytes
     * that are missing are 0 as far as the room goes. Untouched on failure.
     * @param outSize In: the room in bytes, told to the service. Out: the size as the service gives it; untouched on
     * failure, and without `pOutputData`. May be null, which takes no answer.
     * @return 0; -1 when the service or the link fails.
     */
    int sendCmdToTVServer(int cmd, void* pInputData, int inSize, void* pOutputData, int* outSize);

    /** @} */

private:
    SystemSetting() = default;
};
