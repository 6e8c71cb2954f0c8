/**
 * @file
 * The input sources of the television, the windows that show them, and the signal.
 *
 * Every function is one command to the TV base service, which owns all values. It blocks until the service has answered
 * and may be called from any thread. A `bool` travels as 0 or 1. A set command whose link fails is logged as
 * "invoke failure\n". What else is logged is said at
 * the function; it goes to the log as information under the tag "TVBASEMW@linuxSourceManager".
 */
#ifndef KELUTV_LINUX_KELUTV_SOURCEMANAGER_H
#define KELUTV_LINUX_KELUTV_SOURCEMANAGER_H

#include <kelutv/export.h>
#include <kelutv/source_types.h>

#ifdef __cplusplus
extern "C" {
#endif

/**
 * @name Choosing a source
 * @{
 */

/**
 * Shows a source in a display window.
 * Logged with its arguments before and after the call.
 * @param srcId Source, one of `KELU_TV_SRC_E`.
 * @param mainWindow Display window, one of `KELU_TV_WINDOW_E`.
 * @return 0, also when the service or the link fails.
 */
KELUTV_API int linux_tv_SourceManager_selectSource(int srcId, int mainWindow);

/**
 * Releases a source.
 * @param srcId Source, one of `KELU_TV_SRC_E`.
 * @param bDestroy Anything but 0 also gives up what the source holds.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_SourceManager_deselectSource(int srcId, int bDestroy);

/**
 * Reads the source in a display window.
 * Logged with what it gives.
 * @param mainWindow Display window, one of `KELU_TV_WINDOW_E`.
 * @return One of `KELU_TV_SRC_E`, `KELU_TV_SRC_DIG2` given as `KELU_TV_SRC_DIG1`; -1 when the service or the link
 * fails.
 */
KELUTV_API int linux_tv_SourceManager_getCurSourceId(int mainWindow);

/**
 * Reads the source that was selected last.
 * @return One of `KELU_TV_SRC_E`, `KELU_TV_SRC_DIG2` given as `KELU_TV_SRC_DIG1`; -1 when the service or the link
 * fails.
 */
KELUTV_API int linux_tv_SourceManager_getSelectSourceId(void);

/**
 * Reads the source that the main window had before.
 * Logged with what it gives.
 * @return One of `KELU_TV_SRC_E`, `KELU_TV_SRC_DIG2` as such; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_SourceManager_getLastMainSource(void);

/**
 * Sets the source that the television starts with.
 * @param srcId Source, one of `KELU_TV_SRC_E`.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_SourceManager_setBootSource(int srcId);

/**
 * Reads the source that the television starts with.
 * @return One of `KELU_TV_SRC_E`, `KELU_TV_SRC_DIG2` given as `KELU_TV_SRC_DIG1`; -1 when the service or the link
 * fails.
 */
KELUTV_API int linux_tv_SourceManager_getBootSource(void);

/**
 * Reads the sources that the television has.
 * @param list Receives the sources in the service's order, each one of `KELU_TV_SRC_E`, unchecked;
 * `KELU_TV_SRC_DIG2` is left out. Must have room for all the service sends, which alone bounds what is written: 17 when
 * it names each source once, 260,095 at most. May be null.
 * @param count Receives how many there are, 0 on failure; may be null.
 * @return 0, also when only `KELU_TV_SRC_DIG2` was left out; -1 when there is no source or the service or the link
 * fails.
 */
KELUTV_API int linux_tv_SourceManager_getSourceList(int* list, int* count);

/**
 * Reads the sources that can be chosen now.
 * @param list Receives the sources in the service's order, each one of `KELU_TV_SRC_E`, unchecked,
 * `KELU_TV_SRC_DIG2` among them. Must have room for all the service sends, which alone bounds what is written: 18 when
 * it names each source once, 260,095 at most. May be null.
 * @param count Receives how many there are, 0 on failure; may be null.
 * @return 0; -1 when there is no source or the service or the link fails.
 */
KELUTV_API int linux_tv_SourceManager_getAvailSourceList(int* list, int* count);

/**
 * Reads whether the television has several AV inputs.
 * @return The service's value, 1 for several; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_SourceManager_isHasMultiAvSource(void);

/**
 * Reads whether a source must be released for a command.
 * @param enumSourceIndex Source, one of `KELU_TV_SRC_E`.
 * @param command Command as the service numbers it.
 * @return The service's value, 1 if it must; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_SourceManager_isNeedRelease(int enumSourceIndex, int command);

/**
 * Reads whether a change of source needs the media to be switched.
 * @param fromSource,toSource Sources, each one of `KELU_TV_SRC_E`.
 * @param command Command as the service numbers it.
 * @return The service's value, 1 if it does; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_SourceManager_isNeedSwitchMedia(int fromSource, int toSource, int command);

/**
 * Reads whether a change of source needs the new one to be selected.
 * @param fromSource,toSource Sources, each one of `KELU_TV_SRC_E`.
 * @return The service's value, 1 if it does; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_SourceManager_isNeedSelectSoucre(int fromSource, int toSource);

/** @} */

/**
 * @name Display windows
 * @{
 */

/**
 * Places a display window.
 * @param rect Place and size.
 * @param mainWindow Display window, one of `KELU_TV_WINDOW_E`.
 * @param flag What the service defines.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_SourceManager_setWindowRect(KeluRect rect, int mainWindow, int flag);

/**
 * Reads the place of a display window.
 * @param rect Receives place and size; untouched when the service or the link fails.
 * @param mainWindow Display window, one of `KELU_TV_WINDOW_E`.
 * @return 0, also when the service or the link fails; -1 for a null pointer, with nothing sent.
 */
KELUTV_API int linux_tv_SourceManager_getWindowRect(KeluRect* rect, int mainWindow);

/**
 * Switches the display of two sources on or off.
 * @param enable Anything but 0 switches it on.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_SourceManager_enableDualDisplay(int enable);

/**
 * Puts a display window on the left or on the right.
 * @param left Anything but 0 puts it on the left.
 * @param mainWindow Display window, one of `KELU_TV_WINDOW_E`.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_SourceManager_setDisplayOnLeft(int left, int mainWindow);

/**
 * Gives a display window the focus.
 * @param mainWindow Display window, one of `KELU_TV_WINDOW_E`.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_SourceManager_setFocusWindow(int mainWindow);

/** @} */

/**
 * @name The signal
 * @{
 */

/**
 * Reads the timing of the current signal.
 * @param info Receives the timing; untouched on failure.
 * @return 0; -1 when the width is 0, as it is when the service or the link fails, and for a null pointer, with nothing
 * sent.
 */
KELUTV_API int linux_tv_SourceManager_getTimingInfo(TimingScreen* info);

/**
 * Reads the state of the current signal.
 * @return The state as the service numbers it; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_SourceManager_getSignalStatus(void);

/**
 * Tells whether a source that is not shown has a signal.
 * @param source Source, one of `KELU_TV_SRC_E`.
 * @return 0 for the service's 0; 1 for any other answer, a failure included.
 */
KELUTV_API int linux_tv_SourceManager_getOfflineSigStatus(int source);

/**
 * Tells whether the HDMI signal is a DVI signal.
 * @return 0 for the service's 0; 1 for any other answer, a failure included.
 */
KELUTV_API int linux_tv_SourceManager_isDVIMode(void);

/**
 * Tells whether an MHL device is connected.
 * @return 0 for the service's 0; 1 for any other answer, a failure included.
 */
KELUTV_API int linux_tv_SourceManager_isMHLStatus(void);

/**
 * Tells whether the source in use is the MHL port.
 * @return 0 for the service's 0; 1 for any other answer, a failure included.
 */
KELUTV_API int linux_tv_SourceManager_isMHLPortInUse(void);

/**
 * Sends a key of the remote control to the MHL device.
 * @param key Key code of the MHL remote control protocol.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_SourceManager_sendRcpKey(int key);

/** @} */

#ifdef __cplusplus
}
#endif

#endif
