#include "Failures.h"
#include "Marshalling.h"

#include <kelutv/HdmiCEC.h>
#include <kelutv/commands.h>
#include <kelutv/link/TVBaseClient.h>

#include <binder/Parcel.h>

#include <cstdio>

using android::Parcel;
using android::TVBaseClient;
using namespace kelutv::internal;

using Device = KELU_TV_CEC_DEVICE_INFO_SORTED_S;

namespace {

bool readDevice(const Parcel& reply, Device& device) {
    return readWord(reply, device.logAddr) && readWord(reply, device.hdmiDevPort) && readText(reply, device.deVName) &&
           readText(reply, device.phyAddr) && readText(reply, device.hdmiListText);
}

/** Adds the device to the list, which takes its texts. Written out, since moving a record takes more code. */
void take(std::vector<Device>& devices, Device& device) {
    Device& added = devices.emplace_back();
    added.logAddr = device.logAddr;
    added.hdmiDevPort = device.hdmiDevPort;
    added.deVName.swap(device.deVName);
    added.phyAddr.swap(device.phyAddr);
    added.hdmiListText.swap(device.hdmiListText);
}

void tell(const Device& device) {
    std::fprintf(stderr, "D/HdmiCEC %s() --> Device: logAddr = %d, port = %d, name = %s, phyAddr = %s, text = %s\n",
                 "getDeviceListInfo", static_cast<int>(device.logAddr), static_cast<int>(device.hdmiDevPort),
                 device.deVName.c_str(), device.phyAddr.c_str(), device.hdmiListText.c_str());
}

} // namespace

int HdmiCEC::sendCecCmd(KELU_CEC_CMD_INFO_S const* pCecCmdInfo) {
    const int key = pCecCmdInfo->IrCommand;
    const int pressed = pCecCmdInfo->KeyPressed;
    std::fprintf(stderr, "D/HdmiCEC %s() KeyEvent: ir code: 0x%x, Down(%d).", "sendCecCmd",
                 static_cast<unsigned int>(key), pressed);
    return TVBaseClient::self()->exeCmdSet(CMD_CEC_SEND_CEC_COMMAND, key, pressed);
}

int HdmiCEC::appReadyForCec() { return TVBaseClient::self()->exeCmdSet(CMD_CEC_APP_READY); }

int HdmiCEC::selectDevice(int logicAddr) {
    return TVBaseClient::self()->exeCmdGet(CMD_CEC_ACTIVATE_CEC_DEVICE, logicAddr);
}

int HdmiCEC::getPlayingDeviceLogAddr() { return TVBaseClient::self()->exeCmdGet(CMD_CEC_GET_PLAYING_DEVICE_LOGADDR); }

int HdmiCEC::getDeviceListInfo(std::vector<Device>* deviceList) {
    Parcel reply;
    if (TVBaseClient::self()->exeCmdGet(CMD_CEC_GETDEVICELISTALLINFO, reply) != 0) {
        return -1;
    }
    allocating([&] {
        for (Device device; readDevice(reply, device);) {
            tell(device);
            take(*deviceList, device);
        }
    });
    return 0;
}

bool HdmiCEC::isArcSupported() { return TVBaseClient::self()->exeCmdGet(CMD_CEC_GETARCSUPPORTED) != 0; }

bool HdmiCEC::GetARCActiveStatus() { return TVBaseClient::self()->exeCmdGet(CMD_CEC_GETARCCONNECTSTATE) != 0; }

int HdmiCEC::getSupportArcPort() { return TVBaseClient::self()->exeCmdGet(CMD_CEC_GETARCPORT); }
