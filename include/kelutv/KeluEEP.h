/**
 * @file
 * The class `CKeluEEP`, which has no C functions.
 */
#pragma once

#include <kelutv/export.h>

/**
 * Five guarded areas of the flash EEPROM.
 *
 * | area | first address | last address |
 * |---|---|---|
 * | TV | 0x8A00 | 0x8BFC |
 * | Network | 0x8C00 | 0x8DFC |
 * | APP | 0x8E00 | 0x8FFC |
 * | BT | 0x9000 | 0x91FC |
 * | AT | 0xA400 | 0xA5FC |
 *
 * An operation whose start address lies outside its area sends nothing, gives -1 and is logged at info priority under
 * the tag "TVBASECLi@CKeluEEP" as "function = NAME,u32Address cross-border,so return ", NAME being the operation's and
 * the blank at the end part of the text. Only the start address is tested: a block may run past the end of its area.
 *
 * Within its area an operation is that of `SystemSetting` on the same address, result unchanged. One int carries one
 * byte of the EEPROM. An operation blocks until the service has answered and may be called from any thread. Objects
 * hold nothing, so that any will do.
 */
class KELUTV_API CKeluEEP {
public:
    /**
     * One object for all, made on the first call from any thread and kept until the process ends.
     * @return The object; never null.
     */
    static CKeluEEP* instance();

    /**
     * @name The television's own area, 0x8A00 to 0x8BFC
     * @{
     */

    /**
     * Reads one byte of the TV area.
     * @param u32Address Address, 35328 to 35836.
     * @return The byte; -1 for an address outside the area and when the service or the link fails.
     */
    int GetTVFlashEepByte(int u32Address);

    /**
     * Reads a block that starts in the TV area.
     * @param u32Address Address of the first byte, 35328 to 35836.
     * @param u32Len Number of bytes, not limited here.
     * @param pBuf Room for `u32Len` ints; untouched on failure.
     * @return 0; -1 for an address outside the area, for a null `pBuf` (not logged), and when the service or the link
     * fails.
     */
    int GetTVFlashEepMulti(int u32Address, int u32Len, int* pBuf);

    /**
     * Writes one byte of the TV area.
     * @param u32Address Address, 35328 to 35836.
     * @param value The byte.
     * @return The service's result, 0 for success; -1 for an address outside the area and when the link fails.
     */
    int SetTVFlashEepByte(int u32Address, int value);

    /**
     * Writes a block that starts in the TV area.
     * @param u32Address Address of the first byte, 35328 to 35836.
     * @param pBuf `u32Len` ints, one byte each.
     * @param u32Len Number of bytes, not limited here.
     * @return The service's result, 0 for success; -1 for an address outside the area, for a null `pBuf` (not logged),
     * and when the link fails.
     */
    int SetTVFlashEepMulti(int u32Address, int* pBuf, int u32Len);

    /** @} */

    /**
     * @name The network area, 0x8C00 to 0x8DFC
     * @{
     */

    /**
     * Reads one byte of the Network area.
     * @param u32Address Address, 35840 to 36348.
     * @return The byte; -1 for an address outside the area and when the service or the link fails.
     */
    int GetNetworkFlashEepByte(int u32Address);

    /**
     * Reads a block that starts in the Network area.
     * @param u32Address Address of the first byte, 35840 to 36348.
     * @param u32Len Number of bytes, not limited here.
     * @param pBuf Room for `u32Len` ints; untouched on failure.
     * @return 0; -1 for an address outside the area, for a null `pBuf` (not logged), and when the service or the link
     * fails.
     */
    int GetNetworkFlashEepMulti(int u32Address, int u32Len, int* pBuf);

    /**
     * Writes one byte of the Network area.
     * @param u32Address Address, 35840 to 36348.
     * @param value The byte.
     * @return The service's result, 0 for success; -1 for an address outside the area and when the link fails.
     */
    int SetNetworkFlashEepByte(int u32Address, int value);

    /**
     * Writes a block that starts in the Network area.
     * @param u32Address Address of the first byte, 35840 to 36348.
     * @param pBuf `u32Len` ints, one byte each.
     * @param u32Len Number of bytes, not limited here.
     * @return The service's result, 0 for success; -1 for an address outside the area, for a null `pBuf` (not logged),
     * and when the link fails.
     */
    int SetNetworkFlashEepMulti(int u32Address, int* pBuf, int u32Len);

    /** @} */

    /**
     * @name The applications' area, 0x8E00 to 0x8FFC
     * @{
     */

