#include <kelutv/KeluEEP.h>
#include <kelutv/SystemSetting.h>

#include <android/log.h>

namespace {

constexpr char kTag[] = "TVBASECLi@CKeluEEP";

/** The addresses at which an area's accesses may start, both ends included. */
struct Area {
    int first;
    int last;
};

constexpr Area kTvArea{0x8A00, 0x8BFC};
constexpr Area kNetworkArea{0x8C00, 0x8DFC};
constexpr Area kAppArea{0x8E00, 0x8FFC};
constexpr Area kBtArea{0x9000, 0x91FC};
constexpr Area kAtArea{0xA400, 0xA5FC};

bool mayStartAt(int address, const Area& area, const char* operation) {
    if (address >= area.first && address <= area.last) {
        return true;
    }
    __android_log_print(ANDROID_LOG_INFO, kTag, "function = %s,u32Address cross-border,so return ", operation);
    return false;
}

int readByte(const Area& area, int address, const char* operation) {
    return mayStartAt(address, area, operation) ? SystemSetting::instance()->getFlashEepByte(address) : -1;
}

int readBlock(const Area& area, int address, int* buffer, int length, const char* operation) {
    if (!mayStartAt(address, area, operation) || buffer == nullptr) {
        return -1;
    }
    return SystemSetting::instance()->getFlashEepMulti(address, buffer, length);
}

int writeByte(const Area& area, int address, int value, const char* operation) {
    return mayStartAt(address, area, operation) ? SystemSetting::instance()->setFlashEepByte(address, value) : -1;
}

int writeBlock(const Area& area, int address, int* buffer, int length, const char* operation) {
    if (!mayStartAt(address, area, operation) || buffer == nullptr) {
        return -1;
    }
    return SystemSetting::instance()->setFlashEepMulti(address, buffer, length);
}

} // namespace

CKeluEEP* CKeluEEP::instance() {
    static CKeluEEP mObj;
    return &mObj;
}

// The TV area

int CKeluEEP::GetTVFlashEepByte(int u32Address) { return readByte(kTvArea, u32Address, __func__); }

int CKeluEEP::GetTVFlashEepMulti(int u32Address, int u32Len, int* pBuf) {
    return readBlock(kTvArea, u32Address, pBuf, u32Len, __func__);
}

int CKeluEEP::SetTVFlashEepByte(int u32Address, int value) { return writeByte(kTvArea, u32Address, value, __func__); }

int CKeluEEP::SetTVFlashEepMulti(int u32Address, int* pBuf, int u32Len) {
    return writeBlock(kTvArea, u32Address, pBuf, u32Len, __func__);
}

// The Network area

int CKeluEEP::GetNetworkFlashEepByte(int u32Address) { return readByte(kNetworkArea, u32Address, __func__); }

int CKeluEEP::GetNetworkFlashEepMulti(int u32Address, int u32Len, int* pBuf) {
    return readBlock(kNetworkArea, u32Address, pBuf, u32Len, __func__);
}

int CKeluEEP::SetNetworkFlashEepByte(int u32Address, int value) {
    return writeByte(kNetworkArea, u32Address, value, __func__);
}

int CKeluEEP::SetNetworkFlashEepMulti(int u32Address, int* pBuf, int u32Len) {
    return writeBlock(kNetworkArea, u32Address, pBuf, u32Len, __func__);
}

// The APP area

int CKeluEEP::GetAPPFlashEepByte(int u32Address) { return readByte(kAppArea, u32Address, __func__); }

int CKeluEEP::GetAPPFlashEepMulti(int u32Address, int u32Len, int* pBuf) {
    return readBlock(kAppArea, u32Address, pBuf, u32Len, __func__);
}

int CKeluEEP::SetAPPFlashEepByte(int u32Address, int value) { return writeByte(kAppArea, u32Address, value, __func__); }

int CKeluEEP::SetAPPFlashEepMulti(int u32Address, int* pBuf, int u32Len) {
    return writeBlock(kAppArea, u32Address, pBuf, u32Len, __func__);
}

// The BT area

int CKeluEEP::GetBTFlashEepByte(int u32Address) { return readByte(kBtArea, u32Address, __func__); }

int CKeluEEP::GetBTFlashEepMulti(int u32Address, int u32Len, int* pBuf) {
    return readBlock(kBtArea, u32Address, pBuf, u32Len, __func__);
}

int CKeluEEP::SetBTFlashEepByte(int u32Address, int value) { return writeByte(kBtArea, u32Address, value, __func__); }

int CKeluEEP::SetBTFlashEepMulti(int u32Address, int* pBuf, int u32Len) {
    return writeBlock(kBtArea, u32Address, pBuf, u32Len, __func__);
}

// The AT area

int CKeluEEP::GetATFlashEepByte(int u32Address) { return readByte(kAtArea, u32Address, __func__); }

int CKeluEEP::GetATFlashEepMulti(int u32Address, int u32Len, int* pBuf) {
    return readBlock(kAtArea, u32Address, pBuf, u32Len, __func__);
}

int CKeluEEP::SetATFlashEepByte(int u32Address, int value) { return writeByte(kAtArea, u32Address, value, __func__); }

int CKeluEEP::SetATFlashEepMulti(int u32Address, int* pBuf, int u32Len) {
    return writeBlock(kAtArea, u32Address, pBuf, u32Len, __func__);
}

// All areas

int CKeluEEP::SetFlashEepFlush() { return SystemSetting::instance()->setFlashEepFlush(); }
