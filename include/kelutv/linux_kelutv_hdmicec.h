/**
 * @file
 * Devices on the HDMI inputs: their list, their keys, and their ports.
 *
 * Every function is one command to the TV base service, which owns all values. It blocks until the service has answered
 * and may be called from any thread. A `bool` travels as 0 or 1. A set command whose link fails is logged as
 * "invoke failure\n".
 */
#ifndef KELUTV_LINUX_KELUTV_HDMICEC_H
#define KELUTV_LINUX_KELUTV_HDMICEC_H

#include <kelutv/export.h>
#include <kelutv/hdmicec_types.h>

#ifdef __cplusplus
#include <vector>

extern "C" {
#endif

/** An external port, as the platform's common library describes it. */
typedef struct _SExtPortPlugInOutInfo SExtPortPlugInOutInfo;

#ifdef __cplusplus
/**
 * Reads the devices, in the service's order; C++ only.
 * Each device is told on standard error.
 * @param deviceList The devices are added behind what it holds; untouched on failure. Not to be used by another thread
 *        meanwhile.
 * @return 0; -1 when the service or the link fails, and for a null `deviceList`, with nothing sent.
 */
KELUTV_API int linux_tv_HdmiCEC_getDeviceListInfo(std::vector<KELU_TV_CEC_DEVICE_INFO_SORTED_S>* deviceList);
#endif

/**
 * Makes a device the active one.
 * @param logicAddr Logical address of the device.
 * @return The value that the service answers with; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_HdmiCEC_selectDevice(int logicAddr);

/**
 * Hands a key to the active device.
 * The key is told on standard error beforehand, without a line end.
 * @param pCecCmdInfo The key and its direction. Must not be null.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_HdmiCEC_sendCecCommand(KELU_CEC_CMD_INFO_S* pCecCmdInfo);

/**
 * Reads which HDMI input has the audio return channel.
 * @return Its number; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_HdmiCEC_getSupportArcPort(void);

/**
 * Finds the external port of the device with a logical address, the first such device of the list.
 * The common library's `coverSrc2Port` turns the HDMI source of the device into a port. Without such a device, or
 * without a list, that is the first HDMI input, told on standard output.
 * @param pPort Receives the port, in every case; handed to `coverSrc2Port` as it is.
 * @param index Logical address of the device; not a position in the list.
 * @return 0, also when there is no such device; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_HdmiCEC_getDevicePortByIndex(SExtPortPlugInOutInfo* pPort, unsigned int index);

#ifdef __cplusplus
}
#endif

#endif
