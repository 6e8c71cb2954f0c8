/**
 * @file
 * Input sources, and the records of the source manager.
 */
#ifndef KELUTV_SOURCE_TYPES_H
#define KELUTV_SOURCE_TYPES_H

#include <kelutv/export.h>

#include <stdbool.h>

/** Input sources as applications name them; each `..._MAX` is the last source of its kind. */
typedef enum KELU_TV_SRC_E KELUTV_INT_ENUM {
    KELU_TV_SRC_ATV = 0,
    KELU_TV_SRC_DIG1 = 1,
    KELU_TV_SRC_DIG2 = 2,
    KELU_TV_SRC_CVBS1 = 3,
    KELU_TV_SRC_CVBS2 = 4,
    KELU_TV_SRC_CVBS3 = 5,
    KELU_TV_SRC_CVBS_MAX = 5,
    KELU_TV_SRC_VGA = 6,
    KELU_TV_SRC_YPBPR1 = 7,
    KELU_TV_SRC_YPBPR2 = 8,
    KELU_TV_SRC_YPBPR_MAX = 8,
    KELU_TV_SRC_HDMI1 = 9,
    KELU_TV_SRC_HDMI2 = 10,
    KELU_TV_SRC_HDMI3 = 11,
    KELU_TV_SRC_HDMI4 = 12,
    KELU_TV_SRC_HDMI_MAX = 12,
    KELU_TV_SRC_MEDIA = 13,
    KELU_TV_SRC_MEDIA1 = 13,
    KELU_TV_SRC_MEDIA2 = 14,
    KELU_TV_SRC_MEDIA_MAX = 14,
    KELU_TV_SRC_SCART1 = 15,
    KELU_TV_SRC_SCART2 = 16,
    KELU_TV_SRC_SCART_MAX = 16,
    KELU_TV_SRC_AUTO = 17,
    KELU_TV_SRC_BUTT = 18,
} KELU_TV_SRC_E;

/** Input sources as the service and the common library name them: the values of `KELU_TV_SRC_E`. */
typedef enum KELU_MW_SRC_E KELUTV_INT_ENUM {
    KELU_MW_SRC_ATV = 0,
    KELU_MW_SRC_DIG1 = 1,
    KELU_MW_SRC_DIG2 = 2,
    KELU_MW_SRC_CVBS1 = 3,
    KELU_MW_SRC_CVBS2 = 4,
    KELU_MW_SRC_CVBS3 = 5,
    KELU_MW_SRC_CVBS_MAX = 5,
    KELU_MW_SRC_VGA = 6,
    KELU_MW_SRC_YPBPR1 = 7,
    KELU_MW_SRC_YPBPR2 = 8,
    KELU_MW_SRC_YPBPR_MAX = 8,
    KELU_MW_SRC_HDMI1 = 9,
    KELU_MW_SRC_HDMI2 = 10,
    KELU_MW_SRC_HDMI3 = 11,
    KELU_MW_SRC_HDMI4 = 12,
    KELU_MW_SRC_HDMI_MAX = 12,
    KELU_MW_SRC_MEDIA = 13,
    KELU_MW_SRC_MEDIA1 = 13,
    KELU_MW_SRC_MEDIA2 = 14,
    KELU_MW_SRC_MEDIA_MAX = 14,
    KELU_MW_SRC_SCART1 = 15,
    KELU_MW_SRC_SCART2 = 16,
    KELU_MW_SRC_SCART_MAX = 16,
    KELU_MW_SRC_AUTO = 17,
    KELU_MW_SRC_BUTT = 18,
} KELU_MW_SRC_E;

/** A rectangle on the screen, in pixels. */
typedef struct KeluRect {
    unsigned int x;
    unsigned int y;
    unsigned int width;
    unsigned int height;
} KeluRect;

/** The timing of the current signal. */
typedef struct TimingScreen {
    unsigned int width;     /**< Pixels in a line; 0 without a signal. */
    unsigned int height;    /**< Lines in a frame. */
    unsigned int frameRate; /**< Frame rate in the service's unit. */
    bool interlace;         /**< Whether the signal is interlaced. */
    int formatHDMI;         /**< Kind of HDMI signal, as the service numbers it. */
    int format3d;           /**< 3D format, as the service numbers it. */
    int colorSpace;         /**< Colour space, as the service numbers it. */
    bool MHL;               /**< Whether the signal comes over MHL. */
    bool graphicMode;       /**< Whether it is a computer's graphics mode. */
} TimingScreen;

#endif
