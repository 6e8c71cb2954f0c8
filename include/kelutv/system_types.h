/**
 * @file
 * Value sets of the system module.
 */
#ifndef KELUTV_SYSTEM_TYPES_H
#define KELUTV_SYSTEM_TYPES_H

#include <kelutv/export.h>

/** What happened to a key. */
typedef enum KELU_TV_KPC_EV_KEY_E KELUTV_INT_ENUM {
    KELU_TV_KPC_EV_KEY_RELEASE = 0, /**< It went up. */
    KELU_TV_KPC_EV_KEY_PRESS = 1,   /**< It went down. */
} KELU_TV_KPC_EV_KEY_E;

/**
 * Key codes: those of the Linux input layer for the ordinary keys, private ones from 483 upward. Two customer test keys
 * have the values 762 and 763 and no names.
 */
typedef enum KELU_TV_LINUX_KEYCODE_E KELUTV_INT_ENUM {
    KELU_TV_LINUX_KEYCODE_KELU_KEY_0 = 11,                          /**< Linux `KEY_0`. */
    KELU_TV_LINUX_KEYCODE_KELU_KEY_1 = 2,                           /**< Linux `KEY_1`. */
    KELU_TV_LINUX_KEYCODE_KELU_KEY_2 = 3,                           /**< Linux `KEY_2`. */
    KELU_TV_LINUX_KEYCODE_KELU_KEY_3 = 4,                           /**< Linux `KEY_3`. */
    KELU_TV_LINUX_KEYCODE_KELU_KEY_4 = 5,                           /**< Linux `KEY_4`. */
    KELU_TV_LINUX_KEYCODE_KELU_KEY_5 = 6,                           /**< Linux `KEY_5`. */
    KELU_TV_LINUX_KEYCODE_KELU_KEY_6 = 7,                           /**< Linux `KEY_6`. */
    KELU_TV_LINUX_KEYCODE_KELU_KEY_7 = 8,                           /**< Linux `KEY_7`. */
    KELU_TV_LINUX_KEYCODE_KELU_KEY_8 = 9,                           /**< Linux `KEY_8`. */
    KELU_TV_LINUX_KEYCODE_KELU_KEY_9 = 10,                          /**< Linux `KEY_9`. */
    KELU_TV_LINUX_KEYCODE_KELU_KEY_INPUT_NUMBER = 483,              /**< Input of a number. */
    KELU_TV_LINUX_KEYCODE_KELU_KEY_VOLUME_UP = 115,                 /**< Linux `KEY_VOLUMEUP`. */
    KELU_TV_LINUX_KEYCODE_KELU_KEY_VOLUME_DOWN = 114,               /**< Linux `KEY_VOLUMEDOWN`. */
    KELU_TV_LINUX_KEYCODE_KELU_KEY_CHANNEL_UP = 402,                /**< Linux `KEY_CHANNELUP`. */
    KELU_TV_LINUX_KEYCODE_KELU_KEY_CHANNEL_DOWN = 403,              /**< Linux `KEY_CHANNELDOWN`. */
    KELU_TV_LINUX_KEYCODE_KELU_KEY_CHANNEL_SEARCH = 510,            /**< Channel search. */
    KELU_TV_LINUX_KEYCODE_KELU_KEY_UP = 103,                        /**< Linux `KEY_UP`. */
    KELU_TV_LINUX_KEYCODE_KELU_KEY_DOWN = 108,                      /**< Linux `KEY_DOWN`. */
    KELU_TV_LINUX_KEYCODE_KELU_KEY_LEFT = 105,                      /**< Linux `KEY_LEFT`. */
    KELU_TV_LINUX_KEYCODE_KELU_KEY_RIGHT = 106,                     /**< Linux `KEY_RIGHT`. */
    KELU_TV_LINUX_KEYCODE_KELU_KEY_CENTER = 28,                     /**< Linux `KEY_ENTER`. */
    KELU_TV_LINUX_KEYCODE_KELU_KEY_HOME = 102,                      /**< Linux `KEY_HOME`. */
    KELU_TV_LINUX_KEYCODE_KELU_KEY_MENU = 139,                      /**< Linux `KEY_MENU`. */
    KELU_TV_LINUX_KEYCODE_KELU_KEY_BACK = 158,                      /**< Linux `KEY_BACK`. */
    KELU_TV_LINUX_KEYCODE_KELU_KEY_POWER = 116,                     /**< Linux `KEY_POWER`. */
    KELU_TV_LINUX_KEYCODE_KELU_KEY_FACTORY_FACTORY_MODE = 512,      /**< Factory: factory mode. */
    KELU_TV_LINUX_KEYCODE_KELU_KEY_FACTORY_RESET = 513,             /**< Factory: reset. */
    KELU_TV_LINUX_KEYCODE_KELU_KEY_FACTORY_SOURCE_ADD = 514,        /**< Factory: source up. */
    KELU_TV_LINUX_KEYCODE_KELU_KEY_FACTORY_SOURCE_REDUCE = 515,     /**< Factory: source down. */
    KELU_TV_LINUX_KEYCODE_KELU_KEY_FACTORY_OUTSET = 516,            /**< Factory: outset. */
    KELU_TV_LINUX_KEYCODE_KELU_KEY_FACTORY_BUS_OFF = 517,           /**< Factory: bus off. */
    KELU_TV_LINUX_KEYCODE_KELU_KEY_FACTORY_AGING_MODE = 518,        /**< Factory: ageing mode. */
    KELU_TV_LINUX_KEYCODE_KELU_KEY_FACTORY_AUTO_ADC = 519,          /**< Factory: automatic ADC calibration. */
    KELU_TV_LINUX_KEYCODE_KELU_KEY_FACTORY_AV1 = 520,               /**< Factory: AV 1. */
    KELU_TV_LINUX_KEYCODE_KELU_KEY_FACTORY_RF_AGC = 521,            /**< Factory: RF AGC. */
    KELU_TV_LINUX_KEYCODE_KELU_KEY_FACTORY_AV2 = 522,               /**< Factory: AV 2. */
    KELU_TV_LINUX_KEYCODE_KELU_KEY_FACTORY_AV3 = 523,               /**< Factory: AV 3. */
    KELU_TV_LINUX_KEYCODE_KELU_KEY_FACTORY_DTV = 704,               /**< Factory: digital television. */
    KELU_TV_LINUX_KEYCODE_KELU_KEY_FACTORY_YUV1 = 705,              /**< Factory: YUV 1. */
    KELU_TV_LINUX_KEYCODE_KELU_KEY_FACTORY_YUV2 = 706,              /**< Factory: YUV 2. */
    KELU_TV_LINUX_KEYCODE_KELU_KEY_FACTORY_VGA = 707,               /**< Factory: VGA. */
    KELU_TV_LINUX_KEYCODE_KELU_KEY_FACTORY_HDMI1 = 708,             /**< Factory: HDMI 1. */
    KELU_TV_LINUX_KEYCODE_KELU_KEY_FACTORY_HDMI2 = 709,             /**< Factory: HDMI 2. */
    KELU_TV_LINUX_KEYCODE_KELU_KEY_FACTORY_HDMI3 = 710,             /**< Factory: HDMI 3. */
    KELU_TV_LINUX_KEYCODE_KELU_KEY_FACTORY_ATV = 711,               /**< Factory: analogue television. */
    KELU_TV_LINUX_KEYCODE_KELU_KEY_FACTORY_UPLAYER = 712,           /**< Factory: U player. */
    KELU_TV_LINUX_KEYCODE_KELU_KEY_FACTORY_LAN = 713,               /**< Factory: LAN. */
    KELU_TV_LINUX_KEYCODE_KELU_KEY_FACTORY_BACKLIGHT = 714,         /**< Factory: backlight. */
    KELU_TV_LINUX_KEYCODE_KELU_KEY_FACTORY_WHITE_BALANCE = 715,     /**< Factory: white balance. */
    KELU_TV_LINUX_KEYCODE_KELU_KEY_FACTORY_GESTURE = 716,           /**< Factory: gesture. */
    KELU_TV_LINUX_KEYCODE_KELU_KEY_FACTORY_CA_CARD = 717,           /**< Factory: CA card. */
    KELU_TV_LINUX_KEYCODE_KELU_KEY_FACTORY_BARCODE = 718,           /**< Factory: bar code. */
    KELU_TV_LINUX_KEYCODE_KELU_KEY_FACTORY_WLAN = 719,              /**< Factory: WLAN. */
    KELU_TV_LINUX_KEYCODE_KELU_KEY_FACTORY_3D = 720,                /**< Factory: 3D. */
    KELU_TV_LINUX_KEYCODE_KELU_KEY_FACTORY_LOGOUT = 722,            /**< Factory: log out. */
    KELU_TV_LINUX_KEYCODE_KELU_KEY_FACTORY_DTMB = 525,              /**< Factory: DTMB. */
    KELU_TV_LINUX_KEYCODE_KELU_KEY_FACTORY_BLUETOOTH = 504,         /**< Factory: Bluetooth. */
    KELU_TV_LINUX_KEYCODE_KELU_KEY_FACTORY_WLAN_SCAN = 735,         /**< Factory: scan for WLAN. */
    KELU_TV_LINUX_KEYCODE_KELU_KEY_FACTORY_WHITE_DEBUG = 753,       /**< Factory: white debug. */
    KELU_TV_LINUX_KEYCODE_KELU_KEY_MENU_RESET = 550,                /**< Menu reset. */
    KELU_TV_LINUX_KEYCODE_KELU_KEY_FACTORY_WHITE_BALANCE_NEW = 760, /**< Factory: new white balance. */
    KELU_TV_LINUX_KEYCODE_KELU_KEY_FACTORY_GUIDE_TV = 755,          /**< Factory: guide TV. */
} KELU_TV_LINUX_KEYCODE_E;

