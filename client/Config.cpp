#include <kelutv/Config.h>
#include <kelutv/commands.h>
#include <kelutv/link/TVBaseClient.h>

using android::TVBaseClient;

namespace {

/** Stores the value that a command gives; false, with nothing stored, for a failure, of which -1 is the sign. */
template <typename T> bool fetch(int command, T* target) {
    if (target == nullptr) {
        return false;
    }
    const int value = TVBaseClient::self()->exeCmdGet(command);
    if (value == -1) {
        return false;
    }
    *target = static_cast<T>(value);
    return true;
}

} // namespace

int CConfig::GetCECSwitchMode(bool* aMode) { return fetch(CMD_CONFIG_GET_CECSWITCHMODE, aMode) ? 0 : -1; }

int CConfig::SetCECSwitchMode(bool aMode) {
    return TVBaseClient::self()->exeCmdSet(CMD_CONFIG_SET_CECSWITCHMODE, aMode);
}

bool CConfig::GetCECDeviceAutoPowerOff(bool* aSwitch) { return !fetch(CMD_CONFIG_GET_DEVICEAUTO_POWEROFF, aSwitch); }

int CConfig::SetCECDeviceAutoPowerOff(bool aSwitch) {
    return TVBaseClient::self()->exeCmdSet(CMD_CONFIG_SET_DEVICEAUTO_POWEROFF, aSwitch);
}

bool CConfig::GetCECTVAutoPowerOn(bool* aSwitch) { return !fetch(CMD_CONFIG_GET_TVAUTO_POWERON, aSwitch); }

int CConfig::SetCECTVAutoPowerOn(bool aSwitch) {
    return TVBaseClient::self()->exeCmdSet(CMD_CONFIG_SET_TVAUTO_POWERON, aSwitch);
}

int CConfig::GetCECTvAutoPowerOff(bool* aSwitch) { return fetch(CMD_CONFIG_GET_TVAUTO_POWEROFF, aSwitch) ? 0 : -1; }

int CConfig::SetCECTvAutoPowerOff(bool aSwitch) {
    return TVBaseClient::self()->exeCmdSet(CMD_CONFIG_SET_TVAUTO_POWEROFF, aSwitch);
}

int CConfig::GetARCEnable(bool* aEnable) { return fetch(CMD_CONFIG_GET_ARCENABLE, aEnable) ? 0 : -1; }

int CConfig::SetARCEnable(bool aEnable) { return TVBaseClient::self()->exeCmdSet(CMD_CONFIG_SET_ARCENABLE, aEnable); }

int CConfig::GetARCMode(KELU_MW_SND_ARC_MODE_E* aArcMode) { return fetch(CMD_CONFIG_GET_ARCMODE, aArcMode) ? 0 : -1; }

int CConfig::SetARCMode(KELU_MW_SND_ARC_MODE_E aArcMode) {
    return TVBaseClient::self()->exeCmdSet(CMD_CONFIG_SET_ARCMODE, aArcMode);
}
