/**
 * @file
 * Records and value sets of the video module.
 */
#ifndef KELUTV_VIDEO_TYPES_H
#define KELUTV_VIDEO_TYPES_H

#include <kelutv/export.h>

#include <stdbool.h>

/** How the picture is shown or made three-dimensional. */
typedef enum KELU_TV_3DMODE_E KELUTV_INT_ENUM {
    KELU_TV_3DMODE_OFF = 0,
    KELU_TV_3DMODE_2DT3D = 1, /**< 3D made of a flat picture. */
    KELU_TV_3DMODE_SBS = 2,   /**< Side by side. */
    KELU_TV_3DMODE_TAB = 3,   /**< Top and bottom. */
    KELU_TV_3DMODE_FP = 4,    /**< Frame packing. */
    KELU_TV_3DMODE_LI = 5,    /**< Line interleaved. */
    KELU_TV_3DMODE_AUTO = 6,
    KELU_TV_3DMODE_BUTT = 7,
} KELU_TV_3DMODE_E;

/** Display windows. */
typedef enum KELU_TV_WINDOW_E KELUTV_INT_ENUM {
    KELU_TV_WINDOW_MAIN = 0,
    KELU_TV_WINDOW_SUB = 1,
    KELU_TV_WINDOW_AUTO = 2,
    KELU_TV_WINDOW_BUTT = 3,
} KELU_TV_WINDOW_E;

/** What the decoder of analogue video is doing. */
typedef enum KELU_TV_TVD_WORK_MODE_E KELUTV_INT_ENUM {
    KELU_TV_TVD_WORK_MODE_NORMAL = 0,
    KELU_TV_TVD_WORK_MODE_CHAN_SCAN = 1, /**< Scanning for channels. */
    KELU_TV_TVD_WORK_MODE_BUTT = 2,
} KELU_TV_TVD_WORK_MODE_E;

/** The state of a signal; the service defines its values. */
typedef int KELU_TV_SIGNAL_E;

/** A colour. */
typedef struct KELU_TV_COLOR_S {
    unsigned int red;
    unsigned int green;
    unsigned int blue;
} KELU_TV_COLOR_S;

/** What is cut off at each side of the picture. */
typedef struct KELU_TV_CROP_RECT_S {
    unsigned int leftOffset;
    unsigned int topOffset;
    unsigned int rightOffset;
    unsigned int bottomOffset;
} KELU_TV_CROP_RECT_S;

/** A rectangle. */
typedef struct KELU_TV_RECT_S {
    unsigned int x;
    unsigned int y;
    unsigned int width;
    unsigned int height;
} KELU_TV_RECT_S;

/** Scaling that stretches the sides of the picture more than its middle. */
typedef struct KELU_TV_NONLINEAR_SCL_S {
    bool enable;               /**< Whether it is on. */
    unsigned int sourceWidth;  /**< Width before. */
    unsigned int displayWidth; /**< Width after. */
} KELU_TV_NONLINEAR_SCL_S;

/** The geometry of a display window. */
typedef struct KELU_TV_WINDOW_ATTR_S {
    KELU_TV_WINDOW_E window;               /**< Which window. */
    KELU_TV_CROP_RECT_S cropRect;          /**< What is cut off the picture. */
    KELU_TV_RECT_S outputRect;             /**< Where the window is. */
    KELU_TV_RECT_S videoRect;              /**< Where the picture is. */
    KELU_TV_NONLINEAR_SCL_S nonLinearInfo; /**< Non-linear scaling. */
    bool isVirtual;                        /**< Whether the coordinates are virtual. */
} KELU_TV_WINDOW_ATTR_S;

#endif
