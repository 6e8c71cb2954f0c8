#include "Marshalling.h"

#include <kelutv/SourceManager.h>
#include <kelutv/commands.h>
#include <kelutv/link/TVBaseClient.h>

#include <binder/Parcel.h>

using android::Parcel;
using android::TVBaseClient;
using namespace kelutv::internal;

namespace {

std::list<int> readSources(int command) {
    Parcel reply;
    if (TVBaseClient::self()->exeCmdGet(command, reply) != 0) {
        return {};
    }
    return readNumbers(reply);
}

} // namespace

SourceManager* SourceManager::instance() {
    static SourceManager mObj;
    return &mObj;
}

// Choosing a source

int SourceManager::selectSource(int srcId, int mainWindow) {
    return TVBaseClient::self()->exeCmdSet(CMD_SOURCE_SELECTSOURCE, srcId, mainWindow);
}

int SourceManager::deselectSource(int srcId, bool bDestroy) {
    return TVBaseClient::self()->exeCmdSet(CMD_SOURCE_DESELECTSOURCE, srcId, bDestroy);
}

int SourceManager::getCurSourceId(int mainWindow) {
    return TVBaseClient::self()->exeCmdGet(CMD_SOURCE_GETCURSOURCEID, mainWindow);
}

int SourceManager::getSelectSourceId() { return TVBaseClient::self()->exeCmdGet(CMD_SOURCE_GETSELECTSOURCEID); }

int SourceManager::getLastMainSource() { return TVBaseClient::self()->exeCmdGet(CMD_SOURCE_GETLASTMAINSOURCE); }

int SourceManager::setBootSource(int srcId) { return TVBaseClient::self()->exeCmdSet(CMD_SOURCE_SETBOOTSOURCE, srcId); }

int SourceManager::getBootSource() { return TVBaseClient::self()->exeCmdGet(CMD_SOURCE_GETBOOTSOURCE); }

std::list<int> SourceManager::getSourceList() { return readSources(CMD_SOURCE_GETSOURCELIST); }

std::list<int> SourceManager::getAvailSourceList() { return readSources(CMD_SOURCE_GETAVAILSOURCELIST); }

int SourceManager::isHasMultiAvSource() { return TVBaseClient::self()->exeCmdGet(CMD_SOURCE_ISHASMULTIAVSOURCE); }

int SourceManager::isNeedRelease(int enumSourceIndex, int command) {
    return TVBaseClient::self()->exeCmdGet(CMD_SOURCE_ISNEEDRELEASE, enumSourceIndex, command);
}

int SourceManager::isNeedSwitchMedia(int fromSource, int toSource, int command) {
    return TVBaseClient::self()->exeCmdGet(CMD_SOURCE_ISNEEDSWITCHMEDIA, fromSource, toSource, command);
}

int SourceManager::isNeedSelectSoucre(int fromSource, int toSource) {
    return TVBaseClient::self()->exeCmdGet(CMD_SOURCE_ISNEEDSELECTSOURCE, fromSource, toSource);
}

// Display windows

int SourceManager::setWindowRect(KeluRect rect, int mainWindow, int flag) {
    return Request()
        .words({rect.x, rect.y, rect.width, rect.height})
        .words({mainWindow, flag})
        .send(CMD_SOURCE_SETWINDOWRECT);
}

int SourceManager::getWindowRect(KeluRect* rect, int mainWindow) {
    if (rect == nullptr) {
        return -1;
    }
    Parcel reply;
    if (TVBaseClient::self()->exeCmdGet(CMD_SOURCE_GETWINDOWRECT, mainWindow, reply) == 0) {
        readWords(reply, {&rect->x, &rect->y, &rect->width, &rect->height});
    }
    return 0;
}

int SourceManager::enableDualDisplay(bool enable) {
    return TVBaseClient::self()->exeCmdSet(CMD_SOURCE_SETDUALDISPLAY, enable);
}

int SourceManager::setDisplayOnLeft(bool left, int mainWindow) {
    return TVBaseClient::self()->exeCmdSet(CMD_SOURCE_SETDISPLAYONLEFT, left, mainWindow);
}

int SourceManager::setFocusWindow(int mainWindow) {
    return TVBaseClient::self()->exeCmdSet(CMD_SOURCE_SETFOCUSWINDOW, mainWindow);
}

int SourceManager::setMuteWindow(bool status) { return TVBaseClient::self()->exeCmdSet(CMD_SOURCE_MUTEWINDOW, status); }

// The signal

TimingScreen SourceManager::getTimingInfo() {
    TimingScreen timing{};
    Parcel reply;
    if (TVBaseClient::self()->exeCmdGet(CMD_SOURCE_GETTIMMINGINFO, reply) == 0) {
        readWords(reply, {&timing.width, &timing.height, &timing.frameRate});
        timing.interlace = reply.readInt32() != 0;
        readWords(reply, {&timing.formatHDMI, &timing.format3d, &timing.colorSpace});
        timing.MHL = reply.readInt32() != 0;
        timing.graphicMode = reply.readInt32() != 0;
    }
    return timing;
}

int SourceManager::getSignalStatus() { return TVBaseClient::self()->exeCmdGet(CMD_SOURCE_GETSIGNALSTATUS); }

bool SourceManager::getOfflineSigStatus(int source) {
    return TVBaseClient::self()->exeCmdGet(CMD_SOURCE_GETSINGALSTATE, source) != 0;
}

bool SourceManager::isDVIMode() { return TVBaseClient::self()->exeCmdGet(CMD_SOURCE_GETDVIMODE) != 0; }

bool SourceManager::isMHLStatus() { return TVBaseClient::self()->exeCmdGet(CMD_SOURCE_GETMHLSTATUS) != 0; }

bool SourceManager::isMHLPortInUse() { return TVBaseClient::self()->exeCmdGet(CMD_SOURCE_GETMHLINUSE) != 0; }

int SourceManager::sendRcpKey(int key) { return TVBaseClient::self()->exeCmdSet(CMD_SOURCE_SENDRCPKEY, key); }
