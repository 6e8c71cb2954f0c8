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
    KELU_TV_EDID_TYPE_14_FHD = 0,
    KELU_TV_EDID_TYPE_14_4K = 1,
    KELU_TV_EDID_TYPE_DEFAULT = 2,
    KELU_TV_EDID_TYPE_21_4K_8K = 3,
    KELU_TV_EDID_TYPE_BUTT = 4,
} KELU_TV_EDID_TYPE_E;

/** Temperature of the main chip asked for. */
typedef enum KELU_MW_SOC_TEMP_TYPE KELUTV_INT_ENUM {
    KELU_MW_SOC_TEMP_REAL = 0,
    KELU_MW_SOC_TEMP_CURRENT_MAX = 1,
    KELU_MW_SOC_TEMP_HISTORY_MAX = 2,
    KELU_MW_SOC_TEMP_BUTT = 3,
} KELU_MW_SOC_TEMP_TYPE;

/** Kind of a key that is burned into the set. */
typedef enum KELU_TV_MUL_KEY_E KELUTV_INT_ENUM {
    KELU_TV_MUL_KEY_BARCODE = 0,
    KELU_TV_MUL_KEY_MAC = 1,
    KELU_TV_MUL_KEY_HDCP14 = 2,
    KELU_TV_MUL_KEY_HDCP22 = 3,
    KELU_TV_MUL_KEY_TUYA = 4,
    KELU_TV_MUL_KEY_WIDEWINE = 5,
    KELU_TV_MUL_KEY_NETFLIX = 6,
    KELU_TV_MUL_KEY_CIPLUS = 7,
    KELU_TV_MUL_KEY_PLAYREADY_PRIVATE = 8,
    KELU_TV_MUL_KEY_ANDROID_ATTESTATION = 9,
    KELU_TV_MUL_KEY_PRODUCT_ID = 10,
    KELU_TV_MUL_KEY_PLAYREADY_PUBLIC = 11,
    KELU_TV_MUL_KEY_USER_ID = 12,
    KELU_TV_MUL_KEY_SN = 13,
    KELU_TV_MUL_KEY_ORDER_NUM = 14,
    KELU_TV_MUL_KEY_ORDER_COUNT = 15,
    KELU_TV_MUL_KEY_MACHINE_MODEL = 16,
    KELU_TV_MUL_KEY_ULPK = 17,
    KELU_TV_MUL_KEY_THREE_IN_ONE = 18,
    KELU_TV_MUL_KEY_BUTT = 19,
} KELU_TV_MUL_KEY_E;

/** Test pattern. */
typedef enum KELU_TV_PATTERN_E KELUTV_INT_ENUM {
    KELU_TV_PATTERN_OFF = 0,
    KELU_TV_PATTERN_BLACK = 1,
    KELU_TV_PATTERN_WHITE = 2,
    KELU_TV_PATTERN_RED = 3,
    KELU_TV_PATTERN_GREEN = 4,
    KELU_TV_PATTERN_BLUE = 5,
    KELU_TV_PATTERN_GRAY = 6,
    KELU_TV_PATTERN_25_WHITE = 7,
    KELU_TV_PATTERN_50_WHITE = 8,
    KELU_TV_PATTERN_BUTT = 9,
} KELU_TV_PATTERN_E;

/** White-balance pattern of the C layer; SACALE is written so in every name. */
typedef enum KELU_TV_PATTERN_TYPE_E KELUTV_INT_ENUM {
    KELU_TV_PATTERN_TYPE_OFF = 0,
    KELU_TV_PATTERN_TYPE_20_GREY_SACALE_WHITE = 1,
    KELU_TV_PATTERN_TYPE_25_GREY_SACALE_WHITE = 2,
    KELU_TV_PATTERN_TYPE_50_GREY_SACALE_WHITE = 3,
    KELU_TV_PATTERN_TYPE_60_GREY_SACALE_WHITE = 4,
    KELU_TV_PATTERN_TYPE_70_GREY_SACALE_WHITE = 5,
    KELU_TV_PATTERN_TYPE_80_GREY_SACALE_WHITE = 6,
    KELU_TV_PATTERN_TYPE_90_GREY_SACALE_WHITE = 7,
    KELU_TV_PATTERN_TYPE_100_GREY_SACALE_WHITE = 8,
    KELU_TV_PATTERN_TYPE_RED = 9,
    KELU_TV_PATTERN_TYPE_GREEN = 10,
    KELU_TV_PATTERN_TYPE_BLUE = 11,
    KELU_TV_PATTERN_TYPE_BLACK = 12,
    KELU_TV_PATTERN_TYPE_BUTT = 13,
} KELU_TV_PATTERN_TYPE_E;

/** What `operateFlashEEPROM` does with the storage. */
typedef enum KELU_TV_OPERATEFLASHEEPROM KELUTV_INT_ENUM {
    KELU_TV_EEFLASH_BAK = 0,
    KELU_TV_EEFLASH_PART = 1,
    KELU_TV_EEFLASH_ALL = 2,
    KELU_TV_EEFLASH_BASEINFO = 3,
    KELU_TV_EEFLASH_UPDATE_HOTEL = 4,
    KELU_TV_EEFLASH_OPERATE_BUTT = 5,
} KELU_TV_OPERATEFLASHEEPROM;