    /**
     * Reads one byte of the APP area.
     * @param u32Address Address, 36352 to 36860.
     * @return The byte; -1 for an address outside the area and when the service or the link fails.
     */
    int GetAPPFlashEepByte(int u32Address);

    /**
     * Reads a block that starts in the APP area.
     * @param u32Address Address of the first byte, 36352 to 36860.
     * @param u32Len Number of bytes, not limited here.
     * @param pBuf Room for `u32Len` ints; untouched on failure.
     * @return 0; -1 for an address outside the area, for a null `pBuf` (not logged), and when the service or the link
     * fails.
     */
    int GetAPPFlashEepMulti(int u32Address, int u32Len, int* pBuf);

    /**
     * Writes one byte of the APP area.
     * @param u32Address Address, 36352 to 36860.
     * @param value The byte.
     * @return The service's result, 0 for success; -1 for an address outside the area and when the link fails.
     */
    int SetAPPFlashEepByte(int u32Address, int value);

    /**
     * Writes a block that starts in the APP area.
     * @param u32Address Address of the first byte, 36352 to 36860.
     * @param pBuf `u32Len` ints, one byte each.
     * @param u32Len Number of bytes, not limited here.
     * @return The service's result, 0 for success; -1 for an address outside the area, for a null `pBuf` (not logged),
     * and when the link fails.
     */
    int SetAPPFlashEepMulti(int u32Address, int* pBuf, int u32Len);

    /** @} */

    /**
     * @name The Bluetooth area, 0x9000 to 0x91FC
     * @{
     */

    /**
     * Reads one byte of the BT area.
     * @param u32Address Address, 36864 to 37372.
     * @return The byte; -1 for an address outside the area and when the service or the link fails.
     */
    int GetBTFlashEepByte(int u32Address);

    /**
     * Reads a block that starts in the BT area.
     * @param u32Address Address of the first byte, 36864 to 37372.
     * @param u32Len Number of bytes, not limited here.
     * @param pBuf Room for `u32Len` ints; untouched on failure.
     * @return 0; -1 for an address outside the area, for a null `pBuf` (not logged), and when the service or the link
     * fails.
     */
    int GetBTFlashEepMulti(int u32Address, int u32Len, int* pBuf);

    /**
     * Writes one byte of the BT area.
     * @param u32Address Address, 36864 to 37372.
     * @param value The byte.
     * @return The service's result, 0 for success; -1 for an address outside the area and when the link fails.
     */
    int SetBTFlashEepByte(int u32Address, int value);

    /**
     * Writes a block that starts in the BT area.
     * @param u32Address Address of the first byte, 36864 to 37372.
     * @param pBuf `u32Len` ints, one byte each.
     * @param u32Len Number of bytes, not limited here.
     * @return The service's result, 0 for success; -1 for an address outside the area, for a null `pBuf` (not logged),
     * and when the link fails.
     */
    int SetBTFlashEepMulti(int u32Address, int* pBuf, int u32Len);

    /** @} */

    /**
     * @name The AT area, 0xA400 to 0xA5FC
     * @{
     */

    /**
     * Reads one byte of the AT area.
     * @param u32Address Address, 41984 to 42492.
     * @return The byte; -1 for an address outside the area and when the service or the link fails.
     */
    int GetATFlashEepByte(int u32Address);

    /**
     * Reads a block that starts in the AT area.
     * @param u32Address Address of the first byte, 41984 to 42492.
     * @param u32Len Number of bytes, not limited here.
     * @param pBuf Room for `u32Len` ints; untouched on failure.
     * @return 0; -1 for an address outside the area, for a null `pBuf` (not logged), and when the service or the link
     * fails.
     */
    int GetATFlashEepMulti(int u32Address, int u32Len, int* pBuf);

    /**
     * Writes one byte of the AT area.
     * @param u32Address Address, 41984 to 42492.
     * @param value The byte.
     * @return The service's result, 0 for success; -1 for an address outside the area and when the link fails.
     */
    int SetATFlashEepByte(int u32Address, int value);

    /**
     * Writes a block that starts in the AT area.
     * @param u32Address Address of the first byte, 41984 to 42492.
     * @param pBuf `u32Len` ints, one byte each.
     * @param u32Len Number of bytes, not limited here.
     * @return The service's result, 0 for success; -1 for an address outside the area, for a null `pBuf` (not logged),
     * and when the link fails.
     */
    int SetATFlashEepMulti(int u32Address, int* pBuf, int u32Len);

    /** @} */

    /**
     * Commits the writes that are pending, those of all areas.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int SetFlashEepFlush();
};
