/* Sizes and offsets of the public records: the same on 32-bit and 64-bit machines, in C and in C++. */
#ifndef KELUTV_TESTS_LAYOUT_H
#define KELUTV_TESTS_LAYOUT_H

#include <kelutv/kelutv.h>

#include <assert.h>
#include <stddef.h>

static_assert(sizeof(bool) == 1, "bool");
static_assert(sizeof(int) == 4, "int");

/* audio_types.h */
static_assert(sizeof(PreScaleInfo) == 8, "PreScaleInfo");
static_assert(offsetof(PreScaleInfo, integer) == 0, "PreScaleInfo.integer");
static_assert(offsetof(PreScaleInfo, decimal) == 4, "PreScaleInfo.decimal");

static_assert(sizeof(NRAttrData) == 8, "NRAttrData");
static_assert(offsetof(NRAttrData, onOff) == 0, "NRAttrData.onOff");
static_assert(offsetof(NRAttrData, value) == 4, "NRAttrData.value");

static_assert(sizeof(KELU_TV_SND_DRC_ATTR_S) == 8, "KELU_TV_SND_DRC_ATTR_S");
static_assert(offsetof(KELU_TV_SND_DRC_ATTR_S, intthrhd) == 0, "KELU_TV_SND_DRC_ATTR_S.intthrhd");
static_assert(offsetof(KELU_TV_SND_DRC_ATTR_S, intLimit) == 4, "KELU_TV_SND_DRC_ATTR_S.intLimit");

static_assert(sizeof(KELU_TV_SND_PEQ_BAND_ATTR_S) == 16, "KELU_TV_SND_PEQ_BAND_ATTR_S");
static_assert(offsetof(KELU_TV_SND_PEQ_BAND_ATTR_S, enFltType) == 0, "KELU_TV_SND_PEQ_BAND_ATTR_S.enFltType");
static_assert(offsetof(KELU_TV_SND_PEQ_BAND_ATTR_S, intfreq) == 4, "KELU_TV_SND_PEQ_BAND_ATTR_S.intfreq");
static_assert(offsetof(KELU_TV_SND_PEQ_BAND_ATTR_S, intQ) == 8, "KELU_TV_SND_PEQ_BAND_ATTR_S.intQ");
static_assert(offsetof(KELU_TV_SND_PEQ_BAND_ATTR_S, intGain) == 12, "KELU_TV_SND_PEQ_BAND_ATTR_S.intGain");

static_assert(sizeof(KELU_TV_SND_PEQ_ATTR_S) == 164, "KELU_TV_SND_PEQ_ATTR_S");
static_assert(offsetof(KELU_TV_SND_PEQ_ATTR_S, intBandNum) == 0, "KELU_TV_SND_PEQ_ATTR_S.intBandNum");
static_assert(offsetof(KELU_TV_SND_PEQ_ATTR_S, stEqParam) == 4, "KELU_TV_SND_PEQ_ATTR_S.stEqParam");

static_assert(sizeof(KELU_TV_SUBWOOFER_GEQ) == 20, "KELU_TV_SUBWOOFER_GEQ");
static_assert(offsetof(KELU_TV_SUBWOOFER_GEQ, geqBand0) == 0, "KELU_TV_SUBWOOFER_GEQ.geqBand0");
static_assert(offsetof(KELU_TV_SUBWOOFER_GEQ, geqBand1) == 4, "KELU_TV_SUBWOOFER_GEQ.geqBand1");
static_assert(offsetof(KELU_TV_SUBWOOFER_GEQ, geqBand2) == 8, "KELU_TV_SUBWOOFER_GEQ.geqBand2");
static_assert(offsetof(KELU_TV_SUBWOOFER_GEQ, geqBand3) == 12, "KELU_TV_SUBWOOFER_GEQ.geqBand3");
static_assert(offsetof(KELU_TV_SUBWOOFER_GEQ, geqBand4) == 16, "KELU_TV_SUBWOOFER_GEQ.geqBand4");

static_assert(sizeof(KELU_TV_SND_PRECIGAIN_ATTR_S) == 8, "KELU_TV_SND_PRECIGAIN_ATTR_S");
static_assert(offsetof(KELU_TV_SND_PRECIGAIN_ATTR_S, s32IntegerGain) == 0,
              "KELU_TV_SND_PRECIGAIN_ATTR_S.s32IntegerGain");
