/**
 * @file
 * Records and value sets of the audio module.
 */
#ifndef KELUTV_AUDIO_TYPES_H
#define KELUTV_AUDIO_TYPES_H

#include <kelutv/export.h>

#include <stdbool.h>

/** The owner of a mute request; 13 to 15 have no name. */
typedef enum MuteType KELUTV_INT_ENUM {
    KELU_TV_SND_MUTE_IRCTRL = 0,            /**< The remote control; what the C functions send. */
    KELU_TV_SND_MUTE_POLICY = 1,            /**< A policy. */
    KELU_TV_SND_MUTE_SIGNAL = 2,            /**< The signal. */
    KELU_TV_SND_MUTE_SELSRC = 3,            /**< The selection of a source. */
    KELU_TV_SND_MUTE_SELPRG = 4,            /**< The selection of a programme. */
    KELU_TV_SND_MUTE_SCNPRG = 5,            /**< A scan for programmes. */
    KELU_TV_SND_MUTE_FOCUS = 6,             /**< The focus. */
    KELU_TV_SND_MUTE_CONFIG = 7,            /**< The configuration. */
    KELU_TV_SND_MUTE_HEADSET = 8,           /**< A headset. */
    KELU_TV_SND_MUTE_SPDIF = 9,             /**< The SPDIF output. */
    KELU_TV_SND_MUTE_ARC = 10,              /**< The audio return channel. */
    KELU_TV_SND_MUTE_OLEDCTRL = 11,         /**< The OLED control. */
    KELU_TV_SND_MUTE_EXTERNAL_SPEAKER = 12, /**< External speakers. */
    KELU_TV_SND_MUTE_MEDIA = 16,            /**< Media. */
    KELU_TV_SND_MUTE_SOCOUTPUT = 17,        /**< The output of the main chip (SoC). */
    KELU_TV_SND_MUTE_BUTT = 18,             /**< End marker, no value. */
} MuteType;

/** The default sound output device. */
typedef enum KELU_TV_SOUND_OUTPUT_MODE_E KELUTV_INT_ENUM {
    KELU_TV_SOUND_OUTPUT_MODE_DEFAULT = 0, /**< The service's default. */
    KELU_TV_SOUND_OUTPUT_MODE_SPDIF = 1,   /**< SPDIF. */
    KELU_TV_SOUND_OUTPUT_MODE_SPEAKER = 2, /**< Speakers. */
    KELU_TV_SOUND_OUTPUT_MODE_LINEOUT = 3, /**< Line output. */
    KELU_TV_SOUND_OUTPUT_MODE_BUTT = 4,    /**< End marker, no value. */
} KELU_TV_SOUND_OUTPUT_MODE_E;

/** Threshold of the automatic volume control. */
typedef enum KELU_TV_AVC_LEVEL KELUTV_INT_ENUM {
    KELU_TV_AVC_THRESHOLD_LEVEL1 = 0, /**< First threshold. */
    KELU_TV_AVC_THRESHOLD_LEVEL2 = 1, /**< Second threshold. */
    KELU_TV_AVC_THRESHOLD_BUTT = 2,   /**< End marker, no value. */
} KELU_TV_AVC_LEVEL;

/** Filter of one band of the parametric equalizer. */
typedef enum KELU_TV_PEQ_FILTER_TYPE_E KELUTV_INT_ENUM {
    KELU_TV_PEQ_FILTER_TYPE_HP = 0,   /**< High-pass. */
    KELU_TV_PEQ_FILTER_TYPE_LS = 1,   /**< Low shelf. */
    KELU_TV_PEQ_FILTER_TYPE_PK = 2,   /**< Peak. */
    KELU_TV_PEQ_FILTER_TYPE_HS = 3,   /**< High shelf. */
    KELU_TV_PEQ_FILTER_TYPE_LP = 4,   /**< Low-pass. */
    KELU_TV_PEQ_FILTER_TYPE_BUTT = 5, /**< End marker, no value. */
} KELU_TV_PEQ_FILTER_TYPE_E;

