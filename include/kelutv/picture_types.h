/**
 * @file
 * Values and records of the picture.
 */
#ifndef KELUTV_PICTURE_TYPES_H
#define KELUTV_PICTURE_TYPES_H

#include <kelutv/export.h>

/**
 * Picture mode as applications name it.
 *
 * The C functions turn it into the index that it has for the stream type of the signal, and back. A mode without an
 * index, and every mode that is not in the table, is sent as index 0; an index without a mode is read as
 * `KELU_TV_PIC_MODE_STANDARD`.
 *
 * | mode | any other stream type | HDR10, HDR10+, HLG | Dolby HDR |
 * |---|---|---|---|
 * | `KELU_TV_PIC_MODE_STANDARD` | 0 | 0 | 3 |
 * | `KELU_TV_PIC_MODE_VIVID` | 2 | 2 | 2 |
 * | `KELU_TV_PIC_MODE_GENTLE` | 9 | - | - |
 * | `KELU_TV_PIC_MODE_USER` | 11 | - | - |
 * | `KELU_TV_PIC_MODE_GAME` | 3 | 3 | - |
 * | `KELU_TV_PIC_MODE_DOBLY_VISION_MOVIE_DARK` | - | - | 1 |
 * | `KELU_TV_PIC_MODE_DOBLY_VISION_MOVIE_BRIGHT` | - | - | 0 |
 * | `KELU_TV_PIC_MODE_SPORT` | 7 | - | - |
 * | `KELU_TV_PIC_MODE_MOVIE` | 1 | 1 | - |
 * | `KELU_TV_PIC_MODE_DYNAMIC` | 8 | - | - |
 * | `KELU_TV_PIC_MODE_PHOTO` | 6 | - | - |
 * | `KELU_TV_PIC_MODE_ECO` | 4 | - | - |
 */
typedef enum KELU_TV_PIC_MODE_E KELUTV_INT_ENUM {
    KELU_TV_PIC_MODE_STANDARD = 0,                  /**< Standard. */
    KELU_TV_PIC_MODE_VIVID = 1,                     /**< Vivid. */
    KELU_TV_PIC_MODE_GENTLE = 2,                    /**< Gentle. */
    KELU_TV_PIC_MODE_USER = 3,                      /**< The user's own settings. */
    KELU_TV_PIC_MODE_4K_CINEMA = 4,                 /**< 4K cinema. */
    KELU_TV_PIC_MODE_NATURAL = 5,                   /**< Natural. */
    KELU_TV_PIC_MODE_GAME = 6,                      /**< For games. */
    KELU_TV_PIC_MODE_DOBLY_VISION_MOVIE_DARK = 7,   /**< Dolby Vision, movie dark; spelled so. */
    KELU_TV_PIC_MODE_DOBLY_VISION_MOVIE_BRIGHT = 8, /**< Dolby Vision, movie bright; spelled so. */
    KELU_TV_PIC_MODE_PROFESSIONAL = 9,              /**< Professional. */
    KELU_TV_PIC_MODE_SPORT = 10,                    /**< For sports. */
    KELU_TV_PIC_MODE_MOVIE = 11,                    /**< For films. */
    KELU_TV_PIC_MODE_DYNAMIC = 12,                  /**< Dynamic. */
    KELU_TV_PIC_MODE_PHOTO = 13,                    /**< For photographs. */
    KELU_TV_PIC_MODE_ECO = 14,                      /**< Eco. */
    KELU_TV_PIC_MODE_CARE = 15,                     /**< Care. */
    KELU_TV_PIC_MODE_AI = 16,                       /**< AI. */
} KELU_TV_PIC_MODE_E;

/** Kind of dynamic range of the picture signal, the stream type. */
typedef enum KELU_TV_HDR_TYPE_E KELUTV_INT_ENUM {
    KELU_TV_HDR_TYPE_SDR = 0,        /**< Standard dynamic range. */
    KELU_TV_HDR_TYPE_HDR10 = 1,      /**< HDR10. */
    KELU_TV_HDR_TYPE_DOLBY_HDR = 2,  /**< Dolby HDR. */
    KELU_TV_HDR_TYPE_SDR_TO_HDR = 3, /**< Standard to high dynamic range. */
    KELU_TV_HDR_TYPE_HDR10_PLUS = 4, /**< HDR10+. */
    KELU_TV_PHOTO = 5,               /**< A photograph. */
    KELU_TV_HDR_TYPE_HLG = 6,        /**< Hybrid log-gamma. */
    KELU_TV_HDR_TYPE_BUTT = 7,       /**< End marker, no value. */
} KELU_TV_HDR_TYPE_E;

