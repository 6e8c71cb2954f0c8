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
    KELU_EM_MODE_ATVPLAYER = 0x10000,
    KELU_EM_MODE_ATVSCAN = 0x20000,
    KELU_EM_MODE_FACTOY = 0x30000, /**< Factory; spelled so. */
    KELU_EM_MODE_SRCDETECT = 0x40000,
    KELU_EM_MODE_3DSIGNAL = 0x50000,
    KELU_EM_MODE_VOLUME = 0x60000,
    KELU_EM_MODE_EXTPORTDETECT = 0x70000,
    KELU_EM_MODE_COMMON = 0x80000,
    KELU_EM_MODE_CI = 0x90000,
    KELU_EM_MODE_MM = 0xA0000,
    KELU_EM_MODE_STBM = 0xB0000,
    KELU_EM_MODE_TV_INTERNAL = 0xC0000,
    KELU_EM_MODE_PCMP = 0xD0000,
    KELU_EM_MODE_PCPIP = 0xE0000,
    KELU_EM_MODE_SEARCH = 0xF0000,
    KELU_EM_MODE_CHILDLOCK = 0x100000,
    KELU_EM_MODE_EPGSTATION = 0x110000,
    KELU_EM_MODE_TTX = 0x120000,
    KELU_EM_MODE_OAD = 0x130000,
    KELU_EM_MODE_RESTORE = 0x140000,
    KELU_EM_MODE_TIMERCONTROL = 0x150000,
    KELU_EM_MODE_RECORD = 0x160000,
    KELU_EM_MODE_STORAGE = 0x170000,
    KELU_EM_MODE_AIT = 0x180000,
    KELU_EM_MODE_GRAPHICTEXT = 0x190000,
    KELU_EM_MODE_CEC = 0x1A0000,
    KELU_EM_MODE_GRAPHICTEXT_RSP = 0x200000,
    KELU_EM_MODE_BUTT = 0x200001, /**< End marker, no module. */
} KELU_EM_MODE_E;

#endif