/** Output channels of the volume, mute, maximum and boot volume operations. */
typedef enum KELU_TV_AUDIO_CHANNEL_E KELUTV_INT_ENUM {
    KELU_TV_AUDIO_CHANNEL_SPEAKER = 0,   /**< Speakers. */
    KELU_TV_AUDIO_CHANNEL_HEADPHONE = 1, /**< Headphones. */
    KELU_TV_AUDIO_CHANNEL_BLUETOOTH = 2, /**< Bluetooth. */
    KELU_TV_AUDIO_CHANNEL_HDMI = 3,      /**< HDMI. */
    KELU_TV_AUDIO_CHANNEL_SPDIF = 4,     /**< SPDIF. */
    KELU_TV_AUDIO_CHANNEL_AVOUT = 5,     /**< AV output. */
    KELU_TV_AUDIO_CHANNEL_24G = 6,       /**< 2.4 GHz wireless. */
    KELU_TV_AUDIO_CHANNEL_HDMI_ARC = 7,  /**< Audio return channel of HDMI. */
    KELU_TV_AUDIO_CHANNEL_SOCOUTPUT = 8, /**< Output of the main chip (SoC). */
    KELU_TV_AUDIO_CHANNEL_BUTT = 9,      /**< End marker, no value. */
} KELU_TV_AUDIO_CHANNEL_E;

/** Speaker output. */
typedef enum KELU_TV_SPEAKER_E KELUTV_INT_ENUM {
    KELU_TV_SPEAKER_INTERNAL = 0, /**< The set's own. */
    KELU_TV_SPEAKER_EXTERNAL = 1, /**< External ones. */
    KELU_TV_SPEAKER_MIX = 2,      /**< Both. */
    KELU_TV_SPEAKER_BUTT = 3,     /**< End marker, no value. */
} KELU_TV_SPEAKER_E;

/** Stereo mode of the analogue sound carrier. */
typedef enum KELU_TV_SIF_OUTMODE_E KELUTV_INT_ENUM {
    KELU_TV_SIF_OUTMODE_MONO = 0,              /**< Mono. */
    KELU_TV_SIF_OUTMODE_STEREO = 1,            /**< Stereo. */
    KELU_TV_SIF_OUTMODE_DUAL_A = 2,            /**< Dual sound, A. */
    KELU_TV_SIF_OUTMODE_DUAL_B = 3,            /**< Dual sound, B. */
    KELU_TV_SIF_OUTMODE_DUAL_AB = 4,           /**< Dual sound, A and B. */
    KELU_TV_SIF_OUTMODE_BTSC_MONO = 5,         /**< BTSC: mono. */
    KELU_TV_SIF_OUTMODE_BTSC_STEREO = 6,       /**< BTSC: stereo. */
    KELU_TV_SIF_OUTMODE_BTSC_SAP = 7,          /**< BTSC: second audio programme. */
    KELU_TV_SIF_OUTMODE_NICAM_FORCED_MONO = 8, /**< NICAM: forced mono. */
    KELU_TV_SIF_OUTMODE_NICAM_MONO = 9,        /**< NICAM: mono. */
    KELU_TV_SIF_OUTMODE_NICAM_STEREO = 10,     /**< NICAM: stereo. */
    KELU_TV_SIF_OUTMODE_NICAM_DUAL_A = 11,     /**< NICAM: dual sound, A. */
    KELU_TV_SIF_OUTMODE_NICAM_DUAL_B = 12,     /**< NICAM: dual sound, B. */
    KELU_TV_SIF_OUTMODE_NICAM_DUAL_AB = 13,    /**< NICAM: dual sound, A and B. */
    KELU_TV_SIF_OUTMODE_BUTT = 14,             /**< End marker, no value. */
} KELU_TV_SIF_OUTMODE_E;

