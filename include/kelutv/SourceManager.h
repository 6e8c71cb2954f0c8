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
     * @param srcId Source, one of `KELU_TV_SRC_E`.
     * @param mainWindow Display window, one of `KELU_TV_WINDOW_E`.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int selectSource(int srcId, int mainWindow);

    /**
     * Releases a source.
     * @param srcId Source, one of `KELU_TV_SRC_E`.
     * @param bDestroy True also gives up what the source holds.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int deselectSource(int srcId, bool bDestroy);

    /**
     * Reads the source in a display window.
     * @param mainWindow Display window, one of `KELU_TV_WINDOW_E`.
     * @return One of `KELU_TV_SRC_E`; -1 when the service or the link fails.
     */
    int getCurSourceId(int mainWindow);

    /**
     * Reads the source that was selected last.
     * @return One of `KELU_TV_SRC_E`; -1 when the service or the link fails.
     */
    int getSelectSourceId();

    /**
     * Reads the source that the main window had before.
     * @return One of `KELU_TV_SRC_E`; -1 when the service or the link fails.
     */
    int getLastMainSource();

    /**
     * Sets the source that the television starts with.
     * @param srcId Source, one of `KELU_TV_SRC_E`.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setBootSource(int srcId);

    /**
     * Reads the source that the television starts with.
     * @return One of `KELU_TV_SRC_E`; -1 when the service or the link fails.
     */
    int getBootSource();

    /**
     * Reads the sources that the television has.
     * @return The sources in the service's order, each one of `KELU_TV_SRC_E`; empty when the service or the link
     * fails.
     */
    std::list<int> getSourceList();

    /**
     * Reads the sources that can be chosen now.
     * @return The sources in the service's order, each one of `KELU_TV_SRC_E`; empty when the service or the link
     * fails.
     */
    std::list<int> getAvailSourceList();

    /**
     * Reads whether the television has several AV inputs.
     * @return The service's value, 1 for several; -1 when the service or the link fails.
     */
    int isHasMultiAvSource();

    /**
     * Reads whether a source must be released for a command.
     * @param enumSourceIndex Source, one of `KELU_TV_SRC_E`.
     * @param command Command as the service numbers it.
     * @return The service's value, 1 if it must; -1 when the service or the link fails.
     */
    int isNeedRelease(int enumSourceIndex, int command);

    /**
     * Reads whether a change of source needs the media to be switched.
     * @param fromSource,toSource Sources, each one of `KELU_TV_SRC_E`.
     * @param command Command as the service numbers it.
     * @return The service's value, 1 if it does; -1 when the service or the link fails.
     */
    int isNeedSwitchMedia(int fromSource, int toSource, int command);

    /**
     * Reads whether a change of source needs the new one to be selected.
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
     * @param rect Place and size.
     * @param mainWindow Display window, one of `KELU_TV_WINDOW_E`.
     * @param flag What the service defines.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setWindowRect(KeluRect rect, int mainWindow, int flag);

    /**
     * Reads the place of a display window.
     * @param rect Receives place and size; untouched when the service or the link fails.
     * @param mainWindow Display window, one of `KELU_TV_WINDOW_E`.
     * @return 0, also when the service or the link fails; -1 for a null `rect`, with nothing sent.
     */
    int getWindowRect(KeluRect* rect, int mainWindow);

    /**
     * Switches the display of two sources on or off.
     * @param enable True switches it on.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int enableDualDisplay(bool enable);

    /**
     * Puts a display window on the left or on the right.
     * @param left True puts it on the left.
     * @param mainWindow Display window, one of `KELU_TV_WINDOW_E`.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setDisplayOnLeft(bool left, int mainWindow);

    /**
     * Gives a display window the focus.
     * @param mainWindow Display window, one of `KELU_TV_WINDOW_E`.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setFocusWindow(int mainWindow);

    /**
     * Blanks the display window or shows it again.
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
     * @return The timing; all zeros when the service or the link fails.
     */
    TimingScreen getTimingInfo();

    /**
     * Reads the state of the current signal.
     * @return The state as the service numbers it; -1 when the service or the link fails.
     */
    int getSignalStatus();

    /**
     * Tells whether a source that is not shown has a signal.
     * @param source Source, one of `KELU_TV_SRC_E`.
     * @return False for the service's 0; true for any other answer, a failure included.
     */
    bool getOfflineSigStatus(int source);

    /**
     * Tells whether the HDMI signal is a DVI signal.
     * @return False for the service's 0; true for any other answer, a failure included.
     */
    bool isDVIMode();

    /**
     * Tells whether an MHL device is connected.
     * @return False for the service's 0; true for any other answer, a failure included.
     */
    bool isMHLStatus();

    /**
     * Tells whether the source in use is the MHL port.
     * @return False for the service's 0; true for any other answer, a failure included.
     */
    bool isMHLPortInUse();

    /**
     * Sends a key of the remote control to the MHL device.
     * @param key Key code of the MHL remote control protocol.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int sendRcpKey(int key);

    /** @} */

private:
    SourceManager() = default;
};