/** Chip and kind of a device: ten values per vendor of the chip, of which four are in use. */
typedef enum SOC_TV_PLATFORM_TYPE_E KELUTV_INT_ENUM {
    SOC_TV_PLATFORM_DEFAULT = 0,              /**< The default. */
    SOC_TV_PLATFORM_HISI_ANDROID_TV = 1,      /**< HiSilicon: television with Android. */
    SOC_TV_PLATFORM_HISI_ANDROID_STB = 2,     /**< HiSilicon: set-top box with Android. */
    SOC_TV_PLATFORM_HISI_LINUX_TV = 3,        /**< HiSilicon: television with Linux. */
    SOC_TV_PLATFORM_HISI_LINUX_STB = 4,       /**< HiSilicon: set-top box with Linux. */
    SOC_TV_PLATFORM_MSTAR_ANDROID_TV = 11,    /**< MStar: television with Android. */
    SOC_TV_PLATFORM_MSTAR_ANDROID_STB = 12,   /**< MStar: set-top box with Android. */
    SOC_TV_PLATFORM_MSTAR_LINUX_TV = 13,      /**< MStar: television with Linux. */
    SOC_TV_PLATFORM_MSTAR_LINUX_STB = 14,     /**< MStar: set-top box with Linux. */
    SOC_TV_PLATFORM_REALTEK_ANDROID_TV = 21,  /**< Realtek: television with Android. */
    SOC_TV_PLATFORM_REALTEK_ANDROID_STB = 22, /**< Realtek: set-top box with Android. */
    SOC_TV_PLATFORM_REALTEK_LINUX_TV = 23,    /**< Realtek: television with Linux. */
    SOC_TV_PLATFORM_REALTEK_LINUX_STB = 24,   /**< Realtek: set-top box with Linux. */
    SOC_TV_PLATFORM_AMLOGIC_ANDROID_TV = 31,  /**< Amlogic: television with Android. */
    SOC_TV_PLATFORM_AMLOGIC_ANDROID_STB = 32, /**< Amlogic: set-top box with Android. */
    SOC_TV_PLATFORM_AMLOGIC_LINUX_TV = 33,    /**< Amlogic: television with Linux. */
    SOC_TV_PLATFORM_AMLOGIC_LINUX_STB = 34,   /**< Amlogic: set-top box with Linux. */
    SOC_TV_PLATFORM_NOVATEK_ANDROID_TV = 41,  /**< Novatek: television with Android. */
    SOC_TV_PLATFORM_NOVATEK_ANDROID_STB = 42, /**< Novatek: set-top box with Android. */
    SOC_TV_PLATFORM_NOVATEK_LINUX_TV = 43,    /**< Novatek: television with Linux. */
    SOC_TV_PLATFORM_NOVATEK_LINUX_STB = 44,   /**< Novatek: set-top box with Linux. */
    SOC_TV_PLATFORM_MTK_ANDROID_TV = 51,      /**< MediaTek: television with Android. */
    SOC_TV_PLATFORM_MTK_ANDROID_STB = 52,     /**< MediaTek: set-top box with Android. */
    SOC_TV_PLATFORM_MTK_LINUX_TV = 53,        /**< MediaTek: television with Linux. */
    SOC_TV_PLATFORM_MTK_LINUX_STB = 54,       /**< MediaTek: set-top box with Linux. */
    SOC_TV_PLATFORM_BUTT = 55,                /**< End marker, no value. */
} SOC_TV_PLATFORM_TYPE_E;

/** Languages, numbered 0 to 510. The values without a name here are the service's. */
typedef enum kq_lang_type_s KELUTV_INT_ENUM {
    KQ_LANG_CHINESE = 0,             /**< Chinese. */
    KQ_LANG_ENGLISH = 1,             /**< English. */
    KQ_LANG_TRADITIONAL_CHINESE = 2, /**< Traditional Chinese. */
    KQ_LANG_CZECH = 3,               /**< Czech. */
    KQ_LANG_GERMAN = 8,              /**< German. */
    KQ_LANG_SPANISH = 9,             /**< Spanish. */
    KQ_LANG_FRENCH = 11,             /**< French. */
    KQ_LANG_ITALIAN = 14,            /**< Italian. */
    KQ_LANG_BUTT = 511,              /**< End marker, no value. */
} kq_lang_type_s;

/** Start or end of playing. */
typedef enum KELU_TV_PLAY_STATUS KELUTV_INT_ENUM {
    KELU_TV_PLAYER_START = 0, /**< Start. */
    KELU_TV_PLAYER_END = 1,   /**< End. */
    KELU_TV_PLAYER_BUTT = 2,  /**< End marker, no value. */
} KELU_TV_PLAY_STATUS;

#endif
