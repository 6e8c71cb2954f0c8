/**
 * @file
 * The class `SourceManager`; its C functions are in linux_kelutv_sourcemanager.h.
 */
#pragma once

#include <kelutv/export.h>
#include <kelutv/source_types.h>

#include <list>

/**
 * The input sources of the television, the windows that show them, and the signal.
 *
 * Every operation is one command to the TV base service, which owns all values; the object keeps none. A `bool` travels
 * as 0 or 1. An operation blocks until the service has answered, may be called from any thread, and writes nothing to
 * the log unless it says so, save that a set command whose link fails is logged as "invoke failure\n".
 */
class KELUTV_API SourceManager {
public:
    /**
     * The one object, made on the first call from any thread and kept until the process ends.
     * @return The object; never null.
     */
    static SourceManager* instance();

    SourceManager(const SourceManager&) = delete;
    SourceManager& operator=(const SourceManager&) = delete;

    /**
     * @name Choosing a source
     * @{
     */

    /**
     * Shows a source in a display window.
     * Sends `CMD_SOURCE_SELECTSOURCE`: `srcId`, `mainWindow`.
     * @param srcId Source, one of `KELU_TV_SRC_E`.
     * @param mainWindow Display window, as the service numbers it.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int selectSource(int srcId, int mainWindow);

    /**
     * Releases a source.
     * Sends `CMD_SOURCE_DESELECTSOURCE`: `srcId`, `bDestroy`.
     * @param srcId Source, one of `KELU_TV_SRC_E`.
     * @param bDestroy True also gives up what the source holds.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int deselectSource(int srcId, bool bDestroy);

    /**
     * Reads the source in a display window.
     * Sends `CMD_SOURCE_GETCURSOURCEID`: `mainWindow`.
     * @param mainWindow Display window, as the service numbers it.
     * @return One of `KELU_TV_SRC_E`; -1 when the service or the link fails.
     */
    int getCurSourceId(int mainWindow);

    /**
     * Reads the source that was selected last.
     * Sends `CMD_SOURCE_GETSELECTSOURCEID`.
     * @return One of `KELU_TV_SRC_E`; -1 when the service or the link fails.
     */
    int getSelectSourceId();

    /**
     * Reads the source that the main window had before.
     * Sends `CMD_SOURCE_GETLASTMAINSOURCE`.
     * @return One of `KELU_TV_SRC_E`; -1 when the service or the link fails.
     */
    int getLastMainSource();

    /**
     * Sets the source that the television starts with.
     * Sends `CMD_SOURCE_SETBOOTSOURCE`: `srcId`.
     * @param srcId Source, one of `KELU_TV_SRC_E`.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setBootSource(int srcId);

    /**
     * Reads the source that the television starts with.
     * Sends `CMD_SOURCE_GETBOOTSOURCE`.
     * @return One of `KELU_TV_SRC_E`; -1 when the service or the link fails.
     */
    int getBootSource();

    /**
     * Reads the sources that the television has.
     * Sends `CMD_SOURCE_GETSOURCELIST`; the answer holds sources until its end.
     * @return The sources in the service's order, each one of `KELU_TV_SRC_E`; empty when the service or the link
     * fails.
     */
    std::list<int> getSourceList();

    /**
     * Reads the sources that can be chosen now.
     * Sends `CMD_SOURCE_GETAVAILSOURCELIST`; the answer holds sources until its end.
     * @return The sources in the service's order, each one of `KELU_TV_SRC_E`; empty when the service or the link
     * fails.
     */
    std::list<int> getAvailSourceList();

    /**
     * Reads whether the television has several AV inputs.
     * Sends `CMD_SOURCE_ISHASMULTIAVSOURCE`.
     * @return The service's value, 1 for several; -1 when the service or the link fails.
     */
    int isHasMultiAvSource();

    /**
     * Reads whether a source must be released for a command.
     * Sends `CMD_SOURCE_ISNEEDRELEASE`: `enumSourceIndex`, `command`.
     * @param enumSourceIndex Source, one of `KELU_TV_SRC_E`.
     * @param command Command as the service numbers it.
     * @return The service's value, 1 if it must; -1 when the service or the link fails.
     */
    int isNeedRelease(int enumSourceIndex, int command);