/** Colour table that `pqIoCtl` names; no name has the value 16. */
typedef enum KELU_TV_PQ_IOCTL_CMD_E KELUTV_INT_ENUM {
    KELU_TV_PQ_IOCTL_Red_Color = 1,
    KELU_TV_PQ_IOCTL_Green_Color = 2,
    KELU_TV_PQ_IOCTL_Yellow_Color = 3,
    KELU_TV_PQ_IOCTL_Cyan_Color = 4,
    KELU_TV_PQ_IOCTL_Blue_Color = 5,
    KELU_TV_PQ_IOCTL_Purple_Color = 6,
    KELU_TV_PQ_IOCTL_Skin_Color = 7,
    KELU_TV_PQ_IOCTL_Yellow_Green_Color = 8,
    KELU_TV_PQ_IOCTL_Blue_Green_Color = 9,
    KELU_TV_PQ_IOCTL_Purple_Red_Color = 10,
    KELU_TV_PQ_IOCTL_Skin_Hair_Color = 11,
    KELU_TV_PQ_IOCTL_Skin_Yellow_Color = 12,
    KELU_TV_PQ_IOCTL_Green_Cyan_Color = 13,
    KELU_TV_PQ_IOCTL_Cyan_Blue_Color = 14,
    KELU_TV_PQ_IOCTL_BUTT_Color = 15,
    KELU_TV_PQ_IOCTL_AIPQ_CMD_GET_DCI_SKIN_LUT = 17,
    KELU_TV_PQ_IOCTL_AIPQ_CMD_SET_DCI_SKIN_LUT = 18,
    KELU_TV_PQ_IOCTL_AIPQ_CMD_GET_SHARP_SKIN_LUT = 19,
    KELU_TV_PQ_IOCTL_AIPQ_CMD_SET_SHARP_SKIN_LUT = 20,
    KELU_TV_PQ_IOCTL_AIPQ_CMD_SET_SOURCE_COLOR_LUT = 21,
    KELU_TV_PQ_IOCTL_BUTT = 22,
} KELU_TV_PQ_IOCTL_CMD_E;

/** Serial number asked for by `getDtvSn`. */
typedef enum KELU_TV_DTV_SN_E KELUTV_INT_ENUM {
    KELU_TV_DTV_SN_CONFIG = 0,
    KELU_TV_DTV_SN_TV = 1,
} KELU_TV_DTV_SN_E;

/** Kind of conditional access of `setStbOtpBurn`. */
typedef enum KELU_TV_OPT_CA_TYPE_E KELUTV_INT_ENUM {
    KELU_TV_OPT_CA_TYPE_UNITEND = 0,
    KELU_TV_OPT_CA_TYPE_BUTT = 1,
} KELU_TV_OPT_CA_TYPE_E;

/** Protocol of the remote control. */
typedef enum KELU_TV_IR_PROTOCOL_TYPE_E KELUTV_INT_ENUM {
    KELU_TV_IR_PROTOCOL_TC9012 = 0,
    KELU_TV_IR_PROTOCOL_NEC = 1,
    KELU_TV_IR_PROTOCOL_RC5 = 2,
    KELU_TV_IR_PROTOCOL_RC6 = 3,
    KELU_TV_IR_PROTOCOL_SONY = 4,
} KELU_TV_IR_PROTOCOL_TYPE_E;

/** Password asked for by `getPassWord`. */
typedef enum KELU_TV_PASSWORD_TYPE_E KELUTV_INT_ENUM {
    KELU_TV_PASSWORD_TYPE_ADMIN = 0,
    KELU_TV_PASSWORD_TYPE_FACTORY = 1,
    KELU_TV_PASSWORD_TYPE_HOTEL = 2,
    KELU_TV_PASSWORD_TYPE_BUTT = 3,
} KELU_TV_PASSWORD_TYPE_E;

/** Text about the set asked for by `getMachineInfo`. */
typedef enum KELU_TV_MACHINE_INFO_E KELUTV_INT_ENUM {
    KELU_TV_MACHINE_INFO_MODEL = 0,
    KELU_TV_MACHINE_INFO_TYPE = 1,
    KELU_TV_MACHINE_INFO_SECOND_TYPE = 2,
    KELU_TV_MACHINE_INFO_DERIVE_MODEL = 3,
    KELU_TV_MACHINE_INFO_DERIVE_TYPE = 4,
    KELU_TV_MACHINE_INFO_BRAND_NAME = 5,
    KELU_TV_MACHINE_INFO_BRAND_MODEL = 6,
    KELU_TV_MACHINE_INFO_BRAND_TYPE = 7,
    KELU_TV_MACHINE_INFO_SOC_CHIP_NAME = 8,
    KELU_TV_MACHINE_INFO_BROWSER_TYPE = 9,
    KELU_TV_MACHINE_INFO_BUTT = 10,
} KELU_TV_MACHINE_INFO_E;

/** Whether the disturbing mode of the LED is on. */
typedef enum KELU_TV_LED_DISTURBING_MODE_E KELUTV_INT_ENUM {
    KELU_TV_LED_DISTURBING_MODE_OFF = 0,
    KELU_TV_LED_DISTURBING_MODE_ON = 1,
    KELU_TV_LED_DISTURBING_MODE_OFF_BUTT = 2,
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

/** The points of a non-linear adjustment, each at its percentage of the range. */
typedef struct NlaInfo {
    unsigned int point0;   /**< At 0 %. */
    unsigned int point25;  /**< At 25 %. */
    unsigned int point50;  /**< At 50 %. */
    unsigned int point75;  /**< At 75 %. */
    unsigned int point100; /**< At 100 %. */
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

/** The name of a line overdrive table; one of ten bytes has no terminator. */
typedef char BOE_OD_TableName[10];

/** A list of line overdrive tables. */
typedef struct BOE_OD_TableInfo {
    BOE_OD_TableName ODTableStr[9]; /**< The names. */
} BOE_OD_TableInfo;

#endif
