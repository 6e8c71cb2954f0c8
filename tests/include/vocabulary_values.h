#ifndef KELUTV_TESTS_VOCABULARY_VALUES_H
#define KELUTV_TESTS_VOCABULARY_VALUES_H

// Values and layouts that C and C++ must see alike.

#include <kelutv/kelutv.h>

#include <assert.h>
#include <stddef.h>

// The ends of every command block.
static_assert(CMD_PICTURE_SETPICTUREMODE == 0x1002, "picture");
static_assert(CMD_PICTURE_GETDREAMPANEL_BYPICMODE == 0x1094, "picture");
static_assert(CMD_AUDIO_SETSOUNDMODE == 0x2002, "audio");
static_assert(CMD_AUDIO_SETSUBWOOFERGEQ == 0x2070, "audio");
static_assert(CMD_CHANNEL_GETMAXTUNERFREQ == 0x6000, "channel");
static_assert(CMD_CHANNEL_SET_MOVE == 0x6107, "channel");
static_assert(CMD_SOURCE_SELECTSOURCE == 0x7000, "source");
static_assert(CMD_SOURCE_GETWINDOWRECT == 0x701C, "source");
static_assert(CMD_SYSTEM_DTV_CHANGE_CHANNEL == 0x8100, "system");
static_assert(CMD_SYSTEM_DTV_CMD_TO_TV == 0x8101, "system");
static_assert(CMD_TEST_GETTVSERVERSTARTTIME == 0xC001, "test");
static_assert(CMD_TEST_COMMON_GET_ITEM_VALUE == 0xC00F, "test");
static_assert(CMD_TV_TTX_INIT == 0xD001, "TV");
static_assert(CMD_TV_TTX_UNREGISTCALLBACK == 0xD006, "TV");
static_assert(CMD_PCMPLAYER_START_PLAY == 0xE001, "PCM player");
static_assert(CMD_PCMPLAYER_SET_GAIN == 0xE004, "PCM player");
static_assert(CMD_EXTRA_INVOKE == 0xF000, "extra");
static_assert(CMD_EXTRA_CUSTOMER == 0xF100, "extra");
static_assert(CMD_CONFIG_GET_CECSWITCHMODE == 0x10001, "configuration");
static_assert(CMD_CONFIG_SET_ARCMODE == 0x1000C, "configuration");

// Values on both sides of a gap.
static_assert(CMD_AUDIO_GET_AVC_RELEASETIME == 0x2069, "before the audio gap");
static_assert(CMD_CHANNEL_GETMTSMODELIST == 0x602B, "before the channel gap");
static_assert(CMD_CHANNEL_SETNEXTSOUNDMODE == 0x6103, "after the channel gap");
static_assert(CMD_SYSTEM_GET_SOUNDBAR_MODE == 0x8019, "before the first system gap");
static_assert(CMD_SYSTEM_PRESUSPEND == 0x802A, "after the first system gap");
static_assert(CMD_SYSTEM_SET_TIMER_WAKEUP_PARAM == 0x8054, "before the second system gap");
static_assert(CMD_EXTRA_GETGMACCLKENABLE == 0xF00D, "after the first extra gap");
static_assert(CMD_EXTRA_GETEDIDTYPE == 0xF027, "inside the extra block");
static_assert(CMD_EXTRA_GETREALCLRSYS == 0xF032, "inside the extra block");
static_assert(CMD_EXTRA_SETENTERIRWBADJ == 0xF04B, "inside the extra block");
static_assert(CMD_EXTRA_SETLOGLEVEL == 0xF052, "inside the extra block");
static_assert(CMD_EXTRA_ATV_DEBUG_NOTIFY == 0xF055, "before the second extra gap");
static_assert(CMD_PICTURE_GETSCOPE == 0x104A, "before the picture gap");
static_assert(CMD_PICTURE_SETLDAREANUM == 0x104D, "after the picture gap");
static_assert(CMD_FACTORY_GETPOWERMUSICVOL == 0x9045, "the last name before the first factory gap");
static_assert(CMD_FACTORY_GETPANELINTFOUTENABLE == 0x904E, "the first name after the first factory gap");
static_assert(CMD_FACTORY_SETMACADDRESS == 0x905D, "before a factory gap");
static_assert(CMD_FACTORY_UPGRADESYSTEM == 0x905F, "after a factory gap");
static_assert(CMD_FACTORY_UPATANLATOSURCEO == 0x90D0, "before the last factory gap");
static_assert(CMD_FACTORY_SET_PQ_GAMMA_VALUE == 0x90E0, "after the last factory gap");