/** Sound mode. */
typedef enum KELU_TV_SNDMODE_E KELUTV_INT_ENUM {
    KELU_TV_SNDMODE_STANDARD = 0, /**< Standard. */
    KELU_TV_SNDMODE_MOVIE = 1,    /**< For films. */
    KELU_TV_SNDMODE_MUSIC = 2,    /**< For music. */
    KELU_TV_SNDMODE_SPORTS = 3,   /**< For sports. */
    KELU_TV_SNDMODE_NEWS = 4,     /**< For news. */
    KELU_TV_SNDMODE_4K = 5,       /**< For 4K. */
    KELU_TV_SNDMODE_DESK = 6,     /**< For a set on a desk. */
    KELU_TV_SNDMODE_HANG = 7,     /**< For a set on a wall. */
    KELU_TV_SNDMODE_USER = 8,     /**< The user's own settings. */
    KELU_TV_SNDMODE_BUTT = 9,     /**< End marker, no value. */
} KELU_TV_SNDMODE_E;

/** Where the set stands: the hang mode. */
typedef enum KELU_TV_SNDLOCATE_E KELUTV_INT_ENUM {
    KELU_TV_SNDLOCATE_DESKTOP = 0, /**< On a desk. */
    KELU_TV_SNDLOCATE_WALL = 1,    /**< On a wall. */
    KELU_TV_SNDLOCATE_BUTT = 2,    /**< End marker, no value. */
} KELU_TV_SNDLOCATE_E;

/** SPDIF output. */
typedef enum KELU_TV_SPDIF_E KELUTV_INT_ENUM {
    KELU_TV_SPDIF_OFF = 0,                /**< Off. */
    KELU_TV_SPDIF_PCM = 1,                /**< PCM. */
    KELU_TV_SPDIF_RAWDATA = 2,            /**< The raw data of the stream. */
    KELU_TV_ARC_PASSTHROUGH = 3,          /**< Passed through to the audio return channel. */
    KELU_TV_SPDIF_DEFINE_BY_PLATFORM = 4, /**< As the platform decides. */
    KELU_TV_SPDIF_BUTT = 5,               /**< End marker, no value. */
} KELU_TV_SPDIF_E;

/** Parameter of the plain sound effects. */
typedef enum KELU_TV_AUDIO_EFFECT_PARAM_E KELUTV_INT_ENUM {
    KELU_TV_AUDIO_EFFECT_PARAM_TREBLE_E = 0,        /**< Treble. */
    KELU_TV_AUDIO_EFFECT_PARAM_BASS_E = 1,          /**< Bass. */
    KELU_TV_AUDIO_EFFECT_PARAM_BALANCE_E = 2,       /**< Balance of left and right. */
    KELU_TV_AUDIO_EFFECT_PARAM_BAND0_LEVEL_E = 3,   /**< Level of equalizer band 0. */
    KELU_TV_AUDIO_EFFECT_PARAM_BAND1_LEVEL_E = 4,   /**< Level of equalizer band 1. */
    KELU_TV_AUDIO_EFFECT_PARAM_BAND2_LEVEL_E = 5,   /**< Level of equalizer band 2. */
    KELU_TV_AUDIO_EFFECT_PARAM_BAND3_LEVEL_E = 6,   /**< Level of equalizer band 3. */
    KELU_TV_AUDIO_EFFECT_PARAM_BAND4_LEVEL_E = 7,   /**< Level of equalizer band 4. */
    KELU_TV_AUDIO_EFFECT_PARAM_AVC_ONOFF_E = 8,     /**< Automatic volume control, on or off. */
    KELU_TV_AUDIO_EFFECT_PARAM_DRC_THRESHOLD_E = 9, /**< Threshold of the dynamic range control. */
    KELU_TV_AUDIO_EFFECT_PARAM_NR_THRESHOLD_E = 10, /**< Threshold of the noise reduction. */
    KELU_TV_AUDIO_EFFECT_PARAM_BUTT = 11,           /**< End marker, no value. */
} KELU_TV_AUDIO_EFFECT_PARAM_E;

