#include <kelutv/linux_kelutv_systemsetting.h>

/** Sets and reads items in every way there is; the exit code tells whether all had the preloaded answers. */
int main() {
    int list[254] = {};
    int size = 0;
    int value = 0;
    bool flag = false;
    char text[1] = {'x'};
    const bool set = linux_tv_SystemSetting_setLanguage(3) == 5 && linux_tv_SystemSetting_setScreenOn(true) == 5 &&
                     linux_tv_SystemSetting_setSingleCallBack(4, true) == 5;
    const bool read = linux_tv_SystemSetting_getLanguage() == 1 &&
                      linux_tv_SystemSetting_getLanguageList(list, &size) == 6 && size == 1 && list[0] == 7 &&
                      linux_tv_SystemSetting_getSubtitleLanList(2, list, &size) == 6 &&
                      linux_tv_SystemSetting_getScreenOn(&flag) == 6 && flag &&
                      linux_tv_SystemSetting_getSocPlatformInfo(&value) == 6 && value == 1;
    const bool told = linux_tv_SystemSetting_getMiddlewareVersion(text) == 8 && text[0] == '\0';
    return set && read && told ? 0 : 1;
}
