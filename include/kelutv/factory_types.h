/**
 * @file
 * Values and records of the factory and service functions.
 */
#ifndef KELUTV_FACTORY_TYPES_H
#define KELUTV_FACTORY_TYPES_H

#include <kelutv/export.h>
#include <kelutv/picture_types.h>
#include <kelutv/source_types.h>

/** Identification data the HDMI inputs offer. */
typedef enum KELU_TV_EDID_TYPE_E KELUTV_INT_ENUM {
    KELU_TV_EDID_TYPE_14_FHD = 0,   /**< HDMI 1.4, full HD. */
    KELU_TV_EDID_TYPE_14_4K = 1,    /**< HDMI 1.4, 4K. */
    KELU_TV_EDID_TYPE_DEFAULT = 2,  /**< The default. */
    KELU_TV_EDID_TYPE_21_4K_8K = 3, /**< HDMI 2.1, 4K and 8K. */
    KELU_TV_EDID_TYPE_BUTT = 4,     /**< End marker, no value. */
} KELU_TV_EDID_TYPE_E;

/** Temperature of the main chip asked for. */
typedef enum KELU_MW_SOC_TEMP_TYPE KELUTV_INT_ENUM {
    KELU_MW_SOC_TEMP_REAL = 0,        /**< The real one. */
    KELU_MW_SOC_TEMP_CURRENT_MAX = 1, /**< The current maximum. */
    KELU_MW_SOC_TEMP_HISTORY_MAX = 2, /**< The maximum of the history. */
    KELU_MW_SOC_TEMP_BUTT = 3,        /**< End marker, no value. */
} KELU_MW_SOC_TEMP_TYPE;

/** Kind of a key that is burned into the set. */
typedef enum KELU_TV_MUL_KEY_E KELUTV_INT_ENUM {
    KELU_TV_MUL_KEY_BARCODE = 0,             /**< Bar code. */
    KELU_TV_MUL_KEY_MAC = 1,                 /**< MAC address. */
    KELU_TV_MUL_KEY_HDCP14 = 2,              /**< HDCP 1.4. */
    KELU_TV_MUL_KEY_HDCP22 = 3,              /**< HDCP 2.2. */
    KELU_TV_MUL_KEY_TUYA = 4,                /**< Tuya. */
    KELU_TV_MUL_KEY_WIDEWINE = 5,            /**< Widevine; spelled so. */
    KELU_TV_MUL_KEY_NETFLIX = 6,             /**< Netflix. */
    KELU_TV_MUL_KEY_CIPLUS = 7,              /**< CI Plus. */
    KELU_TV_MUL_KEY_PLAYREADY_PRIVATE = 8,   /**< PlayReady, private. */
    KELU_TV_MUL_KEY_ANDROID_ATTESTATION = 9, /**< Android attestation. */
    KELU_TV_MUL_KEY_PRODUCT_ID = 10,         /**< Product identifier. */
    KELU_TV_MUL_KEY_PLAYREADY_PUBLIC = 11,   /**< PlayReady, public. */
    KELU_TV_MUL_KEY_USER_ID = 12,            /**< User identifier. */
    KELU_TV_MUL_KEY_SN = 13,                 /**< Serial number. */
    KELU_TV_MUL_KEY_ORDER_NUM = 14,          /**< Order number. */
    KELU_TV_MUL_KEY_ORDER_COUNT = 15,        /**< Order count. */
    KELU_TV_MUL_KEY_MACHINE_MODEL = 16,      /**< Machine model. */
    KELU_TV_MUL_KEY_ULPK = 17,               /**< ULPK. */
    KELU_TV_MUL_KEY_THREE_IN_ONE = 18,       /**< Three in one. */
    KELU_TV_MUL_KEY_BUTT = 19,               /**< End marker, no value. */
} KELU_TV_MUL_KEY_E;

