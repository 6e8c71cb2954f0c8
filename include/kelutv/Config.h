/**
 * @file
 * The class `CConfig`, which has no C functions.
 */
#pragma once

#include <kelutv/config_types.h>
#include <kelutv/export.h>

/**
 * The switches of HDMI control that the service keeps: CEC, powering devices on and off, the audio return channel.
 *
 * Every operation is one command to the TV base service, which owns all values; the object keeps none, and applications
 * make one wherever they need it. A `bool` travels as 0 or 1. An operation blocks until the service has answered, may
 * be called from any thread, and writes nothing to the log, save that a set command whose link fails is logged as
 * "invoke failure\n". Two of the getters return a `bool` that is true for a failure.
 */
class KELUTV_API CConfig {
public:
    /**
     * Reads whether CEC is on.
     * @param aMode Receives true for anything but the service's 0; untouched on failure.
     * @return 0; -1 when the service or the link fails or the service gave -1, and for a null `aMode`, with nothing
     * sent.
     */
    int GetCECSwitchMode(bool* aMode);

    /**
     * Turns CEC on or off.
     * @param aMode True turns it on.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int SetCECSwitchMode(bool aMode);

    /**
     * Reads whether the automatic power-off of CEC devices is on.
     * @param aSwitch Receives true for anything but the service's 0; untouched on failure.
     * @return False; true when the service or the link fails or the service gave -1, and for a null `aSwitch`, with
     * nothing sent.
     */
    bool GetCECDeviceAutoPowerOff(bool* aSwitch);

    /**
     * Switches the automatic power-off of CEC devices on or off.
     * @param aSwitch True switches it on.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int SetCECDeviceAutoPowerOff(bool aSwitch);

    /**
     * Reads whether the automatic power-on of the television by CEC is on.
     * @param aSwitch Receives true for anything but the service's 0; untouched on failure.
     * @return False; true when the service or the link fails or the service gave -1, and for a null `aSwitch`, with
     * nothing sent.
     */
    bool GetCECTVAutoPowerOn(bool* aSwitch);

    /**
     * Switches the automatic power-on of the television by CEC on or off.
     * @param aSwitch True switches it on.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int SetCECTVAutoPowerOn(bool aSwitch);

    /**
     * Reads whether the automatic power-off of the television by CEC is on.
     * @param aSwitch Receives true for anything but the service's 0; untouched on failure.
     * @return 0; -1 when the service or the link fails or the service gave -1, and for a null `aSwitch`, with nothing
     * sent.
     */
    int GetCECTvAutoPowerOff(bool* aSwitch);

    /**
     * Switches the automatic power-off of the television by CEC on or off.
     * @param aSwitch True switches it on.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int SetCECTvAutoPowerOff(bool aSwitch);

    /**
     * Reads whether the audio return channel is on.
     * @param aEnable Receives true for anything but the service's 0; untouched on failure.
     * @return 0; -1 when the service or the link fails or the service gave -1, and for a null `aEnable`, with nothing
     * sent.
     */
    int GetARCEnable(bool* aEnable);

    /**
     * Turns the audio return channel on or off.
     * @param aEnable True turns it on.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int SetARCEnable(bool aEnable);

    /**
     * Reads the format of the sound on the audio return channel.
     * @param aArcMode Receives the integer that the service gave; untouched on failure.
     * @return 0; -1 when the service or the link fails or the service gave -1, and for a null `aArcMode`, with nothing
     * sent.
     */
    int GetARCMode(KELU_MW_SND_ARC_MODE_E* aArcMode);

    /**
     * Chooses the format of the sound on the audio return channel.
     * @param aArcMode One of `KELU_MW_SND_ARC_MODE_E`.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int SetARCMode(KELU_MW_SND_ARC_MODE_E aArcMode);
};
