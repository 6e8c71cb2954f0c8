#include "c_calls.h"

#include <kelutv/kelutv.h>

#include <stddef.h>

static int newOutputListWithoutSize(void) {
    int list[254];
    return linux_tv_Audio_getNewOutputList(list, NULL);
}

static int newOutputListWithoutList(void) {
    int size = 0;
    return linux_tv_Audio_getNewOutputList(NULL, &size);
}

static int defaultOutputListWithoutSize(void) {
    int list[254];
    return linux_tv_Audio_GetDefaultSndOutputList(list, NULL);
}

static int defaultOutputListWithoutList(void) {
    int size = 0;
    return linux_tv_Audio_GetDefaultSndOutputList(NULL, &size);
}

static int muteStatusWithoutFreeze(void) {
    bool mute = false;
    return linux_tv_Video_getMuteWindowStatus(&mute, NULL);
}

int acceptedNullPointers(void) {
    const int results[] = {
        linux_tv_Audio_getAudioItemValue(CMDID_AUDIO_GET_EQ_ENABLE, 0, 0, NULL),
        linux_tv_Audio_setPEQAttr(NULL),
        linux_tv_Audio_getPEQAttr(NULL),
        linux_tv_Audio_setDRCAttr(NULL),
        linux_tv_Audio_getDRCAttr(NULL),
        linux_tv_Audio_GetDefaultSndOutputDev(NULL),
        linux_tv_Audio_getAVCLevel(NULL),
        linux_tv_Audio_getNRAttr(NULL),
        linux_tv_Audio_getNewOutputMode(NULL),
        newOutputListWithoutSize(),
        newOutputListWithoutList(),
        defaultOutputListWithoutSize(),
        defaultOutputListWithoutList(),
        linux_tv_SourceManager_getWindowRect(NULL, 0),
        linux_tv_SourceManager_getTimingInfo(NULL),
        linux_tv_Video_getVideoItemValue(CMDID_VIDEO_GET_ISLOCK, 0, 0, NULL),
        muteStatusWithoutFreeze(),
        linux_tv_Picture_getColorTempPara(NULL),
        linux_tv_Picture_getColorControlInfoPara(NULL),
        linux_tv_Picture_getBrightnessHistogram(NULL),
        linux_tv_Picture_getMicroDimmingData(1, 1, NULL),
        linux_tv_Picture_getVideoScreenShot(1, 1, NULL, true),
        linux_tv_Picture_getColorAdvancedItem(0, 0, NULL),
        linux_tv_Picture_getPictureItemValue(CMDID_PICTURE_MODULE_START, 0, 0, NULL),
        linux_tv_Picture_setCameraEnhancePictureMode(0, NULL, ""),
        linux_tv_Picture_setCameraEnhancePictureMode(0, "", NULL),
    };
    int accepted = 0;
    for (size_t i = 0; i < sizeof results / sizeof results[0]; ++i) {
        accepted += results[i] != -1;
    }
    return accepted;
}