/** Test pattern. */
typedef enum KELU_TV_PATTERN_E KELUTV_INT_ENUM {
    KELU_TV_PATTERN_OFF = 0,      /**< No pattern. */
    KELU_TV_PATTERN_BLACK = 1,    /**< Black. */
    KELU_TV_PATTERN_WHITE = 2,    /**< White. */
    KELU_TV_PATTERN_RED = 3,      /**< Red. */
    KELU_TV_PATTERN_GREEN = 4,    /**< Green. */
    KELU_TV_PATTERN_BLUE = 5,     /**< Blue. */
    KELU_TV_PATTERN_GRAY = 6,     /**< Grey. */
    KELU_TV_PATTERN_25_WHITE = 7, /**< White, 25 %. */
    KELU_TV_PATTERN_50_WHITE = 8, /**< White, 50 %. */
    KELU_TV_PATTERN_BUTT = 9,     /**< End marker, no value. */
} KELU_TV_PATTERN_E;

/**
 * Pattern of `linux_tv_Factory_setWBWhitePattern`, with what it sends of each colour, 255 being the most; SACALE is
 * written so in every name.
 */
typedef enum KELU_TV_PATTERN_TYPE_E KELUTV_INT_ENUM {
    KELU_TV_PATTERN_TYPE_OFF = 0,                   /**< No pattern. */
    KELU_TV_PATTERN_TYPE_20_GREY_SACALE_WHITE = 1,  /**< Grey, 20 %: 51 of red, green and blue. */
    KELU_TV_PATTERN_TYPE_25_GREY_SACALE_WHITE = 2,  /**< Grey, 25 %: 63 of red, green and blue. */
    KELU_TV_PATTERN_TYPE_50_GREY_SACALE_WHITE = 3,  /**< Grey, 50 %: 127 of red, green and blue. */
    KELU_TV_PATTERN_TYPE_60_GREY_SACALE_WHITE = 4,  /**< Grey, 60 %: 153 of red, green and blue. */
    KELU_TV_PATTERN_TYPE_70_GREY_SACALE_WHITE = 5,  /**< Grey, 70 %: 178 of red, green and blue. */
    KELU_TV_PATTERN_TYPE_80_GREY_SACALE_WHITE = 6,  /**< Grey, 80 %: 204 of red, green and blue. */
    KELU_TV_PATTERN_TYPE_90_GREY_SACALE_WHITE = 7,  /**< Grey, 90 %: 230 of red, green and blue. */
    KELU_TV_PATTERN_TYPE_100_GREY_SACALE_WHITE = 8, /**< Grey, 100 %: 255 of red, green and blue. */
    KELU_TV_PATTERN_TYPE_RED = 9,                   /**< Red: 255 of red. */
    KELU_TV_PATTERN_TYPE_GREEN = 10,                /**< Green: 255 of green. */
    KELU_TV_PATTERN_TYPE_BLUE = 11,                 /**< Blue: 255 of blue. */
    KELU_TV_PATTERN_TYPE_BLACK = 12,                /**< Black: 0 of each. */
    KELU_TV_PATTERN_TYPE_BUTT = 13,                 /**< End marker, no value. */
} KELU_TV_PATTERN_TYPE_E;

/** Operation of `Factory::operateFlashEEPROM` on the storage. */
typedef enum KELU_TV_OPERATEFLASHEEPROM KELUTV_INT_ENUM {
    KELU_TV_EEFLASH_BAK = 0,          /**< Backup. */
    KELU_TV_EEFLASH_PART = 1,         /**< A part. */
    KELU_TV_EEFLASH_ALL = 2,          /**< All of it. */
    KELU_TV_EEFLASH_BASEINFO = 3,     /**< The basic information. */
    KELU_TV_EEFLASH_UPDATE_HOTEL = 4, /**< Updates the hotel data. */
    KELU_TV_EEFLASH_OPERATE_BUTT = 5, /**< End marker, no value. */
} KELU_TV_OPERATEFLASHEEPROM;

