/**
 * @file
 * The class `CKeluVbiCtrl`, which has no C functions.
 */
#pragma once

#include <kelutv/export.h>
#include <kelutv/vbi_types.h>

/**
 * Teletext and vertical-blanking data for applications: each operation is that of `KeluVbiManager`, result unchanged.
 *
 * Objects hold nothing, so that any will do; there is one registered function in the process, whichever registered it.
 */
class KELUTV_API CKeluVbiCtrl {
public:
    /**
     * Initialises the data service.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int init();

    /**
     * Releases the data service.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int deInit();

    /**
     * Opens the data stream.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int open();

    /**
     * Closes the data stream.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int close();

    /**
     * Installs the function that receives the data, in place of any earlier one.
     * The function stays installed when the command fails.
     * @param callback The function, as for `KeluVbiManager::RegistVBIDataCallback`.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int registVbiDataCB(KELU_VBI_DATA_CALLBACK callback);

    /**
     * Takes the installed function away.
     * The function is gone also when the command fails.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int unRegistDataCB();
};