/** Colour temperature. */
typedef enum KELU_TV_COLORTEMP_E KELUTV_INT_ENUM {
    KELU_TV_COLORTEMP_NATURE = 0, /**< Natural. */
    KELU_TV_COLORTEMP_COOL = 1,   /**< Cool. */
    KELU_TV_COLORTEMP_WARM = 2,   /**< Warm. */
    KELU_TV_COLORTEMP_USER = 3,   /**< The user's own. */
    KELU_TV_COLORTEMP_BUTT = 4,   /**< End marker, no value. */
} KELU_TV_COLORTEMP_E;

/** Aspect. */
typedef enum KELU_TV_ASPECT_E KELUTV_INT_ENUM {
    KELU_TV_ASPECT_16_9 = 0,           /**< 16:9. */
    KELU_TV_ASPECT_4_3 = 1,            /**< 4:3. */
    KELU_TV_ASPECT_FULL = 2,           /**< Full screen. */
    KELU_TV_ASPECT_POINT_TO_POINT = 3, /**< One picture point on one point of the panel. */
    KELU_TV_ASPECT_AUTO = 4,           /**< Automatic. */
    KELU_TV_ASPECT_SUBTITLE = 5,       /**< For subtitles. */
    KELU_TV_ASPECT_PERSON = 6,         /**< Personal. */
    KELU_TV_ASPECT_CINEMA = 7,         /**< Cinema. */
    KELU_TV_ASPECT_PANORAMA = 8,       /**< Panorama. */
    KELU_TV_ASPECT_ZOOM = 9,           /**< Zoom. */
    KELU_TV_ASPECT_ZOOM1 = 10,         /**< Zoom 1. */
    KELU_TV_ASPECT_ZOOM2 = 11,         /**< Zoom 2. */
    KELU_TV_ASPECT_ONLY_OVERSCAN = 12, /**< Overscan only. */
    KELU_TV_ASPECT_BUTT = 13,          /**< End marker, no value. */
} KELU_TV_ASPECT_E;

/** Colour range of an HDMI signal. */
typedef enum KELU_TV_IMAGE_RGB_TYPE_E KELUTV_INT_ENUM {
    KELU_TV_IMAGE_RGB_TYPE_FULL = 0,  /**< Full range. */
    KELU_TV_IMAGE_RGB_TYPE_LIMIT = 1, /**< Limited range. */
    KELU_TV_IMAGE_RGB_TYPE_AUTO = 2,  /**< Automatic. */
    KELU_TV_IMAGE_RGB_TYPE_BUTT = 3,  /**< End marker, no value. */
} KELU_TV_IMAGE_RGB_TYPE_E;

/** Colour system. */
typedef enum KELU_TV_CLRSYS_E KELUTV_INT_ENUM {
    KELU_TV_CLRSYS_AUTO = 0,    /**< Automatic. */
    KELU_TV_CLRSYS_PAL = 1,     /**< PAL. */
    KELU_TV_CLRSYS_NTSC = 2,    /**< NTSC. */
    KELU_TV_CLRSYS_SECAM = 3,   /**< SECAM. */
    KELU_TV_CLRSYS_PAL_M = 4,   /**< PAL M. */
    KELU_TV_CLRSYS_PAL_N = 5,   /**< PAL N. */
    KELU_TV_CLRSYS_PAL_60 = 6,  /**< PAL 60. */
    KELU_TV_CLRSYS_NTSC443 = 7, /**< NTSC 4.43. */
    KELU_TV_CLRSYS_NTSC_50 = 8, /**< NTSC 50. */
    KELU_TV_CLRSYS_BUTT = 9,    /**< End marker, no value. */
} KELU_TV_CLRSYS_E;

