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
    KELU_TV_SRC_ATV = 0,        /**< Analogue television. */
    KELU_TV_SRC_DIG1 = 1,       /**< Digital 1. */
    KELU_TV_SRC_DIG2 = 2,       /**< Digital 2. */
    KELU_TV_SRC_CVBS1 = 3,      /**< Composite video 1. */
    KELU_TV_SRC_CVBS2 = 4,      /**< Composite video 2. */
    KELU_TV_SRC_CVBS3 = 5,      /**< Composite video 3. */
    KELU_TV_SRC_CVBS_MAX = 5,   /**< The last composite video input. */
    KELU_TV_SRC_VGA = 6,        /**< VGA. */
    KELU_TV_SRC_YPBPR1 = 7,     /**< Component video 1. */
    KELU_TV_SRC_YPBPR2 = 8,     /**< Component video 2. */
    KELU_TV_SRC_YPBPR_MAX = 8,  /**< The last component video input. */
    KELU_TV_SRC_HDMI1 = 9,      /**< HDMI 1. */
    KELU_TV_SRC_HDMI2 = 10,     /**< HDMI 2. */
    KELU_TV_SRC_HDMI3 = 11,     /**< HDMI 3. */
    KELU_TV_SRC_HDMI4 = 12,     /**< HDMI 4. */
    KELU_TV_SRC_HDMI_MAX = 12,  /**< The last HDMI input. */
    KELU_TV_SRC_MEDIA = 13,     /**< Media. */
    KELU_TV_SRC_MEDIA1 = 13,    /**< Media 1, the same as `MEDIA`. */
    KELU_TV_SRC_MEDIA2 = 14,    /**< Media 2. */
    KELU_TV_SRC_MEDIA_MAX = 14, /**< The last media source. */
    KELU_TV_SRC_SCART1 = 15,    /**< SCART 1. */
    KELU_TV_SRC_SCART2 = 16,    /**< SCART 2. */
    KELU_TV_SRC_SCART_MAX = 16, /**< The last SCART input. */
    KELU_TV_SRC_AUTO = 17,      /**< Automatic. */
    KELU_TV_SRC_BUTT = 18,      /**< End marker, no value. */
} KELU_TV_SRC_E;

/** Input sources as the service and the common library name them: the values of `KELU_TV_SRC_E`. */
typedef enum KELU_MW_SRC_E KELUTV_INT_ENUM {
    KELU_MW_SRC_ATV = 0,        /**< Analogue television. */
    KELU_MW_SRC_DIG1 = 1,       /**< Digital 1. */
    KELU_MW_SRC_DIG2 = 2,       /**< Digital 2. */
    KELU_MW_SRC_CVBS1 = 3,      /**< Composite video 1. */
    KELU_MW_SRC_CVBS2 = 4,      /**< Composite video 2. */
    KELU_MW_SRC_CVBS3 = 5,      /**< Composite video 3. */
    KELU_MW_SRC_CVBS_MAX = 5,   /**< The last composite video input. */
    KELU_MW_SRC_VGA = 6,        /**< VGA. */
    KELU_MW_SRC_YPBPR1 = 7,     /**< Component video 1. */
    KELU_MW_SRC_YPBPR2 = 8,     /**< Component video 2. */
    KELU_MW_SRC_YPBPR_MAX = 8,  /**< The last component video input. */
    KELU_MW_SRC_HDMI1 = 9,      /**< HDMI 1. */
    KELU_MW_SRC_HDMI2 = 10,     /**< HDMI 2. */
    KELU_MW_SRC_HDMI3 = 11,     /**< HDMI 3. */
    KELU_MW_SRC_HDMI4 = 12,     /**< HDMI 4. */
    KELU_MW_SRC_HDMI_MAX = 12,  /**< The last HDMI input. */
    KELU_MW_SRC_MEDIA = 13,     /**< Media. */
    KELU_MW_SRC_MEDIA1 = 13,    /**< Media 1, the same as `MEDIA`. */
    KELU_MW_SRC_MEDIA2 = 14,    /**< Media 2. */
    KELU_MW_SRC_MEDIA_MAX = 14, /**< The last media source. */
    KELU_MW_SRC_SCART1 = 15,    /**< SCART 1. */
    KELU_MW_SRC_SCART2 = 16,    /**< SCART 2. */
    KELU_MW_SRC_SCART_MAX = 16, /**< The last SCART input. */
    KELU_MW_SRC_AUTO = 17,      /**< Automatic. */
    KELU_MW_SRC_BUTT = 18,      /**< End marker, no value. */
} KELU_MW_SRC_E;

/** A rectangle. */
typedef struct KeluRect {
    unsigned int x;      /**< Left edge. */
    unsigned int y;      /**< Upper edge. */
    unsigned int width;  /**< Extent to the right. */
    unsigned int height; /**< Extent downwards. */
} KeluRect;

/** The timing of the current signal. */
typedef struct TimingScreen {
    unsigned int width;     /**< Width of the picture. */
    unsigned int height;    /**< Height of the picture. */
    unsigned int frameRate; /**< Frame rate in the service's unit. */
    bool interlace;         /**< Whether the signal is interlaced. */
    int formatHDMI;         /**< Kind of HDMI signal, as the service numbers it. */
    int format3d;           /**< 3D format, as the service numbers it. */
    int colorSpace;         /**< Colour space, as the service numbers it. */
    bool MHL;               /**< Whether the signal comes over MHL. */
    bool graphicMode;       /**< Whether it is a graphics mode. */
} TimingScreen;

#endif