/** Parameter of the advanced sound effects. */
typedef enum KELU_TV_AUDIO_ADVANCED_EFFECT_PARAM_E KELUTV_INT_ENUM {
    KELU_TV_AUDIO_ADVANCED_EFFECT_PARAM_SRS_ONOFF_E = 0,            /**< SRS, on or off. */
    KELU_TV_AUDIO_ADVANCED_EFFECT_PARAM_SRS_WOWHD_ONOFF_E = 1,      /**< SRS WOW HD, on or off. */
    KELU_TV_AUDIO_ADVANCED_EFFECT_PARAM_SRS_TSHD_ONOFF_E = 2,       /**< SRS TSHD, on or off. */
    KELU_TV_AUDIO_ADVANCED_EFFECT_PARAM_SRS_CC3D_ONOFF_E = 3,       /**< SRS CC3D, on or off. */
    KELU_TV_AUDIO_ADVANCED_EFFECT_PARAM_SRS_CSHP_ONOFF_E = 4,       /**< SRS CSHP, on or off. */
    KELU_TV_AUDIO_ADVANCED_EFFECT_PARAM_SRS_TBHD_ONOFF_E = 5,       /**< SRS TBHD, on or off. */
    KELU_TV_AUDIO_ADVANCED_EFFECT_PARAM_SRS_INPUT_GAIN_E = 6,       /**< SRS input gain. */
    KELU_TV_AUDIO_ADVANCED_EFFECT_PARAM_SRS_TRUEBASS_ONOFF_E = 7,   /**< SRS TrueBass, on or off. */
    KELU_TV_AUDIO_ADVANCED_EFFECT_PARAM_SRS_TRUEBASS_GAIN_E = 8,    /**< SRS TrueBass, gain. */
    KELU_TV_AUDIO_ADVANCED_EFFECT_PARAM_SRS_TRUEDIALOG_ONOFF_E = 9, /**< SRS TrueDialog, on or off. */
    KELU_TV_AUDIO_ADVANCED_EFFECT_PARAM_SRS_TRUEDIALOG_GAIN_E = 10, /**< SRS TrueDialog, gain. */
    KELU_TV_AUDIO_ADVANCED_EFFECT_PARAM_SRS_HANGMODE_E = 11,        /**< SRS hang mode. */
    KELU_TV_AUDIO_ADVANCED_EFFECT_PARAM_SWS_ONOFF_E = 12,           /**< SWS, on or off. */
    KELU_TV_AUDIO_ADVANCED_EFFECT_PARAM_SWS_BASS_ONOFF_E = 13,      /**< SWS bass, on or off. */
    KELU_TV_AUDIO_ADVANCED_EFFECT_PARAM_SWS_BASS_GAIN_E = 14,       /**< SWS bass, gain. */
    KELU_TV_AUDIO_ADVANCED_EFFECT_PARAM_SWS_TREBLE_ONOFF_E = 15,    /**< SWS treble, on or off. */
    KELU_TV_AUDIO_ADVANCED_EFFECT_PARAM_SWS_TREBLE_GAIN_E = 16,     /**< SWS treble, gain. */
    KELU_TV_AUDIO_ADVANCED_EFFECT_PARAM_SWS_SURROUND_ONOFF_E = 17,  /**< SWS surround, on or off. */
    KELU_TV_AUDIO_ADVANCED_EFFECT_PARAM_SWS_DIALOG_ONOFF_E = 18,    /**< SWS dialogue, on or off. */
    KELU_TV_AUDIO_ADVANCED_EFFECT_PARAM_SWS_DIALOG_GAIN_E = 19,     /**< SWS dialogue, gain. */
    KELU_TV_AUDIO_ADVANCED_EFFECT_PARAM_SWS_LOUDNESS_ONOFF_E = 20,  /**< SWS loudness, on or off. */
    KELU_TV_AUDIO_ADVANCED_EFFECT_PARAM_SWS_LOUDNESS_GAIN_E = 21,   /**< SWS loudness, gain. */
    KELU_TV_AUDIO_ADVANCED_EFFECT_PARAM_BASE_HANGMODE_E = 22,       /**< Base hang mode. */
    KELU_TV_AUDIO_ADVANCED_EFFECT_PARAM_BUTT = 23,                  /**< End marker, no value. */
} KELU_TV_AUDIO_ADVANCED_EFFECT_PARAM_E;