/** Level of noise reduction and the like. */
typedef enum KELU_TV_LEVEL_E KELUTV_INT_ENUM {
    KELU_TV_LEVEL_OFF = 0,  /**< Off. */
    KELU_TV_LEVEL_LOW = 1,  /**< Low. */
    KELU_TV_LEVEL_MID = 2,  /**< Medium. */
    KELU_TV_LEVEL_HIGH = 3, /**< High. */
    KELU_TV_LEVEL_AUTO = 4, /**< Automatic. */
    KELU_TV_LEVEL_BUTT = 5, /**< End marker, no value. */
} KELU_TV_LEVEL_E;

/** Where the lights of local dimming are. */
typedef enum KELU_TV_LDLIGHTPOS_E KELUTV_INT_ENUM {
    KELU_TV_LDLIGHTPOS_DOWN = 0, /**< Below. */
    KELU_TV_LDLIGHTPOS_SIDE = 1, /**< At the side. */
    KELU_TV_LDLIGHTPOS_BUTT = 2, /**< End marker, no value. */
} KELU_TV_LDLIGHTPOS_E;

/** Dream panel: what the picture adapts itself to. */
typedef enum KELU_TV_PANELLEVEL_E KELUTV_INT_ENUM {
    KELU_TV_PANELLEVEL_OFF = 0,         /**< Off. */
    KELU_TV_PANELLEVEL_ENVIRONMENT = 1, /**< To the environment. */
    KELU_TV_PANELLEVEL_IMAGE = 2,       /**< To the image. */
    KELU_TV_PANELLEVEL_MULTIPLE = 3,    /**< To more than one. */
    KELU_TV_PANELLEVEL_DEMO = 4,        /**< Demonstration. */
    KELU_TV_PANELLEVEL_BUTT = 5,        /**< End marker, no value. */
} KELU_TV_PANELLEVEL_E;

/** Demonstration of local dimming. */
typedef enum KELU_TV_LOCALDIMMING_DEMO_MODE_E KELUTV_INT_ENUM {
    KELU_TV_LDM_DEMO_OFF = 0,                  /**< Off. */
    KELU_TV_LDM_DEMO_RIGHT_SCREEN = 1,         /**< On the right. */
    KELU_TV_LDM_DEMO_LEFT_SCREEN = 2,          /**< On the left. */
    KELU_TV_LDM_DEMO_TOP_SCREEN = 3,           /**< At the top. */
    KELU_TV_LDM_DEMO_BOTTOM_SCREEN = 4,        /**< At the bottom. */
    KELU_TV_LDM_DEMO_WHITE_SCREEN = 5,         /**< White screen. */
    KELU_TV_LDM_DEMO_RIGHT_WHITE_SCREEN = 6,   /**< White on the right. */
    KELU_TV_LDM_DEMO_LEFT_WHITE_SCREEN = 7,    /**< White on the left. */
    KELU_TV_LDM_DEMO_TOP_WHITE_SCREEN = 8,     /**< White at the top. */
    KELU_TV_LDM_DEMO_BOTTOM_WHITE_SCREEN = 9,  /**< White at the bottom. */
    KELU_TV_LDM_DEMO_HORSELIGHT = 10,          /**< Running light. */
    KELU_TV_LDM_DEMO_HORSELIGHT_ONLYONCE = 11, /**< Running light, once. */
    KELU_TV_LDM_DEMO_BUTT = 12,                /**< End marker, no value. */
} KELU_TV_LOCALDIMMING_DEMO_MODE_E;

/** Setting asked for by `getCMDSupportedMode`. */
typedef enum KELU_TV_SUPPORT_SWITCH_E KELUTV_INT_ENUM {
    KELU_TV_CMD_SUPPORT_SWITCH_BLACKSTR = 0,        /**< Black stretch. */
    KELU_TV_CMD_SUPPORT_SWITCH_MEMC = 1,            /**< Motion compensation. */
    KELU_TV_CMD_SUPPORT_SWITCH_SUPERRESOLUTION = 2, /**< Super resolution. */
    KELU_TV_CMD_SUPPORT_SWTICH_DECONTOUR = 3,       /**< Removal of false contours; spelled so. */
    KELU_TV_CMD_SUPPORT_DYNAMIC_CONTRAST = 4,       /**< Dynamic contrast. */
    KELU_TV_CMD_SUPPORT_LOCALDIMMING = 5,           /**< Local dimming. */
    KELU_TV_CMD_SUPPORT_LOCAL_CONTRAST = 6,         /**< Local contrast. */
    KELU_TV_CMD_SUPPORT_SPECULARBOOST = 7,          /**< Specular boost. */
    KELU_TV_CMD_SUPPORT_MPEG_NOISE = 8,             /**< Reduction of MPEG noise. */
    KELU_TV_CMD_SUPPORT_SWITCH_BUTT = 9,            /**< End marker, no value. */
} KELU_TV_SUPPORT_SWITCH_E;