static_assert(offsetof(KELU_TV_SND_PRECIGAIN_ATTR_S, s32DecimalGain) == 4,
              "KELU_TV_SND_PRECIGAIN_ATTR_S.s32DecimalGain");

/* factory_types.h */
static_assert(sizeof(CalibrationInfo) == 24, "CalibrationInfo");
static_assert(offsetof(CalibrationInfo, redGain) == 0, "CalibrationInfo.redGain");
static_assert(offsetof(CalibrationInfo, greenGain) == 4, "CalibrationInfo.greenGain");
static_assert(offsetof(CalibrationInfo, blueGain) == 8, "CalibrationInfo.blueGain");
static_assert(offsetof(CalibrationInfo, redOffset) == 12, "CalibrationInfo.redOffset");
static_assert(offsetof(CalibrationInfo, greenOffset) == 16, "CalibrationInfo.greenOffset");
static_assert(offsetof(CalibrationInfo, blueOffset) == 20, "CalibrationInfo.blueOffset");

static_assert(sizeof(NlaInfo) == 20, "NlaInfo");
static_assert(offsetof(NlaInfo, point0) == 0, "NlaInfo.point0");
static_assert(offsetof(NlaInfo, point25) == 4, "NlaInfo.point25");
static_assert(offsetof(NlaInfo, point50) == 8, "NlaInfo.point50");
static_assert(offsetof(NlaInfo, point75) == 12, "NlaInfo.point75");
static_assert(offsetof(NlaInfo, point100) == 16, "NlaInfo.point100");

static_assert(sizeof(SoundPeqData) == 48, "SoundPeqData");
static_assert(offsetof(SoundPeqData, FO1_COARSE) == 0, "SoundPeqData.FO1_COARSE");
static_assert(offsetof(SoundPeqData, FO1_FINE) == 4, "SoundPeqData.FO1_FINE");
static_assert(offsetof(SoundPeqData, FO2_COARSE) == 8, "SoundPeqData.FO2_COARSE");
static_assert(offsetof(SoundPeqData, FO2_FINE) == 12, "SoundPeqData.FO2_FINE");
static_assert(offsetof(SoundPeqData, FO3_COARSE) == 16, "SoundPeqData.FO3_COARSE");
static_assert(offsetof(SoundPeqData, FO3_FINE) == 20, "SoundPeqData.FO3_FINE");
static_assert(offsetof(SoundPeqData, GAIN1) == 24, "SoundPeqData.GAIN1");
static_assert(offsetof(SoundPeqData, GAIN2) == 28, "SoundPeqData.GAIN2");
static_assert(offsetof(SoundPeqData, GAIN3) == 32, "SoundPeqData.GAIN3");
static_assert(offsetof(SoundPeqData, Q1) == 36, "SoundPeqData.Q1");
static_assert(offsetof(SoundPeqData, Q2) == 40, "SoundPeqData.Q2");
static_assert(offsetof(SoundPeqData, Q3) == 44, "SoundPeqData.Q3");

static_assert(sizeof(BOE_OD_TableName) == 10, "BOE_OD_TableName");
static_assert(sizeof(BOE_OD_TableInfo) == 90, "BOE_OD_TableInfo");
static_assert(offsetof(BOE_OD_TableInfo, ODTableStr) == 0, "BOE_OD_TableInfo.ODTableStr");

/* hdmicec_types.h */
static_assert(sizeof(KELU_CEC_CMD_INFO_S) == 8, "KELU_CEC_CMD_INFO_S");
static_assert(offsetof(KELU_CEC_CMD_INFO_S, IrCommand) == 0, "KELU_CEC_CMD_INFO_S.IrCommand");
static_assert(offsetof(KELU_CEC_CMD_INFO_S, KeyPressed) == 4, "KELU_CEC_CMD_INFO_S.KeyPressed");

/* picture_types.h */
static_assert(sizeof(ColorTempData) == 24, "ColorTempData");
static_assert(offsetof(ColorTempData, redGain) == 0, "ColorTempData.redGain");
static_assert(offsetof(ColorTempData, greenGain) == 4, "ColorTempData.greenGain");
static_assert(offsetof(ColorTempData, blueGain) == 8, "ColorTempData.blueGain");
static_assert(offsetof(ColorTempData, redOffset) == 12, "ColorTempData.redOffset");
static_assert(offsetof(ColorTempData, greenOffset) == 16, "ColorTempData.greenOffset");
static_assert(offsetof(ColorTempData, blueOffset) == 20, "ColorTempData.blueOffset");

