/**
 * @file
 * Keys and devices of HDMI-CEC.
 */
#ifndef KELUTV_HDMICEC_TYPES_H
#define KELUTV_HDMICEC_TYPES_H

#include <kelutv/export.h>

#include <stdbool.h>

#ifdef __cplusplus
#include <string>
#endif

/** Keys of a remote control by their HDMI-CEC user control codes; names spelled as their users know them. */
typedef enum _E_MW_CEC_UI_CMD KELUTV_INT_ENUM {
    E_MW_CEC_UI_CMD_SELECT = 0,
    E_MW_CEC_UI_CMD_UP = 1,
    E_MW_CEC_UI_CMD_DOWN = 2,
    E_MW_CEC_UI_CMD_LEFT = 3,
    E_MW_CEC_UI_CMD_RIGHT = 4,
    E_MW_CEC_UI_CMD_RIGHT_UP = 5,
    E_MW_CEC_UI_CMD_RIGHT_DOWN = 6,
    E_MW_CEC_UI_CMD_LEFT_UP = 7,
    E_MW_CEC_UI_CMD_LEFT_DOWN = 8,
    E_MW_CEC_UI_CMD_ROOTMENU = 9,
    E_MW_CEC_UI_CMD_SETUP_MENU = 10,
    E_MW_CEC_UI_CMD_CONTENTS_MENU = 11,
    E_MW_CEC_UI_CMD_FAVORITE_MENU = 12,
    E_MW_CEC_UI_CMD_EXIT = 13,
    E_MW_CEC_UI_CMD_NUMBER_0 = 32,
    E_MW_CEC_UI_CMD_NUMBER_1 = 33,
    E_MW_CEC_UI_CMD_NUMBER_2 = 34,
    E_MW_CEC_UI_CMD_NUMBER_3 = 35,
    E_MW_CEC_UI_CMD_NUMBER_4 = 36,
    E_MW_CEC_UI_CMD_NUMBER_5 = 37,
    E_MW_CEC_UI_CMD_NUMBER_6 = 38,
    E_MW_CEC_UI_CMD_NUMBER_7 = 39,
    E_MW_CEC_UI_CMD_NUMBER_8 = 40,
    E_MW_CEC_UI_CMD_NUMBER_9 = 41,
    E_MW_CEC_UI_CMD_DOT = 42,
    E_MW_CEC_UI_CMD_ENTER = 43,
    E_MW_CEC_UI_CMD_CLEAR = 44,
    E_MW_CEC_UI_CMD_NEXT_FAVORITE = 47,
    E_MW_CEC_UI_CMD_CHANNEL_UP = 48,
    E_MW_CEC_UI_CMD_CHANNEL_DOWN = 49,
    E_MW_CEC_UI_CMD_PREVIOUS_CHANNEL = 50,
    E_MW_CEC_UI_CMD_SOUND_SELECT = 51,
    E_MW_CEC_UI_CMD_INPUT_SELECT = 52,
    E_MW_CEC_UI_CMD_DISPLAY_INFO = 53,
    E_MW_CEC_UI_CMD_HELP = 54,
    E_MW_CEC_UI_CMD_PAGE_UP = 55,
    E_MW_CEC_UI_CMD_PAGE_DOWN = 56,
    E_MW_CEC_UI_CMD_POWER = 64,
    E_MW_CEC_UI_CMD_VOLUME_UP = 65,
    E_MW_CEC_UI_CMD_VOLUME_DOWN = 66,
    E_MW_CEC_UI_CMD_MUTE = 67,
    E_MW_CEC_UI_CMD_PLAY = 68,
    E_MW_CEC_UI_CMD_STOP = 69,
    E_MW_CEC_UI_CMD_PAUSE = 70,
    E_MW_CEC_UI_CMD_RECORD = 71,
    E_MW_CEC_UI_CMD_REWIND = 72,
    E_MW_CEC_UI_CMD_FAST_FORWARD = 73,
    E_MW_CEC_UI_CMD_EJECT = 74,
    E_MW_CEC_UI_CMD_FORWARD = 75,
    E_MW_CEC_UI_CMD_BACKWARD = 76,
    E_MW_CEC_UI_CMD_STOP_RECORD = 77,
    E_MW_CEC_UI_CMD_PAUSE_RECORD = 78,
    E_MW_CEC_UI_CMD_ANGLE = 80,
    E_MW_CEC_UI_CMD_SUB_PICTURE = 81,
    E_MW_CEC_UI_CMD_VIDEO_ON_DEMAND = 82,
    E_MW_CEC_UI_CMD_ELECTRONIC_PROGRAM_GUIDE = 83,
    E_MW_CEC_UI_CMD_TIMER_PROGRAMMING = 84,
    E_MW_CEC_UI_CMD_INITIAL_CONFIGURATION = 85,
    E_MW_CEC_UI_CMD_PLAY_FUN = 96,
    E_MW_CEC_UI_CMD_PSUSE_PLAY_FUN = 97,
    E_MW_CEC_UI_CMD_RECORD_FUN = 98,
    E_MW_CEC_UI_CMD_PAUSE_RECORD_FUN = 99,
    E_MW_CEC_UI_CMD_STOP_FUN = 100,
    E_MW_CEC_UI_CMD_MUTE_FUN = 101,
    E_MW_CEC_UI_CMD_RESTORE_VOLUME_FUN = 102,
    E_MW_CEC_UI_CMD_TUNE_FUN = 103,
    E_MW_CEC_UI_CMD_SELECT_MEDIA_FUN = 104,
    E_MW_CEC_UI_CMD_SELECT_AV_INPUT_FUN = 105,
    E_MW_CEC_UI_CMD_SELECT_AUDIO_INPUT_FUN = 106,
    E_MW_CEC_UI_CMD_POWER_TOGGLE_FUN = 107,
    E_MW_CEC_UI_CMD_POWER_OFF_FUN = 108,
    E_MW_CEC_UI_CMD_POWER_ON_FUN = 109,
    E_MW_CEC_UI_CMD_F1_BLUE = 113,
    E_MW_CEC_UI_CMD_F2_RED = 114,
    E_MW_CEC_UI_CMD_F3_GREEN = 115,
    E_MW_CEC_UI_CMD_F4_YELLOW = 116,
    E_MW_CEC_UI_CMD_F5 = 117,
    E_MW_CEC_UI_CMD_DATA = 118,
    E_MW_CEC_UI_CMD_UNKNOW = 255, /**< No key of the list. */
} E_MW_CEC_UI_CMD;

/** A key that goes down or up. */
typedef struct KELU_CEC_CMD_INFO_S {
    E_MW_CEC_UI_CMD IrCommand; /**< The key. */
    bool KeyPressed;           /**< True when it goes down, false when it goes up. */
} KELU_CEC_CMD_INFO_S;

#ifdef __cplusplus
/** A device on one of the HDMI inputs. The service words the texts. */
struct KELU_TV_CEC_DEVICE_INFO_SORTED_S {
    unsigned int logAddr = 0;     /**< Logical address. */
    unsigned int hdmiDevPort = 0; /**< Number of the HDMI input, counted from 0. */
    std::string phyAddr;          /**< Physical address. */
    std::string deVName;          /**< Name that the device gives itself. */
    std::string hdmiListText;     /**< How to show the device in a list. */
};
#endif

#endif