/** The positions a setting has. */
typedef enum KELU_TV_SUPPORT_SWITCH_MODE_E KELUTV_INT_ENUM {
    KELU_TV_SUPPORT_SWITCH_MODE_ON_OFF = 0,            /**< Off and on. */
    KELU_TV_SUPPORT_SWITCH_MODE_OFF_TO_STRONG = 1,     /**< Off, up to strong. */
    KELU_TV_SUPPORT_SWITCH_MODE_OFF_TO_AUTO = 2,       /**< Off, up to automatic. */
    KELU_TV_SUPPORT_SWITCH_MODE_LOW_TO_STRONG = 3,     /**< Low, up to strong. */
    KELU_TV_SUPPORT_SWITCH_MODE_OFF_TO_SUPER_HIGH = 4, /**< Off, up to super high. */
    KELU_TV_SUPPORT_SWITCH_MODE_BUTT = 5,              /**< End marker, no value. */
} KELU_TV_SUPPORT_SWITCH_MODE_E;

/** Function asked for by `getPictureFunctionEnable`. */
typedef enum KELU_TV_PICTURE_FUNC_E KELUTV_INT_ENUM {
    KELU_TV_PICTURE_FUNC_MEMC = 0,         /**< Motion compensation. */
    KELU_TV_PICTURE_FUNC_LOCALDIMMING = 1, /**< Local dimming. */
    KELU_TV_PICTURE_FUNC_BUTT = 2,         /**< End marker, no value. */
} KELU_TV_PICTURE_FUNC_E;

/** Value of the image inside a picture mode. */
typedef enum KELU_TV_PIC_IMAGE_E KELUTV_INT_ENUM {
    KELU_TV_IMAGE_BRIGHTNESS = 0, /**< Brightness. */
    KELU_TV_IMAGE_CONTRAST = 1,   /**< Contrast. */
    KELU_TV_IMAGE_SATURATION = 2, /**< Saturation. */
    KELU_TV_IMAGE_SHARPNESS = 3,  /**< Sharpness. */
    KELU_TV_IMAGE_HUE = 4,        /**< Hue. */
    KELU_TV_IMAGE_BACKLIGHT = 5,  /**< Backlight. */
} KELU_TV_PIC_IMAGE_E;

/** Picture modes of a signal of standard dynamic range, by index. */
typedef enum KELU_TV_PIC_MODE_NEW_E KELUTV_INT_ENUM {
    KELU_TV_PIC_MODE_NEW_STANDARD = 0,             /**< Standard. */
    KELU_TV_PIC_MODE_NEW_CINEMA = 1,               /**< Cinema. */
    KELU_TV_PIC_MODE_NEW_VIVID = 2,                /**< Vivid. */
    KELU_TV_PIC_MODE_NEW_GAME = 3,                 /**< For games. */
    KELU_TV_PIC_MODE_NEW_ECO = 4,                  /**< Eco. */
    KELU_TV_PIC_MODE_NEW_PHOTO_VIVID_VIDEO = 5,    /**< Photo: vivid video. */
    KELU_TV_PIC_MODE_NEW_PHOTO_STANDARD_VIDEO = 6, /**< Photo: standard video. */
    KELU_TV_PIC_MODE_NEW_SPORTS = 7,               /**< For sports. */
    KELU_TV_PIC_MODE_NEW_DYNAMIC = 8,              /**< Dynamic. */
    KELU_TV_PIC_MODE_NEW_SOFTNESS = 9,             /**< Soft. */
    KELU_TV_PIC_MODE_NEW_AI = 10,                  /**< AI. */
    KELU_TV_PIC_MODE_NEW_CARE = 11,                /**< Care. */
} KELU_TV_PIC_MODE_NEW_E;

