/**
 * @file
 * Hotel use: the keypad lock, a ceiling for the volume, what the set starts with, the set-up menu, and the hotel data.
 *
 * A function is one command to the TV base service, which owns all values. It blocks until the service has answered and
 * may be called from any thread. A `bool` travels as 0 or 1. A set command whose link fails is logged as
 * "invoke failure\n".
 */
#ifndef KELUTV_LINUX_KELUTV_HOTEL_H
#define KELUTV_LINUX_KELUTV_HOTEL_H

#include <kelutv/export.h>
#include <kelutv/factory_types.h>

#include <stdbool.h>

#ifdef __cplusplus
extern "C" {
#endif

/**
 * @name Hotel mode and keypad
 * @{
 */

/**
 * Switches the hotel mode on or off.
 * @param enable True switches it on.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int SetHotelEnable(bool enable);

/**
 * Tells whether the hotel mode is on.
 * @param pEnable Receives the answer, false on failure; may be null.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int GetHotelEnable(bool* pEnable);

/**
 * Switches the hotel mode's setting of the keypad on or off.
 * @param enable As the service takes it.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int SetHotelKeypadEnable(bool enable);

/**
 * Tells whether the hotel mode's setting of the keypad is on.
 * @param pEnable Receives the answer, false on failure; may be null.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int GetHotelKeypadEnable(bool* pEnable);

/**
 * Switches the hotel mode's setting of the set-up menu on or off.
 * @param enable True switches it on.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int SetHotelSetupMenuEnable(bool enable);

/**
 * Tells whether the hotel mode's setting of the set-up menu is on.
 * @param pEnable Receives the answer, false on failure; may be null.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int GetHotelSetupMenuEnable(bool* pEnable);

/** @} */

/**
 * @name Volume, source and channel
 * @{
 */

/**
 * Sets the highest volume of the hotel mode.
 * @param volume Volume; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int SetHotelMaxVolume(int volume);

/**
 * Reads the highest volume of the hotel mode.
 * @param pVolume Receives the volume, 0 on failure; may be null.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int GetHotelMaxVolume(int* pVolume);

/**
 * Sets the start volume of the hotel mode.
 * @param volume Volume; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int SetHotelBootVolume(int volume);

/**
 * Reads the start volume of the hotel mode.
 * @param pVolume Receives the volume, 0 on failure; may be null.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int GetHotelBootVolume(int* pVolume);

/**
 * Chooses the start source of the hotel mode.
 * @param src One of `KELU_TV_SRC_E`.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int SetHotelBootSrc(int src);

/**
 * Reads the start source of the hotel mode.
 * @param pSrc Receives one of `KELU_TV_SRC_E`, 0 on failure; may be null.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int GetHotelBootSrc(int* pSrc);

/**
 * Chooses the start channel of the hotel mode.
 * @param tvmode Kind of television as the service numbers it.
 * @param channel Channel; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int SetHotelBootChannel(int tvmode, int channel);

/**
 * Reads the start channel of the hotel mode.
 * @param pTvmode Receives the kind of television as the service numbers it, 0 on failure; may be null.
 * @param pChannel Receives the channel, 0 on failure; may be null.
 * @return 0; -1 when the service or the link fails.
 */
KELUTV_API int GetHotelBootChannel(int* pTvmode, int* pChannel);

/** @} */

/**
 * @name Hotel data
 * @{
 */

/**
 * Restores the hotel settings.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int RestoreHotelSetting(void);

/**
 * Copies the hotel data from the EEPROM to a file on a USB disk.
 * @param pName Path of the file.
 * @return The service's result, 0 for success; -1 when the link fails, and for null, with nothing sent.
 */
KELUTV_API int BackupHotelData2USB(const char* pName);

/**
 * Copies the hotel data from a file on a USB disk to the EEPROM.
 * @param pName Path of the file.
 * @return The service's result, 0 for success; -1 when the link fails, and for null, with nothing sent.
 */
KELUTV_API int RestoreHotelData2EEP(const char* pName);

/** @} */

#ifdef __cplusplus
}
#endif

#endif
