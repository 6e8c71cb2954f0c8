#include "Marshalling.h"

#include <kelutv/Video3D.h>
#include <kelutv/commands.h>
#include <kelutv/link/TVBaseClient.h>

#include <android/log.h>
#include <binder/Parcel.h>

using android::Parcel;
using android::TVBaseClient;
using namespace kelutv::internal;

namespace {

void addRect(Request& request, const KELU_TV_RECT_S& rect) { request.words({rect.x, rect.y, rect.width, rect.height}); }

void readRect(const Parcel& reply, KELU_TV_RECT_S& rect) {
    readWords(reply, {&rect.x, &rect.y, &rect.width, &rect.height});
}

void addWindow(Request& request, const KELU_TV_WINDOW_ATTR_S& attr) {
    const KELU_TV_CROP_RECT_S& crop = attr.cropRect;
    request.word(attr.window).words({crop.leftOffset, crop.topOffset, crop.rightOffset, crop.bottomOffset});
    addRect(request, attr.outputRect);
    addRect(request, attr.videoRect);
    request.word(attr.nonLinearInfo.enable)
        .words({attr.nonLinearInfo.sourceWidth, attr.nonLinearInfo.displayWidth})
        .word(attr.isVirtual);
}

KELU_TV_WINDOW_ATTR_S readWindow(const Parcel& reply) {
    KELU_TV_WINDOW_ATTR_S attr{};
    KELU_TV_CROP_RECT_S& crop = attr.cropRect;
    attr.window = static_cast<KELU_TV_WINDOW_E>(reply.readInt32());
    readWords(reply, {&crop.leftOffset, &crop.topOffset, &crop.rightOffset, &crop.bottomOffset});
    readRect(reply, attr.outputRect);
    readRect(reply, attr.videoRect);
    attr.nonLinearInfo.enable = reply.readInt32() != 0;
    readWords(reply, {&attr.nonLinearInfo.sourceWidth, &attr.nonLinearInfo.displayWidth});
    attr.isVirtual = reply.readInt32() != 0;
    return attr;
}

} // namespace

Video3D* Video3D::instance() {
    static Video3D mObj;
    return &mObj;
}

// Three dimensions

bool Video3D::is3dEnable() { return TVBaseClient::self()->exeCmdGet(CMD_VIDEO_GET3DSTATUS) != 0; }

int Video3D::get3dMode() { return TVBaseClient::self()->exeCmdGet(CMD_VIDEO_GET3DMODE); }

int Video3D::set3dMode(int mode) { return TVBaseClient::self()->exeCmdSet(CMD_VIDEO_SET3DMODE, mode); }

bool Video3D::getSwitchLR() { return TVBaseClient::self()->exeCmdGet(CMD_VIDEO_GETSWITCHLR) != 0; }

int Video3D::switchLR(bool onoff) { return TVBaseClient::self()->exeCmdSet(CMD_VIDEO_SETSWITCHLR, onoff); }

int Video3D::getDepth() { return TVBaseClient::self()->exeCmdGet(CMD_VIDEO_GETDEPTH); }

int Video3D::setDepth(int depth) { return TVBaseClient::self()->exeCmdSet(CMD_VIDEO_SETDEPTH, depth); }

int Video3D::getView() { return TVBaseClient::self()->exeCmdGet(CMD_VIDEO_GETVIEW); }

int Video3D::setView(int view) { return TVBaseClient::self()->exeCmdSet(CMD_VIDEO_SETVIEW, view); }

bool Video3D::get3dto2d() { return TVBaseClient::self()->exeCmdGet(CMD_VIDEO_GET3DTO2D) != 0; }

int Video3D::set3dto2d(int mode) { return TVBaseClient::self()->exeCmdSet(CMD_VIDEO_SET3DTO2D, mode); }

// Windows and items

int Video3D::getWindowAttr(KELU_TV_SRC_E /*source*/, KELU_TV_WINDOW_ATTR_S* attr) {
    Parcel reply;
    if (TVBaseClient::self()->exeCmdGet(CMD_VIDEO_GET_WINDOWATTR, reply) == 0) {
        storeIfGiven(attr, readWindow(reply));
    }
    return 0;
}

int Video3D::setWindowAttr(KELU_TV_SRC_E /*source*/, KELU_TV_WINDOW_ATTR_S* stWinAttr) {
    Request request;
    addWindow(request, *stWinAttr);
    return request.send(CMD_VIDEO_SET_WINDOWATTR);
}

int Video3D::setVideoItemValue(int cmdID, int param1, int param2, int param3, int param4) {
    return TVBaseClient::self()->exeCmdSet(CMD_VIDEO_COMMON_SET_ITEM_VALUE, cmdID, param1, param2, param3, param4);
}

int Video3D::getVideoItemValue(int cmdID, int param1, int param2, int* pData) {
    if (pData == nullptr) {
        __android_log_print(ANDROID_LOG_ERROR, nullptr, "getChannelItemValue input buf is null");
        return -1;
    }
    Parcel reply;
    if (TVBaseClient::self()->exeCmdGet(CMD_VIDEO_COMMON_GET_ITEM_VALUE, cmdID, param1, param2, reply) != 0) {
        return -1;
    }
    readItemValues(reply, pData);
    return 0;
}
