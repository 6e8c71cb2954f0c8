/**
 * @file
 * Modules of the event manager.
 */
#ifndef KELUTV_EVENTS_H
#define KELUTV_EVENTS_H

#include <kelutv/export.h>

/**
 * The modules a process can subscribe to; an event's module is the upper half of its identifier.
 *
 * The library subscribes to `ATVPLAYER`, `FACTOY`, `3DSIGNAL`, `VOLUME`, `COMMON`, `CEC` and `SRCDETECT`, in this
 * order, when it connects.
 */
typedef enum KELU_EM_MODE_E KELUTV_INT_ENUM {
    KELU_EM_MODE_ATVPLAYER = 0x10000,        /**< The player of analogue television. */
    KELU_EM_MODE_ATVSCAN = 0x20000,          /**< The scan of analogue television. */
    KELU_EM_MODE_FACTOY = 0x30000,           /**< Factory; spelled so. */
    KELU_EM_MODE_SRCDETECT = 0x40000,        /**< The detection of sources. */
    KELU_EM_MODE_3DSIGNAL = 0x50000,         /**< The 3D signal. */
    KELU_EM_MODE_VOLUME = 0x60000,           /**< The volume. */
    KELU_EM_MODE_EXTPORTDETECT = 0x70000,    /**< The detection of external ports. */
    KELU_EM_MODE_COMMON = 0x80000,           /**< Common events. */
    KELU_EM_MODE_CI = 0x90000,               /**< CI, the common interface. */
    KELU_EM_MODE_MM = 0xA0000,               /**< MM, multimedia. */
    KELU_EM_MODE_STBM = 0xB0000,             /**< STBM. */
    KELU_EM_MODE_TV_INTERNAL = 0xC0000,      /**< Internal to the television. */
    KELU_EM_MODE_PCMP = 0xD0000,             /**< PCMP. */
    KELU_EM_MODE_PCPIP = 0xE0000,            /**< PCPIP. */
    KELU_EM_MODE_SEARCH = 0xF0000,           /**< Search. */
    KELU_EM_MODE_CHILDLOCK = 0x100000,       /**< The child lock. */
    KELU_EM_MODE_EPGSTATION = 0x110000,      /**< Stations of the programme guide (EPG). */
    KELU_EM_MODE_TTX = 0x120000,             /**< Teletext. */
    KELU_EM_MODE_OAD = 0x130000,             /**< OAD, download over the air. */
    KELU_EM_MODE_RESTORE = 0x140000,         /**< Restoring. */
    KELU_EM_MODE_TIMERCONTROL = 0x150000,    /**< The control of timers. */
    KELU_EM_MODE_RECORD = 0x160000,          /**< Recording. */
    KELU_EM_MODE_STORAGE = 0x170000,         /**< Storage. */
    KELU_EM_MODE_AIT = 0x180000,             /**< AIT, the application information table. */
    KELU_EM_MODE_GRAPHICTEXT = 0x190000,     /**< Graphic text. */
    KELU_EM_MODE_CEC = 0x1A0000,             /**< HDMI-CEC. */
    KELU_EM_MODE_GRAPHICTEXT_RSP = 0x200000, /**< Responses of graphic text. */
    KELU_EM_MODE_BUTT = 0x200001,            /**< End marker, no module. */
} KELU_EM_MODE_E;

#endif