    /**
     * Reads whether a change of source needs the media to be switched.
     * Sends `CMD_SOURCE_ISNEEDSWITCHMEDIA`: `fromSource`, `toSource`, `command`.
     * @param fromSource,toSource Sources, each one of `KELU_TV_SRC_E`.
     * @param command Command as the service numbers it.
     * @return The service's value, 1 if it does; -1 when the service or the link fails.
     */
    int isNeedSwitchMedia(int fromSource, int toSource, int command);

    /**
     * Reads whether a change of source needs the new one to be selected.
     * Sends `CMD_SOURCE_ISNEEDSELECTSOURCE`: `fromSource`, `toSource`.
     * @param fromSource,toSource Sources, each one of `KELU_TV_SRC_E`.
     * @return The service's value, 1 if it does; -1 when the service or the link fails.
     */
    int isNeedSelectSoucre(int fromSource, int toSource);

    /** @} */

    /**
     * @name Display windows
     * @{
     */

    /**
     * Places a display window.
     * Sends `CMD_SOURCE_SETWINDOWRECT`: `x`, `y`, `width`, `height`, `mainWindow`, `flag`.
     * @param rect Place and size.
     * @param mainWindow Display window, as the service numbers it.
     * @param flag What the service defines.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setWindowRect(KeluRect rect, int mainWindow, int flag);

    /**
     * Reads the place of a display window.
     * Sends `CMD_SOURCE_GETWINDOWRECT`: `mainWindow`; the answer holds `x`, `y`, `width`, `height`.
     * @param rect Receives place and size; untouched when the service or the link fails.
     * @param mainWindow Display window, as the service numbers it.
     * @return 0, also when the service or the link fails; -1 for a null `rect`, with nothing sent.
     */
    int getWindowRect(KeluRect* rect, int mainWindow);

    /**
     * Switches the display of two sources on or off.
     * Sends `CMD_SOURCE_SETDUALDISPLAY`: `enable`.
     * @param enable True switches it on.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int enableDualDisplay(bool enable);

    /**
     * Puts a display window on the left or on the right.
     * Sends `CMD_SOURCE_SETDISPLAYONLEFT`: `left`, `mainWindow`.
     * @param left True puts it on the left.
     * @param mainWindow Display window, as the service numbers it.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setDisplayOnLeft(bool left, int mainWindow);

    /**
     * Gives a display window the focus.
     * Sends `CMD_SOURCE_SETFOCUSWINDOW`: `mainWindow`.
     * @param mainWindow Display window, as the service numbers it.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setFocusWindow(int mainWindow);

    /**
     * Blanks the display window or shows it again.
     * Sends `CMD_SOURCE_MUTEWINDOW`: `status`.
     * @param status True blanks it.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setMuteWindow(bool status);

    /** @} */

    /**
     * @name The signal
     * @{
     */

    /**
     * Reads the timing of the current signal.
     * Sends `CMD_SOURCE_GETTIMMINGINFO`; the answer holds the nine fields in order.
     * @return The timing; all zeros when the service or the link fails.
     */
    TimingScreen getTimingInfo();

    /**
     * Reads the state of the current signal.
     * Sends `CMD_SOURCE_GETSIGNALSTATUS`.
     * @return The state as the service numbers it; -1 when the service or the link fails.
     */
    int getSignalStatus();

    /**
     * Tells whether a source that is not shown has a signal.
     * Sends `CMD_SOURCE_GETSINGALSTATE`: `source`.
     * @param source Source, one of `KELU_TV_SRC_E`.
     * @return False for the service's 0; true for any other answer, a failure included.
     */
    bool getOfflineSigStatus(int source);

    /**
     * Tells whether the HDMI signal is a DVI signal.
     * Sends `CMD_SOURCE_GETDVIMODE`.
     * @return False for the service's 0; true for any other answer, a failure included.
     */
    bool isDVIMode();

    /**
     * Tells whether an MHL device is connected.
     * Sends `CMD_SOURCE_GETMHLSTATUS`.
     * @return False for the service's 0; true for any other answer, a failure included.
     */
    bool isMHLStatus();

    /**
     * Tells whether the source in use is the MHL port.
     * Sends `CMD_SOURCE_GETMHLINUSE`.
     * @return False for the service's 0; true for any other answer, a failure included.
     */
    bool isMHLPortInUse();

    /**
     * Sends a key of the remote control to the MHL device.
     * Sends `CMD_SOURCE_SENDRCPKEY`: `key`.
     * @param key Key code of the MHL remote control protocol.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int sendRcpKey(int key);

    /** @} */

private:
    SourceManager() = default;
};
