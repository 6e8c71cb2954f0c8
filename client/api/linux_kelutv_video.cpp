#include "Marshalling.h"

#include <kelutv/SystemSetting.h>
#include <kelutv/Video3D.h>
#include <kelutv/items.h>
#include <kelutv/linux_kelutv_video.h>

#include <algorithm>
#include <cstdio>

using namespace kelutv::internal;

namespace {

ItemAnswer readItem(int item, int param = 0) {
    ItemAnswer answer;
    answer.result = Video3D::instance()->getVideoItemValue(item, param, 0, answer.values.data());
    return answer;
}

int setItem(int item, int param1, int param2 = 0, int param3 = 0) {
    return Video3D::instance()->setVideoItemValue(item, param1, param2, param3, 0);
}

/** The word in which a colour travels: green fills the second and the third byte, blue none. */
int packed(const KELU_TV_COLOR_S* color) {
    if (color == nullptr) {
        return 0;
    }
    return static_cast<int>(color->red | (color->green << 8 & 0xFFFFU) | (color->green << 16 & 0xFF0000U));
}

} // namespace

// Three dimensions

int linux_tv_Video_is3dEnable() { return Video3D::instance()->is3dEnable(); }

int linux_tv_Video_get3dMode() { return Video3D::instance()->get3dMode(); }

int linux_tv_Video_set3dMode(int mode) { return Video3D::instance()->set3dMode(mode); }

int linux_tv_Video_getSwitchLR() { return Video3D::instance()->getSwitchLR(); }

int linux_tv_Video_switchLR(bool onoff) { return Video3D::instance()->switchLR(onoff); }

int linux_tv_Video_getDepth() { return Video3D::instance()->getDepth(); }

int linux_tv_Video_setDepth(int depth) { return Video3D::instance()->setDepth(depth); }

int linux_tv_Video_getView() { return Video3D::instance()->getView(); }

int linux_tv_Video_setView(int view) { return Video3D::instance()->setView(view); }

int linux_tv_Video_get3dto2d() { return Video3D::instance()->get3dto2d(); }

int linux_tv_Video_set3dto2d(bool mode) { return Video3D::instance()->set3dto2d(mode); }

// Windows and items

int linux_tv_Video_getWindowAttr(KELU_TV_SRC_E source, KELU_TV_WINDOW_ATTR_S* attr) {
    return Video3D::instance()->getWindowAttr(source, attr);
}

int linux_tv_Video_setWindowAttr(KELU_TV_SRC_E source, KELU_TV_WINDOW_ATTR_S* stWinAttr) {
    return Video3D::instance()->setWindowAttr(source, stWinAttr);
}

int linux_tv_Video_setVideoItemValue(int cmdID, int param1, int param2, int param3, int param4) {
    return Video3D::instance()->setVideoItemValue(cmdID, param1, param2, param3, param4);
}

int linux_tv_Video_getVideoItemValue(int cmdID, int param1, int param2, int* pData) {
    return pData == nullptr ? -1 : Video3D::instance()->getVideoItemValue(cmdID, param1, param2, pData);
}

// Signal and analogue video

int linux_tv_Video_setWorkMode(KELU_TV_TVD_WORK_MODE_E workMode) { return setItem(CMDID_VIDEO_SET_WORKMODE, workMode); }

int linux_tv_Video_setColorSystem(KELU_TV_CLRSYS_E colorSys) { return setItem(CMDID_VIDEO_SET_COLORSYSTEM, colorSys); }

int linux_tv_Video_getSignalStatusSync(KELU_TV_SRC_E source, KELU_TV_SIGNAL_E* status) {
    return storeValue(readItem(CMDID_VIDEO_GET_SIGNAL_STATUS_SYNC, source), status);
}

int linux_tv_Video_get625Mode(bool* pbIs625) { return storeFlag(readItem(CMDID_VIDEO_GET_625MODE), pbIs625); }

int linux_tv_Video_isSignalLock(bool* signalLock) { return storeFlag(readItem(CMDID_VIDEO_GET_ISLOCK), signalLock); }

int linux_tv_Video_getTvSupportList(int* pList, int* length) {
    const ItemAnswer answer = readItem(CMDID_VIDEO_GET_TV_SUPPORTLIST);
    const int count = answer.values[0];
    storeIfGiven(length, count);
    if (pList != nullptr) {
        std::copy_n(answer.values.begin() + 1, std::clamp(count, 0, kItemValueCount), pList);
    }
    return answer.result;
}

// Muting and play control

int linux_tv_Video_muteWindow(bool mute, KELU_TV_COLOR_S* color, bool freeze) {
    return setItem(CMDID_VIDEO_SET_WINDOW_MUTE, mute, packed(color), freeze);
}

int linux_tv_Video_getMuteWindowStatus(bool* argMute, bool* argFreeze) {
    if (argMute == nullptr || argFreeze == nullptr) {
        std::printf("[%s, %d] parmer invalid", "linux_tv_Video_getMuteWindowStatus", 162);
        return -1;
    }
    const ItemAnswer answer = readItem(CMDID_VIDEO_GET_WINDOW_MUTE_STATUS);
    *argMute = answer.values[0] != 0;
    *argFreeze = answer.values[1] != 0;
    return answer.result;
}

int linux_tv_Video_DvbPlayCtrl(int cmd, unsigned char* pData, int dataSize) {
    std::printf("[%s, %d] cmd = %d", "linux_tv_Video_DvbPlayCtrl", 194, cmd);
    return SystemSetting::instance()->dtvControl(cmd, pData, dataSize);
}
