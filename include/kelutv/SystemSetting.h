#pragma once

#include <kelutv/export.h>

/**
 * The settings of the television as a whole.
 *
 * Every operation is one command to the TV base service, which owns all values; the object keeps none. A `bool` travels
 * as 0 or 1. An operation blocks until the service has answered, may be called from any thread, and writes nothing to
 * the log unless it says so, save that a set command whose link fails is logged as "invoke failure\n".
 */
class KELUTV_API SystemSetting {
public:
    /** The one object, made on the first call from any thread and kept until the process ends. */
    static SystemSetting* instance();

    SystemSetting(const SystemSetting&) = delete;
    SystemSetting& operator=(const SystemSetting&) = delete;

    /**
     * Hands a command to the player of digital television.
     * Sends `CMD_SYSTEM_DTV_CHANGE_CHANNEL`: `cmd`, `dataSize`, then the bytes when there are any. Success and failure
     * are logged under the tag "TVBASEMW@SystemSetting"; there is no "invoke failure\n".
     * @param cmd Command as the service numbers it.
     * @param pData What the command carries; may be null, which sends no bytes.
     * @param dataSize Its size in bytes, sent as it is; below 1 no bytes are sent.
     * @return 0; -1 when the service or the link fails.
     */
    int dtvControl(int cmd, void* pData, int dataSize);

private:
    SystemSetting() = default;
};