/** Dolby mode. */
typedef enum KELU_TV_DOLBY_E KELUTV_INT_ENUM {
    KELU_TV_DOLBY_LINE = 0, /**< Line mode. */
    KELU_TV_DOLBY_RF = 1,   /**< RF mode. */
    KELU_TV_DOLBY_BUTT = 2, /**< End marker, no value. */
} KELU_TV_DOLBY_E;

/** Format of the audio stream that plays. */
typedef enum KELU_TV_AUDIO_STREAM_TYPE_E KELUTV_INT_ENUM {
    KELU_TV_AUDIO_STREAM_TYPE_UNKOWN = 0,                /**< Not known; spelled so. */
    KELU_TV_AUDIO_STREAM_TYPE_MPEG1 = 1,                 /**< MPEG-1 audio. */
    KELU_TV_AUDIO_STREAM_TYPE_MPEG = 2,                  /**< MPEG audio. */
    KELU_TV_AUDIO_STREAM_TYPE_MP3 = 3,                   /**< MP3. */
    KELU_TV_AUDIO_STREAM_TYPE_AAC = 4,                   /**< AAC. */
    KELU_TV_AUDIO_STREAM_TYPE_AAC_PLUS = 5,              /**< AAC+. */
    KELU_TV_AUDIO_STREAM_TYPE_AC3 = 6,                   /**< AC-3, Dolby Digital. */
    KELU_TV_AUDIO_STREAM_TYPE_AC3_PLUS = 7,              /**< Enhanced AC-3, Dolby Digital Plus. */
    KELU_TV_AUDIO_STREAM_TYPE_DTS = 8,                   /**< DTS. */
    KELU_TV_AUDIO_STREAM_TYPE_LPCM_BLURAY = 9,           /**< Linear PCM of a Blu-ray disc. */
    KELU_TV_AUDIO_STREAM_TYPE_PCM = 10,                  /**< PCM. */
    KELU_TV_AUDIO_STREAM_TYPE_WMA_STD = 11,              /**< Windows Media Audio, standard. */
    KELU_TV_AUDIO_STREAM_TYPE_WMA_PRO = 12,              /**< Windows Media Audio, professional. */
    KELU_TV_AUDIO_STREAM_TYPE_DRA = 13,                  /**< DRA. */
    KELU_TV_AUDIO_STREAM_TYPE_COOK = 14,                 /**< Cook. */
    KELU_TV_AUDIO_STREAM_TYPE_AVS = 15,                  /**< AVS. */
    KELU_TV_AUDIO_STREAM_TYPE_WAVE = 16,                 /**< Wave. */
    KELU_TV_AUDIO_STREAM_TYPE_INVALID = 17,              /**< No valid stream. */
    KELU_TV_AUDIO_STREAM_TYPE_DRA10 = 18,                /**< DRA 1.0. */
    KELU_TV_AUDIO_STREAM_TYPE_DRA11 = 19,                /**< DRA 1.1. */
    KELU_TV_AUDIO_STREAM_TYPE_DRA20 = 20,                /**< DRA 2.0. */
    KELU_TV_AUDIO_STREAM_TYPE_DRA21 = 21,                /**< DRA 2.1. */
    KELU_TV_AUDIO_STREAM_TYPE_DRA30 = 22,                /**< DRA 3.0. */
    KELU_TV_AUDIO_STREAM_TYPE_DRA31 = 23,                /**< DRA 3.1. */
    KELU_TV_AUDIO_STREAM_TYPE_DRA40 = 24,                /**< DRA 4.0. */
    KELU_TV_AUDIO_STREAM_TYPE_DRA41 = 25,                /**< DRA 4.1. */
    KELU_TV_AUDIO_STREAM_TYPE_DRA50 = 26,                /**< DRA 5.0. */
    KELU_TV_AUDIO_STREAM_TYPE_DRA51 = 27,                /**< DRA 5.1. */
    KELU_TV_AUDIO_STREAM_TYPE_AC4 = 28,                  /**< AC-4. */
    KELU_TV_AUDIO_STREAM_TYPE_TRUEHD = 29,               /**< Dolby TrueHD. */
    KELU_TV_AUDIO_STREAM_TYPE_NOTSUPPORTED = 30,         /**< A format that is not supported. */
    KELU_TV_AUDIO_STREAM_TYPE_DTS_EXPRESS = 31,          /**< DTS Express. */
    KELU_TV_AUDIO_STREAM_TYPE_DTS_HD_MASTER_AUDIO = 32,  /**< DTS-HD Master Audio. */
    KELU_TV_AUDIO_STREAM_TYPE_DTS_DIGITAL_SURROUND = 33, /**< DTS Digital Surround. */
    KELU_TV_AUDIO_STREAM_TYPE_BUTT = 34,                 /**< End marker, no value. */
} KELU_TV_AUDIO_STREAM_TYPE_E;

