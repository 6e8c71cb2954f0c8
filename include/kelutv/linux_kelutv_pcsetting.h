/**
 * @file
 * The geometry and the sampling of the picture from an analogue computer (VGA) input.
 *
 * Every function is one command to the TV base service, which owns all values. It blocks until the service has answered
 * and may be called from any thread. A set command whose link fails is logged as "invoke failure\n".
 */
#ifndef KELUTV_LINUX_KELUTV_PCSETTING_H
#define KELUTV_LINUX_KELUTV_PCSETTING_H

#include <kelutv/export.h>

#ifdef __cplusplus
extern "C" {
#endif

/**
 * Adjusts position, clock and phase to the signal.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_PCSetting_autoAdjust(void);

/**
 * Sets the horizontal position of the picture.
 * @param position Position; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_PCSetting_setHPosition(int position);

/**
 * Reads the horizontal position of the picture.
 * @return The position; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_PCSetting_getHPosition(void);

/**
 * Sets the vertical position of the picture.
 * @param position Position; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_PCSetting_setVPosition(int position);

/**
 * Reads the vertical position of the picture.
 * @return The position; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_PCSetting_getVPosition(void);

/**
 * Sets the sampling clock.
 * @param clock Clock; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_PCSetting_setClock(int clock);

/**
 * Reads the sampling clock.
 * @return The clock; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_PCSetting_getClock(void);

/**
 * Sets the sampling phase.
 * @param phase Phase; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_PCSetting_setPhase(int phase);

/**
 * Reads the sampling phase.
 * @return The phase; -1 when the service or the link fails.
 */
KELUTV_API int linux_tv_PCSetting_getPhase(void);

#ifdef __cplusplus
}
#endif

#endif