// Names whose prefix or spelling stands alone.
static_assert(CMD_FACOTRY_UPGRADENTPQIC == 0x90AF, "first of its spelling");
static_assert(CMD_FACOTRY_COMMON_COPY_SOURCE_COLOR_LUT == 0x90CF, "last of its spelling");
static_assert(CMD_CEC_MODIFY_MUTE == 0x205E, "in the audio block");
static_assert(CMDID_AUDIO_GET_OUTPUT_LIST == 0x2058, "a command");
static_assert(CMDID_AUDIO_GET_OUTPUT_ENABLE == 0x2059, "a command");
static_assert(CIDMD_AUDIO_SET_OUTPUT_ENABLE == 0x2015, "an item");
static_assert(CIDMD_AUDIO_SET_OUTPUT_DISENABLE == 0x2016, "an item");
static_assert(CMD_AUDIO_GETDRCATTR == 0x205C && CMD_AUDIO_SETDRCATTR == 0x205D, "get below set");
static_assert(CMD_AUDIO_GETDEFAULTSNDOUTPUTDEV == 0x2060 && CMD_AUDIO_SETDEFAULTSNDOUTPUTDEV == 0x2061,
              "get below set");

// Items: bases and one row of each block that has any.
static_assert(CMDID_PICTURE_MODULE_START == 0x1000, "base");
static_assert(CMDID_AUDIO_MODULE_START == 0x2000, "base");
static_assert(CMDID_VIDEO_MODULE_START == 0x3000, "base");
static_assert(CMDID_PCSETTING_MODULE_START == 0x4000, "base");
static_assert(CMDID_HDMICEC_MODULE_START == 0x5000, "base");
static_assert(CMDID_ATV_CHANNEL_MODULE_START == 0x6000, "base");
static_assert(CMDID_SOURCE_MODULE_START == 0x7000, "base");
static_assert(CMDID_SYSTEM_MODULE_START == 0x8000, "base");
static_assert(CMDID_FACTORY_MODULE_START == 0x9000, "base");
static_assert(CMDID_SYS_MODULE_START == 0xA000, "base");
static_assert(CMDID_TEST_MODULE_START == 0xC000, "base");
static_assert(CMDID_EXTRA_MODULE_START == 0xF000, "base");
static_assert(CMDID_PICTURE_COPY_CURPICDATA_TO_USER == 4104, "picture item");
static_assert(CMDID_AUDIO_SET_MAX_VOLUME == 8203, "audio item");
static_assert(CMDID_AUDIO_GET_INTERNAL_DEF_OUTPUT_LIST == 8222, "audio item");
static_assert(CMDID_FACTORY_SET_AVC_GAIN == 0x9048, "an item where commands have their first factory gap");
static_assert(CMDID_FACTORY_SET_LVDS_SWAP_PORT == 0x904A, "an item where commands have their first factory gap");
static_assert(CMDID_SYSTEM_REBOOT == 33026, "system item");

static_assert(KELU_EM_MODE_ATVPLAYER == 0x10000, "event module");
static_assert(KELU_EM_MODE_FACTOY == 0x30000, "event module");
static_assert(KELU_EM_MODE_CEC == 0x1A0000, "event module");
static_assert(KELU_EM_MODE_GRAPHICTEXT_RSP == 0x200000, "event module after the gap");
static_assert(KELU_EM_MODE_BUTT == 0x200001, "end of the event modules");

static_assert(KELU_TV_SND_MUTE_EXTERNAL_SPEAKER == 12, "before the mute gap");
static_assert(KELU_TV_SND_MUTE_MEDIA == 16, "after the mute gap");
static_assert(KELU_TV_SND_MUTE_BUTT == 18, "end of the mute owners");
static_assert(KELU_TV_AUDIO_CHANNEL_BUTT == 9, "channels");
static_assert(KELU_TV_SIF_OUTMODE_BUTT == 14, "stereo modes");
static_assert(KELU_TV_SNDMODE_BUTT == 9, "sound modes");
static_assert(KELU_TV_ARC_PASSTHROUGH == 3, "SPDIF outputs");
static_assert(KELU_TV_AUDIO_EFFECT_PARAM_BUTT == 11, "effects");
static_assert(KELU_TV_AUDIO_ADVANCED_EFFECT_PARAM_BUTT == 23, "advanced effects");
static_assert(KELU_TV_AUDIO_STREAM_TYPE_BUTT == 34, "stream types");
static_assert(KELU_TV_PCMPLAYER_BUTT == 2, "player states");

