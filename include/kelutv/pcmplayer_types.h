/**
 * @file
 * Values of the PCM player.
 */
#ifndef KELUTV_PCMPLAYER_TYPES_H
#define KELUTV_PCMPLAYER_TYPES_H

#include <kelutv/export.h>

/** What the PCM player is doing. */
typedef enum KELU_TV_PCMPLAYER_STATUS_E KELUTV_INT_ENUM {
    KELU_TV_PCMPLAYER_IDLE = 0,    /**< Nothing plays. */
    KELU_TV_PCMPLAYER_PLAYING = 1, /**< A file plays. */
    KELU_TV_PCMPLAYER_BUTT = 2,    /**< End marker, no value. */
} KELU_TV_PCMPLAYER_STATUS_E;

#endif
