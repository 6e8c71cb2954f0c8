#include <kelutv/KeluVbiCtrl.h>
#include <kelutv/KeluVbiManager.h>

int CKeluVbiCtrl::init() { return KeluVbiManager::instance()->Init(); }

int CKeluVbiCtrl::deInit() { return KeluVbiManager::instance()->DeInit(); }

int CKeluVbiCtrl::open() { return KeluVbiManager::instance()->Open(); }

int CKeluVbiCtrl::close() { return KeluVbiManager::instance()->Close(); }

int CKeluVbiCtrl::registVbiDataCB(KELU_VBI_DATA_CALLBACK callback) {
    return KeluVbiManager::instance()->RegistVBIDataCallback(callback);
}

int CKeluVbiCtrl::unRegistDataCB() { return KeluVbiManager::instance()->UnRegistVBIDataCallback(); }