static_assert(KELU_TV_SRC_HDMI1 == 9 && KELU_TV_SRC_HDMI_MAX == KELU_TV_SRC_HDMI4, "sources");
static_assert(KELU_TV_SRC_MEDIA == KELU_TV_SRC_MEDIA1 && KELU_TV_SRC_BUTT == 18, "sources");
static_assert((int)KELU_MW_SRC_HDMI1 == (int)KELU_TV_SRC_HDMI1, "sources on the wire");
static_assert((int)KELU_MW_SRC_BUTT == (int)KELU_TV_SRC_BUTT, "sources on the wire");

static_assert(CMDID_VIDEO_SET_WORKMODE == 12289 && CMDID_VIDEO_GET_WINDOW_MUTE_STATUS == 12297, "video items");
static_assert(KELU_TV_3DMODE_AUTO == 6 && KELU_TV_3DMODE_BUTT == 7, "3D modes");
static_assert(KELU_TV_WINDOW_MAIN == 0 && KELU_TV_WINDOW_BUTT == 3, "windows");
static_assert(KELU_TV_TVD_WORK_MODE_CHAN_SCAN == 1 && KELU_TV_TVD_WORK_MODE_BUTT == 2, "work modes");

static_assert(sizeof(ATV_CMD_ID_E) == 4 && sizeof(KELU_TV_CMDID_E) == 4, "enumerations are one word");
static_assert(sizeof(MuteType) == 4 && sizeof(KELU_TV_PCMPLAYER_STATUS_E) == 4, "enumerations are one word");
static_assert(sizeof(PreScaleInfo) == 8 && offsetof(PreScaleInfo, decimal) == 4, "layout");
static_assert(sizeof(NRAttrData) == 8 && offsetof(NRAttrData, value) == 4, "layout");
static_assert(sizeof(KELU_TV_SND_DRC_ATTR_S) == 8 && offsetof(KELU_TV_SND_DRC_ATTR_S, intLimit) == 4, "layout");
static_assert(sizeof(KELU_TV_SND_PEQ_BAND_ATTR_S) == 16 && offsetof(KELU_TV_SND_PEQ_BAND_ATTR_S, intGain) == 12,
              "layout");
static_assert(sizeof(KELU_TV_SND_PEQ_ATTR_S) == 164 && offsetof(KELU_TV_SND_PEQ_ATTR_S, stEqParam) == 4, "layout");
static_assert(sizeof(KELU_TV_SUBWOOFER_GEQ) == 20 && offsetof(KELU_TV_SUBWOOFER_GEQ, geqBand4) == 16, "layout");
static_assert(sizeof(KELU_TV_SND_PRECIGAIN_ATTR_S) == 8, "layout");