/** Sound demonstration. */
typedef enum KELU_TV_AUDIO_DEMO_MODE_E KELUTV_INT_ENUM {
    KELU_TV_AUDIO_DEMO_DSP_CORRECT = 0,       /**< Correction by the DSP. */
    KELU_TV_AUDIO_DEMO_ACCURATE_LOCATION = 1, /**< Accurate location. */
    KELU_TV_AUDIO_DEMO_BUTT = 2,              /**< End marker, no value. */
} KELU_TV_AUDIO_DEMO_MODE_E;

/** The sound effect at work. */
typedef enum KELU_TV_AUDIO_EFFECT_TYPE_E KELUTV_INT_ENUM {
    KELU_TV_AUDIO_EFFECT_UNKOWN = 0,    /**< Not known; spelled so. */
    KELU_TV_AUDIO_EFFECT_ATMOS = 1,     /**< Dolby Atmos. */
    KELU_TV_AUDIO_EFFECT_TYPE_BUTT = 2, /**< End marker, no value. */
} KELU_TV_AUDIO_EFFECT_TYPE_E;

/** Function asked for by `getAudioFunctionEnable`. */
typedef enum KELU_TV_AUDIO_FUNC_E KELUTV_INT_ENUM {
    KELU_TV_AUDIO_FUNC_SUBWOOFER = 0, /**< A subwoofer. */
    KELU_TV_AUDIO_FUNC_BUTT = 1,      /**< End marker, no value. */
} KELU_TV_AUDIO_FUNC_E;

/** Kind of source that has a prescale gain of its own. */
typedef enum KELU_TV_PRESCALE_SOURCE_E KELUTV_INT_ENUM {
    KELU_TV_PRESCALE_SOURCE_ATV = 0,   /**< Analogue television. */
    KELU_TV_PRESCALE_SOURCE_DTV = 1,   /**< Digital television. */
    KELU_TV_PRESCALE_SOURCE_CVBS = 2,  /**< Composite video. */
    KELU_TV_PRESCALE_SOURCE_VGA = 3,   /**< VGA. */
    KELU_TV_PRESCALE_SOURCE_YPBPR = 4, /**< Component video. */
    KELU_TV_PRESCALE_SOURCE_HDMI = 5,  /**< HDMI. */
    KELU_TV_PRESCALE_SOURCE_MEDIA = 6, /**< Media. */
    KELU_TV_PRESCALE_SOURCE_BUTT = 7,  /**< End marker, no value. */
} KELU_TV_PRESCALE_SOURCE_E;