/** Picture modes of an HDR10 or HLG signal, by index. */
typedef enum KELU_TV_PIC_MODE_HDR_E KELUTV_INT_ENUM {
    KELU_TV_PIC_MODE_HDR_STANDARD = 0, /**< Standard. */
    KELU_TV_PIC_MODE_HDR_CINEMA = 1,   /**< Cinema. */
    KELU_TV_PIC_MODE_HDR_VIVID = 2,    /**< Vivid. */
    KELU_TV_PIC_MODE_HDR_GAME = 3,     /**< For games. */
    KELU_TV_PIC_MODE_HDR_AI = 4,       /**< AI. */
} KELU_TV_PIC_MODE_HDR_E;

/** Picture modes of an HDR10+ signal, by index. */
typedef enum KELU_TV_PIC_MODE_HDR_PLUS_E KELUTV_INT_ENUM {
    KELU_TV_PIC_MODE_HDR_PLUS_STANDARD = 0, /**< Standard. */
    KELU_TV_PIC_MODE_HDR_PLUS_CINEMA = 1,   /**< Cinema. */
    KELU_TV_PIC_MODE_HDR_PLUS_VIVID = 2,    /**< Vivid. */
    KELU_TV_PIC_MODE_HDR_PLUS_GAME = 3,     /**< For games. */
    KELU_TV_PIC_MODE_HDR_PLUS_AI = 4,       /**< AI. */
} KELU_TV_PIC_MODE_HDR_PLUS_E;

/** Picture modes of a Dolby HDR signal, by index. */
typedef enum KELU_TV_PIC_MODE_DOLBY_E KELUTV_INT_ENUM {
    KELU_TV_PIC_MODE_DOLBY_BRIGHT = 0,   /**< Bright. */
    KELU_TV_PIC_MODE_DOLBY_DARK = 1,     /**< Dark. */
    KELU_TV_PIC_MODE_DOLBY_VIVID = 2,    /**< Vivid. */
    KELU_TV_PIC_MODE_DOLBY_STANDARD = 3, /**< Standard. */
} KELU_TV_PIC_MODE_DOLBY_E;

/** The service's picture modes for a signal of standard dynamic range. */
typedef enum KELU_MW_PICMODE_E KELUTV_INT_ENUM {
    KELU_MW_PICMODE_STANDARD = 0,             /**< Standard. */
    KELU_MW_PICMODE_CINEMA = 1,               /**< Cinema. */
    KELU_MW_PICMODE_VIVID = 2,                /**< Vivid. */
    KELU_MW_PICMODE_GAME = 3,                 /**< For games. */
    KELU_MW_PICMODE_ECO = 4,                  /**< Eco. */
    KELU_MW_PICMODE_CAMERA = 5,               /**< Camera. */
    KELU_MW_PICMODE_PHOTO_STANDARD_VIDEO = 6, /**< Photo: standard video. */
    KELU_MW_PICMODE_SPORTS = 7,               /**< For sports. */
    KELU_MW_PICMODE_DYNAMIC = 8,              /**< Dynamic. */
    KELU_MW_PICMODE_SOFTNESS = 9,             /**< Soft. */
    KELU_MW_PICMODE_AI = 10,                  /**< AI. */
    KELU_MW_PICMODE_USER = 11,                /**< The user's own settings. */
    KELU_MW_PICMODE_BUTT = 12,                /**< End marker, no value. */
} KELU_MW_PICMODE_E;

/** The service's picture modes for an HDR10 or HLG signal. */
typedef enum KELU_MW_PICMODE_HDR_E KELUTV_INT_ENUM {
    KELU_MW_PICMODE_HDR_STANDARD = 0, /**< Standard. */
    KELU_MW_PICMODE_HDR_CINEMA = 1,   /**< Cinema. */
    KELU_MW_PICMODE_HDR_VIVID = 2,    /**< Vivid. */
    KELU_MW_PICMODE_HDR_GAME = 3,     /**< For games. */
    KELU_MW_PICMODE_HDR_AI = 4,       /**< AI. */
    KELU_MW_PICMODE_HDR_BUTT = 5,     /**< End marker, no value. */
} KELU_MW_PICMODE_HDR_E;

