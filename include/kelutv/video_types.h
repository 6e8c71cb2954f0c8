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
    KELU_TV_3DMODE_OFF = 0,   /**< Flat. */
    KELU_TV_3DMODE_2DT3D = 1, /**< 3D made of a flat picture. */
    KELU_TV_3DMODE_SBS = 2,   /**< Side by side. */
    KELU_TV_3DMODE_TAB = 3,   /**< Top and bottom. */
    KELU_TV_3DMODE_FP = 4,    /**< Frame packing. */
    KELU_TV_3DMODE_LI = 5,    /**< Line interleaved. */
    KELU_TV_3DMODE_AUTO = 6,  /**< Automatic. */
    KELU_TV_3DMODE_BUTT = 7,  /**< End marker, no value. */
} KELU_TV_3DMODE_E;

/** Display windows. */
typedef enum KELU_TV_WINDOW_E KELUTV_INT_ENUM {
    KELU_TV_WINDOW_MAIN = 0, /**< The main window. */
    KELU_TV_WINDOW_SUB = 1,  /**< The sub-window. */
    KELU_TV_WINDOW_AUTO = 2, /**< Automatic. */
    KELU_TV_WINDOW_BUTT = 3, /**< End marker, no value. */
} KELU_TV_WINDOW_E;

/** Work mode of `linux_tv_Video_setWorkMode`. */
typedef enum KELU_TV_TVD_WORK_MODE_E KELUTV_INT_ENUM {
    KELU_TV_TVD_WORK_MODE_NORMAL = 0,    /**< Normal. */
    KELU_TV_TVD_WORK_MODE_CHAN_SCAN = 1, /**< Scanning for channels. */
    KELU_TV_TVD_WORK_MODE_BUTT = 2,      /**< End marker, no value. */
} KELU_TV_TVD_WORK_MODE_E;

/** The state of a signal; the service defines its values. */
typedef int KELU_TV_SIGNAL_E;

/** A colour. */
typedef struct KELU_TV_COLOR_S {
    unsigned int red;   /**< Red part, in the service's unit. */
    unsigned int green; /**< Green part, in the service's unit. */
    unsigned int blue;  /**< Blue part, in the service's unit. */
} KELU_TV_COLOR_S;

/** What is cut off at each side of the picture. */
typedef struct KELU_TV_CROP_RECT_S {
    unsigned int leftOffset;   /**< Cut off at the left edge. */
    unsigned int topOffset;    /**< Cut off at the upper edge. */
    unsigned int rightOffset;  /**< Cut off at the right edge. */
    unsigned int bottomOffset; /**< Cut off at the lower edge. */
} KELU_TV_CROP_RECT_S;

/** A rectangle. */
typedef struct KELU_TV_RECT_S {
    unsigned int x;      /**< Left edge. */
    unsigned int y;      /**< Upper edge. */
    unsigned int width;  /**< Extent to the right. */
    unsigned int height; /**< Extent downwards. */
} KELU_TV_RECT_S;

/** Non-linear scaling. */
typedef struct KELU_TV_NONLINEAR_SCL_S {
    bool enable;               /**< Whether it is on. */
    unsigned int sourceWidth;  /**< Width of the source. */
    unsigned int displayWidth; /**< Width on the display. */
} KELU_TV_NONLINEAR_SCL_S;

/** The geometry of a display window. */
typedef struct KELU_TV_WINDOW_ATTR_S {
    KELU_TV_WINDOW_E window;               /**< Which window. */
    KELU_TV_CROP_RECT_S cropRect;          /**< What is cut off the picture. */
    KELU_TV_RECT_S outputRect;             /**< Where the window is. */
    KELU_TV_RECT_S videoRect;              /**< Where the picture is. */
    KELU_TV_NONLINEAR_SCL_S nonLinearInfo; /**< Non-linear scaling. */
    bool isVirtual;                        /**< Whether it is virtual, as the service defines it. */
} KELU_TV_WINDOW_ATTR_S;

#endif
