#include <kelutv/KeluVbiManager.h>
#include <kelutv/commands.h>
#include <kelutv/link/TVBaseClient.h>

#include <cstdint>
#include <cstring>

using android::TVBaseClient;

KeluVbiManager* KeluVbiManager::instance() {
    static KeluVbiManager mObj;
    return &mObj;
}

int KeluVbiManager::Init() { return TVBaseClient::self()->exeCmdSet(CMD_TV_TTX_INIT); }

int KeluVbiManager::DeInit() { return TVBaseClient::self()->exeCmdSet(CMD_TV_TTX_DEINIT); }

int KeluVbiManager::Open() { return TVBaseClient::self()->exeCmdSet(CMD_TV_TTX_OPEN); }

int KeluVbiManager::Close() { return TVBaseClient::self()->exeCmdSet(CMD_TV_TTX_CLOSE); }

int KeluVbiManager::RegistVBIDataCallback(KELU_VBI_DATA_CALLBACK callback) {
    // Blocks may come in while the callback changes. Each side touches the plain pointer once, whole.
    __atomic_store_n(&mCallback, callback, __ATOMIC_RELEASE);
    return TVBaseClient::self()->exeCmdSet(CMD_TV_TTX_REGISTCALLBACK);
}

int KeluVbiManager::UnRegistVBIDataCallback() {
    __atomic_store_n(&mCallback, nullptr, __ATOMIC_RELEASE);
    return TVBaseClient::self()->exeCmdSet(CMD_TV_TTX_UNREGISTCALLBACK);
}

void KeluVbiManager::VbiDataCallback(unsigned int type, void* vbiData, unsigned int /*length*/) {
    const KELU_VBI_DATA_CALLBACK callback = __atomic_load_n(&mCallback, __ATOMIC_ACQUIRE);
    if (callback == nullptr) {
        return;
    }
    std::uint32_t payloadLength = 0;
    std::memcpy(&payloadLength, vbiData, sizeof(payloadLength));
    callback(type, static_cast<char*>(vbiData) + sizeof(payloadLength), payloadLength);
}
