#include <kelutv/HdmiCEC.h>
#include <kelutv/linux_kelutv_hdmicec.h>
#include <kelutv/source_types.h>

#include <kqcommon/ExtPort.h>

#include <algorithm>
#include <cstdio>

using Device = KELU_TV_CEC_DEVICE_INFO_SORTED_S;

namespace {

/** The HDMI source on a port; the number of the port is not checked. */
KELU_MW_SRC_E sourceOn(unsigned int port) {
    return static_cast<KELU_MW_SRC_E>(static_cast<int>(static_cast<unsigned int>(KELU_MW_SRC_HDMI1) + port));
}

/** The source of the first device with this logical address; the first HDMI input when there is none. */
KELU_MW_SRC_E sourceOf(const std::vector<Device>& devices, unsigned int logAddr) {
    const auto found = std::find_if(devices.begin(), devices.end(),
                                    [logAddr](const Device& device) { return device.logAddr == logAddr; });
    if (found == devices.end()) {
        std::printf("%s not find\n", "linux_tv_HdmiCEC_getDevicePortByIndex");
        return KELU_MW_SRC_HDMI1;
    }
    return sourceOn(found->hdmiDevPort);
}

} // namespace

HdmiCEC::HdmiCEC() = default;

HdmiCEC* HdmiCEC::instance() {
    static HdmiCEC mObj;
    return &mObj;
}

int linux_tv_HdmiCEC_getDeviceListInfo(std::vector<Device>* deviceList) {
    return deviceList == nullptr ? -1 : HdmiCEC::instance()->getDeviceListInfo(deviceList);
}

int linux_tv_HdmiCEC_selectDevice(int logicAddr) { return HdmiCEC::instance()->selectDevice(logicAddr); }

int linux_tv_HdmiCEC_sendCecCommand(KELU_CEC_CMD_INFO_S* pCecCmdInfo) {
    return HdmiCEC::instance()->sendCecCmd(pCecCmdInfo);
}

int linux_tv_HdmiCEC_getSupportArcPort() { return HdmiCEC::instance()->getSupportArcPort(); }

int linux_tv_HdmiCEC_getDevicePortByIndex(SExtPortPlugInOutInfo* pPort, unsigned int index) {
    std::vector<Device> devices;
    const int result = linux_tv_HdmiCEC_getDeviceListInfo(&devices);
    coverSrc2Port(sourceOf(devices, index), pPort);
    return result;
}