static_assert(sizeof(ScopeInfo) == 16, "ScopeInfo");
static_assert(offsetof(ScopeInfo, horPos) == 0, "ScopeInfo.horPos");
static_assert(offsetof(ScopeInfo, verPos) == 4, "ScopeInfo.verPos");
static_assert(offsetof(ScopeInfo, horRange) == 8, "ScopeInfo.horRange");
static_assert(offsetof(ScopeInfo, verRange) == 12, "ScopeInfo.verRange");

static_assert(sizeof(ColorControlInfoData) == 28, "ColorControlInfoData");
static_assert(offsetof(ColorControlInfoData, red) == 0, "ColorControlInfoData.red");
static_assert(offsetof(ColorControlInfoData, green) == 4, "ColorControlInfoData.green");
static_assert(offsetof(ColorControlInfoData, blue) == 8, "ColorControlInfoData.blue");
static_assert(offsetof(ColorControlInfoData, cyan) == 12, "ColorControlInfoData.cyan");
static_assert(offsetof(ColorControlInfoData, magenta) == 16, "ColorControlInfoData.magenta");
static_assert(offsetof(ColorControlInfoData, yellow) == 20, "ColorControlInfoData.yellow");
static_assert(offsetof(ColorControlInfoData, complexion) == 24, "ColorControlInfoData.complexion");

/* source_types.h */
static_assert(sizeof(KeluRect) == 16, "KeluRect");
static_assert(offsetof(KeluRect, x) == 0, "KeluRect.x");
static_assert(offsetof(KeluRect, y) == 4, "KeluRect.y");
static_assert(offsetof(KeluRect, width) == 8, "KeluRect.width");
static_assert(offsetof(KeluRect, height) == 12, "KeluRect.height");

static_assert(sizeof(TimingScreen) == 32, "TimingScreen");
static_assert(offsetof(TimingScreen, width) == 0, "TimingScreen.width");
static_assert(offsetof(TimingScreen, height) == 4, "TimingScreen.height");
static_assert(offsetof(TimingScreen, frameRate) == 8, "TimingScreen.frameRate");
static_assert(offsetof(TimingScreen, interlace) == 12, "TimingScreen.interlace");
static_assert(offsetof(TimingScreen, formatHDMI) == 16, "TimingScreen.formatHDMI");
static_assert(offsetof(TimingScreen, format3d) == 20, "TimingScreen.format3d");
static_assert(offsetof(TimingScreen, colorSpace) == 24, "TimingScreen.colorSpace");
static_assert(offsetof(TimingScreen, MHL) == 28, "TimingScreen.MHL");
static_assert(offsetof(TimingScreen, graphicMode) == 29, "TimingScreen.graphicMode");

/* video_types.h */
static_assert(sizeof(KELU_TV_COLOR_S) == 12, "KELU_TV_COLOR_S");
static_assert(offsetof(KELU_TV_COLOR_S, red) == 0, "KELU_TV_COLOR_S.red");
static_assert(offsetof(KELU_TV_COLOR_S, green) == 4, "KELU_TV_COLOR_S.green");
static_assert(offsetof(KELU_TV_COLOR_S, blue) == 8, "KELU_TV_COLOR_S.blue");

static_assert(sizeof(KELU_TV_CROP_RECT_S) == 16, "KELU_TV_CROP_RECT_S");
static_assert(offsetof(KELU_TV_CROP_RECT_S, leftOffset) == 0, "KELU_TV_CROP_RECT_S.leftOffset");
static_assert(offsetof(KELU_TV_CROP_RECT_S, topOffset) == 4, "KELU_TV_CROP_RECT_S.topOffset");
static_assert(offsetof(KELU_TV_CROP_RECT_S, rightOffset) == 8, "KELU_TV_CROP_RECT_S.rightOffset");
static_assert(offsetof(KELU_TV_CROP_RECT_S, bottomOffset) == 12, "KELU_TV_CROP_RECT_S.bottomOffset");