// The picture.
static_assert(KELU_TV_PIC_MODE_DOBLY_VISION_MOVIE_DARK == 7, "so spelled");
static_assert(KELU_TV_PIC_MODE_DOBLY_VISION_MOVIE_BRIGHT == 8, "so spelled");
static_assert(KELU_TV_PIC_MODE_AI == 16, "last mode of applications");
static_assert(KELU_TV_PIC_MODE_NEW_CARE == 11, "last index for standard range");
static_assert(KELU_TV_PIC_MODE_HDR_AI == 4, "last index for HDR10 and HLG");
static_assert(KELU_TV_PIC_MODE_HDR_PLUS_AI == 4, "last index for HDR10+");
static_assert(KELU_TV_PIC_MODE_DOLBY_STANDARD == 3, "last index for Dolby HDR");
static_assert(KELU_TV_PHOTO == 5, "a stream type without the common prefix");
static_assert(KELU_TV_HDR_TYPE_BUTT == 7, "stream types");
static_assert(KELU_TV_COLORTEMP_BUTT == 4, "colour temperatures");
static_assert(KELU_TV_ASPECT_BUTT == 13, "aspects");
static_assert(KELU_TV_IMAGE_RGB_TYPE_BUTT == 3, "colour ranges");
static_assert(KELU_TV_CLRSYS_BUTT == 9, "colour systems");
static_assert(KELU_TV_LEVEL_BUTT == 5, "levels");
static_assert(KELU_TV_LDLIGHTPOS_BUTT == 2, "places of the lights");
static_assert(KELU_TV_PANELLEVEL_BUTT == 5, "dream panel");
static_assert(KELU_TV_LDM_DEMO_BUTT == 12, "demonstrations of local dimming");
static_assert(KELU_TV_CMD_SUPPORT_SWTICH_DECONTOUR == 3, "so spelled");
static_assert(KELU_TV_CMD_SUPPORT_SWITCH_BUTT == 9, "settings");
static_assert(KELU_TV_SUPPORT_SWITCH_MODE_BUTT == 5, "positions of a setting");
static_assert(KELU_TV_PICTURE_FUNC_BUTT == 2, "functions");
static_assert(KELU_TV_IMAGE_BACKLIGHT == 5, "values of the image");
static_assert(KELU_MW_PICMODE_SOFTNESS == 9, "the service's modes for standard range");
static_assert(KELU_MW_PICMODE_BUTT == 12, "the service's modes for standard range");
static_assert(KELU_MW_PICMODE_HDR_BUTT == 5, "the service's modes for HDR10 and HLG");
static_assert(KELU_MW_PICMODE_HDR_PLUS_BUTT == 5, "the service's modes for HDR10+");
static_assert(KELU_MW_PICMODE_DOLBY_BUTT == 4, "the service's modes for Dolby HDR");
static_assert(KELU_MW_PICMODE_PHOTO_BUTT == 2, "the service's modes for photographs");
static_assert(KELU_MW_PCMODE_BUTT == 3, "computer pictures");
static_assert(KELU_MW_HDR_MODE_BUTT == 4, "dynamic ranges");
static_assert(sizeof(ColorTempData) == 24, "six ints");
static_assert(sizeof(ScopeInfo) == 16, "four ints");
static_assert(sizeof(ColorControlInfoData) == 28, "seven ints");
static_assert(sizeof(KeluRect) == 16 && offsetof(KeluRect, height) == 12, "layout");
static_assert(sizeof(TimingScreen) == 32 && offsetof(TimingScreen, interlace) == 12, "layout");
static_assert(offsetof(TimingScreen, formatHDMI) == 16 && offsetof(TimingScreen, MHL) == 28, "layout");
static_assert(sizeof(KELU_TV_COLOR_S) == 12 && offsetof(KELU_TV_COLOR_S, blue) == 8, "layout");
static_assert(sizeof(KELU_TV_CROP_RECT_S) == 16 && offsetof(KELU_TV_CROP_RECT_S, rightOffset) == 8, "layout");
static_assert(sizeof(KELU_TV_RECT_S) == 16 && sizeof(KELU_TV_NONLINEAR_SCL_S) == 12, "layout");
static_assert(sizeof(KELU_TV_WINDOW_ATTR_S) == 68 && offsetof(KELU_TV_WINDOW_ATTR_S, videoRect) == 36, "layout");
static_assert(sizeof(KELU_TV_SIGNAL_E) == 4 && sizeof(KELU_TV_WINDOW_E) == 4, "enumerations are one word");

// The system module: the ends of its value sets and the spots where the numbering jumps.
static_assert(KELU_TV_KPC_EV_KEY_RELEASE == 0 && KELU_TV_KPC_EV_KEY_PRESS == 1, "key event");
static_assert(KELU_TV_LINUX_KEYCODE_KELU_KEY_0 == 11 && KELU_TV_LINUX_KEYCODE_KELU_KEY_9 == 10, "digits");
static_assert(KELU_TV_LINUX_KEYCODE_KELU_KEY_INPUT_NUMBER == 483, "first private key");
static_assert(KELU_TV_LINUX_KEYCODE_KELU_KEY_FACTORY_AV3 == 523, "before a gap");
static_assert(KELU_TV_LINUX_KEYCODE_KELU_KEY_FACTORY_DTMB == 525, "out of order");
static_assert(KELU_TV_LINUX_KEYCODE_KELU_KEY_FACTORY_DTV == 704, "after a gap");
static_assert(KELU_TV_LINUX_KEYCODE_KELU_KEY_FACTORY_3D == 720, "before a gap");
static_assert(KELU_TV_LINUX_KEYCODE_KELU_KEY_FACTORY_LOGOUT == 722, "after a gap");
static_assert(KELU_TV_LINUX_KEYCODE_KELU_KEY_FACTORY_WHITE_BALANCE_NEW == 760, "last key");
static_assert(SOC_TV_PLATFORM_DEFAULT == 0 && SOC_TV_PLATFORM_HISI_LINUX_STB == 4, "platform");
static_assert(SOC_TV_PLATFORM_MSTAR_ANDROID_TV == 11 && SOC_TV_PLATFORM_REALTEK_ANDROID_STB == 22, "platform");
static_assert(SOC_TV_PLATFORM_AMLOGIC_LINUX_TV == 33 && SOC_TV_PLATFORM_NOVATEK_LINUX_STB == 44, "platform");
static_assert(SOC_TV_PLATFORM_MTK_LINUX_STB == 54 && SOC_TV_PLATFORM_BUTT == 55, "platform");
static_assert(KQ_LANG_CZECH == 3 && KQ_LANG_ITALIAN == 14 && KQ_LANG_BUTT == 511, "language");
static_assert(KELU_TV_PLAYER_START == 0 && KELU_TV_PLAYER_BUTT == 2, "play status");

#endif
