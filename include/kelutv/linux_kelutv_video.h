/**
 * @file
 * Three-dimensional pictures, display windows, analogue signals, and play control of digital television.
 *
 * Every function is one command to the TV base service, which owns all values. It blocks until the service has answered
 * and may be called from any thread. A `bool` travels as 0 or 1. A set command whose link fails is logged as
 * "invoke failure\n", but for `linux_tv_Video_DvbPlayCtrl`, which logs differently.
 */
#ifndef KELUTV_LINUX_KELUTV_VIDEO_H
#define KELUTV_LINUX_KELUTV_VIDEO_H

#include <kelutv/export.h>
#include <kelutv/picture_types.h>
#include <kelutv/source_types.h>
#include <kelutv/video_types.h>

#include <stdbool.h>

#ifdef __cplusplus
extern "C" {
#endif

/**
 * @name Three dimensions
 * @{
 */

/**
 * Tells whether the picture is shown in 3D.
 * @return 0 for the service's 0; 1 for any other answer, a failure included.
 */
KELUTV_API int linux_tv_Video_is3dEnable(void);

/**
 * Reads the 3D mode.
 * @return One of `KELU_TV_3DMODE_E`; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Video_get3dMode(void);

/**
 * Chooses the 3D mode.
 * @param mode One of `KELU_TV_3DMODE_E`.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Video_set3dMode(int mode);

/**
 * Tells whether the views of the two eyes are exchanged.
 * @return 0 for the service's 0; 1 for any other answer, a failure included.
 */
KELUTV_API int linux_tv_Video_getSwitchLR(void);

/**
 * Exchanges the views of the two eyes or puts them back.
 * @param onoff True exchanges them.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Video_switchLR(bool onoff);

/**
 * Reads the depth of the 3D picture.
 * @return The depth; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Video_getDepth(void);

/**
 * Sets the depth of the 3D picture.
 * @param depth Depth; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Video_setDepth(int depth);

/**
 * Reads the view of the 3D picture.
 * @return The view; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Video_getView(void);

/**
 * Sets the view of the 3D picture.
 * @param view View; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Video_setView(int view);

/**
 * Tells whether a 3D signal is shown flat.
 * @return 0 for the service's 0; 1 for any other answer, a failure included.
 */
KELUTV_API int linux_tv_Video_get3dto2d(void);

/**
 * Shows a 3D signal flat, or in 3D again.
 * @param mode True shows it flat.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Video_set3dto2d(bool mode);

/** @} */

/**
 * @name Windows and items
 * @{
 */

/**
 * Reads the geometry of the display window.
 * @param source Not sent.
 * @param attr Receives the geometry; untouched when the service or the link fails. May be null.
 * @return 0, also when the service or the link fails.
 */
KELUTV_API int linux_tv_Video_getWindowAttr(KELU_TV_SRC_E source, KELU_TV_WINDOW_ATTR_S* attr);

/**
 * Sets the geometry of the display window.
 * @param source Not sent.
 * @param stWinAttr The geometry; the service enforces the ranges. Must not be null.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Video_setWindowAttr(KELU_TV_SRC_E source, KELU_TV_WINDOW_ATTR_S* stWinAttr);

/**
 * Sets one item.
 * @param cmdID Item of the video module, of `KELU_TV_CMDID_E`.
 * @param param1,param2,param3,param4 What the item defines.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Video_setVideoItemValue(int cmdID, int param1, int param2, int param3, int param4);

/**
 * Reads one item.
 * @param cmdID Item of the video module, of `KELU_TV_CMDID_E`.
 * @param param1,param2 What the item defines.
 * @param pData Room for 255 ints (1,020 bytes); all are written, 0 where the service sent less. Untouched on failure.
 * @return 0; -1 when the service or the link fails, and for a null pointer, with nothing sent or logged.
 */
KELUTV_API int linux_tv_Video_getVideoItemValue(int cmdID, int param1, int param2, int* pData);

/** @} */

/**
 * @name Signal and analogue video
 * @{
 */

/**
 * Chooses the work mode of the decoder of analogue video.
 * @param workMode The mode.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Video_setWorkMode(KELU_TV_TVD_WORK_MODE_E workMode);

/**
 * Chooses the colour system.
 * @param colorSys The colour system.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Video_setColorSystem(KELU_TV_CLRSYS_E colorSys);

/**
 * Reads the state of a source's signal.
 * @param source The source.
 * @param status Receives the state, 0 on failure; may be null.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Video_getSignalStatusSync(KELU_TV_SRC_E source, KELU_TV_SIGNAL_E* status);

/**
 * Reads whether the signal has 625 lines.
 * @param pbIs625 Receives the answer, false on failure; may be null.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Video_get625Mode(bool* pbIs625);

/**
 * Reads whether the receiver is locked to the signal.
 * @param signalLock Receives the answer, false on failure; may be null.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Video_isSignalLock(bool* signalLock);

/**
 * Reads the list of what the television supports.
 * @param pList Room for 255 entries, values as the service numbers them; untouched on failure. May be null.
 * @param length Receives the count as the service gives it, of which at most 255 entries are there; 0 on failure. May
 *        be null.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Video_getTvSupportList(int* pList, int* length);

/** @} */

/**
 * @name Muting and play control
 * @{
 */

/**
 * Covers the display window with a colour, or shows it again.
 * Of the colour `blue` is not used: `green` is sent in its place.
 * @param mute True covers it.
 * @param color Colour, each part 0 to 255; null is black.
 * @param freeze True keeps the last picture.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_Video_muteWindow(bool mute, KELU_TV_COLOR_S* color, bool freeze);

/**
 * Reads whether the display window is covered.
 * @param argMute Receives whether it is covered; false on failure.
 * @param argFreeze Receives whether the last picture is kept; false on failure.
 * @return 0; -1 when the service or the link fails, and for a null pointer, told on standard output and with nothing
 * sent.
 */
KELUTV_API int linux_tv_Video_getMuteWindowStatus(bool* argMute, bool* argFreeze);

/**
 * Hands a command to the player of digital television.
 * The command is told on standard output beforehand; success and failure are logged under the tag
 * "TVBASEMW@SystemSetting" as "[dtvControl, 600] success", debug, and "[dtvControl, 605] failed", error. A link that
 * fails is logged so, too, and not as "invoke failure\n".
 * @param cmd Command as the service numbers it.
 * @param pData What the command carries; may be null, which sends no bytes.
 * @param dataSize Its size in bytes, sent as it is; below 1 no bytes are sent.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_Video_DvbPlayCtrl(int cmd, unsigned char* pData, int dataSize);

/** @} */

#ifdef __cplusplus
}
#endif

#endif