static_assert(sizeof(KELU_TV_RECT_S) == 16, "KELU_TV_RECT_S");
static_assert(offsetof(KELU_TV_RECT_S, x) == 0, "KELU_TV_RECT_S.x");
static_assert(offsetof(KELU_TV_RECT_S, y) == 4, "KELU_TV_RECT_S.y");
static_assert(offsetof(KELU_TV_RECT_S, width) == 8, "KELU_TV_RECT_S.width");
static_assert(offsetof(KELU_TV_RECT_S, height) == 12, "KELU_TV_RECT_S.height");

static_assert(sizeof(KELU_TV_NONLINEAR_SCL_S) == 12, "KELU_TV_NONLINEAR_SCL_S");
static_assert(offsetof(KELU_TV_NONLINEAR_SCL_S, enable) == 0, "KELU_TV_NONLINEAR_SCL_S.enable");
static_assert(offsetof(KELU_TV_NONLINEAR_SCL_S, sourceWidth) == 4, "KELU_TV_NONLINEAR_SCL_S.sourceWidth");
static_assert(offsetof(KELU_TV_NONLINEAR_SCL_S, displayWidth) == 8, "KELU_TV_NONLINEAR_SCL_S.displayWidth");

static_assert(sizeof(KELU_TV_WINDOW_ATTR_S) == 68, "KELU_TV_WINDOW_ATTR_S");
static_assert(offsetof(KELU_TV_WINDOW_ATTR_S, window) == 0, "KELU_TV_WINDOW_ATTR_S.window");
static_assert(offsetof(KELU_TV_WINDOW_ATTR_S, cropRect) == 4, "KELU_TV_WINDOW_ATTR_S.cropRect");
static_assert(offsetof(KELU_TV_WINDOW_ATTR_S, outputRect) == 20, "KELU_TV_WINDOW_ATTR_S.outputRect");
static_assert(offsetof(KELU_TV_WINDOW_ATTR_S, videoRect) == 36, "KELU_TV_WINDOW_ATTR_S.videoRect");
static_assert(offsetof(KELU_TV_WINDOW_ATTR_S, nonLinearInfo) == 52, "KELU_TV_WINDOW_ATTR_S.nonLinearInfo");
static_assert(offsetof(KELU_TV_WINDOW_ATTR_S, isVirtual) == 64, "KELU_TV_WINDOW_ATTR_S.isVirtual");

