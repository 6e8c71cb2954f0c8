/**
 * @file
 * The events of the television.
 */
#ifndef KELUTV_LINUX_KELUTV_NOTIFY_H
#define KELUTV_LINUX_KELUTV_NOTIFY_H

#include <kelutv/export.h>

#ifdef __cplusplus
extern "C" {
#endif

/**
 * Takes one event.
 *
 * Runs on the event manager's delivery thread, one event after the other, and does its own locking.
 * @param eventId The event; its upper half is the module, of `KELU_EM_MODE_E`.
 * @param msg Payload, laid out as the module's events are; valid until the callback returns.
 * @param msgLength Length of the payload in bytes.
 * @param prev Passed on as the event manager hands it over.
 */
typedef void (*tv_NotifyFun_Callback)(int eventId, void* msg, unsigned int msgLength, void* prev);

/**
 * Registers the process's one event callback, in place of any earlier one.
 *
 * Connects to the service on the first use, and writes "call linux_tv_registerCallbackFunc line 6\n" to standard
 * output. Sends no command. Events that arrived before are lost; none arrive while there is no service.
 * @param callback The callback; null unregisters.
 * @return Always 0.
 */
KELUTV_API int linux_tv_registerCallbackFunc(tv_NotifyFun_Callback callback);

/**
 * Takes the event callback away, whichever was registered; events are dropped from then on.
 *
 * Connects to the service on the first use. Sends no command.
 * @param callback Ignored.
 * @return Always 0.
 */
KELUTV_API int linux_tv_unRegisterCallbackFunc(tv_NotifyFun_Callback callback);

#ifdef __cplusplus
}
#endif

#endif