/** The service's picture modes for an HDR10+ signal. */
typedef enum KELU_MW_PICMODE_HDR_PLUS_E KELUTV_INT_ENUM {
    KELU_MW_PICMODE_HDR_PLUS_STANDARD = 0, /**< Standard. */
    KELU_MW_PICMODE_HDR_PLUS_CINEMA = 1,   /**< Cinema. */
    KELU_MW_PICMODE_HDR_PLUS_VIVID = 2,    /**< Vivid. */
    KELU_MW_PICMODE_HDR_PLUS_GAME = 3,     /**< For games. */
    KELU_MW_PICMODE_HDR_PLUS_AI = 4,       /**< AI. */
    KELU_MW_PICMODE_HDR_PLUS_BUTT = 5,     /**< End marker, no value. */
} KELU_MW_PICMODE_HDR_PLUS_E;

/** The service's picture modes for a Dolby HDR signal. */
typedef enum KELU_MW_PICMODE_DOLBY_E KELUTV_INT_ENUM {
    KELU_MW_PICMODE_DOLBY_BRIGHT = 0, /**< Bright. */
    KELU_MW_PICMODE_DOLBY_DARK = 1,   /**< Dark. */
    KELU_MW_PICMODE_DOLBY_VIVID = 2,  /**< Vivid. */
    KELU_MW_PICMODE_DOLBY_GAME = 3,   /**< For games. */
    KELU_MW_PICMODE_DOLBY_BUTT = 4,   /**< End marker, no value. */
} KELU_MW_PICMODE_DOLBY_E;

/** The service's picture modes for photographs. */
typedef enum KELU_MW_PICMODE_PHOTO_E KELUTV_INT_ENUM {
    KELU_MW_PICMODE_PHOTO_VIVID_ALBUM = 0,    /**< Album, vivid. */
    KELU_MW_PICMODE_PHOTO_STANDARD_ALBUM = 1, /**< Album, standard. */
    KELU_MW_PICMODE_PHOTO_BUTT = 2,           /**< End marker, no value. */
} KELU_MW_PICMODE_PHOTO_E;

/** Mode of `Picture::setPcMode`: how the picture is treated. */
typedef enum KELU_MW_PCMODE_E KELUTV_INT_ENUM {
    KELU_MW_PCMODE_AUTO = 0,  /**< Automatic. */
    KELU_MW_PCMODE_PC = 1,    /**< As a computer's. */
    KELU_MW_PCMODE_VIDEO = 2, /**< As video. */
    KELU_MW_PCMODE_BUTT = 3,  /**< End marker, no value. */
} KELU_MW_PCMODE_E;

/** Mode of `Picture::setHdrMode`. */
typedef enum KELU_MW_HDR_MODE_E KELUTV_INT_ENUM {
    KELU_MW_HDR_MODE_AUTO = 0,  /**< Automatic. */
    KELU_MW_HDR_MODE_HDR10 = 1, /**< HDR10. */
    KELU_MW_HDR_MODE_HLG = 2,   /**< Hybrid log-gamma. */
    KELU_MW_HDR_MODE_SDR = 3,   /**< Standard dynamic range. */
    KELU_MW_HDR_MODE_BUTT = 4,  /**< End marker, no value. */
} KELU_MW_HDR_MODE_E;

/** The white balance of a colour temperature. */
typedef struct ColorTempData {
    int redGain;     /**< Gain of red. */
    int greenGain;   /**< Gain of green. */
    int blueGain;    /**< Gain of blue. */
    int redOffset;   /**< Offset of red. */
    int greenOffset; /**< Offset of green. */
    int blueOffset;  /**< Offset of blue. */
} ColorTempData;

/** A position and a range, horizontal and vertical. */
typedef struct ScopeInfo {
    int horPos;   /**< Horizontal position. */
    int verPos;   /**< Vertical position. */
    int horRange; /**< Horizontal range. */
    int verRange; /**< Vertical range. */
} ScopeInfo;

/** The control of the colours, a value each. */
typedef struct ColorControlInfoData {
    int red;        /**< Red. */
    int green;      /**< Green. */
    int blue;       /**< Blue. */
    int cyan;       /**< Cyan. */
    int magenta;    /**< Magenta. */
    int yellow;     /**< Yellow. */
    int complexion; /**< Complexion. */
} ColorControlInfoData;

#endif
