/**
 * @file
 * Values of the configuration.
 */
#ifndef KELUTV_CONFIG_TYPES_H
#define KELUTV_CONFIG_TYPES_H

#include <kelutv/export.h>

/** Format of the sound on the audio return channel. */
typedef enum KELU_MW_SND_ARC_MODE_E KELUTV_INT_ENUM {
    KELU_MW_SND_ARC_AUDIO_MODE_LPCM = 0,    /**< Linear PCM. */
    KELU_MW_SND_ARC_AUDIO_MODE_RAW = 1,     /**< The raw stream. */
    KELU_MW_SND_ARC_AUDIO_MODE_HBR2LBR = 2, /**< High bit rate to low bit rate. */
    KELU_MW_SND_ARC_AUDIO_MODE_AUTO = 3,    /**< Automatic. */
    KELU_MW_SND_ARC_AUDIO_MODE_BUTT = 4,    /**< End marker, no value. */
} KELU_MW_SND_ARC_MODE_E;

#endif
