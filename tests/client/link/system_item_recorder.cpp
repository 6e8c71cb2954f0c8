#include <kelutv/linux_kelutv_systemsetting.h>

#include <cstdio>

// Preloaded in place of the library's own: each prints its arguments and answers by itself.

int linux_tv_SystemSetting_setSystemItemValue(int cmdID, int param1, int param2, int param3, int param4) {
    std::printf("set %d %d %d %d %d\n", cmdID, param1, param2, param3, param4);
    return 5;
}

int linux_tv_SystemSetting_getSystemItemValue(int cmdID, int param1, int param2, int* pData) {
    std::printf("get %d %d %d\n", cmdID, param1, param2);
    pData[0] = 1;
    pData[1] = 7;
    return 6;
}

int linux_tv_SystemSetting_getSystemItemStrValue(int cmdID, int param1, int param2, char* data) {
    std::printf("text %d %d %d\n", cmdID, param1, param2);
    data[0] = '\0';
    return 8;
}
