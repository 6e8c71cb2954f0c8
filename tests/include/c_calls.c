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
    };
    int accepted = 0;
    for (size_t i = 0; i < sizeof results / sizeof results[0]; ++i) {
        accepted += results[i] != -1;
    }
    return accepted;
}