/** Command of `Factory::pqIoCtl`: a colour or a table; no name has the value 16. */
typedef enum KELU_TV_PQ_IOCTL_CMD_E KELUTV_INT_ENUM {
    KELU_TV_PQ_IOCTL_Red_Color = 1,                      /**< Red. */
    KELU_TV_PQ_IOCTL_Green_Color = 2,                    /**< Green. */
    KELU_TV_PQ_IOCTL_Yellow_Color = 3,                   /**< Yellow. */
    KELU_TV_PQ_IOCTL_Cyan_Color = 4,                     /**< Cyan. */
    KELU_TV_PQ_IOCTL_Blue_Color = 5,                     /**< Blue. */
    KELU_TV_PQ_IOCTL_Purple_Color = 6,                   /**< Purple. */
    KELU_TV_PQ_IOCTL_Skin_Color = 7,                     /**< Skin. */
    KELU_TV_PQ_IOCTL_Yellow_Green_Color = 8,             /**< Yellow green. */
    KELU_TV_PQ_IOCTL_Blue_Green_Color = 9,               /**< Blue green. */
    KELU_TV_PQ_IOCTL_Purple_Red_Color = 10,              /**< Purple red. */
    KELU_TV_PQ_IOCTL_Skin_Hair_Color = 11,               /**< Skin and hair. */
    KELU_TV_PQ_IOCTL_Skin_Yellow_Color = 12,             /**< Yellow skin. */
    KELU_TV_PQ_IOCTL_Green_Cyan_Color = 13,              /**< Green cyan. */
    KELU_TV_PQ_IOCTL_Cyan_Blue_Color = 14,               /**< Cyan blue. */
    KELU_TV_PQ_IOCTL_BUTT_Color = 15,                    /**< End marker of the colours, no value. */
    KELU_TV_PQ_IOCTL_AIPQ_CMD_GET_DCI_SKIN_LUT = 17,     /**< Gets the DCI table of skin. */
    KELU_TV_PQ_IOCTL_AIPQ_CMD_SET_DCI_SKIN_LUT = 18,     /**< Sets the DCI table of skin. */
    KELU_TV_PQ_IOCTL_AIPQ_CMD_GET_SHARP_SKIN_LUT = 19,   /**< Gets the sharpness table of skin. */
    KELU_TV_PQ_IOCTL_AIPQ_CMD_SET_SHARP_SKIN_LUT = 20,   /**< Sets the sharpness table of skin. */
    KELU_TV_PQ_IOCTL_AIPQ_CMD_SET_SOURCE_COLOR_LUT = 21, /**< Sets the colour table of a source. */
    KELU_TV_PQ_IOCTL_BUTT = 22,                          /**< End marker, no value. */
} KELU_TV_PQ_IOCTL_CMD_E;

/** Serial number asked for by `getDtvSn`. */
typedef enum KELU_TV_DTV_SN_E KELUTV_INT_ENUM {
    KELU_TV_DTV_SN_CONFIG = 0, /**< That of the configuration. */
    KELU_TV_DTV_SN_TV = 1,     /**< That of the TV. */
} KELU_TV_DTV_SN_E;

/** Kind of conditional access of `setStbOtpBurn`. */
typedef enum KELU_TV_OPT_CA_TYPE_E KELUTV_INT_ENUM {
    KELU_TV_OPT_CA_TYPE_UNITEND = 0, /**< Unitend. */
    KELU_TV_OPT_CA_TYPE_BUTT = 1,    /**< End marker, no value. */
} KELU_TV_OPT_CA_TYPE_E;

/** Protocol of the remote control. */
typedef enum KELU_TV_IR_PROTOCOL_TYPE_E KELUTV_INT_ENUM {
    KELU_TV_IR_PROTOCOL_TC9012 = 0, /**< TC9012. */
    KELU_TV_IR_PROTOCOL_NEC = 1,    /**< NEC. */
    KELU_TV_IR_PROTOCOL_RC5 = 2,    /**< RC-5. */
    KELU_TV_IR_PROTOCOL_RC6 = 3,    /**< RC-6. */
    KELU_TV_IR_PROTOCOL_SONY = 4,   /**< Sony. */
} KELU_TV_IR_PROTOCOL_TYPE_E;

/** Password asked for by `getPassWord`. */
typedef enum KELU_TV_PASSWORD_TYPE_E KELUTV_INT_ENUM {
    KELU_TV_PASSWORD_TYPE_ADMIN = 0,   /**< The administrator's. */
    KELU_TV_PASSWORD_TYPE_FACTORY = 1, /**< The factory's. */
    KELU_TV_PASSWORD_TYPE_HOTEL = 2,   /**< The hotel's. */
    KELU_TV_PASSWORD_TYPE_BUTT = 3,    /**< End marker, no value. */
} KELU_TV_PASSWORD_TYPE_E;

