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
    E_MW_CEC_UI_CMD_SELECT = 0,                    /**< Select. */
    E_MW_CEC_UI_CMD_UP = 1,                        /**< Up. */
    E_MW_CEC_UI_CMD_DOWN = 2,                      /**< Down. */
    E_MW_CEC_UI_CMD_LEFT = 3,                      /**< Left. */
    E_MW_CEC_UI_CMD_RIGHT = 4,                     /**< Right. */
    E_MW_CEC_UI_CMD_RIGHT_UP = 5,                  /**< Right and up. */
    E_MW_CEC_UI_CMD_RIGHT_DOWN = 6,                /**< Right and down. */
    E_MW_CEC_UI_CMD_LEFT_UP = 7,                   /**< Left and up. */
    E_MW_CEC_UI_CMD_LEFT_DOWN = 8,                 /**< Left and down. */
    E_MW_CEC_UI_CMD_ROOTMENU = 9,                  /**< Root menu. */
    E_MW_CEC_UI_CMD_SETUP_MENU = 10,               /**< Set-up menu. */
    E_MW_CEC_UI_CMD_CONTENTS_MENU = 11,            /**< Contents menu. */
    E_MW_CEC_UI_CMD_FAVORITE_MENU = 12,            /**< Menu of favourites. */
    E_MW_CEC_UI_CMD_EXIT = 13,                     /**< Exit. */
    E_MW_CEC_UI_CMD_NUMBER_0 = 32,                 /**< Digit 0. */
    E_MW_CEC_UI_CMD_NUMBER_1 = 33,                 /**< Digit 1. */
    E_MW_CEC_UI_CMD_NUMBER_2 = 34,                 /**< Digit 2. */
    E_MW_CEC_UI_CMD_NUMBER_3 = 35,                 /**< Digit 3. */
    E_MW_CEC_UI_CMD_NUMBER_4 = 36,                 /**< Digit 4. */
    E_MW_CEC_UI_CMD_NUMBER_5 = 37,                 /**< Digit 5. */
    E_MW_CEC_UI_CMD_NUMBER_6 = 38,                 /**< Digit 6. */
    E_MW_CEC_UI_CMD_NUMBER_7 = 39,                 /**< Digit 7. */
    E_MW_CEC_UI_CMD_NUMBER_8 = 40,                 /**< Digit 8. */
    E_MW_CEC_UI_CMD_NUMBER_9 = 41,                 /**< Digit 9. */
    E_MW_CEC_UI_CMD_DOT = 42,                      /**< Dot. */
    E_MW_CEC_UI_CMD_ENTER = 43,                    /**< Enter. */
    E_MW_CEC_UI_CMD_CLEAR = 44,                    /**< Clear. */
    E_MW_CEC_UI_CMD_NEXT_FAVORITE = 47,            /**< Next favourite. */
    E_MW_CEC_UI_CMD_CHANNEL_UP = 48,               /**< Next channel. */
    E_MW_CEC_UI_CMD_CHANNEL_DOWN = 49,             /**< Previous channel in order. */
    E_MW_CEC_UI_CMD_PREVIOUS_CHANNEL = 50,         /**< Channel shown before. */
    E_MW_CEC_UI_CMD_SOUND_SELECT = 51,             /**< Choice of the sound. */
    E_MW_CEC_UI_CMD_INPUT_SELECT = 52,             /**< Choice of the input. */
    E_MW_CEC_UI_CMD_DISPLAY_INFO = 53,             /**< Information on the screen. */
    E_MW_CEC_UI_CMD_HELP = 54,                     /**< Help. */
    E_MW_CEC_UI_CMD_PAGE_UP = 55,                  /**< Page up. */
    E_MW_CEC_UI_CMD_PAGE_DOWN = 56,                /**< Page down. */
    E_MW_CEC_UI_CMD_POWER = 64,                    /**< Power. */
    E_MW_CEC_UI_CMD_VOLUME_UP = 65,                /**< Volume up. */
    E_MW_CEC_UI_CMD_VOLUME_DOWN = 66,              /**< Volume down. */
    E_MW_CEC_UI_CMD_MUTE = 67,                     /**< Mute. */
    E_MW_CEC_UI_CMD_PLAY = 68,                     /**< Play. */
    E_MW_CEC_UI_CMD_STOP = 69,                     /**< Stop. */
    E_MW_CEC_UI_CMD_PAUSE = 70,                    /**< Pause. */
    E_MW_CEC_UI_CMD_RECORD = 71,                   /**< Record. */
    E_MW_CEC_UI_CMD_REWIND = 72,                   /**< Rewind. */
    E_MW_CEC_UI_CMD_FAST_FORWARD = 73,             /**< Fast forward. */
    E_MW_CEC_UI_CMD_EJECT = 74,                    /**< Eject. */
    E_MW_CEC_UI_CMD_FORWARD = 75,                  /**< Forward. */
    E_MW_CEC_UI_CMD_BACKWARD = 76,                 /**< Backward. */
    E_MW_CEC_UI_CMD_STOP_RECORD = 77,              /**< Stop recording. */
    E_MW_CEC_UI_CMD_PAUSE_RECORD = 78,             /**< Pause recording. */
    E_MW_CEC_UI_CMD_ANGLE = 80,                    /**< Angle. */
    E_MW_CEC_UI_CMD_SUB_PICTURE = 81,              /**< Sub-picture. */
    E_MW_CEC_UI_CMD_VIDEO_ON_DEMAND = 82,          /**< Video on demand. */
    E_MW_CEC_UI_CMD_ELECTRONIC_PROGRAM_GUIDE = 83, /**< Electronic programme guide. */
    E_MW_CEC_UI_CMD_TIMER_PROGRAMMING = 84,        /**< Timer programming. */
    E_MW_CEC_UI_CMD_INITIAL_CONFIGURATION = 85,    /**< Initial configuration. */
    E_MW_CEC_UI_CMD_PLAY_FUN = 96,                 /**< Plays, whatever the state was. */
    E_MW_CEC_UI_CMD_PSUSE_PLAY_FUN = 97,           /**< Pauses, whatever the state was; spelled so. */
    E_MW_CEC_UI_CMD_RECORD_FUN = 98,               /**< Records, whatever the state was. */
    E_MW_CEC_UI_CMD_PAUSE_RECORD_FUN = 99,         /**< Pauses recording, whatever the state was. */
    E_MW_CEC_UI_CMD_STOP_FUN = 100,                /**< Stops, whatever the state was. */
    E_MW_CEC_UI_CMD_MUTE_FUN = 101,                /**< Mutes, whatever the state was. */
    E_MW_CEC_UI_CMD_RESTORE_VOLUME_FUN = 102,      /**< Lifts the mute, whatever the state was. */
    E_MW_CEC_UI_CMD_TUNE_FUN = 103,                /**< Tunes to a given channel. */
    E_MW_CEC_UI_CMD_SELECT_MEDIA_FUN = 104,        /**< Chooses a given medium. */
    E_MW_CEC_UI_CMD_SELECT_AV_INPUT_FUN = 105,     /**< Chooses a given AV input. */
    E_MW_CEC_UI_CMD_SELECT_AUDIO_INPUT_FUN = 106,  /**< Chooses a given audio input. */
    E_MW_CEC_UI_CMD_POWER_TOGGLE_FUN = 107,        /**< Power on or off, by turns. */
    E_MW_CEC_UI_CMD_POWER_OFF_FUN = 108,           /**< Power off, whatever the state was. */
    E_MW_CEC_UI_CMD_POWER_ON_FUN = 109,            /**< Power on, whatever the state was. */
    E_MW_CEC_UI_CMD_F1_BLUE = 113,                 /**< F1, blue. */
    E_MW_CEC_UI_CMD_F2_RED = 114,                  /**< F2, red. */
    E_MW_CEC_UI_CMD_F3_GREEN = 115,                /**< F3, green. */
    E_MW_CEC_UI_CMD_F4_YELLOW = 116,               /**< F4, yellow. */
    E_MW_CEC_UI_CMD_F5 = 117,                      /**< F5. */
    E_MW_CEC_UI_CMD_DATA = 118,                    /**< Data. */
    E_MW_CEC_UI_CMD_UNKNOW = 255,                  /**< No key of the list. */
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
    std::string phyAddr;          /**< Physical address as a text. */
    std::string deVName;          /**< Name (OSD name) of the device. */
    std::string hdmiListText;     /**< How to show the device in a list. */
};
#endif

#endif
