#include "Marshalling.h"

#include <kelutv/SourceManager.h>
#include <kelutv/linux_kelutv_sourcemanager.h>

#include <android/log.h>

using namespace kelutv::internal;

namespace {

constexpr char kTag[] = "TVBASEMW@linuxSourceManager";

/** Applications know one digital source. */
int folded(int source) { return source == KELU_TV_SRC_DIG2 ? KELU_TV_SRC_DIG1 : source; }

} // namespace

// Choosing a source

int linux_tv_SourceManager_selectSource(int srcId, int mainWindow) {
    __android_log_print(ANDROID_LOG_INFO, kTag,
                        "linuxapi before linux_tv_SourceManager_selectSource srcId = %d,mainWindow = %d", srcId,
                        mainWindow);
    SourceManager::instance()->selectSource(srcId, mainWindow);
    __android_log_print(ANDROID_LOG_INFO, kTag,
                        "linuxapi after linux_tv_SourceManager_selectSource srcId = %d,mainWindow = %d", srcId,
                        mainWindow);
    return 0;
}

int linux_tv_SourceManager_deselectSource(int srcId, int bDestroy) {
    return SourceManager::instance()->deselectSource(srcId, bDestroy != 0);
}

int linux_tv_SourceManager_getCurSourceId(int mainWindow) {
    const int source = folded(SourceManager::instance()->getCurSourceId(mainWindow));
    __android_log_print(ANDROID_LOG_INFO, kTag, "linuxapi linux_tv_SourceManager_getCurSourceId = %d", source);
    return source;
}

int linux_tv_SourceManager_getSelectSourceId() { return folded(SourceManager::instance()->getSelectSourceId()); }

int linux_tv_SourceManager_getLastMainSource() {
    const int source = SourceManager::instance()->getLastMainSource();
    __android_log_print(ANDROID_LOG_INFO, kTag, "linuxapi linux_tv_SourceManager_getLastMainSource = %d", source);
    return source;
}

int linux_tv_SourceManager_setBootSource(int srcId) { return SourceManager::instance()->setBootSource(srcId); }

int linux_tv_SourceManager_getBootSource() { return folded(SourceManager::instance()->getBootSource()); }

int linux_tv_SourceManager_getSourceList(int* list, int* count) {
    std::list<int> sources = SourceManager::instance()->getSourceList();
    const int result = sources.empty() ? -1 : 0;
    sources.remove(KELU_TV_SRC_DIG2);
    copyNumbers(sources, list, count);
    return result;
}

int linux_tv_SourceManager_getAvailSourceList(int* list, int* count) {
    const std::list<int> sources = SourceManager::instance()->getAvailSourceList();
    copyNumbers(sources, list, count);
    return sources.empty() ? -1 : 0;
}

int linux_tv_SourceManager_isHasMultiAvSource() { return SourceManager::instance()->isHasMultiAvSource(); }

int linux_tv_SourceManager_isNeedRelease(int enumSourceIndex, int command) {
    return SourceManager::instance()->isNeedRelease(enumSourceIndex, command);
}

int linux_tv_SourceManager_isNeedSwitchMedia(int fromSource, int toSource, int command) {
    return SourceManager::instance()->isNeedSwitchMedia(fromSource, toSource, command);
}

int linux_tv_SourceManager_isNeedSelectSoucre(int fromSource, int toSource) {
    return SourceManager::instance()->isNeedSelectSoucre(fromSource, toSource);
}

// Display windows

int linux_tv_SourceManager_setWindowRect(KeluRect rect, int mainWindow, int flag) {
    return SourceManager::instance()->setWindowRect(rect, mainWindow, flag);
}

int linux_tv_SourceManager_getWindowRect(KeluRect* rect, int mainWindow) {
    return SourceManager::instance()->getWindowRect(rect, mainWindow);
}

int linux_tv_SourceManager_enableDualDisplay(int enable) {
    return SourceManager::instance()->enableDualDisplay(enable != 0);
}

int linux_tv_SourceManager_setDisplayOnLeft(int left, int mainWindow) {
    return SourceManager::instance()->setDisplayOnLeft(left != 0, mainWindow);
}

int linux_tv_SourceManager_setFocusWindow(int mainWindow) {
    return SourceManager::instance()->setFocusWindow(mainWindow);
}

// The signal

int linux_tv_SourceManager_getTimingInfo(TimingScreen* info) {
    if (info == nullptr) {
        return -1;
    }
    const TimingScreen timing = SourceManager::instance()->getTimingInfo();
    if (timing.width == 0) {
        return -1;
    }
    *info = timing;
    return 0;
}

int linux_tv_SourceManager_getSignalStatus() { return SourceManager::instance()->getSignalStatus(); }

int linux_tv_SourceManager_getOfflineSigStatus(int source) {
    return SourceManager::instance()->getOfflineSigStatus(source);
}

int linux_tv_SourceManager_isDVIMode() { return SourceManager::instance()->isDVIMode(); }

int linux_tv_SourceManager_isMHLStatus() { return SourceManager::instance()->isMHLStatus(); }

int linux_tv_SourceManager_isMHLPortInUse() { return SourceManager::instance()->isMHLPortInUse(); }

int linux_tv_SourceManager_sendRcpKey(int key) { return SourceManager::instance()->sendRcpKey(key); }