/** Text about the set asked for by `getMachineInfo`. */
typedef enum KELU_TV_MACHINE_INFO_E KELUTV_INT_ENUM {
    KELU_TV_MACHINE_INFO_MODEL = 0,         /**< Model. */
    KELU_TV_MACHINE_INFO_TYPE = 1,          /**< Type. */
    KELU_TV_MACHINE_INFO_SECOND_TYPE = 2,   /**< Second type. */
    KELU_TV_MACHINE_INFO_DERIVE_MODEL = 3,  /**< Derived model. */
    KELU_TV_MACHINE_INFO_DERIVE_TYPE = 4,   /**< Derived type. */
    KELU_TV_MACHINE_INFO_BRAND_NAME = 5,    /**< Name of the brand. */
    KELU_TV_MACHINE_INFO_BRAND_MODEL = 6,   /**< Model of the brand. */
    KELU_TV_MACHINE_INFO_BRAND_TYPE = 7,    /**< Type of the brand. */
    KELU_TV_MACHINE_INFO_SOC_CHIP_NAME = 8, /**< Name of the main chip. */
    KELU_TV_MACHINE_INFO_BROWSER_TYPE = 9,  /**< Type of the browser. */
    KELU_TV_MACHINE_INFO_BUTT = 10,         /**< End marker, no value. */
} KELU_TV_MACHINE_INFO_E;

/** Whether the disturbing mode of the LED is on. */
typedef enum KELU_TV_LED_DISTURBING_MODE_E KELUTV_INT_ENUM {
    KELU_TV_LED_DISTURBING_MODE_OFF = 0,      /**< Off. */
    KELU_TV_LED_DISTURBING_MODE_ON = 1,       /**< On. */
    KELU_TV_LED_DISTURBING_MODE_OFF_BUTT = 2, /**< End marker, no value. */
} KELU_TV_LED_DISTURBING_MODE_E;

/** Kind of data of the network port transfer calls; the service defines the values. */
typedef int KELU_TV_NETDATATRAN_TPYE_E;

/** Item of the non-standard item calls; the service defines the values. */
typedef int KELU_TV_NONSTAND_TPYE_E;

/** The calibration of the analogue inputs. */
typedef struct CalibrationInfo {
    unsigned int redGain;     /**< Gain of red. */
    unsigned int greenGain;   /**< Gain of green. */
    unsigned int blueGain;    /**< Gain of blue. */
    unsigned int redOffset;   /**< Offset of red. */
    unsigned int greenOffset; /**< Offset of green. */
    unsigned int blueOffset;  /**< Offset of blue. */
} CalibrationInfo;

/** The points of a non-linear adjustment. */
typedef struct NlaInfo {
    unsigned int point0;   /**< Point 0. */
    unsigned int point25;  /**< Point 25. */
    unsigned int point50;  /**< Point 50. */
    unsigned int point75;  /**< Point 75. */
    unsigned int point100; /**< Point 100. */
} NlaInfo;

/** The parametric equaliser of the sound: frequency in a coarse and a fine part, gain and quality of three bands. */
typedef struct SoundPeqData {
    int FO1_COARSE; /**< Frequency of band 1, coarse. */
    int FO1_FINE;   /**< Frequency of band 1, fine. */
    int FO2_COARSE; /**< Frequency of band 2, coarse. */
    int FO2_FINE;   /**< Frequency of band 2, fine. */
    int FO3_COARSE; /**< Frequency of band 3, coarse. */
    int FO3_FINE;   /**< Frequency of band 3, fine. */
    int GAIN1;      /**< Gain of band 1. */
    int GAIN2;      /**< Gain of band 2. */
    int GAIN3;      /**< Gain of band 3. */
    int Q1;         /**< Quality of band 1. */
    int Q2;         /**< Quality of band 2. */
    int Q3;         /**< Quality of band 3. */
} SoundPeqData;

/** The name of a line OD table; one of ten bytes has no terminator. */
typedef char BOE_OD_TableName[10];

/** A list of line OD tables. */
typedef struct BOE_OD_TableInfo {
    BOE_OD_TableName ODTableStr[9]; /**< The names. */
} BOE_OD_TableInfo;

#endif
