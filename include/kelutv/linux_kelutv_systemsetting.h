/**
 * @file
 * The settings of the television as a whole: power, start, keys, output, language, and the state of its software.
 *
 * A function is one command to the TV base service, which owns all values. It blocks until the service has answered and
 * may be called from any thread. A `bool` travels as 0 or 1. A set command whose link fails is logged as
 * "invoke failure\n"; what else is logged is said here or at the methods of `SystemSetting`. A function that sets or
 * reads an item does so through `linux_tv_SystemSetting_setSystemItemValue`,
 * `linux_tv_SystemSetting_getSystemItemValue` or `linux_tv_SystemSetting_getSystemItemStrValue`.
 */
#ifndef KELUTV_LINUX_KELUTV_SYSTEMSETTING_H
#define KELUTV_LINUX_KELUTV_SYSTEMSETTING_H

#include <kelutv/export.h>
#include <kelutv/system_types.h>

#include <stdbool.h>

#ifdef __cplusplus
extern "C" {
#endif

/**
 * @name Defaults and screen
 * @{
 */

/**
 * Restores the settings of the television to their defaults.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_SystemSetting_restoreDefault(void);

/**
 * Tells whether the blue screen is on.
 * @return 0 for the service's 0; 1 for any other answer, a failure included.
 */
KELUTV_API int linux_tv_SystemSetting_isScreenBlueEnable(void);

/**
 * Switches the blue screen on or off.
 * @param onoff True switches it on.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_SystemSetting_enableScreenBlue(bool onoff);

/**
 * Sets the fixed output frame rate of the panel.
 * @param fixFrmRate Frame rate as the service numbers it.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_SystemSetting_setDispFixOutRate(int fixFrmRate);

/**
 * Reads which resolutions the television can show.
 * @param pModeList Receives the resolutions as the service numbers them, in its order. Must have room for all the
 * service sends, which alone bounds what is written: 260,095 at most. Untouched on failure; may be null.
 * @param pListSize Receives their count, 0 on failure; may be null.
 * @return 0; -1 when there is no entry or the service or the link fails.
 */
KELUTV_API int linux_tv_SystemSetting_getSupportedTvResolution(int* pModeList, int* pListSize);

/** @} */

/**
 * @name Power
 * @{
 */

/**
 * Prepares a standby on behalf of a plug-in.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_SystemSetting_preSuspendForPlugin(void);

/**
 * Prepares a restart of the television.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_SystemSetting_prepareReboot(void);

/**
 * Prepares a standby.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_SystemSetting_preSuspend(void);

/**
 * Enters standby.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_SystemSetting_suspend(void);

/**
 * Leaves standby.
 * @param powerType What the television is switched on for, as the service numbers it.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_SystemSetting_resume(int powerType);

/**
 * Tells the service why the television goes into standby.
 * @param reason Reason as the service numbers it.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_SystemSetting_setStandbyReason(int reason);

/**
 * Sets the half standby.
 * @param value Value as the service numbers it.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_SystemSetting_setHalfStandby(int value);

/**
 * Reads the half standby.
 * @return The value; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_SystemSetting_getHalfStandby(void);

/**
 * Reads the wake-up mode.
 * @return The mode as the service numbers it; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_SystemSetting_getWakeupMode(void);

/**
 * Reads the mode of the last power-off.
 * @return The mode as the service numbers it; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_SystemSetting_getLastPowerOffMode(void);

/** @} */

/**
 * @name Start
 * @{
 */

/**
 * Reads the version of the boot program.
 * @param pStr Receives the text with its terminator; there must be room for all of it, 1,040,380 bytes at most.
 * Untouched on failure.
 * @return 0; -1 when the service or the link fails or there is no text, which is logged, and for a null pointer,
 * with nothing sent or logged.
 */
KELUTV_API int linux_tv_SystemSetting_getBootVersion(char* pStr);

/**
 * Sets the path of the boot picture.
 * @param pathName Path of the picture.
 * @return The service's result, 0 for success; -1 when the link fails, and for a null path, with nothing sent or
 * logged.
 */
KELUTV_API int linux_tv_SystemSetting_setBootPicPath(const char* pathName);

/**
 * Reads the start mode of the television.
 * @return The mode as the service numbers it; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_SystemSetting_getTvStartMode(void);

/**
 * Chooses the start mode of the television.
 * @param mode Mode as the service numbers it.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_SystemSetting_setTvStartMode(int mode);

/** @} */

/**
 * @name Keys and camera
 * @{
 */

/**
 * Tells whether the keys on the low-speed converter (LSADC) are on.
 * @return 0 for the service's 0; 1 for any other answer, a failure included.
 */
KELUTV_API int linux_tv_SystemSetting_isLSADCKeyEnable(void);

/**
 * Switches the keys on the low-speed converter (LSADC) on or off.
 * @param onoff True switches them on.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_SystemSetting_enableLSADCKey(bool onoff);

/**
 * Reports a key to the service.
 * The key is logged first, at info priority under the tag "TVBASEMW@linuxSystemSetting".
 * @param iKeyValue The key.
 * @param iStatus Whether it was pressed or released.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_SystemSetting_reportKeyEvent(KELU_TV_LINUX_KEYCODE_E iKeyValue, KELU_TV_KPC_EV_KEY_E iStatus);

/**
 * Moves the camera up or down.
 * @param mode Position as the service numbers it.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_SystemSetting_setCameraUpDown(int mode);

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
KELUTV_API int linux_tv_SystemSetting_setPWMInfo(int pwmType, bool enable, int freq, int duty, bool invert);

/**
 * Switches the sound bar mode on or off.
 * @param enable True switches it on.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_SystemSetting_enableSoundbarMode(bool enable);

/**
 * Tells whether the sound bar mode is on.
 * @return 0 for the service's 0; 1 for any other answer, a failure included.
 */
KELUTV_API int linux_tv_SystemSetting_isSoundbarModeEnable(void);

/** @} */

/**
 * @name OLED panel
 * @{
 */

/**
 * Tells whether OLED is enabled.
 * @return 0 for the service's 0; 1 for any other answer, a failure included.
 */
KELUTV_API int linux_tv_SystemSetting_isOledEnabled(void);

/**
 * Asks for the JB and OFFRS repair of the OLED panel.
 * A get command by its form: the answer is a value behind a result.
 * @return 0 for the service's 0; 1 for any other answer, a failure included.
 */
KELUTV_API int linux_tv_SystemSetting_OledJbOffrsRepairProc(void);

/**
 * Reads the OFFRS time of the OLED panel.
 * @return The time as the service counts it; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_SystemSetting_getOledOffRsTime(void);

/**
 * Asks for the OFFRS repair of the OLED panel.
 * A get command by its form: the answer is a value behind a result.
 * @return 0 for the service's 0; 1 for any other answer, a failure included.
 */
KELUTV_API int linux_tv_SystemSetting_setPanelOffrsRepair(void);

/** @} */

/**
 * @name Output of a box
 * @{
 */

/**
 * Reads the output mode of 4K pictures.
 * @return The mode as the service numbers it; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_SystemSetting_getOutput4k2k(void);

/**
 * Chooses the output mode of 4K pictures.
 * @param mode Mode as the service numbers it.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_SystemSetting_setOutput4k2k(int mode);

/**
 * Sets the edges of the picture that a box puts out.
 * @param iLeft,iTop,iRight,iBottom Edges as the service counts them.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_SystemSetting_setBoxOutputDispPara(int iLeft, int iTop, int iRight, int iBottom);

/**
 * Reads the geometry of the picture that a box puts out.
 * @param pBuf Room for 12 ints; all are written, 0 where the service sent less. Untouched on failure.
 * @return 0; -1 when the service or the link fails, and for a null pointer, with nothing sent or logged.
 */
KELUTV_API int linux_tv_SystemSetting_getBoxOutputDispPara(int* pBuf);

/**
 * Reads the format that a box puts out.
 * @return The format as the service numbers it; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_SystemSetting_getBoxOutputFormat(void);

/**
 * Chooses the format that a box puts out.
 * @param format Format as the service numbers it.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_SystemSetting_setBoxOutputFormat(int format);

/** @} */

/**
 * @name Ambient display and screen saving
 * @{
 */

/**
 * Reads whether the AI close-screen mode is on.
 * @return False for the service's 0; true for any other answer, a failure included.
 */
KELUTV_API bool linux_tv_SystemSetting_getAICloseScreenMode(void);

/**
 * Sets the AI close-screen mode.
 * @param mode True switches it on.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_SystemSetting_setAICloseScreenMode(bool mode);

/**
 * Sets the standby of the AI close-screen mode.
 * @param mode Mode as the service numbers it.
 * @return The service's result as a flag: false for success, true for a failure.
 */
KELUTV_API bool linux_tv_SystemSetting_setAIScreenStandby(int mode);

/**
 * Tells whether AI standby is supported.
 * @return 0 for the service's 0; 1 for any other answer, a failure included.
 */
KELUTV_API int linux_tv_SystemSetting_isSupportAIStandby(void);

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
KELUTV_API int linux_tv_SystemSetting_setSystemItemValue(int cmdID, int param1, int param2, int param3, int param4);

/**
 * Reads one item.
 * @param cmdID Item of the system module, of `KELU_TV_CMDID_E`.
 * @param param1,param2 What the item defines.
 * @param pData Room for 255 ints (1,020 bytes); all are written, 0 where the service sent less. Untouched on
 * failure.
 * @return 0; -1 when the service or the link fails, and for a null pointer, with nothing sent or logged.
 */
KELUTV_API int linux_tv_SystemSetting_getSystemItemValue(int cmdID, int param1, int param2, int* pData);

/**
 * Sets the text of one item.
 * @param cmdID Item of the system module, of `KELU_TV_CMDID_E`.
 * @param param1,param2 What the item defines.
 * @param stringParam The text.
 * @return The service's result, 0 for success; -1 when the link fails, and for a null text, with nothing sent or
 * logged.
 */
KELUTV_API int linux_tv_SystemSetting_setSystemItemStrValue(int cmdID, int param1, int param2, const char* stringParam);

/**
 * Reads the text of one item.
 * @param cmdID Item of the system module, of `KELU_TV_CMDID_E`.
 * @param param1,param2 What the item defines.
 * @param data Receives the text with its terminator; there must be room for all of it, 1,040,380 bytes at most.
 * Untouched on failure.
 * @return 0; -1 when the service or the link fails or there is no text, which is logged, and for a null pointer,
 * with nothing sent or logged.
 */
KELUTV_API int linux_tv_SystemSetting_getSystemItemStrValue(int cmdID, int param1, int param2, char* data);

/** @} */

/**
 * @name Language
 * @{
 */

/**
 * Chooses the language of the menus.
 * @param lan Language, of `kq_lang_type_s`.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_SystemSetting_setLanguage(int lan);

/**
 * Reads the language of the menus.
 * A failure is told on standard output without a line end.
 * @return The language, of `kq_lang_type_s`; 0 when the service or the link fails.
 */
KELUTV_API int linux_tv_SystemSetting_getLanguage(void);

/**
 * Reads which languages the menus can be shown in.
 * @param pCountryList Receives at most 254 entries, of `kq_lang_type_s`; untouched on failure. May be null.
 * @param pListSize Receives the count as the service gives it, of which at most 254 entries are there; 0 on failure.
 * May be null.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_SystemSetting_getLanguageList(int* pCountryList, int* pListSize);

/**
 * Reads which languages subtitles and sound can have in a country, and logs each at info priority under the tag
 * "TVBASEMW@linuxSystemSetting".
 * @param country Country as the service numbers it.
 * @param pLanList Receives at most 254 entries, of `kq_lang_type_s`; untouched on failure. May be null.
 * @param pListSize Receives the count as the service gives it, of which at most 254 entries are there; 0 on failure.
 * May be null.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_SystemSetting_getSubtitleLanList(int country, int* pLanList, int* pListSize);

/** @} */

/**
 * @name The service and its software
 * @{
 */

/**
 * Reads the version of the middleware.
 * @param version Receives the text with its terminator; there must be room for all of it, 1,040,380 bytes at most.
 * Untouched on failure.
 * @return 0; -1 when the service or the link fails or there is no text, which is logged, and for a null pointer,
 * with nothing sent or logged.
 */
KELUTV_API int linux_tv_SystemSetting_getMiddlewareVersion(char* version);

/**
 * Reads whether the service has finished its start.
 * @param pIsFinish Receives the answer, false on failure; may be null.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_SystemSetting_getTvserverInitFinish(bool* pIsFinish);

/**
 * Switches the market mode on or off.
 * @param enable True switches it on.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_SystemSetting_setMarketModeEnable(bool enable);

/**
 * Reads whether the market mode is on.
 * @param pEnable Receives the answer, false on failure; may be null.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_SystemSetting_getMarketModeEnable(bool* pEnable);

/**
 * Registers one event with the service, or takes that back.
 * @param event Event as the service numbers it.
 * @param isRegigster True asks for it.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_SystemSetting_setSingleCallBack(int event, bool isRegigster);

/**
 * Reads what chip and kind of device this is.
 * @param pPlatform Receives the answer, of `SOC_TV_PLATFORM_TYPE_E`; 0 on failure; may be null.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_SystemSetting_getSocPlatformInfo(int* pPlatform);

/**
 * Chooses the debug mode of the software.
 * @param mode Mode as the service numbers it.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_SystemSetting_setSoftwareDebugMode(int mode);

/**
 * Reads the debug mode of the software.
 * @param pMode Receives the mode as the service numbers it; 0 on failure; may be null.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_SystemSetting_getSoftwareDebugMode(int* pMode);

/**
 * Tells the service the status of the boot video.
 * @param status Status as the service numbers it.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_SystemSetting_SetBootVideoStatus(int status);

/**
 * Tells the service the initialisation status of the applications.
 * @param status Status as the service numbers it.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_SystemSetting_SetAPPInitStatus(int status);

/** @} */

/**
 * @name Screen and reception
 * @{
 */

/**
 * Switches the screen on or off.
 * @param onOff True switches it on.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_SystemSetting_setScreenOn(bool onOff);

/**
 * Reads whether the screen is on.
 * @param pOnOff Receives the answer, false on failure; may be null.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_SystemSetting_getScreenOn(bool* pOnOff);

/**
 * Tells the service the status of the vertical synchronisation.
 * @param status Status as the service numbers it.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_SystemSetting_SetVsyncStatus(int status);

/**
 * Reads the range of the analogue channel scan.
 * @param pMinFre Receives the lowest frequency as the service counts it; 0 on failure; may be null.
 * @param pMaxFre Receives the highest; 0 on failure; may be null.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_SystemSetting_getAtvScanRange(int* pMinFre, int* pMaxFre);

/** @} */

#ifdef __cplusplus
}
#endif

#endif
