#include "Marshalling.h"

#include <kelutv/items.h>
#include <kelutv/linux_kelutv_factory.h>
#include <kelutv/linux_kelutv_hotel.h>

using namespace kelutv::internal;

namespace {

ItemAnswer readItem(int item) {
    ItemAnswer answer;
    answer.result = linux_tv_Factory_getFactoryItemValue(item, 0, 0, answer.values.data());
    return answer;
}

int setItem(int item, int param1, int param2 = 0) {
    return linux_tv_Factory_setFactoryItemValue(item, param1, param2, 0, 0);
}

} // namespace

// Hotel mode and keypad

int SetHotelEnable(bool enable) { return setItem(CMDID_FACTORY_SET_HOTEL_ENABLE, enable); }

int GetHotelEnable(bool* pEnable) { return storeFlag(readItem(CMDID_FACTORY_GET_HOTEL_ENABLE), pEnable); }

int SetHotelKeypadEnable(bool enable) { return setItem(CMDID_FACTORY_SET_HOTEL_KEYPAD, enable); }

int GetHotelKeypadEnable(bool* pEnable) { return storeFlag(readItem(CMDID_FACTORY_GET_HOTEL_KEYPAD), pEnable); }

int SetHotelSetupMenuEnable(bool enable) { return setItem(CMDID_FACTORY_SET_HOTEL_SETUP_MENU_ENABLE, enable); }

int GetHotelSetupMenuEnable(bool* pEnable) {
    return storeFlag(readItem(CMDID_FACTORY_GET_HOTEL_SETUP_MENU_ENABLE), pEnable);
}

// Volume, source and channel

int SetHotelMaxVolume(int volume) { return setItem(CMDID_FACTORY_SET_HOTEL_MAX_VOLUME, volume); }

int GetHotelMaxVolume(int* pVolume) { return storeValue(readItem(CMDID_FACTORY_GET_HOTEL_MAX_VOLUME), pVolume); }

int SetHotelBootVolume(int volume) { return setItem(CMDID_FACTORY_SET_HOTEL_BOOT_VOLUME, volume); }

int GetHotelBootVolume(int* pVolume) { return storeValue(readItem(CMDID_FACTORY_GET_HOTEL_BOOT_VOLUME), pVolume); }

int SetHotelBootSrc(int src) { return setItem(CMDID_FACTORY_SET_HOTEL_BOOT_SRC, src); }

int GetHotelBootSrc(int* pSrc) { return storeValue(readItem(CMDID_FACTORY_GET_HOTEL_BOOT_SRC), pSrc); }

int SetHotelBootChannel(int tvmode, int channel) {
    return setItem(CMDID_FACTORY_SET_HOTEL_BOOT_CHANNEL, tvmode, channel);
}

int GetHotelBootChannel(int* pTvmode, int* pChannel) {
    const ItemAnswer answer = readItem(CMDID_FACTORY_GET_HOTEL_BOOT_CHANNEL);
    storeIfGiven(pTvmode, answer.values[0]);
    storeIfGiven(pChannel, answer.values[1]);
    return answer.result;
}

// Hotel data

int RestoreHotelSetting() { return setItem(CMDID_FACTORY_SET_HOTEL_RESTORE, 0); }

int BackupHotelData2USB(const char* pName) { return linux_tv_Factory_operateFlashEEPROM(KELU_TV_EEFLASH_BAK, pName); }

int RestoreHotelData2EEP(const char* pName) { return linux_tv_Factory_operateFlashEEPROM(KELU_TV_EEFLASH_ALL, pName); }
