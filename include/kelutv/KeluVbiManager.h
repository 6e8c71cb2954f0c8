/**
 * @file
 * The class `KeluVbiManager`, which has no C functions.
 */
#pragma once

#include <kelutv/export.h>
#include <kelutv/vbi_types.h>

/**
 * The teletext and vertical-blanking data of the television, and the one function that receives it.
 *
 * Every operation but the delivery is one command to the TV base service without arguments. No calling order is imposed
 * and none is remembered. An operation blocks until the service has answered, may be called from any thread, and writes
 * nothing to the log, save that a command whose link fails is logged as "invoke failure\n".
 *
 * The library does not listen for data by itself: whoever receives the blocks hands them to `VbiDataCallback`.
 */
class KELUTV_API KeluVbiManager {
public:
    /**
     * The one object, made on the first call from any thread and kept until the process ends.
     * @return The object; never null.
     */
    static KeluVbiManager* instance();

    KeluVbiManager(const KeluVbiManager&) = delete;
    KeluVbiManager& operator=(const KeluVbiManager&) = delete;

    /**
     * Initialises the data service.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int Init();

    /**
     * Releases the data service.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int DeInit();

    /**
     * Opens the data stream.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int Open();

    /**
     * Closes the data stream.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int Close();

    /**
     * Installs the function that receives the data, in place of any earlier one, then tells the service.
     * The function is installed before the command is sent and stays installed when the command fails.
     * @param callback The function; null takes the installed one away, yet registers with the service.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int RegistVBIDataCallback(KELU_VBI_DATA_CALLBACK callback);

    /**
     * Takes the installed function away, then tells the service.
     * The function is gone before the command is sent and does not come back when the command fails; a delivery under
     * way on another thread may still be in its call.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int UnRegistVBIDataCallback();

    /**
     * Hands one data block to the installed function, on the calling thread; without one the block is not touched.
     * @param type Kind of the data, passed on.
     * @param vbiData The block, at any alignment: an unsigned 32-bit length in the machine's byte order, then that many
     *        bytes, which are passed on where they are. Must not be null while a function is installed.
     * @param length Not used: the length passed on is that of the block.
     */
    void VbiDataCallback(unsigned int type, void* vbiData, unsigned int length);

private:
    KeluVbiManager() = default;

    KELU_VBI_DATA_CALLBACK mCallback = nullptr;
};