/** Output of the output-mode and output-list functions. */
typedef enum KELU_TV_NEW_AUDIO_OUTPUT_E KELUTV_INT_ENUM {
    KELU_TV_NEW_AUDIO_OUTPUT_INTERNAL = 0,  /**< The set's own output. */
    KELU_TV_NEW_AUDIO_OUTPUT_HDMI_ARC = 1,  /**< Audio return channel of HDMI. */
    KELU_TV_NEW_AUDIO_OUTPUT_BLUETOOTH = 2, /**< Bluetooth. */
    KELU_TV_NEW_AUDIO_OUTPUT_USB = 3,       /**< USB. */
    KELU_TV_NEW_AUDIO_OUTPUT_HEADPHONE = 4, /**< Headphones. */
    KELU_TV_NEW_AUDIO_OUTPUT_BUTT = 5,      /**< End marker, no value. */
} KELU_TV_NEW_AUDIO_OUTPUT_E;

/** Equalizer mode. */
typedef enum KELU_TV_EQUALIZER_MODE KELUTV_INT_ENUM {
    KELU_TV_EQUALIZER_BASIC = 0,        /**< The basic one. */
    KELU_TV_EQUALIZER_PROFESSIONAL = 1, /**< The professional one. */
    KELU_TV_EQUALIZER_BUTT = 2,         /**< End marker, no value. */
} KELU_TV_EQUALIZER_MODE;

/** A prescale gain. */
typedef struct PreScaleInfo {
    int integer; /**< Integer part. */
    int decimal; /**< Fractional part. */
} PreScaleInfo;

/** Noise reduction. */
typedef struct NRAttrData {
    bool onOff; /**< Whether it is on. */
    int value;  /**< Its value. */
} NRAttrData;

/** Dynamic range control. */
typedef struct KELU_TV_SND_DRC_ATTR_S {
    int intthrhd; /**< Threshold. */
    int intLimit; /**< Limit. */
} KELU_TV_SND_DRC_ATTR_S;

/** One band of the parametric equalizer. */
typedef struct KELU_TV_SND_PEQ_BAND_ATTR_S {
    KELU_TV_PEQ_FILTER_TYPE_E enFltType; /**< Filter. */
    int intfreq;                         /**< Frequency. */
    int intQ;                            /**< Quality factor. */
    int intGain;                         /**< Gain. */
} KELU_TV_SND_PEQ_BAND_ATTR_S;

/** The parametric equalizer. */
typedef struct KELU_TV_SND_PEQ_ATTR_S {
    int intBandNum;                            /**< Bands in use, 1 to 10. */
    KELU_TV_SND_PEQ_BAND_ATTR_S stEqParam[10]; /**< All bands, in use or not. */
} KELU_TV_SND_PEQ_ATTR_S;

/** The graphic equalizer of the subwoofer. */
typedef struct KELU_TV_SUBWOOFER_GEQ {
    int geqBand0; /**< Band 0, in the service's unit. */
    int geqBand1; /**< Band 1, in the service's unit. */
    int geqBand2; /**< Band 2, in the service's unit. */
    int geqBand3; /**< Band 3, in the service's unit. */
    int geqBand4; /**< Band 4, in the service's unit. */
} KELU_TV_SUBWOOFER_GEQ;

/** The prescale gain of one kind of source. */
typedef struct KELU_TV_SND_PRECIGAIN_ATTR_S {
    int s32IntegerGain; /**< Integer part. */
    int s32DecimalGain; /**< Fractional part. */
} KELU_TV_SND_PRECIGAIN_ATTR_S;

#endif