/* Enumerations are words of 32 bits. */
static_assert(sizeof(MuteType) == 4, "MuteType");
static_assert(sizeof(KELU_TV_SOUND_OUTPUT_MODE_E) == 4, "KELU_TV_SOUND_OUTPUT_MODE_E");
static_assert(sizeof(KELU_TV_AVC_LEVEL) == 4, "KELU_TV_AVC_LEVEL");
static_assert(sizeof(KELU_TV_PEQ_FILTER_TYPE_E) == 4, "KELU_TV_PEQ_FILTER_TYPE_E");
static_assert(sizeof(KELU_TV_AUDIO_CHANNEL_E) == 4, "KELU_TV_AUDIO_CHANNEL_E");
static_assert(sizeof(KELU_TV_SPEAKER_E) == 4, "KELU_TV_SPEAKER_E");
static_assert(sizeof(KELU_TV_SIF_OUTMODE_E) == 4, "KELU_TV_SIF_OUTMODE_E");
static_assert(sizeof(KELU_TV_SNDMODE_E) == 4, "KELU_TV_SNDMODE_E");
static_assert(sizeof(KELU_TV_SNDLOCATE_E) == 4, "KELU_TV_SNDLOCATE_E");
static_assert(sizeof(KELU_TV_SPDIF_E) == 4, "KELU_TV_SPDIF_E");
static_assert(sizeof(KELU_TV_AUDIO_EFFECT_PARAM_E) == 4, "KELU_TV_AUDIO_EFFECT_PARAM_E");
static_assert(sizeof(KELU_TV_AUDIO_ADVANCED_EFFECT_PARAM_E) == 4, "KELU_TV_AUDIO_ADVANCED_EFFECT_PARAM_E");
static_assert(sizeof(KELU_TV_DOLBY_E) == 4, "KELU_TV_DOLBY_E");
static_assert(sizeof(KELU_TV_AUDIO_STREAM_TYPE_E) == 4, "KELU_TV_AUDIO_STREAM_TYPE_E");
static_assert(sizeof(KELU_TV_AUDIO_DEMO_MODE_E) == 4, "KELU_TV_AUDIO_DEMO_MODE_E");
static_assert(sizeof(KELU_TV_AUDIO_EFFECT_TYPE_E) == 4, "KELU_TV_AUDIO_EFFECT_TYPE_E");
static_assert(sizeof(KELU_TV_AUDIO_FUNC_E) == 4, "KELU_TV_AUDIO_FUNC_E");
static_assert(sizeof(KELU_TV_PRESCALE_SOURCE_E) == 4, "KELU_TV_PRESCALE_SOURCE_E");
static_assert(sizeof(KELU_TV_NEW_AUDIO_OUTPUT_E) == 4, "KELU_TV_NEW_AUDIO_OUTPUT_E");
static_assert(sizeof(KELU_TV_EQUALIZER_MODE) == 4, "KELU_TV_EQUALIZER_MODE");
static_assert(sizeof(ATV_CMD_ID_E) == 4, "ATV_CMD_ID_E");
static_assert(sizeof(KELU_MW_SND_ARC_MODE_E) == 4, "KELU_MW_SND_ARC_MODE_E");
static_assert(sizeof(KELU_EM_MODE_E) == 4, "KELU_EM_MODE_E");
static_assert(sizeof(KELU_TV_EDID_TYPE_E) == 4, "KELU_TV_EDID_TYPE_E");
static_assert(sizeof(KELU_MW_SOC_TEMP_TYPE) == 4, "KELU_MW_SOC_TEMP_TYPE");
static_assert(sizeof(KELU_TV_MUL_KEY_E) == 4, "KELU_TV_MUL_KEY_E");
static_assert(sizeof(KELU_TV_PATTERN_E) == 4, "KELU_TV_PATTERN_E");
static_assert(sizeof(KELU_TV_PATTERN_TYPE_E) == 4, "KELU_TV_PATTERN_TYPE_E");
static_assert(sizeof(KELU_TV_OPERATEFLASHEEPROM) == 4, "KELU_TV_OPERATEFLASHEEPROM");
static_assert(sizeof(KELU_TV_PQ_IOCTL_CMD_E) == 4, "KELU_TV_PQ_IOCTL_CMD_E");
static_assert(sizeof(KELU_TV_DTV_SN_E) == 4, "KELU_TV_DTV_SN_E");
static_assert(sizeof(KELU_TV_OPT_CA_TYPE_E) == 4, "KELU_TV_OPT_CA_TYPE_E");
static_assert(sizeof(KELU_TV_IR_PROTOCOL_TYPE_E) == 4, "KELU_TV_IR_PROTOCOL_TYPE_E");
static_assert(sizeof(KELU_TV_PASSWORD_TYPE_E) == 4, "KELU_TV_PASSWORD_TYPE_E");
static_assert(sizeof(KELU_TV_MACHINE_INFO_E) == 4, "KELU_TV_MACHINE_INFO_E");
static_assert(sizeof(KELU_TV_LED_DISTURBING_MODE_E) == 4, "KELU_TV_LED_DISTURBING_MODE_E");
static_assert(sizeof(KELU_TV_NETDATATRAN_TPYE_E) == 4, "KELU_TV_NETDATATRAN_TPYE_E");
static_assert(sizeof(KELU_TV_NONSTAND_TPYE_E) == 4, "KELU_TV_NONSTAND_TPYE_E");
static_assert(sizeof(E_MW_CEC_UI_CMD) == 4, "E_MW_CEC_UI_CMD");
static_assert(sizeof(KELU_TV_CMDID_E) == 4, "KELU_TV_CMDID_E");
static_assert(sizeof(KELU_TV_PCMPLAYER_STATUS_E) == 4, "KELU_TV_PCMPLAYER_STATUS_E");
static_assert(sizeof(KELU_TV_PIC_MODE_E) == 4, "KELU_TV_PIC_MODE_E");
static_assert(sizeof(KELU_TV_HDR_TYPE_E) == 4, "KELU_TV_HDR_TYPE_E");
static_assert(sizeof(KELU_TV_COLORTEMP_E) == 4, "KELU_TV_COLORTEMP_E");
static_assert(sizeof(KELU_TV_ASPECT_E) == 4, "KELU_TV_ASPECT_E");
static_assert(sizeof(KELU_TV_IMAGE_RGB_TYPE_E) == 4, "KELU_TV_IMAGE_RGB_TYPE_E");
static_assert(sizeof(KELU_TV_CLRSYS_E) == 4, "KELU_TV_CLRSYS_E");
static_assert(sizeof(KELU_TV_LEVEL_E) == 4, "KELU_TV_LEVEL_E");
static_assert(sizeof(KELU_TV_LDLIGHTPOS_E) == 4, "KELU_TV_LDLIGHTPOS_E");
static_assert(sizeof(KELU_TV_PANELLEVEL_E) == 4, "KELU_TV_PANELLEVEL_E");
static_assert(sizeof(KELU_TV_LOCALDIMMING_DEMO_MODE_E) == 4, "KELU_TV_LOCALDIMMING_DEMO_MODE_E");
static_assert(sizeof(KELU_TV_SUPPORT_SWITCH_E) == 4, "KELU_TV_SUPPORT_SWITCH_E");
static_assert(sizeof(KELU_TV_SUPPORT_SWITCH_MODE_E) == 4, "KELU_TV_SUPPORT_SWITCH_MODE_E");
static_assert(sizeof(KELU_TV_PICTURE_FUNC_E) == 4, "KELU_TV_PICTURE_FUNC_E");
static_assert(sizeof(KELU_TV_PIC_IMAGE_E) == 4, "KELU_TV_PIC_IMAGE_E");
static_assert(sizeof(KELU_TV_PIC_MODE_NEW_E) == 4, "KELU_TV_PIC_MODE_NEW_E");
static_assert(sizeof(KELU_TV_PIC_MODE_HDR_E) == 4, "KELU_TV_PIC_MODE_HDR_E");
static_assert(sizeof(KELU_TV_PIC_MODE_HDR_PLUS_E) == 4, "KELU_TV_PIC_MODE_HDR_PLUS_E");
static_assert(sizeof(KELU_TV_PIC_MODE_DOLBY_E) == 4, "KELU_TV_PIC_MODE_DOLBY_E");
static_assert(sizeof(KELU_MW_PICMODE_E) == 4, "KELU_MW_PICMODE_E");
static_assert(sizeof(KELU_MW_PICMODE_HDR_E) == 4, "KELU_MW_PICMODE_HDR_E");
static_assert(sizeof(KELU_MW_PICMODE_HDR_PLUS_E) == 4, "KELU_MW_PICMODE_HDR_PLUS_E");
static_assert(sizeof(KELU_MW_PICMODE_DOLBY_E) == 4, "KELU_MW_PICMODE_DOLBY_E");
static_assert(sizeof(KELU_MW_PICMODE_PHOTO_E) == 4, "KELU_MW_PICMODE_PHOTO_E");
static_assert(sizeof(KELU_MW_PCMODE_E) == 4, "KELU_MW_PCMODE_E");
static_assert(sizeof(KELU_MW_HDR_MODE_E) == 4, "KELU_MW_HDR_MODE_E");
static_assert(sizeof(KELU_TV_SRC_E) == 4, "KELU_TV_SRC_E");
static_assert(sizeof(KELU_MW_SRC_E) == 4, "KELU_MW_SRC_E");
static_assert(sizeof(KELU_TV_KPC_EV_KEY_E) == 4, "KELU_TV_KPC_EV_KEY_E");
static_assert(sizeof(KELU_TV_LINUX_KEYCODE_E) == 4, "KELU_TV_LINUX_KEYCODE_E");
static_assert(sizeof(SOC_TV_PLATFORM_TYPE_E) == 4, "SOC_TV_PLATFORM_TYPE_E");
static_assert(sizeof(kq_lang_type_s) == 4, "kq_lang_type_s");
static_assert(sizeof(KELU_TV_PLAY_STATUS) == 4, "KELU_TV_PLAY_STATUS");
static_assert(sizeof(KELU_TV_3DMODE_E) == 4, "KELU_TV_3DMODE_E");
static_assert(sizeof(KELU_TV_WINDOW_E) == 4, "KELU_TV_WINDOW_E");
static_assert(sizeof(KELU_TV_TVD_WORK_MODE_E) == 4, "KELU_TV_TVD_WORK_MODE_E");
static_assert(sizeof(KELU_TV_SIGNAL_E) == 4, "KELU_TV_SIGNAL_E");

#endif
