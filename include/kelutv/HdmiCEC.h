/**
 * @file
 * The class `HdmiCEC`; its C functions are in linux_kelutv_hdmicec.h.
 */
#pragma once

#include <kelutv/export.h>
#include <kelutv/hdmicec_types.h>

#include <vector>

/**
 * Devices on the HDMI inputs: their list, their keys, which one plays, and the audio return channel.
 *
 * Every operation is one command to the TV base service, which owns all values; the object keeps none. A `bool` travels
 * as 0 or 1. An operation blocks until the service has answered, may be called from any thread, and writes nothing to
 * the log, save that a set command whose link fails is logged as "invoke failure\n".
 */
class KELUTV_API HdmiCEC {
public:
    /**
     * The one object, made on the first call from any thread and kept until the process ends.
     * @return The object; never null.
     */
    static HdmiCEC* instance();

    HdmiCEC(const HdmiCEC&) = delete;
    HdmiCEC& operator=(const HdmiCEC&) = delete;

    /**
     * Hands a key to the active device.
     * The key is told on standard error beforehand, without a line end.
     * @param pCecCmdInfo The key and its direction. Must not be null.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int sendCecCmd(KELU_CEC_CMD_INFO_S const* pCecCmdInfo);

    /**
     * Tells the service that the application is ready for CEC.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int appReadyForCec();

    /**
     * Makes a device the active one.
     * @param logicAddr Logical address of the device.
     * @return The value that the service answers with; -1 when the service or the link fails.
     */
    int selectDevice(int logicAddr);

    /**
     * Reads which device is playing.
     * @return Its logical address; -1 when the service or the link fails.
     */
    int getPlayingDeviceLogAddr();

    /**
     * Reads the devices, in the service's order.
     * Each device of the answer is told on standard error; one that the answer breaks off in is left out.
     * @param deviceList The devices are added behind what it holds; untouched on failure. Not to be used by another
     * thread meanwhile. Must not be null.
     * @return 0; -1 when the service or the link fails.
     */
    int getDeviceListInfo(std::vector<KELU_TV_CEC_DEVICE_INFO_SORTED_S>* deviceList);

    /**
     * Tells whether there is an audio return channel.
     * @return False for the service's 0; true for any other answer, a failure included.
     */
    bool isArcSupported();

    /**
     * Tells whether the audio return channel is in use.
     * @return False for the service's 0; true for any other answer, a failure included.
     */
    bool GetARCActiveStatus();

    /**
     * Reads which HDMI input has the audio return channel.
     * @return Its number; -1 when the service or the link fails.
     */
    int getSupportArcPort();

private:
    HdmiCEC();
};
