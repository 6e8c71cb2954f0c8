/**
 * @file
 * The class `Video3D`; its C functions are in linux_kelutv_video.h.
 */
#pragma once

#include <kelutv/export.h>
#include <kelutv/source_types.h>
#include <kelutv/video_types.h>

/**
 * Three-dimensional pictures, the geometry of the display window, and the items of the video module.
 *
 * Every operation is one command to the TV base service, which owns all values; the object keeps none. A `bool` travels
 * as 0 or 1. An operation blocks until the service has answered, may be called from any thread, and writes nothing to
 * the log unless it says so, save that a set command whose link fails is logged as "invoke failure\n".
 */
class KELUTV_API Video3D {
public:
    /**
     * The one object, made on the first call from any thread and kept until the process ends.
     * @return The object; never null.
     */
    static Video3D* instance();

    Video3D(const Video3D&) = delete;
    Video3D& operator=(const Video3D&) = delete;

    /**
     * @name Three dimensions
     * @{
     */

    /**
     * Tells whether the picture is shown in 3D.
     * @return False for the service's 0; true for any other answer, a failure included.
     */
    bool is3dEnable();

    /**
     * Reads the 3D mode.
     * @return One of `KELU_TV_3DMODE_E`; -1 when the service or the link fails.
     */
    int get3dMode();

    /**
     * Chooses the 3D mode.
     * @param mode One of `KELU_TV_3DMODE_E`.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int set3dMode(int mode);

    /**
     * Tells whether the views of the two eyes are exchanged.
     * @return False for the service's 0; true for any other answer, a failure included.
     */
    bool getSwitchLR();

    /**
     * Exchanges the views of the two eyes or puts them back.
     * @param onoff True exchanges them.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int switchLR(bool onoff);

    /**
     * Reads the depth of the 3D picture.
     * @return The depth; -1 when the service or the link fails.
     */
    int getDepth();

    /**
     * Sets the depth of the 3D picture.
     * @param depth Depth; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setDepth(int depth);

    /**
     * Reads the view of the 3D picture.
     * @return The view; -1 when the service or the link fails.
     */
    int getView();

    /**
     * Sets the view of the 3D picture.
     * @param view View; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setView(int view);

    /**
     * Tells whether a 3D signal is shown flat.
     * @return False for the service's 0; true for any other answer, a failure included.
     */
    bool get3dto2d();

    /**
     * Shows a 3D signal flat, or in 3D again.
     * @param mode 1 shows it flat, 0 in 3D.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int set3dto2d(int mode);

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
    int getWindowAttr(KELU_TV_SRC_E source, KELU_TV_WINDOW_ATTR_S* attr);

    /**
     * Sets the geometry of the display window.
     * @param source Not sent.
     * @param stWinAttr The geometry; the service enforces the ranges. Must not be null.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setWindowAttr(KELU_TV_SRC_E source, KELU_TV_WINDOW_ATTR_S* stWinAttr);

    /**
     * Sets one item.
     * @param cmdID Item of the video module, of `KELU_TV_CMDID_E`.
     * @param param1,param2,param3,param4 What the item defines.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setVideoItemValue(int cmdID, int param1, int param2, int param3, int param4);

    /**
     * Reads one item.
     * @param cmdID Item of the video module, of `KELU_TV_CMDID_E`.
     * @param param1,param2 What the item defines.
     * @param pData Room for 255 ints (1,020 bytes); all are written, 0 where the service sent less. Untouched on
     *         failure.
     * @return 0; -1 when the service or the link fails, and for a null `pData`, logged under the name of a channel
     * function and with nothing sent.
     */
    int getVideoItemValue(int cmdID, int param1, int param2, int* pData);

    /** @} */

private:
    Video3D() = default;
};
